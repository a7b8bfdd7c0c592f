// The readings of all members side by side: what a row and the sums of the table show. The
// window is readings_form.
#pragma once

#include "members/member_lists.h"
#include "members/record_doubts.h"

#include <array>
#include <vector>

/// The meters in the order of the table, named by the record field of their start reading.
inline constexpr std::array<MemberField, 2> Meters { ElectricityStart, WaterStart };

/// One meter of a member; texts as they stand in the record.
struct MeterReading {
    QString Start;
    QString End;
    QString Consumption; ///< end minus start; empty while one of them is missing or no number
    QString LastConsumption; ///< of last year's line
    ReadingDoubt Doubt = ReadingDoubt::None;
};

/// The meter of the member at that position; missing fields are empty.
MeterReading ReadingOf(const MemberLists& lists, int position, MemberField start);

/// "58 von 60 abgelesen, zusammen 1234,5 KWh".
QString ReadingsSum(const MemberLists& lists, MemberField start);

/// The positions of all members by garden number; those without a number last, equal ones as in the
/// file.
std::vector<int> PositionsByPlot(const MemberLists& lists);
