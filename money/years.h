// The club's years side by side: members, consumption, prices and billed sums, each year as its own
// bills were drawn. Other years are computed in memory; nothing is written.
#pragma once

#include "money/money_reading.h"

#include <QString>

#include <optional>
#include <vector>

/// One member's bill of one year.
struct YearMember {
    QString Surname; ///< trimmed, letter case kept, as the first name
    QString FirstName;
    QString Garden; ///< as stored
    std::optional<qint64> Electricity; ///< kWh as drawn in row 1; nothing for a bill not drawn
    std::optional<qint64> Water; ///< m³ as drawn in row 6
    std::optional<Cents> Bill;
};

struct ClubYear {
    int Year = 0;
    bool Readable
        = true; ///< false: a file cannot be read, or a line has too few fields; no numbers
    std::vector<YearMember> Members; ///< in list order
    QString ElectricityPrice; ///< as stored
    QString WaterPrice;
    int Bills = 0; ///< so many are drawn; the drawing stops at the first that cannot be
    qint64 Electricity = 0; ///< sums of the bills drawn
    qint64 Water = 0;
    Cents Sum = 0;
};

/// The newest ten years with a members file up to the loaded one, newest last.
std::vector<ClubYear> ReadYears(const LoadedClub& club);

/// The sum for each bill drawn, half away from zero; nothing without a bill.
std::optional<Cents> PerBill(const ClubYear& year);

/// The length of a bar from 0 to 100: of the value's size against the largest one, at least 1 for
/// what is not 0.
int BarLength(qint64 value, qint64 largest);

enum class Presence { Missing, Unclear, There };

/// A member in one of the years.
struct MemberYear {
    int Year = 0;
    Presence Found = Presence::Missing;
    YearMember Member; ///< when There
};

/// The same person over the years: surname and first name alike; of several the one whose garden is
/// that of the newest year. The position counts in the members of the last year.
std::vector<MemberYear> MemberOverYears(const std::vector<ClubYear>& years, std::size_t position);
