// The two ledgers in memory and what "OK" and "Löschen" do to their lines. How a booking is typed
// is the business of booking_entry, files that of ledger_file, the view that of ledger_rows.
#pragma once

#include "data/dates.h"

#include <QString>
#include <QStringList>

enum class Account { Bank, CashBox };

/// The bookings of one account in memory.
struct Ledger {
    QStringList Lines; ///< as in the file
    BillingYear Year; ///< the year that they were read for; empty before the first load
    bool Unsaved = false; ///< bookings that are not in the file yet
    bool Unread = false; ///< the last load failed: the lines are not those of the file
    bool InOrder = false; ///< sorting would change nothing (KeepsBookingOrder)
};

/// The two ledgers and what the entry form stands at. Which account is shown is no part of it: the
/// caption of Command15 says so (ShownAccount in cashbook/ledger_view_form.h).
struct CashBookState {
    Ledger Bank; ///< its lines are List5
    Ledger CashBox; ///< its lines are List8
    QString LedgerFileName; ///< name of the current account's file
    bool LedgerReloadPending = false;
    bool LedgerWithoutHistory = false;
    bool LedgerEditMode = false;
    int SelectedLedgerRow = 0; ///< 1 is the first row; 0: none. Wider than 16 bits: rows beyond
                               ///< 32,767 are bookings too
    bool LedgerChanged = false; ///< applied or deleted since the tab guard last asked
};

Ledger& LedgerOf(CashBookState& book, Account account);
const Ledger& LedgerOf(const CashBookState& book, Account account);

/// Position of the account's line that the next "OK" replaces, -1 when it appends: none outside
/// edit mode; the only line of a ledger whatever row was selected; nothing for a position past the
/// end.
int LineToReplace(const CashBookState& book, Account account);

/// True for a list that was read for a year which is neither the chosen nor the loaded one any
/// more: what is on the screen then belongs to no year that can be saved.
bool IsOfAnotherYear(
    const Ledger& ledger, const BillingYear& chosen_year, const BillingYear& loaded_year);

/// "OK": the line is appended, or replaces LineToReplace; in edit mode all other lines become their
/// first four fields. A list that is in order stays so: the line goes to the place where sorting
/// would put it. Ends edit mode, selects no row, marks the ledger as changed and unsaved.
void ApplyEntry(CashBookState& book, Account account, const QString& line);

/// "Löschen": removes the selected line; edit mode and selection stay as they are, so that the next
/// "OK" replaces the line that moved up. Throws RuntimeError InvalidIndex, and changes nothing,
/// when no line is selected or the account has no line there.
void DeleteEntry(CashBookState& book, Account account);
