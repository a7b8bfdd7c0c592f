// The members' own data: entered twice, names that are not printed or found, gaps in the address.
#include "check/rules.h"
#include "data/german_numbers.h"

#include <QMap>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Places = std::vector<qsizetype>;

QString Trimmed(const CheckMember& member, int field) { return FieldOf(member, field).trimmed(); }

QString TrimmedName(const CheckMember& member)
{
    return Trimmed(member, Surname) + u';' + Trimmed(member, FirstName);
}

/// "Plätze 1, 3 und 5"
QString PlacesText(const Places& places)
{
    QString text = u"Plätze "_s;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i > 0)
            text += i + 1 < places.size() ? u", "_s : u" und "_s;
        text += QString::number(places[i] + 1);
    }
    return text;
}

QString NamesText(const CheckData& data, const Places& places)
{
    QStringList names;
    for (const qsizetype place : places)
        names += DisplayName(data.Members[static_cast<std::size_t>(place)], place);
    const QString last = names.takeLast();
    return names.join(u", "_s) + u" und "_s + last;
}

/// The places of each key that is not empty, in the order of their first places; of those that may
/// stand twice.
template <typename KeyOf>
std::vector<std::pair<QString, Places>> Grouped(
    const CheckData& data, const std::vector<bool>& may_stand_twice, KeyOf key_of)
{
    std::vector<std::pair<QString, Places>> groups;
    QHash<QString, std::size_t> known;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const bool counts = may_stand_twice[k] && data.Members[k].Whole;
        const QString key = counts ? key_of(data.Members[k]) : QString();
        if (key.isEmpty())
            continue;
        const auto group = known.constFind(key);
        if (group == known.cend()) {
            known.insert(key, groups.size());
            groups.push_back({ key, { static_cast<qsizetype>(k) } });
        } else {
            groups[*group].second.push_back(static_cast<qsizetype>(k));
        }
    }
    return groups;
}

void CheckTwice(const CheckData& data, Findings& findings)
{
    const auto key = [](const CheckMember& member) {
        return TrimmedName(member) + u';' + Trimmed(member, PlotNumber);
    };
    for (const auto& [name, places] : Grouped(data, data.Pairs.NameTwice, key)) {
        if (places.size() < 2)
            continue;
        const CheckMember& first = data.Members[static_cast<std::size_t>(places.front())];
        const QString garden = Trimmed(first, PlotNumber);
        const Finding finding { u"C10a"_s, Level::Error,
            u"Doppelt eingetragen, es gibt zwei Abrechnungen:"_s,
            u"Löschen Sie den hinteren Eintrag, wenn er nur ein Versehen ist; steht er auch in der "
            "Liste von %1, dann dort ebenso."_s.arg(data.LastYear) };
        AddTo(findings, finding,
            { PlacesText(places) + u", "_s + DisplayName(first, places.front())
                    + (garden.isEmpty() ? QString() : u", Garten "_s + garden),
                MemberTarget(places[1], Surname) });
    }
}

void CheckSharedGardens(const CheckData& data, Findings& findings)
{
    const auto key = [](const CheckMember& member) { return Trimmed(member, PlotNumber); };
    for (const auto& [garden, places] : Grouped(data, data.Pairs.GardenTwice, key)) {
        if (places.size() < 2)
            continue;
        QSet<QString> names;
        for (const qsizetype place : places)
            names.insert(TrimmedName(data.Members[static_cast<std::size_t>(place)]));
        if (names.size() < 2)
            continue;
        const Finding finding { u"C10b"_s, Level::Warning,
            u"Garten %1 steht bei mehreren Mitgliedern und wird mehrfach abgerechnet:"_s.arg(
                garden),
            u"Berichtigen Sie die Gartennummer, oder lassen Sie sie beim zweiten leer, wenn beide "
            "sich den Garten teilen und nur einer zahlt."_s };
        AddTo(findings, finding,
            { PlacesText(places) + u", "_s + NamesText(data, places),
                MemberTarget(places[1], PlotNumber) });
    }
}

// --- names ------------------------------------------------------------------------------------

QString PrintedName(const CheckMember& member, const QString& surname)
{
    return Quoted(FieldOf(member, FirstName) + u' ' + surname);
}

bool EndsInOtherDigit(const QString& surname)
{
    const QChar last = surname.isEmpty() ? QChar() : surname.back();
    return last >= u'0' && last <= u'9' && last != u'2';
}

bool HasBlankAround(const QString& text)
{
    return !text.isEmpty() && (text.front().isSpace() || text.back().isSpace());
}

bool IsNamed(const CheckData& data, const QString& surname)
{
    return std::any_of(data.Members.begin(), data.Members.end(),
        [&](const CheckMember& member) { return FieldOf(member, Surname) == surname; });
}

void CheckName(const CheckData& data, Findings& findings, qsizetype k)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    const QString surname = FieldOf(member, Surname);
    const QString first = FieldOf(member, FirstName);
    const auto add
        = [&](const QString& id, Level level, const QString& sentence, const QString& remedy) {
              AddTo(findings, { id, level, sentence, remedy }, MemberRow(data, k, Surname));
          };
    static const QString correct = u"Berichtigen Sie den Namen und drücken Sie „Speichern“."_s;
    if (EndsInOtherDigit(surname))
        add(u"C11a"_s, Level::Warning,
            u"Gedruckt wird %1 mit der Ziffer; nur eine 2 am Ende wird weggelassen."_s.arg(
                PrintedName(member, surname)),
            u"Lassen Sie die Ziffer weg; der Vorname unterscheidet genug."_s);
    if (surname.contains(u',') || first.contains(u','))
        add(u"C11b"_s, Level::Warning,
            u"Ein Komma im Namen: Als Ansprechpartner und in der Kontoführung wird das Mitglied "
            "nicht gefunden."_s,
            correct);
    if (QStringView(surname).trimmed().isEmpty() && QStringView(first).trimmed().isEmpty())
        add(u"C11c"_s, Level::Warning, u"Der Name fehlt."_s, correct);
    else if (HasBlankAround(surname) || HasBlankAround(first))
        add(u"C11c"_s, Level::Warning, u"Leerzeichen vor oder hinter dem Namen."_s, correct);
    if (surname.size() > 1 && surname.endsWith(u'2') && !IsNamed(data, surname.chopped(1)))
        add(u"C11d"_s, Level::Hint,
            u"Gedruckt wird %1, ein Mitglied %2 gibt es aber nicht."_s.arg(
                PrintedName(member, surname.chopped(1)), Quoted(surname.chopped(1))),
            u"Lassen Sie die 2 weg, wenn sie nicht mehr gebraucht wird."_s);
}

// --- gaps -------------------------------------------------------------------------------------

const QString fill_field = u"Ergänzen Sie das Feld und drücken Sie „Speichern“."_s;

bool ChargesPlots(const PriceSettings& prices)
{
    return !IsEmptyOrZero(prices.Lease) || !IsEmptyOrZero(prices.PropertyTax)
        || !IsEmptyOrZero(prices.AreaContribution);
}

bool IsOneToThree(const ParsedDouble& number)
{
    return number.outcome == NumberOutcome::Ok
        && (number.value == 1.0 || number.value == 2.0 || number.value == 3.0);
}

void CheckPlot(const CheckData& data, Findings& findings, qsizetype k, bool charged)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    const QStringView garden = QStringView(FieldOf(member, PlotNumber)).trimmed();
    const bool no_size = IsEmptyOrZero(member, PlotSize);
    if (!garden.isEmpty() && charged && no_size)
        AddTo(findings,
            { u"C12a"_s, Level::Warning,
                u"Garten %1 hat keine Größe und zahlt weder Pacht noch Steuer noch "
                "Flächenbeitrag."_s.arg(garden),
                fill_field },
            MemberRow(data, k, PlotSize));
    if (garden.isEmpty() && !no_size)
        AddTo(findings, { u"C12b"_s, Level::Hint, u"Die Gartennummer fehlt."_s, fill_field },
            MemberRow(data, k, PlotNumber));
}

void CheckAddress(const CheckData& data, Findings& findings, qsizetype k)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    static const std::pair<int, QString> lines[] { { Street, u"Straße"_s }, { Town, u"Ort"_s } };
    for (const auto& [field, caption] : lines) {
        if (QStringView(FieldOf(member, field)).trimmed().isEmpty())
            AddTo(findings,
                { u"C12c"_s, Level::Hint, caption + u" fehlt im Anschriftenfeld der Abrechnung."_s,
                    fill_field },
                MemberRow(data, k, field));
    }
    const QString instalments = FieldOf(member, Instalments);
    if (!instalments.isEmpty() && !IsOneToThree(NumberIn(member, Instalments)))
        AddTo(findings,
            { u"C12d"_s, Level::Hint,
                u"Ratenzahlung %1; auf der Abrechnung steht immer „3 Monatsratenzahlung“."_s.arg(
                    Quoted(instalments)),
                fill_field },
            MemberRow(data, k, Instalments));
}

} // namespace

void CheckDoubles(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    CheckTwice(data, findings);
    CheckSharedGardens(data, findings);
}

void CheckNames(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (data.Members[k].Whole)
            CheckName(data, findings, static_cast<qsizetype>(k));
    }
}

void CheckMissingFields(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    const bool charged = ChargesPlots(data.Source.Prices);
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (!data.Members[k].Whole)
            continue;
        CheckPlot(data, findings, static_cast<qsizetype>(k), charged);
        CheckAddress(data, findings, static_cast<qsizetype>(k));
    }
}
