// The member lists of the loaded year and what is done to them without a window: reading, rolling
// readings forward, adding, replacing and removing records, meter differences. The file format is
// in docs/file-formats.md.
#pragma once

#include "data/dates.h"
#include "data/line_file.h"
#include "data/records.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The parallel lists of a loaded year; position k of each describes line k of the members file.
struct MemberLists {
    QStringList RecordList; ///< List2: the lines as they stand in the file; the master copy
    QStringList StoredList; ///< the record list as it was last read from the file; the form shows
                            ///< where it differs
    QStringList NameList; ///< List1: surname, comma, first name
    QStringList CashBookNameList; ///< List4: the same, for the cash book
    QStringList InstalmentList; ///< List6: field 7
    QStringList PreviousYearList; ///< List3: last year's lines; paired with this year's by position
    bool PreviousYearMissing = false; ///< last year's file was not there at the last load
    bool PreviousYearRead
        = false; ///< PreviousYearList was read from a file; else it counts as missing
};

/// What the member form shares with the other subsystems.
struct MemberState {
    qint16 CurrentMember = -1; ///< position of the shown member, -1 while a new one is typed
    MemberRecord MemberFields; ///< the fields of the last record that was split
    QString ClickedFieldText; ///< text of the last clicked member field that held text
    QString ElectricityDifference; ///< text of Text1(2) after the last record was shown
    QString WaterDifference; ///< text of Text1(5)
};

/// Reads a members file into the member lists, which are emptied first (PreviousYearList stays).
/// Lines with missing fields are taken as they are. Throws RuntimeError (File; Overflow beyond
/// 32,767 members) and leaves the lists as they were then.
void ReadMembersFile(MemberLists& lists, const DataFiles& files, const BillingYear& year_text);

/// Reads the previous year's lines, or empties them and sets PreviousYearMissing when there is no
/// such file. Throws RuntimeError (File, Overflow) and leaves the lists as they were then.
void ReadPreviousYear(MemberLists& lists, const DataFiles& files, const BillingYear& year_text);

/// This year's members with last year's lines, and what kept last year's from being read.
struct BothYears {
    MemberLists Lists;
    std::optional<RuntimeError> PreviousYearError;
};

/// Reads both into fresh lists. A file of last year that cannot be read keeps nothing shut: its
/// list counts as read and too short then. Throws RuntimeError for this year's file alone.
BothYears ReadBothYears(const DataFiles& files, const BillingYear& year_text);

/// Takes the lines without any text at the end of the file out of the member lists.
void DropBlankLinesAtEnd(MemberLists& lists);

/// Last year's end readings become the start readings, end readings become empty; everything else
/// is carried over. Throws RuntimeError SubscriptOutOfRange for a record with fewer than 16 fields,
/// naming file_name, line and member.
QStringList RollReadingsForward(const QStringList& records, const QString& file_name);

/// Throws RuntimeError SubscriptOutOfRange when the record has fewer than 16 fields: the place,
/// with the member and the caption of the first missing field.
void RequireWholeRecord(const MemberRecord& fields, const Place& where);

/// Writes the record list as members file of that year (whole rewrite).
void WriteMembersFile(
    const MemberLists& lists, const DataFiles& files, const BillingYear& year_text);

/// True when the file of that year holds exactly the record list. An unreadable file does not.
bool IsInFile(const MemberLists& lists, const DataFiles& files, const BillingYear& year_text);

/// End minus start as default text of a double; empty when either text is empty.
/// Throws RuntimeError TypeMismatch when one of them is no number; the places name the two fields.
QString MeterDifference(
    const QString& start, const QString& end, const Place& start_place, const Place& end_place);
