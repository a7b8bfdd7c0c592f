// Payments of bills, as the marks in the list of names read them: by the surname in the text.
#include "cashbook/member_marks.h"
#include "cashbook/texts.h"
#include "check/rules.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

bool IsWordSign(QChar sign) { return sign.isLetterOrNumber() || sign == u'-'; }

/// No letter, digit or hyphen beside it.
bool HasWholeWord(QStringView text, QStringView word)
{
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
        const qsizetype end = at + word.size();
        const bool begins = at == 0 || !IsWordSign(text[at - 1]);
        if (begins && (end == text.size() || !IsWordSign(text[end])))
            return true;
    }
    return false;
}

/// The bookings whose text holds "Abrechnung", with the words that stand in them.
struct Payments {
    std::vector<std::size_t> rows;
    QHash<QString, std::vector<std::size_t>> by_word; ///< rows by whole words
    QStringList texts; ///< each different text once
};

void AddWords(Payments& payments, QStringView text, std::size_t row)
{
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at;
        while (end < text.size() && IsWordSign(text[end]))
            ++end;
        if (end > at)
            payments.by_word[text.sliced(at, end - at).toString()].push_back(row);
        at = end + 1;
    }
}

Payments FindPayments(const CheckBookings& bookings)
{
    Payments payments;
    QSet<QStringView> known;
    for (std::size_t row = 0; row < bookings.Rows.size(); ++row) {
        const QStringView text = bookings.Rows[row].text;
        if (!text.contains(StatementWord))
            continue;
        payments.rows.push_back(row);
        AddWords(payments, text, row);
        if (known.contains(text))
            continue;
        known.insert(text);
        payments.texts += text.toString();
    }
    return payments;
}

/// So many payments hold the surname as a whole word.
qsizetype PaymentsOf(
    const Payments& payments, const CheckBookings& bookings, const QString& surname)
{
    if (const auto word = payments.by_word.constFind(surname); word != payments.by_word.cend())
        return static_cast<qsizetype>(QSet<std::size_t>(word->begin(), word->end()).size());
    qsizetype count = 0; // a name of several words, or none
    const bool single = std::all_of(surname.begin(), surname.end(), IsWordSign);
    for (std::size_t i = 0; !single && i < payments.rows.size(); ++i)
        count += HasWholeWord(bookings.Rows[payments.rows[i]].text, surname) ? 1 : 0;
    return count;
}

struct Surnames {
    QStringList each; ///< in list order, each once
    QHash<QString, qsizetype> counts;
};

Surnames SurnamesOf(const CheckData& data)
{
    Surnames surnames;
    for (const CheckMember& member : data.Members) {
        const QString surname = FieldOf(member, Surname);
        if (surname.isEmpty())
            continue; // it would be found in every text
        if (++surnames.counts[surname] == 1)
            surnames.each += surname;
    }
    return surnames;
}

/// The first text that holds the surname somewhere, as the marks look for it.
QString MarkingText(const Payments& payments, const QString& surname)
{
    for (const QString& text : payments.texts) {
        if (text.contains(surname))
            return text;
    }
    return {};
}

void CheckUnknownPayments(const CheckBookings& bookings, const Payments& payments,
    const Surnames& surnames, std::size_t account, Findings& findings)
{
    QSet<std::size_t> told; // rows with a surname as a whole word, which most have
    for (const QString& surname : surnames.each) {
        const auto word = payments.by_word.constFind(surname);
        if (word != payments.by_word.cend())
            told.unite(QSet<std::size_t>(word->begin(), word->end()));
    }
    for (const std::size_t row : payments.rows) {
        const CheckBooking& booking = bookings.Rows[row];
        const auto stands_in_it
            = [&](const QString& surname) { return booking.text.contains(surname); };
        if (booking.deposit.sign <= 0 || told.contains(row)
            || std::any_of(surnames.each.begin(), surnames.each.end(), stands_in_it))
            continue;
        AddTo(findings,
            { u"C50a"_s, Level::Hint, u"Diese Zahlung ist keinem Mitglied zugeordnet."_s,
                u"Schreiben Sie den Nachnamen wie in der Namensliste in den Vorgang."_s },
            { AccountNameOf(account) + u": "_s + BookingWords(booking),
                BookingTarget(account, static_cast<qsizetype>(row)) });
    }
}

void CheckMark(const CheckBookings& bookings, const Payments& payments, const QString& surname,
    qsizetype members, std::size_t account, Findings& findings)
{
    const QString remedy = u"Verlassen Sie sich hier nicht auf die Markierung; schreiben Sie den "
                           "Vornamen in den Vorgang."_s;
    const qsizetype paid = PaymentsOf(payments, bookings, surname);
    const LinkTarget target = BookingTarget(account, -1, u"List4"_s);
    if (paid == 0) {
        if (const QString text = MarkingText(payments, surname); !text.isEmpty())
            AddTo(findings,
                { u"C50b"_s, Level::Hint,
                    u"Als bezahlt markiert, aber gebucht ist %1."_s.arg(Quoted(text)), remedy },
                { AccountNameOf(account) + u": "_s + surname, target });
    } else if (members > 1 && paid < members) {
        AddTo(findings,
            { u"C50c"_s, Level::Hint,
                u"%1 Mitglieder heißen %2 und sind als bezahlt markiert, gebucht %3."_s.arg(
                    QString::number(members), surname,
                    paid == 1 ? u"ist aber erst 1 Zahlung"_s
                              : u"sind aber erst %1 Zahlungen"_s.arg(paid)),
                remedy },
            { AccountNameOf(account), target });
    }
}

} // namespace

void CheckPaidMarks(const CheckData& data, Findings& findings)
{
    const Surnames surnames = SurnamesOf(data);
    for (std::size_t account = 0; account < 2; ++account) {
        const CheckBookings& bookings = data.Bookings.at(account);
        if (data.LedgerUnsafe.at(account))
            continue;
        const Payments payments = FindPayments(bookings);
        if (payments.rows.empty())
            continue;
        CheckUnknownPayments(bookings, payments, surnames, account, findings);
        for (const QString& surname : surnames.each)
            CheckMark(
                bookings, payments, surname, surnames.counts.value(surname), account, findings);
    }
}
