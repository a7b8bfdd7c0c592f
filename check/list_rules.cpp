// The lists of both years, which the bills pair by position: shifted, exchanged, too short; tenants
// who came and went.
#include "check/rules.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "settings/ini_file.h"

#include <QSet>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString simplest = u"Am einfachsten mit „Mehr“, „Vorjahr abgleichen …“. "_s;

QString NameAt(const CheckData& data, qsizetype place)
{
    return DisplayName(data.Members[static_cast<std::size_t>(place)], place);
}

QString LastYearNameAt(const CheckData& data, qsizetype place)
{
    return DisplayName(data.LastYearMembers[static_cast<std::size_t>(place)], place);
}

double DeductionSum(const CheckData& data, qsizetype member)
{
    const auto [electricity, water] = Deductions(data, member);
    return electricity + water;
}

/// "Meier, Anna" or "Meier, Anna; Lang, Ida und Schulz, Uwe"
QString NamesFrom(const CheckData& data, qsizetype place, int count)
{
    QStringList names;
    const auto members = static_cast<qsizetype>(data.Members.size());
    for (qsizetype k = place; k < std::min(place + count, members); ++k)
        names += NameAt(data, k);
    if (names.size() == 1)
        return names.first();
    const QString last = names.takeLast();
    return names.join(u"; "_s) + u" und "_s + last;
}

QString RemedyForMissingLines(const CheckData& data, const Shift& shift)
{
    const int count = -shift.distance;
    const QString names = NamesFrom(data, shift.place, count);
    const QString one_by_one = count > 1 ? u", eines nach dem anderen,"_s : QString();
    return simplest
        + u"Im Vorjahr nur ein Mitglied anzuhängen hilft nicht. Sichern Sie die Daten und "
          "schreiben Sie die Angaben von %1 auf. %2 laden, %1%4 mit „Neu Anlegen“ samt "
          "Zählerständen von %2 eintragen; es steht am Ende. %3 laden, %1%4 löschen und mit „Neu "
          "Anlegen“ neu eintragen, damit es auch hier am Ende steht."_s.arg(
              names, data.LastYear, data.Year, one_by_one);
}

QString RemedyForMissingMembers(const CheckData& data, const Shift& shift)
{
    return simplest
        + u"Ist %1 ausgeschieden, löschen Sie es auch in %2: Daten sichern, %2 laden, das Mitglied "
          "wählen, „Löschen“, %3 laden. Fehlt es aus Versehen, holen Sie die Datensicherung "
          "zurück."_s.arg(LastYearNameAt(data, shift.place), data.LastYear, data.Year);
}

/// The names and gardens of this year's list.
struct Present {
    QSet<QString> names;
    QSet<QString> gardens;
};

QString NameKey(const CheckMember& member)
{
    return FieldOf(member, Surname).trimmed() + u';' + FieldOf(member, FirstName).trimmed();
}

Present PresentOf(const CheckData& data)
{
    Present present;
    for (const CheckMember& member : data.Members) {
        present.names.insert(NameKey(member));
        present.gardens.insert(FieldOf(member, PlotNumber).trimmed());
    }
    return present;
}

bool IsGone(const Present& present, const CheckMember& before)
{
    const QString garden = FieldOf(before, PlotNumber).trimmed();
    return !present.names.contains(NameKey(before))
        && (garden.isEmpty() || !present.gardens.contains(garden));
}

QString RemedyForForeignDeductions(const CheckData& data, const Finding& finding)
{
    const bool one = finding.rows.size() == 1;
    const QString place = one ? u"auf Platz %1"_s.arg(finding.rows.front().target.position + 1)
                              : u"auf jedem dieser Plätze"_s;
    return simplest
        + u"Beide Jahre brauchen dieselbe Reihenfolge. Laden Sie %1, und tragen Sie %2 Namen und "
          "Zählerstände des Mitglieds ein, das %3 %4 steht (ohne Zählerstände, wenn es %1 noch "
          "nicht dabei war). Sichern Sie vorher die Daten: Das ändert das Vorjahr."_s.arg(
              data.LastYear, place, data.Year, one ? place : u"dort"_s);
}

void CheckGone(const CheckData& data, Findings& findings)
{
    std::optional<Present> present; // most years nobody has gone
    for (std::size_t line = 0; line < data.LastYearMembers.size(); ++line) {
        const auto place = static_cast<qsizetype>(line);
        if (data.Pairs.LastYearIds[line] < 0 || SamePersonAt(data.Pairs, place))
            continue;
        if (!present)
            present = PresentOf(data);
        if (!IsGone(*present, data.LastYearMembers[line]))
            continue;
        Add(findings,
            { u"C22b"_s, Level::Hint,
                u"%1 noch dabei, jetzt nicht mehr: %2."_s.arg(
                    data.LastYear, LastYearNameAt(data, place)),
                {}, ControlTarget(u"List1"_s) });
    }
}

bool HasSection(const CheckData& data)
{
    const PreviousSettings& settings = data.LastYearSettings;
    const auto filled = [](const QString& text) { return !text.isEmpty(); };
    return std::any_of(settings.Prices.begin(), settings.Prices.end(), filled)
        || std::any_of(settings.Ticks.begin(), settings.Ticks.end(), filled);
}

} // namespace

void CheckShiftedLists(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe || !data.Pairs.Shifted)
        return;
    const Shift& shift = *data.Pairs.Shifted;
    const bool last_year_short = shift.distance < 0;
    const int count = std::abs(shift.distance);
    const QString place = QString::number(shift.place + 1);
    const QString lines = count == 1 ? u"fehlt eine Zeile"_s : u"fehlen %1 Zeilen"_s.arg(count);
    Finding finding { last_year_short ? u"C19a"_s : u"C19b"_s, Level::Error,
        u"In der Liste von %1 %2: Ab Platz %3 (%4) bekommt jedes Mitglied den Abzug eines "
        "anderen."_s.arg(
            last_year_short ? data.LastYear : data.Year, lines, place, NameAt(data, shift.place)),
        last_year_short ? RemedyForMissingLines(data, shift)
                        : RemedyForMissingMembers(data, shift) };
    finding.rows.push_back(
        { u"Platz %1: %2 %3, %4 %5"_s.arg(place, data.Year, NameAt(data, shift.place),
              data.LastYear, LastYearNameAt(data, shift.place)),
            MemberTarget(shift.place, Surname) });
    Add(findings, finding);
}

void CheckForeignDeductions(const CheckData& data, Findings& findings)
{
    Finding finding { u"C20"_s, Level::Error,
        u"Der Abzug der Vorauszahlung gehört zu jemand anderem."_s };
    std::optional<QSet<int>> last_year; // most years everybody stands where he stood
    for (std::size_t k = 0; k < data.Members.size() && !data.MembersUnsafe; ++k) {
        const auto place = static_cast<qsizetype>(k);
        if (!OtherPersonAt(data.Pairs, place) || data.Pairs.TenantChanges[k]
            || data.Pairs.Explained[k])
            continue;
        if (!last_year)
            last_year.emplace(data.Pairs.LastYearIds.begin(), data.Pairs.LastYearIds.end());
        const bool elsewhere = data.Pairs.Ids[k] >= 0 && last_year->contains(data.Pairs.Ids[k]);
        const auto [electricity, water] = Deductions(data, place);
        if (electricity == 0.0 && water == 0.0 && !elsewhere)
            continue;
        finding.rows.push_back(MemberRow(data, place, Surname,
            u"bekommt den Abzug von %1 (%2 €)"_s.arg(
                LastYearNameAt(data, place), EuroAmount(electricity + water))));
    }
    if (finding.rows.empty())
        return;
    finding.remedy = RemedyForForeignDeductions(data, finding);
    Add(findings, finding);
}

void CheckMissingLines(const CheckData& data, Findings& findings)
{
    const bool said = data.Pairs.Shifted && data.Pairs.Shifted->distance < 0;
    if (data.MembersUnsafe || !data.LastYearRead || said
        || data.LastYearMembers.size() >= data.Members.size())
        return;
    const auto first = static_cast<qsizetype>(data.LastYearMembers.size());
    const auto count = static_cast<qsizetype>(data.Members.size()) - first;
    Finding finding { u"C21"_s, Level::Error,
        u"In der Liste von %1 %2; ab Seite %3 bleiben die Abrechnungen ohne Beträge."_s.arg(
            data.LastYear,
            count == 1 ? u"fehlt am Ende eine Zeile"_s : u"fehlen am Ende %1 Zeilen"_s.arg(count),
            QString::number(first + 1)),
        simplest
            + u"%1 laden, diese Mitglieder in derselben Reihenfolge mit „Neu Anlegen“ eintragen, "
              "„Speichern“, wieder %2 laden. Zählerstände nur, wenn es sie %1 gab."_s.arg(
                  data.LastYear, data.Year) };
    for (qsizetype k = first; k < first + count; ++k) {
        FindingRow row = MemberRow(data, k, Surname);
        row.target = YearBackTarget();
        finding.rows.push_back(row);
    }
    Add(findings, finding);
}

void CheckTenants(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const auto place = static_cast<qsizetype>(k);
        if (!data.Pairs.TenantChanges[k])
            continue;
        const double deducted = DeductionSum(data, place);
        QString sentence = u"Anderer Pächter: %1 %2, jetzt %3."_s.arg(
            data.LastYear, LastYearNameAt(data, place), NameAt(data, place));
        if (deducted != 0.0)
            sentence
                += u" Die Vorauszahlung des Vorgängers (%1 €) wird dem Nachfolger abgezogen."_s.arg(
                    EuroAmount(deducted));
        AddTo(findings,
            { u"C22a"_s, Level::Hint, sentence,
                u"Gleichen Sie den Betrag bei der Übergabe aus."_s },
            MemberRow(data, place, Surname));
    }
    CheckGone(data, findings);
}

void CheckLastYearFile(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe || data.LastYearMembersFile.There || data.Members.empty())
        return;
    const bool others
        = HasSection(data) || data.LastYearLedgers[0].There || data.LastYearLedgers[1].There;
    if (others)
        Add(findings,
            { u"C23a"_s, Level::Warning,
                u"Die Mitglieder von %1 fehlen, obwohl andere Dateien dieses Jahres da sind. Keine "
                "Vorauszahlung wird abgezogen."_s.arg(data.LastYear),
                u"Holen Sie „Mitgliedsdaten%1.pz“ aus der Datensicherung zurück."_s.arg(
                    data.LastYear),
                ControlTarget(u"Text2"_s) });
    else
        Add(findings,
            { u"C23b"_s, Level::Hint,
                u"Es gibt kein Vorjahr; keine Vorauszahlung wird abgezogen."_s, {},
                ControlTarget(u"Text2"_s) });
}
