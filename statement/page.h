// A bill page as data: what is written and drawn on it, in page pixels. Screen, paper and tests
// replay the same list. The layout is described in docs/bill-page.md.
#pragma once

#include <QString>
#include <QStringList>

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

/// A black rectangle.
struct PageFill {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

using PageItem = std::variant<PageText, PageLine, PageBox, PageFill>;
using PageItems = std::vector<PageItem>;

/// How a text looks; without one it is size 8, regular, black.
struct TextStyle {
    int point_size = 8;
    bool bold = false;
    PageColour colour = PageColour::Black;
};

inline constexpr TextStyle BoldStyle { 8, true, PageColour::Black };
inline constexpr TextStyle RedStyle { 8, true, PageColour::DarkRed };
inline constexpr TextStyle ClubNameStyle { 14, false, PageColour::Black };

/// Tops of the bill's rows in page pixels; two rows carry the number 16.
enum RowTop {
    Row1 = 306,
    Row2 = 318,
    Row3 = 330,
    Row4 = 342,
    Row5 = 354,
    Row6 = 378,
    Row7 = 390,
    Row8 = 402,
    Row9 = 414,
    Row10 = 440,
    Row11 = 464,
    Row12 = 488,
    Row13 = 512,
    Row14 = 536,
    Row15 = 548,
    Row16 = 560,
    Row16b = 572,
    Row17 = 584,
    Row18 = 608
};

/// Right edges of the columns in page pixels.
inline constexpr int QuantityEdge = 378;
inline constexpr int FactorEdge = 458;
inline constexpr int AmountEdge = 538;
inline constexpr int WaterPrepaymentEdge = 535; ///< row 7 stands three pixels further left
inline constexpr int SubtotalEdge = 618;

/// Appends a text whose left end is x and whose top is y.
void AddText(PageItems& page, const QString& element, int x, int y, const QString& text,
    const TextStyle& style = {});

/// Appends a number that ends at the right edge.
void AddRightAligned(
    PageItems& page, const QString& element, int right_edge, int y, const QString& text);

void AddBox(PageItems& page, int x1, int y1, int x2, int y2);
void AddLine(PageItems& page, int x1, int y1, int x2, int y2);

/// One line per item, cells separated by tabs: a text as "text", element, text, "left" or "right",
/// position, y, point size, 1 when bold, red,green,blue; a box or line as "box" or "line" and its
/// four numbers, a filled rectangle as "fill" and its place and size.
QStringList DescribePage(const PageItems& page);
