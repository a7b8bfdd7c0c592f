// Reports as data: what becomes text, HTML and order of them.
#include "report/report.h"
#include "report/report_choices.h"
#include "report/report_html.h"
#include "report/report_text.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

Report Sample()
{
    Report report { u"Probe – Kleingarten Parzello"_s };
    AddHeading(report, 1, u"Probe <1>"_s);
    AddLinkLine(report, u"Meier & Söhne"_s, { LinkKind::Member, u"Text3(6)"_s, 3 }, Indent::One);
    ReportTable table;
    table.name = u"Namen"_s;
    table.columns
        = { { u"Name"_s, ColumnKind::Text, true }, { u"Betrag"_s, ColumnKind::Number, true } };
    table.rows.push_back({ { TextCell(u"Zöllner"_s), NumberCell(u"9,00"_s, 9.0) }, RowTint::Bad });
    table.rows.push_back({ { TextCell(u"Äcker"_s), NumberCell(u"10,00"_s, 10.0) } });
    table.rows.push_back({ { TextCell(u"Summe"_s), NumberCell(u"19,00"_s, 19.0) }, {}, true });
    report.items.emplace_back(table);
    report.items.emplace_back(ReportPageBreak {});
    report.items.emplace_back(ReportSignatures { { u"Ort, Datum"_s, u"Kassenwart"_s } });
    return report;
}

QString FirstRow(const Report& report)
{
    return TextOfReport(report).section(u'\n', 3, 3).section(u'\t', 0, 0);
}

} // namespace

class TestReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_report_is_told_line_by_line()
    {
        QCOMPARE(TextOfReport(Sample()),
            u"Probe <1>\nMeier & Söhne\nName\tBetrag\nZöllner\t9,00\nÄcker\t10,00\nSumme\t19,00\n"
            "=\n____ Ort, Datum\n____ Kassenwart\n"_s);
    }

    void a_bar_is_told_as_so_many_of_ten()
    {
        ReportTable table;
        table.columns = { { u"Jahr"_s } };
        ReportCell cell = TextCell(u"2026"_s);
        cell.bar = 0.5;
        table.rows.push_back({ { cell } });
        Report report;
        report.items.emplace_back(table);
        QCOMPARE(TextOfReport(report), u"Jahr\n##### 2026\n"_s);
    }

    void every_text_is_escaped()
    {
        const QString html = HtmlOfReport(Sample(), {}, HtmlUse::Screen);
        QVERIFY(html.contains(u"Probe &lt;1&gt;"_s));
        QVERIFY(html.contains(u">Meier &amp; Söhne</a>"_s));
        QVERIFY(!html.contains(u"<1>"_s));
    }

    void nul_and_line_breaks_are_blanks()
    {
        Report report;
        AddSentence(report, u"a"_s + QChar(0) + u"b\nc"_s + QChar(0xfffc));
        QVERIFY(HtmlOfReport(report, {}, HtmlUse::Screen).contains(u">a b c </p>"_s));
    }

    void a_table_without_captions_has_no_row_for_them()
    {
        Report report;
        ReportTable table;
        table.columns = { {}, {} };
        table.columns[0].share = 70;
        ReportCell indented = TextCell(u"Porto"_s);
        indented.indent = Indent::One;
        table.rows.push_back({ { indented, TextCell(u"7,80 €"_s) } });
        report.items.emplace_back(table);
        const QString html = HtmlOfReport(report, {}, HtmlUse::Screen);
        QVERIFY(!html.contains(u"<th"_s));
        QVERIFY(html.contains(u"<table width=\"100%\""_s));
        QVERIFY(html.contains(u"width=\"70%\""_s));
        QVERIFY(html.contains(u"padding-left:24px"_s));
        QCOMPARE(TextOfReport(report), u"Porto\t7,80 €\n"_s);
    }

    void paper_has_no_links()
    {
        QVERIFY(HtmlOfReport(Sample(), {}, HtmlUse::Screen).contains(u"<a href"_s));
        QVERIFY(!HtmlOfReport(Sample(), {}, HtmlUse::Paper).contains(u"<a href"_s));
    }

    void the_address_of_a_link_leads_back_to_its_target_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 1; kind < 8; ++kind)
            QTest::newRow(qPrintable(QString::number(kind))) << kind;
    }

    void the_address_of_a_link_leads_back_to_its_target()
    {
        QFETCH(int, kind);
        const LinkTarget target { static_cast<LinkKind>(kind), u"Text3(6)/ä: %"_s, 32766 };
        QCOMPARE(LinkTargetOf(LinkAddress(target)), target);
    }

    void a_strange_address_leads_nowhere()
    {
        QCOMPARE(LinkTargetOf(u"file:///etc/passwd"_s).kind, LinkKind::None);
        QCOMPARE(LinkTargetOf({}).kind, LinkKind::None);
    }

    void a_second_click_on_a_column_turns_its_order_around()
    {
        ReportChoices choices;
        const QString by_name = SortLink(u"Namen"_s, 0).control;
        QVERIFY(TakeChoice(choices, by_name));
        Report report = Sample();
        SortTables(report, choices);
        QCOMPARE(FirstRow(report), u"Äcker"_s);
        QVERIFY(TakeChoice(choices, by_name));
        SortTables(report, choices);
        QCOMPARE(FirstRow(report), u"Zöllner"_s);
        QVERIFY(HtmlOfReport(report, choices, HtmlUse::Screen).contains(u"Name ▼"_s));
    }

    void numbers_are_sorted_by_their_value_and_totals_stay_last()
    {
        ReportChoices choices;
        QVERIFY(TakeChoice(choices, SortLink(u"Namen"_s, 1).control));
        Report report = Sample();
        SortTables(report, choices);
        QCOMPARE(FirstRow(report), u"Zöllner"_s);
        QVERIFY(TakeChoice(choices, SortLink(u"Namen"_s, 1).control));
        SortTables(report, choices);
        QCOMPARE(FirstRow(report), u"Äcker"_s);
        QVERIFY(TextOfReport(report).contains(u"Zöllner\t9,00\nSumme"_s));
    }

    void rows_without_a_value_stand_behind_those_with_one()
    {
        ReportTable table { u"Tage"_s };
        table.columns = { { u"Tag"_s, ColumnKind::Text, true } };
        for (const char* text : { "b", "2", "a", "1", "1" })
            table.rows.push_back({ { TextCell(QString::fromLatin1(text)) } });
        table.rows[1].cells = { NumberCell(u"2"_s, 2.0) };
        table.rows[3].cells = { NumberCell(u"1, zuerst"_s, 1.0) };
        table.rows[4].cells = { NumberCell(u"1, danach"_s, 1.0) };
        table.rows.push_back({}); // no cell at all
        Report report;
        report.items.emplace_back(table);
        ReportChoices choices;
        TakeChoice(choices, SortLink(u"Tage"_s, 0).control);
        SortTables(report, choices);
        QCOMPARE(TextOfReport(report), u"Tag\n1, zuerst\n1, danach\n2\n\na\nb\n"_s);
        TakeChoice(choices, SortLink(u"Tage"_s, 0).control);
        SortTables(report, choices);
        QCOMPARE(TextOfReport(report), u"Tag\nb\na\n\n2\n1, zuerst\n1, danach\n"_s);
    }

    void a_click_on_another_column_begins_anew()
    {
        ReportChoices choices;
        TakeChoice(choices, SortLink(u"Namen"_s, 0).control);
        TakeChoice(choices, SortLink(u"Namen"_s, 1).control);
        QCOMPARE(choices.Sorting.value(u"Namen"_s), (SortChoice { 1, Qt::AscendingOrder }));
        Report other = Sample();
        std::get<ReportTable>(other.items[2]).name = u"Andere"_s;
        SortTables(other, choices);
        QCOMPARE(FirstRow(other), u"Zöllner"_s);
    }

    void lists_and_filters_are_choices_and_other_actions_are_not()
    {
        ReportChoices choices;
        QVERIFY(TakeChoice(choices, ShowAllLink(u"C05a"_s).control));
        QVERIFY(choices.ShownWhole.contains(u"C05a"_s));
        QVERIFY(TakeChoice(choices, FilterLink(u"offen"_s).control));
        QCOMPARE(choices.Filter, u"offen"_s);
        QVERIFY(!TakeChoice(choices, u"pay:3"_s));
    }
};

const TestFile<TestReport> test_file(__FILE__);
#include "test_report.moc"
