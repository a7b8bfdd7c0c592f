#include "report/report_paper_form.h"

#include "data/runtime_error.h"
#include "report/report_html.h"

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
constexpr int foot_lines = 2; // the foot takes so many of its lines off the page

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

void PaintFoot(QPainter& painter, const QRectF& sheet, const PaperFoot& foot, const QString& number)
{
    painter.setFont(FontOf(foot_points));
    painter.drawText(sheet, Qt::AlignLeft | Qt::AlignBottom, foot.club);
    painter.drawText(sheet, Qt::AlignHCenter | Qt::AlignBottom, number);
    painter.drawText(sheet, Qt::AlignRight | Qt::AlignBottom, foot.date);
}

void PaintPage(QPainter& painter, QTextDocument& document, const QRectF& body, int page)
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = QPalette(Qt::black, Qt::white); // paper is white on a dark desktop too
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = body.translated(0.0, page * body.height());
    painter.save();
    painter.translate(0.0, -page * body.height());
    painter.setClipRect(context.clip);
    document.documentLayout()->draw(&painter, context);
    painter.restore();
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
    const double foot_height = foot_lines * painter.fontMetrics().height();
    const QRectF body(QPointF(), sheet.size() - QSizeF(0.0, foot_height));

    QTextDocument document;
    document.setDocumentMargin(0.0);
    document.setDefaultFont(FontOf(text_points));
    document.documentLayout()->setPaintDevice(&printer);
    document.setHtml(HtmlOfReport(report, choices, HtmlUse::Paper));
    document.setPageSize(body.size());
    const int pages = document.pageCount();
    for (int page = 0; page < pages; ++page) {
        if (page > 0 && !printer.newPage())
            throw RuntimeError { ErrorKind::File, {}, {} };
        PaintPage(painter, document, body, page);
        PaintFoot(painter, sheet, foot, u"Seite %1 von %2"_s.arg(page + 1).arg(pages));
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
