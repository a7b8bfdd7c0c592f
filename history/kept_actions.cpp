#include "history/kept_actions.h"

#include "data/collation.h"
#include "history/file_kinds.h"
#include "history/sent_out.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

KeptFile& FileIn(KeptAction& action, const HistoryEntry& entry)
{
    for (KeptFile& file : action.Files) {
        if (file.Entry.Key == entry.Key)
            return file;
    }
    KeptFile file;
    file.Entry = entry;
    action.Files += file;
    return action.Files.last();
}

/// What a state was kept for outweighs what the same press saved besides: a restore also opens the
/// ledgers of the year.
Deed Stronger(Deed a, Deed b) { return a == Deed::Saved ? b : a; }

KeptAction UnreadableState(const HistoryEntry& entry)
{
    KeptFile file;
    file.Entry = entry;
    file.IsDamaged = true;
    KeptAction action;
    action.Files = { file };
    return action;
}

QString CountOf(const KeptAction& action)
{
    const qsizetype count = action.Files.size();
    return count == 1 ? u"1 Datei"_s : u"%1 Dateien"_s.arg(count);
}

QString WordsOfSaved(const KeptAction& action)
{
    if (action.Files.size() == 1)
        return action.Files.first().Words.Short;
    if (action.Files.size() > 2)
        return CountOf(action) + u" gespeichert"_s;
    return FileCaption(action.Files[0].Target) + u": "_s + action.Files[0].Words.Short + u"; "_s
        + FileCaption(action.Files[1].Target) + u": "_s + action.Files[1].Words.Short;
}

QString WordsOfFound(const KeptAction& action)
{
    const bool is_first = std::all_of(action.Files.cbegin(), action.Files.cend(),
        [](const KeptFile& file) { return !file.Before.has_value(); });
    const QString what = is_first ? u"vorgefunden"_s : u"außerhalb des Programms geändert"_s;
    return action.Files.size() == 1 ? what : what + u": "_s + CountOf(action);
}

QString WordsOfAction(const KeptAction& action)
{
    const bool is_damaged = std::any_of(action.Files.cbegin(), action.Files.cend(),
        [](const KeptFile& file) { return file.IsDamaged; });
    if (is_damaged && action.Files.size() == 1)
        return u"beschädigt, nicht lesbar"_s;
    switch (action.How) {
    case Deed::Found:
        return WordsOfFound(action);
    case Deed::Restored:
        return u"vom Stick wiederhergestellt: "_s + CountOf(action);
    case Deed::TakenBack:
        return u"zurückgeholt: "_s + WordsOfSaved(action);
    case Deed::Saved:
    case Deed::SentOut:
        break;
    }
    return WordsOfSaved(action);
}

void TellFile(const DataFiles& files, KeptFile& file)
{
    const std::optional<RedoRecord> state = ReadKept(files, file.Entry);
    file.IsDamaged = !state;
    if (!state) {
        file.Words = { u"beschädigt, nicht lesbar"_s, {} };
        return;
    }
    file.Target = state->target;
    if (file.Entry.Mark.How == Deed::SentOut) {
        file.Words = { WordsOfSentOut(state->target, state->content), {} };
        return;
    }
    const std::optional<RedoRecord> before
        = file.Before ? ReadKept(files, *file.Before) : std::nullopt;
    if (file.Before && !before)
        file.Words = { u"gespeichert; der Stand davor ist beschädigt"_s, {} };
    else
        file.Words = WordsOfDifference(
            state->target, before ? std::optional(before->content) : std::nullopt, state->content);
}

bool ComesBefore(const KnownFile& a, const KnownFile& b)
{
    return CompareTexts(FileCaption(a.Target), FileCaption(b.Target)) < 0;
}

} // namespace

QList<KeptAction> ActionsOf(const QList<HistoryEntry>& entries, const QString& key)
{
    QList<KeptAction> actions;
    QHash<qint64, qsizetype> places; // number of an action: its place in the list
    QHash<QString, HistoryEntry> last; // key of a file: its last state so far
    for (const HistoryEntry& entry : entries) {
        if (entry.Mark.Number == 0) {
            if (key.isEmpty())
                actions += UnreadableState(entry);
            continue;
        }
        if (!key.isEmpty() && entry.Key != key)
            continue;
        if (!places.contains(entry.Mark.Action)) {
            places.insert(entry.Mark.Action, actions.size());
            actions += KeptAction { entry.Mark.Action, entry.Mark.How, {}, {}, {} };
        }
        KeptAction& action = actions[places.value(entry.Mark.Action)];
        KeptFile& file = FileIn(action, entry);
        if (file.Entry == entry && last.contains(entry.Key))
            file.Before = last.value(entry.Key);
        file.Entry = entry;
        action.How = Stronger(action.How, entry.Mark.How);
        action.Time = entry.Mark.Time;
        last[entry.Key] = entry;
    }
    const auto number
        = [](const KeptAction& action) { return action.Files.last().Entry.Mark.Number; };
    std::stable_sort(actions.begin(), actions.end(),
        [&](const KeptAction& a, const KeptAction& b) { return number(a) > number(b); });
    return actions;
}

void TellAction(const DataFiles& files, KeptAction& action)
{
    for (KeptFile& file : action.Files)
        TellFile(files, file);
    action.Words = WordsOfAction(action);
}

QList<KnownFile> FilesOf(const DataFiles& files, const QList<HistoryEntry>& entries)
{
    QHash<QString, QString> targets;
    const QList<HistoryEntry> newest_first(entries.crbegin(), entries.crend());
    for (const HistoryEntry& entry : newest_first) {
        if (entry.Mark.Number == 0 || !targets.value(entry.Key).isEmpty())
            continue;
        const std::optional<RedoRecord> state = ReadKept(files, entry);
        targets[entry.Key] = state ? state->target : QString();
    }
    QList<KnownFile> known;
    for (auto target = targets.cbegin(); target != targets.cend(); ++target) {
        if (!target.value().isEmpty())
            known += { target.key(), target.value() };
    }
    std::sort(known.begin(), known.end(), ComesBefore);
    return known;
}

QString TimeOfState(const QDateTime& time) { return time.toString(u"dd.MM.yyyy, HH:mm 'Uhr'"_s); }
