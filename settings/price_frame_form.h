// The frame "Kosten" of the tab "Einstellungen": prices and prepayments. The column with both
// dates stands in billing_dates_form.
#pragma once

#include "settings/price_settings.h"

class QBoxLayout;
class QDate;
class QGroupBox;
class QWidget;
struct Program;

struct PriceFrame {
    QGroupBox* frame = nullptr;
    QBoxLayout* columns = nullptr; ///< prices and dates, side by side or one below the other
};

PriceFrame BuildPriceFrame(Program& program, QWidget* parent);

/// The prices as the frame shows them; last year's are those in force.
PriceSettings ReadPriceFields(const Program& program);

/// True when a price, a date or a prepayment box differs from what was last loaded or saved.
bool PricesDiffer(const Program& program);

/// Tints the fields that differ and those whose text means a mistake on the bill; shows or hides
/// the mark beside "Speichern". Changes no behaviour.
void ShowPriceMarks(Program& program);

/// Fills the frame for YearText. The prices are in force before a carry-over is written: in a
/// folder that cannot be written the year's bills are right all the same. Throws RuntimeError
/// (File).
void LoadPrices(Program& program);

/// Command5: writes the twelve values of YearText, redraws the bills, tells so. Throws RuntimeError
/// (File) and leaves marks, memory and bills as they were then.
void SavePriceSettings(Program& program);

/// Puts the saved prices (but no empty ones) and the prepayment boxes back. Dates stay as picked.
void RestorePriceFields(Program& program);

/// Label4 := "Preise für das Jahr " + YearText; both calendars take the year of YearText (29
/// February becomes the 28th).
void ShowSettingsYear(Program& program);

void PickBillingDate(Program& program, const QDate& date); ///< Calendar1
void PickPaymentDeadline(Program& program, const QDate& date); ///< Calendar2

void FocusFirstPrice(const Program& program); ///< Ctrl+4: Text4(0)
