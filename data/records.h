// The line formats shared by the subsystems: a member's record (16 fields) and a booking (4
// fields), joined with ";". Described in docs/file-formats.md. Nothing is trimmed, checked or
// quoted.
#pragma once

#include "data/runtime_error.h"

#include <QString>
#include <QStringList>
#include <QStringView>

/// Positions of a member's fields in the record. Also the index of the form's fields Text3(0) to
/// Text3(11).
enum MemberField {
    Surname = 0,
    FirstName,
    Street,
    Town,
    Telephone,
    PlotNumber,
    PlotSize,
    Instalments,
    LiabilityPremium,
    LegalPremium,
    AccidentPremium,
    BuildingPremium,
    ElectricityStart,
    ElectricityEnd,
    WaterStart,
    WaterEnd,
    MemberFieldCount
};

/// A member's line, split: 16 texts by MemberField; fewer or more when the file was edited by hand.
using MemberRecord = QStringList;

/// Captions of the 16 fields, for messages ("Endstand Strom").
QString MemberFieldCaption(int field);

/// Splits at every ";" without limit; an empty line gives one empty field.
QStringList SplitRecord(const QString& line);

/// Joins with ";" and puts none after the last field.
QString JoinRecord(const QStringList& fields);

/// Field at that position; throws RuntimeError SubscriptOutOfRange with the place when the record
/// is shorter.
const QString& FieldAt(const QStringList& fields, int field, const Place& where);

/// Field at that position, the empty text when the record is shorter.
QString FieldOrEmpty(const QStringList& fields, int field);

/// Surname, comma, first name with no blank; missing fields are empty.
QString NameEntry(const MemberRecord& fields);

/// NameEntry of a line, and one of its fields (0 is the first; empty when it is shorter), for lists
/// of thousands: the rest of the line is not taken apart.
QString NameEntryOfLine(const QString& line);
QStringView FieldOfLine(QStringView line, int field);

/// A booking: date, text, deposit, withdrawal. Positions of the fields of a ledger line.
enum LedgerField { BookingDate = 0, BookingText, Deposit, Withdrawal, LedgerFieldCount };

/// The first four fields joined with ";", missing ones empty, later ones dropped.
QString FirstFourFields(const QStringList& fields);
