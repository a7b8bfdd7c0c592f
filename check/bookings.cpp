#include "check/bookings.h"

#include "cashbook/texts.h"
#include "check/text_numbers.h"
#include "data/german_numbers.h"

#include <bit>
#include <cstdint>

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

template <typename Number> qint8 SignOf(Number value)
{
    return static_cast<qint8>(value < 0 ? -1 : (value > 0 ? 1 : 0));
}

/// Half of all amounts.
bool IsNothing(QStringView text)
{
    return text.size() == 4 && text[0] == u'0' && text[1] == u',' && text[2] == u'0'
        && text[3] == u'0';
}

void ReadAmount(BookedAmount& amount, QStringView text)
{
    amount.size = static_cast<qint32>(text.size());
    if (IsNothing(text))
        return;
    const std::optional<Cents> cents = CentsOf(text);
    amount.cents = cents.value_or(0);
    amount.sign = SignOf(amount.cents);
    if (amount.cents != 0)
        return;
    const ParsedDouble number = ParseDouble(text); // less than a cent, too large, or no number
    amount.is_number = number.outcome == NumberOutcome::Ok;
    amount.is_exact = cents || !amount.is_number;
    amount.sign = SignOf(number.value);
}

bool CarriesOver(QStringView text)
{
    return !text.isEmpty() && text.front() == CarryOverText.front()
        && text.startsWith(CarryOverText);
}

/// Fields of one line, one after the other.
void TakeApart(CheckBooking& booking, QStringView line)
{
    booking.date = TakeField(line);
    booking.text = TakeField(line);
    ReadAmount(booking.deposit, TakeField(line));
    ReadAmount(booking.withdrawal, TakeField(line));
    booking.carried_over = CarriesOver(booking.text);
}

bool SameBooking(const CheckBooking& a, const CheckBooking& b)
{
    const auto same = [&](const BookedAmount& x, const BookedAmount& y) {
        return x.is_exact && y.is_exact ? x.cents == y.cents && x.is_number == y.is_number
                                        : AmountText(a, x) == AmountText(b, y);
    };
    return a.date == b.date && a.text == b.text && same(a.deposit, b.deposit)
        && same(a.withdrawal, b.withdrawal);
}

/// A number that bookings of the same day and text share.
std::uint32_t KeyOf(const CheckBooking& booking)
{
    const QStringView both = booking.text.isNull() // a line without ";"
        ? booking.date
        : QStringView(booking.date.begin(), booking.text.end());
    return static_cast<std::uint32_t>(SpreadText(both));
}

/// A booking in a table that is less than half full: it stands at the first free place from its key
/// on.
struct SeenBooking {
    std::uint32_t key = 0;
    std::uint32_t row = 0; ///< from 1; 0: the place is free
};

/// Takes the booking in, unless the same one is there.
bool See(std::vector<SeenBooking>& table, const std::vector<CheckBooking>& rows, std::size_t row)
{
    const std::size_t mask = table.size() - 1;
    const std::uint32_t key = KeyOf(rows[row]);
    std::size_t place = key & mask;
    for (; table[place].row != 0; place = (place + 1) & mask) {
        if (table[place].key == key && SameBooking(rows[table[place].row - 1], rows[row]))
            return false;
    }
    table[place] = { key, static_cast<std::uint32_t>(row + 1) };
    return true;
}

} // namespace

CheckBookings TakeBookingsApart(const QStringList& lines)
{
    CheckBookings bookings;
    bookings.Rows.reserve(static_cast<std::size_t>(lines.size()));
    Cents balance = 0;
    bool exact = true;
    for (const QString& line : lines) {
        CheckBooking& booking = bookings.Rows.emplace_back();
        TakeApart(booking, line);
        exact = exact && booking.deposit.is_exact && booking.withdrawal.is_exact;
        balance += booking.deposit.cents - booking.withdrawal.cents;
    }
    if (exact)
        bookings.Balance = balance;
    return bookings;
}

QStringView AmountText(const CheckBooking& booking, const BookedAmount& amount)
{
    if (amount.size == 0)
        return {};
    const QChar* deposit = booking.text.end() + 1;
    const bool is_deposit = &amount == &booking.deposit;
    return { is_deposit ? deposit : deposit + booking.deposit.size + 1, amount.size };
}

std::vector<std::size_t> RowsBookedTwice(const CheckBookings& bookings)
{
    std::vector<SeenBooking> table(std::bit_ceil(2 * bookings.Rows.size() + 1));
    std::vector<std::size_t> twice;
    for (std::size_t row = 0; row < bookings.Rows.size(); ++row) {
        if (!bookings.Rows[row].carried_over && !See(table, bookings.Rows, row))
            twice.push_back(row);
    }
    return twice;
}

QString BookingWords(const CheckBooking& booking)
{
    const bool paid_out = booking.deposit.is_number && booking.deposit.sign == 0;
    const BookedAmount& amount = paid_out ? booking.withdrawal : booking.deposit;
    return u"%1 %2 %3"_s.arg(booking.date, booking.text, AmountText(booking, amount)).trimmed();
}
