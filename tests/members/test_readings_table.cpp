// What a row and the sums of the readings' table show.
#include "members/readings_table.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString Line(const QString& plot, const QString& readings)
{
    return u"A;B;;;;"_s + plot + u";300;1;0,00;0,00;0,00;0,00;"_s + readings;
}

} // namespace

class TestReadingsTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_row_shows_both_readings_and_both_years()
    {
        MemberLists lists;
        lists.RecordList = QStringList { Line(u"1"_s, u"150;401;25;24,5"_s) };
        lists.PreviousYearList = QStringList { Line(u"1"_s, u"100;150;20;25"_s) };
        const MeterReading electricity = ReadingOf(lists, 0, ElectricityStart);
        QCOMPARE(electricity.Start, u"150"_s);
        QCOMPARE(electricity.End, u"401"_s);
        QCOMPARE(electricity.Consumption, u"251"_s);
        QCOMPARE(electricity.LastConsumption, u"50"_s);
        QCOMPARE(electricity.Doubt, ReadingDoubt::FarAboveLastYear);
        QCOMPARE(ReadingOf(lists, 0, WaterStart).Doubt, ReadingDoubt::BelowStart);
    }

    void a_short_line_has_empty_cells()
    {
        MemberLists lists;
        lists.RecordList = QStringList { u"A;B"_s };
        const MeterReading reading = ReadingOf(lists, 0, WaterStart);
        QVERIFY(reading.Start.isEmpty() && reading.End.isEmpty() && reading.Consumption.isEmpty());
    }

    void the_sum_counts_who_is_read()
    {
        MemberLists lists;
        lists.RecordList = QStringList { Line(u"1"_s, u"100;150,5;1;"_s),
            Line(u"2"_s, u"10;11;1;x"_s), Line(u"3"_s, u"10;;1;"_s) };
        QCOMPARE(ReadingsSum(lists, ElectricityStart), u"2 von 3 abgelesen, zusammen 51,5 KWh"_s);
        QCOMPARE(ReadingsSum(lists, WaterStart), u"0 von 3 abgelesen, zusammen 0 m³"_s);
    }

    void gardens_are_in_the_order_of_their_numbers()
    {
        MemberLists lists;
        lists.RecordList = QStringList { Line(u"10"_s, {}), Line(QString(), {}), Line(u"9"_s, {}),
            Line(u"9"_s, {}) };
        QCOMPARE(PositionsByPlot(lists), (std::vector<int> { 2, 3, 0, 1 }));
    }
};

const TestFile<TestReadingsTable> test_file(__FILE__);
#include "test_readings_table.moc"
