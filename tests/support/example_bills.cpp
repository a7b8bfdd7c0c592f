#include "tests/support/example_bills.h"

#include "data/dates.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "data/records.h"
#include "settings/ini_file.h"
#include "statement/statement_pages.h"
#include "tests/support/tables.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString fixtures = QStringLiteral(PARZELLO_FIXTURES);

QString Examples(const QString& below) { return fixtures + u"/examples/"_s + below; }
QString Golden(const QString& below) { return fixtures + u"/bills/"_s + below; }

/// Where a file of the club lies after its first start.
DataFiles FolderWith(const ExampleYear& example, const QString& name)
{
    const DataFiles made { Examples(example.Club + u"/expected/files"_s), {} };
    return FileExists(made, name) ? made : DataFiles { Examples(example.Club), {} };
}

QStringList LinesOf(const ExampleYear& example, const QString& name)
{
    return ReadLines(FolderWith(example, name), name);
}

PriceSettings Prices(const ExampleYear& example)
{
    PriceSettings prices;
    const DataFiles files = FolderWith(example, PriceSettingsFile);
    if (!FileExists(files, PriceSettingsFile)) {
        const QString nothing = u"0,00"_s;
        return { nothing, nothing, nothing, nothing, nothing, nothing, nothing, nothing, {},
            nothing, 0, 0, {}, {} };
    }
    const auto read = [&](const QString& year, const QString& key) {
        return ReadIni(files, year, key, PriceSettingsFile);
    };
    prices.ElectricityPrice = read(example.Year, u"Stromkosten"_s);
    prices.WaterPrice = read(example.Year, u"Wasserkosten"_s);
    prices.FlatEnergyCharge = read(example.Year, u"Energiepauschale"_s);
    prices.MembershipFee = read(example.Year, u"Beitrag"_s);
    prices.Lease = read(example.Year, u"Pacht"_s);
    prices.PropertyTax = read(example.Year, u"Steuer"_s);
    prices.AreaContribution = read(example.Year, u"Fläche"_s);
    prices.PaymentDeadline = read(example.Year, u"Überweisdatum"_s);
    prices.ElectricityPrepayment = read(example.Year, u"Vorauszahlung Strom"_s) == u"1" ? 1 : 0;
    prices.WaterPrepayment = read(example.Year, u"Vorauszahlung Wasser"_s) == u"1" ? 1 : 0;
    prices.PreviousElectricityPrice = read(PreviousYear(example.Year), u"Stromkosten"_s);
    prices.PreviousWaterPrice = read(PreviousYear(example.Year), u"Wasserkosten"_s);
    return prices;
}

BankSettings Bank(const ExampleYear& example)
{
    const DataFiles files { Examples(example.Club), {} };
    if (!FileExists(files, BankSettingsFile))
        return { {}, {}, {}, {}, {}, {}, u"Frau"_s };
    const auto read
        = [&](const QString& key) { return ReadIni(files, u"Daten"_s, key, BankSettingsFile); };
    return { read(u"Bankname"_s), read(u"BLZ"_s), read(u"Kontonummer"_s), read(u"Name1"_s),
        read(u"Name2"_s), read(u"Name"_s), read(u"Anrede"_s) };
}

QString NameOf(const ExampleYear& example)
{
    const DataFiles files { Examples(example.Club), {} };
    return FileExists(files, ClubNameFile) ? ReadLines(files, ClubNameFile).value(0) : QString();
}

QStringList TableLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", qPrintable(path));
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeFirst(); // the header
    lines.removeLast(); // behind the last line feed
    return lines;
}

} // namespace

QVector<ExampleYear> ExampleYears()
{
    const QString expected = u"/expected"_s;
    const auto brought = [&](const QString& club, int year, const QDate& today, int members) {
        return ExampleYear { club, QString::number(year), today, Examples(club + expected), members,
            true };
    };
    const auto worked_out = [&](const QString& club, int year, const QDate& today, int members) {
        return ExampleYear { club, QString::number(year), today, Golden(club), members, true };
    };
    QVector<ExampleYear> years {
        worked_out(u"first-year"_s, 2016, QDate(2016, 11, 25), 6),
        brought(u"ordinary-year"_s, 2017, QDate(2017, 11, 20), 8),
        worked_out(u"new-member"_s, 2018, QDate(2018, 11, 26), 7),
        brought(u"year-change"_s, 2017, QDate(2017, 1, 2), 8),
        brought(u"old-ledger"_s, 2016, QDate(2016, 12, 5), 5),
        worked_out(u"ledger-minus"_s, 2017, QDate(2017, 3, 5), 3),
        brought(u"contacts"_s, 2017, QDate(2017, 11, 27), 5),
        worked_out(u"contacts-missing"_s, 2016, QDate(2016, 11, 28), 3),
        worked_out(u"large-club"_s, 2018, QDate(2018, 12, 20), 120),
        worked_out(u"no-ledger-yet"_s, 2017, QDate(2017, 2, 14), 3),
        worked_out(u"gaps"_s, 2017, QDate(2017, 11, 28), 6),
    };
    years[2].EveryMemberHasABill = false;
    for (int year = 2014; year <= 2017; ++year) {
        years += brought(u"prepayment"_s, year, QDate(2017, 12, 1), 4);
        years.last().Tables += u"/%1"_s.arg(year);
    }
    return years;
}

BillSource SourceOf(const ExampleYear& example)
{
    BillSource source;
    source.ClubName = NameOf(example);
    source.YearText = example.Year;
    source.LoadedYear = example.Year;
    source.Members.RecordList = LinesOf(example, MembersFileName(example.Year));
    const QString before = MembersFileName(PreviousYear(example.Year));
    source.Members.PreviousYearRead = FileExists(FolderWith(example, before), before);
    source.Members.PreviousYearMissing = !source.Members.PreviousYearRead;
    if (source.Members.PreviousYearRead)
        source.Members.PreviousYearList = LinesOf(example, before);
    source.Prices = Prices(example);
    source.Bank = Bank(example);
    source.Today = example.Today;
    return source;
}

StatementState PagesOf(const ExampleYear& example)
{
    StatementState statement;
    try {
        DrawAllPages(statement, SourceOf(example));
        if (!example.EveryMemberHasABill)
            qFatal("the drawing of %s should have stopped", qPrintable(example.Club));
    } catch (const RuntimeError& error) {
        if (example.EveryMemberHasABill)
            qFatal("%s: %s", qPrintable(example.Club), qPrintable(ErrorSentence(error)));
    }
    return statement;
}

QStringList TextRows(const StatementState& statement, qsizetype page)
{
    const PageContents contents = ContentsOfPage(statement, page);
    QStringList rows;
    for (const PageItems* items : { contents.fixed, &contents.member }) {
        if (items == nullptr)
            continue;
        for (const QString& line : DescribePage(*items)) {
            if (line.startsWith(u"text\t"))
                rows += line.mid(5);
        }
    }
    return rows;
}

QVector<QStringList> ExpectedTextRows(const ExampleYear& example)
{
    QVector<QStringList> pages(example.Members);
    for (const QString& line : TableLines(example.Tables + u"/bills.tsv"_s)) {
        const qsizetype tab = line.indexOf(u'\t');
        pages[line.left(tab).toInt()] += CellText(line.mid(tab + 1));
    }
    return pages;
}

QStringList ExpectedTotals(const ExampleYear& example)
{
    QStringList totals;
    for (const QString& line : TableLines(example.Tables + u"/totals.tsv"_s)) {
        if (line.section(u'\t', 0, 0).toInt() != totals.size())
            qFatal("totals of %s are out of order", qPrintable(example.Club));
        totals += line.section(u'\t', 1, 1);
    }
    return totals;
}

BillSource OneMember(const QString& record, const QString& previous_record)
{
    BillSource source;
    source.ClubName = u"Verein"_s;
    source.YearText = u"2016"_s;
    source.LoadedYear = u"2016"_s;
    source.Members.RecordList = { record };
    source.Members.PreviousYearRead = !previous_record.isNull();
    if (!previous_record.isNull())
        source.Members.PreviousYearList = { previous_record };
    source.Prices.ElectricityPrice = u"0,25"_s;
    source.Prices.WaterPrice = u"2,00"_s;
    source.Prices.FlatEnergyCharge = u"10,00"_s;
    source.Prices.MembershipFee = u"36,00"_s;
    source.Prices.Lease = u"0,08"_s;
    source.Prices.PropertyTax = u"0,02"_s;
    source.Prices.AreaContribution = u"0,03"_s;
    source.Prices.PreviousElectricityPrice = u"0,20"_s;
    source.Prices.PreviousWaterPrice = u"1,50"_s;
    source.Today = QDate(2016, 11, 25);
    return source;
}
