#include "statement/annual_statement.h"

#include "statement/bill_amounts.h"
#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString whole = u"Meier2;Anna;Gartenweg 3;01234 Musterdorf;030;4;300;1;1,00;2,00;3,00;4,50;"_s
    + u"1200;1450;30;42"_s;

/// What the drawing threw, as its box would say it; empty when it came to its end.
QString ErrorOfDrawing(StatementState& statement, const BillSource& source)
{
    try {
        DrawAllPages(statement, source);
    } catch (const RuntimeError& error) {
        return ErrorSentence(error);
    }
    return {};
}

} // namespace

class TestAnnualStatement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_row_is_there_as_numbers();
    void a_cell_that_stays_empty_is_absent();
    void an_unfinished_statement_holds_what_came_before_it_stopped_data();
    void an_unfinished_statement_holds_what_came_before_it_stopped();
    void members_behind_the_stop_can_be_computed_all_the_same();
    void a_page_that_is_not_there_has_a_bill_that_stopped();
    void the_bills_of_the_drawn_pages_are_those_of_the_totals_list();
    void pages_stay_as_they_were_drawn_when_the_lists_change();
    void pages_behind_the_stop_are_unfinished();
    void the_title_is_that_of_the_drawn_pages();
    void what_is_asked_for_beside_the_bill_comes_last_on_its_page();
    void a_drawing_after_another_is_as_if_it_were_the_first_data();
    void a_drawing_after_another_is_as_if_it_were_the_first();
};

void TestAnnualStatement::every_row_is_there_as_numbers()
{
    const AnnualStatement bill = ComputeStatement(OneMember(whole, whole), 0);
    QVERIFY(!bill.stopped);
    QCOMPARE(
        bill.address, (QStringList { u"Anna Meier"_s, u"Gartenweg 3"_s, u"01234 Musterdorf"_s }));
    QCOMPARE(bill.rows[ElectricityRow].quantity.value(), u"250"_s);
    QCOMPARE(bill.rows[ElectricityRow].amount.value(), 62.5);
    QCOMPARE(bill.rows[ElectricityPaidRow].amount.value(), 50.0);
    QCOMPARE(bill.rows[ElectricityAheadRow].amount.value(), 0.0);
    QCOMPARE(bill.rows[FlatEnergyChargeRow].amount.value(), 10.0);
    QCOMPARE(bill.rows[ElectricitySumRow].subtotal.value(), 22.5);
    QCOMPARE(bill.rows[WaterRow].quantity.value(), u"12"_s);
    QCOMPARE(bill.rows[WaterSumRow].subtotal.value(), 6.0);
    QCOMPARE(bill.rows[MembershipFeeRow].subtotal.value(), 36.0);
    QCOMPARE(bill.rows[LeaseRow].quantity.value(), u"300"_s);
    QCOMPARE(bill.rows[LeaseRow].subtotal.value(), 24.0);
    QCOMPARE(bill.rows[BuildingRow].amount.value(), 4.5);
    QCOMPARE(bill.rows[InsuranceSumRow].subtotal.value(), 10.5);
    QCOMPARE(bill.total.value(), 114.0F);
    QCOMPARE(AmountText(ElectricityPaidRow, 50.0), u"-50,00"_s);
    QCOMPARE(GrandTotalText(114.0F), u"114,00  €"_s);
}

void TestAnnualStatement::a_cell_that_stays_empty_is_absent()
{
    const QString no_readings = u"Meier;Anna;;;;4;;1;;;;;;;;"_s;
    const AnnualStatement bill = ComputeStatement(OneMember(no_readings), 0);
    QVERIFY(!bill.stopped);
    QCOMPARE(bill.rows[ElectricityRow].quantity.value(), u"0"_s);
    QVERIFY(!bill.rows[ElectricityRow].amount);
    QVERIFY(!bill.rows[ElectricityRow].subtotal);
    QCOMPARE(bill.rows[LeaseRow].quantity.value(), QString()); // shown as typed
    QVERIFY(!bill.rows[LeaseRow].amount);
    QVERIFY(!bill.rows[MembershipFeeRow].quantity);
}

void TestAnnualStatement::an_unfinished_statement_holds_what_came_before_it_stopped_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<qsizetype>("address");
    QTest::addColumn<qsizetype>("items");
    QTest::addColumn<ErrorKind>("kind");
    QTest::newRow("two fields") << u"Meier;Anna"_s << qsizetype(1) << qsizetype(1)
                                << ErrorKind::SubscriptOutOfRange;
    QTest::newRow("a reading with letters")
        << u"Meier;Anna;;;;4;300;1;;;;;1200;x;30;42"_s << qsizetype(3) << qsizetype(3)
        << ErrorKind::TypeMismatch;
    QTest::newRow("a size with letters")
        << u"Meier;Anna;;;;4;groß;1;;;;;1200;1450;30;42"_s << qsizetype(3) << qsizetype(16)
        << ErrorKind::TypeMismatch;
    QTest::newRow("a huge premium")
        << u"Meier;Anna;;;;4;300;1;;;"_s + QString(40, u'9') + u";;1200;1450;30;42"_s
        << qsizetype(3) << qsizetype(23) << ErrorKind::Overflow;
}

void TestAnnualStatement::an_unfinished_statement_holds_what_came_before_it_stopped()
{
    QFETCH(QString, record);
    QFETCH(qsizetype, address);
    QFETCH(qsizetype, items);
    QFETCH(ErrorKind, kind);
    const AnnualStatement bill = ComputeStatement(OneMember(record, whole), 0);
    QVERIFY(bill.stopped.has_value());
    QCOMPARE(bill.stopped->kind, kind);
    QCOMPARE(bill.stopped->where.member, u"Meier,Anna"_s);
    QVERIFY(!bill.total);
    QCOMPARE(bill.address.size(), address);
    PageItems page;
    DrawStatement(page, bill);
    QCOMPARE(qsizetype(page.size()), items);
}

void TestAnnualStatement::members_behind_the_stop_can_be_computed_all_the_same()
{
    BillSource source = OneMember(u"zu;kurz"_s);
    source.Members.RecordList += whole;
    StatementState statement;
    QVERIFY_THROWS_EXCEPTION(RuntimeError, DrawAllPages(statement, source));
    QVERIFY(ContentsOfPage(statement, 1).member.empty()); // the drawing did not come so far
    QCOMPARE(StatementOfPage(statement, 1).total.value(), ComputeStatement(source, 1).total);
    QVERIFY(statement.StatementTotals.isEmpty());
}

void TestAnnualStatement::a_page_that_is_not_there_has_a_bill_that_stopped()
{
    BillSource source = OneMember(whole);
    StatementState statement;
    DrawAllPages(statement, source);
    for (const qsizetype index : { -1, 1, 32'767 }) {
        const PageBill bill = BillOfPage(statement, index);
        QCOMPARE(bill.Statement.stopped.value().kind, ErrorKind::SubscriptOutOfRange);
        QVERIFY(!bill.Statement.total);
        QVERIFY(bill.Items.empty());
    }
}

void TestAnnualStatement::the_bills_of_the_drawn_pages_are_those_of_the_totals_list()
{
    for (const ExampleYear& example : ExampleYears()) {
        const StatementState statement = PagesOf(example);
        QStringList totals;
        for (qsizetype page = 0; page < PageCount(statement); ++page) {
            const AnnualStatement bill = StatementOfPage(statement, page);
            if (bill.total)
                totals += TotalText(*bill.total);
        }
        QCOMPARE(totals, statement.StatementTotals);
    }
}

void TestAnnualStatement::pages_stay_as_they_were_drawn_when_the_lists_change()
{
    BillSource source = OneMember(whole, whole);
    StatementState statement;
    DrawAllPages(statement, source);
    const QStringList before = TextRows(statement, 0);
    source.Members.RecordList[0].replace(u"1450"_s, u"9999"_s);
    source.Prices.Lease = u"77"_s;
    QCOMPARE(TextRows(statement, 0), before);
    DrawAllPages(statement, source);
    QVERIFY(TextRows(statement, 0) != before);
}

using Change = std::function<void(BillSource&)>;

void TestAnnualStatement::pages_behind_the_stop_are_unfinished()
{
    BillSource source = OneMember(whole, whole);
    source.Members.RecordList += { u"Kurz;Karl"_s, whole };
    source.Members.PreviousYearList += { whole, whole };
    StatementState statement;
    QVERIFY(!IsUnfinished(statement, 0)); // there is no such page
    QVERIFY(!ErrorOfDrawing(statement, source).isEmpty());
    QVERIFY(!IsUnfinished(statement, 0));
    QVERIFY(IsUnfinished(statement, 1));
    QVERIFY(IsUnfinished(statement, 2));
    QVERIFY(!IsUnfinished(statement, 3));
    QVERIFY(ContentsOfPage(statement, 2).fixed != nullptr);
    QVERIFY(ContentsOfPage(statement, 2).member.empty());
    for (const qsizetype nowhere : { qsizetype(-1), qsizetype(3) }) {
        QVERIFY(ContentsOfPage(statement, nowhere).fixed == nullptr);
        QVERIFY(ContentsOfPage(statement, nowhere).member.empty());
    }
}

void TestAnnualStatement::the_title_is_that_of_the_drawn_pages()
{
    StatementState statement;
    QCOMPARE(TitleOfPages(statement), QString());
    BillSource source = OneMember(whole, whole);
    source.YearText = u"2016"_s;
    DrawAllPages(statement, source);
    const QString title = TitleOfPages(statement);
    QVERIFY2(title.contains(u"2016"_s), qPrintable(title));
    source.YearText = u"2017"_s;
    DrawAllPages(statement, source);
    QCOMPARE(TitleOfPages(statement), QString(title).replace(u"2016"_s, u"2017"_s));
}

void TestAnnualStatement::what_is_asked_for_beside_the_bill_comes_last_on_its_page()
{
    StatementState statement;
    DrawAllPages(statement, OneMember(whole, whole));
    const PageItems bill = ContentsOfPage(statement, 0).member;
    statement.AddedItems = [](const PageBill& page) {
        PageText text;
        text.text = GrandTotalText(page.Statement.total.value_or(0))
            + u" auf Seite %1"_s.arg(page.Index + 1);
        return PageItems { text };
    };
    const PageItems items = ContentsOfPage(statement, 0).member;
    QCOMPARE(items.size(), bill.size() + 1);
    QCOMPARE(std::get<PageText>(items.back()).text, u"114,00  € auf Seite 1"_s);
}

void TestAnnualStatement::a_drawing_after_another_is_as_if_it_were_the_first_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("nothing", [](BillSource&) {});
    row("one record", [](BillSource& s) { s.Members.RecordList[1].replace(u"1450"_s, u"9"_s); });
    row("one record is bad", [](BillSource& s) { s.Members.RecordList[1] = u"zu;kurz"_s; });
    row("the last record is bad", [](BillSource& s) { s.Members.RecordList[2] = u"x"_s; });
    row("a member goes", [](BillSource& s) { s.Members.RecordList.removeAt(0); });
    row("a member comes", [](BillSource& s) { s.Members.RecordList += whole; });
    row("nobody is left", [](BillSource& s) { s.Members.RecordList.clear(); });
    row("a line of last year", [](BillSource& s) { s.Members.PreviousYearList[0] = u";;;"_s; });
    row("last year is shorter", [](BillSource& s) { s.Members.PreviousYearList.removeLast(); });
    row("last year is gone", [](BillSource& s) { s.Members.PreviousYearMissing = true; });
    row("a price", [](BillSource& s) { s.Prices.Lease = u"1,23"_s; });
    row("a price that is none", [](BillSource& s) { s.Prices.Lease = u"x"_s; });
    row("a tick", [](BillSource& s) { s.Prices.WaterPrepayment = 1; });
    row("the deadline", [](BillSource& s) { s.Prices.PaymentDeadline = u"01.02.2016"_s; });
    row("the bank", [](BillSource& s) { s.Bank.Iban = u"DE00"_s; });
    row("a contact", [](BillSource& s) { s.Bank.FirstContact = u"Meier2,Anna"_s; });
    row("the club", [](BillSource& s) { s.ClubName = u"Anders"_s; });
    row("the year", [](BillSource& s) { s.YearText = u"2015"_s; });
    row("the loaded year", [](BillSource& s) { s.LoadedYear = u"2015"_s; });
    row("the day", [](BillSource& s) { s.Today = s.Today.addDays(1); });
}

void TestAnnualStatement::a_drawing_after_another_is_as_if_it_were_the_first()
{
    QFETCH(Change, change);
    BillSource source = OneMember(whole, whole);
    source.Members.RecordList += { whole, whole };
    source.Members.PreviousYearList += { whole, whole };
    StatementState again;
    DrawAllPages(again, source);
    again.StatementTotals.clear();
    again.PageSelection = u"1;0"_s;
    change(source);
    StatementState first;
    first.LastGrandTotal = again.LastGrandTotal; // stays when nothing is finished
    const QString expected = ErrorOfDrawing(first, source);
    for (int drawing = 0; drawing < 2; ++drawing) {
        again.StatementTotals.clear();
        QCOMPARE(ErrorOfDrawing(again, source), expected);
        QCOMPARE(again.StatementTotals, first.StatementTotals);
        QCOMPARE(again.LastGrandTotal, first.LastGrandTotal);
        QCOMPARE(again.PageSelection, QString());
        QCOMPARE(again.FinishedPages, first.FinishedPages);
        QCOMPARE(PageCount(again), PageCount(first));
        for (qsizetype page = 0; page < PageCount(first); ++page)
            QCOMPARE(TextRows(again, page), TextRows(first, page));
    }
}

const TestFile<TestAnnualStatement> test_file(__FILE__);
#include "test_annual_statement.moc"
