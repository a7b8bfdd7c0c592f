// What looks wrong in a record although it can be stored.
#include "members/record_doubts.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestRecordDoubts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_shifted_record_names_the_field_where_it_begins_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("text");
        const QString premiums = u";0,00;0,00;0,00;0,00;1;2;3;4"_s;
        QTest::newRow("whole") << u"Meier;Max;Weg 1;38300 Ort;053;7;300;2"_s + premiums
                               << QString();
        QTest::newRow("short") << u"Meier;Max"_s << QString();
        QTest::newRow("in the street") << u"Meier;Max;Weg 1; Haus 2;38300 Ort;053;7;300;2"_s
                + premiums << u"17 Felder: Ab „Plz/Ort“ ist alles um eine Stelle verschoben"_s;
        QTest::newRow("in the town") << u"Meier;Max;Weg 1;38300;Ort;053;7;300;2"_s
                + premiums << u"17 Felder: Ab „Telefon“ ist alles um eine Stelle verschoben"_s;
        QTest::newRow("in the first name") << u"Meier;Max;Moritz;Weg 1;38300 Ort;053;7;300;2"_s
                + premiums << u"17 Felder: Ab „Str./HausNr“ ist alles um eine Stelle verschoben"_s;
        QTest::newRow("twice") << u"Meier;Max;Weg 1;a;b;38300 Ort;053;7;300;2"_s + premiums
                               << u"18 Felder: Ab „Plz/Ort“ ist alles um 2 Stellen verschoben"_s;
        QTest::newRow("behind the end") << u"Meier;Max;Weg 1;38300 Ort;053;7;300;2"_s + premiums
                + u";"_s << u"17 Felder: Hinter „Endstand Wasser“ steht noch etwas"_s;
    }

    void a_shifted_record_names_the_field_where_it_begins()
    {
        QFETCH(QString, line);
        QFETCH(QString, text);
        QCOMPARE(ShiftText(SplitRecord(line)), text);
        QCOMPARE(FirstShiftedField(SplitRecord(line)) == MemberFieldCount,
            text.isEmpty() || text.contains(u"Hinter"_s));
    }

    void a_consumption_is_doubtful_data()
    {
        QTest::addColumn<QString>("consumption");
        QTest::addColumn<QString>("last");
        QTest::addColumn<ReadingDoubt>("doubt");
        QTest::newRow("usual") << u"50"_s << u"40"_s << ReadingDoubt::None;
        QTest::newRow("nothing used") << u"0"_s << u"40"_s << ReadingDoubt::None;
        QTest::newRow("below the start") << u"-0,5"_s << u"40"_s << ReadingDoubt::BelowStart;
        QTest::newRow("five times") << u"200"_s << u"40"_s << ReadingDoubt::None;
        QTest::newRow("more") << u"200,5"_s << u"40"_s << ReadingDoubt::FarAboveLastYear;
        QTest::newRow("nothing last year") << u"200"_s << u"0"_s << ReadingDoubt::None;
        QTest::newRow("a changed meter last year") << u"200"_s << u"-7"_s << ReadingDoubt::None;
        QTest::newRow("no last year") << u"200"_s << QString() << ReadingDoubt::None;
        QTest::newRow("not read yet") << QString() << u"40"_s << ReadingDoubt::None;
        QTest::newRow("letters") << u"x"_s << u"y"_s << ReadingDoubt::None;
    }

    void a_consumption_is_doubtful()
    {
        QFETCH(QString, consumption);
        QFETCH(QString, last);
        QFETCH(ReadingDoubt, doubt);
        QCOMPARE(DoubtOf(consumption, last), doubt);
        QCOMPARE(DoubtText(doubt, last).isEmpty(), doubt == ReadingDoubt::None);
    }

    void readings_that_are_none_have_no_consumption()
    {
        QCOMPARE(ConsumptionOf(u"100"_s, u"150,5"_s), u"50,5"_s);
        QCOMPARE(ConsumptionOf(u"x"_s, u"150,5"_s), QString());
        QCOMPARE(ConsumptionOf(u"-1e308"_s, u"1e308"_s), QString()); // beyond any number
        QCOMPARE(ConsumptionOf(SplitRecord(u"A;B"_s), WaterStart), QString());
    }
};

const TestFile<TestRecordDoubts> test_file(__FILE__);
#include "test_record_doubts.moc"
