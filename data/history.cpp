#include "data/history.h"

#include "data/history_thinning.h"
#include "data/whole_files.h"

#include <algorithm>

namespace {

const QString draft_name = QStringLiteral("entwurf");

QString HistoryFolder(const DataFiles& files)
{
    return files.StateDirectory + QStringLiteral("/verlauf");
}

QString PathOfState(const DataFiles& files, const QString& name)
{
    return HistoryFolder(files) + QLatin1Char('/') + name;
}

HistoryEntry EntryFor(const RedoRecord& record)
{
    return { record.Mark, HistoryKeyOf(record.target), record.content.size() };
}

void NoteFailure(const DataFiles& files, const QString& target, const SystemError& error)
{
    HistoryState& state = *files.History;
    if (error)
        state.Failure = { error, target, state.Now() };
}

/// Before the first save of this run: what is kept already.
SystemError ReadOnce(const DataFiles& files)
{
    HistoryState& state = *files.History;
    if (state.IsRead)
        return Fault::None;
    if (files.StateDirectory.isEmpty())
        return Fault::Missing;
    const SystemError error = ReadHistory(files, state.Entries);
    state.LastContents.clear();
    state.Bytes = 0;
    for (const HistoryEntry& entry : std::as_const(state.Entries))
        state.Bytes += entry.Size;
    state.IsRead = !error;
    state.HasFolder = false;
    return error;
}

/// Before something is kept.
SystemError MakeReady(const DataFiles& files)
{
    HistoryState& state = *files.History;
    if (const SystemError error = ReadOnce(files))
        return error;
    if (state.HasFolder)
        return Fault::None;
    const SystemError error = MakePrivateFolder(HistoryFolder(files));
    state.HasFolder = !error;
    return error;
}

void DropTooMany(const DataFiles& files)
{
    HistoryState& state = *files.History;
    if (state.Bytes <= state.MostBytes)
        return;
    const QList<HistoryEntry> dropped = StatesToDrop(state.Entries, state.MostBytes);
    for (const HistoryEntry& entry : dropped) {
        if (UnlinkFile(PathOfState(files, HistoryNameOf(entry))))
            continue; // tried again at the next save
        state.Entries.removeOne(entry);
        state.Bytes -= entry.Size;
    }
}

bool ComesBefore(const HistoryEntry& a, const HistoryEntry& b)
{
    return a.Mark.Number < b.Mark.Number;
}

void TakeIn(const DataFiles& files, const RedoRecord& record)
{
    HistoryState& state = *files.History;
    const HistoryEntry entry = EntryFor(record);
    state.Entries.insert(
        std::upper_bound(state.Entries.begin(), state.Entries.end(), entry, ComesBefore), entry);
    state.Bytes += entry.Size;
    if (record.Mark.How != Deed::SentOut)
        state.LastContents[entry.Key] = record.content;
    DropTooMany(files);
}

/// Written beside and then named, so that a state is whole or absent.
void Keep(const DataFiles& files, const RedoRecord& record)
{
    const QString draft = PathOfState(files, draft_name);
    SystemError error = WritePrivateFile(draft, EncodeRedoRecord(record));
    if (!error)
        error = RenameFile(draft, PathOfState(files, HistoryNameOf(EntryFor(record))));
    if (error) {
        RemoveFile(draft);
        return NoteFailure(files, record.target, error);
    }
    TakeIn(files, record);
    NoteFailure(files, record.target, SyncFolder(HistoryFolder(files)));
}

bool IsLastKept(const DataFiles& files, const QString& target, const QByteArray& content)
{
    HistoryState& state = *files.History;
    const QString key = HistoryKeyOf(target);
    if (!state.LastContents.contains(key)) {
        const auto last = std::find_if(state.Entries.crbegin(), state.Entries.crend(),
            [&key](const HistoryEntry& entry) { return entry.Key == key; });
        if (last == state.Entries.crend())
            return false;
        const std::optional<RedoRecord> kept = ReadKept(files, *last);
        if (!kept)
            return false;
        state.LastContents[key] = kept->content;
    }
    return state.LastContents.value(key) == content;
}

HistoryMark MarkOf(const HistoryState& state, qint64 action, Deed how)
{
    HistoryMark mark;
    mark.Number = state.Entries.isEmpty() ? 1 : state.Entries.last().Mark.Number + 1;
    mark.Action = state.Depth > 0 && action > 0 ? action : mark.Number;
    mark.Time = state.Now();
    mark.Time = mark.Time.addMSecs(-mark.Time.time().msec());
    mark.How = how;
    return mark;
}

} // namespace

SavingAction::SavingAction(const DataFiles& files)
    : SavingAction(files, files.History->How)
{
}

SavingAction::SavingAction(const DataFiles& files, Deed how)
    : m_state(files.History)
    , m_before(m_state->How)
{
    if (m_state->Depth++ == 0) {
        m_state->Action = 0;
        m_state->FoundAction = 0;
    }
    m_state->How = how;
}

SavingAction::~SavingAction()
{
    --m_state->Depth;
    m_state->How = m_before;
}

HistoryMark NextMark(const DataFiles& files)
{
    if (const SystemError error = MakeReady(files)) {
        NoteFailure(files, {}, error);
        return {};
    }
    return MarkOf(*files.History, files.History->Action, files.History->How);
}

void KeepReplaced(const DataFiles& files, const QString& target, const QByteArray& content,
    const HistoryMark& noted)
{
    HistoryState& state = *files.History;
    if (const SystemError error = MakeReady(files))
        return NoteFailure(files, target, error);
    if (IsLastKept(files, target, content))
        return;
    if (noted.Number > 0)
        return Keep(files, { target, content, noted });
    const HistoryMark mark = MarkOf(state, state.FoundAction, Deed::Found);
    state.FoundAction = mark.Action;
    Keep(files, { target, content, mark });
}

bool KeepRecord(const DataFiles& files, const RedoRecord& record)
{
    HistoryState& state = *files.History;
    SystemError error = MakeReady(files);
    if (!error && record.Mark.Number == 0) // of a version of the program that kept nothing
        Keep(files, { record.target, record.content, NextMark(files) });
    if (error || record.Mark.Number == 0) {
        NoteFailure(files, record.target, error);
        return false;
    }
    error = RenameFile(RecordPathOf(files.StateDirectory, record.target),
        PathOfState(files, HistoryNameOf(EntryFor(record))));
    if (error) {
        state.IsRead = false; // the folder may have been taken away
        NoteFailure(files, record.target, error);
        return false;
    }
    state.Action = record.Mark.Action;
    TakeIn(files, record);
    error = SyncFolder(HistoryFolder(files));
    NoteFailure(files, record.target, error ? error : SyncFolder(files.StateDirectory));
    return true;
}

void KeepSentOut(const DataFiles& files, const QString& name, const QByteArray& content)
{
    const SavingAction action(files, Deed::SentOut);
    const HistoryMark mark = NextMark(files);
    if (mark.Number > 0)
        Keep(files, { name, content, mark });
}

SystemError ReadHistory(const DataFiles& files, QList<HistoryEntry>& entries)
{
    entries.clear();
    if (files.StateDirectory.isEmpty())
        return Fault::Missing;
    QStringList names;
    const SystemError error = ListFolder(HistoryFolder(files), names);
    names.removeAll(QStringLiteral("."));
    names.removeAll(QStringLiteral(".."));
    names.removeAll(draft_name);
    for (const QString& name : std::as_const(names))
        entries += HistoryEntryOf(name).value_or(HistoryEntry {});
    std::stable_sort(entries.begin(), entries.end(), ComesBefore);
    return error;
}

QList<HistoryEntry> KnownHistory(const DataFiles& files)
{
    return ReadOnce(files) ? QList<HistoryEntry>() : files.History->Entries;
}

std::optional<RedoRecord> ReadKept(const DataFiles& files, const HistoryEntry& entry)
{
    QByteArray bytes;
    if (ReadFileBytes(PathOfState(files, HistoryNameOf(entry)), bytes))
        return std::nullopt;
    std::optional<RedoRecord> record = DecodeRedoRecord(bytes);
    const bool is_it = record && EntryFor(*record) == entry;
    return is_it ? record : std::nullopt;
}

SystemError EmptyHistory(const DataFiles& files)
{
    QStringList names;
    SystemError error = ListFolder(HistoryFolder(files), names);
    for (const QString& name : std::as_const(names)) {
        if (name == QLatin1String(".") || name == QLatin1String(".."))
            continue;
        if (const SystemError unlinked = UnlinkFile(PathOfState(files, name)))
            error = unlinked;
    }
    files.History->IsRead = false;
    files.History->Failure = {};
    return error ? error : SyncFolder(HistoryFolder(files));
}
