#include "statement/preview_paging.h"

#include "data/runtime_error.h"
#include "tests/support/test_file.h"

#include <QTest>

class TestPreviewPaging : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_rebuild_shows_page_one_at_the_current_scroll_position();
    void next_stops_at_the_last_page_and_previous_at_the_first();
    void the_new_page_takes_the_scroll_position_and_the_old_one_keeps_it();
    void a_hidden_page_keeps_its_old_top_until_it_is_shown();
    void a_step_that_goes_nowhere_still_takes_the_scroll_position();
    void without_members_one_surface_stays();
    void a_record_without_page_cannot_be_stepped_to();
    void scrolling_beyond_sixteen_bits_overflows_and_moves_nothing();
    void the_scroll_range_is_rounded_half_to_even_and_never_negative_data();
    void the_scroll_range_is_rounded_half_to_even_and_never_negative();
};

void TestPreviewPaging::a_rebuild_shows_page_one_at_the_current_scroll_position()
{
    StatementState statement;
    RebuildPreview(statement, 3);
    QCOMPARE(statement.ShownPage, qint16(1));
    QCOMPARE(statement.PageTops, (std::vector<qint32> { 0, 0, 0 }));
    ScrollShownPage(statement, 7);
    StepToNextPage(statement, 3);
    RebuildPreview(statement, 2);
    QCOMPARE(statement.ShownPage, qint16(1));
    QCOMPARE(statement.ScrollOffset, -70);
    QCOMPARE(statement.PageTops, (std::vector<qint32> { -70, -70 }));
    QCOMPARE(TopOfShownPage(statement), -70);
}

void TestPreviewPaging::next_stops_at_the_last_page_and_previous_at_the_first()
{
    StatementState statement;
    RebuildPreview(statement, 3);
    for (int page : { 2, 3, 3 }) {
        StepToNextPage(statement, 3);
        QCOMPARE(int(statement.ShownPage), page);
    }
    for (int page : { 2, 1, 1 }) {
        StepToPreviousPage(statement);
        QCOMPARE(int(statement.ShownPage), page);
    }
}

void TestPreviewPaging::the_new_page_takes_the_scroll_position_and_the_old_one_keeps_it()
{
    StatementState statement;
    RebuildPreview(statement, 3);
    ScrollShownPage(statement, 12);
    QCOMPARE(statement.ScrollOffset, -120);
    StepToNextPage(statement, 3);
    QCOMPARE(statement.PageTops, (std::vector<qint32> { -120, -120, 0 }));
    QCOMPARE(TopOfShownPage(statement), -120);
}

void TestPreviewPaging::a_hidden_page_keeps_its_old_top_until_it_is_shown()
{
    StatementState statement;
    RebuildPreview(statement, 2);
    ScrollShownPage(statement, 12);
    StepToNextPage(statement, 2);
    ScrollShownPage(statement, 3);
    QCOMPARE(statement.PageTops, (std::vector<qint32> { -120, -30 }));
    StepToPreviousPage(statement);
    QCOMPARE(statement.PageTops, (std::vector<qint32> { -30, -30 }));
}

void TestPreviewPaging::a_step_that_goes_nowhere_still_takes_the_scroll_position()
{
    StatementState statement;
    RebuildPreview(statement, 1);
    statement.ScrollOffset = -50;
    StepToNextPage(statement, 1);
    QCOMPARE(statement.PageTops, std::vector<qint32> { -50 });
    statement.ScrollOffset = -60;
    StepToPreviousPage(statement);
    QCOMPARE(statement.PageTops, std::vector<qint32> { -60 });
}

void TestPreviewPaging::without_members_one_surface_stays()
{
    StatementState statement;
    StepToNextPage(statement, 0); // before the first rebuild
    RebuildPreview(statement, 0);
    StepToNextPage(statement, 0);
    StepToPreviousPage(statement);
    ScrollShownPage(statement, 4);
    QCOMPARE(statement.ShownPage, qint16(1));
    QCOMPARE(statement.PageTops, std::vector<qint32> { -40 });
}

void TestPreviewPaging::a_record_without_page_cannot_be_stepped_to()
{
    StatementState statement;
    RebuildPreview(statement, 2);
    StepToNextPage(statement, 3);
    StepToNextPage(statement, 3);
    QCOMPARE(statement.ShownPage, qint16(2));
}

void TestPreviewPaging::scrolling_beyond_sixteen_bits_overflows_and_moves_nothing()
{
    StatementState statement;
    RebuildPreview(statement, 1);
    ScrollShownPage(statement, 3276);
    QCOMPARE(statement.ScrollOffset, -32760);
    bool overflow = false;
    try {
        ScrollShownPage(statement, 3277);
    } catch (const RuntimeError& error) {
        overflow = error.kind == ErrorKind::Overflow;
    }
    QVERIFY(overflow);
    QCOMPARE(statement.ScrollOffset, -32760);
    QCOMPARE(TopOfShownPage(statement), -32760);
}

void TestPreviewPaging::the_scroll_range_is_rounded_half_to_even_and_never_negative_data()
{
    QTest::addColumn<int>("viewport");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("large_step");
    QTest::newRow("whole") << 618 << 30 << 6;
    QTest::newRow("half down to even") << 613 << 30 << 6;
    QTest::newRow("half up to even") << 603 << 32 << 6;
    QTest::newRow("large step rounds up") << 638 << 28 << 6;
    QTest::newRow("large step rounds down") << 648 << 27 << 5;
    QTest::newRow("as high as the page") << 918 << 0 << 0;
    QTest::newRow("higher than the page") << 2000 << 0 << 0;
    QTest::newRow("nothing to see") << 0 << 92 << 18;
}

void TestPreviewPaging::the_scroll_range_is_rounded_half_to_even_and_never_negative()
{
    QFETCH(int, viewport);
    QFETCH(int, maximum);
    QFETCH(int, large_step);
    const ScrollRange range = ScrollRangeFor(PageHeight, viewport);
    QCOMPARE(range.maximum, maximum);
    QCOMPARE(range.large_step, large_step);
}

const TestFile<TestPreviewPaging> test_file(__FILE__);
#include "test_preview_paging.moc"
