// The two accounts: loading, showing, switching, booking, saving.
#pragma once

class QHBoxLayout;
class QPushButton;
class QWidget;
struct Program;

/// Command15, the button that shows the other account.
QPushButton* BuildAccountSwitch(Program& program, QWidget* tab);

/// The row of "OK", "Löschen" and "Speichern".
QHBoxLayout* BuildLedgerButtons(Program& program, QWidget* frame);

/// Start values of selection, edit mode and flags; empty amount fields get "0,00".
void ResetCashBook(Program& program);

/// Reads the cash-box file of YearText into its list when it exists; otherwise the list is left as
/// it is.
void ReadCashBoxLedger(Program& program);

/// The bank account becomes current: caption, title, file name; LedgerWithoutHistory off,
/// LedgerReloadPending on, edit mode off, no row selected.
void MakeBankAccountCurrent(Program& program);

/// Loads when LedgerReloadPending, else sorts; shows rows, balance, member overview and paid marks.
/// Errors are shown here and the rest goes on.
void ShowLedger(Program& program);

/// "Speichern": writes the shown account's list to the file of YearText and clears its mark of
/// unsaved bookings; LedgerChanged stays. When the last load failed, the file is read first and the
/// bookings typed since are added to it, so that no line of the file is lost. Throws RuntimeError.
void SaveLedger(Program& program);

/// The shown account, and the other one when it has unsaved bookings; the guard's "Ja". Both are
/// tried; throws the first RuntimeError.
void SaveBothLedgers(Program& program);
