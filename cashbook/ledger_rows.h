// The rows of the ledger view: bookings with their running balance, as texts.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/// Which amounts of a line are numbers; the others count as 0.
struct CountedAmounts {
    bool deposit = true;
    bool withdrawal = true;
};

/// Adds a booking to the balance: (deposit + balance) - withdrawal, every step in single precision.
/// An amount that is no number, or so large that the balance would leave its range, counts as 0.
CountedAmounts AddToBalance(float& balance, const QString& line);

/// A ledger with its running balances. The texts of a row are made when they are asked for, so that
/// long ledgers are shown at once.
struct LedgerRows {
    QStringList lines;
    std::vector<float> balances; ///< after each line
    std::vector<CountedAmounts> counted;
};

/// One row of the view, texts of its five columns.
struct LedgerRow {
    QString key; ///< "Zeile " and the row's number, 1 for the first
    QString date; ///< dd.mm.yyyy when it is a date, else as stored
    QString text;
    QString deposit; ///< "12,50 €"; as stored when it is no number
    QString withdrawal;
    QString balance;
    CountedAmounts counted;
    bool well_dated = true; ///< the stored date is a day in the form dd.mm.yyyy
};

LedgerRows MakeLedgerRows(const QStringList& ledger);

/// The row at that position (0 is the first).
LedgerRow RowAt(const LedgerRows& rows, qsizetype position);

/// The balance after the last line, 0 for an empty ledger; single precision.
float ClosingBalance(const LedgerRows& rows);

/// The balance as the large figure shows it: "710,33 €".
QString CurrentBalanceText(float balance);

/// True when the shown amount is below zero; what shows as zero is not.
bool ShowsBelowZero(const QString& amount_text);
