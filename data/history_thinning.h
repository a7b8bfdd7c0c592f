// Which kept states give way when there are too many bytes of them.
#pragma once

#include "data/history_entry.h"

#include <QList>

/// The newest states of a file that always stay.
constexpr qsizetype NewestThatStay = 50;

/// The states that are to be removed so that at most most_bytes are left: all but the last one of a
/// day and file, from the oldest day on, and none of a file's newest NewestThatStay. Fewer when
/// these alone are more. entries are ordered by number; what went out stays.
QList<HistoryEntry> StatesToDrop(const QList<HistoryEntry>& entries, qint64 most_bytes);
