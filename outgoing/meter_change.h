// An exchanged meter: the start reading that makes the year's difference the sum of what both
// meters ran. Exact decimals, taken from the typed digits.
#pragma once

#include <QString>

/// The three readings as typed.
struct MeterChange {
    QString Start; ///< of the year; below 0 when the meter was exchanged before
    QString OldOut; ///< the old meter when it was taken out
    QString NewIn; ///< the new meter when it was put in
};

enum class MeterReading { None, Start, OldOut, NewIn };

/// Either two texts for fields, or the reading that stands in the way and a sentence for the user.
struct MeterChangeResult {
    QString Consumption; ///< of the old meter
    QString NewStart; ///< decimal comma, no grouping, no zeros at the end, never "-0"
    MeterReading Wrong = MeterReading::None;
    QString Sentence; ///< empty when nothing is wrong
};

/// New start = new meter − (old meter − start).
MeterChangeResult ComputeMeterChange(const MeterChange& change);
