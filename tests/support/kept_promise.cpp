#include "tests/support/kept_promise.h"

#include "data/history.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QMap<QString, QByteArray> FilesOf(const DataFiles& files)
{
    QMap<QString, QByteArray> contents;
    const QDir folder(files.DataDirectory);
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            contents[name] = file.readAll();
    }
    return contents;
}

/// The kept states by their numbers.
QHash<qint64, HistoryEntry> StatesOf(const DataFiles& files)
{
    QHash<qint64, HistoryEntry> states;
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        return states;
    for (const HistoryEntry& entry : std::as_const(entries))
        states[entry.Mark.Number] = entry;
    return states;
}

FileStamp StampOf(const DataFiles& files, const HistoryEntry& entry)
{
    const QString path = files.StateDirectory + u"/verlauf/"_s + HistoryNameOf(entry);
    struct stat found { };
    if (::stat(QFile::encodeName(path).constData(), &found) != 0)
        return {};
    return { found.st_ino, found.st_ctim.tv_sec, found.st_ctim.tv_nsec, found.st_size };
}

bool Holds(const DataFiles& files, const HistoryEntry& entry, const ConfirmedState& state)
{
    const std::optional<RedoRecord> kept = ReadKept(files, entry);
    return kept && kept->target == state.Target && kept->content == state.Content;
}

bool IsConfirmed(const KeptPromise& promise, const QString& name, const QByteArray& content)
{
    return std::any_of(
        promise.Confirmed.crbegin(), promise.Confirmed.crend(), [&](const ConfirmedState& state) {
            return state.Target == name && state.Content == content;
        });
}

/// Finds the kept state of that content among those that came since; false when there is none.
bool Confirm(KeptPromise& promise, const DataFiles& files, const QString& name,
    const QByteArray& content, const QHash<qint64, HistoryEntry>& states)
{
    if (IsConfirmed(promise, name, content))
        return true; // read back below
    const QString key = HistoryKeyOf(name);
    for (const HistoryEntry& entry : states) {
        const ConfirmedState state { entry.Mark.Number, name, content, {} };
        if (entry.Key != key || !Holds(files, entry, state))
            continue;
        promise.Confirmed += state;
        return true;
    }
    return false;
}

QString BrokenByFile(KeptPromise& promise, const DataFiles& files, const QString& name,
    const QMap<QString, QByteArray>& now, const QHash<qint64, HistoryEntry>& states)
{
    const auto before = promise.Files.constFind(name);
    const bool was_there = before != promise.Files.cend();
    if (!now.contains(name))
        return name + u" is gone"_s;
    if (was_there && *before == now[name])
        return {};
    if (was_there && !Confirm(promise, files, name, *before, states))
        return u"what was replaced in "_s + name + u" is not kept"_s;
    if (!Confirm(promise, files, name, now[name], states))
        return u"what was saved in "_s + name + u" is not kept"_s;
    return {};
}

} // namespace

void LookAtFiles(KeptPromise& promise, const DataFiles& files) { promise.Files = FilesOf(files); }

void ForgetConfirmed(KeptPromise& promise) { promise.Confirmed.clear(); }

QString BrokenPromise(KeptPromise& promise, const DataFiles& files)
{
    const QMap<QString, QByteArray> now = FilesOf(files);
    const QHash<qint64, HistoryEntry> states = StatesOf(files);
    QStringList names = promise.Files.keys() + now.keys();
    names.removeDuplicates();
    for (const QString& name : std::as_const(names)) {
        const QString broken = BrokenByFile(promise, files, name, now, states);
        if (!broken.isEmpty())
            return broken;
    }
    constexpr int all_at = 100;
    const bool all = ++promise.Looks % all_at == 0;
    for (ConfirmedState& state : promise.Confirmed) {
        const HistoryEntry entry = states.value(state.Number);
        const FileStamp stamp = StampOf(files, entry);
        if (!all && stamp.Size >= 0 && stamp == state.ReadBack)
            continue;
        if (!Holds(files, entry, state))
            return u"state %1 of %2 cannot be read back"_s.arg(state.Number).arg(state.Target);
        state.ReadBack = stamp;
    }
    promise.Files = now;
    return {};
}
