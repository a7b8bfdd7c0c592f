// A start after a crash: what a save had noted is in its file before anything is read. Whoever
// reads the file past the program (a backup by hand, another program) finds the new content too.
#include "data/redo_record.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray empty_readings = ";0,00;0,00;0,00;0,00;;;;\r\n";
const QByteArray old_members = "Meier;Anna;;;;1;;" + empty_readings;
const QByteArray new_members = old_members + "Lang;Ida;;;;2;;" + empty_readings;
const QByteArray old_bank = "03.01.2017;Pacht 2017;50,00;0,00\r\n";
const QByteArray new_bank = old_bank + "04.02.2017;Wasserwerk;0,00;20,00\r\n";
const QByteArray old_cash = "05.01.2017;Porto;0,00;1,00\r\n";
const QByteArray new_cash = old_cash + "06.01.2017;Papier;0,00;2,00\r\n";
const QByteArray old_prices = "[2017]\r\nStromkosten=0,28\r\n";
const QByteArray new_prices = "[2017]\r\nStromkosten=0,31\r\n";
const QByteArray old_name = "KGV Alt\r\n";
const QByteArray new_name = "KGV Neu\r\n";

/// What lies in the file, and what an interrupted save had noted for it.
struct Unfinished {
    QString name;
    QByteArray old_content;
    QByteArray new_content;
};

const QList<Unfinished> all {
    { u"Mitgliedsdaten2017.pz"_s, old_members, new_members },
    { u"Konto2017.pz"_s, old_bank, new_bank },
    { u"HandKasse2017.pz"_s, old_cash, new_cash },
    { u"Config.ini"_s, old_prices, new_prices },
    { u"V.dat"_s, old_name, new_name },
};

void Note(const TestClub& club, const QString& name, const QByteArray& content)
{
    QCOMPARE(NoteRewrite(club.program.Files.StateDirectory, { name, content }), Fault::None);
}

QStringList Records(const TestClub& club)
{
    return QDir(club.program.Files.StateDirectory).entryList(QDir::Files | QDir::Hidden);
}

QStringList Names(const TestClub& club)
{
    QStringList names;
    const auto* list = club.Control<QListWidget>("List1");
    for (int row = 0; row < list->count(); ++row)
        names += list->item(row)->text();
    return names;
}

/// What the window shows of each of the five files.
QStringList Shown(const TestClub& club)
{
    const auto* ledger = club.Control<QTableView>("ListView1")->model();
    return { Names(club).join(u' '), QString::number(ledger->rowCount()),
        QString::number(club.program.CashBook.CashBox.Lines.size()),
        club.Control<QLineEdit>("Text4(0)")->text(), club.Control<QLabel>("Label1(1)")->text() };
}

const QStringList all_old { u"Meier,Anna"_s, u"1"_s, u"1"_s, u"0,28"_s, u"KGV Alt"_s };
const QStringList all_new { u"Meier,Anna Lang,Ida"_s, u"2"_s, u"2"_s, u"0,31"_s, u"KGV Neu"_s };

/// The old files with the records of these (positions in `all`); the window is not built yet.
void Prepare(TestClub& club, const QList<int>& noted)
{
    for (const Unfinished& file : all)
        club.Write(file.name, file.old_content);
    for (const int position : noted)
        Note(club, all[position].name, all[position].new_content);
    QCOMPARE(Records(club).size(), noted.size());
}

} // namespace

class TestStartFinishes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_noted_file_is_written_and_shown_data()
    {
        QTest::addColumn<int>("position");
        for (int position = 0; position < all.size(); ++position)
            QTest::newRow(qPrintable(all[position].name)) << position;
    }

    void a_noted_file_is_written_and_shown()
    {
        QFETCH(int, position);
        TestClub club;
        Prepare(club, { position });
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Boxes.size(), 0);
        QStringList expected = all_old;
        expected[position] = all_new[position];
        QCOMPARE(Shown(club), expected);
        for (int other = 0; other < all.size(); ++other) {
            const Unfinished& file = all[other];
            QCOMPARE(club.Read(file.name), other == position ? file.new_content : file.old_content);
        }
        QCOMPARE(Records(club), QStringList {});
    }

    void several_noted_files_are_all_written()
    {
        TestClub club;
        Prepare(club, { 0, 1, 2, 3, 4 });
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Boxes.size(), 0);
        QCOMPARE(Shown(club), all_new);
        for (const Unfinished& file : all)
            QCOMPARE(club.Read(file.name), file.new_content);
        QCOMPARE(Records(club), QStringList {});
    }

    void a_file_emptied_by_the_crash_is_whole_again()
    {
        TestClub club;
        Prepare(club, { 0 });
        club.Write(all[0].name, {});
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Read(all[0].name), new_members);
        QCOMPARE(Names(club).size(), 2);
    }

    /// The club name is the first that is read: when it is complained about, the rest is done.
    void the_files_are_whole_before_anything_is_read()
    {
        TestClub club;
        Prepare(club, { 0, 1, 2, 3 });
        club.Write(u"V.dat"_s, QByteArray(40000, 'x')); // too long a line
        QList<QByteArray> found;
        QStringList records;
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            if (club.Boxes.isEmpty()) {
                for (const Unfinished& file : all)
                    found += club.Read(file.name);
                records = Records(club);
            }
            return ask(box);
        };
        club.Start({ 2017, 3, 5 });
        QVERIFY(!club.Boxes.isEmpty());
        QVERIFY2(
            club.Boxes.first().detail.contains(u"V.dat"_s), qPrintable(club.Boxes.first().detail));
        QCOMPARE(
            found.mid(0, 4), (QList<QByteArray> { new_members, new_bank, new_cash, new_prices }));
        QCOMPARE(records, QStringList {});
    }

    void last_years_noted_readings_are_rolled_forward()
    {
        TestClub club;
        const QByteArray begin = "Meier;Anna;;;;1;;;0,00;0,00;0,00;0,00;";
        club.Write(u"Mitgliedsdaten2016.pz"_s, begin + "100;;20;\r\n");
        Note(club, u"Mitgliedsdaten2016.pz"_s, begin + "100;150;20;25\r\n");
        club.Start({ 2017, 1, 1 });
        QCOMPARE(club.Read(u"Mitgliedsdaten2016.pz"_s), begin + "100;150;20;25\r\n");
        QCOMPARE(club.Read(u"Mitgliedsdaten2017.pz"_s), begin + "150;;25;\r\n");
        QCOMPARE(Records(club), QStringList {});
    }

    void a_file_that_was_never_created_is_there_after_the_start()
    {
        TestClub club;
        Note(club, u"Mitgliedsdaten2017.pz"_s, new_members);
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Read(u"Mitgliedsdaten2017.pz"_s), new_members);
        QCOMPARE(Names(club).size(), 2);
        QCOMPARE(Records(club), QStringList {});
    }

    /// The home folder is the data directory then, and the user's state directory lies below it.
    void a_program_in_the_home_folder_keeps_its_records_out_of_sight()
    {
        TestClub club;
        DataFiles& files = club.program.Files;
        qputenv("HOME", files.DataDirectory.toUtf8());
        qunsetenv("XDG_STATE_HOME");
        files.StateDirectory = StateDirectoryFor(files.DataDirectory);
        QVERIFY(
            files.StateDirectory.startsWith(files.DataDirectory + u"/.local/state/parzello/"_s));
        Prepare(club, { 0 });
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Read(all[0].name), new_members);
        QCOMPARE(Records(club), QStringList {});
        const QDir folder(files.DataDirectory);
        QStringList expected;
        for (const Unfinished& file : all)
            expected += file.name;
        expected.sort();
        QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden, QDir::Name), expected);
        QCOMPARE(folder.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList { u".local"_s });
    }

    void what_is_left_of_half_a_record_is_dropped()
    {
        TestClub club;
        Prepare(club, { 0 });
        const QString path = club.program.Files.StateDirectory + u'/' + Records(club).value(0);
        QFile record(path);
        QVERIFY(record.resize(record.size() - 1));
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Read(all[0].name), old_members);
        QCOMPARE(Shown(club), all_old);
        QCOMPARE(Records(club), QStringList {});
    }
};

const TestFile<TestStartFinishes> test_file(__FILE__);
#include "test_start_finishes.moc"
