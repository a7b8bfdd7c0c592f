// Copying the data files to a folder and back. Real media: test_stick.
#include "backup/copying.h"

#include "data/redo_record.h"
#include "data/runtime_error.h"
#include "tests/support/error_of.h"
#include "tests/support/privileges.h"
#include "tests/support/test_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

const QDateTime LongAgo(QDate(2016, 3, 7), QTime(12, 30, 20), Qt::UTC);

/// Data directory and stick side by side in a temporary folder.
struct TwoFolders {
    QTemporaryDir Above;
    DataFiles Files;
    QString Stick;

    TwoFolders()
    {
        const QDir folder(Above.path());
        folder.mkdir(QStringLiteral("daten"));
        folder.mkdir(QStringLiteral("state"));
        folder.mkpath(QStringLiteral("stick/Parzello"));
        Files.DataDirectory = folder.filePath(QStringLiteral("daten"));
        Files.StateDirectory = folder.filePath(QStringLiteral("state"));
        Stick = folder.filePath(QStringLiteral("stick/Parzello/"));
    }

    QString Data(const char* name) const
    {
        return Files.DataDirectory + QLatin1Char('/') + QString::fromUtf8(name);
    }
    QString OnStick(const char* name) const { return Stick + QString::fromUtf8(name); }

    QStringList NamesInData() const { return Names(Files.DataDirectory); }
    QStringList NamesOnStick() const { return Names(Stick); }

    static QStringList Names(const QString& folder)
    {
        return QDir(folder).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
};

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

void SetTime(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)
        || !file.setFileTime(LongAgo, QFileDevice::FileModificationTime))
        qFatal("cannot set the time of %s", qPrintable(path));
}

QDateTime TimeOf(const QString& path) { return QFileInfo(path).lastModified().toUTC(); }

QStringList Texts(std::initializer_list<const char*> names)
{
    QStringList texts;
    for (const char* name : names)
        texts += QString::fromUtf8(name);
    return texts;
}

/// The error that the routine throws; an empty reason when it throws none.
const FileDone Nothing = [](qsizetype) {};

} // namespace

class TestCopying : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_pattern_matches_without_regard_to_case_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("matches");
        const auto row = [](const char* name, bool matches) {
            QTest::newRow(name) << QString::fromUtf8(name) << matches;
        };
        row("Mitgliedsdaten2016.pz", true);
        row("Konto2016.pz", true);
        row("HandKasse2016.pz", true);
        row("Config.ini", true);
        row("Config1.ini", true);
        row("SonderAbrechnungMeier2016.xls", true);
        row("SonderAbrechnungMüller2016.xls", true);
        row("KONTO2016.PZ", true);
        row("config.INI", true);
        row("Liste.Xls", true);
        row("V.dat", false);
        row("Liste.xlsx", false);
        row("Konto2016.pz.alt", false);
        row("Parzello", false);
        row("pz", false);
        row("Konto2016pz", false);
    }

    void the_pattern_matches_without_regard_to_case()
    {
        QFETCH(QString, name);
        QFETCH(bool, matches);
        QCOMPARE(IsDataFileName(name), matches);
    }

    void files_are_ordered_by_name()
    {
        const TwoFolders folders;
        for (const char* name :
            { "b.pz", "C.pz", "a.xls", "A.ini", "V.dat", "Config1.ini", "Config.ini", "config.PZ" })
            Write(folders.OnStick(name), "x");
        QCOMPARE(DataFileNames(folders.Stick, Links::PassOver),
            Texts({ "A.ini", "a.xls", "b.pz", "C.pz", "Config.ini", "config.PZ", "Config1.ini" }));
    }

    void links_and_folders_on_the_stick_are_passed_over()
    {
        const TwoFolders folders;
        Write(folders.OnStick("Konto2016.pz"), "x");
        Write(folders.Above.filePath(QStringLiteral("secret.pz")), "secret");
        QVERIFY(QDir().mkdir(folders.OnStick("folder.pz")));
        QVERIFY(QFile::link(
            folders.Above.filePath(QStringLiteral("secret.pz")), folders.OnStick("link.pz")));
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), folders.OnStick("dead.pz")));
        QCOMPARE(::mkfifo(QFile::encodeName(folders.OnStick("pipe.pz")).constData(), 0600), 0);
        QCOMPARE(DataFileNames(folders.Stick, Links::PassOver), Texts({ "Konto2016.pz" }));
    }

    void a_linked_data_file_is_backed_up()
    {
        const TwoFolders folders; // else a club whose file is kept elsewhere would have no copy
        const QString elsewhere = folders.Above.filePath(QStringLiteral("elsewhere"));
        Write(elsewhere, "bookings");
        QVERIFY(QFile::link(elsewhere, folders.Data("Konto2016.pz")));
        const QStringList names = DataFileNames(folders.Files.DataDirectory, Links::Follow);
        QCOMPARE(names, Texts({ "Konto2016.pz" }));
        BackUpFiles(folders.Files, folders.Stick, names, Nothing);
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), QByteArray("bookings"));
        QVERIFY(!QFileInfo(folders.OnStick("Konto2016.pz")).isSymLink());
    }

    void a_missing_folder_is_an_error()
    {
        const TwoFolders folders;
        QVERIFY(QDir().rmdir(folders.Stick));
        const RuntimeError error = ErrorOf([&] { DataFileNames(folders.Stick, Links::PassOver); });
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.reason, QStringLiteral("Datei oder Verzeichnis nicht gefunden"));
        QCOMPARE(ErrorSentence(error),
            QStringLiteral("Der Ordner „%1“ kann nicht gelesen werden. Es wurde nichts kopiert. "
                           "Bitte den Stick mit den gesicherten Daten einstecken, einen "
                           "Augenblick warten und es noch einmal versuchen.")
                .arg(folders.Stick));
    }

    void a_folder_without_permission_is_an_error()
    {
        const TwoFolders folders;
        QVERIFY(QFile::setPermissions(folders.Above.path(), QFile::ExeOther | QFile::ExeOwner));
        QVERIFY(QFile::setPermissions(folders.Stick, QFile::ExeOwner));
        const WithoutPrivileges user;
        if (!user.Works)
            QSKIP("the user cannot be changed here");
        const RuntimeError error = ErrorOf([&] { DataFileNames(folders.Stick, Links::PassOver); });
        QCOMPARE(error.reason, QStringLiteral("Keine Berechtigung"));
    }

    void a_file_or_link_in_place_of_the_folder_is_an_error()
    {
        const TwoFolders folders;
        const QString place = folders.Above.filePath(QStringLiteral("stick/Parzello"));
        QVERIFY(QDir().rmdir(folders.Stick));
        Write(place, "a file");
        QCOMPARE(ErrorOf([&] { DataFileNames(folders.Stick, Links::PassOver); }).reason,
            QStringLiteral("Ist kein Verzeichnis"));
        QCOMPARE(ErrorOf([&] { CreateBackupFolder(folders.Stick); }).reason,
            QStringLiteral("Ist kein Verzeichnis"));

        QVERIFY(QFile::remove(place));
        QVERIFY(QFile::link(folders.Files.StateDirectory, place));
        QCOMPARE(ErrorOf([&] { DataFileNames(folders.Stick, Links::PassOver); }).reason,
            QStringLiteral("Ist nur eine Verknüpfung"));
        const RuntimeError error = ErrorOf([&] { CreateBackupFolder(folders.Stick); });
        QCOMPARE(error.reason, QStringLiteral("Ist nur eine Verknüpfung"));
        QCOMPARE(ErrorSentence(error),
            QStringLiteral("Der Ordner „%1“ kann nicht angelegt werden. Es wurde nichts "
                           "gesichert. Bitte prüfen, ob der Stick noch steckt und nicht "
                           "schreibgeschützt ist.")
                .arg(folders.Stick));
    }

    void names_that_are_no_plain_text_stop_everything_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("line break") << QByteArray("Kon\nto.pz") << QStringLiteral("Kon?to.pz");
        QTest::newRow("carriage return") << QByteArray("a\r.ini") << QStringLiteral("a?.ini");
        QTest::newRow("escape") << QByteArray("\x1b[2J.xls") << QStringLiteral("?[2J.xls");
        QTest::newRow("backslash")
            << QByteArray("..\\..\\boot.ini") << QStringLiteral("..?..?boot.ini");
        QTest::newRow("no text") << QByteArray("Stra\xdf\x65.pz") << QStringLiteral("Stra?e.pz");
        QTest::newRow("line separator")
            << QByteArray("a\xe2\x80\xa8.pz") << QStringLiteral("a?.pz");
    }

    void names_that_are_no_plain_text_stop_everything()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, shown);
        const TwoFolders folders;
        Write(folders.OnStick("Konto2016.pz"), "x");
        const QByteArray path = QFile::encodeName(folders.Stick) + name;
        FILE* file = std::fopen(path.constData(), "w");
        QVERIFY(file != nullptr);
        std::fclose(file);
        const RuntimeError error = ErrorOf([&] { DataFileNames(folders.Stick, Links::PassOver); });
        QCOMPARE(error.where.file, shown);
        QCOMPARE(error.reason, QStringLiteral("Das ist kein gültiger Dateiname"));
        QVERIFY(folders.NamesInData().isEmpty());
    }

    void the_data_directory_itself_is_no_backup_folder()
    {
        const TwoFolders folders;
        const QString link = folders.Above.filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(folders.Files.DataDirectory, link));
        for (const QString& folder :
            { folders.Files.DataDirectory + QLatin1Char('/'), link + QLatin1Char('/') }) {
            const RuntimeError error = ErrorOf([&] { CheckBackupFolder(folders.Files, folder); });
            QCOMPARE(error.reason, QStringLiteral("Daten und Sicherung lägen im selben Ordner"));
            QVERIFY(error.where.remedy.contains(folder));
        }
        CheckBackupFolder(folders.Files, folders.Stick); // throws nothing
        CheckBackupFolder(folders.Files, QStringLiteral("/nowhere/Parzello/")); // throws nothing
    }

    void the_backup_folder_is_created_once()
    {
        const TwoFolders folders;
        QVERIFY(QDir().rmdir(folders.Stick));
        CreateBackupFolder(folders.Stick);
        QVERIFY(QDir(folders.Stick).exists());
        CreateBackupFolder(folders.Stick); // empty, and there: fine
        Write(folders.OnStick("Konto2016.pz"), "x");
        CreateBackupFolder(folders.Stick);
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), QByteArray("x"));
    }

    void a_stick_that_is_gone_gets_no_folder()
    {
        const RuntimeError error
            = ErrorOf([] { CreateBackupFolder(QStringLiteral("/nowhere/STICK/Parzello/")); });
        QCOMPARE(error.reason, QStringLiteral("Datei oder Verzeichnis nicht gefunden"));
    }

    void backup_copies_bytes_and_times()
    {
        const TwoFolders folders;
        const char content[] = "07.03.2016;\xdc"
                               "bertrag;0,00;24,00\r\n\0\x1a";
        const QByteArray bytes(content, sizeof content - 1); // zero byte included
        Write(folders.Data("Konto2016.pz"), bytes);
        SetTime(folders.Data("Konto2016.pz"));
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), bytes);
        QCOMPARE(TimeOf(folders.OnStick("Konto2016.pz")), LongAgo);
        QCOMPARE(folders.NamesOnStick(), Texts({ "Konto2016.pz" }));
        QCOMPARE(Read(folders.Data("Konto2016.pz")), bytes);
    }

    void backup_replaces_an_older_copy()
    {
        const TwoFolders folders;
        Write(folders.Data("Konto2016.pz"), "new");
        Write(folders.OnStick("Konto2016.pz"), "an older and longer copy");
        Write(folders.OnStick("Konto2015.pz"), "another year");
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), QByteArray("new"));
        QCOMPARE(Read(folders.OnStick("Konto2015.pz")), QByteArray("another year"));
    }

    void backup_skips_empty_files_and_counts_them()
    {
        const TwoFolders folders;
        Write(folders.Data("Config.ini"), "[2016]\r\n");
        Write(folders.Data("Config1.ini"), "");
        Write(folders.OnStick("Config1.ini"), "[Daten]\r\n");
        QList<qsizetype> done;
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Config.ini", "Config1.ini" }),
            [&](qsizetype position) { done += position; });
        QCOMPARE(Read(folders.OnStick("Config.ini")), QByteArray("[2016]\r\n"));
        QCOMPARE(Read(folders.OnStick("Config1.ini")), QByteArray("[Daten]\r\n"));
        QCOMPARE(done, QList<qsizetype>({ 0, 1 }));
    }

    void backup_copies_in_the_given_order_and_stops_at_the_first_error()
    {
        const TwoFolders folders;
        for (const char* name : { "a.pz", "b.pz", "c.pz" })
            Write(folders.Data(name), name);
        Write(folders.OnStick("c.pz"), "older");
        QVERIFY(QDir().mkdir(folders.OnStick("b.pz"))); // a folder stands in the way
        QList<qsizetype> done;
        const RuntimeError error = ErrorOf([&] {
            BackUpFiles(folders.Files, folders.Stick, Texts({ "a.pz", "b.pz", "c.pz" }),
                [&](qsizetype position) { done += position; });
        });
        QCOMPARE(error.where.file, QStringLiteral("b.pz"));
        QCOMPARE(error.reason, QStringLiteral("Ist ein Verzeichnis"));
        QCOMPARE(ErrorSentence(error),
            QStringLiteral("Datei „b.pz“: Die Sicherung nach „%1“ ist unvollständig. Bitte "
                           "prüfen, ob der Stick noch steckt, nicht schreibgeschützt ist und "
                           "genug Platz hat, und noch einmal sichern.")
                .arg(folders.Stick));
        QCOMPARE(done, QList<qsizetype>({ 0 }));
        QCOMPARE(folders.NamesOnStick(), Texts({ "a.pz", "b.pz", "c.pz" }));
        QCOMPARE(Read(folders.OnStick("a.pz")), QByteArray("a.pz"));
        QCOMPARE(Read(folders.OnStick("c.pz")), QByteArray("older"));
    }

    void backup_names_a_file_that_vanished_meanwhile()
    {
        const TwoFolders folders;
        const RuntimeError error = ErrorOf(
            [&] { BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing); });
        QCOMPARE(error.where.file, QStringLiteral("Konto2016.pz"));
        QCOMPARE(error.reason, QStringLiteral("Datei oder Verzeichnis nicht gefunden"));
        QVERIFY(error.where.remedy.contains(QStringLiteral("Die Sicherung ist unvollständig")));
    }

    void a_copy_that_reads_back_otherwise_is_no_backup()
    {
        const TwoFolders folders;
        Write(folders.Data("Konto2016.pz"), "17.11.2016;Porto;0,00;1,00\r\n");
        Write(folders.Data("Config.ini"), "[2016]\r\n");
        const FileDone worn_out_stick = [&](qsizetype) {
            if (QFile::exists(folders.OnStick("Konto2016.pz")))
                Write(folders.OnStick("Konto2016.pz"), "17.11.2016;Porto;0,00;9,00\r\n");
        };
        const RuntimeError error = ErrorOf([&] {
            BackUpFiles(folders.Files, folders.Stick, Texts({ "Config.ini", "Konto2016.pz" }),
                worn_out_stick);
        });
        QCOMPARE(error.where.file, QStringLiteral("Konto2016.pz"));
        QVERIFY(!error.reason.isEmpty());
        QVERIFY(error.where.remedy.contains(QStringLiteral("unvollständig")));
    }

    void backup_counts_the_copies_that_it_read_back()
    {
        const TwoFolders folders;
        Write(folders.Data("Config.ini"), "");
        Write(folders.Data("Konto2016.pz"), "x");
        Write(folders.Data("Konto2017.pz"), "y");
        QCOMPARE(BackUpFiles(folders.Files, folders.Stick,
                     Texts({ "Config.ini", "Konto2016.pz", "Konto2017.pz" }), Nothing),
            2);
    }

    void backup_to_a_folder_without_permission_names_the_file()
    {
        const TwoFolders folders;
        Write(folders.Data("Konto2016.pz"), "x");
        const auto everyone = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
            | QFile::ExeOther | QFile::ReadUser | QFile::ExeUser;
        QVERIFY(QFile::setPermissions(folders.Above.path(), everyone));
        QVERIFY(QFile::setPermissions(folders.Stick, everyone));
        RuntimeError error;
        {
            const WithoutPrivileges user;
            if (!user.Works)
                QSKIP("the user cannot be changed here");
            error = ErrorOf([&] {
                BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
            });
        }
        QCOMPARE(error.where.file, QStringLiteral("Konto2016.pz"));
        QCOMPARE(error.reason, QStringLiteral("Keine Berechtigung"));
        QVERIFY(folders.NamesOnStick().isEmpty());
        QVERIFY(QFile::setPermissions(folders.Stick, everyone | QFile::WriteOwner));
        QVERIFY(QFile::setPermissions(folders.Above.path(), everyone | QFile::WriteOwner));
    }

    void backup_never_writes_through_a_link()
    {
        const TwoFolders folders;
        const QString outside = folders.Above.filePath(QStringLiteral("outside"));
        Write(outside, "not yours");
        Write(folders.Data("Konto2016.pz"), "bookings");
        QVERIFY(QFile::link(outside, folders.OnStick("Konto2016.pz")));
        QVERIFY(QFile::link(outside, folders.OnStick(".parzello.neu")));
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        QCOMPARE(Read(outside), QByteArray("not yours"));
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), QByteArray("bookings"));
        QVERIFY(!QFileInfo(folders.OnStick("Konto2016.pz")).isSymLink());
        QCOMPARE(folders.NamesOnStick(), Texts({ "Konto2016.pz" }));
    }

    void backup_clears_away_what_a_pulled_stick_left()
    {
        const TwoFolders folders;
        Write(folders.Data("Konto2016.pz"), "bookings");
        Write(folders.OnStick(".parzello.neu"), "half of an earlier co");
        QVERIFY(DataFileNames(folders.Stick, Links::PassOver).isEmpty());
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        QCOMPARE(folders.NamesOnStick(), Texts({ "Konto2016.pz" }));
    }

    void backup_of_an_unfinished_rewrite_takes_the_new_content()
    {
        const TwoFolders folders; // the last save failed half-way; its redo record stands for it
        Write(folders.Data("Konto2016.pz"), "half a n");
        QCOMPARE(NoteRewrite(folders.Files.StateDirectory,
                     { QStringLiteral("Konto2016.pz"), "half a new content" }),
            Fault::None);
        BackUpFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        QCOMPARE(Read(folders.OnStick("Konto2016.pz")), QByteArray("half a new content"));
    }

    void restore_notes_each_file_before_it_replaces_it()
    {
        TwoFolders folders; // without the note a crash could leave half a file
        Write(folders.OnStick("Konto2016.pz"), "new");
        Write(folders.Data("Konto2016.pz"), "old");
        const QString place = folders.Above.filePath(QStringLiteral("file"));
        Write(place, "no folder can be made below a file");
        folders.Files.StateDirectory = place + QStringLiteral("/state");
        const RuntimeError error = ErrorOf([&] {
            RestoreFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        });
        QCOMPARE(error.where.file, QStringLiteral("Konto2016.pz"));
        QCOMPARE(Read(folders.Data("Konto2016.pz")), QByteArray("old"));
    }

    void restore_copies_bytes_and_times()
    {
        const TwoFolders folders;
        const QByteArray bytes("M\xfcller;Anna\r\n");
        Write(folders.OnStick("Mitgliedsdaten2016.pz"), bytes);
        SetTime(folders.OnStick("Mitgliedsdaten2016.pz"));
        Write(folders.Data("Mitgliedsdaten2016.pz"), "damaged, and longer than what was saved");
        Write(folders.Data("Konto2016.pz"), "not on the stick");
        QList<qsizetype> done;
        RestoreFiles(folders.Files, folders.Stick, Texts({ "Mitgliedsdaten2016.pz" }),
            [&](qsizetype position) { done += position; });
        QCOMPARE(Read(folders.Data("Mitgliedsdaten2016.pz")), bytes);
        QCOMPARE(TimeOf(folders.Data("Mitgliedsdaten2016.pz")), LongAgo);
        QCOMPARE(Read(folders.Data("Konto2016.pz")), QByteArray("not on the stick"));
        QCOMPARE(done, QList<qsizetype>({ 0 }));
        QCOMPARE(folders.NamesInData(), Texts({ "Konto2016.pz", "Mitgliedsdaten2016.pz" }));
    }

    void restore_copies_empty_files_too()
    {
        const TwoFolders folders;
        Write(folders.OnStick("Config1.ini"), "");
        Write(folders.Data("Config1.ini"), "[Daten]\r\n");
        RestoreFiles(folders.Files, folders.Stick, Texts({ "Config1.ini" }), Nothing);
        QCOMPARE(Read(folders.Data("Config1.ini")), QByteArray());
        QVERIFY(QFile::exists(folders.Data("Config1.ini")));
    }

    void restore_of_a_file_that_cannot_be_read_changes_nothing()
    {
        const TwoFolders folders;
        Write(folders.OnStick("a.pz"), "new a");
        Write(folders.Data("a.pz"), "old a");
        Write(folders.Data("b.pz"), "old b");
        const RuntimeError error = ErrorOf([&] { // b.pz vanished after the folder was listed
            RestoreFiles(folders.Files, folders.Stick, Texts({ "a.pz", "b.pz" }), Nothing);
        });
        QCOMPARE(error.reason, QStringLiteral("Datei oder Verzeichnis nicht gefunden"));
        QCOMPARE(ErrorSentence(error),
            QStringLiteral("Datei „b.pz“: Die Datei kann nicht aus „%1“ gelesen werden. Es wurde "
                           "nichts wiederhergestellt, alle Daten sind wie zuvor. Bitte prüfen, "
                           "ob der Stick noch steckt, und noch einmal wiederherstellen.")
                .arg(folders.Stick));
        QCOMPARE(Read(folders.Data("a.pz")), QByteArray("old a"));
        QCOMPARE(Read(folders.Data("b.pz")), QByteArray("old b"));
    }

    void restore_never_reads_through_a_link()
    {
        const TwoFolders folders;
        Write(folders.Above.filePath(QStringLiteral("secret")), "secret");
        QVERIFY(QFile::link(
            folders.Above.filePath(QStringLiteral("secret")), folders.OnStick("Konto2016.pz")));
        const RuntimeError error = ErrorOf([&] {
            RestoreFiles(folders.Files, folders.Stick, Texts({ "Konto2016.pz" }), Nothing);
        });
        QCOMPARE(error.reason, QStringLiteral("Ist nur eine Verknüpfung"));
        QVERIFY(folders.NamesInData().isEmpty());
    }

    void restore_never_writes_outside_the_data_directory()
    {
        const TwoFolders folders;
        const QString outside = folders.Above.filePath(QStringLiteral("outside"));
        Write(outside, "not yours");
        Write(folders.OnStick("a.pz"), "new a");
        Write(folders.OnStick("b.pz"), "new b");
        Write(folders.Data("a.pz"), "old a");
        QVERIFY(QFile::link(outside, folders.Data("b.pz")));
        const RuntimeError error = ErrorOf([&] {
            RestoreFiles(folders.Files, folders.Stick, Texts({ "a.pz", "b.pz" }), Nothing);
        });
        QCOMPARE(error.where.file, QStringLiteral("b.pz"));
        QCOMPARE(error.reason, QStringLiteral("Ist nur eine Verknüpfung"));
        QCOMPARE(Read(outside), QByteArray("not yours"));
        QCOMPARE(Read(folders.Data("a.pz")), QByteArray("old a"));
    }

    void restore_checks_every_target_before_the_first_is_replaced()
    {
        const TwoFolders folders;
        Write(folders.OnStick("a.pz"), "new a");
        Write(folders.OnStick("b.pz"), "new b");
        Write(folders.Data("a.pz"), "old a");
        QVERIFY(QDir().mkdir(folders.Data("b.pz")));
        const RuntimeError error = ErrorOf([&] {
            RestoreFiles(folders.Files, folders.Stick, Texts({ "a.pz", "b.pz" }), Nothing);
        });
        QCOMPARE(error.reason, QStringLiteral("Ist ein Verzeichnis"));
        QCOMPARE(ErrorSentence(error),
            QStringLiteral("Datei „b.pz“: Die Datei im Ordner „%1“ kann nicht ersetzt werden. Es "
                           "wurde nichts wiederhergestellt, alle Daten sind wie zuvor. Im Ordner "
                           "„%1“ liegt an der Stelle der Datei etwas anderes. Bitte dieses "
                           "umbenennen oder verschieben.")
                .arg(folders.Files.DataDirectory));
        QCOMPARE(Read(folders.Data("a.pz")), QByteArray("old a"));
    }

    void restore_that_cannot_write_says_that_it_is_incomplete()
    {
        const TwoFolders folders;
        Write(folders.OnStick("a.pz"), "new a");
        const auto everyone = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
            | QFile::ExeOther | QFile::ReadUser | QFile::ExeUser;
        for (const QString& folder : { folders.Above.path(), folders.Files.DataDirectory })
            QVERIFY(QFile::setPermissions(folder, everyone));
        RuntimeError error;
        {
            const WithoutPrivileges user;
            if (!user.Works)
                QSKIP("the user cannot be changed here");
            error = ErrorOf(
                [&] { RestoreFiles(folders.Files, folders.Stick, Texts({ "a.pz" }), Nothing); });
        }
        QVERIFY(!error.reason.isEmpty());
        QVERIFY(ErrorSentence(error).contains(
            QStringLiteral("Die Wiederherstellung ist unvollständig.")));
        QVERIFY(folders.NamesInData().isEmpty());
        for (const QString& folder : { folders.Files.DataDirectory, folders.Above.path() })
            QVERIFY(QFile::setPermissions(folder, everyone | QFile::WriteOwner));
    }

    void capitals_of_the_medium_become_the_names_that_the_program_knows_data()
    {
        QTest::addColumn<QString>("on_stick");
        QTest::addColumn<QStringList>("there");
        QTest::addColumn<QString>("restored");
        const auto row = [](const char* on_stick, std::initializer_list<const char*> there,
                             const char* restored) {
            QTest::newRow(on_stick)
                << QString::fromUtf8(on_stick) << Texts(there) << QString::fromUtf8(restored);
        };
        row("KONTO2016.PZ", {}, "Konto2016.pz");
        row("handkasse2016.pz", {}, "HandKasse2016.pz");
        row("MITGLIEDSDATEN2016.PZ", {}, "Mitgliedsdaten2016.pz");
        row("CONFIG.INI", {}, "Config.ini");
        row("config1.ini", {}, "Config1.ini");
        row("SONDERABRECHNUNGMEIER2016.XLS", { "SonderAbrechnungMeier2016.xls" },
            "SonderAbrechnungMeier2016.xls");
        row("KontoPlan.pz", {}, "KontoPlan.pz");
        row("Alt.INI", {}, "Alt.INI");
        row("konto2017.pz", { "konto2017.pz", "Konto2017.pz" }, "Konto2017.pz");
        row("liste.xls", { "LISTE.XLS", "liste.xls" }, "liste.xls");
    }

    void capitals_of_the_medium_become_the_names_that_the_program_knows()
    {
        QFETCH(QString, on_stick);
        QFETCH(QStringList, there);
        QFETCH(QString, restored);
        const TwoFolders folders;
        for (const QString& name : there)
            Write(folders.Data(name.toUtf8().constData()), "old");
        Write(folders.Stick + on_stick, "new");
        RestoreFiles(folders.Files, folders.Stick, { on_stick }, Nothing);
        QCOMPARE(Read(folders.Data(restored.toUtf8().constData())), QByteArray("new"));
        QCOMPARE(folders.NamesInData().size(), there.isEmpty() ? 1 : there.size());
    }

    void progress_is_counted_in_single_precision()
    {
        QVERIFY(ProgressValue(100.0F, 3, 0) == 33.3333320617675781F);
        QVERIFY(ProgressValue(100.0F, 3, 1) == 66.6666641235351562F);
        QVERIFY(ProgressValue(100.0F, 3, 2) == 100.0F);
        QVERIFY(ProgressValue(100.0F, 1, 0) == 100.0F);
        QVERIFY(ProgressValue(100.0F, 8, 4) == 62.5F);
    }
};

const TestFile<TestCopying> test_file(__FILE__);
#include "test_copying.moc"
