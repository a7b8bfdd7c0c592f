// The two dates in the frame "Kosten": billing date and payment deadline, each with its calendar.
#pragma once

class QGridLayout;
class QWidget;
struct Program;

/// The column with both dates, for the frame "Kosten" to place.
QGridLayout* BuildBillingDates(Program& program, QWidget* frame);

/// Tints the dates that differ from the saved ones, and texts that are none.
void ShowDateMarks(Program& program);

/// Both calendars take the year (29 February becomes the 28th). Runs no handler.
void SetSettingsCalendarsToYear(Program& program, int year);

/// Both calendars show today's date. Runs no handler.
void SetSettingsCalendarsToToday(Program& program);
