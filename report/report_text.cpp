#include "report/report_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double bar_length = 10.0; // characters of a full bar

/// What a line break in a text would tear apart stays one line.
QString OneLine(QString text)
{
    text.replace(u'\n', u' ');
    text.replace(u'\r', u' ');
    return text;
}

QString TextOfCell(const ReportCell& cell)
{
    const QString text = OneLine(cell.text.text);
    if (!cell.bar)
        return text;
    const auto length = static_cast<qsizetype>(std::lround(*cell.bar * bar_length));
    const QString bar(length, u'#');
    return text.isEmpty() ? bar : bar + u' ' + text;
}

struct TextMaker {
    QStringList lines {};

    void operator()(const ReportHeading& heading) { lines += OneLine(heading.text); }
    void operator()(const ReportSentence& sentence)
    {
        QString line;
        for (const ReportText& text : sentence.texts)
            line += OneLine(text.text);
        lines += line;
    }
    void operator()(const ReportTable& table)
    {
        QStringList captions;
        for (const ReportColumn& column : table.columns)
            captions += OneLine(column.caption);
        if (!captions.join(QString()).isEmpty())
            lines += captions.join(u'\t');
        for (const ReportRow& row : table.rows) {
            QStringList cells;
            for (const ReportCell& cell : row.cells)
                cells += TextOfCell(cell);
            lines += cells.join(u'\t');
        }
    }
    void operator()(const ReportPageBreak&) { lines += u"="_s; }
    void operator()(const ReportSignatures& signatures)
    {
        for (const QString& caption : signatures.captions)
            lines += u"____ "_s + OneLine(caption);
    }
};

} // namespace

QString TextOfReport(const Report& report)
{
    TextMaker maker;
    for (const ReportItem& item : report.items)
        std::visit(maker, item);
    return maker.lines.join(u'\n') + u'\n';
}
