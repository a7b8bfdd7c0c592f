// Asking the disk service, against a mock of it on a message bus of the test's own.
#include "backup/drives_linux.h"
#include "backup/drives_udisks2.h"

#include "tests/support/test_file.h"

#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

constexpr int patience = 20000; // milliseconds for a program to start on a busy machine

QJsonObject VolumeOf(const char* json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray(json), &error);
    if (document.isNull())
        qFatal("%s in %s", qPrintable(error.errorString()), json);
    return document.object();
}

const char* const InternalDisk = R"({"device": "sda1", "drive": "disk", "mounts": ["/"],
    "bus": "", "system": true})";
const char* const UsbStick = R"({"device": "sdb1", "drive": "stick",
    "mounts": ["/media/anna/STICK"], "bus": "usb", "removable": true, "media_removable": true})";

} // namespace

class TestDrivesUdisks2 : public QObject {
    Q_OBJECT

    QProcess Bus;
    QString Address;
    std::unique_ptr<QProcess> Mock;

    QDBusConnection Connection() const
    {
        return QDBusConnection::connectToBus(Address, QStringLiteral("of the test"));
    }

    void StartMock(const QList<QJsonObject>& volumes)
    {
        QJsonArray list;
        for (const QJsonObject& volume : volumes)
            list += volume;
        const QJsonObject parameters { { QStringLiteral("volumes"), list } };
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), Address);
        environment.insert(QStringLiteral("PYTHONDONTWRITEBYTECODE"), QStringLiteral("1"));
        Mock = std::make_unique<QProcess>();
        Mock->setProcessEnvironment(environment);
        Mock->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        Mock->start(QStringLiteral("/usr/bin/python3"),
            { QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--template"),
                QStringLiteral(PARZELLO_TEST_SUPPORT "/udisks2_mock.py"), QStringLiteral("-p"),
                QString::fromUtf8(QJsonDocument(parameters).toJson(QJsonDocument::Compact)) });
        const QDBusConnection bus = Connection();
        QTRY_VERIFY_WITH_TIMEOUT(
            bus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.UDisks2")),
            patience);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (QProcess::execute(QStringLiteral("/usr/bin/python3"),
                { QStringLiteral("-c"), QStringLiteral("import dbusmock") })
            != 0)
            QSKIP("python3-dbusmock is not installed");
        Bus.start(QStringLiteral("dbus-daemon"),
            { QStringLiteral("--session"), QStringLiteral("--nofork"),
                QStringLiteral("--print-address") });
        QVERIFY(Bus.waitForStarted(patience));
        QVERIFY(Bus.waitForReadyRead(patience));
        Address = QString::fromUtf8(Bus.readLine()).trimmed();
        QVERIFY(Connection().isConnected());
    }

    void cleanup()
    {
        if (!Mock)
            return;
        Mock->kill();
        Mock->waitForFinished(patience);
        Mock.reset();
        const QDBusConnection bus = Connection();
        QTRY_VERIFY_WITH_TIMEOUT(
            !bus.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.UDisks2")),
            patience);
    }

    void cleanupTestCase()
    {
        QDBusConnection::disconnectFromBus(QStringLiteral("of the test"));
        Bus.kill();
        Bus.waitForFinished(patience);
    }

    void a_stick_is_described_with_drive_bus_and_mount_path()
    {
        StartMock({ VolumeOf(InternalDisk), VolumeOf(UsbStick) });
        const auto volumes = VolumesFromUdisks2(Connection());
        QVERIFY(volumes.has_value());
        QCOMPARE(volumes->size(), 2);
        const Volume& disk = volumes->at(0);
        QCOMPARE(disk.Device, QStringLiteral("sda1"));
        QCOMPARE(disk.MountPath, QStringLiteral("/"));
        QVERIFY(disk.OfSystem);
        QVERIFY(!disk.RemovableDrive);
        QVERIFY(!disk.OnUsbOrSdBus);
        const Volume& stick = volumes->at(1);
        QCOMPARE(stick.Device, QStringLiteral("sdb1"));
        QCOMPARE(stick.MountPath, QStringLiteral("/media/anna/STICK"));
        QVERIFY(!stick.OfSystem);
        QVERIFY(stick.RemovableDrive);
        QVERIFY(stick.OnUsbOrSdBus);
        QVERIFY(!stick.Drive.isEmpty());
        QVERIFY(stick.Drive != disk.Drive);
    }

    void the_first_stick_is_found_data()
    {
        QTest::addColumn<QStringList>("volumes");
        QTest::addColumn<QString>("drive");
        const auto row = [](const char* name, QList<const char*> volumes, const char* drive) {
            QStringList texts;
            for (const char* volume : volumes)
                texts += QString::fromUtf8(volume);
            QTest::newRow(name) << texts << QString::fromUtf8(drive);
        };
        row("nothing is plugged in", { InternalDisk }, "");
        row("stick", { UsbStick, InternalDisk }, "/media/anna/STICK");
        row("stick that does not say it is removable",
            { R"({"device": "sdb1", "drive": "s", "mounts": ["/media/S"], "bus": "usb"})" },
            "/media/S");
        row("card",
            { R"({"device": "mmcblk0p1", "drive": "c", "mounts": ["/media/C"], "bus": "sdio"})" },
            "/media/C");
        row("not mounted",
            { R"({"device": "sdb1", "drive": "s", "mounts": [], "bus": "usb", "removable": true})",
                R"({"device": "sdc", "drive": "reader", "bus": "usb", "media_removable": true})" },
            "");
        row("card reader is empty, stick is behind it",
            { R"({"device": "sdb", "drive": "reader", "bus": "usb", "media_removable": true})",
                R"({"device": "sdc1", "drive": "s", "mounts": ["/media/S"], "bus": "usb"})" },
            "/media/S");
        row("two sticks",
            { R"({"device": "sdc1", "drive": "s2", "mounts": ["/media/B"], "bus": "usb"})",
                R"({"device": "sdb1", "drive": "s1", "mounts": ["/media/A"], "bus": "usb"})" },
            "/media/A");
        row("volume to be ignored",
            { R"({"device": "sdb1", "drive": "s", "mounts": ["/media/S"], "bus": "usb",
                "ignore": true})" },
            "");
        row("disc", { R"({"device": "sr0", "drive": "d", "mounts": ["/media/D"], "bus": "usb",
                "removable": true, "optical": true})" },
            "");
        row("encrypted stick, opened",
            { R"({"device": "sdb1", "drive": "s", "bus": "usb", "removable": true})",
                R"({"device": "dm-0", "below": "sdb1", "mounts": ["/media/SECRET"]})" },
            "/media/SECRET");
        row("system that runs from a stick",
            { R"({"device": "sdb2", "drive": "s", "mounts": ["/"], "bus": "usb"})",
                R"({"device": "sdb1", "drive": "s", "mounts": ["/media/S"], "bus": "usb"})" },
            "");
        row("umlauts and blanks",
            { R"({"device": "sdb1", "drive": "s", "mounts": ["/media/Anna Müller/S"],
                "bus": "usb"})" },
            "/media/Anna Müller/S");
    }

    void the_first_stick_is_found()
    {
        QFETCH(QStringList, volumes);
        QFETCH(QString, drive);
        QList<QJsonObject> descriptions;
        for (const QString& volume : volumes)
            descriptions += VolumeOf(volume.toUtf8().constData());
        StartMock(descriptions);
        QCOMPARE(FindRemovableDriveWith(Connection(), QStringLiteral("/nowhere")), drive);
    }

    void a_service_that_knows_nothing_is_believed()
    {
        StartMock({});
        const auto volumes = VolumesFromUdisks2(Connection());
        QVERIFY(volumes.has_value());
        QVERIFY(volumes->isEmpty());
    }

    void without_the_service_there_is_no_answer()
    {
        QVERIFY(!VolumesFromUdisks2(Connection()).has_value());
    }

    void without_a_bus_there_is_no_answer()
    {
        const QDBusConnection nowhere(QStringLiteral("never connected"));
        QVERIFY(!VolumesFromUdisks2(nowhere).has_value());
    }

    void without_the_service_mount_table_and_kernel_decide()
    {
        QTemporaryDir root;
        const QDir folder(root.path());
        const QString device = QStringLiteral("sys/devices/pci0/usb1/1-1/host0/block/sdb/sdb1");
        QVERIFY(folder.mkpath(device));
        QVERIFY(folder.mkpath(QStringLiteral("sys/dev/block")));
        QVERIFY(folder.mkpath(QStringLiteral("proc/self")));
        QVERIFY(QFile::link(
            folder.filePath(device), folder.filePath(QStringLiteral("sys/dev/block/8:17"))));
        QFile partition(folder.filePath(device + QStringLiteral("/partition")));
        QVERIFY(partition.open(QIODevice::WriteOnly));
        QFile mounts(folder.filePath(QStringLiteral("proc/self/mountinfo")));
        QVERIFY(mounts.open(QIODevice::WriteOnly));
        mounts.write("40 22 8:17 / /media/STICK rw - vfat /dev/sdb1 rw\n");
        mounts.close();

        QCOMPARE(FindRemovableDriveWith(Connection(), root.path()), QStringLiteral("/media/STICK"));
        StartMock({}); // now the service answers, and the mount table is not asked any more
        QVERIFY(FindRemovableDriveWith(Connection(), root.path()).isEmpty());
    }
};

const TestFile<TestDrivesUdisks2> test_file(__FILE__);
#include "test_drives_udisks2.moc"
