#include "money/open_items_report.h"

#include "data/dates.h"
#include "data/records.h"
#include "money/report_parts.h"

using namespace Qt::StringLiterals;

namespace {

const QString only_open = u"open"_s;
const QString pay = u"pay:"_s;

/// From when on a payment without a year counts for this year's bill; empty without a members file
/// of the year before.
QString YearSentence(const MoneySource& source)
{
    const QString year = QString::number(source.Year);
    const QString before = QString::number(source.Year - 1);
    if (!source.Years.Known.WithMembers.contains(source.Year - 1))
        return {};
    const auto start = source.Years.Known.BillStarts.constFind(source.Year);
    if (start == source.Years.Known.BillStarts.constEnd())
        return u"Für %1 steht weder ein Abrechnungsdatum noch ein Termin fest: Zahlungen ohne "
               "Jahr im Text zählen zur Abrechnung %2."_s.arg(year, before);
    return u"Zahlungen ohne Jahr im Text zählen ab dem %1 zur Abrechnung %2, davor zur "
           "Abrechnung %3."_s.arg(ShortDate(*start), year, before);
}

ReportSentence FilterLine(const ReportChoices& choices)
{
    const auto choice = [&choices](const QString& text, const QString& filter) {
        const bool chosen = choices.Filter == filter;
        return ReportText { text, chosen ? LinkTarget {} : FilterLink(filter),
            chosen ? TextLook::Bold : TextLook::Plain };
    };
    return { { { u"Gezeigt: "_s }, choice(u"alle"_s, {}), { u" · "_s },
        choice(u"nur offene"_s, only_open) } };
}

RowTint TintOf(const OpenItem& item)
{
    if (!item.bill)
        return RowTint::Calm;
    if (RestOf(item) == 0)
        return RowTint::None;
    return RestOf(item) > 0 ? RowTint::Attention : RowTint::Good;
}

ReportRow MemberRow(const OpenItem& item, const QString& record, int member)
{
    const QStringList fields = SplitRecord(record);
    const Cents rest = RestOf(item);
    LinkTarget to_cash_book;
    if (rest > 0)
        to_cash_book = { LinkKind::Action, PayAction(member), -1 };
    ReportCell last;
    if (item.last_payment) {
        last = TextCell(ShortDate(*item.last_payment));
        last.sort_value = static_cast<double>(item.last_payment->toJulianDay());
    }
    return { { TextCell(FieldOrEmpty(fields, PlotNumber)),
                 TextCell(NameEntry(fields), to_cash_book),
                 item.bill ? EuroCell(*item.bill) : ReportCell {}, EuroCell(item.paid),
                 item.bill ? EuroCell(rest) : ReportCell {}, TextCell(InstalmentsText(item)), last,
                 TextCell(StateOf(item)) },
        TintOf(item) };
}

ReportRow SumRow(Cents bills, Cents paid, Cents rests)
{
    ReportRow row { { {}, TextCell(u"Summe"_s), EuroCell(bills), EuroCell(paid), EuroCell(rests),
        {}, {}, {} } };
    row.total = true;
    return row;
}

void AddMembers(
    Report& report, const OpenItems& items, const MoneySource& source, const ReportChoices& choices)
{
    ReportTable table { u"open_items"_s };
    table.columns = { TextColumn(u"Garten"_s, true), TextColumn(u"Name"_s, true),
        NumberColumn(u"Rechnung"_s, true), NumberColumn(u"Gezahlt"_s, true),
        NumberColumn(u"Rest"_s, true), TextColumn(u"Raten"_s, true),
        TextColumn(u"Letzte Zahlung"_s, true), TextColumn(u"Stand"_s, true) };
    Cents bills = 0;
    Cents paid = 0;
    Cents rests = 0;
    for (std::size_t i = 0; i < items.Members.size(); ++i) {
        const OpenItem& item = items.Members[i];
        const Cents rest = RestOf(item);
        if (choices.Filter == only_open && rest <= 0)
            continue;
        table.rows.push_back(
            MemberRow(item, source.Records[static_cast<qsizetype>(i)], static_cast<int>(i)));
        bills += item.bill.value_or(0);
        paid += item.paid;
        rests += rest;
    }
    table.rows.push_back(SumRow(bills, paid, rests));
    report.items.emplace_back(table);
}

void AddUnassigned(Report& report, const OpenItems& items, int year)
{
    if (items.Unassigned.empty())
        return;
    AddHeading(report, 2, u"Nicht zugeordnete Zahlungen"_s);
    AddSentence(report,
        u"Nennen Sie im Vorgang den Nachnamen und den Vornamen oder „Garten 7“, dann wird die "
        "Zahlung zugeordnet."_s);
    ReportTable table { u"unassigned"_s };
    table.columns = { TextColumn(u"Datum"_s, true), TextColumn(u"Konto"_s, true),
        TextColumn(u"Vorgang"_s, true), NumberColumn(u"Betrag"_s, true),
        TextColumn(u"Grund"_s, true), TextColumn(u"Mögliche Mitglieder"_s, true) };
    for (const UnassignedPayment& payment : items.Unassigned) {
        const Booking& booking = payment.booking;
        table.rows.push_back({ { DateCell(booking, year), TextCell(AccountName(booking, year)),
            TextCell(booking.text), EuroCell(AmountOf(booking)), TextCell(payment.reason),
            TextCell(payment.names.join(u" · "_s)) } });
    }
    report.items.emplace_back(table);
}

void AddSums(Report& report, const OpenItems& items)
{
    const OpenTotals totals = TotalsOf(items);
    AddSentence(report,
        u"Offene Forderungen: %1. Guthaben und zu viel Gezahltes: %2."_s.arg(
            EuroText(totals.Claims), EuroText(totals.Credits)));
    if (items.OtherYears == 1)
        AddSentence(report,
            u"1 Zahlung über %1 gehört zur Abrechnung eines anderen Jahres."_s.arg(
                EuroText(items.OtherYearsSum)));
    if (items.OtherYears > 1)
        AddSentence(report,
            u"%1 Zahlungen über zusammen %2 gehören zu Abrechnungen anderer Jahre."_s
                .arg(items.OtherYears)
                .arg(EuroText(items.OtherYearsSum)));
}

} // namespace

QString PayAction(int member) { return pay + QString::number(member); }

int MemberOfPayAction(const QString& action)
{
    bool is_number = false;
    const int member = action.startsWith(pay) ? action.sliced(pay.size()).toInt(&is_number) : -1;
    return is_number ? member : -1;
}

Report MakeOpenItemsReport(MoneySource& source, const ReportChoices& choices)
{
    const OpenItems items = FindOpenItems(source);
    const QString title = u"Offene Posten %1"_s.arg(source.Year);
    Report report { title };
    report.paper = PaperSide::Landscape;
    AddHeading(report, 1, title);
    if (source.Records.isEmpty())
        AddSentence(report, u"Für %1 sind keine Mitglieder geladen."_s.arg(source.Year));
    if (const QString sentence = YearSentence(source); !sentence.isEmpty())
        AddSentence(report, sentence);
    if (const QString sentence = UnsavedSentence(source.Unsaved); !sentence.isEmpty())
        AddSentence(report, sentence);
    for (const QString& sentence : UnreadableSentences(source))
        AddSentence(report, sentence);
    if (!source.Records.isEmpty()) {
        report.items.emplace_back(FilterLine(choices));
        AddMembers(report, items, source, choices);
    }
    AddSums(report, items);
    AddSentence(report,
        u"Die blauen Namen unter „Kontoführung“ zeigen nur, dass der Name in einer Buchung "
        "vorkommt; hier zählen die Beträge."_s);
    AddUnassigned(report, items, source.Year);
    AddNoAmounts(report, items.NoAmounts, source.Year);
    return report;
}
