// What looks wrong in a record although it can be stored: fields that are shifted by a ";" too
// many, readings that a typing error explains. Nothing is held up by it.
#pragma once

#include "data/records.h"

#include <QString>

/// What a record with more than 16 fields tells its reader: "17 Felder: Ab „Plz/Ort“ ist alles um
/// eine Stelle verschoben". Empty for other records.
QString ShiftText(const MemberRecord& fields);

/// The first field of a record with more than 16 fields that holds what belongs in front of it;
/// MemberFieldCount when only the end has too many, and for other records. It is guessed from what
/// the fields hold: a street has a number, a town begins with five digits, premiums and readings
/// are numbers.
int FirstShiftedField(const MemberRecord& fields);

enum class ReadingDoubt {
    None,
    BelowStart, ///< the end reading lies below the start reading
    FarAboveLastYear ///< more than five times what was used last year
};

/// Doubt about a consumption; both are texts of numbers, last year's may be empty or no number.
/// Nothing is said against a year after one without consumption.
ReadingDoubt DoubtOf(const QString& consumption, const QString& last_consumption);

/// The sentence for the tool tip; empty for None.
QString DoubtText(ReadingDoubt doubt, const QString& last_consumption);

/// End minus start as text, as MeterDifference has it; empty while one of them is no number.
QString ConsumptionOf(const QString& start, const QString& end);

/// The same of a record's meter: ElectricityStart or WaterStart.
QString ConsumptionOf(const MemberRecord& fields, MemberField start);
