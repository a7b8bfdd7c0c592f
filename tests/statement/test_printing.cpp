#include "statement/printing.h"

#include "data/runtime_error.h"
#include "statement/page.h"
#include "tests/support/test_file.h"

#include <QStringList>
#include <QTest>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int millimetre_mode = 6; // scale mode of the recorded printer: millimetres
constexpr double himetric_per_millimetre = 100.0;

/// A printer that writes down what is asked of it; its own lengths are millimetres.
struct Recorder {
    QStringList calls;
    double width = 200.0;
    double height = 280.0;
    double along = himetric_per_millimetre; ///< a unit along the sheet may differ from one across

    PrintDevice Device()
    {
        PrintDevice device;
        const auto convert = [](double unit) {
            return [unit](double length, int from, int to) {
                const double himetric = from == HimetricMode ? length : length * unit;
                return to == HimetricMode ? himetric : himetric / unit;
            };
        };
        device.SetOrientation = [this](int orientation) {
            calls += u"orientation %1"_s.arg(orientation);
            if (orientation == 2)
                std::swap(width, height); // the sheet lies on its side from now on
        };
        device.ScaleWidth = [this] { return width; };
        device.ScaleHeight = [this] { return height; };
        device.ScaleMode = [] { return millimetre_mode; };
        device.ScaleX = convert(himetric_per_millimetre);
        device.ScaleY = convert(along);
        device.PaintPicture = [this](qsizetype index, double left, double top, double w, double h) {
            calls += u"paint %1 at %2,%3 size %4x%5"_s.arg(index).arg(left).arg(top).arg(w).arg(h);
        };
        device.NewPage = [this] { calls += u"new page"_s; };
        device.EndDoc = [this] { calls += u"end"_s; };
        return device;
    }
};

PrintJob Pages(qsizetype count, qsizetype first, qsizetype last)
{
    PrintJob job;
    job.picture = PictureSize { 2100.0, 2970.0 };
    job.surfaces = count;
    job.first = first;
    job.last = last;
    return job;
}

QStringList Print(const PrintJob& job)
{
    Recorder recorder;
    PrintPictureToPage(recorder.Device(), job);
    return recorder.calls;
}

} // namespace

class TestPrinting : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pages_two_to_three_of_five_take_two_sheets();
    void turned_round_the_last_page_comes_first();
    void the_picture_decides_the_orientation_data();
    void the_picture_decides_the_orientation();
    void the_picture_fills_the_printable_area_in_its_own_shape_data();
    void the_picture_fills_the_printable_area_in_its_own_shape();
    void the_sheet_is_measured_after_it_was_turned();
    void lengths_across_and_along_have_their_own_unit_data();
    void lengths_across_and_along_have_their_own_unit();
    void a_single_picture_is_printed_and_the_document_ended();
    void a_missing_or_empty_picture_prints_nothing_data();
    void a_missing_or_empty_picture_prints_nothing();
    void to_before_from_paints_nothing_and_ends_the_document();
    void flags_skip_pages_and_missing_flags_print_them();
    void a_flag_that_is_no_whole_number_is_a_type_mismatch();
    void an_index_beyond_the_row_is_out_of_range();
    void offsets_are_handed_on();
    void the_range_needs_two_whole_numbers_within_the_pages_data();
    void the_range_needs_two_whole_numbers_within_the_pages();
};

void TestPrinting::pages_two_to_three_of_five_take_two_sheets()
{
    QCOMPARE(Print(Pages(5, 1, 2)),
        (QStringList { u"orientation 1"_s, u"paint 1 at 0,0 size 197x280"_s, u"new page"_s,
            u"paint 2 at 0,0 size 197x280"_s, u"end"_s }));
}

void TestPrinting::turned_round_the_last_page_comes_first()
{
    PrintJob job = Pages(5, 1, 2);
    job.last_page_first = true;
    QCOMPARE(Print(job),
        (QStringList { u"orientation 1"_s, u"paint 2 at 0,0 size 197x280"_s, u"new page"_s,
            u"paint 1 at 0,0 size 197x280"_s, u"end"_s }));
}

void TestPrinting::the_picture_decides_the_orientation_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::addColumn<QString>("orientation");
    QTest::newRow("bill page") << double(PageWidth) << double(PageHeight) << u"orientation 1"_s;
    QTest::newRow("wide") << 300.0 << 200.0 << u"orientation 2"_s;
    QTest::newRow("square") << 200.0 << 200.0 << u"orientation 2"_s;
    QTest::newRow("a little higher") << 199.9 << 200.0 << u"orientation 1"_s;
}

void TestPrinting::the_picture_decides_the_orientation()
{
    QFETCH(double, width);
    QFETCH(double, height);
    QFETCH(QString, orientation);
    PrintJob job = Pages(1, 0, 0);
    job.picture = PictureSize { width, height };
    QCOMPARE(Print(job).first(), orientation);
}

void TestPrinting::the_picture_fills_the_printable_area_in_its_own_shape_data()
{
    QTest::addColumn<double>("picture_width");
    QTest::addColumn<double>("picture_height");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("size");
    QTest::newRow("higher than the sheet") << 1000.0 << 2000.0 << 1.0 << u"140x280"_s;
    QTest::newRow("wider than the sheet") << 3000.0 << 1000.0 << 1.0 << u"280x93"_s;
    QTest::newRow("shape of the sheet") << 2000.0 << 2800.0 << 1.0 << u"200x280"_s;
    QTest::newRow("shrunk") << 2000.0 << 2800.0 << 0.5 << u"100x140"_s;
    QTest::newRow("never enlarged") << 2000.0 << 2800.0 << 3.0 << u"200x280"_s;
    QTest::newRow("cut to whole numbers") << 2000.0 << 2800.0 << 0.333 << u"66x93"_s;
}

void TestPrinting::the_picture_fills_the_printable_area_in_its_own_shape()
{
    QFETCH(double, picture_width);
    QFETCH(double, picture_height);
    QFETCH(double, factor);
    QFETCH(QString, size);
    PrintJob job = Pages(1, 0, 0);
    job.picture = PictureSize { picture_width, picture_height };
    job.scale_factor = factor;
    QCOMPARE(Print(job).at(1), u"paint 0 at 0,0 size "_s + size);
}

void TestPrinting::the_sheet_is_measured_after_it_was_turned()
{
    PrintJob job = Pages(1, 0, 0);
    job.picture = PictureSize { 3000.0, 2000.0 };
    QCOMPARE(Print(job),
        (QStringList { u"orientation 2"_s, u"paint 0 at 0,0 size 280x186"_s, u"end"_s }));
}

void TestPrinting::lengths_across_and_along_have_their_own_unit_data()
{
    QTest::addColumn<double>("picture_height");
    QTest::addColumn<QString>("size");
    // The sheet is 20000 wide and 14000 high in hundredths of a millimetre.
    QTest::newRow("as high as the sheet") << 20001.0 << u"139x280"_s;
    QTest::newRow("as wide as the sheet, on its side") << 1000.0 << u"280x28"_s;
}

void TestPrinting::lengths_across_and_along_have_their_own_unit()
{
    QFETCH(double, picture_height);
    QFETCH(QString, size);
    Recorder recorder;
    recorder.along = 50.0;
    PrintJob job = Pages(1, 0, 0);
    job.picture = PictureSize { 20000.0, picture_height };
    PrintPictureToPage(recorder.Device(), job);
    QCOMPARE(recorder.calls.at(1), u"paint 0 at 0,0 size "_s + size);
}

void TestPrinting::a_single_picture_is_printed_and_the_document_ended()
{
    PrintJob job;
    job.picture = PictureSize { 1000.0, 2000.0 };
    QCOMPARE(Print(job),
        (QStringList { u"orientation 1"_s, u"paint -1 at 0,0 size 140x280"_s, u"end"_s }));
}

void TestPrinting::a_missing_or_empty_picture_prints_nothing_data()
{
    QTest::addColumn<bool>("missing");
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::newRow("missing") << true << 0.0 << 0.0;
    QTest::newRow("no width") << false << 0.0 << 10.0;
    QTest::newRow("no height") << false << 10.0 << 0.0;
}

void TestPrinting::a_missing_or_empty_picture_prints_nothing()
{
    QFETCH(bool, missing);
    QFETCH(double, width);
    QFETCH(double, height);
    PrintJob job = Pages(1, 0, 0);
    job.picture = missing ? std::nullopt : std::optional(PictureSize { width, height });
    QCOMPARE(Print(job), QStringList());
}

void TestPrinting::to_before_from_paints_nothing_and_ends_the_document()
{
    QCOMPARE(Print(Pages(5, 3, 2)), (QStringList { u"orientation 1"_s, u"end"_s }));
}

void TestPrinting::flags_skip_pages_and_missing_flags_print_them()
{
    PrintJob job = Pages(4, 0, 3);
    job.page_selection = u"1;0;-1"_s; // the fourth page has no flag
    QCOMPARE(Print(job).filter(u"size"_s),
        (QStringList { u"paint 0 at 0,0 size 197x280"_s, u"paint 2 at 0,0 size 197x280"_s,
            u"paint 3 at 0,0 size 197x280"_s }));
    QCOMPARE(Print(job).count(u"new page"_s), 3);
}

void TestPrinting::a_flag_that_is_no_whole_number_is_a_type_mismatch()
{
    for (const QString& flags : { u"1;x"_s, u"1;;1"_s, u"0,5"_s }) {
        Recorder recorder;
        PrintJob job = Pages(3, 0, 2);
        job.page_selection = flags;
        bool mismatch = false;
        try {
            PrintPictureToPage(recorder.Device(), job);
        } catch (const RuntimeError& error) {
            mismatch = error.kind == ErrorKind::TypeMismatch;
        }
        QVERIFY2(mismatch, qPrintable(flags));
        QCOMPARE(recorder.calls, QStringList());
    }
}

void TestPrinting::an_index_beyond_the_row_is_out_of_range()
{
    for (const auto& [first, last] : { std::pair<qsizetype, qsizetype>(-1, 0), { 2, 3 } }) {
        Recorder recorder;
        bool out_of_range = false;
        try {
            PrintPictureToPage(recorder.Device(), Pages(3, first, last));
        } catch (const RuntimeError& error) {
            out_of_range = error.kind == ErrorKind::SubscriptOutOfRange;
        }
        QVERIFY(out_of_range);
        QVERIFY(!recorder.calls.contains(u"end"_s));
    }
}

void TestPrinting::offsets_are_handed_on()
{
    PrintJob job = Pages(1, 0, 0);
    job.left = 5;
    job.top = 7;
    QCOMPARE(Print(job).at(1), u"paint 0 at 5,7 size 197x280"_s);
}

void TestPrinting::the_range_needs_two_whole_numbers_within_the_pages_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("pages");
    QTest::addColumn<QString>("range");
    QTest::newRow("all") << u"1"_s << u"5"_s << 5 << u"0-4"_s;
    QTest::newRow("some") << u"2"_s << u"3"_s << 5 << u"1-2"_s;
    QTest::newRow("one") << u"4"_s << u"4"_s << 5 << u"3-3"_s;
    QTest::newRow("blanks around") << u" 2 "_s << u"3 "_s << 5 << u"1-2"_s;
    QTest::newRow("whole with a comma") << u"2,0"_s << u"3"_s << 5 << u"1-2"_s;
    QTest::newRow("from zero") << u"0"_s << u"3"_s << 5 << u"none"_s;
    QTest::newRow("negative") << u"-1"_s << u"3"_s << 5 << u"none"_s;
    QTest::newRow("beyond the last") << u"1"_s << u"6"_s << 5 << u"none"_s;
    QTest::newRow("far beyond") << u"1"_s << u"99999999999999999999"_s << 5 << u"none"_s;
    QTest::newRow("turned round") << u"3"_s << u"2"_s << 5 << u"none"_s;
    QTest::newRow("half a page") << u"1,5"_s << u"3"_s << 5 << u"none"_s;
    QTest::newRow("letters") << u"eins"_s << u"3"_s << 5 << u"none"_s;
    QTest::newRow("empty") << QString() << u"3"_s << 5 << u"none"_s;
    QTest::newRow("to is empty") << u"1"_s << QString() << 5 << u"none"_s;
    QTest::newRow("no pages") << u"1"_s << u"0"_s << 0 << u"none"_s;
    QTest::newRow("no pages at all") << u"1"_s << u"1"_s << 0 << u"none"_s;
}

void TestPrinting::the_range_needs_two_whole_numbers_within_the_pages()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, pages);
    QFETCH(QString, range);
    const std::optional<PageRange> found = RangeToPrint(from, to, pages);
    QCOMPARE(found ? u"%1-%2"_s.arg(found->first).arg(found->last) : u"none"_s, range);
}

const TestFile<TestPrinting> test_file(__FILE__);
#include "test_printing.moc"
