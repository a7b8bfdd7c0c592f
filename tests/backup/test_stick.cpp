// The two buttons against a real file system of a stick's kind: an image that is mounted, filled,
// write-protected, pulled in the middle and restored from. Needs the right to mount; without it
// every test says that it was skipped.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QDate Day(2017, 11, 20);

/// Runs a program and answers whether it succeeded; its output is dropped.
bool Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForStarted() && process.waitForFinished() && process.exitCode() == 0
        && process.exitStatus() == QProcess::NormalExit;
}

/// What a stick can be formatted with on this computer; vfat is what real ones have, but not every
/// kernel can mount it.
const QStringList Formats { u"vfat"_s, u"ext2"_s };

/// An image of a small stick and the place where it is plugged in.
class Stick {
public:
    Stick()
    {
        QDir(Folder.path()).mkdir(u"place"_s);
        QFile image(Image());
        if (!image.open(QIODevice::WriteOnly) || !image.resize(2 * 1024 * 1024))
            qFatal("cannot make an image");
    }
    ~Stick() { Pull(); }
    Stick(const Stick&) = delete;
    Stick& operator=(const Stick&) = delete;

    QString Image() const { return Folder.filePath(u"image"_s); }
    QString Place() const { return Folder.filePath(u"place"_s); }
    QString Path(const QString& name) const { return Place() + u"/Parzello/"_s + name; }

    bool FormatAndPlugIn(const QString& format)
    {
        Format = format;
        return Run(u"mkfs."_s + format, { Image() }) && PlugIn();
    }

    bool PlugIn(bool writable = true)
    {
        const QString options = writable ? u"loop,rw"_s : u"loop,ro"_s;
        IsIn = Run(u"mount"_s, { u"-t"_s, Format, u"-o"_s, options, Image(), Place() });
        return IsIn;
    }

    /// At once and without a question, as by hand: files that are open lose their folder.
    void Pull()
    {
        if (IsIn)
            Run(u"umount"_s, { u"-l"_s, Place() });
        IsIn = false;
    }

    QStringList Names() const
    {
        return QDir(Place() + u"/Parzello"_s)
            .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    QByteArray Read(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

private:
    QTemporaryDir Folder;
    QString Format;
    bool IsIn = false;
};

struct ClubWithStick : TestClub {
    Stick Plugged;

    explicit ClubWithStick(const QString& format)
    {
        if (!Plugged.FormatAndPlugIn(format))
            qFatal("the stick that worked before works no more");
        Drive = Plugged.Place();
        CopyExample(u"ordinary-year"_s);
        Start(Day);
        Boxes.clear();
    }

    void Save() { program.Backup.Command10->click(); }
    void Restore() { program.Backup.Command11->click(); }

    /// Runs the routine once the so-manieth file is copied, seen at the bar.
    void AfterFiles(int count, int of, const std::function<void()>& routine)
    {
        const int value = qRound(100.0F / static_cast<float>(of) * static_cast<float>(count));
        QObject::connect(program.Backup.PB1, &QProgressBar::valueChanged, program.Backup.PB1,
            [value, routine](int shown) {
                if (shown == value)
                    routine();
            });
    }
};

} // namespace

class TestStick : public QObject {
    Q_OBJECT

    QString Format;

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString& format : Formats) {
            Stick trial;
            if (!trial.FormatAndPlugIn(format))
                continue;
            Format = format;
            qInfo("the stick is a loop-mounted image with %s", qPrintable(format));
            return;
        }
        QSKIP("NOT TESTED: no image can be mounted here: that needs root, a loop device and vfat "
              "or ext2 in the kernel");
    }

    void a_stick_is_filled_and_readable_after_it_was_pulled()
    {
        ClubWithStick club(Format);
        club.Save();
        QCOMPARE(club.Boxes.last().title, u"Datensicherug"_s);
        club.Plugged.Pull(); // right after the message
        QVERIFY(club.Plugged.Names().isEmpty());
        QVERIFY(club.Plugged.PlugIn());
        QCOMPARE(club.Plugged.Names().size(), 8);
        for (const QString& name : club.Plugged.Names()) {
            QCOMPARE(club.Plugged.Read(name), club.Read(name));
            const QDateTime kept = QFileInfo(club.Plugged.Path(name)).lastModified();
            const QDateTime own = QFileInfo(club.Path(name)).lastModified();
            QVERIFY(qAbs(kept.secsTo(own)) <= 2); // sticks keep even seconds only
        }
    }

    void a_second_backup_replaces_the_first()
    {
        ClubWithStick club(Format);
        club.Save();
        club.Write(u"Konto2017.pz"_s, "01.12.2017;Neu;1,00;0,00\r\n");
        club.Save();
        QCOMPARE(club.Boxes.last().title, u"Datensicherug"_s);
        club.Plugged.Pull();
        QVERIFY(club.Plugged.PlugIn());
        QCOMPARE(club.Plugged.Names().size(), 8);
        QCOMPARE(club.Plugged.Read(u"Konto2017.pz"_s), QByteArray("01.12.2017;Neu;1,00;0,00\r\n"));
    }

    void a_full_stick_is_reported_and_keeps_the_older_copies()
    {
        ClubWithStick club(Format);
        club.Save();
        const QByteArray older = club.Plugged.Read(u"Konto2017.pz"_s);
        QFile ballast(club.Plugged.Place() + u"/ballast"_s);
        QVERIFY(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const QByteArray block(64 * 1024, 'x');
        while (ballast.write(block) == block.size()) { }
        ballast.close();
        club.Write(
            u"Konto2017.pz"_s, QByteArray(2 * 1024 * 1024, 'k')); // more than the stick holds
        club.Boxes.clear();
        club.Save();
        const MessageBox& box = club.Boxes.last();
        QCOMPARE(box.title, u"Kleingarten Parzello"_s);
        QCOMPARE(box.icon, BoxIcon::Error);
        QCOMPARE(box.text, u"Auf dem Gerät ist kein Speicherplatz mehr verfügbar"_s);
        QVERIFY(box.detail.startsWith(u"Datei „"_s));
        QCOMPARE(club.Plugged.Names().size(), 8); // nothing half-copied is left
        QCOMPARE(club.Plugged.Read(u"Konto2017.pz"_s), older);
    }

    void a_write_protected_stick_is_reported()
    {
        ClubWithStick club(Format);
        club.Plugged.Pull();
        QVERIFY(club.Plugged.PlugIn(false));
        club.Save();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].text, u"Das Dateisystem ist nur lesbar"_s);
        QVERIFY(club.Boxes[0].detail.startsWith(
            u"Der Ordner „"_s + club.Plugged.Path({}) + u"“ kann nicht angelegt werden."_s));

        club.Plugged.Pull();
        QVERIFY(club.Plugged.PlugIn());
        club.Save();
        club.Plugged.Pull();
        QVERIFY(club.Plugged.PlugIn(false));
        club.Boxes.clear();
        club.Save(); // the folder is there now, but its files cannot be replaced
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].text, u"Das Dateisystem ist nur lesbar"_s);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „Config.ini“: "_s));

        club.Boxes.clear();
        club.Write(u"Konto2017.pz"_s, "damaged");
        club.Restore(); // reading is all that a restore needs
        QCOMPARE(club.Boxes.last().title, u"Daten Wiederherstellung"_s);
        QCOMPARE(club.Read(u"Konto2017.pz"_s), club.Plugged.Read(u"Konto2017.pz"_s));
    }

    void a_stick_pulled_in_the_middle_of_a_backup_is_reported()
    {
        ClubWithStick club(Format);
        club.AfterFiles(3, 8, [&] { club.Plugged.Pull(); });
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „HandKasse2017.pz“: "_s));
        QCOMPARE(club.program.Backup.PB1->value(), 0);
        QVERIFY(QDir(club.Plugged.Place()).isEmpty()); // nothing is written beside the stick
        QVERIFY(club.Plugged.PlugIn());
        const QStringList names = club.Plugged.Names();
        QCOMPARE(names, QStringList({ u"Config.ini"_s, u"Config1.ini"_s, u"HandKasse2016.pz"_s }));
        for (const QString& name : names)
            QCOMPARE(club.Plugged.Read(name), club.Read(name));
    }

    void a_stick_that_turns_read_only_in_the_middle_is_reported()
    {
        ClubWithStick club(Format);
        club.AfterFiles(2, 8, [&] {
            club.Plugged.Pull();
            club.Plugged.PlugIn(false);
        });
        club.Save();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].text, u"Das Dateisystem ist nur lesbar"_s);
        QVERIFY(club.Boxes[1].detail.startsWith(u"Datei „HandKasse2016.pz“: "_s));
        QCOMPARE(club.Plugged.Names(), QStringList({ u"Config.ini"_s, u"Config1.ini"_s }));
    }

    void a_damaged_club_is_restored()
    {
        ClubWithStick club(Format);
        club.Save();
        club.Plugged.Pull();
        QHash<QString, QByteArray> before;
        const QStringList names = QDir(club.program.Files.DataDirectory).entryList(QDir::Files);
        for (const QString& name : names) {
            before[name] = club.Read(name);
            if (name != u"V.dat"_s)
                club.Write(name, "damaged");
        }
        QVERIFY(club.Plugged.PlugIn());
        club.Boxes.clear();
        club.Restore();
        QCOMPARE(club.Boxes.last().title, u"Daten Wiederherstellung"_s);
        QCOMPARE(QDir(club.program.Files.DataDirectory).entryList(QDir::Files), names);
        for (const QString& name : names)
            QCOMPARE(club.Read(name), before[name]);
        QCOMPARE(club.program.Members.RecordList.size(), 8);
    }

    void a_stick_pulled_before_a_restore_changes_nothing()
    {
        ClubWithStick club(Format);
        club.Save();
        club.Write(u"Konto2017.pz"_s, "changed since");
        club.Boxes.clear();
        const AskRoutine ask = club.program.Ask;
        club.program.Ask = [&](const MessageBox& box) {
            club.Plugged.Pull();
            return ask(box);
        };
        club.Restore();
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QCOMPARE(club.Boxes[1].text, u"Datei oder Verzeichnis nicht gefunden"_s);
        QCOMPARE(club.Read(u"Konto2017.pz"_s), QByteArray("changed since"));
    }
};

const TestFile<TestStick> test_file(__FILE__);
#include "test_stick.moc"
