// What a report is as HTML, element by element.
#include "report/report_html.h"
#include "tests/support/test_file.h"

#include <QRegularExpression>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// What stands between the tags of the body.
QString Body(
    const ReportItem& item, HtmlUse use = HtmlUse::Screen, const ReportChoices& choices = {})
{
    Report report;
    report.items.push_back(item);
    const QString html = HtmlOfReport(report, choices, use);
    const QString begin = u"<html><head><title></title></head><body>\n"_s;
    const QString end = u"</body></html>"_s;
    if (!html.startsWith(begin) || !html.endsWith(end))
        return u"no such body: "_s + html;
    return html.sliced(begin.size()).chopped(end.size());
}

QString Paragraph(const QString& content, int left = 0)
{
    return u"<p style=\"white-space:pre-wrap; margin-top:2px; margin-bottom:2px; "
           "margin-left:%1px\">%2</p>"_s.arg(QString::number(left), content);
}

QString Words(const QString& text, TextLook look = TextLook::Plain, const LinkTarget& target = {})
{
    return Body(ReportSentence { { { text, target, look } } });
}

/// One column, without captions.
ReportTable OneCell(const ReportCell& cell, ColumnKind kind = ColumnKind::Text)
{
    ReportTable table;
    table.columns = { { {}, kind } };
    table.rows.push_back({ { cell } });
    return table;
}

QString Table(const QString& rows)
{
    return u"<table cellspacing=\"0\" cellpadding=\"4\">\n"_s + rows + u"</table>\n"_s;
}

QString Row(const QString& content, const QString& attributes = {}, const QString& style = {})
{
    return u"<tr><td align=\"left\"%1 style=\"white-space:pre-wrap%2\">%3</td></tr>\n"_s.arg(
        attributes, style, content);
}

/// Two sortable columns, the second one of numbers, and one that is not.
ReportTable Sorted(const QString& name)
{
    ReportTable table { name };
    table.columns = { { u"Name"_s, ColumnKind::Text, true },
        { u"Betrag"_s, ColumnKind::Number, true }, { u"Stand"_s } };
    return table;
}

ReportChoices SortedBy(const QString& table, int column, Qt::SortOrder order)
{
    ReportChoices choices;
    choices.Sorting.insert(table, { column, order });
    return choices;
}

/// The contents of the captions, links and all.
QStringList Captions(const ReportTable& table, const ReportChoices& choices = {})
{
    static const QRegularExpression caption(u"<th [^>]*>(.*?)</th>"_s);
    QStringList captions;
    auto found = caption.globalMatch(Body(table, HtmlUse::Screen, choices));
    while (found.hasNext())
        captions += found.next().captured(1);
    return captions;
}

} // namespace

class TestReportHtml : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_title_is_escaped_too()
    {
        QCOMPARE(HtmlOfReport({ u"Soll & <Haben>"_s }, {}, HtmlUse::Screen),
            u"<html><head><title>Soll &amp; &lt;Haben&gt;</title></head><body>\n"
            "</body></html>"_s);
    }

    void a_heading_has_its_level()
    {
        QCOMPARE(Body(ReportHeading { u"Konto"_s, 1 }), u"<h1>Konto</h1>\n"_s);
        QCOMPARE(Body(ReportHeading { u"a < b"_s, 3 }), u"<h3>a &lt; b</h3>\n"_s);
    }

    void a_sentence_stands_in_as_far_as_it_says()
    {
        for (const Indent indent : { Indent::None, Indent::One, Indent::Two })
            QCOMPARE(Body(ReportSentence { { { u"Porto"_s } }, indent }),
                Paragraph(u"Porto"_s, 24 * static_cast<int>(indent)));
    }

    void what_would_break_the_text_is_a_blank_data()
    {
        QTest::addColumn<char16_t>("sign");
        for (const int sign : { 0x00, 0x09, 0x0a, 0x0d, 0x7f, 0x9f, 0x2028, 0x2029, 0xfffc })
            QTest::addRow("%04x", static_cast<unsigned>(sign)) << static_cast<char16_t>(sign);
    }
    void what_would_break_the_text_is_a_blank()
    {
        QFETCH(char16_t, sign);
        QCOMPARE(Words(u"a"_s + QChar(sign) + u" b"_s), Paragraph(u"a  b"_s));
    }

    void bold_and_small_pieces_stand_side_by_side()
    {
        const ReportSentence sentence { { { u"Summe: "_s }, { u"5 < 6"_s, {}, TextLook::Bold },
            { u" (genau)"_s, {}, TextLook::Small } } };
        QCOMPARE(Body(sentence),
            Paragraph(u"Summe: <b>5 &lt; 6</b>"
                      "<span style=\"font-size:small\"> (genau)</span>"_s));
    }

    void a_link_leads_to_its_address()
    {
        QCOMPARE(Words(u"Meier"_s, TextLook::Bold, { LinkKind::Member, u"Text3(6)"_s, 3 }),
            Paragraph(u"<a href=\"Member/3/Text3%286%29\"><b>Meier</b></a>"_s));
        QCOMPARE(Words(u"alle"_s, TextLook::Plain, { LinkKind::Action, u"filter:\"ä\""_s, -1 }),
            Paragraph(u"<a href=\"Action/-1/filter%3A%22%C3%A4%22\">alle</a>"_s));
    }

    void on_paper_a_link_is_its_text()
    {
        const ReportSentence link { { { u"Meier"_s, { LinkKind::Member, {}, 3 } } } };
        QCOMPARE(Body(link, HtmlUse::Paper), Paragraph(u"Meier"_s));
    }

    void a_tint_is_the_colour_behind_its_row_data()
    {
        QTest::addColumn<int>("tint");
        QTest::addColumn<QString>("attribute");
        QTest::addRow("none") << static_cast<int>(RowTint::None) << QString();
        QTest::addRow("good") << static_cast<int>(RowTint::Good) << u" bgcolor=\"#4650aa50\""_s;
        QTest::addRow("attention")
            << static_cast<int>(RowTint::Attention) << u" bgcolor=\"#50f2c12e\""_s;
        QTest::addRow("bad") << static_cast<int>(RowTint::Bad) << u" bgcolor=\"#50e04f4f\""_s;
        QTest::addRow("calm") << static_cast<int>(RowTint::Calm) << u" bgcolor=\"#32808080\""_s;
    }
    void a_tint_is_the_colour_behind_its_row()
    {
        QFETCH(int, tint);
        QFETCH(QString, attribute);
        ReportTable table = OneCell(TextCell(u"7"_s));
        table.rows[0].tint = static_cast<RowTint>(tint);
        QCOMPARE(Body(table), Table(Row(u"<span>7</span>"_s, attribute)));
    }

    void a_bar_stands_above_the_text_of_its_cell_data()
    {
        QTest::addColumn<double>("length");
        QTest::addColumn<int>("look");
        QTest::addColumn<QString>("bar");
        const QString full = u"#a03d8ec9"_s;
        QTest::addRow("whole") << 1.0 << static_cast<int>(BarLook::Full) << u"80 "_s + full;
        QTest::addRow("too long") << 7.0 << static_cast<int>(BarLook::Full) << u"80 "_s + full;
        QTest::addRow("half") << 0.5 << static_cast<int>(BarLook::Pale) << u"40 #463d8ec9"_s;
        QTest::addRow("rounded") << 0.17 << static_cast<int>(BarLook::Warning) << u"14 #a0e04f4f"_s;
        QTest::addRow("too short") << 0.006 << static_cast<int>(BarLook::Full) << QString();
        QTest::addRow("below zero") << -1.0 << static_cast<int>(BarLook::Full) << QString();
    }
    void a_bar_stands_above_the_text_of_its_cell()
    {
        QFETCH(double, length);
        QFETCH(int, look);
        QFETCH(QString, bar);
        ReportCell cell = TextCell(u"7"_s);
        cell.bar = length;
        cell.bar_look = static_cast<BarLook>(look);
        const QString html = bar.isEmpty()
            ? QString()
            : u"<table cellspacing=\"0\" cellpadding=\"0\"><tr><td width=\"%1\" "
              "bgcolor=\"%2\"><span>&nbsp;</span></td></tr></table>"_s.arg(
                  bar.section(u' ', 0, 0), bar.section(u' ', 1));
        QCOMPARE(Body(OneCell(cell)), Table(Row(html + u"<span>7</span>"_s)));
    }

    void a_total_stands_bold_below_a_line()
    {
        ReportTable table = OneCell(TextCell(u"Summe"_s));
        table.rows[0].cells[0].indent = Indent::Two;
        table.rows[0].total = true;
        QCOMPARE(Body(table),
            Table(Row(u"<span>Summe</span>"_s, {},
                u"; padding-left:48px; font-weight:bold; border-top:1px solid gray"_s)));
    }

    void a_number_is_right_aligned_and_never_torn_apart()
    {
        QCOMPARE(Body(OneCell(TextCell(u"-1,50 €"_s), ColumnKind::Number)),
            Table(u"<tr><td align=\"right\" style=\"white-space:nowrap\">"
                  "<span>-1,50 €</span></td></tr>\n"_s));
    }

    void a_row_with_too_few_cells_is_filled_up()
    {
        ReportTable table;
        table.columns = { {}, {} };
        table.rows.push_back({ { TextCell(u"a"_s) } });
        const QString cell = u"<td align=\"left\" style=\"white-space:pre-wrap\"><span>%1"
                             "</span></td>"_s;
        QCOMPARE(
            Body(table), Table(u"<tr>"_s + cell.arg(u"a"_s) + cell.arg(QString()) + u"</tr>\n"_s));
    }

    void captions_are_links_that_sort()
    {
        QCOMPARE(Body(Sorted(u"open"_s)),
            Table(u"<thead><tr>"
                  "<th align=\"left\"><a href=\"Action/-1/sort%3A0%3Aopen\">Name</a></th>"
                  "<th align=\"right\"><a href=\"Action/-1/sort%3A1%3Aopen\">Betrag</a></th>"
                  "<th align=\"left\">Stand</th></tr></thead>\n"_s));
        QCOMPARE(Captions(Sorted({})), QStringList({ u"Name"_s, u"Betrag"_s, u"Stand"_s }));
    }

    void the_chosen_column_carries_the_mark_of_its_order()
    {
        const ReportTable table = Sorted(u"open"_s);
        const QStringList rising = Captions(table, SortedBy(u"open"_s, 1, Qt::AscendingOrder));
        QVERIFY(rising[0].contains(u">Name<"_s));
        QVERIFY(rising[1].contains(u">Betrag ▲<"_s));
        QVERIFY(Captions(table, SortedBy(u"open"_s, 1, Qt::DescendingOrder))[1].contains(
            u">Betrag ▼<"_s));
        QCOMPARE(Captions(table, SortedBy(u"open"_s, 2, Qt::AscendingOrder))[2], u"Stand"_s);
        QCOMPARE(Captions(table, SortedBy(u"other"_s, 1, Qt::AscendingOrder)), Captions(table));
    }

    void a_share_of_the_width_is_said_in_captions_and_cells()
    {
        ReportTable table = OneCell(TextCell(u"x"_s));
        table.columns[0].caption = u"Vorgang"_s;
        table.columns[0].share = 70;
        QCOMPARE(Body(table),
            u"<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">\n"
            "<thead><tr><th align=\"left\" width=\"70%\">Vorgang</th></tr></thead>\n"_s
                + Row(u"<span>x</span>"_s, u" width=\"70%\""_s) + u"</table>\n"_s);
    }

    void a_sheet_has_lines_around_its_cells()
    {
        ReportTable table = OneCell({});
        table.look = TableLook::Sheet;
        QCOMPARE(Body(table),
            u"<table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"7\" "
            "style=\"border-collapse:collapse\">\n"_s
                + Row(u"<span></span>"_s) + u"</table>\n"_s);
    }

    void a_page_ends_on_paper_and_is_a_line_on_screen()
    {
        QCOMPARE(Body(ReportPageBreak {}, HtmlUse::Screen), u"<hr>\n"_s);
        QCOMPARE(Body(ReportPageBreak {}, HtmlUse::Paper),
            u"<p style=\"page-break-after:always\">&nbsp;</p>\n"_s);
    }

    void a_signature_has_room_for_a_hand()
    {
        const QString field = u"<td width=\"50%\" style=\"border-top:1px solid gray\">%1</td>"_s;
        const QString begin = u"<table width=\"100%\" cellspacing=\"24\"><tr>"_s;
        const QString end = u"</tr></table>\n"_s;
        QCOMPARE(Body(ReportSignatures { { u"Ort & Datum"_s, QString() } }),
            u"<p>&nbsp;</p><p>&nbsp;</p>"_s + begin + field.arg(u"Ort &amp; Datum"_s)
                + field.arg(QString()) + end);
        QCOMPARE(Body(ReportSignatures { { QString(), QString() } }),
            begin + field.arg(QString()).repeated(2) + end); // lines to write on, as the text's
        QCOMPARE(Body(ReportSignatures {}), begin + end);
    }
};

const TestFile<TestReportHtml> test_file(__FILE__);
#include "test_report_html.moc"
