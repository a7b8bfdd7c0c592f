#include "report/report_browser_form.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <QTextTable>

namespace {

constexpr int half_light = 128;

/// Where a paragraph stands: in which cell of a table, if in any. Bars are tables within cells.
struct CellPlace {
    const QTextTable* table = nullptr;
    int row = 0;
    int column = 0;
};

CellPlace PlaceOf(const QTextBlock& block)
{
    CellPlace place;
    for (QTextFrame* frame = QTextCursor(block).currentFrame(); frame != nullptr;
         frame = frame->parentFrame()) {
        if (const auto* table = qobject_cast<const QTextTable*>(frame)) {
            const QTextTableCell cell = table->cellAt(block.position());
            place = { table, cell.row(), cell.column() };
        }
    }
    return place;
}

QString SelectedPart(const QTextBlock& block, const QTextCursor& selection)
{
    const int begin = qMax(0, selection.selectionStart() - block.position());
    const int end = qMin(block.length() - 1, selection.selectionEnd() - block.position());
    return block.text().mid(begin, end - begin).replace(QChar::Nbsp, QLatin1Char(' '));
}

/// What stands between two paragraphs.
QString Separator(const CellPlace& before, const CellPlace& now)
{
    if (now.table == nullptr || now.table != before.table || now.row != before.row)
        return QStringLiteral("\n");
    return QString(now.column - before.column, QLatin1Char('\t'));
}

} // namespace

ReportBrowser::ReportBrowser(QWidget* parent)
    : QTextBrowser(parent)
{
    setWordWrapMode(QTextOption::WordWrap); // a narrow table scrolls, it tears no word apart
    if (palette().color(QPalette::Base).lightness() < half_light) // links are dark blue otherwise
        document()->setDefaultStyleSheet(QStringLiteral("a { color: #7ab8ff }"));
}

QMimeData* ReportBrowser::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData; // belongs to the caller
    copied->setHtml(textCursor().selection().toHtml());
    copied->setText(TextOfSelection(textCursor()));
    return copied;
}

QString TextOfSelection(const QTextCursor& selection)
{
    const QTextDocument* document = selection.document();
    QString text;
    CellPlace before;
    QTextBlock block = document->findBlock(selection.selectionStart());
    const QTextBlock first = block;
    while (block.isValid() && block.position() < selection.selectionEnd()) {
        const CellPlace place = PlaceOf(block);
        if (block != first)
            text += Separator(before, place);
        text += SelectedPart(block, selection);
        before = place;
        block = block.next();
    }
    return text;
}
