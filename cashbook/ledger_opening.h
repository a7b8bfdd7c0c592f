// Where the lines of an account come from: its file, or in a year without one the balance of the
// year before; and how bookings meet a file that could not be read at first.
#pragma once

#include "cashbook/ledger.h"
#include "data/data_files.h"
#include "data/runtime_error.h"

#include <QDate>
#include <QString>

#include <functional>

/// What opening a ledger tells the treasurer on its way; the steps are documented and go on after
/// it.
struct LedgerTalk {
    std::function<void(const QString&)> Hint; ///< the text of a box with the title "Hinweis"
    std::function<void(const RuntimeError&)> Error; ///< of a line that is not counted
};

/// An account in a year, and all that opening its ledger needs.
struct LedgerPlace {
    DataFiles Files;
    Account Which = Account::Bank;
    QString YearText;
    QDate Today; ///< the date of a carried balance
    LedgerTalk Talk;
};

/// "\Konto2016.pz" or "\HandKasse2016.pz".
QString LedgerFileNameOf(Account account, const QString& year_text);

/// Fills the account's list from its file, or opens the year with last year's balance, written at
/// once, or warns that there is none and sets LedgerWithoutHistory. Throws RuntimeError; the list
/// stays as it was then, marked as unread, so that it is not written over the file.
void LoadLedger(CashBookState& book, const LedgerPlace& place);

/// LoadLedger as it would be for a ledger known to have no history: the file where there is one,
/// else nothing, and without a word.
void LoadLedgerWithoutHistory(CashBookState& book, const LedgerPlace& place);

/// Loads, and puts what was typed since a failed load behind what the file holds. Throws like
/// LoadLedger.
void JoinLedgerWithFile(CashBookState& book, const LedgerPlace& place);

/// The account's file into its list as it stands there, unsorted; without a file the list is left
/// as it is. Throws RuntimeError; the list is marked as unread then.
void ReadLedgerAsItStands(CashBookState& book, const LedgerPlace& place);

/// Writes the account's list and clears its mark of unsaved bookings. Throws RuntimeError.
void SaveLedgerLines(CashBookState& book, const LedgerPlace& place);
