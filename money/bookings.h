// The bookings of a ledger with their amounts in exact cents.
#pragma once

#include "cashbook/ledger.h"
#include "money/cents.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// One line of a ledger.
struct Booking {
    Account account = Account::Bank;
    int ledger_year = 0;
    int line = 0; ///< 1 is the first of the ledger
    QString date; ///< as the ledger view shows it
    std::optional<QDate> day; ///< nothing when the date is no day
    QString text;
    QString folded; ///< the text made comparable (folding)
    QString deposit_text; ///< as stored
    QString withdrawal_text;
    std::optional<Cents> deposit; ///< nothing when the text is no number; counts as 0
    std::optional<Cents> withdrawal;
};

/// Deposit and withdrawal, what is no number counting as 0.
Cents DepositOf(const Booking& booking);
Cents WithdrawalOf(const Booking& booking);

/// Deposit less withdrawal.
Cents AmountOf(const Booking& booking);

/// The bookings of one account and year, in ledger order.
struct MoneyLedger {
    Account account = Account::Bank;
    int year = 0;
    std::vector<Booking> bookings;
};

MoneyLedger ReadBookings(Account account, int year, const QStringList& lines);

/// The exact balance: deposits less withdrawals of all lines.
Cents BalanceOf(const MoneyLedger& ledger);

/// "Konto" or "Handkasse"; behind it the year of the ledger when it is not the report's.
QString AccountName(Account account);
QString AccountName(const Booking& booking, int report_year);

/// An amount that is no number.
struct NoAmount {
    Booking booking;
    QString stored; ///< "leer" for an empty one
};

/// Appends the amounts of the ledger that are no numbers.
void ListNoAmounts(std::vector<NoAmount>& list, const MoneyLedger& ledger);
