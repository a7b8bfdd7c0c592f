// The line above the table that searches the shown account.
#pragma once

class QWidget;
struct Program;

QWidget* BuildLedgerSearch(Program& program, QWidget* tab);

void OpenLedgerSearch(Program& program); ///< Ctrl+F

/// F3 and Shift+F3: the next hit (1) or the one before (-1) is the current one and is seen.
void StepLedgerHit(Program& program, int direction);

/// Hits and sums anew; the table has other rows.
void ShowLedgerHits(Program& program);

/// Words are being typed.
bool IsSearching(const Program& program);

/// The line goes, and with it the marks; the focus leaves it for the table.
void CloseLedgerSearch(Program& program);
