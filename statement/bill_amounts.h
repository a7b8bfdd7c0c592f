// The part of a bill page that belongs to the member: address, consumptions, amounts, subtotals and
// the total, drawn from his computed bill. What each row holds is described in docs/bill-page.md.
#pragma once

#include "statement/annual_statement.h"
#include "statement/page.h"

/// Appends what the statement holds in drawing order: the address, then row by row quantity, amount
/// and subtotal, then the total. Cells that stay empty are left out, so an unfinished statement
/// ends where it stopped. Everything is size 8, regular, black.
void DrawStatement(PageItems& page, const AnnualStatement& statement);

/// An amount of that row as it stands on the page ("62,50", "-48,00" for a deduction).
QString AmountText(BillRow row, double amount);

/// A subtotal as it stands on the page ("72,50").
QString SubtotalText(double subtotal);

/// The total as it stands on the page, two blanks before the sign ("208,20  €").
QString GrandTotalText(float total);
