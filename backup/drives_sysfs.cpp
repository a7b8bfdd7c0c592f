#include "backup/drives_sysfs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

struct Mount {
    QString DeviceNumber; ///< "8:17"
    QString Source; ///< "/dev/sdb1"
    QString Path;
};

// Blanks and the like stand in the mount table as a backslash and three octal digits.
QString Unescaped(const QByteArray& text)
{
    QByteArray plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool is_number = false;
        const uint code = text.mid(i + 1, 3).toUInt(&is_number, 8);
        if (text[i] == '\\' && is_number && i + 3 < text.size()) {
            plain += static_cast<char>(code);
            i += 3;
        } else {
            plain += text[i];
        }
    }
    return QFile::decodeName(plain);
}

// A line: number, number above, device, folder of the volume, mount path, options, optional
// fields, "-", type, source, options.
bool ReadMountLine(const QByteArray& line, Mount& mount)
{
    const QList<QByteArray> fields = line.trimmed().split(' ');
    const qsizetype dash = fields.indexOf("-");
    if (dash < 6 || dash + 2 >= fields.size())
        return false;
    mount.DeviceNumber = QString::fromLatin1(fields[2]);
    mount.Path = Unescaped(fields[4]);
    mount.Source = Unescaped(fields[dash + 2]);
    return fields[3] == "/"; // else only a folder of the volume is mounted there
}

QList<Mount> ReadMounts(const QString& root)
{
    QFile table(root + u"/proc/self/mountinfo"_s);
    if (!table.open(QIODevice::ReadOnly))
        return {};
    QList<Mount> mounts;
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray& line : lines) {
        Mount mount;
        if (!ReadMountLine(line, mount))
            continue;
        // what is mounted later over the same place hides what was there
        mounts.removeIf([&](const Mount& earlier) { return earlier.Path == mount.Path; });
        mounts += mount;
    }
    return mounts;
}

/// Folder of the block device below "sys/devices"; empty when the mount has none.
QString DeviceFolder(const QString& root, const Mount& mount)
{
    const QString by_number
        = QFileInfo(root + u"/sys/dev/block/"_s + mount.DeviceNumber).canonicalFilePath();
    if (!by_number.isEmpty() || !mount.Source.startsWith(u"/dev/"_s))
        return by_number;
    return QFileInfo(root + u"/sys/class/block/"_s + QFileInfo(mount.Source).fileName())
        .canonicalFilePath();
}

/// The device that an encrypted or combined one lies on; a partition's whole disk.
QString DiskFolder(const QString& device_folder)
{
    QString folder = device_folder;
    for (int level = 0; level < 8; ++level) { // encryption over volumes over partitions: 3 or 4
        const QStringList below
            = QDir(folder + u"/slaves"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        if (below.isEmpty())
            break;
        folder = QFileInfo(folder + u"/slaves/"_s + below.first()).canonicalFilePath();
    }
    if (QFile::exists(folder + u"/partition"_s))
        folder = QFileInfo(folder).path();
    return folder;
}

QByteArray Attribute(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

// The path of a device names every bus between it and the computer. A built-in memory chip sits on
// the same kind of bus as an SD card but calls itself "MMC".
bool IsOnUsbOrSdBus(const QString& disk_folder)
{
    const QStringList steps = disk_folder.split(u'/');
    for (const QString& step : steps) {
        if (step.startsWith(u"usb"_s) && step.size() > 3 && step[3].isDigit())
            return true;
    }
    return Attribute(disk_folder + u"/device/type"_s).startsWith("SD");
}

bool IsOptical(const QString& disk_folder)
{
    constexpr char optical_type[] = "5"; // SCSI device type of disc drives
    return Attribute(disk_folder + u"/device/type"_s) == optical_type;
}

} // namespace

QList<Volume> VolumesFromSysfs(const QString& root)
{
    QList<Volume> volumes;
    const QList<Mount> mounts = ReadMounts(root);
    for (const Mount& mount : mounts) {
        const QString device = DeviceFolder(root, mount);
        if (device.isEmpty())
            continue;
        const QString disk = DiskFolder(device);
        Volume volume;
        volume.Device = QFileInfo(device).fileName();
        volume.Drive = QFileInfo(disk).fileName();
        volume.MountPath = mount.Path;
        volume.RemovableDrive = Attribute(disk + u"/removable"_s) == "1";
        volume.OnUsbOrSdBus = IsOnUsbOrSdBus(disk);
        volume.Optical = IsOptical(disk);
        volumes += volume;
    }
    return volumes;
}
