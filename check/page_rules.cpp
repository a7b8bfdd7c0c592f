// The bills as they were drawn last: amounts that are missing or odd, texts that leave their cells,
// a font that is not the page's own.
#include "check/rules.h"
#include "data/german_numbers.h"
#include "statement/statement_pages.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double far_above = 5.0; // times the usual total
constexpr int unit_width = 26; // page pixels of "KWh "
constexpr std::size_t fewest_totals = 5; // fewer have no usual total

// --- missing totals ---------------------------------------------------------------------------

QString CauseOf(const CheckData& data, qsizetype member)
{
    const AnnualStatement bill = StatementOfPage(data.Source.Statement, member);
    if (!bill.stopped || bill.stopped->kind == ErrorKind::Overflow)
        return u"Ein Betrag ist zu groß"_s;
    if (bill.stopped->kind != ErrorKind::SubscriptOutOfRange)
        return u"C08"_s;
    if (!data.LastYearRead || member < static_cast<qsizetype>(data.LastYearMembers.size()))
        return u"C05"_s;
    return data.Pairs.Shifted && data.Pairs.Shifted->distance < 0 ? u"C19"_s : u"C21"_s;
}

// --- odd totals -------------------------------------------------------------------------------

/// The totals in full precision of what the bills show.
std::vector<double> Totals(const CheckData& data)
{
    std::vector<double> totals;
    totals.reserve(static_cast<std::size_t>(data.Source.Statement.StatementTotals.size()));
    for (const QString& text : data.Source.Statement.StatementTotals)
        totals.push_back(static_cast<double>(ParseTextOfSingle(text).value));
    return totals;
}

double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2.0;
}

/// The table head and the unit as wide as in the font that the page is made for.
bool HasPageFont(const CheckData& data)
{
    static const std::pair<QString, int> widths[] { { u"head_1"_s, 471 }, { u"head_2"_s, 453 } };
    PageText unit;
    unit.text = u"KWh "_s;
    if (data.Source.WidthOf(unit) != unit_width)
        return false;
    for (const PageItem& item : data.Source.Statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        for (const auto& [element, width] : widths) {
            if (text != nullptr && text->element == element && data.Source.WidthOf(*text) != width)
                return false;
        }
    }
    return true;
}

FindingRow BillLine(const CheckData& data, qsizetype member)
{
    FindingRow row = MemberRow(data, member, Surname);
    row.target = { LinkKind::BillPage, {}, member };
    return row;
}

} // namespace

void CheckTotals(const CheckData& data, Findings& findings)
{
    const qsizetype drawn = data.Source.Statement.StatementTotals.size();
    const auto members = static_cast<qsizetype>(data.Members.size());
    if (data.MembersUnsafe || drawn >= members || members != PageCount(data.Source.Statement))
        return;
    const QString cause = CauseOf(data, drawn);
    Add(findings,
        { u"C38"_s, Level::Error,
            u"Ab Seite %1 (%2) fehlen alle Beträge. Gedruckt würden die Seiten trotzdem."_s.arg(
                QString::number(drawn + 1),
                DisplayName(data.Members[static_cast<std::size_t>(drawn)], drawn)),
            u"Beheben Sie zuerst die Ursache: %1."_s.arg(cause), {},
            { MemberRow(data, drawn, Surname, cause) } });
}

void CheckOddTotals(const CheckData& data, Findings& findings)
{
    const std::vector<double> totals = Totals(data);
    if (data.MembersUnsafe || !data.BillingTime || totals.empty())
        return;
    const bool comparable = data.Members.size() >= fewest_totals;
    const double usual = Median(totals);
    for (std::size_t k = 0; k < totals.size() && k < data.Members.size(); ++k) {
        const double total = totals[k];
        const auto member = static_cast<qsizetype>(k);
        const auto amount = [&] { return u"Gesamtsumme %1 €"_s.arg(EuroAmount(total)); };
        if (RoundTo(total, 2) <= 0.0)
            AddTo(findings,
                { u"C40a"_s, Level::Warning,
                    amount() + u"; die Abrechnung bittet trotzdem um Überweisung."_s,
                    u"Sehen Sie die Seite an, und schreiben Sie bei einem Guthaben von Hand dazu, "
                    "wie es ausgezahlt wird."_s },
                BillLine(data, member));
        else if (comparable && usual > 0.0 && total > far_above * usual)
            AddTo(findings,
                { u"C40b"_s, Level::Hint, amount() + u", mehr als das Fünffache der üblichen."_s,
                    u"Prüfen Sie Zählerstände und Beträge."_s },
                BillLine(data, member));
    }
}

void CheckPageFont(const CheckData& data, Findings& findings)
{
    if (!data.Source.WidthOf || HasPageFont(data))
        return;
    Add(findings,
        { u"C41"_s, Level::Error,
            u"Die Schrift der Abrechnung fehlt auf diesem Rechner. Zahlen und Wörter stehen nicht "
            "an ihrem Platz, „m²“ und „m³“ können fehlen."_s,
            u"Lassen Sie die Schriften „Liberation“ einrichten, bevor Sie drucken."_s,
            ControlTarget(u"Command6"_s) });
}
