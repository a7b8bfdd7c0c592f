#include "check/bookings.h"

#include "cashbook/texts.h"
#include "data/german_numbers.h"

using namespace Qt::StringLiterals;

namespace {

/// The text up to the next ";", which is taken off with it.
QStringView TakeField(QStringView& line)
{
    qsizetype end = 0; // fields are short: nothing is quicker than to look
    while (end < line.size() && line[end] != u';')
        ++end;
    const QStringView field = line.first(end);
    line = end == line.size() ? QStringView() : line.sliced(end + 1);
    return field;
}

int SignOf(double value) { return value < 0.0 ? -1 : (value > 0.0 ? 1 : 0); }

BookedAmount ReadAmount(QStringView text)
{
    BookedAmount amount { text, true, Cents(0), 0 };
    if (text == u"0,00") // as half of them are
        return amount;
    amount.cents = CentsOf(text);
    if (amount.cents && *amount.cents != 0) {
        amount.sign = *amount.cents < 0 ? -1 : 1;
        return amount;
    }
    const ParsedDouble number = ParseDouble(text); // less than a cent, too large, or no number
    amount.is_number = number.outcome == NumberOutcome::Ok;
    amount.sign = SignOf(number.value);
    if (!amount.is_number)
        amount.cents = 0;
    return amount;
}

} // namespace

CheckBookings TakeBookingsApart(const QStringList& lines)
{
    CheckBookings bookings;
    bookings.Rows.reserve(static_cast<std::size_t>(lines.size()));
    Cents balance = 0;
    bool exact = true;
    for (const QString& line : lines) {
        QStringView rest(line);
        CheckBooking& booking = bookings.Rows.emplace_back();
        booking.date = TakeField(rest);
        booking.text = TakeField(rest);
        booking.deposit = ReadAmount(TakeField(rest));
        booking.withdrawal = ReadAmount(TakeField(rest));
        booking.carried_over = booking.text.startsWith(CarryOverText);
        exact = exact && booking.deposit.cents && booking.withdrawal.cents;
        balance += booking.deposit.cents.value_or(0) - booking.withdrawal.cents.value_or(0);
    }
    if (exact)
        bookings.Balance = balance;
    return bookings;
}

QString BookingWords(const CheckBooking& booking)
{
    const bool paid_out = booking.deposit.is_number && booking.deposit.sign == 0;
    const QStringView amount = paid_out ? booking.withdrawal.text : booking.deposit.text;
    return u"%1 %2 %3"_s.arg(booking.date, booking.text, amount).trimmed();
}
