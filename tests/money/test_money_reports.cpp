// The sentences and pages of the money reports, on ledgers made up for them.
#include "money/cash_book_report.h"
#include "money/cash_report_hints.h"
#include "money/cash_report_text.h"
#include "money/open_items_report.h"
#include "money/years_report.h"
#include "report/report_text.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString opened_bank = u"02.01.2026;Übertrag Saldo 2025;500,00;0,00"_s;
const QString opened_cash_box = u"02.01.2026;Übertrag Saldo 2025;90,00;0,00"_s;

/// The year 2026 with one member, Lang, whose bill of 100,00 is out since October.
MoneySource Club(const QStringList& bank, const QStringList& cash_box)
{
    MoneySource source;
    source.Year = 2026;
    source.Records = { u"Lang;Otto;;;;3;;"_s };
    source.Bills = { 10000 };
    source.Years.Known.WithMembers = { 2025, 2026 };
    source.Years.Known.BillStarts = { { 2026, QDate(2026, 10, 21) } };
    source.Years.ReadRecords = [records = source.Records](int) { return records; };
    source.Years.Indexes[2026] = MakeMemberIndex(source.Records);
    source.Ledgers = { ReadBookings(Account::Bank, 2026, bank),
        ReadBookings(Account::CashBox, 2026, cash_box) };
    source.CashBoxHasFile = true;
    return source;
}

/// With balances as the ledgers say, of a treasurer who looks in 2027.
CashReportContext Context(const MoneySource& source)
{
    const auto shown = [&source](Account account) {
        return EuroText(BalanceOf(*LedgerOfYear(source, account, 2026)));
    };
    return { u"Kleingartenverein Birkenried e.V."_s, u"Volksbank Birkenried"_s,
        u"Theda Hollerbusch"_s, QDate(2027, 1, 5), shown(Account::Bank), shown(Account::CashBox) };
}

QStringList Hints(MoneySource source)
{
    const CashReport report = MakeCashReport(source);
    return CashReportHints(source, report, Context(source));
}

QStringList Lines(const Report& report) { return TextOfReport(report).split(u'\n'); }

QStringList CashReportLines(MoneySource source, const ReportChoices& choices = {})
{
    return Lines(MakeCashReportText(source, Context(source), choices));
}

QStringList OpenItemsLines(MoneySource source, const ReportChoices& choices = {})
{
    return Lines(MakeOpenItemsReport(source, choices));
}

ReportChoices Filtered(const QString& filter)
{
    ReportChoices choices;
    TakeChoice(choices, FilterLink(filter).control);
    return choices;
}

} // namespace

class TestMoneyReports : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_cash_report_says_what_its_reader_must_know_data()
    {
        QTest::addColumn<QStringList>("bank");
        QTest::addColumn<QStringList>("cash_box");
        QTest::addColumn<QString>("hints");
        const QStringList bank { opened_bank };
        const QStringList cash_box { opened_cash_box };
        QTest::addRow("nothing to say") << bank << cash_box << QString();
        QTest::addRow("no opening") << QStringList { u"02.02.2026;Porto;0,00;1,00"_s } << cash_box
                                    << u"Konto: Kein Übertrag gebucht: Der Anfangsbestand ist mit "
                                       "0,00 € gerechnet."_s;
        QTest::addRow("two openings")
            << bank << QStringList { opened_cash_box, u"03.01.2026;Guthaben;1,00;0,00"_s }
            << u"Handkasse: Der Anfangsbestand besteht aus 2 Buchungen."_s;
        QTest::addRow("unclear transfer")
            << QStringList { opened_bank, u"05.03.2026;Bareinzahlung;80,00;0,00"_s,
                   u"05.03.2026;Bareinzahlung;80,00;0,00"_s }
            << QStringList { opened_cash_box, u"05.03.2026;zur Bank;0,00;80,00"_s }
            << u"Am 05.03.2026 stehen sich 1 Abhebung und 2 Einzahlungen über 80,00 € gegenüber: "
               "nicht als Umbuchung gerechnet."_s;
        QTest::addRow("one odd date")
            << QStringList { opened_bank, u"31.02.2026;Porto;0,00;1,00"_s } << cash_box
            << u"1 Buchung trägt ein Datum aus einem anderen Jahr oder kein gültiges Datum."_s;
        QTest::addRow("odd dates")
            << QStringList { opened_bank, u"31.02.2026;Porto;0,00;1,00"_s }
            << QStringList { opened_cash_box, u"01.02.2025;Porto;0,00;1,00"_s }
            << u"2 Buchungen tragen ein Datum aus einem anderen Jahr oder kein gültiges Datum."_s;
        QTest::addRow("one amount") << QStringList { opened_bank, u"01.02.2026;Porto;0,00;1.5"_s }
                                    << cash_box << u"1 Betrag ist keine Zahl und zählt 0,00 €."_s;
        QTest::addRow("amounts") << QStringList { opened_bank, u"01.02.2026;Porto;;1.5"_s }
                                 << cash_box << u"2 Beträge sind keine Zahl und zählen 0,00 €."_s;
    }
    void the_cash_report_says_what_its_reader_must_know()
    {
        QFETCH(QStringList, bank);
        QFETCH(QStringList, cash_box);
        QTEST(Hints(Club(bank, cash_box)).join(u'\n'), "hints");
    }

    void the_year_before_must_end_as_this_one_begins()
    {
        MoneySource source = Club({ opened_bank }, { opened_cash_box });
        source.Ledgers.push_back(
            ReadBookings(Account::Bank, 2025, { u"02.01.2025;Anfang;525,00;0,00"_s }));
        source.Ledgers.push_back(
            ReadBookings(Account::CashBox, 2025, { u"02.01.2025;Anfang;90,00;0,00"_s }));
        QCOMPARE(Hints(source),
            QStringList {
                u"Konto: Das Vorjahr endet mit 525,00 €, der Anfangsbestand ist 500,00 €."_s });
    }

    void a_cash_box_that_is_not_kept_is_said()
    {
        MoneySource source = Club({ opened_bank }, {});
        source.CashBoxHasFile = false;
        QCOMPARE(Hints(source), QStringList { u"Keine Handkasse geführt."_s });
        source.Ledgers.push_back(
            ReadBookings(Account::CashBox, 2025, { u"02.01.2025;Anfang;85,00;0,00"_s }));
        QCOMPARE(Hints(source),
            QStringList {
                u"Für 2026 ist noch keine Handkasse angelegt; 2025 endete sie mit 85,00 €."_s });
    }

    void bookings_that_are_not_saved_and_files_that_are_not_readable_are_said()
    {
        MoneySource source = Club({ opened_bank }, { opened_cash_box });
        source.Unsaved = { true, 2 };
        source.Unreadable = { u"Konto2025.pz"_s };
        QCOMPARE(Hints(source),
            (QStringList { u"Enthält 2 noch nicht gespeicherte Buchungen."_s,
                u"Konto2025.pz ist nicht lesbar und fehlt in diesem Bericht."_s }));
        source.Unsaved.Count.reset();
        QCOMPARE(Hints(source).first(), u"Enthält noch nicht gespeicherte Buchungen."_s);
        source.Unsaved.Count = 1;
        QCOMPARE(OpenItemsLines(source)[2], u"Enthält 1 noch nicht gespeicherte Buchung."_s);
    }

    void what_the_shown_balance_differs_by_is_said()
    {
        MoneySource source = Club({ opened_bank }, { opened_cash_box });
        const CashReport report = MakeCashReport(source);
        CashReportContext context = Context(source);
        context.ShownBankBalance = u"500,01 €"_s;
        QCOMPARE(CashReportHints(source, report, context),
            QStringList { u"Konto: Unter „Kontoführung“ steht 500,01 €; genau gerechnet sind es "
                          "500,00 €. Der Kassenbericht rechnet auf den Cent genau."_s });
    }

    void the_period_ends_with_the_year_or_today()
    {
        MoneySource source = Club({ opened_bank }, {});
        QCOMPARE(CashReportLines(source)[2], u"Zeitraum 01.01.2026 bis 31.12.2026"_s);
        CashReportContext context = Context(source);
        context.Today = QDate(2026, 12, 20);
        QCOMPARE(Lines(MakeCashReportText(source, context, {}))[2],
            u"Zeitraum 01.01.2026 bis 20.12.2026 (Jahr nicht abgeschlossen)"_s);
    }

    void an_empty_year_has_one_sentence_and_the_auditors_page()
    {
        const QStringList lines = CashReportLines(Club({}, {}));
        QVERIFY(lines.contains(u"Für 2026 ist nichts gebucht."_s));
        QVERIFY(!lines.contains(u"Konto Volksbank Birkenried"_s));
        QVERIFY(lines.contains(u"Kassenprüfung 2026"_s));
        QVERIFY(lines.contains(u"Bestand zusammen: 0,00 €\t"_s));
        QCOMPARE(
            Lines(MakeCashBookReport(Club({}, {}), {})).at(1), u"Für 2026 ist nichts gebucht."_s);
    }

    void an_account_without_income_reads_keine()
    {
        const QStringList lines = CashReportLines(Club({ opened_bank }, { opened_cash_box }));
        QVERIFY(lines.contains(u"Einnahmen\tkeine\t"_s));
        QVERIFY(!lines.join(u'\n').contains(u"Umbuchungen von"_s));
    }

    void transfers_are_listed_and_not_counted()
    {
        const QStringList lines
            = CashReportLines(Club({ opened_bank, u"05.03.2026;Bareinzahlung;80,00;0,00"_s },
                { opened_cash_box, u"05.03.2026;zur Bank;0,00;80,00"_s }));
        QVERIFY(lines.contains(u"Umbuchungen von der Handkasse\t\t80,00 €"_s));
        QVERIFY(lines.contains(u"Umbuchungen zum Konto\t\t80,00 €"_s));
        QVERIFY(lines.contains(u"+ Einnahmen\t\t0,00 €"_s));
        QVERIFY(
            lines.contains(u"05.03.2026\t80,00 €\tHandkasse\tKonto\tzur Bank\tBareinzahlung"_s));
    }

    void the_link_of_a_kind_opens_its_bookings()
    {
        const MoneySource source
            = Club({ opened_bank, u"05.03.2026;Porto;0,00;7,80"_s, u"06.03.2026;Zaun;0,00;9,00"_s,
                       u"07.03.2026;PORTO 2026;0,00;1,80"_s },
                {});
        QVERIFY(!CashReportLines(source).contains(u"Buchungen: Porto"_s));
        const QStringList lines = CashReportLines(source, Filtered(u"Konto/Ausgaben/0"_s));
        const qsizetype heading = lines.indexOf(u"Buchungen: Porto"_s);
        QVERIFY(heading > 0);
        QCOMPARE(lines.mid(heading + 3, 2),
            (QStringList { u"05.03.2026\tKonto\tPorto\t0,00 €\t7,80 €"_s,
                u"07.03.2026\tKonto\tPORTO 2026\t0,00 €\t1,80 €"_s }));
    }

    void only_open_bills_are_shown_on_demand()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Lang;100,00;0,00"_s }, {});
        source.Records += u"Koch;Nora;;;;4;;"_s;
        source.Bills.push_back(5000);
        source.Years.Indexes[2026] = MakeMemberIndex(source.Records);
        const QString all = OpenItemsLines(source).join(u'\n');
        QVERIFY(all.contains(u"3\tLang,Otto\t100,00 €\t100,00 €\t0,00 €\t\t20.11.2026\tbezahlt"_s));
        QVERIFY(all.contains(u"\tSumme\t150,00 €\t100,00 €\t50,00 €"_s));
        const QString open = OpenItemsLines(source, Filtered(u"open"_s)).join(u'\n');
        QVERIFY(!open.contains(u"Lang,Otto"_s));
        QVERIFY(open.contains(u"4\tKoch,Nora\t50,00 €\t0,00 €\t50,00 €\t\t\toffen"_s));
        QVERIFY(open.contains(u"\tSumme\t50,00 €\t0,00 €\t50,00 €"_s));
    }

    void a_bill_that_is_not_drawn_has_no_amount()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Lang;1,00;0,00"_s }, {});
        source.Bills = { std::nullopt };
        QVERIFY(OpenItemsLines(source).contains(
            u"3\tLang,Otto\t\t1,00 €\t\t\t20.11.2026\tkeine Rechnung"_s));
        QVERIFY(OpenItemsLines(source).contains(u"\tSumme\t0,00 €\t1,00 €\t0,00 €\t\t\t"_s));
    }

    void it_says_from_when_on_payments_count_for_the_years_bill()
    {
        MoneySource source = Club({}, {});
        QCOMPARE(OpenItemsLines(source)[1],
            u"Zahlungen ohne Jahr im Text zählen ab dem 21.10.2026 zur Abrechnung 2026, davor zur "
            "Abrechnung 2025."_s);
        source.Years.Known.BillStarts.clear();
        QCOMPARE(OpenItemsLines(source)[1],
            u"Für 2026 steht weder ein Abrechnungsdatum noch ein Termin fest: Zahlungen ohne Jahr "
            "im Text zählen zur Abrechnung 2025."_s);
        source.Years.Known.WithMembers = { 2026 };
        QVERIFY(OpenItemsLines(source)[1].startsWith(u"Gezeigt:"_s));
    }

    void payments_of_other_years_are_counted_together()
    {
        const QString two = OpenItemsLines(Club({ u"09.01.2026;Abrechnung Lang;100,00;0,00"_s,
                                                    u"10.01.2026;Abrechnung Lang;110,00;0,00"_s },
                                               {}))
                                .join(u'\n');
        QVERIFY(two.contains(
            u"2 Zahlungen über zusammen 210,00 € gehören zu Abrechnungen anderer Jahre."_s));
        const QString one
            = OpenItemsLines(Club({ u"09.01.2026;Abrechnung Lang;70,00;0,00"_s }, {})).join(u'\n');
        QVERIFY(
            one.contains(u"1 Zahlung über 70,00 € gehört zur Abrechnung eines anderen Jahres."_s));
    }

    void pages_of_the_cash_book_carry_their_sums_over()
    {
        QStringList lines { opened_bank };
        for (int i = 1; i < 10; ++i)
            lines += u"0%1.02.2026;Porto;0,00;1,00"_s.arg(i);
        const PageRoom room { 10, 20 };
        const QStringList text = Lines(MakeCashBookReport(Club(lines, {}), u"Volksbank"_s, room));
        const qsizetype page_end = text.indexOf(u"="_s);
        QCOMPARE(text[page_end - 2], u"4\t03.02.2026\tPorto\t\t1,00 €\t497,00 €"_s);
        QCOMPARE(text[page_end - 1], u"\t\tÜbertrag\t500,00 €\t3,00 €\t497,00 €"_s);
        QCOMPARE(text[page_end + 2], u"\t\tÜbertrag\t500,00 €\t3,00 €\t497,00 €"_s);
        QCOMPARE(text[page_end + 3], u"5\t04.02.2026\tPorto\t\t1,00 €\t496,00 €"_s);
        QVERIFY(text.contains(u"\t\tSumme\t500,00 €\t9,00 €\t491,00 €"_s));
    }

    void the_cash_book_says_what_is_missing_and_what_is_no_number()
    {
        MoneySource source = Club({ opened_bank, u"05.03.2026;Porto;;1.5"_s }, {});
        source.Unsaved = { true, 2 };
        source.Unreadable = { u"HandKasse2026.pz"_s };
        const QStringList lines = Lines(MakeCashBookReport(source, {}));
        QCOMPARE(lines.mid(0, 4),
            (QStringList { u"Kassenbuch 2026"_s, u"Enthält 2 noch nicht gespeicherte Buchungen."_s,
                u"HandKasse2026.pz ist nicht lesbar und fehlt in diesem Bericht."_s, u"Konto"_s }));
        QVERIFY2(lines.contains(u"2\t05.03.2026\tPorto\tleer\t1.5\t500,00 €"_s),
            qPrintable(lines.join(u'\n')));
    }

    void a_booking_of_several_lines_takes_their_room()
    {
        QStringList lines;
        for (int i = 0; i < 6; ++i)
            lines += u"01.02.2026;"_s + QString(45, u'x') + u";0,00;1,00"_s;
        const QStringList text
            = Lines(MakeCashBookReport(Club(lines, {}), {}, PageRoom { 12, 20 }));
        QCOMPARE(text.filter(u"Übertrag"_s).size(), 2); // 2 + 4 of them
    }

    void an_unreadable_year_and_a_year_without_all_bills_are_marked()
    {
        ClubYear before;
        before.Year = 2024;
        before.Readable = false;
        ClubYear year;
        year.Year = 2025;
        year.Members.resize(11);
        year.Bills = 7;
        year.Electricity = -50;
        year.Sum = 700;
        const Report report = MakeYearsReport({ before, year }, 2025, {});
        const QStringList lines = Lines(report);
        QCOMPARE(lines[2], u"2024 nicht lesbar\t\t\t\t\t\t\t\t\t\t"_s);
        QCOMPARE(lines[3],
            u"2025 (7 von 11 Abrechnungen)\t11\t-50\t##########\t0\t\t\t\t7,00 €\t##########\t"
            "1,00 €"_s);
        const auto& cells = std::get<ReportTable>(report.items[1]).rows[1].cells;
        QVERIFY(cells[3].bar_look == BarLook::Warning);
        QVERIFY(cells[9].bar_look == BarLook::Pale);
    }

    void a_member_is_chosen_by_a_link()
    {
        ClubYear year;
        year.Year = 2025;
        year.Members = { { u"Lang"_s, u"Otto"_s, u"3"_s, 5, 2, 1234 },
            { u"Koch"_s, u"Nora"_s, u"4"_s, {}, {}, {} } };
        year.Bills = 1;
        ClubYear before;
        before.Year = 2023;
        before.Members = { year.Members[0] };
        before.Bills = 1;
        const std::vector<ClubYear> years { before, year };
        const auto lines = [&years](const QString& filter) {
            return Lines(MakeYearsReport(years, 2025, Filtered(filter))).join(u'\n');
        };
        QVERIFY(lines({}).contains(u"Mitglied wählen …"_s));
        QVERIFY(lines(u"choose"_s).contains(u"Lang,Otto · Koch,Nora"_s));
        QVERIFY(lines(u"member:0"_s)
                    .contains(u"Lang,Otto\nJahr\tGarten\tStrom KWh\tWasser m³\t"
                              "Rechnung\n2023\t3\t5\t2\t12,34 €\n"
                              "2025\t3\t5\t2\t12,34 €\n"_s));
        QVERIFY(lines(u"member:1"_s).contains(u"2023\t–\t–\t–\t–\n2025\t4\t\t\t\n"_s));
        QVERIFY(lines(u"member:7"_s).contains(u"Mitglied wählen …"_s));
    }

    void a_member_of_whom_there_were_two_is_not_guessed()
    {
        ClubYear year;
        year.Year = 2025;
        year.Members = { { u"Lang"_s, u"Otto"_s, u"3"_s, 5, 2, 1234 } };
        ClubYear before;
        before.Year = 2024;
        before.Members = { { u"Lang"_s, u"Otto"_s, u"7"_s, 1, 1, 100 },
            { u"Lang"_s, u"Otto"_s, u"8"_s, 1, 1, 200 } };
        const QString text
            = Lines(MakeYearsReport({ before, year }, 2025, Filtered(u"member:0"_s))).join(u'\n');
        QVERIFY(text.contains(u"\n2024\tnicht eindeutig\t\t\t\n2025\t3\t5\t2\t12,34 €\n"_s));
    }

    void without_any_year_there_is_one_sentence()
    {
        QCOMPARE(Lines(MakeYearsReport({}, 2025, {})).at(1),
            u"Bis 2025 gibt es kein Mitgliederverzeichnis."_s);
    }
};

const TestFile<TestMoneyReports> test_file(__FILE__);
#include "test_money_reports.moc"
