// Where words stand in a ledger.
#pragma once

#include "cashbook/ledger_rows.h"

#include <vector>

/// Positions of the rows whose date, text, deposit or withdrawal, as the table shows them, holds
/// the words; letter case and the points of thousands do not count. Nothing for no words.
std::vector<int> FindBookings(const LedgerRows& rows, const QString& words);
