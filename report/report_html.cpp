#include "report/report_html.h"

#include <QUrl>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int indent_pixels = 24;
constexpr int full_bar_pixels = 120;

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
        return u"rgba(80,170,80,70)"_s;
    case RowTint::Attention:
        return u"rgba(242,193,46,80)"_s;
    case RowTint::Bad:
        return u"rgba(224,79,79,80)"_s;
    case RowTint::Calm:
        return u"rgba(128,128,128,50)"_s;
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
    html += u"</p>\n"_s;
}

QString ColourOf(BarLook look)
{
    switch (look) {
    case BarLook::Full:
        break;
    case BarLook::Pale:
        return u"rgba(61,142,201,70)"_s;
    case BarLook::Warning:
        return u"rgba(224,79,79,160)"_s;
    }
    return u"rgba(61,142,201,160)"_s;
}

QString HtmlOfBar(double length, BarLook look)
{
    const auto pixels
        = static_cast<int>(std::lround(std::clamp(length, 0.0, 1.0) * full_bar_pixels));
    if (pixels == 0)
        return {};
    return u"<table cellspacing=\"0\" cellpadding=\"0\"><tr><td width=\"%1\" "
           "style=\"background-color:%2\">&nbsp;</td></tr></table>"_s.arg(pixels)
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

QString HtmlOfRow(const ReportTable& table, const ReportRow& row, HtmlUse use)
{
    QString html = u"<tr>"_s;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const ReportCell cell = i < row.cells.size() ? row.cells[i] : ReportCell {};
        QStringList style { u"white-space:pre-wrap"_s };
        if (row.tint != RowTint::None)
            style += u"background-color:"_s + Colour(row.tint);
        if (row.total)
            style += u"font-weight:bold; border-top:1px solid gray"_s;
        html += u"<td"_s + Alignment(table.columns[i]) + u" style=\""_s + style.join(u"; "_s)
            + u"\">"_s;
        html += (cell.bar ? HtmlOfBar(*cell.bar, cell.bar_look) : QString())
            + HtmlOf(cell.text, use);
        html += u"</td>"_s;
    }
    return html + u"</tr>\n"_s;
}

void HtmlMaker::operator()(const ReportTable& table)
{
    html += table.look == TableLook::Sheet
        ? u"<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"7\" style=\"border-collapse:collapse\">\n"_s
        : u"<table cellspacing=\"0\" cellpadding=\"4\">\n"_s;
    html += u"<thead><tr>"_s; // stands again at the top of every printed page
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        html += u"<th"_s + Alignment(table.columns[i]) + u'>'
            + HtmlOfCaption(table, i, choices, use) + u"</th>"_s;
    html += u"</tr></thead>\n"_s;
    for (const ReportRow& row : table.rows)
        html += HtmlOfRow(table, row, use);
    html += u"</table>\n"_s;
}

void HtmlMaker::operator()(const ReportPageBreak&)
{
    html += use == HtmlUse::Paper ? u"<p style=\"page-break-after:always\"></p>\n"_s : u"<hr>\n"_s;
}

void HtmlMaker::operator()(const ReportSignatures& signatures)
{
    html += u"<p>&nbsp;</p><p>&nbsp;</p><table width=\"100%\" cellspacing=\"24\"><tr>"_s;
    for (const QString& caption : signatures.captions)
        html += u"<td style=\"border-top:1px solid gray\">"_s + Escaped(caption) + u"</td>"_s;
    html += u"</tr></table>\n"_s;
}

} // namespace

QString HtmlOfReport(const Report& report, const ReportChoices& choices, HtmlUse use)
{
    HtmlMaker maker { choices, use };
    for (const ReportItem& item : report.items)
        std::visit(maker, item);
    return u"<html><head><title>"_s + Escaped(report.title) + u"</title></head><body>\n"_s
        + maker.html + u"</body></html>\n"_s;
}
