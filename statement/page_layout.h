// The part of a bill page that is the same for every member: club name, table, grid, prices, bank,
// contact persons, closing line. It is recorded once per redraw and shared by all pages; amounts
// are in bill_amounts. The layout is described in docs/bill-page.md.
#pragma once

#include "statement/bill_source.h"
#include "statement/page.h"

/// Appends the fixed contents to the page in drawing order. Throws RuntimeError
/// SubscriptOutOfRange of the contact search; what was drawn before it stays on the page.
void DrawFixedContents(PageItems& page, const BillSource& source);
