// usage: handbuch_pdf HANDBUCH.HTML HANDBUCH.PDF
// Prints the manual on A4 pages with page numbers, also in the list of contents.
#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextList>
#include <QUrl>

namespace {

// The page is laid out in screen pixels and scaled: pictures and text keep their proportions.
constexpr int pixels_per_inch = 96;
constexpr int printer_dots_per_inch = 1200;
constexpr QMarginsF margins(15, 13, 15, 19); // millimetres; the lower one holds the page number
constexpr int inner_margin = 12; // pixels; keeps what is above and below a page break apart

int PageOf(const QTextDocument& document, const QTextBlock& block)
{
    // the first line decides: a block that does not fit begins above the line that is pushed on
    const QRectF around = document.documentLayout()->blockBoundingRect(block);
    const qreal first_line = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).y() : 0;
    return static_cast<int>((around.top() + first_line) / document.pageSize().height()) + 1;
}

/// A heading at the foot of a page goes to the next page, with what it stands above.
void KeepHeadingsWithText(QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlock below = block;
        while (below.blockFormat().headingLevel() > 0 && below.next().isValid())
            below = below.next();
        if (below == block || PageOf(document, block) == PageOf(document, below))
            continue;
        QTextBlockFormat format;
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).mergeBlockFormat(format);
        document.markContentsDirty(
            0, document.characterCount()); // else later pages keep their places
    }
}

/// The list of keys is meant to be printed alone and hung up.
void BeginKeysOnPageOfTheirOwn(QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (!part.fragment().charFormat().anchorNames().contains(QStringLiteral("tasten")))
                continue;
            QTextBlockFormat format;
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).mergeBlockFormat(format);
            return;
        }
    }
}

QHash<QString, int> PagesOfAnchors(const QTextDocument& document)
{
    QHash<QString, int> pages;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QStringList names = part.fragment().charFormat().anchorNames();
            for (const QString& name : names)
                pages.insert(name, PageOf(document, block));
        }
    }
    return pages;
}

/// The list of contents is the only list whose items are links and nothing else.
void AddPageNumbersToContents(QTextDocument& document)
{
    const QHash<QString, int> pages = PagesOfAnchors(document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.textList() == nullptr || block.begin().atEnd())
            continue;
        const QTextFragment first = block.begin().fragment();
        const QString link = first.charFormat().anchorHref();
        if (!link.startsWith(QLatin1Char('#')) || first.length() + 1 != block.length())
            continue;
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText(
            QStringLiteral("  ") + QString::number(pages.value(link.mid(1))), QTextCharFormat());
    }
}

void PrintPages(QTextDocument& document, QPdfWriter& writer)
{
    const QSizeF page = document.pageSize();
    QPainter painter(&writer);
    const qreal scale = qreal(writer.resolution()) / pixels_per_inch;
    painter.scale(scale, scale);
    painter.setFont(document.defaultFont());
    for (int number = 1; number <= document.pageCount(); ++number) {
        if (number > 1)
            writer.newPage();
        painter.save();
        painter.translate(0, -(number - 1) * page.height());
        painter.setClipRect(QRectF(QPointF(0, (number - 1) * page.height()), page));
        document.drawContents(&painter, QRectF(QPointF(0, (number - 1) * page.height()), page));
        painter.restore();
        painter.drawText(QRectF(0, page.height() + 8, page.width(), 24), Qt::AlignHCenter,
            QString::number(number));
    }
}

} // namespace

int main(int argument_count, char** arguments)
{
    const QGuiApplication application(argument_count, arguments);
    const QStringList names = application.arguments();
    QFile html(names.value(1));
    if (names.size() != 3 || !html.open(QIODevice::ReadOnly)) {
        qCritical("usage: handbuch_pdf HANDBUCH.HTML HANDBUCH.PDF");
        return 2;
    }
    QPdfWriter writer(names.value(2));
    writer.setResolution(printer_dots_per_inch);
    writer.setPageLayout(QPageLayout(
        QPageSize(QPageSize::A4), QPageLayout::Portrait, margins, QPageLayout::Millimeter));

    QTextDocument document;
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(13);
    document.setDefaultFont(font);
    document.setUseDesignMetrics(true);
    document.setDocumentMargin(inner_margin);
    document.setBaseUrl(QUrl::fromLocalFile(QFileInfo(html).absoluteFilePath()));
    QString page = QString::fromUtf8(html.readAll());
    page.replace(QStringLiteral(".png\""), QStringLiteral("@2x.png\"")); // paper shows every dot
    document.setHtml(page);
    document.setPageSize(writer.pageLayout().paintRectPixels(pixels_per_inch).size());
    BeginKeysOnPageOfTheirOwn(document);
    KeepHeadingsWithText(document);
    AddPageNumbersToContents(document);
    writer.setTitle(document.metaInformation(QTextDocument::DocumentTitle));
    PrintPages(document, writer);
    return 0;
}
