// Which removable drive the data is saved to: the first removable volume in a fixed order. The rule
// works on a plain list of volumes; where the list comes from is the business of
// drives_….cpp of each system. Copying is in copying.h.
#pragma once

#include <QList>
#include <QString>

#include <functional>

/// A mounted volume as the system describes it.
struct Volume {
    QString Device; ///< name of the block device, "sdb1"; decides the order
    QString Drive; ///< what the volume lies on; the same text for all volumes of one drive
    QString MountPath; ///< where it is mounted; a volume without one is never a candidate
    bool OfSystem = false; ///< the system says that the volume belongs to it
    bool RemovableDrive = false; ///< drive or medium can be taken out
    bool OnUsbOrSdBus = false; ///< many sticks do not say that they are removable
    bool Optical = false; ///< a disc; the platform's type "removable" never included it
};

/// Mount path, without a last slash, of the first volume in the order of the device names that is
/// mounted, not of the system, and whose drive is removable or on the USB or SD bus. A drive that
/// carries a part of the system ("/", "/boot", "/home" ...) is of the system as a whole. Empty
/// when there is none.
QString FirstRemovableVolume(const QList<Volume>& volumes);

/// Drive letters: the first of B: to Z: for which the routine answers 2 (removable), as "F:".
/// Empty when there is none. A: is never asked, and the search stops at the first one.
QString FirstRemovableLetter(const std::function<unsigned int(const QString& letter)>& drive_type);

/// The drive text of the first removable drive of this computer, empty when there is none.
QString FindRemovableDrive();

/// Where data is saved when no drive was found.
struct Fallback {
    QString VolumeRoot; ///< root of the volume that holds the data
    QString Home; ///< the user's home
};

/// The fallback for a data directory on this computer.
Fallback FallbackOf(const QString& data_directory);

/// The backup folder, with a last slash: drive + "/Parzello/". Without a drive "/Parzello/" at the
/// root of the volume that holds the data; where that cannot be written, "Parzello" in the user's
/// home.
QString BackupFolder(const QString& drive, const Fallback& fallback);
