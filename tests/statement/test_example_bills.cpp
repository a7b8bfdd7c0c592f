// The bills of the example clubs, text by text: of those that bring expected tables and of those
// whose tables tests/golden/bills.py worked out.
#include "data/records.h"
#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestExampleBills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_text_stands_where_it_is_expected_data() { AddYears(); }
    void every_text_stands_where_it_is_expected();
    void the_totals_list_holds_each_drawn_member_data() { AddYears(); }
    void the_totals_list_holds_each_drawn_member();
    void nine_thousand_rows_and_more_were_compared();
    void a_first_year_gets_its_bills_without_a_year_before();
    void a_new_member_stops_the_drawing_and_is_named();

private:
    static void AddYears();
};

void TestExampleBills::AddYears()
{
    QTest::addColumn<qsizetype>("index");
    const QVector<ExampleYear> years = ExampleYears();
    for (qsizetype i = 0; i < years.size(); ++i)
        QTest::newRow(qPrintable(years[i].Club + u' ' + years[i].Year)) << i;
}

void TestExampleBills::every_text_stands_where_it_is_expected()
{
    QFETCH(qsizetype, index);
    const ExampleYear example = ExampleYears()[index];
    const StatementState statement = PagesOf(example);
    const QVector<QStringList> expected = ExpectedTextRows(example);
    QCOMPARE(PageCount(statement), qsizetype(example.Members));
    for (qsizetype page = 0; page < expected.size(); ++page)
        QCOMPARE(TextRows(statement, page), expected[page]);
}

void TestExampleBills::the_totals_list_holds_each_drawn_member()
{
    QFETCH(qsizetype, index);
    const ExampleYear example = ExampleYears()[index];
    QCOMPARE(PagesOf(example).StatementTotals, ExpectedTotals(example));
}

void TestExampleBills::nine_thousand_rows_and_more_were_compared()
{
    qsizetype texts = 0;
    qsizetype totals = 0;
    qsizetype pages = 0;
    for (const ExampleYear& example : ExampleYears()) {
        totals += ExpectedTotals(example).size();
        for (const QStringList& rows : ExpectedTextRows(example)) {
            texts += rows.size();
            pages += 1;
        }
    }
    QCOMPARE(pages, 190);
    QCOMPARE(totals, 189); // the new member has none
    QCOMPARE(texts, 14256);
}

void TestExampleBills::a_first_year_gets_its_bills_without_a_year_before()
{
    const ExampleYear example = ExampleYears()[0];
    QVERIFY(SourceOf(example).Members.PreviousYearMissing);
    const StatementState statement = PagesOf(example);
    QCOMPARE(statement.StatementTotals.size(), 6);
    QVERIFY(
        TextRows(statement, 5).contains(u"row_2_amount\t-0,00\tright\t538\t318\t8\t0\t0,0,0"_s));
}

void TestExampleBills::a_new_member_stops_the_drawing_and_is_named()
{
    const ExampleYear example = ExampleYears()[2];
    const StatementState statement = PagesOf(example);
    QCOMPARE(statement.StatementTotals.size(), 6);
    QVERIFY(ContentsOfPage(statement, 6).member.empty());
    QCOMPARE(TextRows(statement, 6).size(), TextRows(statement, 0).size() - 27);
}

const TestFile<TestExampleBills> test_file(__FILE__);
#include "test_example_bills.moc"
