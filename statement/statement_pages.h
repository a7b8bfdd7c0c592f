// Drawing all bills of the year: fixed contents first, then each member's part. Pages are lists of
// items (page.h); nothing is painted here.
#pragma once

#include "statement/bill_source.h"
#include "statement/statement_state.h"

/// Clears every page and draws it anew: the fixed contents of all pages, then all amounts. Appends
/// to the totals list, which the caller clears before. Throws RuntimeError where the drawing stops:
/// pages finished by then stay complete, later ones keep the fixed contents alone.
void DrawAllPages(StatementState& statement, const BillSource& source);

/// What stands on page index (0 is the first page): the fixed contents and the member's part, each
/// null when the page lacks it. The lists belong to the statement.
struct PageContents {
    const PageItems* fixed = nullptr;
    const PageItems* member = nullptr;
};
PageContents ContentsOfPage(const StatementState& statement, qsizetype index);

/// The title as it stands on the drawn pages; the year box may show another year by now. Empty
/// while nothing is drawn.
QString TitleOfPages(const StatementState& statement);
