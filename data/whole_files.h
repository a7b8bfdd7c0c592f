// Files read and written whole: the steps of a rewrite, the same on every system. The calls that
// they are made of: data/system_files.h. Nothing is thrown here: routines return an error by name.
#pragma once

#include "data/system_error.h"
#include "data/system_files.h"

#include <QByteArray>
#include <QString>

/// Bytes; no file of this program comes near it.
constexpr qint64 LargestFile = 256LL * 1024 * 1024;
constexpr qint64 LargestContent = LargestFile - 4096; ///< its redo record is a little larger

/// Reads a whole regular file of at most `largest` bytes. Never waits for a pipe or a device.
SystemError ReadFileBytes(const QString& path, QByteArray& content, qint64 largest = LargestFile);

/// None when the file can be opened for reading and writing, or is missing. Changes nothing.
SystemError CheckWritable(const QString& path);

/// What OverwriteFile did before it returned.
enum class Overwritten { Nothing, Existing, Created };

/// Empties the file and writes the content, waits until it has reached the disk and compares it.
/// Creates a missing file. An error with `done` other than Nothing leaves the file in any state.
SystemError OverwriteFile(const QString& path, const QByteArray& content, Overwritten& done);

/// Creates or overwrites a file that only this user may read; otherwise like OverwriteFile.
SystemError WritePrivateFile(const QString& path, const QByteArray& content);

/// Gives a file the name of another one of the same folder, which it replaces in one step, and
/// waits until the disk knows.
SystemError ReplaceFile(const QString& from, const QString& to);

/// Removes a file and waits until the disk knows; None as well when it is missing.
SystemError RemoveFile(const QString& path);

/// Creates a folder that only this user may enter, and the missing ones above it.
SystemError MakePrivateFolder(const QString& path);
