// The search for the stick on this system, with the parts that it asks.
#pragma once

#include "backup/drives.h"

#include <QDBusConnection>

/// FindRemovableDrive with the parts it asks: the disk service where it answers (even with an empty
/// list), else mount table and kernel below root.
QString FindRemovableDriveWith(const QDBusConnection& bus, const QString& root);
