#include "report/report_html.h"

#include <QUrl>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int indent_pixels = 24;
constexpr int full_bar_pixels = 80;

/// Blanks side by side and at the ends stay; control characters would be lost or break the text.
QString Escaped(QString text)
{
    for (QChar& letter : text) {
        if (letter.category() == QChar::Other_Control || letter == QChar::ObjectReplacementCharacter
            || letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator)
            letter = u' ';
    }
    return text.toHtmlEscaped();
}

struct HtmlMaker {
    const ReportChoices& choices;
    HtmlUse use;
    QString html {};

    void operator()(const ReportHeading& heading);
    void operator()(const ReportSentence& sentence);
    void operator()(const ReportTable& table);
    void operator()(const ReportPageBreak& page_break);
    void operator()(const ReportSignatures& signatures);
};

QString HtmlOf(const ReportText& text, HtmlUse use)
{
    QString html = Escaped(text.text);
    if (text.look == TextLook::Bold)
        html = u"<b>"_s + html + u"</b>"_s;
    if (text.look == TextLook::Small)
        html = u"<span style=\"font-size:small\">"_s + html + u"</span>"_s;
    if (use == HtmlUse::Paper || text.target.kind == LinkKind::None)
        return html;
    const QString address
        = QString::fromLatin1(QUrl::toPercentEncoding(LinkAddress(text.target), "/"));
    return u"<a href=\""_s + address + u"\">"_s + html + u"</a>"_s;
}

/// Half transparent: the letters stay readable on light and dark desktops.
QString Colour(RowTint tint)
{
    switch (tint) {
    case RowTint::None:
        break;
    case RowTint::Good:
        return u"#4650aa50"_s;
    case RowTint::Attention:
        return u"#50f2c12e"_s;
    case RowTint::Bad:
        return u"#50e04f4f"_s;
    case RowTint::Calm:
        return u"#32808080"_s;
    }
    return {};
}

void HtmlMaker::operator()(const ReportHeading& heading)
{
    const QString tag = u"h"_s + QString::number(heading.level);
    html += u'<' + tag + u'>' + Escaped(heading.text) + u"</"_s + tag + u">\n"_s;
}

void HtmlMaker::operator()(const ReportSentence& sentence)
{
    const int left = static_cast<int>(sentence.indent) * indent_pixels;
    html
        += u"<p style=\"white-space:pre-wrap; margin-top:2px; margin-bottom:2px; margin-left:%1px\">"_s
               .arg(left);
    for (const ReportText& text : sentence.texts)
        html += HtmlOf(text, use);
    html += u"</p>"_s;
}

QString ColourOf(BarLook look)
{
    switch (look) {
    case BarLook::Full:
        break;
    case BarLook::Pale:
        return u"#463d8ec9"_s;
    case BarLook::Warning:
        return u"#a0e04f4f"_s;
    }
    return u"#a03d8ec9"_s;
}

QString HtmlOfBar(double length, BarLook look)
{
    const auto pixels
        = static_cast<int>(std::lround(std::clamp(length, 0.0, 1.0) * full_bar_pixels));
    if (pixels == 0)
        return {};
    return u"<table cellspacing=\"0\" cellpadding=\"0\"><tr><td width=\"%1\" "
           "bgcolor=\"%2\"><span>&nbsp;</span></td></tr></table>"_s.arg(pixels)
               .arg(ColourOf(look));
}

QString HtmlOfCaption(
    const ReportTable& table, std::size_t index, const ReportChoices& choices, HtmlUse use)
{
    const ReportColumn& column = table.columns[index];
    const auto number = static_cast<int>(index);
    const bool link = column.sortable && !table.name.isEmpty();
    ReportText caption { column.caption };
    if (link)
        caption.target = SortLink(table.name, number);
    const auto chosen = choices.Sorting.constFind(table.name);
    if (link && chosen != choices.Sorting.cend() && chosen->column == number)
        caption.text += chosen->order == Qt::AscendingOrder ? u" ▲"_s : u" ▼"_s;
    return HtmlOf(caption, use);
}

QString Alignment(const ReportColumn& column)
{
    return column.kind == ColumnKind::Number ? u" align=\"right\""_s : u" align=\"left\""_s;
}

QString WidthOf(const ReportColumn& column)
{
    return column.share > 0 ? u" width=\"%1%\""_s.arg(column.share) : QString();
}

/// The text stands in an element of its own: the tint of the cell would lie behind it a second
/// time.
QString HtmlOfCell(
    const ReportColumn& column, const ReportCell& cell, const ReportRow& row, HtmlUse use)
{
    // A number that is torn apart is two numbers.
    const bool number = column.kind == ColumnKind::Number;
    QStringList style { number ? u"white-space:nowrap"_s : u"white-space:pre-wrap"_s };
    if (cell.indent != Indent::None)
        style += u"padding-left:%1px"_s.arg(static_cast<int>(cell.indent) * indent_pixels);
    if (row.total)
        style += u"font-weight:bold; border-top:1px solid gray"_s;
    const QString colour = Colour(row.tint);
    const QString tint = colour.isEmpty() ? QString() : u" bgcolor=\"%1\""_s.arg(colour);
    return u"<td"_s + Alignment(column) + WidthOf(column) + tint + u" style=\""_s
        + style.join(u"; "_s) + u"\">"_s
        + (cell.bar ? HtmlOfBar(*cell.bar, cell.bar_look) : QString()) + u"<span>"_s
        + HtmlOf(cell.text, use) + u"</span></td>"_s;
}

QString HtmlOfRow(const ReportTable& table, const ReportRow& row, HtmlUse use)
{
    QString html = u"<tr>"_s;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        html += HtmlOfCell(
            table.columns[i], i < row.cells.size() ? row.cells[i] : ReportCell {}, row, use);
    return html + u"</tr>\n"_s;
}

/// The row of the captions stands again at the top of every printed page.
QString HtmlOfCaptions(const ReportTable& table, const ReportChoices& choices, HtmlUse use)
{
    const bool no_captions = std::all_of(table.columns.begin(), table.columns.end(),
        [](const ReportColumn& column) { return column.caption.isEmpty(); });
    if (no_captions)
        return {};
    QString html = u"<thead><tr>"_s;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        html += u"<th"_s + Alignment(table.columns[i]) + WidthOf(table.columns[i]) + u'>'
            + HtmlOfCaption(table, i, choices, use) + u"</th>"_s;
    return html + u"</tr></thead>\n"_s;
}

void HtmlMaker::operator()(const ReportTable& table)
{
    const bool shared = std::any_of(table.columns.begin(), table.columns.end(),
        [](const ReportColumn& column) { return column.share > 0; });
    const QString width = shared ? u" width=\"100%\""_s : QString();
    html += table.look == TableLook::Sheet
        ? u"<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"7\" style=\"border-collapse:collapse\">\n"_s
        : u"<table%1 cellspacing=\"0\" cellpadding=\"4\">\n"_s.arg(width);
    html += HtmlOfCaptions(table, choices, use);
    for (const ReportRow& row : table.rows)
        html += HtmlOfRow(table, row, use);
    html += u"</table>\n"_s;
}

void HtmlMaker::operator()(const ReportPageBreak&)
{
    html += use == HtmlUse::Paper ? u"<p style=\"page-break-after:always\">&nbsp;</p>\n"_s
                                  : u"<hr>\n"_s;
}

void HtmlMaker::operator()(const ReportSignatures& signatures)
{
    const qsizetype count = std::max<qsizetype>(signatures.captions.size(), 1);
    const bool to_sign = !signatures.captions.join(QString()).isEmpty();
    html += to_sign ? u"<p>&nbsp;</p><p>&nbsp;</p>"_s : QString(); // room for a hand
    html += u"<table width=\"100%\" cellspacing=\"24\"><tr>"_s;
    for (const QString& caption : signatures.captions)
        html += u"<td width=\"%1%\" style=\"border-top:1px solid gray\">"_s.arg(100 / count)
            + Escaped(caption) + u"</td>"_s;
    html += u"</tr></table>\n"_s;
}

} // namespace

QString HtmlOfReport(const Report& report, const ReportChoices& choices, HtmlUse use)
{
    HtmlMaker maker { choices, use };
    for (const ReportItem& item : report.items)
        std::visit(maker, item);
    return u"<html><head><title>"_s + Escaped(report.title) + u"</title></head><body>\n"_s
        + maker.html + u"</body></html>"_s;
}
