// The volumes of a Linux system as its disk service UDisks2 tells them over D-Bus.
#pragma once

#include "backup/drives.h"

#include <QDBusConnection>

#include <optional>

/// All mounted volumes that the service knows; nothing when it does not answer within two seconds.
std::optional<QList<Volume>> VolumesFromUdisks2(const QDBusConnection& bus);
