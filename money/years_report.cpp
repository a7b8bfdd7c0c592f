#include "money/years_report.h"

#include "money/report_parts.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString choose = u"choose"_s;
const QString member_of = u"member:"_s;
constexpr double full_bar = 100.0;

/// The largest value of each column with bars.
struct Largest {
    qint64 electricity = 0;
    qint64 water = 0;
    qint64 sum = 0;
};

Largest LargestOf(const std::vector<ClubYear>& years)
{
    Largest largest;
    for (const ClubYear& year : years) {
        largest.electricity = std::max(largest.electricity, std::abs(year.Electricity));
        largest.water = std::max(largest.water, std::abs(year.Water));
        largest.sum = std::max(largest.sum, std::abs(year.Sum));
    }
    return largest;
}

ReportCell WholeCell(qint64 value)
{
    return NumberCell(QString::number(value), static_cast<double>(value));
}

/// Empty beside the value, which says the same in digits.
ReportCell BarCell(qint64 value, qint64 largest, const ClubYear& year)
{
    ReportCell cell;
    const int length = BarLength(value, largest);
    if (length == 0)
        return cell;
    cell.bar = length / full_bar;
    const bool complete = year.Bills == static_cast<int>(year.Members.size());
    cell.bar_look = value < 0 ? BarLook::Warning : (complete ? BarLook::Full : BarLook::Pale);
    return cell;
}

QString YearText(const ClubYear& year)
{
    const QString text = QString::number(year.Year);
    if (!year.Readable)
        return text + u" nicht lesbar"_s;
    if (year.Bills == static_cast<int>(year.Members.size()))
        return text;
    return text + u" (%1 von %2 Abrechnungen)"_s.arg(year.Bills).arg(year.Members.size());
}

ReportRow YearRow(const ClubYear& year, const Largest& largest)
{
    ReportCell name = TextCell(YearText(year));
    name.sort_value = year.Year;
    if (!year.Readable)
        return { { name, {}, {}, {}, {}, {}, {}, {}, {}, {}, {} } };
    const std::optional<Cents> per_bill = PerBill(year);
    return { { name, WholeCell(static_cast<qint64>(year.Members.size())),
        WholeCell(year.Electricity), BarCell(year.Electricity, largest.electricity, year),
        WholeCell(year.Water), BarCell(year.Water, largest.water, year),
        TextCell(year.ElectricityPrice), TextCell(year.WaterPrice), EuroCell(year.Sum),
        BarCell(year.Sum, largest.sum, year), per_bill ? EuroCell(*per_bill) : ReportCell {} } };
}

void AddYears(Report& report, const std::vector<ClubYear>& years)
{
    ReportTable table { u"years"_s };
    table.columns = { TextColumn(u"Jahr"_s, true), NumberColumn(u"Mitglieder"_s, true),
        NumberColumn(u"Strom KWh"_s, true), TextColumn({}), NumberColumn(u"Wasser m³"_s, true),
        TextColumn({}), NumberColumn(u"Strompreis"_s), NumberColumn(u"Wasserpreis"_s),
        NumberColumn(u"Summe der Abrechnungen"_s, true), TextColumn({}),
        NumberColumn(u"je Mitglied"_s, true) };
    const Largest largest = LargestOf(years);
    for (const ClubYear& year : years)
        table.rows.push_back(YearRow(year, largest));
    report.items.emplace_back(table);
}

// --- one member --------------------------------------------------------------------------------

QString NameOf(const YearMember& member) { return member.Surname + u',' + member.FirstName; }

ReportSentence NamesToChoose(const ClubYear& newest)
{
    ReportSentence names;
    for (std::size_t i = 0; i < newest.Members.size(); ++i) {
        if (i > 0)
            names.texts.push_back({ u" · "_s });
        names.texts.push_back(
            { NameOf(newest.Members[i]), FilterLink(member_of + QString::number(i)) });
    }
    return names;
}

ReportRow MemberRow(const MemberYear& year)
{
    ReportCell name = WholeCell(year.Year);
    if (year.Found == Presence::Missing)
        return { { name, TextCell(u"–"_s), TextCell(u"–"_s), TextCell(u"–"_s), TextCell(u"–"_s) } };
    if (year.Found == Presence::Unclear)
        return { { name, TextCell(u"nicht eindeutig"_s), {}, {}, {} } };
    const YearMember& member = year.Member;
    return { { name, TextCell(member.Garden),
        member.Electricity ? WholeCell(*member.Electricity) : ReportCell {},
        member.Water ? WholeCell(*member.Water) : ReportCell {},
        member.Bill ? EuroCell(*member.Bill) : ReportCell {} } };
}

void AddMember(Report& report, const std::vector<ClubYear>& years, std::size_t position)
{
    AddHeading(report, 3, NameOf(years.back().Members[position]));
    ReportTable table { u"member"_s };
    table.columns = { TextColumn(u"Jahr"_s, true), TextColumn(u"Garten"_s, true),
        NumberColumn(u"Strom KWh"_s, true), NumberColumn(u"Wasser m³"_s, true),
        NumberColumn(u"Rechnung"_s, true) };
    for (const MemberYear& year : MemberOverYears(years, position))
        table.rows.push_back(MemberRow(year));
    report.items.emplace_back(table);
}

void AddMemberPart(Report& report, const std::vector<ClubYear>& years, const ReportChoices& choices)
{
    AddHeading(report, 2, u"Ein Mitglied über die Jahre"_s);
    bool is_member = false;
    const QString chosen = choices.Filter.startsWith(member_of)
        ? choices.Filter.sliced(member_of.size())
        : QString();
    const auto position = static_cast<std::size_t>(chosen.toUInt(&is_member));
    if (is_member && position < years.back().Members.size())
        AddMember(report, years, position);
    if (choices.Filter == choose)
        report.items.emplace_back(NamesToChoose(years.back()));
    else
        AddLinkLine(report, is_member ? u"Ein anderes Mitglied wählen …"_s : u"Mitglied wählen …"_s,
            FilterLink(choose));
}

} // namespace

Report MakeYearsReport(
    const std::vector<ClubYear>& years, int loaded_year, const ReportChoices& choices)
{
    const QString title = u"Jahre im Vergleich"_s;
    Report report { title };
    report.paper = PaperSide::Landscape;
    AddHeading(report, 1, title);
    if (years.empty()) {
        AddSentence(report, u"Bis %1 gibt es kein Mitgliederverzeichnis."_s.arg(loaded_year));
        return report;
    }
    AddYears(report, years);
    AddMemberPart(report, years, choices);
    return report;
}
