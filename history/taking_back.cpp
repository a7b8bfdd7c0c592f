#include "history/taking_back.h"

#include "data/rewrite_file.h"
#include "history/file_kinds.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString stays = u" Der jetzige Stand bleibt im Verlauf."_s;

QList<KeptAction> AllActions(const DataFiles& files)
{
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        return {};
    return ActionsOf(entries);
}

std::optional<KeptAction> ActionOfNumber(const DataFiles& files, qint64 number)
{
    const QList<KeptAction> actions = AllActions(files);
    const auto found = std::find_if(actions.cbegin(), actions.cend(),
        [number](const KeptAction& action) { return action.Number == number; });
    return found == actions.cend() ? std::nullopt : std::optional(*found);
}

QString FilesInWords(const StatesToTake& take)
{
    return take.States.size() == 1 ? u"„%1“"_s.arg(FileCaption(take.States.first().target))
                                   : u"%1 Dateien"_s.arg(take.States.size());
}

QString MissingInWords(const QStringList& missing)
{
    if (missing.isEmpty())
        return {};
    return u" Nicht zurückgeholt werden kann: %1 (davor nicht da oder beschädigt)."_s.arg(
        missing.join(u", "_s));
}

/// "Soll der Stand vom 20.11.2026, 14:03 Uhr von „Mitglieder 2026“ zurückgeholt werden ? …"
QString AskForState(const StatesToTake& take, const QString& when)
{
    return u"Soll der Stand %1 von %2 zurückgeholt werden ?"_s.arg(when, FilesInWords(take))
        + MissingInWords(take.Missing) + stays;
}

StatesToTake AllBefore(const DataFiles& files, const KeptAction& action)
{
    StatesToTake take;
    for (const KeptFile& file : action.Files) {
        const std::optional<RedoRecord> before
            = file.Before ? ReadKept(files, *file.Before) : std::nullopt;
        const std::optional<RedoRecord> after = ReadKept(files, file.Entry);
        if (before)
            take.States += *before;
        else
            take.Missing += after ? FileCaption(after->target) : u"eine Datei"_s;
    }
    return take;
}

bool IsOfTheUser(const KeptAction& action)
{
    return action.How != Deed::Found && action.How != Deed::SentOut && action.Number > 0;
}

} // namespace

StatesToTake StateOfNumber(const DataFiles& files, qint64 number)
{
    QList<HistoryEntry> entries;
    StatesToTake take;
    if (ReadHistory(files, entries))
        return take;
    for (const HistoryEntry& entry : std::as_const(entries)) {
        if (entry.Mark.Number != number || entry.Mark.How == Deed::SentOut)
            continue;
        if (const std::optional<RedoRecord> state = ReadKept(files, entry))
            take.States = { *state };
    }
    if (!take.States.isEmpty())
        take.Question = AskForState(take, u"vom "_s + TimeOfState(take.States.first().Mark.Time));
    return take;
}

StatesToTake StatesOfAction(const DataFiles& files, qint64 action)
{
    StatesToTake take;
    const std::optional<KeptAction> kept = ActionOfNumber(files, action);
    if (!kept || kept->How == Deed::SentOut)
        return take;
    for (const KeptFile& file : kept->Files) {
        if (const std::optional<RedoRecord> state = ReadKept(files, file.Entry))
            take.States += *state;
        else
            take.Missing += u"eine Datei"_s;
    }
    take.Question = AskForState(take, u"vom "_s + TimeOfState(kept->Time));
    return take;
}

StatesToTake StatesBeforeAction(const DataFiles& files, qint64 action)
{
    const std::optional<KeptAction> kept = ActionOfNumber(files, action);
    if (!kept || kept->How == Deed::SentOut)
        return {};
    StatesToTake take = AllBefore(files, *kept);
    take.Question = AskForState(take, u"vor dem "_s + TimeOfState(kept->Time));
    return take;
}

StatesToTake StatesBeforeTheLast(const DataFiles& files)
{
    const QList<KeptAction> actions = AllActions(files);
    const auto last = std::find_if(actions.cbegin(), actions.cend(), IsOfTheUser);
    if (last == actions.cend())
        return {};
    KeptAction action = *last;
    TellAction(files, action);
    StatesToTake take = AllBefore(files, action);
    take.Question = u"Soll „%1“ zurückgenommen werden ?"_s.arg(action.Words)
        + MissingInWords(take.Missing) + stays;
    return take;
}

void TakeBack(const DataFiles& files, const QList<RedoRecord>& states)
{
    const SavingAction action(files, Deed::TakenBack);
    for (const RedoRecord& state : states)
        RewriteFile(files, u'\\' + state.target, state.content);
}
