// The frame of the booking that is typed: fields and calendar.
#pragma once

#include "cashbook/ledger.h"

class QCalendarWidget;
class QFrame;
class QWidget;
struct LedgerEntry;
struct Program;

QCalendarWidget* BuildCalendar(Program& program, QWidget* tab);

/// The fields and marks; its layout is a grid, whose next row may hold buttons.
QFrame* BuildBookingFrame(Program& program, QWidget* tab);

LedgerEntry ReadEntry(const Program& program);
void FillEntry(const Program& program, const LedgerEntry& booking);

/// Date and text empty, both amounts "0,00".
void ResetEntryFields(Program& program);

/// Amount fields that are empty get "0,00".
void FillEmptyAmounts(Program& program);

void FocusDate(const Program& program); ///< Ctrl+3: Text10(0)
