// Which volume counts as the stick, and which folder is the backup folder.
#include "backup/drives.h"

#include "tests/support/privileges.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

Volume Stick(const char* device, const char* mount_path)
{
    Volume volume;
    volume.Device = QString::fromLatin1(device);
    volume.Drive = volume.Device.left(3);
    volume.MountPath = QString::fromLatin1(mount_path);
    volume.RemovableDrive = true;
    volume.OnUsbOrSdBus = true;
    return volume;
}

Volume Disk(const char* device, const char* mount_path)
{
    Volume volume = Stick(device, mount_path);
    volume.RemovableDrive = false;
    volume.OnUsbOrSdBus = false;
    return volume;
}

} // namespace

class TestDrives : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void without_volumes_there_is_no_drive() { QVERIFY(FirstRemovableVolume({}).isEmpty()); }

    void disks_of_the_computer_are_no_drive()
    {
        QVERIFY(FirstRemovableVolume({ Disk("sda1", "/"), Disk("sda2", "/data") }).isEmpty());
    }

    void the_drive_is_the_mount_path_of_the_stick()
    {
        QCOMPARE(FirstRemovableVolume({ Disk("sda1", "/"), Stick("sdb1", "/media/anna/STICK") }),
            QStringLiteral("/media/anna/STICK"));
    }

    void the_drive_text_has_no_slash_at_its_end()
    {
        QCOMPARE(FirstRemovableVolume({ Stick("sdb1", "/media/STICK/") }),
            QStringLiteral("/media/STICK"));
    }

    void a_stick_that_does_not_say_it_is_removable_counts_by_its_bus()
    {
        Volume stick = Stick("sdb1", "/media/STICK");
        stick.RemovableDrive = false;
        QCOMPARE(FirstRemovableVolume({ stick }), QStringLiteral("/media/STICK"));
    }

    void a_removable_drive_on_another_bus_counts_too()
    {
        Volume stick = Stick("sdb1", "/media/STICK");
        stick.OnUsbOrSdBus = false;
        QCOMPARE(FirstRemovableVolume({ stick }), QStringLiteral("/media/STICK"));
    }

    void device_names_decide_the_order_data()
    {
        QTest::addColumn<QString>("later");
        QTest::addColumn<QString>("earlier");
        QTest::newRow("letters") << QStringLiteral("sdc1") << QStringLiteral("sdb1");
        QTest::newRow("partitions") << QStringLiteral("sdb2") << QStringLiteral("sdb1");
        QTest::newRow("numbers, not digits") << QStringLiteral("sdb10") << QStringLiteral("sdb2");
        QTest::newRow("whole drive first") << QStringLiteral("sdb1") << QStringLiteral("sdb");
        QTest::newRow("card before stick") << QStringLiteral("sda1") << QStringLiteral("mmcblk0p1");
    }

    void device_names_decide_the_order()
    {
        QFETCH(QString, later);
        QFETCH(QString, earlier);
        const Volume second = Stick(later.toLatin1().constData(), "/media/second");
        const Volume first = Stick(earlier.toLatin1().constData(), "/media/first");
        QCOMPARE(FirstRemovableVolume({ second, first }), QStringLiteral("/media/first"));
        QCOMPARE(FirstRemovableVolume({ first, second }), QStringLiteral("/media/first"));
    }

    void an_empty_card_reader_is_passed_over()
    {
        QCOMPARE(FirstRemovableVolume({ Stick("sdb", ""), Stick("sdc1", "/media/STICK") }),
            QStringLiteral("/media/STICK"));
        QVERIFY(FirstRemovableVolume({ Stick("sdb", "") }).isEmpty());
    }

    void a_card_in_the_reader_goes_before_the_stick()
    {
        QCOMPARE(
            FirstRemovableVolume({ Stick("sdc1", "/media/STICK"), Stick("sdb1", "/media/CARD") }),
            QStringLiteral("/media/CARD"));
    }

    void a_volume_of_the_system_is_no_drive()
    {
        Volume stick = Stick("sdb1", "/media/STICK");
        stick.OfSystem = true;
        QVERIFY(FirstRemovableVolume({ stick }).isEmpty());
    }

    void a_disc_is_no_drive()
    {
        Volume disc = Stick("sr0", "/media/DISC");
        disc.Optical = true;
        QVERIFY(FirstRemovableVolume({ disc }).isEmpty());
    }

    void the_drive_that_the_system_runs_from_is_no_drive_data()
    {
        QTest::addColumn<QString>("place");
        const char* places[] = { "/", "/boot", "/boot/efi", "/home", "/usr", "/var",
            "/run/live/medium", "/lib/live/mount/persistence/sdb2" };
        for (const char* place : places)
            QTest::newRow(place) << QString::fromLatin1(place);
    }

    void the_drive_that_the_system_runs_from_is_no_drive()
    {
        QFETCH(QString, place);
        const Volume system = Stick("sdb2", place.toLatin1().constData());
        QVERIFY(FirstRemovableVolume({ Stick("sdb1", "/media/DATA"), system }).isEmpty());
        QCOMPARE(FirstRemovableVolume(
                     { Stick("sdb1", "/media/DATA"), system, Stick("sdc1", "/media/STICK") }),
            QStringLiteral("/media/STICK"));
    }

    void letters_are_asked_from_b_to_z()
    {
        QStringList asked;
        const QString drive = FirstRemovableLetter([&](const QString& letter) {
            asked += letter;
            return 3U;
        });
        QVERIFY(drive.isEmpty());
        QCOMPARE(asked.size(), 25);
        QCOMPARE(asked.first(), QStringLiteral("B:"));
        QCOMPARE(asked.last(), QStringLiteral("Z:"));
    }

    void the_first_removable_letter_is_taken_and_the_search_stops()
    {
        QStringList asked;
        const QString drive = FirstRemovableLetter([&](const QString& letter) {
            asked += letter; // a card reader on D:, empty, and the stick on F:
            return letter == QStringLiteral("D:") || letter == QStringLiteral("F:") ? 2U : 5U;
        });
        QCOMPARE(drive, QStringLiteral("D:"));
        QCOMPARE(asked,
            QStringList({ QStringLiteral("B:"), QStringLiteral("C:"), QStringLiteral("D:") }));
    }

    void the_folder_is_on_the_drive()
    {
        QCOMPARE(BackupFolder(QStringLiteral("/media/anna/STICK"), {}),
            QStringLiteral("/media/anna/STICK/Parzello/"));
        QCOMPARE(BackupFolder(QStringLiteral("E:"), {}), QStringLiteral("E:/Parzello/"));
    }

    void without_a_drive_the_folder_is_at_the_root_of_the_volume()
    {
        QTemporaryDir root;
        QCOMPARE(BackupFolder({}, { root.path(), QStringLiteral("/home/anna") }),
            root.path() + QStringLiteral("/Parzello/"));
        QCOMPARE(BackupFolder({}, { root.path() + QLatin1Char('/'), QStringLiteral("/home/anna") }),
            root.path() + QStringLiteral("/Parzello/"));
    }

    void without_a_drive_a_root_that_cannot_be_written_gives_the_home()
    {
        QCOMPARE(BackupFolder({}, { QStringLiteral("/nowhere"), QStringLiteral("/home/anna") }),
            QStringLiteral("/home/anna/Parzello/"));

        QTemporaryDir root;
        QFile file(root.filePath(QStringLiteral("Parzello")));
        QVERIFY(file.open(QIODevice::WriteOnly)); // a file stands where the folder should be
        QCOMPARE(BackupFolder({}, { root.path(), QStringLiteral("/home/anna") }),
            QStringLiteral("/home/anna/Parzello/"));
    }

    void without_a_drive_missing_permission_gives_the_home()
    {
        QTemporaryDir root;
        const QFile::Permissions read_only = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
            | QFile::ExeOther | QFile::ReadUser | QFile::ExeUser;
        QVERIFY(QFile::setPermissions(root.path(), read_only));
        const Fallback fallback { root.path(), QStringLiteral("/home/anna") };
        {
            const WithoutPrivileges user;
            if (!user.Works)
                QSKIP("the user cannot be changed here");
            QCOMPARE(BackupFolder({}, fallback), QStringLiteral("/home/anna/Parzello/"));
        }
        // a folder of an earlier backup that may be written counts, whatever its surroundings are
        QVERIFY(QFile::setPermissions(root.path(), read_only | QFile::WriteOwner));
        QVERIFY(QDir(root.path()).mkdir(QStringLiteral("Parzello")));
        QVERIFY(QFile::setPermissions(
            root.filePath(QStringLiteral("Parzello")), read_only | QFile::WriteOther));
        QVERIFY(QFile::setPermissions(root.path(), read_only));
        if (::getuid() == 0) {
            const WithoutPrivileges user;
            QCOMPARE(BackupFolder({}, fallback), root.filePath(QStringLiteral("Parzello/")));
        }
        QVERIFY(QFile::setPermissions(root.path(), read_only | QFile::WriteOwner));
    }

    void the_fallback_names_volume_and_home()
    {
        QTemporaryDir data;
        const Fallback fallback = FallbackOf(data.path());
        QVERIFY(QDir(fallback.VolumeRoot).exists());
        QVERIFY(data.path().startsWith(fallback.VolumeRoot));
        QCOMPARE(fallback.Home, QDir::homePath());
    }
};

const TestFile<TestDrives> test_file(__FILE__);
#include "test_drives.moc"
