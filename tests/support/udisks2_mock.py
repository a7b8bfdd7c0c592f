"""The disk service UDisks2 as far as this program asks it, for python3-dbusmock.

Parameter "volumes": a list of {"device", "drive", "mounts", "removable", "media_removable", "bus",
"optical", "system", "ignore", "below"}; all but "device" may be missing. "below" is the device
that an opened encrypted one lies on.
"""

import dbus
import dbusmock

BUS_NAME = "org.freedesktop.UDisks2"
MAIN_OBJ = "/org/freedesktop/UDisks2"
MAIN_IFACE = "org.freedesktop.UDisks2.Manager"
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True

BLOCK = "org.freedesktop.UDisks2.Block"
FILESYSTEM = "org.freedesktop.UDisks2.Filesystem"
DRIVE = "org.freedesktop.UDisks2.Drive"


def path_bytes(text):
    return dbus.ByteArray(text.encode("utf-8", "surrogateescape") + b"\0")


def block_path(device):
    return dbus.ObjectPath(MAIN_OBJ + "/block_devices/" + device.replace("-", "_2d"))


def add_drive(mock, name, volume):
    path = dbus.ObjectPath(MAIN_OBJ + "/drives/" + name)
    if path in mock.known_drives:
        return path
    mock.known_drives.add(path)
    mock.AddObject(path, DRIVE, {
        "Removable": dbus.Boolean(volume.get("removable", False)),
        "MediaRemovable": dbus.Boolean(volume.get("media_removable", False)),
        "ConnectionBus": dbus.String(volume.get("bus", "")),
        "Optical": dbus.Boolean(volume.get("optical", False)),
    }, [])
    return path


def load(mock, parameters):
    mock.known_drives = set()
    for volume in parameters.get("volumes", []):
        drive = dbus.ObjectPath("/")
        if volume.get("drive"):
            drive = add_drive(mock, volume["drive"], volume)
        below = volume.get("below")
        path = block_path(volume["device"])
        mock.AddObject(path, BLOCK, {
            "Device": path_bytes("/dev/" + volume["device"]),
            "Drive": drive,
            "HintSystem": dbus.Boolean(volume.get("system", False)),
            "HintIgnore": dbus.Boolean(volume.get("ignore", False)),
            "CryptoBackingDevice": block_path(below) if below else dbus.ObjectPath("/"),
        }, [])
        if "mounts" in volume:
            dbusmock.mockobject.objects[path].AddProperties(FILESYSTEM, {
                "MountPoints": dbus.Array([path_bytes(m) for m in volume["mounts"]],
                                          signature="ay"),
            })
