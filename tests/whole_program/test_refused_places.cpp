// Saving where the place refuses it: full disk, missing rights, a folder instead of the file, a
// file or folder that has vanished. Run by an ordinary user, since root may write everywhere.
// Whatever the answer: every file is wholly the old or the new one, a refusal says why in German,
// and once the place is put right the next save succeeds.
#include "data/line_file.h"
#include "tests/support/crash_actions.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;
const QString refused = u"refused "_s;

// One file may be saved already when the next one is refused.
const QStringList saves_several { u"first start of a year"_s, u"restore"_s };

bool IsRoot() { return ::geteuid() == 0; }

void GiveAway(const QString& path)
{
    if (IsRoot() && ::chown(QFile::encodeName(path).constData(), nobody, nobody) != 0)
        qFatal("cannot give %s away", qPrintable(path));
}

void SetMode(const QString& path, mode_t mode)
{
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot change the rights of %s", qPrintable(path));
}

const CrashAction& ActionOf(const QString& name)
{
    for (const CrashAction& action : CrashActions()) {
        if (name == QString::fromUtf8(action.name))
            return action;
    }
    qFatal("no action %s", qPrintable(name));
}

/// A copy of the driver: the build folder may be out of an ordinary user's reach.
struct Driver {
    QTemporaryDir folder;
    QString path = folder.filePath(u"driver"_s);

    Driver()
    {
        if (!QFile::copy(QStringLiteral(CRASH_DRIVER), path))
            qFatal("no driver");
        SetMode(path, 0755);
        SetMode(folder.path(), 0755);
    }
};

/// The folders of a club that belong to an ordinary user.
struct Club {
    DataFolders folders;

    Club()
    {
        if (!QDir().mkpath(folders.files.StateDirectory))
            qFatal("no state directory");
        for (const QString& path :
            { folders.root.path(), folders.files.DataDirectory, folders.files.StateDirectory })
            GiveAway(path);
    }

    void Prepare(const CrashAction& action) const
    {
        action.prepare(folders.files);
        for (const QString& name : folders.Names())
            GiveAway(folders.Path(name));
        for (const QString& name : folders.StateNames())
            GiveAway(folders.files.StateDirectory + u'/' + name);
    }

    /// "confirmed", or "refused " and the sentence.
    QString Save(const Driver& driver, const CrashAction& action) const
    {
        QStringList command { driver.path, QString::fromUtf8(action.name),
            folders.files.DataDirectory, folders.files.StateDirectory };
        if (IsRoot())
            command = QStringList {
                u"setpriv"_s, u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s
            } + command;
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, folders.root.path());
        process.setProcessEnvironment(environment);
        const QString program = command.takeFirst();
        process.start(program, command);
        if (!process.waitForFinished(60000))
            return u"does not start or end: "_s + process.errorString();
        return QString::fromUtf8(process.readAll()).trimmed();
    }
};

/// Takes every free byte of the folder's disk but so many pages.
void FillDisk(const QString& folder, qint64 free_pages)
{
    QFile filler(folder + u"/filler"_s);
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("cannot fill the disk");
    const QByteArray page(4096, 'x');
    while (filler.write(page) == page.size()) { }
    if (!filler.resize(filler.size() - free_pages * page.size()))
        qFatal("cannot leave room");
}

} // namespace

class TestRefusedPlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QFileInfo(u"/dev/shm"_s).isWritable())
            qputenv("TMPDIR", "/dev/shm");
        // Mounted disks vanish with this process.
        can_mount = IsRoot() && ::unshare(CLONE_NEWNS) == 0
            && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    void a_place_without_rights_refuses_or_takes_the_whole_file_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("path"); // beginning with daten or state
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("answer"); // how it begins
        const QString permission = refused + u"Keine Berechtigung. Datei „"_s;
        QTest::newRow("read-only file")
            << u"longer file"_s << u"daten/Konto2016.pz"_s << 0444 << permission;
        QTest::newRow("unreadable file")
            << u"longer file"_s << u"daten/Konto2016.pz"_s << 0200 << permission;
        QTest::newRow("unreadable members")
            << u"change a member"_s << u"daten/Mitgliedsdaten2016.pz"_s << 0 << permission;
        QTest::newRow("read-only members")
            << u"change a member"_s << u"daten/Mitgliedsdaten2016.pz"_s << 0444 << permission;
        QTest::newRow("read-only folder, new file")
            << u"new file"_s << u"daten"_s << 0555 << permission;
        QTest::newRow("read-only folder, file there") // it is rewritten in place
            << u"longer file"_s << u"daten"_s << 0555 << u"confirmed"_s;
        QTest::newRow("closed folder") << u"longer file"_s << u"daten"_s << 0 << permission;
        QTest::newRow("read-only state directory")
            << u"longer file"_s << u"state"_s << 0555 << permission;
        QTest::newRow("closed state directory")
            << u"longer file"_s << u"state"_s << 0 << permission;
        QTest::newRow("bank, read-only file")
            << u"bank"_s << u"daten/Config1.ini"_s << 0444 << permission;
        QTest::newRow("bank, unreadable file")
            << u"bank"_s << u"daten/Config1.ini"_s << 0 << permission;
        QTest::newRow("bank, write-only file")
            << u"bank"_s << u"daten/Config1.ini"_s << 0200 << permission;
        QTest::newRow("bank, read-only folder")
            << u"bank"_s << u"daten"_s << 0555 << u"confirmed"_s;
        QTest::newRow("first bank, read-only folder")
            << u"bank without a file"_s << u"daten"_s << 0555 << permission;
        QTest::newRow("bank, read-only state directory")
            << u"bank"_s << u"state"_s << 0555 << permission;
        QTest::newRow("salutation, read-only file")
            << u"salutation"_s << u"daten/Config1.ini"_s << 0444 << permission;
        QTest::newRow("salutation, unreadable file")
            << u"salutation"_s << u"daten/Config1.ini"_s << 0 << permission;
        QTest::newRow("salutation, read-only folder")
            << u"salutation"_s << u"daten"_s << 0555 << u"confirmed"_s;
        QTest::newRow("salutation, read-only state directory")
            << u"salutation"_s << u"state"_s << 0555 << permission;
        QTest::newRow("club name, read-only folder")
            << u"club name"_s << u"daten"_s << 0555 << permission;
        QTest::newRow("club name, read-only state directory")
            << u"club name"_s << u"state"_s << 0555 << permission;
        QTest::newRow("restore, read-only file")
            << u"restore"_s << u"daten/Konto2017.pz"_s << 0444 << permission;
        QTest::newRow("restore, read-only folder")
            << u"restore"_s << u"daten"_s << 0555 << u"confirmed"_s;
        QTest::newRow("restore, read-only state directory")
            << u"restore"_s << u"state"_s << 0555 << permission;
        QTest::newRow("restore, unreadable file on the stick")
            << u"restore"_s << u"Parzello/HandKasse2017.pz"_s << 0 << permission;
        QTest::newRow("restore, closed stick")
            << u"restore"_s << u"Parzello"_s << 0 << refused + u"Keine Berechtigung. "_s;
        QTest::newRow("finishing, read-only file")
            << u"finishing several"_s << u"daten/Konto2016.pz"_s << 0444 << permission;
        QTest::newRow("finishing, read-only folder")
            << u"finishing several"_s << u"daten"_s << 0555 << permission;
        QTest::newRow("finishing, closed state directory")
            << u"finishing several"_s << u"state"_s << 0 << refused + u"Keine Berechtigung. "_s;
    }

    void a_place_without_rights_refuses_or_takes_the_whole_file()
    {
        QFETCH(QString, action);
        QFETCH(QString, path);
        QFETCH(int, mode);
        QFETCH(QString, answer);
        const CrashAction& deed = ActionOf(action);
        const Club club;
        club.Prepare(deed);
        const QMap<QString, QByteArray> before = OnDisk(club);
        const QString place = club.folders.root.filePath(path);
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(place).constData(), &status), 0);
        SetMode(place, static_cast<mode_t>(mode));
        const QString found = club.Save(driver, deed);
        QVERIFY2(found.startsWith(answer), qPrintable(found));
        SetMode(place, status.st_mode & 07777);
        // What could be finished is finished; everything else is as before.
        const QMap<QString, QByteArray> after = OnDisk(club);
        if (!action.startsWith(u"finishing"_s) && found.startsWith(refused)) {
            if (!saves_several.contains(action))
                QCOMPARE(after, before);
            const QString file = path.section(u'/', 1);
            QCOMPARE(after.value(file), before.value(file));
            QCOMPARE(club.folders.StateNames(), QStringList {});
        }
        QCOMPARE(club.Save(driver, deed), u"confirmed"_s);
        QCOMPARE(NeitherOldNorNew(after, before, OnDisk(club)), QStringList {});
        QCOMPARE(club.folders.StateNames(), QStringList {});
    }

    void something_else_in_place_of_the_file_is_left_alone_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("file");
        QTest::newRow("save") << u"longer file"_s << u"Konto2016.pz"_s;
        QTest::newRow("finishing") << u"finishing at the start"_s << u"Konto2016.pz"_s;
        QTest::newRow("save over an unfinished one")
            << u"save over an unfinished one"_s << u"Konto2016.pz"_s;
        QTest::newRow("bank") << u"bank"_s << u"Config1.ini"_s;
        QTest::newRow("salutation") << u"salutation"_s << u"Config1.ini"_s;
        QTest::newRow("club name") << u"club name"_s << u"V.dat"_s;
        QTest::newRow("restore") << u"restore"_s << u"Konto2017.pz"_s;
    }

    void something_else_in_place_of_the_file_is_left_alone()
    {
        QFETCH(QString, action);
        QFETCH(QString, file);
        const CrashAction& deed = ActionOf(action);
        const Club club;
        club.Prepare(deed);
        const QString path = club.folders.Path(file);
        QFile::remove(path);
        QVERIFY(QDir().mkpath(path + u"/inhalt"_s));
        const QStringList records = club.folders.StateNames();
        const QString found = club.Save(driver, deed);
        QVERIFY2(found.startsWith(u"refused Ist ein Verzeichnis. Datei „%1“: "_s.arg(file)),
            qPrintable(found));
        QVERIFY2(found.contains(u"umbenennen"_s), qPrintable(found));
        QVERIFY(QFile::exists(path + u"/inhalt"_s));
        QCOMPARE(club.folders.StateNames(), records);
        QVERIFY(QDir(path).removeRecursively());
        QCOMPARE(club.Save(driver, deed), u"confirmed"_s);
        QVERIFY(QFileInfo(path).isFile());
        QCOMPARE(club.folders.StateNames(), QStringList {});
    }

    void a_vanished_file_is_created_again_by_the_save_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("file");
        QTest::newRow("save") << u"longer file"_s << u"Konto2016.pz"_s;
        QTest::newRow("bank") << u"bank"_s << u"Config1.ini"_s;
        QTest::newRow("salutation") << u"salutation"_s << u"Config1.ini"_s;
        QTest::newRow("restore") << u"restore"_s << u"Konto2017.pz"_s;
    }

    void a_vanished_file_is_created_again_by_the_save()
    {
        QFETCH(QString, action);
        QFETCH(QString, file);
        const CrashAction& deed = ActionOf(action);
        const Club club;
        club.Prepare(deed);
        const QStringList names = club.folders.Names();
        QVERIFY(QFile::remove(club.folders.Path(file)));
        QCOMPARE(club.Save(driver, deed), u"confirmed"_s);
        QCOMPARE(club.folders.Names(), names);
        QCOMPARE(club.folders.StateNames(), QStringList {});
    }

    void a_vanished_file_cannot_be_read()
    {
        const CrashAction& deed = ActionOf(u"change a member"_s);
        const Club club;
        const QString found = club.Save(driver, deed);
        QVERIFY2(found.startsWith(u"refused Datei oder Verzeichnis nicht gefunden. Datei "
                                  "„Mitgliedsdaten2016.pz“: "_s),
            qPrintable(found));
        QCOMPARE(club.folders.Names(), QStringList {});
    }

    void a_vanished_folder_refuses_and_is_not_created_data()
    {
        QTest::addColumn<QString>("action");
        for (const char* action : { "longer file", "bank", "salutation", "club name" })
            QTest::newRow(action) << QString::fromUtf8(action);
    }

    void a_vanished_folder_refuses_and_is_not_created()
    {
        QFETCH(QString, action);
        const CrashAction& deed = ActionOf(action);
        const Club club;
        QVERIFY(QDir().rmdir(club.folders.files.DataDirectory));
        const QString found = club.Save(driver, deed);
        QVERIFY2(found.startsWith(u"refused Datei oder Verzeichnis nicht gefunden. "_s),
            qPrintable(found));
        QVERIFY(!QFile::exists(club.folders.files.DataDirectory));
        QCOMPARE(club.folders.StateNames(), QStringList {});
    }

    void a_vanished_stick_refuses_and_changes_nothing()
    {
        const CrashAction& deed = ActionOf(u"restore"_s);
        const Club club;
        club.Prepare(deed);
        const QMap<QString, QByteArray> before = OnDisk(club);
        QVERIFY(QDir(club.folders.root.filePath(u"Parzello"_s)).removeRecursively());
        const QString found = club.Save(driver, deed);
        QVERIFY2(found.startsWith(u"refused Datei oder Verzeichnis nicht gefunden. "_s),
            qPrintable(found));
        QCOMPARE(OnDisk(club), before);
        QCOMPARE(club.folders.StateNames(), QStringList {});
    }

    void a_full_disk_keeps_the_old_file_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("disk"); // what lies on it
        QTest::addColumn<int>("free_pages");
        for (const char* action :
            { "longer file", "shorter file", "new file", "change a member", "first start of a year",
                "prices", "bank", "bank without a file", "salutation", "club name", "restore" }) {
            for (const char* disk : { "daten", "state", "." }) {
                for (const int free_pages : { 0, 1, 2, 3, 4, 5, 6 }) {
                    QTest::addRow("%s, %s, %d pages left", action, disk, free_pages)
                        << QString::fromUtf8(action) << QString::fromUtf8(disk) << free_pages;
                }
            }
        }
    }

    void a_full_disk_keeps_the_old_file()
    {
        if (!can_mount)
            QSKIP("Only root may mount a small disk; the crash-matrix limits file sizes instead.");
        QFETCH(QString, action);
        QFETCH(QString, disk);
        QFETCH(int, free_pages);
        const CrashAction& deed = ActionOf(action);
        QTemporaryDir mount_point;
        QVERIFY(::mount("none", QFile::encodeName(mount_point.path()).constData(), "tmpfs", 0,
                    "size=256k")
            == 0);
        {
            Club club;
            PutOnDisk(club, disk, mount_point.path());
            club.Prepare(deed);
            const QMap<QString, QByteArray> before = OnDisk(club);
            FillDisk(mount_point.path(), free_pages);
            const QString found = club.Save(driver, deed);
            const QMap<QString, QByteArray> after = OnDisk(club);
            QVERIFY(QFile::remove(mount_point.filePath(u"filler"_s)));
            QCOMPARE(club.folders.StateNames(), QStringList {});
            if (found != u"confirmed"_s) {
                QVERIFY2(found.startsWith(u"refused Auf dem Gerät ist kein Speicherplatz mehr "
                                          "verfügbar. Datei „"_s),
                    qPrintable(found));
                QVERIFY(found.contains(u"Platz schaffen"_s));
                if (!saves_several.contains(action))
                    QCOMPARE(after, before);
            }
            QCOMPARE(club.Save(driver, deed), u"confirmed"_s);
            QCOMPARE(NeitherOldNorNew(after, before, OnDisk(club)), QStringList {});
            if (found == u"confirmed"_s)
                QCOMPARE(OnDisk(club), after);
        }
        QCOMPARE(::umount(QFile::encodeName(mount_point.path()).constData()), 0);
    }

private:
    Driver driver; // made before the folders move: programs cannot be started from everywhere
    bool can_mount = false;

    static QMap<QString, QByteArray> OnDisk(const Club& club)
    {
        QMap<QString, QByteArray> contents;
        for (const QString& name : club.folders.Names()) {
            if (name != u"filler"_s)
                contents[name] = club.folders.Get(name);
        }
        return contents;
    }

    /// Names of files that are neither the old one nor the new one.
    static QStringList NeitherOldNorNew(const QMap<QString, QByteArray>& found,
        const QMap<QString, QByteArray>& before, const QMap<QString, QByteArray>& after)
    {
        const auto same = [&](const QString& name, const QMap<QString, QByteArray>& wanted) {
            return found.contains(name) == wanted.contains(name)
                && found.value(name) == wanted.value(name);
        };
        QStringList names = before.keys() + after.keys() + found.keys();
        names.removeIf(
            [&](const QString& name) { return same(name, before) || same(name, after); });
        return names;
    }

    static void PutOnDisk(Club& club, const QString& what, const QString& disk)
    {
        SetMode(disk, 0777);
        if (what != u"state"_s)
            club.folders.files.DataDirectory = disk + u"/daten"_s;
        if (what != u"daten"_s)
            club.folders.files.StateDirectory = disk + u"/state"_s;
        for (const QString& folder :
            { club.folders.files.DataDirectory, club.folders.files.StateDirectory }) {
            QVERIFY(QDir().mkpath(folder));
            GiveAway(folder);
        }
    }
};

const TestFile<TestRefusedPlaces> test_file(__FILE__);
#include "test_refused_places.moc"
