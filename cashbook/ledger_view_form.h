// The view of the shown account: title, balance, and the table with its keys and its marked row.
#pragma once

#include "cashbook/ledger.h"

class QHBoxLayout;
class QTableView;
class QWidget;
struct Program;

/// Title and balance; the button that switches the account follows in the same row.
QHBoxLayout* BuildLedgerHead(Program& program, QWidget* tab);

QTableView* BuildLedgerView(Program& program, QWidget* tab);

/// Step 10 of start-up: the five columns of ListView1.
void SetUpLedgerColumns(Program& program);

/// The account that the caption of Command15 says is shown. Ask anew after whatever may switch.
Account ShownAccount(const Program& program);

/// The list of the shown account.
const QStringList& CurrentLedger(const Program& program);

/// Label21 for the current account (bank name and club name may have changed).
void ShowAccountTitle(Program& program);

/// ListView1 and BalanceLabel show the list of the shown account as it is; the table stays scrolled
/// where it was.
void ShowLedgerRows(Program& program);

/// The marked row, ReplaceMark and UnsavedMark follow the state.
void ShowCashBookMarks(Program& program);

/// Scrolls so that this row is seen; -1: the last one.
void ShowLedgerRow(Program& program, qsizetype row);

/// A row of ListView1 goes into the fields; the next "OK" replaces it. 0 is the first row.
void PickLedgerRow(Program& program, int row);
