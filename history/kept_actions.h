// The kept states put together by what the user did: one press of a button, one action. From the
// names of the states alone; contents are read for those that are shown.
#pragma once

#include "data/history.h"
#include "history/difference.h"

#include <QList>
#include <QString>

#include <optional>

/// What an action made of one file.
struct KeptFile {
    HistoryEntry Entry; ///< its state after the action
    std::optional<HistoryEntry> Before; ///< its state before; nothing: it is not known or there was
                                        ///< no file
    bool IsDamaged = false;
    QString Target; ///< name of the file; empty until it is told, and when it is damaged
    DifferenceWords Words;
};

struct KeptAction {
    qint64 Number = 0; ///< that of its first state
    Deed How = Deed::Saved;
    QDateTime Time; ///< of its last state
    QList<KeptFile> Files;
    QString Words; ///< what happened, in one sentence
};

/// The actions, the newest first; entries are ordered by number. With a key only what concerns that
/// file. Nothing is read: names, words and damage are not told yet.
QList<KeptAction> ActionsOf(const QList<HistoryEntry>& entries, const QString& key = {});

/// Reads the states of the action and tells it in words.
void TellAction(const DataFiles& files, KeptAction& action);

/// The files whose states are kept, by caption in German order: keys and names. Reads one state of
/// each.
struct KnownFile {
    QString Key;
    QString Target;
};
QList<KnownFile> FilesOf(const DataFiles& files, const QList<HistoryEntry>& entries);

/// "20.11.2026, 14:03 Uhr"
QString TimeOfState(const QDateTime& time);
