// Drawing all bills of the year: the fixed contents, then each member's computed bill. A page's
// items (page.h) are made when the page is seen or printed; nothing is painted here.
#pragma once

#include "statement/annual_statement.h"
#include "statement/bill_source.h"
#include "statement/statement_state.h"

/// Draws every page anew: the fixed contents of all pages, then all amounts. Appends each finished
/// bill's total to the totals list, which the caller clears before. Throws RuntimeError where the
/// drawing stops: pages finished by then stay complete, the one in hand shows what it had, later
/// ones keep the fixed contents alone. The routines that load and save ask for several drawings in
/// a row: what is made of the same lists, prices and day comes out the same and is not computed
/// twice.
void DrawAllPages(StatementState& statement, const BillSource& source);

/// The number of pages that were drawn last, one for each member.
qsizetype PageCount(const StatementState& statement);

/// The bill on page index (0 to PageCount - 1, the member's position): what it was drawn from,
/// whether or not the drawing came so far. Computed at each call; the bills of the loaded year are
/// those of all pages. A page that is not there has a bill that stopped before its first row
/// (SubscriptOutOfRange).
AnnualStatement StatementOfPage(const StatementState& statement, qsizetype index);

/// The same bill with what it draws.
PageBill BillOfPage(const StatementState& statement, qsizetype index);

/// What stands on page index (0 is the first page): the fixed contents, null when the page lacks
/// them, and the member's part.
struct PageContents {
    const PageItems* fixed = nullptr; ///< belongs to the statement
    PageItems member; ///< made for this call; empty when the page lacks it
};
PageContents ContentsOfPage(const StatementState& statement, qsizetype index);

/// True when amounts are missing on page index: the drawing stopped there or before.
bool IsUnfinished(const StatementState& statement, qsizetype index);

/// The title as it stands on the drawn pages; the year box may show another year by now. Empty
/// while nothing is drawn.
QString TitleOfPages(const StatementState& statement);
