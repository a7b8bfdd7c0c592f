#include "backup/drives.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned int removable_type = 2; // answer of the platform's drive type query

// Places where the system mounts its own parts. A whole stick that carries one of them (a computer
// that was started from it) is not the stick that the data is meant for.
bool IsPlaceOfSystem(const QString& mount_path)
{
    static const QSet<QString> places {
        u"/"_s,
        u"/boot"_s,
        u"/efi"_s,
        u"/home"_s,
        u"/opt"_s,
        u"/root"_s,
        u"/srv"_s,
        u"/tmp"_s,
        u"/usr"_s,
        u"/var"_s,
    };
    return places.contains(mount_path) || mount_path.startsWith(u"/boot/"_s)
        || mount_path.startsWith(u"/run/live/"_s) || mount_path.startsWith(u"/lib/live/"_s);
}

QSet<QString> DrivesOfSystem(const QList<Volume>& volumes)
{
    QSet<QString> drives;
    for (const Volume& volume : volumes) {
        if (IsPlaceOfSystem(volume.MountPath) && !volume.Drive.isEmpty())
            drives += volume.Drive;
    }
    return drives;
}

bool IsCandidate(const Volume& volume, const QSet<QString>& drives_of_system)
{
    if (volume.MountPath.isEmpty() || volume.Optical || volume.OfSystem)
        return false;
    if (IsPlaceOfSystem(volume.MountPath) || drives_of_system.contains(volume.Drive))
        return false;
    return volume.RemovableDrive || volume.OnUsbOrSdBus;
}

// Runs of digits are filled up with zeros, so that sdb2 comes before sdb10.
QString OrderKey(const QString& device)
{
    constexpr int width = 6;
    QString key;
    QString digits;
    for (const QChar character : device) {
        if (character.isDigit()) {
            digits += character;
            continue;
        }
        key += digits.isEmpty() ? QString() : digits.rightJustified(width, u'0');
        digits.clear();
        key += character;
    }
    return digits.isEmpty() ? key : key + digits.rightJustified(width, u'0');
}

bool ComesBefore(const Volume& a, const Volume& b)
{
    return OrderKey(a.Device) < OrderKey(b.Device);
}

bool CanBeWritten(const QString& folder, const QString& above)
{
    const QFileInfo existing(folder);
    if (existing.exists())
        return existing.isDir() && existing.isWritable();
    return QFileInfo(above).isWritable();
}

QString Joined(const QString& path, const QString& name)
{
    return path.endsWith(u'/') ? path + name : path + u'/' + name;
}

} // namespace

QString FirstRemovableVolume(const QList<Volume>& volumes)
{
    const QSet<QString> drives_of_system = DrivesOfSystem(volumes);
    QList<Volume> candidates;
    for (const Volume& volume : volumes) {
        if (IsCandidate(volume, drives_of_system))
            candidates += volume;
    }
    if (candidates.isEmpty())
        return {};
    std::stable_sort(candidates.begin(), candidates.end(), ComesBefore);
    QString path = candidates.first().MountPath;
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

QString FirstRemovableLetter(const std::function<unsigned int(const QString& letter)>& drive_type)
{
    for (char letter = 'B'; letter <= 'Z'; ++letter) {
        const QString drive = QLatin1Char(letter) + u":"_s;
        if (drive_type(drive) == removable_type)
            return drive;
    }
    return {};
}

Fallback FallbackOf(const QString& data_directory)
{
    return { QStorageInfo(data_directory).rootPath(), QDir::homePath() };
}

QString BackupFolder(const QString& drive, const Fallback& fallback)
{
    const QString name = u"Parzello"_s;
    QString folder = Joined(drive, name);
    if (drive.isEmpty()) {
        folder = Joined(fallback.VolumeRoot, name);
        if (!CanBeWritten(folder, fallback.VolumeRoot))
            folder = Joined(fallback.Home, name);
    }
    return folder + u'/';
}
