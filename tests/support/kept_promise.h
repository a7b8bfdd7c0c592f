// What the history promises, watched from outside: every content of a data file that the program
// wrote or wrote over can be read back, byte for byte, as long as nobody empties the history.
#pragma once

#include "data/data_files.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

/// What a file system says of a file; another content or another file has another stamp.
struct FileStamp {
    quint64 Node = 0;
    qint64 Seconds = 0; ///< of the last change
    qint64 Nanoseconds = 0;
    qint64 Size = -1; ///< negative: there is no file

    bool operator==(const FileStamp&) const = default;
};

/// A content that was confirmed, and the kept state that holds it.
struct ConfirmedState {
    qint64 Number = 0; ///< of the kept state
    QString Target;
    QByteArray Content;
    FileStamp ReadBack {}; ///< of the kept state's file when it was read back last
};

struct KeptPromise {
    QMap<QString, QByteArray> Files; ///< the data files at the last look, by name
    QList<ConfirmedState> Confirmed; ///< all of the run, the oldest first
    int Looks = 0;
};

/// Takes the files as they lie there now, whoever changed them.
void LookAtFiles(KeptPromise& promise, const DataFiles& files);

/// The history was emptied on purpose: what it held before need not be there.
void ForgetConfirmed(KeptPromise& promise);

/// To be called when only the program can have changed files since the last look. What was replaced
/// and what was written counts as confirmed from now on, and every confirmed state is read back;
/// one whose file was not touched since is read at every hundredth look only, as there may be
/// thousands. Says what is broken, empty: nothing.
QString BrokenPromise(KeptPromise& promise, const DataFiles& files);
