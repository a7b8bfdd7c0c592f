// The volumes of a Linux system without a disk service: mount table and the kernel's description of
// its block devices.
#pragma once

#include "backup/drives.h"

/// All volumes that lie on a block device. root is the folder in which "proc/self/mountinfo" and
/// "sys" are looked for, "/" for the computer itself; tests bring their own. What cannot be read
/// is left out.
QList<Volume> VolumesFromSysfs(const QString& root);
