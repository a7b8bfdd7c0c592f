// What the history promises, watched from outside: every content of a data file that the program
// wrote or wrote over can be read back, byte for byte, as long as nobody empties the history.
#pragma once

#include "data/data_files.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

/// A content that was confirmed, and the kept state that holds it.
struct ConfirmedState {
    qint64 Number = 0; ///< of the kept state
    QString Target;
    QByteArray Content;
};

struct KeptPromise {
    QMap<QString, QByteArray> Files; ///< the data files at the last look, by name
    QList<ConfirmedState> Confirmed; ///< all of the run, the oldest first
};

/// Takes the files as they lie there now, whoever changed them.
void LookAtFiles(KeptPromise& promise, const DataFiles& files);

/// The history was emptied on purpose: what it held before need not be there.
void ForgetConfirmed(KeptPromise& promise);

/// To be called when only the program can have changed files since the last look. What was replaced
/// and what was written counts as confirmed from now on, and every confirmed state is read back.
/// Says what is broken, empty: nothing.
QString BrokenPromise(KeptPromise& promise, const DataFiles& files);
