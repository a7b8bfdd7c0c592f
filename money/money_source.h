// What the money reports of a year are made of: members, bills, ledgers. Read by money_reading.
#pragma once

#include "money/bookings.h"
#include "money/payment.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Bookings that are in no file yet.
struct UnsavedBookings {
    bool Any = false;
    std::optional<int> Count; ///< nothing when lines were changed or deleted, or the file cannot be
                              ///< read
};

/// All that the reports of a year need.
struct MoneySource {
    int Year = 0;
    QStringList Records; ///< the loaded members, lines as in the file
    std::vector<std::optional<Cents>> Bills; ///< by member, as row 18 shows them
    std::vector<MoneyLedger> Ledgers; ///< of all years from the one before on, oldest first, each
                                      ///< year's bank account before its cash box; the loaded year
                                      ///< always has both
    ClubYears Years;
    bool CashBoxHasFile = false;
    UnsavedBookings Unsaved;
    QStringList Unreadable; ///< names of files
};

/// The ledger of that account and year, null when it is not there.
const MoneyLedger* LedgerOfYear(const MoneySource& source, Account account, int year);
