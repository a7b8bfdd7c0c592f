// What strace wrote (options -f and -y) about a program that marks where its work begins and ends:
// fsync(-7) and fsync(-8).
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

struct TracedCall {
    QString name;
    int number
        = 0; ///< how many calls of this name about the folder there have been since the start
    QString path; ///< of the descriptor or the first name that it was given
    bool creates = false; ///< an openat that may create a file
};

/// The calls between the marks that are about the folder or something in it. What else the program
/// does, fonts and plugins above all, is not counted: it need not be the same in every run.
QList<TracedCall> CallsBetweenMarks(const QByteArray& trace, const QString& folder);

/// All paths of the folder and of what is in it that the trace names, sorted.
QStringList PathsBelow(const QByteArray& trace, const QString& folder);

/// Empty, or what a power failure could lose: a data file must be touched only when the record is
/// safe on the disk, and the record given up only when the data file is.
QString SyncComplaint(const QList<TracedCall>& calls, const QString& data_directory);
