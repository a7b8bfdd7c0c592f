// Every state of a data file that the program writes or overwrites is kept: in the folder "verlauf"
// of the state directory, one file for each state, readable by this user only, with a checksum. A
// save is never refused because of it. What is kept where and how long: docs/saving.md. Used by
// data/rewrite_file; the window that shows it: history/.
#pragma once

#include "data/data_files.h"
#include "data/redo_record.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// While one lives, everything that is saved belongs to the same press of a button. The outermost
/// counts; a deed holds until its action ends.
class SavingAction {
public:
    explicit SavingAction(const DataFiles& files);
    SavingAction(const DataFiles& files, Deed how);
    ~SavingAction();
    SavingAction(const SavingAction&) = delete;
    SavingAction& operator=(const SavingAction&) = delete;

private:
    std::shared_ptr<HistoryState> m_state;
    Deed m_before;
};

/// The mark of a state that is saved now; Number 0 when the history cannot be read.
HistoryMark NextMark(const DataFiles& files);

/// Keeps the state that is about to be overwritten, unless it is the last kept one of its file: as
/// found, or with the mark of the record in which it stood.
void KeepReplaced(const DataFiles& files, const QString& target, const QByteArray& content,
    const HistoryMark& noted = {});

/// The file of the record has its content: the record becomes the kept state. False when it still
/// is a record; the reason is in HistoryState::Failure.
bool KeepRecord(const DataFiles& files, const RedoRecord& record);

/// Keeps a text that is no state of a file (Deed::SentOut) under that name.
void KeepSentOut(const DataFiles& files, const QString& name, const QByteArray& content);

/// All kept states, the first one first. Looks into the folder anew.
SystemError ReadHistory(const DataFiles& files, QList<HistoryEntry>& entries);

/// All kept states as this run knows them: looks into the folder the first time only. Empty when it
/// cannot be read. Creates nothing.
QList<HistoryEntry> KnownHistory(const DataFiles& files);

/// The content of a kept state and the name of its file; nothing when it is damaged, gone or cannot
/// be read.
std::optional<RedoRecord> ReadKept(const DataFiles& files, const HistoryEntry& entry);

/// Removes all kept states for good. Returns the first error; the others are removed all the same.
SystemError EmptyHistory(const DataFiles& files);
