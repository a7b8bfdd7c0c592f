#include "report/report_paper_form.h"

#include "data/runtime_error.h"
#include "report/report_html.h"
#include "report/report_pages_form.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPalette>
#include <QPrinter>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr double margin_mm = 15.0;
constexpr int text_points = 9;
constexpr int foot_points = 8;
constexpr int edge_lines = 2; // what stands above or below takes so many of its lines off the page

void SetUp(QPrinter& printer, const Report& report)
{
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(
        report.paper == PaperSide::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setPageMargins(
        QMarginsF(margin_mm, margin_mm, margin_mm, margin_mm), QPageLayout::Millimeter);
    printer.setDocName(report.title);
}

QFont FontOf(int points)
{
    QFont font(u"Liberation Sans"_s, points);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

/// The club and the day stand below every page, or above it as the state of the report.
void PaintEdges(QPainter& painter, const QRectF& sheet, const Report& report, const PaperFoot& foot,
    const QString& number)
{
    const bool above = report.edge == PaperEdge::Above;
    const int edge = above ? Qt::AlignTop : Qt::AlignBottom;
    painter.setFont(FontOf(foot_points));
    painter.drawText(sheet, Qt::AlignLeft | edge, foot.club);
    painter.drawText(sheet, Qt::AlignRight | edge, above ? u"Stand "_s + foot.date : foot.date);
    painter.drawText(sheet, Qt::AlignHCenter | Qt::AlignBottom, number);
}

/// Paints a stretch of the document so that its top comes to y.
void PaintStretch(
    QPainter& painter, QTextDocument& document, const Stretch& stretch, double width, double y)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = QPalette(Qt::black, Qt::white); // paper is white on a dark desktop too
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = QRectF(0.0, stretch.top, width, stretch.bottom - stretch.top);
    painter.save();
    painter.translate(0.0, y - stretch.top);
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
}

void PaintPage(
    QPainter& painter, QTextDocument& document, const PrintedPage& page, const QRectF& body)
{
    double y = body.top();
    if (page.head) {
        PaintStretch(painter, document, *page.head, body.width(), y);
        y += page.head->bottom - page.head->top;
    }
    PaintStretch(painter, document, page.body, body.width(), y);
}

/// The sheet without its edges.
QRectF BodyOf(const QRectF& sheet, const Report& report, double edge_height)
{
    const double above = report.edge == PaperEdge::Above ? edge_height : 0.0;
    return sheet.adjusted(0.0, above, 0.0, -edge_height);
}

} // namespace

void PrintReport(
    QPrinter& printer, const Report& report, const ReportChoices& choices, const PaperFoot& foot)
{
    SetUp(printer, report);
    QPainter painter;
    if (!painter.begin(&printer))
        throw RuntimeError { ErrorKind::File, {}, {} };
    const QRectF sheet(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    painter.setFont(FontOf(foot_points));
    const QRectF body = BodyOf(sheet, report, edge_lines * painter.fontMetrics().height());

    QTextDocument document;
    document.setDocumentMargin(0.0);
    document.setDefaultFont(FontOf(text_points));
    document.documentLayout()->setPaintDevice(&printer);
    document.setHtml(HtmlOfReport(report, choices, HtmlUse::Paper));
    document.setTextWidth(body.width());
    const std::vector<PrintedPage> pages = CutIntoPages(document, body.height());
    for (std::size_t page = 0; page < pages.size(); ++page) {
        if (page > 0 && !printer.newPage())
            throw RuntimeError { ErrorKind::File, {}, {} };
        PaintPage(painter, document, pages[page], body);
        PaintEdges(
            painter, sheet, report, foot, u"Seite %1 von %2"_s.arg(page + 1).arg(pages.size()));
    }
}

QString PdfNameOf(const QString& title)
{
    QString name = title.section(u" – "_s, 0, 0).trimmed();
    for (QChar& letter : name) {
        if (u"/\\:*?\"<>|"_s.contains(letter) || letter.category() == QChar::Other_Control)
            letter = u'-';
    }
    return name + u".pdf"_s;
}
