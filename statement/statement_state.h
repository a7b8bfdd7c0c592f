// The pages of the loaded year as data and where the preview stands.
#pragma once

#include "statement/page.h"

#include <QString>
#include <QStringList>

#include <vector>

struct StatementState {
    PageItems FixedContents; ///< the same on every page; recorded once per redraw
    qsizetype FixedPages = 0; ///< so many pages, from the first on, carry the fixed contents
    std::vector<PageItems> MemberContents; ///< one list per member, in member order
    QStringList StatementTotals; ///< List7: total of each drawn member as text of a single
    float LastGrandTotal = 0.0F; ///< single precision
    QString PageSelection; ///< flags joined with ";"; always empty when printing starts
    qint16 ShownPage = 1; ///< 1 is the first page
    qint32 ScrollOffset = 0; ///< viewport pixels, 0 or negative
    std::vector<qint32> PageTops { 0 }; ///< top of each page surface in the viewport; the first
                                        ///< surface is always there
    bool PrintAllPages = false; ///< kept, read nowhere
};
