// The rows of the ledger view and their running balance.
#include "cashbook/ledger_rows.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString Line(const QString& deposit, const QString& withdrawal)
{
    return u"03.02.2016;Text;"_s + deposit + u';' + withdrawal;
}

float BalanceOf(const QStringList& lines) { return ClosingBalance(MakeLedgerRows(lines)); }

} // namespace

class TestLedgerRows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_row_shows_five_texts_under_its_key()
    {
        const LedgerRows rows = MakeLedgerRows({ u"01.02.2016;Übertrag Saldo 2015;1250,5;0,00"_s,
            u"03.02.2016;Gartenzeitung 2016;0,00;24,00"_s });
        const LedgerRow row = RowAt(rows, 1);
        QCOMPARE(row.key, u"Zeile 2"_s);
        QCOMPARE(row.date, u"03.02.2016"_s);
        QCOMPARE(row.text, u"Gartenzeitung 2016"_s);
        QCOMPARE(row.deposit, u"0,00 €"_s);
        QCOMPARE(row.withdrawal, u"24,00 €"_s);
        QCOMPARE(row.balance, u"1226,50 €"_s);
        QCOMPARE(RowAt(rows, 0).deposit, u"1250,50 €"_s);
    }

    void keys_are_numbered_from_one_without_padding()
    {
        const LedgerRows rows = MakeLedgerRows(QStringList(100'001, Line(u"0,00"_s, u"0,00"_s)));
        QCOMPARE(RowAt(rows, 0).key, u"Zeile 1"_s);
        QCOMPARE(RowAt(rows, 9).key, u"Zeile 10"_s);
        QCOMPARE(RowAt(rows, 100'000).key, u"Zeile 100001"_s);
    }

    void every_step_of_the_balance_is_single_precision_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<float>("expected");
        QTest::newRow("a single holds sixteen million whole euros and no more")
            << QStringList { Line(u"16777216"_s, u"0,00"_s), Line(u"1,00"_s, u"0,00"_s) }
            << 16777216.0F;
        QTest::newRow("the deposit is added before the withdrawal is taken")
            << QStringList { Line(u"16777216"_s, u"0,00"_s), Line(u"1,00"_s, u"1,00"_s) }
            << 16777215.0F;
        QTest::newRow("a small balance vanishes beside a large deposit")
            << QStringList { Line(u"0,10"_s, u"0,00"_s), Line(u"16777216"_s, u"16777216"_s) }
            << 0.0F;
        QTest::newRow("a thousand times ten cents")
            << QStringList(1000, Line(u"0,10"_s, u"0,00"_s)) << 99.9990463256836F;
        QTest::newRow("large amounts keep the cents that a single has")
            << QStringList { Line(u"123456,78"_s, u"0,00"_s), Line(u"0,00"_s, u"0,10"_s),
                   Line(u"98765,43"_s, u"0,00"_s), Line(u"0,00"_s, u"200000,05"_s) }
            << 22222.0625F;
    }
    void every_step_of_the_balance_is_single_precision()
    {
        QFETCH(const QStringList, lines);
        QFETCH(const float, expected);
        QCOMPARE(BalanceOf(lines) - expected, 0.0F); // exactly, not nearly
    }

    void the_format_rounds_the_balance_for_display_only()
    {
        const LedgerRows rows = MakeLedgerRows(QStringList(1000, Line(u"0,10"_s, u"0,00"_s)));
        QCOMPARE(RowAt(rows, 999).balance, u"100,00 €"_s);
        QCOMPARE(CurrentBalanceText(ClosingBalance(rows)), u"100,00 €"_s);
    }

    void an_amount_that_is_no_number_counts_as_zero_and_shows_as_stored_data()
    {
        QTest::addColumn<QString>("amount");
        for (const QString& amount : { u"abc"_s, u""_s, u"12.50"_s, u"1e3"_s, u"(3)"_s, u"3-"_s })
            QTest::newRow(qPrintable(u"amount "_s + amount)) << amount;
        QTest::newRow("beyond single precision") << QString(40, u'9');
    }
    void an_amount_that_is_no_number_counts_as_zero_and_shows_as_stored()
    {
        QFETCH(const QString, amount);
        const LedgerRows rows = MakeLedgerRows({ Line(u"5,00"_s, u"0,00"_s),
            Line(amount, u"1,00"_s), Line(u"1,00"_s, amount), Line(u"1,00"_s, u"1,00"_s) });
        QCOMPARE(ClosingBalance(rows), 5.0F);
        QVERIFY(!RowAt(rows, 1).counted.deposit && RowAt(rows, 1).counted.withdrawal);
        QVERIFY(RowAt(rows, 2).counted.deposit && !RowAt(rows, 2).counted.withdrawal);
        QVERIFY(RowAt(rows, 3).counted.deposit && RowAt(rows, 3).counted.withdrawal);
        if (amount.size() < 40)
            QCOMPARE(RowAt(rows, 1).deposit, amount);
    }

    void an_amount_that_would_burst_the_balance_counts_as_zero()
    {
        const QString huge = u"3"_s + QString(38, u'0');
        const LedgerRows rows = MakeLedgerRows(
            { Line(huge, u"0,00"_s), Line(huge, u"0,00"_s), Line(u"0,00"_s, huge) });
        QVERIFY(!RowAt(rows, 1).counted.deposit);
        QCOMPARE(ClosingBalance(rows), 0.0F);
    }

    void missing_fields_are_empty_and_further_ones_are_not_shown()
    {
        const LedgerRows rows
            = MakeLedgerRows({ u"03.02.2016"_s, u"03.02.2016;Text;1,00;2,00;3,00"_s, u""_s });
        QCOMPARE(RowAt(rows, 0).text, u""_s);
        QCOMPARE(RowAt(rows, 0).deposit, u""_s);
        QVERIFY(!RowAt(rows, 0).counted.deposit);
        QCOMPARE(RowAt(rows, 1).balance, u"-1,00 €"_s);
        QCOMPARE(RowAt(rows, 2).date, u""_s);
    }

    void a_date_is_shown_in_full_and_what_is_no_date_as_it_stands_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("full") << u"03.02.2016"_s << u"03.02.2016"_s;
        QTest::newRow("short") << u"3.2.16"_s << u"03.02.2016"_s;
        QTest::newRow("no date") << u"1...2.2016"_s << u"1...2.2016"_s;
        QTest::newRow("no such day") << u"31.02.2016"_s << u"31.02.2016"_s;
        QTest::newRow("another order") << u"02/03/2016"_s << u"02/03/2016"_s;
    }
    void a_date_is_shown_in_full_and_what_is_no_date_as_it_stands()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, shown);
        QCOMPARE(RowAt(MakeLedgerRows({ stored + u";Text;0,00;0,00"_s }), 0).date, shown);
    }

    void sign_and_colour_follow_the_displayed_balance_data()
    {
        QTest::addColumn<float>("balance");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("below_zero");
        QTest::newRow("below zero") << -12.5F << u"-12,50 €"_s << true;
        QTest::newRow("shows as zero") << -0.004F << u"0,00 €"_s << false;
        QTest::newRow("just below") << -0.006F << u"-0,01 €"_s << true;
        QTest::newRow("zero") << 0.0F << u"0,00 €"_s << false;
        QTest::newRow("negative zero") << -0.0F << u"0,00 €"_s << false;
        QTest::newRow("above") << 1240.36F << u"1240,36 €"_s << false;
    }
    void sign_and_colour_follow_the_displayed_balance()
    {
        QFETCH(const float, balance);
        QFETCH(const QString, text);
        QFETCH(const bool, below_zero);
        QCOMPARE(CurrentBalanceText(balance), text);
        QCOMPARE(ShowsBelowZero(text), below_zero);
    }

    void an_empty_ledger_has_no_rows_and_nothing_in_it()
    {
        const LedgerRows rows = MakeLedgerRows({});
        QVERIFY(rows.lines.isEmpty());
        QCOMPARE(CurrentBalanceText(ClosingBalance(rows)), u"0,00 €"_s);
    }

    void a_balance_that_runs_through_zero_ends_as_zero_and_not_below()
    {
        const LedgerRows rows = MakeLedgerRows({ Line(u"0,30"_s, u"0,00"_s),
            Line(u"0,00"_s, u"0,10"_s), Line(u"0,00"_s, u"0,10"_s), Line(u"0,00"_s, u"0,10"_s) });
        QVERIFY(ClosingBalance(rows) != 0.0F); // rounding leaves a trace
        QCOMPARE(RowAt(rows, 3).balance, u"0,00 €"_s);
    }
};

const TestFile<TestLedgerRows> test_file(__FILE__);
#include "test_ledger_rows.moc"
