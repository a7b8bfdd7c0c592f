// What the fields of a booking and its frame say about themselves: tints, and what is not saved.
#pragma once

#include "cashbook/ledger.h"

class QLabel;
class QWidget;
struct Program;

/// UnsavedMark; empty while everything is saved.
QLabel* BuildUnsavedMark(Program& program, QWidget* frame);

/// Tints the field (an EntryField) when its text is wrong or doubtful.
void ShowEntryState(const Program& program, int field);

/// Tints what is wrong or doubtful in the fields. A day is doubtful outside the loaded year.
void ShowEntryStates(const Program& program);

/// Tints date and text where they are empty: "OK" books nothing without them.
void TintMissing(const Program& program);

/// UnsavedMark for both accounts, and for the file of the shown one.
void ShowUnsavedMark(Program& program, Account shown);
