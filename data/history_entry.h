// A kept state of a data file: what is known of it besides its content, and the name of its file,
// from which order, day and size can be told without opening it. Keeping and reading: data/history.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// How a state came into the history.
enum class Deed {
    Saved, ///< by one of the buttons
    Found, ///< the program did not write it: first run, edited by hand, copied in
    Restored, ///< from the stick
    TakenBack, ///< from the history
    SentOut, ///< no state of a file: the bills of a finished print run
};

/// What is known of a kept state besides its content.
struct HistoryMark {
    qint64 Number = 0; ///< the order of the states, whatever the clock says; 0: not kept yet
    qint64 Action = 0; ///< Number of the first state that the same press of a button made
    QDateTime Time; ///< of the user's clock, whole seconds
    Deed How = Deed::Saved;

    bool operator==(const HistoryMark&) const = default;
};

/// A kept state as the name of its file tells it.
/// Number 0: a file of the folder whose name tells nothing.
struct HistoryEntry {
    HistoryMark Mark;
    QString Key; ///< of the name of the file whose state it is
    qint64 Size = 0; ///< of the state's file in bytes, as it was when it was kept

    bool operator==(const HistoryEntry&) const = default;
};

/// The key that stands for the name of a data file in names of states.
QString HistoryKeyOf(const QString& target);

/// Digits, letters and "-" only.
QString HistoryNameOf(const HistoryEntry& entry);

/// Nothing when the name is none that HistoryNameOf gives.
std::optional<HistoryEntry> HistoryEntryOf(const QString& name);
