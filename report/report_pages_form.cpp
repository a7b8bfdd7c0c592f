#include "report/report_pages_form.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>

namespace {

/// A paragraph or a row of a table.
struct Piece {
    Stretch at;
    bool keeps_next = false; ///< a heading, or the captions of a table
    bool ends_page = false;
    std::optional<Stretch> head; ///< the captions of its table; not for the captions themselves
};

/// The text of a row, over all its cells.
Stretch TextOfRow(const QTextDocument& document, const QTextTable& table, int row)
{
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    Stretch text { 1.0e9, 0.0 };
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        const QRectF first = layout->blockBoundingRect(cell.firstCursorPosition().block());
        const QRectF last = layout->blockBoundingRect(cell.lastCursorPosition().block());
        text.top = std::min(text.top, first.top());
        text.bottom = std::max(text.bottom, last.bottom());
    }
    return text;
}

/// Rows meet in the middle between their texts.
void AddRows(std::vector<Piece>& pieces, const QTextDocument& document, const QTextTable& table)
{
    const QRectF frame
        = document.documentLayout()->frameBoundingRect(const_cast<QTextTable*>(&table));
    const int heads = table.format().headerRowCount();
    double top = frame.top();
    std::optional<Stretch> head;
    for (int row = 0; row < table.rows(); ++row) {
        const bool last = row + 1 == table.rows();
        const double bottom = last
            ? frame.bottom()
            : (TextOfRow(document, table, row).bottom + TextOfRow(document, table, row + 1).top)
                / 2;
        Piece piece { { top, bottom }, row < heads, false, head };
        if (row < heads)
            piece.head.reset();
        pieces.push_back(piece);
        top = bottom;
        if (row + 1 == heads)
            head = Stretch { frame.top(), bottom };
    }
}

std::vector<Piece> PiecesOf(const QTextDocument& document)
{
    std::vector<Piece> pieces;
    for (auto part = document.rootFrame()->begin(); !part.atEnd(); ++part) {
        if (const auto* table = qobject_cast<const QTextTable*>(part.currentFrame())) {
            AddRows(pieces, document, *table);
            continue;
        }
        const QTextBlock block = part.currentBlock();
        const QRectF rect = document.documentLayout()->blockBoundingRect(block);
        const QTextBlockFormat format = block.blockFormat();
        const bool ends_page = (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysAfter) != 0;
        const double bottom = ends_page ? rect.top() : rect.bottom(); // it has no text
        pieces.push_back({ { rect.top(), bottom }, format.headingLevel() > 0, ends_page, {} });
    }
    return pieces;
}

/// The piece with which the next page begins, when this one does not fit any more: itself, or the
/// heading above it.
std::size_t FirstOfNextPage(const std::vector<Piece>& pieces, std::size_t first, std::size_t misfit)
{
    std::size_t next = misfit;
    while (next > first && pieces[next - 1].keeps_next)
        --next;
    return next == first ? misfit : next;
}

double HeightOf(const std::optional<Stretch>& head)
{
    return head ? head->bottom - head->top : 0.0;
}

/// One page, from piece `first` on; `first` becomes the first piece of the next one.
PrintedPage TakePage(const std::vector<Piece>& pieces, std::size_t& first, double height)
{
    PrintedPage page;
    const bool goes_on = first > 0 && pieces[first].head && !pieces[first - 1].keeps_next
        && !pieces[first - 1].ends_page;
    if (goes_on)
        page.head = pieces[first].head;
    page.body = pieces[first].at;
    std::size_t next = first + 1;
    while (next < pieces.size() && !pieces[next - 1].ends_page
        && pieces[next].at.bottom - page.body.top + HeightOf(page.head) <= height)
        ++next;
    if (next < pieces.size() && !pieces[next - 1].ends_page)
        next = FirstOfNextPage(pieces, first, next);
    page.body.bottom = pieces[next - 1].at.bottom;
    first = next;
    return page;
}

/// A piece that is higher than a page is printed on several.
void AddPage(std::vector<PrintedPage>& pages, PrintedPage page, double height)
{
    const double room = std::max(height - HeightOf(page.head), height / 2);
    while (page.body.bottom - page.body.top > room + 1.0) {
        PrintedPage part = page;
        part.body.bottom = page.body.top + room;
        page.body.top = part.body.bottom;
        pages.push_back(part);
    }
    pages.push_back(page);
}

} // namespace

std::vector<PrintedPage> CutIntoPages(const QTextDocument& document, double height)
{
    const std::vector<Piece> pieces = PiecesOf(document);
    std::vector<PrintedPage> pages;
    std::size_t first = 0;
    while (first < pieces.size())
        AddPage(pages, TakePage(pieces, first, height), height);
    if (pages.empty())
        pages.push_back({});
    return pages;
}
