#include "data/history_thinning.h"

#include <QDate>
#include <QHash>
#include <QPair>
#include <QSet>

#include <algorithm>

namespace {

using DayOfFile = QPair<QString, QDate>;

/// Walks from the newest state to the oldest: the first one of a day is that day's last.
QList<HistoryEntry> StatesThatMayGo(const QList<HistoryEntry>& entries)
{
    QHash<QString, qsizetype> seen;
    QSet<DayOfFile> days;
    QList<HistoryEntry> result;
    const QList<HistoryEntry> newest_first(entries.crbegin(), entries.crend());
    for (const HistoryEntry& entry : newest_first) {
        if (entry.Mark.How == Deed::SentOut || entry.Mark.Number == 0)
            continue;
        const DayOfFile day(entry.Key, entry.Mark.Time.date());
        const bool is_last_of_day = !days.contains(day);
        days += day;
        if (++seen[entry.Key] > NewestThatStay && !is_last_of_day)
            result += entry;
    }
    return result;
}

} // namespace

QList<HistoryEntry> StatesToDrop(const QList<HistoryEntry>& entries, qint64 most_bytes)
{
    qint64 bytes = 0;
    for (const HistoryEntry& entry : entries)
        bytes += entry.Size;
    if (bytes <= most_bytes)
        return {};
    QList<HistoryEntry> candidates = StatesThatMayGo(entries);
    std::sort(candidates.begin(), candidates.end(), [](const auto& a, const auto& b) {
        const QDate day_of_a = a.Mark.Time.date();
        const QDate day_of_b = b.Mark.Time.date();
        return day_of_a != day_of_b ? day_of_a < day_of_b : a.Mark.Number < b.Mark.Number;
    });
    QList<HistoryEntry> dropped;
    for (const HistoryEntry& entry : std::as_const(candidates)) {
        if (bytes <= most_bytes)
            break;
        bytes -= entry.Size;
        dropped += entry;
    }
    return dropped;
}
