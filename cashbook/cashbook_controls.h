// The controls of the tab "Kontoführung". Each frame of it is made and run by a form of its own.
#pragma once

#include <array>
#include <optional>
#include <vector>

class LedgerModel;
class QCalendarWidget;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;
class QWidget;

/// Positions in Text10.
enum EntryField { DateEntry, TextEntry, DepositEntry, WithdrawalEntry, EntryFieldCount };

struct CashBookForm {
    // ledger_view_form
    QLabel* Label21 = nullptr; ///< account title
    QLabel* BalanceLabel = nullptr; ///< beside "aktueller Kontostand"
    QTableView* ListView1 = nullptr; ///< the ledger
    LedgerModel* Ledger = nullptr; ///< what ListView1 shows
    bool MarkingByCode = false; ///< the selection of ListView1 is being set by code

    // ledger_search_form
    QWidget* LedgerSearchRow = nullptr; ///< holds the next two
    QLineEdit* LedgerSearch = nullptr; ///< what is searched
    QLabel* LedgerSearchHits = nullptr; ///< what was found

    // booking_form
    QCalendarWidget* Cal3 = nullptr;
    std::array<QLineEdit*, EntryFieldCount> Text10 {}; ///< date, text, deposit, withdrawal
    QLineEdit* Text11 = nullptr; ///< "Raten Vereinbarung"

    // booking_marks_form
    QLabel* UnsavedMark = nullptr; ///< which accounts hold bookings that are not in their file

    // replace_row_form
    QWidget* ReplaceRow = nullptr; ///< holds the next two
    QLabel* ReplaceMark = nullptr; ///< which booking the next "OK" replaces
    QPushButton* KeepRow = nullptr; ///< "nicht ersetzen"

    // payment_lists_form
    QListWidget* List4 = nullptr; ///< "Namen"
    std::optional<std::vector<bool>> PartPaid; ///< by member; nothing until a mark is painted
    QListWidget* List9 = nullptr; ///< "sich wiederholende Vorgänge"

    // ledger_form
    QPushButton* Command15 = nullptr; ///< switches the account; its caption is the state

    // booking_buttons_form
    std::array<QPushButton*, 2> Command12 {}; ///< "OK", "Löschen"
    QPushButton* CommandSaveLedger = nullptr; ///< "Speichern"
};
