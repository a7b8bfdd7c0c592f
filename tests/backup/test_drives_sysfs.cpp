// Reading mount table and block devices below a made-up root folder.
#include "backup/drives_sysfs.h"

#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A root folder with "proc/self/mountinfo" and "sys", as the kernel would show them.
class MadeUpRoot {
public:
    MadeUpRoot()
    {
        QDir(Folder.path()).mkpath(QStringLiteral("proc/self"));
        QDir(Folder.path()).mkpath(QStringLiteral("sys/dev/block"));
        QDir(Folder.path()).mkpath(QStringLiteral("sys/class/block"));
    }

    QString Path() const { return Folder.path(); }

    void Write(const QString& path, const QByteArray& content) const
    {
        const QString whole = Folder.filePath(path);
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
    }

    /// The device's folder below "sys/devices" and the links that lead to it.
    void AddDevice(const QString& folder, const QString& number) const
    {
        const QString whole = QStringLiteral("sys/devices/") + folder;
        Write(whole + QStringLiteral("/dev"), number.toLatin1() + '\n');
        const QString target = Folder.filePath(whole);
        QFile::link(target, Folder.filePath(QStringLiteral("sys/dev/block/") + number));
        QFile::link(target,
            Folder.filePath(QStringLiteral("sys/class/block/") + QFileInfo(folder).fileName()));
    }

    void AddDisk(const QString& folder, const QString& number, const QByteArray& removable) const
    {
        AddDevice(folder, number);
        Write(QStringLiteral("sys/devices/") + folder + QStringLiteral("/removable"),
            removable + '\n');
    }

    void AddPartition(const QString& folder, const QString& number) const
    {
        AddDevice(folder, number);
        Write(QStringLiteral("sys/devices/") + folder + QStringLiteral("/partition"), "1\n");
    }

    void SetMounts(const QByteArray& lines) const
    {
        Write(QStringLiteral("proc/self/mountinfo"), lines);
    }

private:
    QTemporaryDir Folder;
};

const QString UsbDisk
    = QStringLiteral("pci0000:00/0000:00:14.0/usb1/1-2/1-2:1.0/host6/target6:0:0/6:0:0:0/block/");
const QString SataDisk = QStringLiteral("pci0000:00/0000:00:17.0/ata1/host0/0:0:0:0/block/");
const QString CardSlot = QStringLiteral("pci0000:00/0000:00:1e.6/mmc_host/mmc0/mmc0:aaaa/block/");

const QByteArray RootMount = "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n";

void AddSystemDisk(const MadeUpRoot& root)
{
    root.AddDisk(SataDisk + QStringLiteral("sda"), QStringLiteral("8:0"), "0");
    root.AddPartition(SataDisk + QStringLiteral("sda/sda1"), QStringLiteral("8:1"));
}

void AddStick(const MadeUpRoot& root, const QByteArray& removable)
{
    root.AddDisk(UsbDisk + QStringLiteral("sdb"), QStringLiteral("8:16"), removable);
    root.AddPartition(UsbDisk + QStringLiteral("sdb/sdb1"), QStringLiteral("8:17"));
}

const Volume* FindVolume(const QList<Volume>& volumes, const char* device)
{
    for (const Volume& volume : volumes) {
        if (volume.Device == QLatin1String(device))
            return &volume;
    }
    return nullptr;
}

} // namespace

class TestDrivesSysfs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void without_a_mount_table_there_are_no_volumes()
    {
        QVERIFY(VolumesFromSysfs(QStringLiteral("/nowhere")).isEmpty());
    }

    void a_stick_is_found_by_removable_and_bus()
    {
        const MadeUpRoot root;
        AddSystemDisk(root);
        AddStick(root, "1");
        root.SetMounts(RootMount
            + "40 22 8:17 / /media/anna/STICK rw,nosuid - vfat /dev/sdb1 rw,uid=1000\n"
              "41 22 0:35 / /proc rw - proc proc rw\n");
        const QList<Volume> volumes = VolumesFromSysfs(root.Path());
        QCOMPARE(volumes.size(), 2);
        const Volume* disk = FindVolume(volumes, "sda1");
        QVERIFY(disk != nullptr);
        QCOMPARE(disk->Drive, QStringLiteral("sda"));
        QVERIFY(!disk->RemovableDrive);
        QVERIFY(!disk->OnUsbOrSdBus);
        const Volume* stick = FindVolume(volumes, "sdb1");
        QVERIFY(stick != nullptr);
        QCOMPARE(stick->Drive, QStringLiteral("sdb"));
        QVERIFY(stick->RemovableDrive);
        QVERIFY(stick->OnUsbOrSdBus);
        QCOMPARE(FirstRemovableVolume(volumes), QStringLiteral("/media/anna/STICK"));
    }

    void a_stick_without_the_removable_mark_is_found_by_its_bus()
    {
        const MadeUpRoot root;
        AddStick(root, "0");
        root.SetMounts("40 22 8:17 / /media/STICK rw - vfat /dev/sdb1 rw\n");
        const QList<Volume> volumes = VolumesFromSysfs(root.Path());
        QVERIFY(!volumes.first().RemovableDrive);
        QCOMPARE(FirstRemovableVolume(volumes), QStringLiteral("/media/STICK"));
    }

    void a_stick_without_partitions_is_found()
    {
        const MadeUpRoot root;
        root.AddDisk(UsbDisk + QStringLiteral("sdb"), QStringLiteral("8:16"), "1");
        root.SetMounts("40 22 8:16 / /media/STICK rw - vfat /dev/sdb rw\n");
        QCOMPARE(
            FirstRemovableVolume(VolumesFromSysfs(root.Path())), QStringLiteral("/media/STICK"));
    }

    void an_sd_card_is_found_and_a_built_in_chip_is_not_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QString>("drive");
        QTest::newRow("card") << QByteArray("SD\n") << QStringLiteral("/media/CARD");
        QTest::newRow("chip") << QByteArray("MMC\n") << QString();
    }

    void an_sd_card_is_found_and_a_built_in_chip_is_not()
    {
        QFETCH(QByteArray, type);
        QFETCH(QString, drive);
        const MadeUpRoot root;
        root.AddDisk(CardSlot + QStringLiteral("mmcblk0"), QStringLiteral("179:0"), "0");
        root.AddPartition(CardSlot + QStringLiteral("mmcblk0/mmcblk0p1"), QStringLiteral("179:1"));
        root.Write(
            QStringLiteral("sys/devices/") + CardSlot + QStringLiteral("mmcblk0/device/type"),
            type);
        root.SetMounts("40 22 179:1 / /media/CARD rw - vfat /dev/mmcblk0p1 rw\n");
        QCOMPARE(FirstRemovableVolume(VolumesFromSysfs(root.Path())), drive);
    }

    void a_disc_in_a_usb_drive_is_not_taken()
    {
        const MadeUpRoot root;
        root.AddDisk(UsbDisk + QStringLiteral("sr0"), QStringLiteral("11:0"), "1");
        root.Write(
            QStringLiteral("sys/devices/") + UsbDisk + QStringLiteral("sr0/device/type"), "5\n");
        root.SetMounts("40 22 11:0 / /media/DISC ro - iso9660 /dev/sr0 ro\n");
        const QList<Volume> volumes = VolumesFromSysfs(root.Path());
        QVERIFY(volumes.first().Optical);
        QVERIFY(FirstRemovableVolume(volumes).isEmpty());
    }

    void an_encrypted_stick_is_found_by_the_disk_below()
    {
        const MadeUpRoot root;
        AddStick(root, "1");
        root.AddDevice(QStringLiteral("virtual/block/dm-0"), QStringLiteral("253:0"));
        QDir(root.Path()).mkpath(QStringLiteral("sys/devices/virtual/block/dm-0/slaves"));
        QFile::link(
            root.Path() + QStringLiteral("/sys/devices/") + UsbDisk + QStringLiteral("sdb/sdb1"),
            root.Path() + QStringLiteral("/sys/devices/virtual/block/dm-0/slaves/sdb1"));
        root.SetMounts("40 22 253:0 / /media/SECRET rw - ext4 /dev/mapper/luks-1 rw\n");
        const QList<Volume> volumes = VolumesFromSysfs(root.Path());
        QCOMPARE(volumes.first().Drive, QStringLiteral("sdb"));
        QCOMPARE(FirstRemovableVolume(volumes), QStringLiteral("/media/SECRET"));
    }

    void a_device_without_a_number_of_its_own_is_found_by_its_name()
    {
        const MadeUpRoot root;
        AddStick(root, "1"); // some file systems show a made-up number
        root.SetMounts("40 22 0:48 / /media/STICK rw - btrfs /dev/sdb1 rw\n");
        QCOMPARE(
            FirstRemovableVolume(VolumesFromSysfs(root.Path())), QStringLiteral("/media/STICK"));
    }

    void blanks_and_umlauts_of_the_mount_path_are_read()
    {
        const MadeUpRoot root;
        AddStick(root, "1");
        root.SetMounts(
            "40 22 8:17 / /media/Anna\\040M\xc3\xbcller/A\\134B rw - vfat /dev/sdb1 rw\n");
        QCOMPARE(FirstRemovableVolume(VolumesFromSysfs(root.Path())),
            QStringLiteral("/media/Anna Müller/A\\B"));
    }

    void a_folder_of_the_stick_mounted_elsewhere_is_no_volume()
    {
        const MadeUpRoot root;
        AddStick(root, "1");
        root.SetMounts("40 22 8:17 /Bilder /srv/bilder rw - vfat /dev/sdb1 rw\n");
        QVERIFY(VolumesFromSysfs(root.Path()).isEmpty());
    }

    void what_hides_another_mount_counts()
    {
        const MadeUpRoot root;
        AddStick(root, "1");
        root.SetMounts("40 22 8:17 / /mnt rw - vfat /dev/sdb1 rw\n"
                       "41 22 0:44 / /mnt rw - tmpfs tmpfs rw\n");
        QVERIFY(FirstRemovableVolume(VolumesFromSysfs(root.Path())).isEmpty());
    }

    void crippled_lines_are_passed_over()
    {
        const MadeUpRoot root;
        AddStick(root, "1");
        root.SetMounts("\n - \n40 22 8:17 /\n40 22 8:17 / /media/STICK rw - vfat\n"
                       "40 22 8:17 / /media/STICK rw shared:3 master:1 - vfat /dev/sdb1 rw\n");
        QCOMPARE(VolumesFromSysfs(root.Path()).size(), 1);
    }

    void this_computer_can_be_read()
    {
        const QList<Volume> volumes = VolumesFromSysfs(QStringLiteral("/"));
        for (const Volume& volume : volumes)
            QVERIFY(!volume.Device.isEmpty() && volume.MountPath.startsWith(QLatin1Char('/')));
    }
};

const TestFile<TestDrivesSysfs> test_file(__FILE__);
#include "test_drives_sysfs.moc"
