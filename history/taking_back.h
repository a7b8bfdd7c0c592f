// Taking states back: which ones a wish means, how it is asked, and the writing, which is itself an
// action of the history. What is loaded anew afterwards: history_form.
#pragma once

#include "data/history.h"
#include "history/kept_actions.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The states that are to be written, each the whole content of one file.
struct StatesToTake {
    QList<RedoRecord> States;
    QStringList Missing; ///< captions of the files that cannot come back: they were not there
                         ///< before, or the state is damaged
    QString Question; ///< asked before anything is written
};

/// The state of that number. Nothing to take when it is damaged, gone or no state of a file.
StatesToTake StateOfNumber(const DataFiles& files, qint64 number);

/// All states of the action of that number.
StatesToTake StatesOfAction(const DataFiles& files, qint64 action);

/// The states before the action of that number.
StatesToTake StatesBeforeAction(const DataFiles& files, qint64 action);

/// The states before the last thing that the user did; asks with the action's own words.
StatesToTake StatesBeforeTheLast(const DataFiles& files);

/// Rewrites the files, as one action. Throws RuntimeError (File) as RewriteFile does; the files
/// before the one that failed have their state.
void TakeBack(const DataFiles& files, const QList<RedoRecord>& states);
