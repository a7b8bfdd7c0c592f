// Bookings that stand in an account twice.
#include "check/bookings.h"

#include <bit>
#include <cstdint>

namespace {

bool SameBooking(const CheckBooking& a, const CheckBooking& b)
{
    const auto same = [&](const BookedAmount& x, const BookedAmount& y) {
        return x.is_exact && y.is_exact ? x.cents == y.cents && x.is_number == y.is_number
                                        : AmountText(a, x) == AmountText(b, y);
    };
    return a.date == b.date && a.text == b.text && same(a.deposit, b.deposit)
        && same(a.withdrawal, b.withdrawal);
}

/// Rows among which all are that are equal to another one, in their order. Few rows share so many
/// bits of their keys by chance.
std::vector<std::size_t> RowsWithSharedKeys(const std::vector<CheckBooking>& rows)
{
    const std::size_t places = std::bit_ceil(16 * rows.size() + 64);
    std::vector<quint64> once(places / 64);
    std::vector<quint64> again(places / 64);
    const auto word = [&](std::uint32_t key) { return (key & (places - 1)) / 64; };
    const auto bit = [](std::uint32_t key) { return quint64 { 1 } << (key % 64); };
    for (const CheckBooking& booking : rows) {
        quint64& seen = once[word(booking.key)];
        again[word(booking.key)] |= seen & bit(booking.key);
        seen |= bit(booking.key);
    }
    std::vector<std::size_t> shared;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if ((again[word(rows[row].key)] & bit(rows[row].key)) != 0)
            shared.push_back(row);
    }
    return shared;
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
    const std::uint32_t key = rows[row].key;
    std::size_t place = key & mask;
    for (; table[place].row != 0; place = (place + 1) & mask) {
        if (table[place].key == key && SameBooking(rows[table[place].row - 1], rows[row]))
            return false;
    }
    table[place] = { key, static_cast<std::uint32_t>(row + 1) };
    return true;
}

} // namespace

std::vector<std::size_t> RowsBookedTwice(const CheckBookings& bookings)
{
    const std::vector<std::size_t> alike = RowsWithSharedKeys(bookings.Rows);
    std::vector<SeenBooking> table(std::bit_ceil(2 * alike.size() + 1));
    std::vector<std::size_t> twice;
    for (const std::size_t row : alike) {
        if (!bookings.Rows[row].carried_over && !See(table, bookings.Rows, row))
            twice.push_back(row);
    }
    return twice;
}
