// What goes into the entry fields.
#include "cashbook/booking_entry.h"

#include "cashbook/texts.h"
#include "data/runtime_error.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestBookingEntry : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_recurring_payees_stand_in_their_order()
    {
        QCOMPARE(RecurringPayees,
            QStringList({ u"Eon Avacon"_s, u"Steuern (Stadt)"_s, u"Eon Avacon Wasser"_s,
                u"Gartenzeitung"_s, u"BV Mitglieds/Vers.Beiträge"_s, u"BV Pacht"_s }));
    }

    void yearly_payees_carry_the_year_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0 << u"Eon Avacon"_s;
        QTest::newRow("1") << 1 << u"Steuern (Stadt)"_s;
        QTest::newRow("2") << 2 << u"Eon Avacon Wasser"_s;
        QTest::newRow("3") << 3 << u"Gartenzeitung 2017"_s;
        QTest::newRow("4") << 4 << u"BV Mitglieds/Vers.Beiträge 2017"_s;
        QTest::newRow("5") << 5 << u"BV Pacht 2017"_s;
    }
    void yearly_payees_carry_the_year()
    {
        QFETCH(const int, position);
        QFETCH(const QString, text);
        QCOMPARE(TextForPayee(position, u"2017"_s), text);
    }

    void a_payment_names_the_surname_up_to_its_first_blank_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << u"Meier,Anna"_s << u"Abrechnung Meier"_s;
        QTest::newRow("blank in the surname") << u"van Dijk,Anna"_s << u"Abrechnung van"_s;
        QTest::newRow("blank in the first name") << u"Lang,Anna Maria"_s << u"Abrechnung Lang"_s;
        QTest::newRow("second member of that name")
            << u"Schulze2,Anna"_s << u"Abrechnung Schulze2"_s;
        QTest::newRow("blank in front") << u" Meier,Anna"_s << u"Abrechnung "_s;
        QTest::newRow("no comma") << u"Meier"_s << u"Abrechnung Meier"_s;
        QTest::newRow("nothing") << u","_s << u"Abrechnung "_s;
    }
    void a_payment_names_the_surname_up_to_its_first_blank()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        QCOMPARE(ProposePayment(name, {}, {}).text, text);
    }

    void the_deposit_is_the_total_with_two_decimals_data()
    {
        QTest::addColumn<QString>("total");
        QTest::addColumn<QString>("deposit");
        QTest::newRow("no total") << u""_s << u"0,00"_s;
        QTest::newRow("whole euros") << u"36"_s << u"36,00"_s;
        QTest::newRow("one decimal") << u"208,2"_s << u"208,20"_s;
        QTest::newRow("two decimals") << u"173,66"_s << u"173,66"_s;
        QTest::newRow("beyond the digits of a single") << u"278937,1"_s << u"278937,10"_s;
        QTest::newRow("negative") << u"-48,5"_s << u"-48,50"_s;
        QTest::newRow("tiny") << u"1,5E-05"_s << u"0,00"_s;
        QTest::newRow("tiny and negative") << u"-1,5E-05"_s << u"0,00"_s;
        QTest::newRow("huge") << u"1,5E+09"_s << u"1500000000,00"_s;
    }
    void the_deposit_is_the_total_with_two_decimals()
    {
        QFETCH(const QString, total);
        QFETCH(const QString, deposit);
        QCOMPARE(ProposePayment(u"Meier,Anna"_s, total, u"3"_s).deposit, deposit);
    }

    void the_note_counts_the_instalments()
    {
        QCOMPARE(ProposePayment(u"Meier,Anna"_s, u"36"_s, u"3"_s).note, u"3 Raten"_s);
        QCOMPARE(ProposePayment(u"Meier,Anna"_s, u"36"_s, {}).note, u" Raten"_s);
    }

    void a_total_that_is_no_number_names_the_member()
    {
        try {
            ProposePayment(u"Meier,Anna"_s, u"abc"_s, {});
            QFAIL("nothing was thrown");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.kind, ErrorKind::TypeMismatch);
            QCOMPARE(error.where.member, u"Meier,Anna"_s);
            QCOMPARE(error.where.content, u"abc"_s);
        }
    }

    void a_row_gives_its_stored_texts_unformatted()
    {
        const LedgerEntry fields = EntryOfLine(u"3.2.16;Text;1,5;abc;9,99"_s);
        QCOMPARE(fields.date, u"3.2.16"_s);
        QCOMPARE(fields.text, u"Text"_s);
        QCOMPARE(fields.deposit, u"1,5"_s);
        QCOMPARE(fields.withdrawal, u"abc"_s);
        QCOMPARE(EntryOfLine(u"3.2.16"_s).withdrawal, u""_s);
    }

    void a_booking_is_joined_as_typed()
    {
        QCOMPARE(LineOfEntry({ u"1.2.3"_s, u"a;b "_s, u"x"_s, u""_s }), u"1.2.3;a;b ;x;"_s);
    }

    void only_date_and_text_are_required()
    {
        QVERIFY(IsComplete({ u"x"_s, u"y"_s, {}, {} }));
        QVERIFY(!IsComplete({ {}, u"y"_s, u"1,00"_s, u"1,00"_s }));
        QVERIFY(!IsComplete({ u"x"_s, {}, u"1,00"_s, u"1,00"_s }));
    }
};

const TestFile<TestBookingEntry> test_file(__FILE__);
#include "test_booking_entry.moc"
