// Where a report that was laid out in one long column is cut into printed pages: between rows and
// paragraphs, never behind a heading.
#pragma once

#include <optional>
#include <vector>

class QTextDocument;

/// A stretch of the column, in its units.
struct Stretch {
    double top = 0.0;
    double bottom = 0.0;
};

struct PrintedPage {
    std::optional<Stretch> head; ///< the captions of a table that goes on from the page before
    Stretch body;
};

/// The pages of a document without pages of its own, none higher than `height`; what is higher
/// than a page is cut where it comes to its end. At least one page.
std::vector<PrintedPage> CutIntoPages(const QTextDocument& document, double height);
