// A bill page as data: what is written and drawn on it, in page pixels. Screen, paper and tests
// replay the same list. The layout is described in docs/bill-page.md.
#pragma once

#include <QString>

#include <variant>
#include <vector>

inline constexpr int PageWidth = 649; ///< page pixels
inline constexpr int PageHeight = 918; ///< page pixels

enum class PageColour { Black, DarkRed };

/// A text; x is its left end, or its right edge when right_aligned. y is its top. Sizes are 8 or 14
/// points (11 or 19 pixels).
struct PageText {
    QString element; ///< name of the text, e.g. row_5_subtotal
    QString text;
    int x = 0;
    int y = 0;
    bool right_aligned = false;
    int point_size = 8;
    bool bold = false;
    PageColour colour = PageColour::Black;
};

struct PageLine {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
};

/// An unfilled rectangle with these corners.
struct PageBox {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
};

using PageItem = std::variant<PageText, PageLine, PageBox>;
using PageItems = std::vector<PageItem>;
