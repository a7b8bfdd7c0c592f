// The bookings in memory, taken apart once for all rules. Texts are parts of the lines in memory;
// nothing is copied.
#pragma once

#include "check/check_source.h"
#include "money/cents.h"

#include <QStringView>

#include <cstdint>
#include <optional>
#include <vector>

/// An amount of a booking. Bookings are many: the less of them, the quicker they are gone through.
struct BookedAmount {
    Cents cents = 0; ///< 0 where it is no number
    qint32 size = 0; ///< characters, see AmountText
    qint8 sign = 0; ///< -1, 0 or 1
    bool is_number = true;
    bool is_exact = true; ///< false: a number too large for exact sums
};

struct CheckBooking {
    QStringView date;
    QStringView text; ///< behind the date and one ";"
    BookedAmount deposit; ///< behind the text, as the withdrawal behind it
    BookedAmount withdrawal;
    std::uint32_t key = 0; ///< shared by all bookings of the same day and text
    bool carried_over = false; ///< the text begins with "Übertrag Saldo "
};

/// Bookings of one day that follow each other, up to the next such day.
struct BookedDay {
    QStringView date;
    std::size_t first = 0; ///< row
};

/// The amount as typed; it is one of the booking's two.
QStringView AmountText(const CheckBooking& booking, const BookedAmount& amount);

struct CheckBookings {
    std::vector<CheckBooking> Rows; ///< by row of the ledger view
    std::vector<BookedDay> Days; ///< in their order; a day may come again
    std::vector<std::size_t> Unusual; ///< rows without a text, or with other amounts than one above
                                      ///< zero and one that is zero
    std::vector<std::size_t> MaybeStatements; ///< no text of another row holds "Abrechnung"
    std::optional<Cents> Balance; ///< exact; missing when an amount is too large
};

/// What is no number counts as 0. The lines must outlive the bookings.
CheckBookings TakeBookingsApart(const QStringList& lines);

/// Rows that are booked as another one before them was, in their order. Those that carry a balance
/// over are not compared.
std::vector<std::size_t> RowsBookedTwice(const CheckBookings& bookings);

/// "01.03.2026 Gartenzeitung 12,00": the amount that is not zero, as typed.
QString BookingWords(const CheckBooking& booking);
