// What on the tab "Einstellungen" differs from what is saved, and how the tab shows it. Marks never
// change behaviour.
#pragma once

struct Program;

/// True when a price, a date or a prepayment box differs from what was last loaded or saved.
bool PricesDiffer(const Program& program);

/// True when a bank text or the salutation differs from what was last loaded or saved.
bool BankDiffers(const Program& program);

/// Tints the fields that differ, those whose text means a mistake on the bill, and shows or hides
/// the marks beside both buttons.
void ShowSettingsMarks(Program& program);
