// Copying the data files to the backup folder and back. Which folder that is: drives.h. The two
// buttons: backup_form.h. What is copied and what never happens: docs/file-formats.md, "Sicherung".
#pragma once

#include "backup/medium.h"
#include "data/line_file.h"

#include <QString>
#include <QStringList>

#include <functional>

/// Called after each file with its position (0 is the first).
using FileDone = std::function<void(qsizetype position)>;

/// True for "*.pz", "*.ini" and "*.xls" without regard to letter case.
bool IsDataFileName(const QString& name);

/// The files of a folder that are copied, ordered by name without regard to letter case. Throws
/// RuntimeError (File) when the folder is missing or cannot be read, or when a matching name holds
/// line breaks, control characters or separators: nothing is copied under such a name.
QStringList DataFileNames(const QString& folder, Links links);

/// Throws RuntimeError (File) when the backup folder is the data directory itself: copying a file
/// onto itself would be no backup.
void CheckBackupFolder(const DataFiles& files, const QString& folder);

/// Creates the backup folder when it is missing. Throws RuntimeError (File).
void CreateBackupFolder(const QString& folder);

/// Copies the named files of the data directory to the folder and keeps their times; empty files
/// are skipped, `done` is called for them all the same. Each file appears under its name only when
/// it is complete; on return everything is on the medium and was read back from there byte by byte.
/// Gives the number of copies. Throws RuntimeError (File) naming the
/// file that failed: files before it are copied, those after it are not.
qsizetype BackUpFiles(
    const DataFiles& files, const QString& folder, const QStringList& names, const FileDone& done);

/// Copies the named files of the folder to the data directory (data/line_file.h, RewriteFile) and
/// keeps their times; empty files are copied too. All of them are read before the first one is
/// written: a stick that fails half-way changes nothing. Throws RuntimeError (File) naming the
/// file that failed.
void RestoreFiles(
    const DataFiles& files, const QString& folder, const QStringList& names, const FileDone& done);

/// Value of the progress bar after the file at that position: maximum ÷ count × (position + 1) in
/// single precision.
float ProgressValue(float maximum, qsizetype count, qsizetype position);
