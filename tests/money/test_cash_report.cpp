// The year's cash report: opening balance, kinds, transfers, closing balance.
#include "money/cash_report.h"

#include "money/booking_kinds.h"
#include "tests/support/test_file.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Ledgers of 2026 and one member, Lang.
MoneySource Club(const QStringList& bank, const QStringList& cash_box)
{
    MoneySource source;
    source.Year = 2026;
    source.Years.Known.WithMembers = { 2026 };
    source.Years.Indexes[2026] = MakeMemberIndex({ u"Lang;Otto;;;;3"_s, u"Meier;Anna;;;;7"_s });
    source.Ledgers = { ReadBookings(Account::Bank, 2026, bank),
        ReadBookings(Account::CashBox, 2026, cash_box) };
    return source;
}

const QStringList example_bank { u"02.01.2026;Übertrag Saldo 2025;500,00;0,00"_s,
    u"03.02.2026;Gartenzeitung 2026;0,00;24,00"_s, u"04.02.2026;Gartenzeitung;0,00;12,00"_s,
    u"05.03.2026;Bareinzahlung;80,00;0,00"_s, u"20.11.2026;Abrechnung Lang;60,00;0,00"_s,
    u"21.11.2026;Abrechnung Lang;0,00;5,00"_s };
const QStringList example_cash_box { u"02.01.2026;Übertrag Saldo 2025;90,00;0,00"_s,
    u"04.03.2026;Kuchenverkauf;80,00;0,00"_s, u"05.03.2026;zur Bank;0,00;80,00"_s };

QString Described(const std::vector<KindSum>& kinds)
{
    QStringList texts;
    for (const KindSum& kind : kinds)
        texts += kind.name + u' ' + AmountText(kind.sum);
    return texts.join(u", "_s);
}

QString Described(const AccountReport& account)
{
    return u"%1 + [%2] %3 - [%4] %5 + %6 - %7 = %8"_s.arg(AmountText(account.opening),
        Described(account.income), AmountText(account.income_sum), Described(account.expenses),
        AmountText(account.expense_sum), AmountText(account.transferred_in),
        AmountText(account.transferred_out), AmountText(account.closing));
}

Cents SumOf(const std::vector<KindSum>& kinds)
{
    Cents sum = 0;
    for (const KindSum& kind : kinds)
        sum += kind.sum;
    return sum;
}

Cents ClosingByItsParts(const AccountReport& account)
{
    return account.opening + account.income_sum + account.transferred_in - account.expense_sum
        - account.transferred_out;
}

QString RandomText(QRandomGenerator& random)
{
    const QStringList texts { u"Übertrag Saldo 2025"_s, u"Anfangsbestand"_s, u"Abrechnung Lang"_s,
        u"Abrechnung Meier"_s, u"Abrechnung Niemand"_s, u"Sonderabrechnung Lang"_s, u"Porto"_s,
        u"porto 2026"_s, u"Barabhebung"_s, u"Einzahlung"_s, u"zur Bank"_s, u""_s, u"Spende"_s,
        u"Gartenzeitung 2026"_s, u"GARTENZEITUNG"_s };
    return texts[random.bounded(texts.size())];
}

QString RandomAmount(QRandomGenerator& random)
{
    const QStringList amounts { u"0,00"_s, u"0,00"_s, u"5"_s, u"5,00"_s, u"10,00"_s, u"10,005"_s,
        u"-5,00"_s, u"1.234,56"_s, u"kein"_s, u""_s, u"0,01"_s, u"99999,99"_s };
    return amounts[random.bounded(amounts.size())];
}

QStringList RandomLedger(QRandomGenerator& random)
{
    QStringList lines;
    for (int i = random.bounded(30); i > 0; --i) {
        const QString day = QString::number(1 + random.bounded(3));
        lines += u"0%1.03.2026;%2;%3;%4"_s.arg(
            day, RandomText(random), RandomAmount(random), RandomAmount(random));
    }
    return lines;
}

} // namespace

class TestCashReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_year_is_opened_sorted_by_kinds_and_closed()
    {
        MoneySource source = Club(example_bank, example_cash_box);
        const CashReport report = MakeCashReport(source);
        QCOMPARE(Described(report.Bank),
            u"500,00 + [Abrechnungen der Mitglieder 60,00] 60,00 - [Gartenzeitung 36,00, "
            "Erstattungen an Mitglieder 5,00] 41,00 + 80,00 - 0,00 = 599,00"_s);
        QCOMPARE(Described(report.CashBox),
            u"90,00 + [Kuchenverkauf 80,00] 80,00 - [] 0,00 + 0,00 - 80,00 = 90,00"_s);
        QCOMPARE(report.Bank.opening + report.CashBox.opening, 59000);
        QCOMPARE(report.Bank.income_sum + report.CashBox.income_sum, 14000);
        QCOMPARE(report.Bank.expense_sum + report.CashBox.expense_sum, 4100);
        QCOMPARE(report.Bank.closing + report.CashBox.closing, 68900);
        QCOMPARE(report.Transfers.found.size(), std::size_t(1));
        QVERIFY(report.Transfers.unclear.empty());
        QCOMPARE(report.OddDates, 0);
    }

    void two_deposits_for_one_withdrawal_are_no_transfer()
    {
        QStringList bank = example_bank;
        bank.insert(4, u"05.03.2026;Bareinzahlung;80,00;0,00"_s);
        MoneySource source = Club(bank, example_cash_box);
        const CashReport report = MakeCashReport(source);
        QVERIFY(report.Transfers.found.empty());
        QCOMPARE(report.Transfers.unclear.size(), std::size_t(1));
        QCOMPARE(report.Transfers.unclear[0].withdrawals, 1);
        QCOMPARE(report.Transfers.unclear[0].deposits, 2);
        QCOMPARE(report.Transfers.unclear[0].amount, 8000);
        QCOMPARE(report.Bank.income_sum, 22000);
        QCOMPARE(report.CashBox.expense_sum, 8000);
    }

    void which_pairs_are_transfers_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<bool>("is_transfer");
        const auto row = [](const char* name, const QString& from, const QString& to, bool is) {
            QTest::addRow("%s", name) << from << to << is;
        };
        row("equal texts", u"05.03.2026;Wechsel;0,00;50,00"_s, u"05.03.2026;WECHSEL;50;0,00"_s,
            true);
        row("a gift and a bill", u"05.03.2026;Strom;0,00;50,00"_s,
            u"05.03.2026;Spende;50,00;0,00"_s, false);
        row("a word", u"05.03.2026;Strom;0,00;50,00"_s, u"05.03.2026;in bar;50,00;0,00"_s, true);
        row("another day", u"05.03.2026;bar;0,00;50,00"_s, u"06.03.2026;bar;50,00;0,00"_s, false);
        row("the same day, written otherwise", u"5.3.26;bar;0,00;50,00"_s,
            u"05.03.2026;bar;50,00;0,00"_s, true);
        row("another amount", u"05.03.2026;bar;0,00;50,00"_s, u"05.03.2026;bar;50,01;0,00"_s,
            false);
        row("payments of two members", u"05.03.2026;Abrechnung Lang bar;0,00;50,00"_s,
            u"05.03.2026;Abrechnung Meier bar;50,00;0,00"_s, false);
        row("a payment handed on", u"05.03.2026;Abrechnung Lang;0,00;50,00"_s,
            u"05.03.2026;ABRECHNUNG LANG;50,00;0,00"_s, true);
        row("a payment and a cash deposit", u"05.03.2026;Bareinzahlung;0,00;50,00"_s,
            u"05.03.2026;Abrechnung Lang;50,00;0,00"_s, false);
        row("both columns filled", u"05.03.2026;bar;1,00;50,00"_s, u"05.03.2026;bar;50,00;0,00"_s,
            false);
        row("an opening booking", u"05.03.2026;bar;0,00;50,00"_s,
            u"05.03.2026;Anfangsbestand;50,00;0,00"_s, false);
    }
    void which_pairs_are_transfers()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(bool, is_transfer);
        const auto ledger = [](Account account, const QString& line) {
            return ReadBookings(account, 2026, { line });
        };
        const TransferSearch there
            = FindTransfers(ledger(Account::Bank, from), ledger(Account::CashBox, to));
        const TransferSearch back
            = FindTransfers(ledger(Account::Bank, to), ledger(Account::CashBox, from));
        QCOMPARE(!there.found.empty(), is_transfer);
        QCOMPARE(!back.found.empty(), is_transfer);
    }

    void words_of_a_transfer_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("has_word");
        for (const char* text : { "bar", "zur Bank", "Umbuchung", "Übertrag", "Handkasse", "Kasse",
                 "Barkasse", "Konto", "Girokonto", "Sparkasse", "Bargeld", "Barabhebung",
                 "Bareinzahlung", "Barauszahlung", "Abhebung", "Einzahlung", "Auszahlung",
                 "Geldautomat", "Einlage", "Entnahme", "Transfer", "Bank-Einzahlung" })
            QTest::addRow("%s", text) << QString::fromUtf8(text) << true;
        for (const char* text :
            { "Barth", "Gartenbank", "Bankgebühr", "Bar-Reparatur", "Spende", "Vorkasse" })
            QTest::addRow("%s", text) << QString::fromUtf8(text) << false;
    }
    void words_of_a_transfer()
    {
        QFETCH(QString, text);
        QTEST(HasTransferWord(Folded(text)), "has_word");
    }

    void texts_that_open_an_account_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("opens");
        for (const char* text : { "Übertrag Saldo 2025", "uebertrag  SALDO", " Anfangsbestand",
                 "Anfangssaldo 2026", "Startguthaben", "Start-Saldo", "Anfangsstand Kasse",
                 "Guthaben", "aktuelles Guthaben", "Guthaben 2026", "Aktuelles Guthaben 2025" })
            QTest::addRow("%s", text) << QString::fromUtf8(text) << true;
        for (const char* text : { "Übertrag Handkasse", "Guthaben Meier", "Übertrag Saldos",
                 "Anfang", "Startgeld", "Anfangsbestandteil", "mein Guthaben", "Guthaben 26", "" })
            QTest::addRow("<%s>", text) << QString::fromUtf8(text) << false;
    }
    void texts_that_open_an_account()
    {
        QFETCH(QString, text);
        QTEST(IsOpeningText(Folded(text)), "opens");
    }

    void the_kind_is_the_text_without_its_last_year_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("kind");
        QTest::addRow("year") << u"Gartenzeitung 2026"_s << u"Gartenzeitung"_s;
        QTest::addRow("one year only") << u"Pacht 2025 2026"_s << u"Pacht 2025"_s;
        QTest::addRow("year in front") << u"2026 Pacht"_s << u"2026 Pacht"_s;
        QTest::addRow("blanks") << u"  BV \u00A0 Pacht  "_s << u"BV Pacht"_s;
        QTest::addRow("no year") << u"Zähler 12026"_s << u"Zähler 12026"_s;
        QTest::addRow("a date") << u"Porto 03.01.2026"_s << u"Porto 03.01.2026"_s;
        QTest::addRow("only a year") << u" 2026"_s << u"ohne Text"_s;
        QTest::addRow("nothing") << u" "_s << u"ohne Text"_s;
    }
    void the_kind_is_the_text_without_its_last_year()
    {
        QFETCH(QString, text);
        QTEST(KindText(text), "kind");
    }

    void kinds_stand_by_size_and_then_by_name()
    {
        MoneySource source
            = Club({ u"01.02.2026;Zaun;0,00;5,00"_s, u"01.02.2026;ÄPFEL;0,00;5,00"_s,
                       u"02.02.2026;Äpfel 2026;0,00;0,00"_s, u"03.02.2026;Wasser;0,00;9,00"_s,
                       u"03.02.2026;zaun 2025;-1,00;0,00"_s,
                       u"04.02.2026;Abrechnung Niemand;3,00;0,00"_s },
                {});
        const CashReport report = MakeCashReport(source);
        QCOMPARE(Described(report.Bank.expenses), u"Wasser 9,00, ÄPFEL 5,00, Zaun 5,00"_s);
        QCOMPARE(Described(report.Bank.income), u"Abrechnung Niemand 3,00, Zaun -1,00"_s);
    }

    void dates_of_other_years_and_no_dates_are_counted()
    {
        MoneySource source = Club({ u"01.02.2025;Zaun;0,00;5,00"_s, u"31.02.2026;Zaun;0,00;5,00"_s,
                                      u"01.02.2026;Zaun;0,00;5,00"_s },
            { u";Zaun;0,00;5,00"_s });
        QCOMPARE(MakeCashReport(source).OddDates, 3);
    }

    void the_parts_of_a_thousand_random_years_add_up()
    {
        QRandomGenerator random(20261231);
        int transfers = 0;
        for (int round = 0; round < 1000; ++round) {
            MoneySource source = Club(RandomLedger(random), RandomLedger(random));
            const CashReport report = MakeCashReport(source);
            for (const AccountReport* account : { &report.Bank, &report.CashBox }) {
                QCOMPARE(SumOf(account->income), account->income_sum);
                QCOMPARE(SumOf(account->expenses), account->expense_sum);
                QCOMPARE(ClosingByItsParts(*account), account->closing);
            }
            QCOMPARE(report.Bank.opening + report.CashBox.opening + report.Bank.income_sum
                    + report.CashBox.income_sum - report.Bank.expense_sum
                    - report.CashBox.expense_sum,
                report.Bank.closing + report.CashBox.closing);
            QCOMPARE(report.Bank.transferred_in, report.CashBox.transferred_out);
            QCOMPARE(report.CashBox.transferred_in, report.Bank.transferred_out);
            transfers += static_cast<int>(report.Transfers.found.size());
        }
        QVERIFY2(transfers > 100, qPrintable(QString::number(transfers)));
    }
};

const TestFile<TestCashReport> test_file(__FILE__);
#include "test_cash_report.moc"
