// The note of a rewrite that is under way: which file gets which content. One note per file, in
// the state directory. As long as a complete one lies there, it is the file's content: the file
// itself may be half written. Why: docs/saving.md.
#pragma once

#include "data/history_entry.h"
#include "data/system_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

struct RedoRecord {
    QString target; ///< name of a file in the data directory, without any separator
    QByteArray content; ///< the whole new content of the file
    HistoryMark Mark {}; ///< with which it will be kept; Number 0: it will not
};

/// Magic line, SHA-256 of everything that follows, target and content with their lengths, the mark.
QByteArray EncodeRedoRecord(const RedoRecord& record);

/// Records of the version that kept no history are read as well. Nothing when a byte is missing,
/// changed or left over, or when the target is no plain file name.
std::optional<RedoRecord> DecodeRedoRecord(const QByteArray& bytes);

/// True for a name that can only lead into the data directory: not empty, not "." or "..", without
/// separators and null characters.
bool IsTargetName(const QString& target);

/// Writes the record and waits until it has reached the disk; it takes the place of an older one
/// for the same file in one step.
SystemError NoteRewrite(const QString& state_directory, const RedoRecord& record);

/// Where the record of this file lies while there is one.
QString RecordPathOf(const QString& state_directory, const QString& target);

/// Removes the record of this file for good, if there is one.
SystemError ForgetRewrite(const QString& state_directory, const QString& target);

/// Looks up the complete record of this file. Nothing as well when the state directory may not be
/// entered: nothing can be noted there either.
SystemError FindRewrite(
    const QString& state_directory, const QString& target, std::optional<RedoRecord>& record);

/// All complete records; incomplete ones are removed.
SystemError FindRewrites(const QString& state_directory, QList<RedoRecord>& records);
