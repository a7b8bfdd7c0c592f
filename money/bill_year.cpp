#include "money/bill_year.h"

#include "data/dates.h"

#include <algorithm>

namespace {

constexpr int days_to_pay = 60;

/// A payment without a year belongs to the bill that was the last one out when it came in.
int YearByDate(int ledger_year, const std::optional<QDate>& date, const KnownYears& known)
{
    if (!date || !known.WithMembers.contains(ledger_year - 1))
        return ledger_year;
    const auto start = known.BillStarts.constFind(ledger_year);
    const bool is_out = start != known.BillStarts.constEnd() && *date >= *start;
    return is_out ? ledger_year : ledger_year - 1;
}

} // namespace

std::optional<QDate> BillStart(const QString& billing_date, const QString& payment_deadline)
{
    const std::optional<QDate> billed = ParseDate(billing_date);
    const std::optional<QDate> deadline = ParseDate(payment_deadline);
    if (!deadline)
        return billed;
    const QDate before = deadline->addDays(-days_to_pay);
    return billed ? std::min(*billed, before) : before;
}

BillYear BillYearOf(const NamedYears& named, int ledger_year, const std::optional<QDate>& date,
    const KnownYears& known)
{
    if (named.Several)
        return { 0, YearDoubt::SeveralYears };
    const int year = named.Year != 0 ? named.Year : YearByDate(ledger_year, date, known);
    const bool has_members = known.WithMembers.contains(year);
    return { year, has_members ? YearDoubt::None : YearDoubt::NoMembersFile };
}
