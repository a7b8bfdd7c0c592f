// The order of bookings.
#include "cashbook/date_ordering.h"

#include "data/collation.h"
#include "tests/support/test_file.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Sorted by the key of each whole line, whatever order the lines come in.
QStringList SortedByKeys(const QStringList& lines)
{
    QStringList keys;
    for (const QString& line : lines)
        keys += DateKeyLine(line);
    QStringList sorted;
    for (const QString& key : SortedTexts(keys))
        sorted += LineOfDateKey(key);
    return sorted;
}

} // namespace

class TestDateOrdering : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_key_is_the_date_as_eight_digits()
    {
        QCOMPARE(DateKeyLine(u"07.03.2016;Porto;0,00;7,80"_s), u"20160307;Porto;0,00;7,80"_s);
        QCOMPARE(LineOfDateKey(u"20160307;Porto;0,00;7,80"_s), u"07.03.2016;Porto;0,00;7,80"_s);
    }

    void bookings_come_out_by_year_month_and_day()
    {
        const QStringList sorted = SortLedgerByDate({ u"02.01.2017;a;0,00;1,00"_s,
            u"31.12.2016;b;0,00;1,00"_s, u"15.06.2016;c;0,00;1,00"_s });
        QCOMPARE(sorted,
            QStringList({ u"15.06.2016;c;0,00;1,00"_s, u"31.12.2016;b;0,00;1,00"_s,
                u"02.01.2017;a;0,00;1,00"_s }));
    }

    void same_day_is_ordered_by_text_then_deposit_then_withdrawal_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("text") << u"01.03.2016;Abrechnung Meier;0,00;0,00"_s
                              << u"01.03.2016;Pacht;0,00;0,00"_s;
        QTest::newRow("text without regard to case")
            << u"01.03.2016;abrechnung Z;0,00;0,00"_s << u"01.03.2016;Bus;0,00;0,00"_s;
        QTest::newRow("umlauts stand with their letters")
            << u"01.03.2016;Öl;0,00;0,00"_s << u"01.03.2016;Pacht;0,00;0,00"_s;
        QTest::newRow("deposit as text, not as number")
            << u"01.03.2016;Pacht;10,00;0,00"_s << u"01.03.2016;Pacht;9,00;0,00"_s;
        QTest::newRow("withdrawal as text")
            << u"01.03.2016;Pacht;0,00;10,00"_s << u"01.03.2016;Pacht;0,00;9,00"_s;
        QTest::newRow("whole lines: a blank in the text comes before the sign between fields")
            << u"01.03.2016;Eon Avacon Wasser;0,00;0,00"_s << u"01.03.2016;Eon Avacon;0,00;0,00"_s;
    }
    void same_day_is_ordered_by_text_then_deposit_then_withdrawal()
    {
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        QCOMPARE(SortLedgerByDate({ second, first }), QStringList({ first, second }));
        QCOMPARE(SortLedgerByDate({ first, second }), QStringList({ first, second }));
    }

    void a_line_is_put_where_sorting_would_put_it()
    {
        QRandomGenerator dice(5);
        const auto any = [&dice] {
            const QStringList texts { u"Pacht"_s, u"PACHT"_s, u"pacht"_s, u"Abrechnung"_s };
            return u"0%1.03.2016;%2;0,00;1,00"_s.arg(dice.bounded(1, 4))
                .arg(texts[dice.bounded(4)]);
        };
        for (int round = 0; round < 2000; ++round) {
            QStringList lines;
            for (int i = dice.bounded(6); i > 0; --i)
                lines += any();
            lines = SortLedgerByDate(lines);
            QVERIFY(KeepsBookingOrder(lines));
            const int replaced = dice.bounded(-1, static_cast<int>(lines.size()));
            const QString line = any();
            QStringList expected = lines;
            if (replaced < 0)
                expected += line;
            else
                expected[replaced] = line;
            PutInBookingOrder(lines, line, replaced);
            QCOMPARE(lines, SortLedgerByDate(expected));
        }
    }

    void lines_that_come_in_order_are_those_that_sorting_leaves_as_they_are()
    {
        const QStringList dates { u"01.03.2016"_s, u"02.03.2016"_s, u"01.04.2016"_s,
            u"31.12.2015"_s, u"ab.03.2016"_s, u"-1.03.2016"_s, u"1.3.2016"_s };
        const QStringList texts { u"Pacht"_s, u"PACHT"_s, u"pächt"_s, u"Pacht-Rest"_s,
            u"Pachtrest"_s, u"-"_s, u""_s, u"'"_s, u"ßa"_s, u"ssa"_s, u"a\u0308"_s, u"żaba"_s };
        const QStringList ends { u"0,00;1,00"_s, u"1,00;0,00"_s, u"0,00;1,00;5"_s };
        QRandomGenerator dice(11);
        const auto one_of = [&dice](const QStringList& list, qsizetype usual) {
            const bool any = dice.bounded(40) == 0; // rarely one that needs sorting anew
            return list[dice.bounded(static_cast<int>(any ? list.size() : usual))];
        };
        int left_as_they_were = 0;
        for (int round = 0; round < 3000; ++round) {
            QStringList lines;
            for (int i = dice.bounded(1, 7); i > 0; --i)
                lines += one_of(dates, 4) + u';' + one_of(texts, texts.size()) + u';'
                    + one_of(ends, 2);
            if (dice.bounded(2) == 0)
                lines = SortedByKeys(lines);
            if (dice.bounded(4) == 0)
                lines.swapItemsAt(0, lines.size() - 1);
            const QStringList sorted = SortLedgerByDate(lines);
            QCOMPARE(sorted, SortedByKeys(lines));
            left_as_they_were += sorted == lines ? 1 : 0;
        }
        QVERIFY(left_as_they_were > 1000 && left_as_they_were < 2500);
    }

    void a_line_of_another_form_changes_with_the_next_sort_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("a day alone") << u"x;;;"_s;
        QTest::newRow("a short date") << u"1.3.16;a;0,00;1,00"_s;
        QTest::newRow("no points") << u"01-03-2016;a;0,00;1,00"_s;
        QTest::newRow("five fields") << u"01.03.2016;a;0,00;1,00;5,00"_s;
        QTest::newRow("three fields") << u"01.03.2016;a;0,00"_s;
        QTest::newRow("nothing") << u""_s;
    }
    void a_line_of_another_form_changes_with_the_next_sort()
    {
        QFETCH(const QString, line);
        QVERIFY(!KeepsBookingOrder({ u"01.03.2016;a;0,00;1,00"_s, line }));
        QVERIFY(KeepsBookingOrder({ u"01.03.2016;a;0,00;1,00"_s }));
    }

    void equal_lines_keep_their_order_and_none_is_dropped()
    {
        const QStringList lines { u"01.03.2016;PACHT;0,00;1,00"_s, u"01.03.2016;Pacht;0,00;1,00"_s,
            u"01.03.2016;pacht;0,00;1,00"_s, u"01.03.2016;Pacht;0,00;1,00"_s };
        QCOMPARE(SortLedgerByDate(lines), lines);
    }

    void fields_beyond_the_fourth_are_dropped_and_missing_ones_are_empty_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("expected");
        QTest::newRow("five fields") << u"01.03.2016;a;1;2;3"_s << u"01.03.2016;a;1;2"_s;
        QTest::newRow("a million fields")
            << u"01.03.2016;a;1;2"_s + QString(1'000'000, u';') << u"01.03.2016;a;1;2"_s;
        QTest::newRow("three fields") << u"01.03.2016;a;1"_s << u"01.03.2016;a;1;"_s;
        QTest::newRow("date alone") << u"01.03.2016"_s << u"01.03.2016;;;"_s;
    }
    void fields_beyond_the_fourth_are_dropped_and_missing_ones_are_empty()
    {
        QFETCH(const QString, line);
        QFETCH(const QString, expected);
        QCOMPARE(SortLedgerByDate({ line }), QStringList { expected });
    }

    void a_date_of_another_form_comes_back_as_its_positions_yield_it_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("sorted_once");
        QTest::newRow("no leading zeros") << u"1.3.2016"_s << u"1...2.2016"_s;
        QTest::newRow("one leading zero missing") << u"1.03.2016"_s << u"1..3..2016"_s;
        QTest::newRow("two-digit year") << u"15.06.16"_s << u"15.06.6.16"_s;
        QTest::newRow("empty") << u""_s << u".."_s;
        QTest::newRow("a word") << u"heute"_s << u"he.te.eute"_s;
        QTest::newRow("month with 13") << u"01.13.2016"_s << u"01.13.2016"_s;
    }
    void a_date_of_another_form_comes_back_as_its_positions_yield_it()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, sorted_once);
        QCOMPARE(SortLedgerByDate({ typed + u";Text;1,00;0,00"_s }),
            QStringList { sorted_once + u";Text;1,00;0,00"_s });
    }

    void a_date_without_leading_zeros_sorts_out_of_place()
    {
        // its key begins with 2016.2 and stands before 20160101
        const QStringList sorted
            = SortLedgerByDate({ u"01.01.2016;a;0,00;0,00"_s, u"1.3.2016;b;0,00;0,00"_s });
        QCOMPARE(sorted, QStringList({ u"1...2.2016;b;0,00;0,00"_s, u"01.01.2016;a;0,00;0,00"_s }));
    }

    void dates_of_ten_characters_are_not_changed_by_sorting_again()
    {
        for (const QString& typed : { u"1.3.2016"_s, u""_s, u"heute"_s, u"15.06.16"_s, u"5"_s }) {
            QStringList lines { typed + u";Text;1,00;0,00"_s };
            for (int i = 0; i < 4; ++i)
                lines = SortLedgerByDate(lines);
            QCOMPARE(SortLedgerByDate(lines), lines);
        }
    }

    void an_empty_ledger_stays_empty() { QVERIFY(SortLedgerByDate({}).isEmpty()); }
};

const TestFile<TestDateOrdering> test_file(__FILE__);
#include "test_date_ordering.moc"
