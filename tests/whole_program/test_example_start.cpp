// The whole program started over each example club: the bills of its year, its totals list, and the
// files that the start leaves behind.
#include "statement/statement_pages.h"
#include "tests/support/club.h"
#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray FileBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

/// Steps the year box to that year and presses "Laden".
void Load(TestClub& club, const QString& year)
{
    const auto* box = club.Control<QLineEdit>("Text2");
    while (box->text() > year)
        club.Control<QPushButton>("Command3(1)")->click();
    while (box->text() < year)
        club.Control<QPushButton>("Command3(0)")->click();
    club.Control<QPushButton>("Command4")->click();
}

} // namespace

class TestExampleStart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_bills_of_the_year_stand_in_the_preview_data();
    void the_bills_of_the_year_stand_in_the_preview();
    void the_start_leaves_the_expected_files_data();
    void the_start_leaves_the_expected_files();
    void a_new_member_is_reported_once_and_everything_else_is_loaded();
};

void TestExampleStart::the_bills_of_the_year_stand_in_the_preview_data()
{
    QTest::addColumn<qsizetype>("index");
    const QVector<ExampleYear> years = ExampleYears();
    for (qsizetype i = 0; i < years.size(); ++i)
        QTest::newRow(qPrintable(years[i].Club + u' ' + years[i].Year)) << i;
}

void TestExampleStart::the_bills_of_the_year_stand_in_the_preview()
{
    QFETCH(qsizetype, index);
    const ExampleYear example = ExampleYears()[index];
    TestClub club;
    club.CopyExample(example.Club);
    club.Start(example.Today);
    Load(club, example.Year);

    const StatementState& statement = club.program.Statement;
    const QVector<QStringList> expected = ExpectedTextRows(example);
    QCOMPARE(PageCount(statement), qsizetype(example.Members));
    for (qsizetype page = 0; page < expected.size(); ++page)
        QCOMPARE(TextRows(statement, page), expected[page]);
    QCOMPARE(statement.StatementTotals, ExpectedTotals(example));
    const QString pages = QString::number(example.Members);
    QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"1"_s);
    QCOMPARE(club.Control<QLineEdit>("Text9")->text(), pages);
    QCOMPARE(club.Control<QLineEdit>("Text8(0)")->text(), u"1"_s);
    QCOMPARE(club.Control<QLineEdit>("Text8(1)")->text(), pages);
}

void TestExampleStart::the_start_leaves_the_expected_files_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QDate>("day");
    const QDir examples(QStringLiteral(PARZELLO_FIXTURES "/examples"));
    for (const ExampleYear& example : ExampleYears()) {
        if (example.Year == QString::number(example.Today.year()))
            QTest::newRow(qPrintable(example.Club)) << example.Club << example.Today;
    }
}

/// Files that are expected to change hold those bytes, all others are untouched, and nothing else
/// lies in the folder.
void TestExampleStart::the_start_leaves_the_expected_files()
{
    QFETCH(QString, name);
    QFETCH(QDate, day);
    TestClub club;
    club.CopyExample(name);
    club.Start(day);
    club.Control<QPushButton>("Command15")->click(); // the cash box begins its year when looked at

    const QDir brought(QStringLiteral(PARZELLO_FIXTURES "/examples/") + name);
    const QDir made = brought.exists(u"expected"_s)
        ? QDir(brought.filePath(u"expected/files"_s))
        : QDir(QStringLiteral(PARZELLO_FIXTURES "/ledger_views/") + name + u"/files"_s);
    for (const QString& file : brought.entryList(QDir::Files)) {
        if (!made.exists(file))
            QCOMPARE(club.Read(file), FileBytes(brought.filePath(file)));
    }
    for (const QString& file : made.entryList(QDir::Files))
        QCOMPARE(club.Read(file), FileBytes(made.filePath(file)));
    QStringList left = QDir(club.program.Files.DataDirectory)
                           .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    for (const QString& file : brought.entryList(QDir::Files) + made.entryList(QDir::Files))
        left.removeAll(file);
    QCOMPARE(left, QStringList());
}

void TestExampleStart::a_new_member_is_reported_once_and_everything_else_is_loaded()
{
    TestClub club;
    club.CopyExample(u"new-member"_s);
    club.Start(QDate(2018, 11, 26));
    QCOMPARE(club.BoxTexts(),
        QStringList(u"Kleingarten Parzello: Laufzeitfehler 9: Index außerhalb des gültigen"
                    " Bereichs"_s));
    QVERIFY(club.Boxes[0].detail.startsWith(
        u"Datei „Mitgliedsdaten2017.pz“, Zeile 7, Mitglied „Vogt,Bernd“: "_s));
    QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), u"Krüger"_s); // member 0 is shown
    QCOMPARE(club.program.Members.RecordList.size(), 7);
    QVERIFY(!club.program.CashBook.Bank.Lines.isEmpty());
}

const TestFile<TestExampleStart> test_file(__FILE__);
#include "test_example_start.moc"
