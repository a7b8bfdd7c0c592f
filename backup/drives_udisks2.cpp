#include "backup/drives_udisks2.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QVariantMap>

namespace {

using Interfaces = QMap<QString, QVariantMap>; // interface, property, value
using Objects = QMap<QDBusObjectPath, Interfaces>;

constexpr int patience = 2000; // milliseconds; a service that hangs must not hang the window

const QString BlockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString FilesystemInterface = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString DriveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");

std::optional<Objects> AskService(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return std::nullopt;
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.UDisks2"), QStringLiteral("/org/freedesktop/UDisks2"),
        QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects"));
    const QDBusMessage answer = bus.call(question, QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ReplyMessage
        || answer.signature() != QStringLiteral("a{oa{sa{sv}}}"))
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
    const QString below = PathProperty(block, QStringLiteral("CryptoBackingDevice"));
    const auto backing = objects.constFind(QDBusObjectPath(below));
    if (backing != objects.constEnd() && below != QStringLiteral("/"))
        return PathProperty(backing->value(BlockInterface), QStringLiteral("Drive"));
    return PathProperty(block, QStringLiteral("Drive"));
}

Volume ReadVolume(const Objects& objects, const QVariantMap& block)
{
    Volume volume;
    volume.Device
        = QFileInfo(FileNameFromBytes(block.value(QStringLiteral("Device")).toByteArray()))
              .fileName();
    volume.Drive = DrivePath(objects, block);
    volume.OfSystem = block.value(QStringLiteral("HintSystem")).toBool()
        || block.value(QStringLiteral("HintIgnore")).toBool();
    const QVariantMap drive = objects.value(QDBusObjectPath(volume.Drive)).value(DriveInterface);
    volume.RemovableDrive = drive.value(QStringLiteral("Removable")).toBool()
        || drive.value(QStringLiteral("MediaRemovable")).toBool();
    const QString bus = drive.value(QStringLiteral("ConnectionBus")).toString();
    volume.OnUsbOrSdBus = bus == QStringLiteral("usb") || bus == QStringLiteral("sdio");
    volume.Optical = drive.value(QStringLiteral("Optical")).toBool();
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
        const auto mount_paths
            = qdbus_cast<QByteArrayList>(filesystem.value(QStringLiteral("MountPoints")));
        for (const QByteArray& mount_path : mount_paths) {
            Volume volume = ReadVolume(*objects, interfaces.value(BlockInterface));
            volume.MountPath = FileNameFromBytes(mount_path);
            volumes += volume;
        }
    }
    return volumes;
}
