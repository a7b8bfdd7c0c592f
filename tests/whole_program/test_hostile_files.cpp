// Files as no club has them: huge, without line ends, full of null characters. Each reader takes
// the file or reports it by its name; what was loaded before stays, and no file changes. The time
// limit of the whole test is the only one: a reader that takes minutes fails it.
#include "cashbook/ledger_file.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "members/member_lists.h"
#include "settings/ini_file.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QFile>
#include <QPushButton>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype hundred_megabytes = 100 * 1000 * 1000;

QByteArray Filled(const QByteArray& piece)
{
    return piece.repeated(hundred_megabytes / piece.size());
}

void AddContents()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("taken"); // readers that need not refuse it
    QTest::newRow("null characters") << Filled(QByteArray(1, '\0')) << QStringList {};
    QTest::newRow("one letter") << Filled("x") << QStringList {};
    QTest::newRow("semicolons") << Filled(";") << QStringList {};
    QTest::newRow("CR") << Filled("\r") << QStringList {};
    QTest::newRow("LF") << Filled("\n") << QStringList {};
    QTest::newRow("CR LF") << Filled("\r\n") << QStringList {};
    QTest::newRow("sections") << Filled("[2016]\r\n") << QStringList {};
    QTest::newRow("equal signs") << Filled("=") << QStringList {};
    QTest::newRow("records") << Filled("Meier;Anna;;;;;;;;;;;;;;\r\n") << QStringList {};
    QTest::newRow("long records") << Filled(QByteArray(30000, 'x') + ";\r\n") << QStringList {};
    QTest::newRow("a line of a million fields")
        << QByteArray("a;").repeated(1000000) << QStringList { u"settings"_s };
    QTest::newRow("a million lines")
        << QByteArray("1;2\r\n").repeated(1000000) << QStringList { u"settings"_s, u"club name"_s };
}

/// Changes whenever anybody writes to the file; reading 100 MB again and again would take long.
QString StampOf(const QString& path)
{
    struct stat status { };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("cannot look at %s", qPrintable(path));
    return u"%1 bytes, changed at %2,%3"_s.arg(status.st_size)
        .arg(status.st_ctim.tv_sec)
        .arg(status.st_ctim.tv_nsec);
}

/// One content under every name that the program knows. Links: copies would fill the disk.
void PutEverywhere(TestClub& club, const QByteArray& content)
{
    const DataFiles& files = club.program.Files;
    club.Write(u"V.dat"_s, content);
    QStringList names { MembersFileName(u"2016"_s), MembersFileName(u"2015"_s),
        BankLedgerFileName(u"2016"_s), BankLedgerFileName(u"2015"_s),
        CashBoxLedgerFileName(u"2016"_s), BankSettingsFile };
    if (content.size() > LargestText)
        names += PriceSettingsFile;
    else // a file without prices of this year would rightly get last year's
        club.Write(u"Config.ini"_s, "[2016]\r\nStromkosten=0,30\r\n");
    for (const QString& name : names) {
        if (::link(QFile::encodeName(club.Path(u"V.dat"_s)).constData(),
                QFile::encodeName(PathOf(files, name)).constData())
            != 0)
            qFatal("cannot link %s", qPrintable(name));
    }
}

} // namespace

class TestHostileFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_reader_takes_or_reports_it_data() { AddContents(); }

    void every_reader_takes_or_reports_it()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, taken);
        TestClub club;
        const DataFiles& files = club.program.Files;
        PutEverywhere(club, content);
        const QString stamp = StampOf(club.Path(u"V.dat"_s));
        MemberLists lists;
        lists.RecordList = QStringList { u"before"_s };
        lists.PreviousYearList = lists.RecordList;
        const QList<std::pair<QString, std::function<void()>>> readers {
            { u"members"_s, [&] { ReadMembersFile(lists, files, u"2016"_s); } },
            { u"last year"_s, [&] { ReadPreviousYear(lists, files, u"2016"_s); } },
            { u"ledger"_s, [&] { ReadLedger(files, BankLedgerFileName(u"2016"_s)); } },
            { u"settings"_s, [&] { ReadIni(files, u"2016"_s, u"Pacht"_s, PriceSettingsFile); } },
            { u"club name"_s, [&] { ReadFirstLine(files, ClubNameFile); } },
        };
        for (const auto& [name, reader] : readers) {
            const std::optional<RuntimeError> error = ErrorOf(reader);
            QVERIFY2(error.has_value() != taken.contains(name), qPrintable(name));
            if (error) {
                QVERIFY2(!error->where.file.isEmpty(), qPrintable(name));
                QVERIFY2(!error->where.remedy.isEmpty(), qPrintable(name));
                QVERIFY(error->kind == ErrorKind::Overflow
                    || error->reason == u"Die Datei ist zu groß"_s);
            }
        }
        QCOMPARE(lists.RecordList, QStringList { u"before"_s });
        QCOMPARE(lists.PreviousYearList, QStringList { u"before"_s });
        QCOMPARE(StampOf(club.Path(u"V.dat"_s)), stamp);
    }

    void the_window_opens_over_it_data() { AddContents(); }

    void the_window_opens_over_it()
    {
        QFETCH(QByteArray, content);
        TestClub club;
        PutEverywhere(club, content);
        const QString stamp = StampOf(club.Path(u"V.dat"_s));
        const QStringList names = QDir(club.program.Files.DataDirectory).entryList(QDir::Files);
        club.Start(QDate(2016, 5, 17));
        const qsizetype boxes = club.Boxes.size();
        QVERIFY(boxes > 0);
        club.Control<QPushButton>("Command4")->click(); // "Laden"
        for (const MessageBox& box : club.Boxes)
            QVERIFY2(box.detail.contains(u"Datei „"_s), qPrintable(box.text));
        QCOMPARE(StampOf(club.Path(u"V.dat"_s)), stamp);
        QCOMPARE(QDir(club.program.Files.DataDirectory).entryList(QDir::Files), names);
    }

    void odd_bytes_are_loaded_and_saved_as_they_are_data()
    {
        QTest::addColumn<QByteArray>("content");
        QByteArray all;
        for (int number = 0; number < 256; ++number)
            all += static_cast<char>(number);
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("all 256") << all + "\r\n";
        QTest::newRow("null characters") << QByteArray(1000, '\0') + "\r\n";
        QTest::newRow("null characters in a record")
            << QByteArray("Me\0ier;An\0na;;;;;;;;;;;;;;\r\n", 28);
        QTest::newRow("a thousand fields") << QByteArray(1000, ';') + "\r\n";
        QTest::newRow("empty lines") << QByteArray("\r\n\r\n\r\n");
        QTest::newRow("end of file character") << QByteArray("a;b\x1A;c\r\nd\r\n");
    }

    void odd_bytes_are_loaded_and_saved_as_they_are()
    {
        QFETCH(QByteArray, content);
        TestClub club;
        club.Write(u"Mitgliedsdaten2016.pz"_s, content);
        MemberLists lists;
        ReadMembersFile(lists, club.program.Files, u"2016"_s);
        club.Write(u"Mitgliedsdaten2016.pz"_s, "other");
        WriteMembersFile(lists, club.program.Files, u"2016"_s);
        QCOMPARE(club.Read(u"Mitgliedsdaten2016.pz"_s), content);
    }

    void the_window_opens_over_odd_bytes_data()
    {
        odd_bytes_are_loaded_and_saved_as_they_are_data();
    }

    void the_window_opens_over_odd_bytes()
    {
        QFETCH(QByteArray, content);
        TestClub club;
        PutEverywhere(club, content);
        club.Start(QDate(2016, 5, 17));
        QCOMPARE(club.Read(u"V.dat"_s), content);
        QCOMPARE(club.Read(u"Config.ini"_s), QByteArray("[2016]\r\nStromkosten=0,30\r\n"));
        QCOMPARE(club.program.Members.RecordList.isEmpty(), content.isEmpty());
    }

    void odd_bytes_in_the_settings_stay_when_prices_are_carried_over_data()
    {
        odd_bytes_are_loaded_and_saved_as_they_are_data();
    }

    void odd_bytes_in_the_settings_stay_when_prices_are_carried_over()
    {
        QFETCH(QByteArray, content);
        TestClub club;
        club.Write(u"Config.ini"_s, content);
        club.Start(QDate(2016, 5, 17));
        QVERIFY(club.Read(u"Config.ini"_s).startsWith(content + "[2016]\r\n"));
    }

private:
    static std::optional<RuntimeError> ErrorOf(const std::function<void()>& reader)
    {
        try {
            reader();
        } catch (const RuntimeError& error) {
            return error;
        }
        return std::nullopt;
    }
};

const TestFile<TestHostileFiles> test_file(__FILE__);
#include "test_hostile_files.moc"
