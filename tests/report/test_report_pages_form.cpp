// A report on paper is cut between rows and paragraphs; what is copied from a table keeps its
// cells.
#include "report/report_browser_form.h"
#include "report/report_html.h"
#include "report/report_pages_form.h"
#include "tests/support/test_file.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr double width = 500.0;
constexpr double height = 300.0;

void Lay(QTextDocument& document, const Report& report)
{
    document.setDocumentMargin(0.0);
    document.setHtml(HtmlOfReport(report, {}, HtmlUse::Paper));
    document.setTextWidth(width);
}

/// A table with a number and a text in each row; every fifth text needs several lines.
ReportTable LongTable(int rows)
{
    ReportTable table;
    table.columns = { { u"Nr."_s, ColumnKind::Number }, { u"Text"_s } };
    for (int i = 0; i < rows; ++i)
        table.rows.push_back({ { TextCell(QString::number(i)),
            TextCell(i % 5 == 0 ? u"ein langer Text "_s.repeated(20) : u"kurz"_s) } });
    return table;
}

/// The paragraphs that a page holds whole; a paragraph that it cuts fails the test.
QStringList ParagraphsOf(const QTextDocument& document, const PrintedPage& page)
{
    QStringList texts;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QRectF rect = document.documentLayout()->blockBoundingRect(block);
        const bool begins
            = rect.top() >= page.body.top - 1.0 && rect.top() < page.body.bottom - 1.0;
        if (begins && rect.bottom() > page.body.bottom + 1.0)
            texts += u"CUT: "_s + block.text();
        else if (begins && !block.text().trimmed().isEmpty())
            texts += block.text().trimmed();
    }
    return texts;
}

QTextCursor All(QTextDocument& document)
{
    QTextCursor all(&document);
    all.select(QTextCursor::Document);
    return all;
}

} // namespace

class TestReportPagesForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void no_row_is_split_between_pages()
    {
        Report report;
        AddHeading(report, 1, u"Tabelle"_s);
        report.items.emplace_back(LongTable(60));
        QTextDocument document;
        Lay(document, report);
        const std::vector<PrintedPage> pages = CutIntoPages(document, height);
        QVERIFY(pages.size() > 5);
        QStringList all;
        for (const PrintedPage& page : pages) {
            QVERIFY(page.body.bottom - page.body.top <= height);
            all += ParagraphsOf(document, page);
        }
        QVERIFY2(!all.join(u'\n').contains(u"CUT"_s), qPrintable(all.join(u'\n')));
        QCOMPARE(all.size(), 1 + 2 + 2 * 60); // each exactly once
    }

    void the_captions_stand_again_on_every_page_of_a_table()
    {
        Report report;
        report.items.emplace_back(LongTable(60));
        QTextDocument document;
        Lay(document, report);
        const std::vector<PrintedPage> pages = CutIntoPages(document, height);
        QVERIFY(!pages.front().head.has_value());
        for (std::size_t i = 1; i < pages.size(); ++i) {
            QVERIFY(pages[i].head.has_value());
            QCOMPARE(pages[i].head->top, pages[1].head->top);
            QVERIFY(pages[i].head->bottom < pages[1].body.top);
            const double head = pages[i].head->bottom - pages[i].head->top;
            QVERIFY(head + pages[i].body.bottom - pages[i].body.top <= height);
        }
    }

    void a_heading_never_stands_last_on_a_page()
    {
        for (int lines = 1; lines < 40; ++lines) {
            Report report;
            for (int i = 0; i < lines; ++i)
                AddSentence(report, u"Zeile"_s);
            AddHeading(report, 2, u"Überschrift"_s);
            report.items.emplace_back(LongTable(2));
            QTextDocument document;
            Lay(document, report);
            for (const PrintedPage& page : CutIntoPages(document, height)) {
                const QStringList texts = ParagraphsOf(document, page);
                QVERIFY2(!texts.isEmpty() && texts.last() != u"Überschrift"_s
                        && texts.last() != u"Text"_s,
                    qPrintable(texts.join(u'\n')));
            }
        }
    }

    void a_page_break_begins_a_page()
    {
        Report report;
        AddSentence(report, u"vorn"_s);
        report.items.emplace_back(ReportPageBreak {});
        AddHeading(report, 1, u"hinten"_s);
        AddSentence(report, u"zuletzt"_s);
        QTextDocument document;
        Lay(document, report);
        const std::vector<PrintedPage> pages = CutIntoPages(document, height);
        QCOMPARE(pages.size(), std::size_t(2));
        QCOMPARE(ParagraphsOf(document, pages[0]), QStringList { u"vorn"_s });
        QCOMPARE(ParagraphsOf(document, pages[1]), (QStringList { u"hinten"_s, u"zuletzt"_s }));
    }

    void a_row_higher_than_a_page_goes_on_to_the_next()
    {
        Report report;
        AddSentence(report, u"sehr lang "_s.repeated(1000));
        QTextDocument document;
        Lay(document, report);
        const std::vector<PrintedPage> pages = CutIntoPages(document, height);
        QVERIFY(pages.size() > 3);
        for (std::size_t i = 1; i < pages.size(); ++i)
            QCOMPARE(pages[i].body.top, pages[i - 1].body.bottom);
    }

    void an_empty_report_has_one_page()
    {
        QTextDocument document;
        Lay(document, {});
        QCOMPARE(CutIntoPages(document, height).size(), std::size_t(1));
    }

    void copied_tables_are_cells()
    {
        Report report;
        AddHeading(report, 1, u"Liste"_s);
        ReportTable table;
        table.columns = { { u"Name"_s }, { {} }, { u"Betrag"_s, ColumnKind::Number } };
        ReportCell bar;
        bar.bar = 0.5;
        table.rows.push_back({ { TextCell(u"Lang,Otto"_s), bar, TextCell(u"1.193,53 €"_s) } });
        table.rows.push_back({ { TextCell(u"Meier,Anna"_s), {}, TextCell(u"-0,01 €"_s) } });
        report.items.emplace_back(table);
        AddSentence(report, u"Ende"_s);
        QTextDocument document;
        document.setHtml(HtmlOfReport(report, {}, HtmlUse::Screen));
        QCOMPARE(TextOfSelection(All(document)).trimmed(),
            u"Liste\nName\t\tBetrag\nLang,Otto\t \t1.193,53 €\nMeier,Anna\t\t-0,01 €\n\nEnde"_s);
    }

    void the_clipboard_gets_html_and_text()
    {
        struct Opened : ReportBrowser {
            using ReportBrowser::createMimeDataFromSelection;
            using ReportBrowser::ReportBrowser;
        };
        Opened browser(nullptr);
        Report report;
        report.items.emplace_back(LongTable(2));
        browser.setHtml(HtmlOfReport(report, {}, HtmlUse::Screen));
        browser.selectAll();
        const std::unique_ptr<QMimeData> copied(browser.createMimeDataFromSelection());
        QVERIFY(copied->text().contains(u"Nr.\tText\n0\tein langer Text"_s));
        QVERIFY(copied->text().contains(u"\n1\tkurz"_s));
        QVERIFY(copied->html().contains(u"<table"_s) && copied->html().contains(u"<td"_s));
    }

    void a_number_is_not_torn_apart()
    {
        Report report;
        ReportTable table;
        table.columns = { { u"Betrag"_s, ColumnKind::Number }, { u"Text"_s } };
        table.rows.push_back({ { TextCell(u"1.193,53 €"_s), TextCell(u"wort "_s.repeated(50)) } });
        report.items.emplace_back(table);
        QTextDocument document;
        document.setHtml(HtmlOfReport(report, {}, HtmlUse::Screen));
        document.setTextWidth(120);
        QVERIFY(!document.size().isEmpty()); // lays the lines out
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            if (block.text().contains(u"1.193,53"_s))
                QCOMPARE(block.layout()->lineCount(), 1);
        }
    }

    void links_can_be_read_on_a_dark_desktop()
    {
        const QPalette before = QApplication::palette();
        QPalette dark = before;
        dark.setColor(QPalette::Base, Qt::black);
        QApplication::setPalette(dark);
        ReportBrowser browser(nullptr);
        browser.setHtml(u"<a href=\"x\">Name</a>"_s);
        const QColor link
            = browser.document()->begin().begin().fragment().charFormat().foreground().color();
        QApplication::setPalette(before);
        QVERIFY2(link.lightness() > 128, qPrintable(link.name()));
    }

    void a_part_of_a_text_is_copied_as_that_part()
    {
        QTextDocument document(u"Offene Posten"_s);
        QTextCursor part(&document);
        part.setPosition(3);
        part.setPosition(9, QTextCursor::KeepAnchor);
        QCOMPARE(TextOfSelection(part), u"ene Po"_s);
    }
};

const TestFile<TestReportPagesForm> test_file(__FILE__);
#include "test_report_pages_form.moc"
