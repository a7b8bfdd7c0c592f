// The bookings in memory, taken apart once for all rules. Texts are parts of the lines in memory;
// nothing is copied.
#pragma once

#include "check/check_source.h"
#include "money/cents.h"

#include <QStringView>

#include <optional>
#include <vector>

/// An amount of a booking.
struct BookedAmount {
    QStringView text;
    bool is_number = true;
    std::optional<Cents> cents; ///< missing when it is no number, or too large for exact sums
    int sign = 0; ///< -1, 0 or 1
};

struct CheckBooking {
    QStringView date;
    QStringView text;
    BookedAmount deposit;
    BookedAmount withdrawal;
    bool carried_over = false; ///< the text begins with "Übertrag Saldo "
};

struct CheckBookings {
    std::vector<CheckBooking> Rows; ///< by row of the ledger view
    std::optional<Cents> Balance; ///< exact; missing when an amount is too large
};

/// What is no number counts as 0. The lines must outlive the bookings.
CheckBookings TakeBookingsApart(const QStringList& lines);

/// "01.03.2026 Gartenzeitung 12,00": the amount that is not zero, as typed.
QString BookingWords(const CheckBooking& booking);
