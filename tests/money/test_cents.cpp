// Exact cents out of typed texts, and cents as text.
#include "money/cents.h"

#include "data/german_numbers.h"
#include "tests/support/test_file.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr Cents no_number = -999;

/// The cents of the text, no_number when it is none.
Cents Read(const QString& text) { return CentsOf(text).value_or(no_number); }

} // namespace

class TestCents : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_cents_of_a_text_come_from_its_digits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Cents>("cents");
        const auto row = [](const QString& text, Cents cents) {
            QTest::addRow("<%s>", qPrintable(text)) << text << cents;
        };
        row(u"12,345"_s, 1235);
        row(u"12,344"_s, 1234);
        row(u"-0,005"_s, -1);
        row(u"-0,004"_s, 0);
        row(u"0,0049999"_s, 0);
        row(u",5"_s, 50);
        row(u"5,"_s, 500);
        row(u"+3,1"_s, 310);
        row(u"007"_s, 700);
        row(u"1.234.567,8"_s, 123456780);
        row(u"1.193,53"_s, 119353);
        row(u"1.19"_s, no_number);
        row(u"0.285"_s, no_number);
        row(u"1 000"_s, no_number);
        row(u"€ 5"_s, 500);
        row(u"5 €"_s, 500);
        row(u"€5€"_s, no_number);
        row(u"12,5 EUR"_s, no_number);
        row(u""_s, no_number);
        row(u"-"_s, no_number);
        row(u","_s, no_number);
        row(u"5-"_s, no_number);
        row(u"--5"_s, no_number);
        row(u"1e3"_s, no_number);
        row(u"1.2345"_s, no_number);
        row(u" \t12,50\u00A0€\u00A0"_s, 1250);
        row(u"208,20  €"_s, 20820);
        row(u"90,005"_s, 9001);
        row(u"0,285"_s, 29);
        row(u"1,005"_s, 101);
        row(u"24310,275"_s, 2431028);
        row(u"100.000.000.000,00"_s, LargestAmount);
        row(u"-100000000000"_s, -LargestAmount);
        row(u"100.000.000.000,004"_s, LargestAmount);
        row(u"100.000.000.000,005"_s, no_number);
        row(u"100.000.000.000,01"_s, no_number);
        row(u"1"_s + QString(400, u'0'), no_number);
        row(QString(400, u'0') + u"1,5"_s, 150);
    }
    void the_cents_of_a_text_come_from_its_digits()
    {
        QFETCH(QString, text);
        QFETCH(Cents, cents);
        QCOMPARE(Read(text), cents);
        QCOMPARE(CentsOrZero(text), cents == no_number ? 0 : cents);
    }

    void what_is_a_number_elsewhere_has_cents()
    {
        const QString signs = u"0123456789.,-+ €\tx"_s;
        QRandomGenerator random(7);
        for (int round = 0; round < 20'000; ++round) {
            QString text;
            for (int i = random.bounded(9); i > 0; --i)
                text += signs[random.bounded(signs.size())];
            QVERIFY2(CentsOf(text).has_value() == IsNumber(text), qPrintable(text));
        }
    }

    void reports_show_cents_in_groups_of_three_data()
    {
        QTest::addColumn<Cents>("cents");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("typed");
        QTest::addRow("nothing") << Cents(0) << u"0,00 €"_s << u"0,00"_s;
        QTest::addRow("a cent less") << Cents(-1) << u"-0,01 €"_s << u"-0,01"_s;
        QTest::addRow("three digits") << Cents(99999) << u"999,99 €"_s << u"999,99"_s;
        QTest::addRow("four digits") << Cents(119353) << u"1.193,53 €"_s << u"1193,53"_s;
        QTest::addRow("below zero")
            << Cents(-123456780) << u"-1.234.567,80 €"_s << u"-1234567,80"_s;
        QTest::addRow("largest") << LargestAmount << u"100.000.000.000,00 €"_s
                                 << u"100000000000,00"_s;
    }
    void reports_show_cents_in_groups_of_three()
    {
        QFETCH(Cents, cents);
        QFETCH(QString, shown);
        QFETCH(QString, typed);
        QCOMPARE(EuroText(cents), shown);
        QCOMPARE(AmountText(cents), typed);
        QCOMPARE(Read(shown), cents);
        QCOMPARE(Read(typed), cents);
    }

    void a_quotient_is_rounded_half_away_from_zero()
    {
        QCOMPARE(RoundedQuotient(18001, 2), 9001); // 90,005 is 90,01
        QCOMPARE(RoundedQuotient(-1, 2), -1); // -0,005 is -0,01
        QCOMPARE(RoundedQuotient(1, 3), 0);
        QCOMPARE(RoundedQuotient(-2, 3), -1);
        QCOMPARE(RoundedQuotient(9, 3), 3);
        QCOMPARE(RoundedQuotient(0, 5), 0);
    }
};

const TestFile<TestCents> test_file(__FILE__);
#include "test_cents.moc"
