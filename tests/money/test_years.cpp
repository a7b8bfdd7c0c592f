// The club's years side by side, and one member over the years.
#include "money/years.h"

#include "statement/statement_pages.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// A record of 16 fields: readings as "start;end;start;end".
QByteArray Record(const char* name, const char* garden, const char* readings)
{
    return QByteArray(name) + ";;;;" + garden + ";100;;0,00;0,00;0,00;0,00;" + readings + "\r\n";
}

/// A data directory with the members files given, the newest year loaded and drawn.
struct Club {
    DataFolders folders;
    MemberLists members;
    PriceSettings prices;
    StatementState statement;
    CashBookState book;
    int loaded = 0;

    void Write(int year, const QByteArray& lines)
    {
        folders.Put(u"Mitgliedsdaten%1.pz"_s.arg(year), lines);
        loaded = std::max(loaded, year);
    }

    void WritePrices(const QByteArray& ini) { folders.Put(u"Config.ini"_s, ini); }

    std::vector<ClubYear> Read()
    {
        const QString year = QString::number(loaded);
        ReadMembersFile(members, folders.files, year);
        ReadPreviousYear(members, folders.files, year);
        prices = ReadPrices(folders.files, year, 0, {}).Prices;
        BillSource source;
        source.Members = members;
        source.Prices = prices;
        source.YearText = source.LoadedYear = year;
        try {
            DrawAllPages(statement, source);
        } catch (const RuntimeError&) {
            // the drawing stops there, as in the window
        }
        return ReadYears({ folders.files, loaded, members, prices, statement, book });
    }
};

QString Described(const ClubYear& year)
{
    if (!year.Readable)
        return u"%1 unreadable"_s.arg(year.Year);
    const auto per_bill = PerBill(year);
    return u"%1: %2 members, %3 bills, %4 kWh, %5 m³, %6, %7, %8, %9"_s.arg(year.Year)
        .arg(year.Members.size())
        .arg(year.Bills)
        .arg(year.Electricity)
        .arg(year.Water)
        .arg(year.ElectricityPrice, year.WaterPrice, AmountText(year.Sum),
            per_bill ? AmountText(*per_bill) : u"-"_s);
}

QStringList Described(const std::vector<ClubYear>& years)
{
    QStringList lines;
    for (const ClubYear& year : years)
        lines += Described(year);
    return lines;
}

QStringList Described(const std::vector<MemberYear>& years)
{
    QStringList lines;
    for (const MemberYear& year : years) {
        const QString found = year.Found == Presence::There ? year.Member.Garden
            : year.Found == Presence::Missing               ? u"missing"_s
                                                            : u"unclear"_s;
        lines += QString::number(year.Year) + u' ' + found;
    }
    return lines;
}

const QByteArray two_years_prices
    = "[2025]\r\nStromkosten=0,50\r\nWasserkosten=2,00\r\nBeitrag=10,00\r\n"
      "[2026]\r\nStromkosten=0,60\r\nWasserkosten=3,00\r\nBeitrag=10,005\r\n";

} // namespace

class TestYears : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_year_is_drawn_from_its_own_lists_and_prices()
    {
        Club club;
        club.WritePrices(two_years_prices);
        club.Write(
            2025, Record("Lang;Otto", "3", "0;100;0;10") + Record("Meier;Anna", "7", ";;5;3"));
        club.Write(2026,
            Record("Lang;Otto", "3", "100;150;10;12") + Record("Meier;Anna", "7", "10;20;3;4"));
        QCOMPARE(Described(club.Read()).join(u'\n'),
            u"2025: 2 members, 2 bills, 100 kWh, 8 m³, 0,50, 2,00, 86,00, 43,00\n"
            "2026: 2 members, 2 bills, 60 kWh, 3 m³, 0,60, 3,00, -0,98, -0,49"_s);
    }

    void a_year_whose_drawing_stops_says_how_far_it_came()
    {
        Club club;
        club.WritePrices(two_years_prices);
        club.Write(2024, Record("Lang;Otto", "3", "0;1;0;1"));
        club.Write(2025, Record("Lang;Otto", "3", "0;1;0;1") + Record("Koch;Nora", "9", "0;1;0;1"));
        club.Write(2026, Record("Lang;Otto", "3", "1;x;1;1") + Record("Koch;Nora", "9", "1;2;1;1"));
        const std::vector<ClubYear> years = club.Read();
        QCOMPARE(years[1].Bills, 1);
        QCOMPARE(years[1].Members.size(), std::size_t(2));
        QVERIFY(!years[1].Members[1].Bill.has_value());
        QVERIFY(!years[1].Members[1].Electricity.has_value());
        QCOMPARE(years[2].Bills, 0);
        QVERIFY(!PerBill(years[2]).has_value());
    }

    void a_year_that_cannot_be_read_is_named_and_the_others_go_on()
    {
        Club club;
        club.Write(2023, Record("Lang;Otto", "3", "0;1;0;1"));
        club.Write(2024, "Lang;Otto;too;short\r\n");
        club.Write(2026, Record("Lang;Otto", "3", "0;1;0;1"));
        QVERIFY(QDir(club.folders.files.DataDirectory).mkdir(u"Mitgliedsdaten2025.pz"_s));
        const std::vector<ClubYear> years = club.Read();
        QCOMPARE(years.size(), std::size_t(4));
        QVERIFY(years[0].Readable);
        QCOMPARE(Described(years[1]), u"2024 unreadable"_s);
        QCOMPARE(Described(years[2]), u"2025 unreadable"_s);
        QVERIFY(years[3].Readable);
    }

    void only_files_of_years_count_and_only_the_newest_ten()
    {
        Club club;
        for (int year = 2012; year <= 2026; ++year)
            club.Write(year, Record("Lang;Otto", "3", "0;1;0;1"));
        club.folders.Put(u"Mitgliedsdaten20255.pz"_s, "");
        club.folders.Put(u"Mitgliedsdaten2025.pz.bak"_s, "");
        club.folders.Put(u"Mitgliedsdaten202a.pz"_s, "");
        club.folders.Put(u"Mitgliedsdaten2027.pz"_s, ""); // later than the loaded year
        const std::vector<ClubYear> years = club.Read();
        QCOMPARE(years.size(), std::size_t(10));
        QCOMPARE(years.front().Year, 2017);
        QCOMPARE(years.back().Year, 2026);
    }

    void nothing_is_written()
    {
        Club club;
        club.WritePrices(two_years_prices);
        club.Write(2024, Record("Lang;Otto", "3", "0;1;0;1"));
        club.Write(2026, Record("Lang;Otto", "3", "0;1;0;1"));
        const QStringList names = club.folders.Names();
        club.Read();
        QCOMPARE(club.folders.Names(), names);
        QCOMPARE(club.folders.Get(u"Config.ini"_s), two_years_prices);
    }

    void one_person_is_followed_by_surname_and_first_name_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("now");
        QTest::addColumn<QString>("found");
        QTest::addRow("another garden")
            << Record("Sieber;Ole", "3", ";;;") << Record("Sieber;Ole", "9", ";;;") << u"2024 3"_s;
        QTest::addRow("a blank behind") << Record("Sieber ;Ole", "3", ";;;")
                                        << Record("Sieber; Ole", "3", ";;;") << u"2024 3"_s;
        QTest::addRow("a small letter") << Record("sieber;Ole", "3", ";;;")
                                        << Record("Sieber;Ole", "3", ";;;") << u"2024 missing"_s;
        QTest::addRow("two of a name")
            << Record("Tietz;Rut", "5", ";;;") + Record("Tietz;Rut", "6", ";;;")
            << Record("Tietz;Rut", "05", ";;;") << u"2024 5"_s;
        QTest::addRow("two of a name, neither garden")
            << Record("Tietz;Rut", "5", ";;;") + Record("Tietz;Rut", "6", ";;;")
            << Record("Tietz;Rut", "7", ";;;") << u"2024 unclear"_s;
    }
    void one_person_is_followed_by_surname_and_first_name()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, now);
        Club club;
        club.Write(2024, before);
        club.Write(2026, now);
        QTEST(Described(MemberOverYears(club.Read(), 0)).front(), "found");
    }

    void bars_are_hundredths_of_the_largest_value()
    {
        QCOMPARE(BarLength(0, 0), 0);
        QCOMPARE(BarLength(0, 500), 0);
        QCOMPARE(BarLength(500, 500), 100);
        QCOMPARE(BarLength(1, 500'000), 1);
        QCOMPARE(BarLength(-250, 500), 50);
        QCOMPARE(BarLength(1, 200), 1); // 0,5
        QCOMPARE(BarLength(5, 200), 3); // 2,5
        QCOMPARE(BarLength(5, -200), 3);
    }
};

const TestFile<TestYears> test_file(__FILE__);
#include "test_years.moc"
