#include "money/cash_report.h"

#include "money/booking_kinds.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// One account while its report is made.
struct AccountWork {
    const MoneyLedger& ledger;
    AccountReport& report;
    std::vector<bool> transferred; ///< for each booking whether it is half of a transfer
    QHash<QString, QString> names; ///< folded kind: as the first booking writes it
};

/// The sums of one side, found by the folded kind.
struct Side {
    std::vector<KindSum>& kinds;
    QHash<QString, std::size_t> positions;
};

void AddToKind(
    Side& side, const QString& key, const QString& name, Cents amount, std::size_t booking)
{
    if (amount == 0)
        return;
    const auto known = side.positions.constFind(key);
    const std::size_t position = known == side.positions.constEnd() ? side.kinds.size() : *known;
    if (position == side.kinds.size()) {
        side.positions.insert(key, position);
        side.kinds.push_back({ name, 0, {} });
    }
    side.kinds[position].sum += amount;
    side.kinds[position].bookings.push_back(booking);
}

void SortKinds(std::vector<KindSum>& kinds)
{
    std::stable_sort(kinds.begin(), kinds.end(), [](const KindSum& a, const KindSum& b) {
        return a.sum != b.sum ? a.sum > b.sum : Folded(a.name) < Folded(b.name);
    });
}

/// The keys of the two kinds that are no text: no text of a booking is folded to them.
const QString members_key = u"\n"_s;

void AddBooking(AccountWork& work, Side& income, Side& expenses, ClubYears& years, int report_year,
    std::size_t position)
{
    const Booking& booking = work.ledger.bookings[position];
    work.report.income_sum += DepositOf(booking);
    work.report.expense_sum += WithdrawalOf(booking);
    if (IsMembersPayment(years, booking, report_year)) {
        AddToKind(
            income, members_key, u"Abrechnungen der Mitglieder"_s, DepositOf(booking), position);
        AddToKind(expenses, members_key, u"Erstattungen an Mitglieder"_s, WithdrawalOf(booking),
            position);
        return;
    }
    const QString kind = KindText(booking.text);
    const QString key = Folded(kind);
    const QString name = *work.names.insert(key, work.names.value(key, kind));
    AddToKind(income, key, name, DepositOf(booking), position);
    AddToKind(expenses, key, name, WithdrawalOf(booking), position);
}

void AddTransfer(AccountWork& work, std::size_t position)
{
    const Booking& booking = work.ledger.bookings[position];
    work.report.transferred_in += DepositOf(booking);
    work.report.transferred_out += WithdrawalOf(booking);
}

void FillReport(AccountWork& work, ClubYears& years, int report_year)
{
    Side income { work.report.income, {} };
    Side expenses { work.report.expenses, {} };
    for (std::size_t i = 0; i < work.ledger.bookings.size(); ++i) {
        const Booking& booking = work.ledger.bookings[i];
        if (IsOpeningText(booking.folded)) {
            work.report.opening += AmountOf(booking);
            ++work.report.openings;
        } else if (work.transferred[i]) {
            AddTransfer(work, i);
        } else {
            AddBooking(work, income, expenses, years, report_year, i);
        }
    }
    SortKinds(work.report.income);
    SortKinds(work.report.expenses);
    work.report.closing = BalanceOf(work.ledger);
}

std::vector<bool> Transferred(const MoneyLedger& ledger, const std::vector<Transfer>& transfers)
{
    std::vector<bool> marks(ledger.bookings.size(), false);
    for (const Transfer& transfer : transfers)
        marks[transfer.from == ledger.account ? transfer.withdrawal : transfer.deposit] = true;
    return marks;
}

int CountOddDates(const MoneyLedger& ledger)
{
    return static_cast<int>(std::count_if(
        ledger.bookings.begin(), ledger.bookings.end(), [&ledger](const Booking& booking) {
            return !booking.day || booking.day->year() != ledger.year;
        }));
}

} // namespace

CashReport MakeCashReport(MoneySource& source)
{
    const MoneyLedger& bank = *LedgerOfYear(source, Account::Bank, source.Year);
    const MoneyLedger& cash_box = *LedgerOfYear(source, Account::CashBox, source.Year);
    CashReport report;
    report.Transfers = FindTransfers(bank, cash_box);
    const auto fill = [&](const MoneyLedger& ledger, AccountReport& account) {
        AccountWork work { ledger, account, Transferred(ledger, report.Transfers.found), {} };
        FillReport(work, source.Years, source.Year);
        report.OddDates += CountOddDates(ledger);
        ListNoAmounts(report.NoAmounts, ledger);
    };
    fill(bank, report.Bank);
    fill(cash_box, report.CashBox);
    return report;
}
