// What strace wrote (options -f and -y) about a program that marks where its work begins and ends:
// fsync(-7) and fsync(-8).
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

struct TracedCall {
    QString name;
    int number = 0; ///< how many calls of this name there have been since the program began
    QString path; ///< of the descriptor or the first name that it was given
    bool creates = false; ///< an openat that may create a file
};

/// The calls between the marks.
QList<TracedCall> CallsBetweenMarks(const QByteArray& trace);

/// Empty, or what a power failure could lose: a data file must be touched only when the record is
/// safe on the disk, and the record given up only when the data file is.
QString SyncComplaint(const QList<TracedCall>& calls, const QString& data_directory);
