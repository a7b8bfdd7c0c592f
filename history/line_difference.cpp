#include "history/line_difference.h"

#include <QHash>

#include <utility>

namespace {

/// Positions in both lists that are not paired yet, in order.
struct Unpaired {
    QList<qsizetype> Before;
    QList<qsizetype> After;
};

Unpaired AllPositions(const QStringList& before, const QStringList& after)
{
    Unpaired all;
    for (qsizetype i = 0; i < before.size(); ++i)
        all.Before += i;
    for (qsizetype i = 0; i < after.size(); ++i)
        all.After += i;
    return all;
}

/// Pairs positions whose keys are alike, first with first; calls `pair` for each.
template <typename Key, typename Pair>
Unpaired PairAlike(const Unpaired& open, const QStringList& before, const QStringList& after,
    const Key& key, const Pair& pair)
{
    QHash<QString, QList<qsizetype>> places;
    for (const qsizetype i : open.Before)
        places[key(before[i])] += i;
    QList<bool> is_paired(before.size(), false);
    Unpaired rest;
    for (const qsizetype j : open.After) {
        const auto found = places.find(key(after[j]));
        if (found == places.end() || found->isEmpty()) {
            rest.After += j;
            continue;
        }
        const qsizetype i = found->takeFirst();
        is_paired[i] = true;
        pair(i, j);
    }
    for (const qsizetype i : open.Before) {
        if (!is_paired[i])
            rest.Before += i;
    }
    return rest;
}

} // namespace

LineDifference DifferenceOfLines(const QStringList& before, const QStringList& after,
    const std::function<QString(const QString& line)>& name)
{
    LineDifference difference;
    const auto change = [&](qsizetype i, qsizetype j) {
        difference.Changed += { before[i], after[j] };
    };
    Unpaired open = AllPositions(before, after);
    open = PairAlike(
        open, before, after, [](const QString& line) { return line; }, [](qsizetype, qsizetype) {});
    open = PairAlike(open, before, after, name, change);
    if (open.Before.size() == open.After.size()) {
        for (qsizetype k = 0; k < open.Before.size(); ++k)
            change(open.Before[k], open.After[k]);
        return difference;
    }
    for (const qsizetype i : std::as_const(open.Before))
        difference.Removed += before[i];
    for (const qsizetype j : std::as_const(open.After))
        difference.Added += after[j];
    return difference;
}
