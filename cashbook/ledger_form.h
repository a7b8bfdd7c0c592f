// The two accounts: loading, showing, switching, booking, saving.
#pragma once

class QPushButton;
class QWidget;
struct Program;

/// Command15, the button that shows the other account.
QPushButton* BuildAccountSwitch(Program& program, QWidget* tab);

/// Start values of selection, edit mode and flags; empty amount fields get "0,00".
void ResetCashBook(Program& program);

/// The fields as "OK" leaves them, and no payee of List9 is selected.
void ResetEntry(Program& program);

/// Reads the cash-box file of YearText into its list when it exists; otherwise the list is left as
/// it is.
void ReadCashBoxLedger(Program& program);

/// The bank account becomes current: caption, title, file name; LedgerWithoutHistory off,
/// LedgerReloadPending on, edit mode off, no row selected.
void MakeBankAccountCurrent(Program& program);

/// The tab comes to the front: a list of a year that is neither chosen nor loaded any more is read
/// for the chosen one first. Throws RuntimeError.
void ShowIfStale(Program& program);

/// Loads when LedgerReloadPending or when the list is of another year, and sorts; shows rows,
/// balance, member overview and paid marks. Errors are shown here and the rest goes on.
void ShowLedger(Program& program);

/// "Speichern": writes the shown account's list to the file of YearText and clears its mark of
/// unsaved bookings; LedgerChanged stays. When the last load failed, the file is read first and the
/// bookings typed since are added to it, so that no line of the file is lost. Throws RuntimeError.
void SaveLedger(Program& program);

/// The shown account, and the other one when it has unsaved bookings; the guard's "Ja". Both are
/// tried; throws the first RuntimeError.
void SaveBothLedgers(Program& program);
