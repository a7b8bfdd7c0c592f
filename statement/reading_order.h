// The order in which a page goes to paper and into a PDF: as it is read. A screen reader, a search
// and a copied text meet the words of a PDF in the order in which they were painted.
#pragma once

#include "statement/page.h"

/// Boxes, lines and filled rectangles as they come, then the texts row by row, each row from left
/// to right; a red word stands before the text that it covers the beginning of. The picture is the
/// same.
PageItems InReadingOrder(const PageItems* fixed, const PageItems& member);
