#include "money/bookings.h"

#include "data/dates.h"
#include "data/records.h"
#include "money/folding.h"

using namespace Qt::StringLiterals;

namespace {

/// Most amounts of a ledger are "0,00"; they need no reading.
std::optional<Cents> ReadAmount(const QString& text)
{
    static const QString nothing = u"0,00"_s;
    return text == nothing ? std::optional<Cents>(0) : CentsOf(text);
}

} // namespace

Cents DepositOf(const Booking& booking) { return booking.deposit.value_or(0); }
Cents WithdrawalOf(const Booking& booking) { return booking.withdrawal.value_or(0); }
Cents AmountOf(const Booking& booking) { return DepositOf(booking) - WithdrawalOf(booking); }

MoneyLedger ReadBookings(Account account, int year, const QStringList& lines)
{
    MoneyLedger ledger { account, year, {} };
    ledger.bookings.reserve(static_cast<std::size_t>(lines.size()));
    for (const QString& line : lines) {
        const QStringList fields = SplitRecord(line);
        Booking booking;
        booking.account = account;
        booking.ledger_year = year;
        booking.line = static_cast<int>(ledger.bookings.size()) + 1;
        booking.date = FieldOrEmpty(fields, BookingDate);
        booking.day = ParseDate(booking.date);
        if (booking.day)
            booking.date = ShortDate(*booking.day);
        booking.text = FieldOrEmpty(fields, BookingText);
        booking.folded = Folded(booking.text);
        booking.deposit_text = FieldOrEmpty(fields, Deposit);
        booking.withdrawal_text = FieldOrEmpty(fields, Withdrawal);
        booking.deposit = ReadAmount(booking.deposit_text);
        booking.withdrawal = ReadAmount(booking.withdrawal_text);
        ledger.bookings.push_back(booking);
    }
    return ledger;
}

Cents BalanceOf(const MoneyLedger& ledger)
{
    Cents balance = 0;
    for (const Booking& booking : ledger.bookings)
        balance += AmountOf(booking);
    return balance;
}

QString AccountName(Account account)
{
    return account == Account::Bank ? u"Konto"_s : u"Handkasse"_s;
}

QString AccountName(const Booking& booking, int report_year)
{
    const QString name = AccountName(booking.account);
    return booking.ledger_year == report_year ? name
                                              : name + u' ' + QString::number(booking.ledger_year);
}

void ListNoAmounts(std::vector<NoAmount>& list, const MoneyLedger& ledger)
{
    const auto note = [&list](const Booking& booking, const QString& stored) {
        list.push_back({ booking, stored.isEmpty() ? u"leer"_s : stored });
    };
    for (const Booking& booking : ledger.bookings) {
        if (!booking.deposit)
            note(booking, booking.deposit_text);
        if (!booking.withdrawal)
            note(booking, booking.withdrawal_text);
    }
}
