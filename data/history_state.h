// What the running program knows of the history: which press of a button it is in, and the states
// that are kept. One for each data directory; every copy of its DataFiles leads to the same one.
#pragma once

#include "data/history_entry.h"
#include "data/system_error.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <functional>

constexpr qint64 MostHistoryBytes = 500'000'000; ///< of all kept states of a data directory

/// A state that could not be kept: why, of which file, when.
struct KeepingFailure {
    SystemError Error;
    QString Target;
    QDateTime Time;
};

struct HistoryState {
    std::function<QDateTime()> Now = [] { return QDateTime::currentDateTime(); };
    qint64 MostBytes = MostHistoryBytes;

    int Depth = 0; ///< of nested SavingActions
    qint64 Action = 0; ///< number of its first state; 0 before there is one
    qint64 FoundAction = 0; ///< the same for the states that it found
    Deed How = Deed::Saved; ///< of the states that it saves

    bool IsRead = false; ///< Entries and Bytes are those of the folder
    bool HasFolder = false; ///< the folder was made, or was there
    QList<HistoryEntry> Entries; ///< ordered by number
    qint64 Bytes = 0;
    QHash<QString, QByteArray> LastContents; ///< key of a file: its last kept state
    KeepingFailure Failure; ///< the last one of this run
};
