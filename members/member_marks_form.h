// What the fields of the tab "Stammdaten" say by their tints: not stored yet, wrong, doubtful.
#pragma once

#include "data/records.h"

class QLabel;
class QWidget;
struct Program;

/// The line over the address that says how a record with too many fields is shifted; hidden, and
/// without room, for other records.
QLabel* MakeShiftNotice(Program& program, QWidget* frame);

/// Tints record field 0 to 15 by how its text stands to the file and to the other reading.
void ShowFieldState(Program& program, int field);

/// ShowFieldState for all of them, and the line over the address.
void ShowFieldStates(Program& program);

/// Tints the difference of the meter whose start reading that is.
void ShowDifferenceState(Program& program, MemberField start);

/// True when the form holds another text than the file or the record that is shown; while a new
/// member is typed, when any field is filled. Readings that could not be entered are in the record
/// all the same, and not in the file.
bool MemberFormDiffers(const Program& program);
