#include "backup/drives_udisks2.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

using Interfaces = QMap<QString, QVariantMap>; // interface, property, value
using Objects = QMap<QDBusObjectPath, Interfaces>;

constexpr int patience = 2000; // milliseconds; a service that hangs must not hang the window

const QString BlockInterface = u"org.freedesktop.UDisks2.Block"_s;
const QString FilesystemInterface = u"org.freedesktop.UDisks2.Filesystem"_s;
const QString DriveInterface = u"org.freedesktop.UDisks2.Drive"_s;

std::optional<Objects> AskService(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return std::nullopt;
    const QDBusMessage question = QDBusMessage::createMethodCall(u"org.freedesktop.UDisks2"_s,
        u"/org/freedesktop/UDisks2"_s, u"org.freedesktop.DBus.ObjectManager"_s,
        u"GetManagedObjects"_s);
    const QDBusMessage answer = bus.call(question, QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"a{oa{sa{sv}}}"_s)
        return std::nullopt;
    Objects objects;
    answer.arguments().constFirst().value<QDBusArgument>() >> objects;
    return objects;
}

QString PathProperty(const QVariantMap& properties, const QString& name)
{
    return qdbus_cast<QDBusObjectPath>(properties.value(name)).path();
}

// Paths come as bytes with a zero byte at the end.
QString FileNameFromBytes(QByteArray bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    if (end >= 0)
        bytes.truncate(end);
    return QFile::decodeName(bytes);
}

/// The drive of a block device; an opened encrypted device lies on the drive of the one below it.
QString DrivePath(const Objects& objects, const QVariantMap& block)
{
    const QString below = PathProperty(block, u"CryptoBackingDevice"_s);
    const auto backing = objects.constFind(QDBusObjectPath(below));
    if (backing != objects.constEnd() && below != u"/"_s)
        return PathProperty(backing->value(BlockInterface), u"Drive"_s);
    return PathProperty(block, u"Drive"_s);
}

Volume ReadVolume(const Objects& objects, const QVariantMap& block)
{
    Volume volume;
    volume.Device = QFileInfo(FileNameFromBytes(block.value(u"Device"_s).toByteArray())).fileName();
    volume.Drive = DrivePath(objects, block);
    volume.OfSystem
        = block.value(u"HintSystem"_s).toBool() || block.value(u"HintIgnore"_s).toBool();
    const QVariantMap drive = objects.value(QDBusObjectPath(volume.Drive)).value(DriveInterface);
    volume.RemovableDrive
        = drive.value(u"Removable"_s).toBool() || drive.value(u"MediaRemovable"_s).toBool();
    const QString bus = drive.value(u"ConnectionBus"_s).toString();
    volume.OnUsbOrSdBus = bus == u"usb"_s || bus == u"sdio"_s;
    volume.Optical = drive.value(u"Optical"_s).toBool();
    return volume;
}

} // namespace

std::optional<QList<Volume>> VolumesFromUdisks2(const QDBusConnection& bus)
{
    const std::optional<Objects> objects = AskService(bus);
    if (!objects)
        return std::nullopt;
    QList<Volume> volumes;
    for (const Interfaces& interfaces : *objects) {
        const QVariantMap filesystem = interfaces.value(FilesystemInterface);
        const auto mount_paths = qdbus_cast<QByteArrayList>(filesystem.value(u"MountPoints"_s));
        for (const QByteArray& mount_path : mount_paths) {
            Volume volume = ReadVolume(*objects, interfaces.value(BlockInterface));
            volume.MountPath = FileNameFromBytes(mount_path);
            volumes += volume;
        }
    }
    return volumes;
}
