// The part of a bill that belongs to the member: address, consumptions, amounts, subtotals and the
// total. What each row holds is described in docs/bill-page.md.
#pragma once

#include "statement/bill_source.h"
#include "statement/statement_state.h"

/// Draws every member's part into his page and appends his total to the totals list (text of a
/// single). Readings are single precision, prices and products double, the running total single.
/// Throws RuntimeError SubscriptOutOfRange (short record, no line in last year's file),
/// TypeMismatch or Overflow (reading, price, premium); the drawing stops there: what was drawn
/// stays, later members get nothing.
void DrawStatementAmounts(StatementState& statement, const BillSource& source);
