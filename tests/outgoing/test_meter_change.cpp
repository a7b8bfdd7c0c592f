// An exchanged meter: the new start reading, to the digit.
#include "outgoing/meter_change.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString NewStart(const QString& start, const QString& old_out, const QString& new_in)
{
    return ComputeMeterChange({ start, old_out, new_in }).NewStart;
}

} // namespace

class TestMeterChange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_new_start_makes_the_difference_what_both_meters_ran_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("old_out");
        QTest::addColumn<QString>("new_in");
        QTest::addColumn<QString>("second_out");
        QTest::addColumn<QString>("second_in");
        QTest::addColumn<QString>("new_start");
        QTest::newRow("1") << u"1200"_s << u"1450"_s << u"0"_s << u""_s << u""_s << u"-250"_s;
        QTest::newRow("2") << u"0"_s << u"318"_s << u"0"_s << u""_s << u""_s << u"-318"_s;
        QTest::newRow("3") << u"4310"_s << u"4310"_s << u"0"_s << u""_s << u""_s << u"0"_s;
        QTest::newRow("4") << u"1975,5"_s << u"2080,3"_s << u"0,2"_s << u""_s << u""_s
                           << u"-104,6"_s;
        QTest::newRow("5") << u"12,4"_s << u"15,5"_s << u"0"_s << u""_s << u""_s << u"-3,1"_s;
        QTest::newRow("6") << u"99980"_s << u"99999"_s << u"12"_s << u""_s << u""_s << u"-7"_s;
        QTest::newRow("7") << u"3"_s << u"10"_s << u"-2"_s << u""_s << u""_s << u"-9"_s;
        QTest::newRow("8") << u"1200"_s << u"1450"_s << u"0"_s << u"40"_s << u"5"_s << u"-285"_s;
        QTest::newRow("9") << u"88,25"_s << u"101,5"_s << u"0,75"_s << u"4,5"_s << u"0,25"_s
                           << u"-16,75"_s;
        QTest::newRow("10") << u"500"_s << u"620"_s << u"620"_s << u""_s << u""_s << u"500"_s;
        QTest::newRow("11") << u"0,1"_s << u"0,3"_s << u"0"_s << u""_s << u""_s << u"-0,2"_s;
        QTest::newRow("12") << u"-250"_s << u"100"_s << u"0"_s << u""_s << u""_s << u"-350"_s;
        QTest::newRow("many digits") << u"0,1234567890123456789"_s << u"100000000000000000000"_s
                                     << u"0,0000000000000000001"_s << QString() << QString()
                                     << u"-99999999999999999999,876543210987654321"_s;
        QTest::newRow("points and euro")
            << u"1.200"_s << u" 1.450,50 "_s << u"+0"_s << QString() << QString() << u"-250,5"_s;
        QTest::newRow("ran over") << u"99950"_s << u"100000"_s << u"0"_s << QString() << QString()
                                  << u"-50"_s;
        QTest::newRow("no zeros left")
            << u"10,50"_s << u"20,50"_s << u"110,00"_s << QString() << QString() << u"100"_s;
        QTest::newRow("never -0") << u"5"_s << u"5"_s << u"-0,00"_s << QString() << QString()
                                  << u"0"_s;
    }

    void the_new_start_makes_the_difference_what_both_meters_ran()
    {
        QFETCH(QString, start);
        QFETCH(QString, old_out);
        QFETCH(QString, new_in);
        QFETCH(QString, second_out);
        QFETCH(QString, second_in);
        QString got = NewStart(start, old_out, new_in);
        if (!second_out.isEmpty())
            got = NewStart(got, second_out, second_in);
        QTEST(got, "new_start");
    }

    void the_old_meters_consumption_is_said()
    {
        QCOMPARE(ComputeMeterChange({ u"1200"_s, u"1450"_s, u"0"_s }).Consumption, u"250"_s);
        QCOMPARE(ComputeMeterChange({ u"-250"_s, u"100"_s, u"0"_s }).Consumption, u"350"_s);
        QCOMPARE(ComputeMeterChange({ u"12,4"_s, u"15,5"_s, u"0"_s }).Consumption, u"3,1"_s);
    }

    void what_stands_in_the_way_is_named_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("old_out");
        QTest::addColumn<QString>("new_in");
        QTest::addColumn<int>("wrong");
        QTest::addColumn<QString>("sentence");
        const QString number = u"Bitte eine Zahl mit Dezimalkomma eintragen, zum Beispiel 1450."_s;
        const QString less
            = u"Der alte Zähler zeigt weniger als der Anfangsstand. Bitte beide Zahlen prüfen."_s;
        const auto row = [](const char* name, const QString& start, const QString& old_out,
                             const QString& new_in, MeterReading wrong, const QString& sentence) {
            QTest::newRow(name) << start << old_out << new_in << static_cast<int>(wrong)
                                << sentence;
        };
        row("empty start", {}, u"1"_s, u"0"_s, MeterReading::Start,
            u"Zuerst den Anfangsstand des Jahres eintragen."_s);
        row("start is no number", u"x"_s, u"1"_s, u"0"_s, MeterReading::Start, number);
        row("old meter empty", u"1"_s, {}, u"0"_s, MeterReading::OldOut, number);
        row("old meter with a point", u"1"_s, u"14.5"_s, u"0"_s, MeterReading::OldOut, number);
        row("new meter empty", u"1"_s, u"2"_s, {}, MeterReading::NewIn, number);
        row("old below start", u"1200"_s, u"1199,9"_s, u"0"_s, MeterReading::OldOut, less);
        row("old below a start below 0", u"-5"_s, u"-5,1"_s, u"0"_s, MeterReading::OldOut, less);
        row("equal is allowed", u"1200"_s, u"1200,0"_s, u"0"_s, MeterReading::None, {});
    }

    void what_stands_in_the_way_is_named()
    {
        QFETCH(QString, start);
        QFETCH(QString, old_out);
        QFETCH(QString, new_in);
        const MeterChangeResult result = ComputeMeterChange({ start, old_out, new_in });
        QTEST(static_cast<int>(result.Wrong), "wrong");
        QTEST(result.Sentence, "sentence");
        QCOMPARE(result.NewStart.isEmpty(), result.Wrong != MeterReading::None);
    }
};

const TestFile<TestMeterChange> test_file(__FILE__);
#include "test_meter_change.moc"
