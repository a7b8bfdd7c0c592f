// The ledgers of the example clubs, row by row. Most tables stand beside the examples; those in
// fixtures/ledger_views were computed apart from this program, in single precision.
#include "tests/support/club.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString fixtures = QStringLiteral(PARZELLO_FIXTURES);

QString CaseValue(const QString& folder, const QString& key)
{
    for (const TableRow& row : ReadTable(folder + u"/case.tsv"_s)) {
        if (row[u"key"_s] == key)
            return row[u"value"_s];
    }
    return {};
}

QStringList ShownRow(const QTableView* view, int row)
{
    QStringList cells { view->model()->index(row, 0).data(Qt::UserRole).toString() };
    for (int column = 0; column < view->model()->columnCount(); ++column)
        cells += view->model()->index(row, column).data().toString();
    return cells;
}

QStringList ExpectedRow(const TableRow& row)
{
    QStringList cells;
    for (const QString& column : { u"key"_s, u"Buchungsdatum"_s, u"Vorgang"_s, u"Einzahlung"_s,
             u"Abheben"_s, u"Kontostand"_s })
        cells += CellText(row[column]);
    return cells;
}

void CompareView(const TestClub& club, const QString& table)
{
    const auto* view = club.Control<QTableView>("ListView1");
    const QVector<TableRow> expected = ReadTable(table);
    QCOMPARE(view->model()->rowCount(), int(expected.size()));
    for (int row = 0; row < expected.size(); ++row)
        QCOMPARE(ShownRow(view, row), ExpectedRow(expected[row]));
}

QString RgbOf(const QColor& colour)
{
    return u"%1,%2,%3"_s.arg(colour.red()).arg(colour.green()).arg(colour.blue());
}

void CompareSummary(const TestClub& club, const TableRow& expected)
{
    const auto* balance = club.Control<QLabel>("BalanceLabel");
    QCOMPARE(club.Control<QLabel>("Label21")->text(), CellText(expected[u"title"_s]));
    QCOMPARE(club.Control<QPushButton>("Command15")->text(), CellText(expected[u"button"_s]));
    QCOMPARE(balance->text(), CellText(expected[u"balance"_s]));
    QCOMPARE(RgbOf(balance->palette().color(QPalette::WindowText)), expected[u"colour"_s]);
    QCOMPARE(
        club.Control<QTableView>("ListView1")->model()->rowCount(), expected[u"rows"_s].toInt());
}

void CompareAccounts(const TestClub& club, const QString& folder)
{
    const QVector<TableRow> summary = ReadTable(folder + u"/ledger_summary.tsv"_s);
    CompareView(club, folder + u"/ledger_bank.tsv"_s);
    CompareSummary(club, summary[0]);
    club.Control<QPushButton>("Command15")->click();
    CompareView(club, folder + u"/ledger_cash.tsv"_s);
    CompareSummary(club, summary[1]);
}

void CompareFiles(const TestClub& club, const QString& folder)
{
    const QDir files(folder + u"/files"_s);
    for (const QString& name : files.entryList({ u"Konto*"_s, u"HandKasse*"_s }, QDir::Files)) {
        QFile expected(files.filePath(name));
        QVERIFY(expected.open(QIODevice::ReadOnly));
        QCOMPARE(club.Read(name), expected.readAll());
    }
}

} // namespace

class TestLedgerExamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void both_accounts_look_as_expected_data()
    {
        QTest::addColumn<QString>("example");
        QTest::addColumn<QString>("expected");
        for (const QString& name :
            { u"contacts"_s, u"old-ledger"_s, u"ordinary-year"_s, u"year-change"_s })
            QTest::newRow(qPrintable(name))
                << name << fixtures + u"/examples/"_s + name + u"/expected"_s;
        for (const QString& name :
            QDir(fixtures + u"/ledger_views"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            QTest::newRow(qPrintable(name)) << name << fixtures + u"/ledger_views/"_s + name;
    }
    void both_accounts_look_as_expected()
    {
        QFETCH(const QString, example);
        QFETCH(const QString, expected);
        TestClub club;
        club.CopyExample(example);
        club.Start(QDate::fromString(CaseValue(expected, u"day"_s), Qt::ISODate));
        CompareAccounts(club, expected);
        CompareFiles(club, expected);
    }

    void years_loaded_one_after_another_look_as_expected()
    {
        const QString expected = fixtures + u"/examples/prepayment/expected"_s;
        TestClub club;
        club.CopyExample(u"prepayment"_s);
        club.Start(QDate::fromString(CaseValue(expected, u"day"_s), Qt::ISODate));
        const QStringList years = QDir(expected).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(years.size(), 4);
        for (const QString& year : years) {
            club.program.Year.YearText = year;
            club.Control<QPushButton>("Command4")->click();
            CompareAccounts(club, expected + u'/' + year);
        }
    }
};

const TestFile<TestLedgerExamples> test_file(__FILE__);
#include "test_ledger_examples.moc"
