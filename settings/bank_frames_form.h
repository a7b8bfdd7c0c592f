// The frames "Bankverbindung", "Kassenwart" and "Ansprechpartner" of the tab "Einstellungen", which
// one button "Speichern" saves.
#pragma once

#include "settings/bank_settings.h"

class QWidget;
struct Program;

/// The three frames, and below them the frame of backup_form.
QWidget* BuildBankFrames(Program& program, QWidget* parent);

/// The texts as the frames show them.
BankSettings ReadBankFields(const Program& program);

/// True when a bank text or the salutation differs from what was last loaded or saved.
bool BankDiffers(const Program& program);

/// Tints the fields that differ and contacts that no member bears; shows or hides the mark beside
/// "Speichern". Changes no behaviour.
void ShowBankMarks(Program& program);

/// Fills the frames. Throws RuntimeError (File).
void LoadBank(Program& program);

/// Command7: writes bank, treasurer, salutation and contacts, redraws the bills, tells so. Throws
/// RuntimeError (File) and leaves marks, memory and bills as they were then.
void SaveBankSettings(Program& program);

/// Writes "Anrede" alone when C1 differs from the salutation in memory; the tab guard's "Ja" to the
/// question for prices.
void SaveSalutation(Program& program);

/// Puts the saved texts (but no empty ones) back. The salutation stays.
void RestoreBankFields(Program& program);

/// The contact fields complete from the name list.
void OfferContactNames(Program& program);
