#include "backup/drives_linux.h"

#include "backup/drives_sysfs.h"
#include "backup/drives_udisks2.h"

QString FindRemovableDriveWith(const QDBusConnection& bus, const QString& root)
{
    const std::optional<QList<Volume>> volumes = VolumesFromUdisks2(bus);
    return FirstRemovableVolume(volumes ? *volumes : VolumesFromSysfs(root));
}

QString FindRemovableDrive()
{
    return FindRemovableDriveWith(QDBusConnection::systemBus(), QStringLiteral("/"));
}
