// Where the club's files lie, under which path a name is found, and how an error of the operating
// system becomes a message. Reading: data/line_file.h; writing: data/rewrite_file.h.
#pragma once

#include "data/history_state.h"
#include "data/runtime_error.h"
#include "data/system_error.h"

#include <QString>

#include <memory>

/// Where the club's files lie and where unfinished rewrites are noted. The first parameter of
/// everything that touches files.
struct DataFiles {
    QString DataDirectory; ///< without a last slash; names that begin with a backslash are appended
    QString StateDirectory; ///< outside the DataDirectory; redo records live here
    std::shared_ptr<HistoryState> History = std::make_shared<HistoryState>(); ///< never null
};

/// The folder of this user that keeps the redo records and the lock of a data directory:
/// the user's state folder (UserStateFolder), then "parzello" and a key of the directory's real
/// path. Nothing is created. Empty when the user has no home.
QString StateDirectoryFor(const QString& data_directory);

/// The name without the backslash (or slash) that begins it.
QString NameWithin(const QString& name);

/// DataDirectory + name; the backslash (or slash) that begins the name becomes the separator of
/// this system.
QString PathOf(const DataFiles& files, const QString& name);

/// The part of a path or of a name like "\Konto2016.pz" behind the last separator, for messages.
QString FileNameOf(const QString& path_or_name);

/// What was tried with a file, for the remedy. Finish: the rewrite of an earlier run. Restore: with
/// what lies on the stick.
enum class FileDeed { Read, Write, Finish, Restore };

/// The error of an operating system call with such a file; `before` is a sentence that precedes the
/// remedy (what has become of the file).
RuntimeError FileError(const DataFiles& files, const QString& name, const SystemError& error,
    FileDeed deed, const QString& before = {});
