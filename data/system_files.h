// The operating system's files, call by call: what data/whole_files makes its steps of. Each system
// has a system_files_….cpp of its own behind this header. Nothing is thrown here.
#pragma once

#include "data/system_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

enum class OpenMode {
    Read, ///< an existing file; never waits for a pipe or a device
    Change, ///< an existing file, to read and write
    CreateNew, ///< fails when something of that name is there
    CreatePrivate, ///< created when it is missing, only this user may read it; never behind a link
};

/// An open file; closed at the latest when it goes out of sight.
class SystemFile {
public:
    SystemFile() = default;
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;
    ~SystemFile() { Close(); }

    SystemError Open(const QString& path, OpenMode mode);

    /// Its size in bytes; IsAFolder or NotARegularFile when it is no file.
    SystemError FindSize(qint64& size) const;

    /// Reads on from where the last call ended: at most `space` bytes; 0 at the end.
    SystemError ReadSome(char* into, qsizetype space, qsizetype& count) const;

    /// Leaves a file of no bytes.
    SystemError Empty() const;

    /// Writes at that position what the system takes in one go.
    SystemError WriteSome(
        const char* from, qsizetype size, qint64 position, qsizetype& count) const;

    /// Waits until what was written has reached the disk.
    SystemError Sync() const;

    /// None as well for a file that is not open.
    SystemError Close();

private:
    qintptr Handle = -1; ///< what the system calls the open file by
};

/// Finds out whether there is something of that name, and whether it is a folder.
SystemError LookUp(const QString& path, bool& is_folder);

/// Gives a file the name of another one of the same folder, which it replaces in one step.
SystemError RenameFile(const QString& from, const QString& to);

SystemError UnlinkFile(const QString& path);

/// Creates one folder that only this user may enter.
SystemError MakeOnePrivateFolder(const QString& path);

/// A new, renamed or removed name is safe only when its folder has reached the disk. None as well
/// where the file system knows no such thing.
SystemError SyncFolder(const QString& path);

/// Names of the entries of a folder, sorted; none when the folder is missing.
SystemError ListFolder(const QString& path, QStringList& names);

/// The folder above, as this system writes it.
QString FolderOf(const QString& path);

/// The folder in which programs keep what belongs to this user and this computer; empty when there
/// is none.
QString UserStateFolder();
