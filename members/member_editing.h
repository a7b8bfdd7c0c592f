// What the buttons of the member form do to the lists, and what their errors say. No window and no
// file in here.
#pragma once

#include "data/records.h"
#include "members/member_lists.h"

#include <QString>
#include <QStringList>

enum class SaveWay { Update, Add };

/// Update when a member is shown or a filled field was clicked since; Add while a new member is
/// typed, and always while there is no member yet. A field that was clicked while a new member is
/// typed leads to Update at position -1, which fails (docs/kept-oddities.md).
SaveWay DecideSave(const MemberState& member, const MemberLists& lists);

/// Appends a member (16 fields). Throws RuntimeError Overflow when all positions are taken.
void AddMember(MemberLists& lists, const MemberRecord& fields);

/// Replaces the record and the names at that position. Throws RuntimeError InvalidIndex when there
/// is no such position; nothing is changed then.
void ReplaceMember(MemberLists& lists, int position, const MemberRecord& fields);

/// Replaces the record alone: entering readings leaves the names as they are. Throws like
/// ReplaceMember.
void ReplaceRecord(MemberLists& lists, int position, const MemberRecord& fields);

/// Removes the member; those behind him move up. Throws like ReplaceMember.
void RemoveMember(MemberLists& lists, int position);

/// File, line and member of a record of that year, for messages.
Place RecordPlace(const BillingYear& year_text, int position, const MemberRecord& fields);

/// RecordPlace for a record with fewer than 16 fields that is shown or drawn; its field is the
/// first missing one, so that both say the same and the box appears once.
Place ShortRecordPlace(const BillingYear& year_text, int position, const MemberRecord& fields);

/// RecordPlace for a reading that is no number.
Place ReadingPlace(
    const BillingYear& year_text, int position, const MemberRecord& fields, MemberField field);

/// The position reached from current by that many members up or down: between 0 and the last one.
/// -1 for an empty list.
int NeighbourOf(int current, int step, qsizetype member_count);

/// What the file holds in record field 0 to 15 of the shown member; empty where it has no such
/// field and while a new member is typed, of whom nothing is stored.
QString StoredText(const MemberLists& lists, const MemberState& member, int field);

/// How the text of a field stands to the file.
enum class FieldState {
    Stored, ///< the file holds this text
    Unsaved, ///< the file holds another text
    NoNumber, ///< the field is used as a number, and this text is none
    Separator ///< holds a ";", which shifts the later fields when the line is read back
};

/// State of a typed text in record field 0 to 15; stored is what the file holds there.
FieldState StateOf(int field, const QString& text, const QString& stored);

/// True for the fields that are used as numbers: plot size, instalments, premiums, readings.
bool IsNumberField(int field);
