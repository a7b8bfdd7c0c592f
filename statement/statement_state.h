// The drawn pages of the loaded year and where the preview stands.
#pragma once

#include "data/runtime_error.h"
#include "statement/annual_statement.h"
#include "statement/bill_source.h"
#include "statement/page.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// A page's bill and what it draws, computed once for all who look at the page.
struct PageBill {
    qsizetype Index = 0; ///< of the page, 0 is the first
    AnnualStatement Statement;
    PageItems Items; ///< the member's part
};

struct StatementState {
    BillSource Source; ///< what the drawn pages are made of, as it stood when they were drawn
    PageItems FixedContents; ///< the same on every page; recorded once per redraw
    qsizetype FixedPages = 0; ///< so many pages, from the first on, carry the fixed contents
    qsizetype MemberPages = 0; ///< so many pages, from the first on, carry the member's part; the
                               ///< last one an unfinished part when the drawing stopped there
    qsizetype FinishedPages = 0; ///< so many pages, from the first on, have all their amounts
    std::optional<RuntimeError> Stopped; ///< why there are fewer of them than pages
    bool Drawn = false; ///< the pages were drawn once
    QStringList DrawnTotals; ///< the totals of the last drawing
    QStringList StatementTotals; ///< List7: total of each drawn member as text of a single
    float LastGrandTotal = 0.0F; ///< single precision
    QString PageSelection; ///< flags joined with ";"; always empty when printing starts
    qint16 ShownPage = 1; ///< 1 is the first page
    qint32 ScrollOffset = 0; ///< viewport pixels, 0 or negative
    std::vector<qint32> PageTops { 0 }; ///< top of each page surface in the viewport; the first
                                        ///< surface is always there
    /// What is asked for beside the bill, as the last items of the member's part of its page; not
    /// set: nothing.
    std::function<PageItems(const PageBill& bill)> AddedItems;
    bool PrintAllPages = false; ///< kept, read nowhere
};
