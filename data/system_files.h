// The operating system's files, reduced to what this program needs of them. The only place that
// calls the system; another system gets its own system_files_….cpp. Nothing is thrown here: every
// routine returns 0 or an error number, and ReasonOf says it in German.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

constexpr int NotARegularFile = -1; ///< a pipe or a device stands where a file should
constexpr int FileTooLarge = -2; ///< more than LargestFile bytes
constexpr int WrittenOtherwise = -3; ///< what is read back is not what was written
constexpr int NotAFileName = -4; ///< empty, with a separator or with a null character

/// Bytes; no file of this program comes near it.
constexpr qint64 LargestFile = 256LL * 1024 * 1024;
constexpr qint64 LargestContent = LargestFile - 4096; ///< its redo record is a little larger

/// German wording of such an error number.
QString ReasonOf(int error);

/// True for the error numbers that only say that nothing of that name is there.
bool MeansMissing(int error);

/// Finds out whether there is something of that name, and whether it is a folder.
int LookUp(const QString& path, bool& is_folder);

/// Reads a whole regular file of at most `largest` bytes. Never waits for a pipe or a device.
int ReadFileBytes(const QString& path, QByteArray& content, qint64 largest = LargestFile);

/// 0 when the file can be opened for reading and writing, or is missing. Changes nothing.
int CheckWritable(const QString& path);

/// What OverwriteFile did before it returned.
enum class Overwritten { Nothing, Existing, Created };

/// Empties the file and writes the content, waits until it has reached the disk and compares it.
/// Creates a missing file. An error with `done` other than Nothing leaves the file in any state.
int OverwriteFile(const QString& path, const QByteArray& content, Overwritten& done);

/// Creates or overwrites a file that only this user may read; otherwise like OverwriteFile.
int WritePrivateFile(const QString& path, const QByteArray& content);

/// Gives a file the name of another one of the same folder, which it replaces in one step.
int ReplaceFile(const QString& from, const QString& to);

/// Removes a file; 0 as well when it is missing.
int RemoveFile(const QString& path);

/// Creates a folder that only this user may enter, and the missing ones above it.
int MakePrivateFolder(const QString& path);

/// Names of the entries of a folder, sorted; none when the folder is missing.
int ListFolder(const QString& path, QStringList& names);

/// The home folder of this user; empty when there is none.
QString HomeFolder();
