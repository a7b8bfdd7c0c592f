// What the money reports are made of: the loaded year from memory, the other years from their
// files.
#include "money/money_reading.h"

#include "statement/statement_pages.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// The year 2016 in memory, with one member, and a data directory.
struct Club {
    DataFolders folders;
    MemberLists members;
    PriceSettings prices;
    StatementState statement;
    CashBookState book;

    MoneySource Read() const
    {
        return ReadMoneySource({ folders.files, 2016, members, prices, statement, book });
    }
};

QStringList LedgersOf(const MoneySource& source)
{
    QStringList ledgers;
    for (const MoneyLedger& ledger : source.Ledgers)
        ledgers += (ledger.account == Account::Bank ? u"Konto%1"_s : u"Kasse%1"_s).arg(ledger.year);
    return ledgers;
}

} // namespace

class TestMoneyReading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void other_years_are_read_from_the_year_before_on()
    {
        Club club;
        for (const char* name :
            { "Konto2014.pz", "Konto2015.pz", "HandKasse2017.pz", "Konto2016.pz" })
            club.folders.Put(QLatin1String(name), "01.02.2015;Anfang;1,00;0,00\r\n");
        const MoneySource source = club.Read();
        QCOMPARE(LedgersOf(source),
            QStringList({ u"Konto2015"_s, u"Konto2016"_s, u"Kasse2016"_s, u"Kasse2017"_s }));
        QVERIFY(!source.CashBoxHasFile);
        QVERIFY(source.Unreadable.isEmpty());
    }

    void a_ledger_that_cannot_be_read_is_named_and_the_others_go_on()
    {
        Club club;
        club.folders.Put(u"Konto2015.pz"_s, "01.02.2015;a;1,00;0,00\n02.02.2015;b;1,00;0,00\r\n");
        club.folders.Put(u"Konto2017.pz"_s, "01.02.2017;c;1,00;0,00\r\n");
        club.book.CashBox.Unread = true;
        const MoneySource source = club.Read();
        QCOMPARE(source.Unreadable, QStringList({ u"Konto2015.pz"_s, u"HandKasse2016.pz"_s }));
        QCOMPARE(
            LedgersOf(source), QStringList({ u"Konto2016"_s, u"Kasse2016"_s, u"Konto2017"_s }));
    }

    void bookings_that_are_in_no_file_yet_are_counted()
    {
        Club club;
        const QString stored = u"01.02.2016;Pacht;10,00;0,00"_s;
        club.folders.Put(u"Konto2016.pz"_s, stored.toLatin1() + "\r\n");
        club.book.Bank.Lines = { stored, u"02.02.2016;Wasser;0,00;5,00"_s };
        QVERIFY(!club.Read().Unsaved.Any);
        club.book.Bank.Unsaved = true;
        club.book.CashBox.Lines = { u"03.02.2016;Kuchen;4,00;0,00"_s };
        club.book.CashBox.Unsaved = true;
        QVERIFY(club.Read().Unsaved.Any);
        QCOMPARE(club.Read().Unsaved.Count, std::optional(2));
    }

    void a_changed_line_makes_their_number_unknown()
    {
        Club club;
        club.folders.Put(u"Konto2016.pz"_s, "01.02.2016;Pacht;10,00;0,00\r\n");
        club.book.Bank.Lines = { u"01.02.2016;Pacht;11,00;0,00"_s };
        club.book.Bank.Unsaved = true;
        const MoneySource source = club.Read();
        QVERIFY(source.Unsaved.Any);
        QVERIFY(!source.Unsaved.Count.has_value());
    }

    void only_names_with_four_digits_are_years()
    {
        Club club;
        for (const char* name : { "Konto2016.pz", "Konto2009.pz", "Konto209a.pz",
                 "Konto2016.pz.alt", "Konto20166.pz", "AltKonto2015.pz" })
            club.folders.Put(QLatin1String(name), {});
        QCOMPARE(YearsOfFiles(club.folders.files, u"Konto"_s), QVector<int>({ 2009, 2016 }));
        DataFiles nowhere = club.folders.files;
        nowhere.DataDirectory += u"/fehlt"_s;
        QVERIFY(YearsOfFiles(nowhere, u"Konto"_s).isEmpty());
        nowhere.DataDirectory = club.folders.Path(u"Konto2016.pz"_s); // no folder at all
        QVERIFY(YearsOfFiles(nowhere, u"Konto"_s).isEmpty());
    }

    void bills_are_those_that_were_drawn_and_their_days_those_of_each_year()
    {
        Club club;
        const QString record = u"Lang;Otto;;;;3;100;;0,00;0,00;0,00;0,00;;;;"_s;
        club.members.RecordList = { record, u"Kurz;Karl"_s, record };
        club.members.NameList = { u"Lang,Otto"_s, u"Kurz,Karl"_s, u"Lang,Otto"_s };
        club.prices.MembershipFee = u"40,00"_s;
        club.prices.BillingDate = u"20.11.2016"_s;
        club.folders.Put(u"Config.ini"_s, "[2015]\r\nAbrechnungsdatum=19.11.2015\r\n");
        club.folders.Put(u"Konto2015.pz"_s, "01.02.2015;Anfang;1,00;0,00\r\n");
        BillSource bills;
        bills.Members = club.members;
        bills.Prices = club.prices;
        bills.YearText = bills.LoadedYear = u"2016"_s;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, DrawAllPages(club.statement, bills));
        const MoneySource source = club.Read();
        QCOMPARE(source.Bills.size(), std::size_t { 3 });
        QCOMPARE(source.Bills[0], std::optional<Cents>(4000));
        QVERIFY(!source.Bills[1].has_value() && !source.Bills[2].has_value());
        QCOMPARE(source.Years.Known.BillStarts,
            (QHash<int, QDate> { { 2015, QDate(2015, 11, 19) }, { 2016, QDate(2016, 11, 20) } }));
    }

    void members_of_another_year_are_read_when_they_are_asked_for()
    {
        Club club;
        club.folders.Put(u"Mitgliedsdaten2015.pz"_s, "Lang;Otto\r\n");
        const MoneySource source = club.Read();
        QCOMPARE(source.Years.Known.WithMembers, (QSet<int> { 2015, 2016 }));
        QCOMPARE(source.Years.ReadRecords(2015), QStringList { u"Lang;Otto"_s });
        QVERIFY_THROWS_EXCEPTION(RuntimeError, source.Years.ReadRecords(2014));
    }

    void the_cash_box_is_summed_as_it_is_shown()
    {
        Club club;
        club.book.CashBox.Lines
            = { u"03.02.2016;Kuchen;4,00;0,00"_s, u"01.02.2016;Anfang;10,50;0,00"_s };
        const LoadedClub loaded { club.folders.files, 2016, club.members, club.prices,
            club.statement, club.book };
        QCOMPARE(LedgerLines(loaded, Account::CashBox).first(), u"01.02.2016;Anfang;10,50;0,00"_s);
        QCOMPARE(ShownBalance(loaded, Account::CashBox), u"14,50 €"_s);
    }
};

const TestFile<TestMoneyReading> test_file(__FILE__);
#include "test_money_reading.moc"
