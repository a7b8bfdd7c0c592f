// What a member has paid of the bill, and which payments nobody is sure about.
#include "money/open_items.h"

#include "data/dates.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Members of 2025 and 2026 with bills of 2026: 100,00 in 3 instalments, 60,00, none drawn, -5,00
/// and 0,00. The bill of 2026 is out from the 21st of October on.
MoneySource Club(const QStringList& bank, const QStringList& cash_box = {})
{
    MoneySource source;
    source.Year = 2026;
    source.Records = { u"Lang;Otto;;;;3;; 3"_s, u"Langer;Eva;;;;4;;1"_s, u"Meier;Anna;;;;7;;2"_s,
        u"Meier;Bernd;;;;12;;3"_s, u"Koch;Nora"_s };
    source.Bills = { 10000, 6000, std::nullopt, -500, 0 };
    source.Years.Known.WithMembers = { 2025, 2026 };
    source.Years.Known.BillStarts
        = { { 2025, QDate(2025, 10, 21) }, { 2026, QDate(2026, 10, 21) } };
    source.Years.ReadRecords = [records = source.Records](int) { return records; };
    source.Years.Indexes[2026] = MakeMemberIndex(source.Records);
    source.Ledgers = { ReadBookings(Account::Bank, 2026, bank),
        ReadBookings(Account::CashBox, 2026, cash_box) };
    return source;
}

OpenItem Item(std::optional<Cents> bill, Cents paid, int instalments = 0)
{
    OpenItem item;
    item.bill = bill;
    item.paid = paid;
    item.instalments = instalments;
    return item;
}

QStringList Described(const std::vector<UnassignedPayment>& payments)
{
    QStringList lines;
    for (const UnassignedPayment& payment : payments)
        lines += u"%1 %2 %3 %4 %5"_s.arg(AccountName(payment.booking, 2026), payment.booking.text,
            EuroText(AmountOf(payment.booking)), payment.reason, payment.names.join(u" · "_s));
    return lines;
}

} // namespace

class TestOpenItems : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_state_says_how_bill_and_payments_stand_data()
    {
        QTest::addColumn<qint64>("bill");
        QTest::addColumn<qint64>("paid");
        QTest::addColumn<QString>("state");
        QTest::addRow("nothing paid") << 100LL << 0LL << u"offen"_s;
        QTest::addRow("more refunded than paid") << 100LL << -1LL << u"offen"_s;
        QTest::addRow("a part") << 100LL << 99LL << u"teilweise bezahlt"_s;
        QTest::addRow("all") << 100LL << 100LL << u"bezahlt"_s;
        QTest::addRow("too much") << 100LL << 101LL << u"zu viel gezahlt"_s;
        QTest::addRow("credit") << -100LL << 0LL << u"Guthaben"_s;
        QTest::addRow("credit and payment") << -100LL << 5LL << u"Guthaben"_s;
        QTest::addRow("credit refunded") << -100LL << -100LL << u"ausgeglichen"_s;
        QTest::addRow("credit refunded twice") << -100LL << -200LL << u"offen"_s;
        QTest::addRow("nothing to pay") << 0LL << 0LL << u"nichts zu zahlen"_s;
        QTest::addRow("paid all the same") << 0LL << 1LL << u"zu viel gezahlt"_s;
    }
    void the_state_says_how_bill_and_payments_stand()
    {
        QFETCH(qint64, bill);
        QFETCH(qint64, paid);
        QTEST(StateOf(Item(bill, paid)), "state");
    }

    void a_bill_that_is_not_drawn_is_no_bill_of_nothing()
    {
        QCOMPARE(StateOf(Item(std::nullopt, 500)), u"keine Rechnung"_s);
        QCOMPARE(RestOf(Item(std::nullopt, 500)), 0);
        QCOMPARE(PaidText(Item(std::nullopt, 500)), u"bezahlt 5,00 €, keine Rechnung"_s);
    }

    void odd_cents_are_in_the_first_instalment_data()
    {
        QTest::addColumn<qint64>("bill");
        QTest::addColumn<qint64>("paid");
        QTest::addColumn<QString>("text");
        QTest::addRow("even") << 19353LL << 0LL << u"3 × 64,51 €, 0 von 3 bezahlt"_s;
        QTest::addRow("100,00") << 10000LL << 0LL << u"33,34 € + 2 × 33,33 €, 0 von 3 bezahlt"_s;
        QTest::addRow("66,66") << 10000LL << 6666LL << u"33,34 € + 2 × 33,33 €, 1 von 3 bezahlt"_s;
        QTest::addRow("66,67") << 10000LL << 6667LL << u"33,34 € + 2 × 33,33 €, 2 von 3 bezahlt"_s;
        QTest::addRow("all") << 10000LL << 10000LL << u"33,34 € + 2 × 33,33 €, 3 von 3 bezahlt"_s;
        QTest::addRow("0,05") << 5LL << 3LL << u"0,03 € + 2 × 0,01 €, 1 von 3 bezahlt"_s;
    }
    void odd_cents_are_in_the_first_instalment()
    {
        QFETCH(qint64, bill);
        QFETCH(qint64, paid);
        QTEST(InstalmentsText(Item(bill, paid, 3)), "text");
        QCOMPARE(InstalmentsText(Item(bill, paid)), QString());
    }

    void instalments_are_a_whole_number_from_2_to_12_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("instalments");
        for (const int number : { 2, 3, 12 })
            QTest::addRow("%d", number) << QString::number(number) << number;
        QTest::addRow("blanks") << u" 4 "_s << 4;
        for (const char* field : { "", "0", "1", "13", "-3", "3,0", "drei" })
            QTest::addRow("<%s>", field) << QString::fromLatin1(field) << 0;
    }
    void instalments_are_a_whole_number_from_2_to_12()
    {
        QFETCH(QString, field);
        MoneySource source = Club({});
        source.Records[0] = u"Lang;Otto;;;;3;;"_s + field;
        QTEST(FindOpenItems(source).Members[0].instalments, "instalments");
        source.Bills[0] = 0;
        QCOMPARE(FindOpenItems(source).Members[0].instalments, 0);
    }

    void the_tool_tip_names_paid_bill_rest_and_instalments()
    {
        QCOMPARE(PaidText(Item(13574, 4525, 3)),
            u"bezahlt 45,25 € von 135,74 €, Rest 90,49 €, 3 Raten"_s);
        QCOMPARE(PaidText(Item(6000, 7000)), u"bezahlt 70,00 € von 60,00 €, Rest -10,00 €"_s);
    }

    void payments_of_both_accounts_and_all_years_are_added_up()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Lang;40,005;0,00"_s,
                                      u"21.11.2026;Abrechnung Lang;0,00;5,00"_s,
                                      u"31.11.2026;Abrechnung Langer;7,00;0,00"_s },
            { u"25.11.2026;Abrechnung Lang;20;0,00"_s });
        source.Ledgers.insert(source.Ledgers.begin(),
            ReadBookings(Account::Bank, 2025, { u"30.12.2025;Abrechnung 2026 Lang;1,00;0,00"_s }));
        source.Ledgers.push_back(
            ReadBookings(Account::Bank, 2027, { u"02.01.2027;Abrechnung Lang 2026;2,00;0,00"_s }));
        const OpenItems items = FindOpenItems(source);
        QCOMPARE(items.Members[0].paid, 4001 - 500 + 2000 + 100 + 200);
        QCOMPARE(items.Members[0].last_payment, QDate(2027, 1, 2));
        QCOMPARE(RestOf(items.Members[0]), 10000 - 5801);
        QCOMPARE(items.Members[1].paid, 700);
        QVERIFY(!items.Members[1].last_payment.has_value()); // no such day
        QVERIFY(items.Unassigned.empty());
    }

    void what_fits_several_or_none_is_listed_and_counted_for_nobody()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Meier;10,00;0,00"_s,
                                      u"20.11.2026;Abrechnung Schulze;11,00;0,00"_s,
                                      u"20.11.2026;Abrechnung Schulze;0,00;12,00"_s,
                                      u"20.11.2026;Abrechnung 2025/26 Lang;13,00;0,00"_s,
                                      u"20.11.2026;Abrechnung 2019 Lang;14,00;0,00"_s,
                                      u"20.11.2026;Zahlung Lang;17,00;0,00"_s },
            { u"20.11.2026;Sonderabrechnung Lang;15,00;0,00"_s,
                u"20.11.2026;Abrechnungsgebühr Lang;16,00;0,00"_s });
        source.Ledgers.push_back(ReadBookings(Account::Bank, 2027,
            { u"05.01.2027;Abrechnung 2026 Meier;18,00;0,00"_s,
                u"05.01.2027;Abrechnung 2019 Lang;19,00;0,00"_s }));
        const OpenItems items = FindOpenItems(source);
        QCOMPARE(Described(items.Unassigned).join(u'\n'),
            u"Konto Abrechnung Meier 10,00 € mehrere Mitglieder Meier,Anna · Meier,Bernd\n"
            "Konto Abrechnung Schulze 11,00 € kein Mitglied \n"
            "Konto Abrechnung 2025/26 Lang 13,00 € mehrere Jahre \n"
            "Konto Abrechnung 2019 Lang 14,00 € kein Mitgliederverzeichnis \n"
            "Handkasse Sonderabrechnung Lang 15,00 € Sonderabrechnung \n"
            "Handkasse Abrechnungsgebühr Lang 16,00 € Wort nicht erkannt \n"
            "Konto 2027 Abrechnung 2026 Meier 18,00 € mehrere Mitglieder Meier,Anna · Meier,Bernd"_s);
        for (const OpenItem& item : items.Members)
            QCOMPARE(item.paid, 0);
    }

    void payments_of_other_years_are_counted_and_told_apart()
    {
        MoneySource source = Club({ u"09.01.2026;Abrechnung Lang;100,00;0,00"_s,
            u"10.01.2026;Abrechnung Langer;110,00;0,00"_s,
            u"11.01.2026;Abrechnung Meier;1,00;0,00"_s });
        const OpenItems items = FindOpenItems(source);
        QCOMPARE(items.OtherYears, 2);
        QCOMPARE(items.OtherYearsSum, 21000);
        QVERIFY(items.Unassigned.empty());
        QCOMPARE(items.Members[0].paid, 0);
    }

    void an_amount_that_is_no_number_counts_nothing_and_is_listed()
    {
        MoneySource source = Club(
            { u"20.11.2026;Abrechnung Lang;1.5;0,00"_s, u"20.11.2026;Abrechnung Lang;2,00"_s });
        const OpenItems items = FindOpenItems(source);
        QCOMPARE(items.Members[0].paid, 200);
        QCOMPARE(items.NoAmounts.size(), std::size_t(2));
        QCOMPARE(items.NoAmounts[0].stored, u"1.5"_s);
        QCOMPARE(items.NoAmounts[0].booking.line, 1);
        QCOMPARE(items.NoAmounts[1].stored, u"leer"_s);
        QCOMPARE(items.NoAmounts[1].booking.line, 2);
    }

    void claims_and_credits_are_not_set_off_against_each_other()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Langer;70,00;0,00"_s,
            u"20.11.2026;Abrechnung Meier Anna;3,00;0,00"_s });
        const OpenTotals totals = TotalsOf(FindOpenItems(source));
        QCOMPARE(totals.Claims, 10000);
        QCOMPARE(totals.Debtors, 1);
        QCOMPARE(totals.Credits, 1000 + 500);
    }
};

const TestFile<TestOpenItems> test_file(__FILE__);
#include "test_open_items.moc"
