// The file of an account: reading it, opening a new year's with the carried balance, writing it.
// One booking a line, four fields; no balance is stored.
#pragma once

#include "data/line_file.h"
#include "data/runtime_error.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// The longest ledger: what a damaged file may hold beyond that would keep the window busy for
/// seconds.
constexpr qsizetype MostBookings = 200'000;

/// The lines in front of the first empty one, as they stand in the file. Throws RuntimeError (File,
/// also for a line that holds a LF alone in a file whose lines end in CR LF; Overflow beyond
/// MostBookings or LongestLine).
QStringList ReadLedgerLines(const DataFiles& files, const QString& name);

/// Old files store a balance as fifth field. When the last line's date has its first point at the
/// third character, every line but the first becomes its first four fields, and in the first line
/// the stored balance takes the deposit's place. A line that is too short for that stays as it is.
QStringList WithoutStoredBalances(const QStringList& lines);

/// ReadLedgerLines without stored balances, in booking order. Throws like ReadLedgerLines.
QStringList ReadLedger(const DataFiles& files, const QString& name);

/// Writes every line of the ledger (whole rewrite). Throws RuntimeError (File; Overflow, with
/// nothing changed, for what ReadLedgerLines would refuse).
void WriteLedger(const DataFiles& files, const QString& name, const QStringList& ledger);

/// An amount that is no number, in a file.
struct UncountedAmount {
    int line = 0; ///< 1 is the first
    int field = 0; ///< Deposit or Withdrawal
    QString content;
};

struct CarryOver {
    QString line; ///< the first booking of the new year
    QVector<UncountedAmount> uncounted; ///< counted as 0
};

/// Sums the previous year's lines in single precision and puts the balance into a booking of today.
CarryOver MakeCarryOver(
    const QStringList& previous_lines, const QString& previous_year, const QDate& today);

/// What the box says about amounts that were not counted; nothing when there are none. The file is
/// named without its folder.
std::optional<RuntimeError> UncountedError(
    const CarryOver& carry_over, const QString& file_name, const QString& previous_year);
