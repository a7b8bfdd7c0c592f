// The club's name, its bank and its treasurer, as they are printed on every bill.
#include "check/rules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype german_iban = 22; // characters
constexpr qsizetype shortest_rest = 11;
constexpr qsizetype longest_rest = 30;

bool IsLetter(QChar sign) { return sign >= u'A' && sign <= u'Z'; }

bool IsDigit(QChar sign) { return sign >= u'0' && sign <= u'9'; }

bool IsLetterOrDigit(QChar sign) { return IsLetter(sign) || IsDigit(sign); }

template <typename Is> bool All(QStringView text, Is is)
{
    return std::all_of(text.begin(), text.end(), is);
}

/// Without blanks, letters made capital.
QString Compact(const QString& text)
{
    QString compact;
    for (const QChar sign : text) {
        if (!sign.isSpace())
            compact += sign;
    }
    return compact.toUpper();
}

/// The number that letters and digits make, divided by 97.
int Remainder97(const QString& text)
{
    int remainder = 0;
    for (const QChar sign : text) {
        const int value = IsDigit(sign) ? sign.unicode() - u'0' : sign.unicode() - u'A' + 10;
        remainder = (remainder * (value > 9 ? 100 : 10) + value) % 97;
    }
    return remainder;
}

/// ISO 7064: country and check digits go behind, the remainder is 1.
bool IsIban(const QString& iban)
{
    const QStringView view(iban);
    const qsizetype rest = view.size() - 4;
    if (rest < shortest_rest || rest > longest_rest || !All(view.first(2), IsLetter)
        || !All(view.sliced(2, 2), IsDigit) || !All(view.sliced(4), IsLetterOrDigit))
        return false;
    if (iban.startsWith(u"DE"_s) && iban.size() != german_iban)
        return false;
    return Remainder97(iban.mid(4) + iban.left(4)) == 1;
}

bool IsBic(const QString& bic)
{
    const QStringView view(bic);
    return (view.size() == 8 || view.size() == 11) && All(view.first(6), IsLetter)
        && All(view.sliced(6), IsLetterOrDigit);
}

void CheckEmptyFields(const BankSettings& bank, Findings& findings)
{
    struct Part {
        const QString& text;
        QString caption;
        LinkTarget target;
    };
    const Part parts[] { { bank.BankName, u"Bankname"_s, BankTarget(0) },
        { bank.Iban, u"IBAN"_s, BankTarget(1) }, { bank.TreasurerName, u"Name"_s, BankTarget(5) },
        { bank.TreasurerSalutation, u"Anrede"_s, ControlTarget(u"C1"_s) } };
    for (const Part& part : parts) {
        if (part.text.trimmed().isEmpty())
            Add(findings,
                { u"C35a"_s, Level::Warning,
                    u"%1 ist leer; auf der Abrechnung bleibt dort eine Lücke."_s.arg(
                        Quoted(part.caption)),
                    u"Ergänzen oder berichtigen Sie das Feld und drücken Sie „Speichern“."_s,
                    part.target });
    }
}

} // namespace

void CheckClubName(const CheckData& data, Findings& findings)
{
    const CheckSource& source = data.Source;
    const QString restart = u"Beenden Sie das Programm, löschen Sie die Datei „V.dat“ und starten "
                            "Sie neu; dann lässt sich der Name eintragen."_s;
    const LinkTarget target = source.ClubNameBoxShown ? ControlTarget(u"Text5"_s) : LinkTarget {};
    if (source.ClubName == source.ClubNameHint)
        Add(findings,
            { u"C33a"_s, Level::Error,
                u"Als Vereinsname ist der Beispieltext gespeichert; so steht er auf jeder "
                "Abrechnung."_s,
                restart, target });
    else if (source.ClubName.isEmpty() || !data.ClubFile.There)
        Add(findings,
            { u"C33b"_s, Level::Warning, u"Der Vereinsname fehlt auf den Abrechnungen."_s,
                source.ClubNameBoxShown
                    ? u"Tragen Sie ihn oben ein und drücken Sie „Speichern“ daneben."_s
                    : restart,
                target });
}

void CheckIban(const CheckData& data, Findings& findings)
{
    const QString& text = data.Source.Bank.Iban;
    const QString iban = Compact(text);
    if (iban.isEmpty() || IsIban(iban))
        return;
    Add(findings,
        { u"C34"_s, Level::Error,
            IsBic(iban)
                ? u"Im Feld IBAN steht eine BIC."_s
                : u"Die IBAN %1 kann nicht stimmen: Ihre Prüfziffer oder ihre Länge passt nicht."_s
                      .arg(Quoted(text)),
            u"Vergleichen Sie sie mit dem Kontoauszug."_s, BankTarget(1) });
}

void CheckBankFields(const CheckData& data, Findings& findings)
{
    const BankSettings& bank = data.Source.Bank;
    CheckEmptyFields(bank, findings);
    const QString bic = Compact(bank.Bic);
    if (bic.isEmpty())
        return;
    const QString correct
        = u"Ergänzen oder berichtigen Sie das Feld und drücken Sie „Speichern“."_s;
    const QString iban = Compact(bank.Iban);
    if (!IsBic(bic))
        Add(findings,
            { u"C35b"_s, Level::Warning,
                u"Die BIC %1 hat nicht die übliche Form."_s.arg(Quoted(bank.Bic)), correct,
                BankTarget(2) });
    else if (IsIban(iban) && bic.mid(4, 2) != iban.left(2))
        Add(findings,
            { u"C35c"_s, Level::Warning, u"IBAN und BIC gehören zu verschiedenen Ländern."_s,
                correct, BankTarget(2) });
}
