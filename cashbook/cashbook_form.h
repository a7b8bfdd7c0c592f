// The tab "Kontoführung": ledger view, entry form, shortcut lists.
#pragma once

#include "cashbook/ledger.h"

#include <array>

class LedgerModel;
class QCalendarWidget;
class QDate;
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
    LedgerModel* Ledger = nullptr; ///< what ListView1 shows
    bool MarkingByCode = false; ///< the selection of ListView1 is being set by code
    QCalendarWidget* Cal3 = nullptr;
    std::array<QLineEdit*, 4> Text10 {}; ///< date, text, deposit, withdrawal
    QLineEdit* Text11 = nullptr; ///< "Raten Vereinbarung"
    std::array<QPushButton*, 2> Command12 {}; ///< "OK", "Löschen"
    QPushButton* CommandSaveLedger = nullptr; ///< "Speichern"
    QLabel* ReplaceMark = nullptr; ///< which row the next "OK" replaces
    QLabel* UnsavedMark = nullptr; ///< which accounts hold bookings that are not in their file
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

/// Fills the shown account's list from its file, or opens the year with last year's balance, or
/// warns that there is none. Throws RuntimeError; the list stays as it was then, and is not written
/// over the file (SaveLedger).
void LoadLedger(Program& program);

/// Loads when LedgerReloadPending, else sorts; shows rows, balance, member overview and paid marks.
/// Errors are shown here and the rest goes on.
void ShowLedger(Program& program);

void SwitchAccount(Program& program); ///< Command15

/// "Speichern": writes the shown account's list to the file of YearText and clears its mark of
/// unsaved bookings; LedgerChanged stays. When the last load failed, the file is read first and the
/// bookings typed since are added to it, so that no line of the file is lost. Throws RuntimeError.
void SaveLedger(Program& program);

/// The shown account, and the other one when it has unsaved bookings; the guard's "Ja". Both are
/// tried; throws the first RuntimeError.
void SaveBothLedgers(Program& program);

void ApplyEntryClicked(Program& program); ///< Command12(0) "OK"
void DeleteEntryClicked(Program& program); ///< Command12(1) "Löschen"

/// A row of ListView1 goes into the fields; the next "OK" replaces it. 0 is the first row.
void PickLedgerRow(Program& program, int row);

void PickDay(Program& program, const QDate& day); ///< Cal3
void PickPayee(Program& program, int position); ///< List9
void PickMember(Program& program, int position); ///< List4; only while the bank account is shown

// For the tab's own files.

/// Loading as it would be for a ledger known to have no history: as LoadLedger where there is a
/// file, else nothing, and without a word.
void LoadLedgerWithoutHistory(Program& program);

/// Connects the handlers of the built controls; the last step of BuildCashBookTab.
void ConnectCashBookTab(Program& program);

/// The date and amount columns as wide as their texts in the current font.
void FitLedgerColumns(Program& program);

/// Tints Text10(field) while its text is not of the expected form or holds a ";".
void ShowEntryState(Program& program, int field);

/// The account that the caption of Command15 says is shown. Ask anew after whatever may switch.
Account ShownAccount(const Program& program);

/// The list of the shown account.
QStringList& CurrentLedger(Program& program);
const QStringList& CurrentLedger(const Program& program);

/// Date and text empty, both amounts "0,00".
void ResetEntryFields(Program& program);

/// The marked row, ReplaceMark and UnsavedMark follow the state.
void ShowCashBookMarks(Program& program);

/// Scrolls so that this row is seen; -1: the last one.
void ShowLedgerRow(Program& program, qsizetype row);
