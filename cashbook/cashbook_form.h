// The tab "Kontoführung": ledger view, entry form, shortcut lists.
#pragma once

#include "cashbook/ledger.h"

#include <array>

class QCalendarWidget;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;
class QWidget;
struct Program;

struct CashBookForm {
    QLabel* Label21 = nullptr; ///< account title
    QLabel* BalanceLabel = nullptr; ///< beside "aktueller Kontostand"
    QPushButton* Command15 = nullptr; ///< switches the account; its caption is the state
    QTableView* ListView1 = nullptr; ///< the ledger
    QCalendarWidget* Cal3 = nullptr;
    std::array<QLineEdit*, 4> Text10 {}; ///< date, text, deposit, withdrawal
    QLineEdit* Text11 = nullptr; ///< "Raten Vereinbarung"
    std::array<QPushButton*, 2> Command12 {}; ///< "OK", "Löschen"
    QPushButton* CommandSaveLedger = nullptr; ///< "Speichern"
    QListWidget* List4 = nullptr; ///< "Namen"
    QListWidget* List9 = nullptr; ///< "sich wiederholende Vorgänge"
};

void BuildCashBookTab(Program& program, QWidget* tab);

/// Start values of selection, edit mode and flags; empty amount fields get "0,00".
void ResetCashBook(Program& program);

/// Reads the cash-box file of YearText into its list when it exists; otherwise the list is left as
/// it is.
void ReadCashBoxLedger(Program& program);

/// Step 10 of start-up: the five columns of ListView1.
void SetUpLedgerColumns(Program& program);

/// The bank account becomes current: caption, title, file name; LedgerWithoutHistory off,
/// LedgerReloadPending on, edit mode off, no row selected.
void MakeBankAccountCurrent(Program& program);

/// Label21 for the current account (bank name and club name may have changed).
void ShowAccountTitle(Program& program);

/// List4 shows the cash-book name list. Runs no handler.
void ShowCashBookNames(Program& program);

void LoadLedger(Program& program);
void ShowLedger(Program& program);
void SwitchAccount(Program& program); ///< Command15
void SaveLedger(Program& program); ///< "Speichern"
