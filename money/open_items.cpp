#include "money/open_items.h"

#include "data/records.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int most_instalments = 12;

/// A whole number from 2 to 12, else 0.
int AgreedInstalments(const QString& field)
{
    bool is_number = false;
    const int number = field.trimmed().toInt(&is_number);
    return is_number && number >= 2 && number <= most_instalments ? number : 0;
}

std::vector<OpenItem> MakeItems(const MoneySource& source)
{
    std::vector<OpenItem> items;
    for (std::size_t i = 0; i < static_cast<std::size_t>(source.Records.size()); ++i) {
        OpenItem item;
        if (i < source.Bills.size())
            item.bill = source.Bills[i];
        const QStringList fields = SplitRecord(source.Records[static_cast<qsizetype>(i)]);
        if (item.bill.value_or(0) > 0)
            item.instalments = AgreedInstalments(FieldOrEmpty(fields, Instalments));
        items.push_back(item);
    }
    return items;
}

void Count(OpenItem& item, const Booking& booking)
{
    item.paid += AmountOf(booking);
    if (booking.day && (!item.last_payment || *booking.day > *item.last_payment))
        item.last_payment = booking.day;
}

QStringList NamesOf(const QStringList& records, const QVector<int>& members)
{
    QStringList names;
    for (const int member : members)
        names += NameEntry(SplitRecord(records[member]));
    return names;
}

/// A payment of this year's bill: counted for its member, or listed. A withdrawal that fits nobody
/// is an ordinary expense.
void CountForYear(
    OpenItems& items, const MoneySource& source, const Booking& booking, const Payment& payment)
{
    if (payment.Members.size() == 1)
        Count(items.Members[static_cast<std::size_t>(payment.Members.front())], booking);
    else if (!payment.Members.isEmpty() || AmountOf(booking) > 0)
        items.Unassigned.push_back(
            { booking, ReasonOf(payment), NamesOf(source.Records, payment.Members) });
}

void CountPayment(OpenItems& items, MoneySource& source, const Booking& booking)
{
    if (PaymentKindOf(booking.folded) == PaymentKind::None)
        return;
    Payment payment = AssessYear(
        source.Years.Known, booking.text, AmountOf(booking), booking.ledger_year, booking.day);
    const bool is_of_year = payment.Finding == PaymentFinding::OfYear;
    const bool is_in_this_ledger = booking.ledger_year == source.Year;
    if (payment.Finding == PaymentFinding::None
        || (payment.Year != source.Year && !is_in_this_ledger))
        return;
    FindPayers(source.Years, payment);
    if (is_of_year && payment.Year == source.Year) {
        CountForYear(items, source, booking, payment);
    } else if (!is_of_year && is_in_this_ledger) {
        items.Unassigned.push_back({ booking, ReasonOf(payment), {} });
    } else if (is_of_year && payment.Members.size() == 1) {
        ++items.OtherYears;
        items.OtherYearsSum += AmountOf(booking);
    }
}

} // namespace

Cents RestOf(const OpenItem& item) { return item.bill ? *item.bill - item.paid : 0; }

QString StateOf(const OpenItem& item)
{
    if (!item.bill)
        return u"keine Rechnung"_s;
    const Cents rest = RestOf(item);
    if (rest > 0)
        return item.paid <= 0 ? u"offen"_s : u"teilweise bezahlt"_s;
    if (rest < 0)
        return *item.bill < 0 ? u"Guthaben"_s : u"zu viel gezahlt"_s;
    if (*item.bill == 0)
        return u"nichts zu zahlen"_s;
    return *item.bill > 0 ? u"bezahlt"_s : u"ausgeglichen"_s;
}

Cents InstalmentAmount(const OpenItem& item, int number)
{
    const Cents each = *item.bill / item.instalments;
    return number == 1 ? each + *item.bill % item.instalments : each;
}

int InstalmentsPaid(const OpenItem& item)
{
    int paid = 0;
    Cents due = 0;
    for (int number = 1; number <= item.instalments; ++number) {
        due += InstalmentAmount(item, number);
        if (item.paid >= due)
            paid = number;
    }
    return paid;
}

QString InstalmentsText(const OpenItem& item)
{
    if (item.instalments == 0)
        return {};
    const QString first = EuroText(InstalmentAmount(item, 1));
    const QString others = EuroText(InstalmentAmount(item, 2));
    const QString amounts = first == others
        ? u"%1 × %2"_s.arg(item.instalments).arg(first)
        : u"%1 + %2 × %3"_s.arg(first).arg(item.instalments - 1).arg(others);
    return u"%1, %2 von %3 bezahlt"_s.arg(amounts).arg(InstalmentsPaid(item)).arg(item.instalments);
}

QString PaidText(const OpenItem& item)
{
    const QString paid = u"bezahlt "_s + EuroText(item.paid);
    if (!item.bill)
        return paid + u", keine Rechnung"_s;
    const QString text
        = u"%1 von %2, Rest %3"_s.arg(paid, EuroText(*item.bill), EuroText(RestOf(item)));
    return item.instalments == 0 ? text : text + u", %1 Raten"_s.arg(item.instalments);
}

OpenItems FindOpenItems(MoneySource& source)
{
    OpenItems items;
    items.Members = MakeItems(source);
    for (const MoneyLedger& ledger : source.Ledgers) {
        ListNoAmounts(items.NoAmounts, ledger);
        for (const Booking& booking : ledger.bookings)
            CountPayment(items, source, booking);
    }
    return items;
}

OpenTotals TotalsOf(const OpenItems& items)
{
    OpenTotals totals;
    for (const OpenItem& item : items.Members) {
        const Cents rest = RestOf(item);
        if (rest > 0) {
            totals.Claims += rest;
            ++totals.Debtors;
        } else {
            totals.Credits -= rest;
        }
    }
    return totals;
}
