// The crash-matrix: every saving action of the program is interrupted at every system call that it
// makes, once for each fault: killed, no space, broken medium, no permission, interrupted, short
// write; single and from then on. Then the program starts again. However it ended:
// - every file is wholly the old or wholly the new one, also as the running program sees it;
// - after a confirmed save it is the new one, and an interrupted call alone refuses nothing;
// - every kept state is whole, and nothing was overwritten that is not kept, unless keeping failed;
// - no file of ours lies in the data directory, and no record is left after the start;
// - the next save succeeds.
// The routines on plain files meet every fault, the window's own saves (the real forms, filled and
// clicked) fewer of them. Points are run side by side, each in folders of its own.
// usage: crash_matrix [ACTION...]   all actions without any name
#include "data/history.h"
#include "data/line_file.h"
#include "tests/support/crash_actions.h"
#include "tests/support/data_folders.h"
#include "tests/support/trace.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTextStream>

#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstring>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Snapshot = QMap<QString, QByteArray>; ///< file name to content

struct Recording {
    QList<TracedCall> calls; ///< about the club's folders, paths within the temporary folder
    QStringList paths; ///< all that the action names there, in the same way
    Snapshot before; ///< as the program sees it
    Snapshot after;
};

enum class Demand { None, Confirm, Refuse };

struct Point {
    const CrashAction* action = nullptr;
    const Recording* recording = nullptr;
    QString call {}; ///< empty: the size of files is limited instead
    QString place {}; ///< path of the file that the call is about, within the temporary folder
    QString fault {}; ///< as strace wants it
    qint64 size_limit = -1;
    Demand demand = Demand::None;
};

QString NameOf(const Point& point)
{
    return QString::fromUtf8(point.action->name) + u": "_s
        + (point.call.isEmpty() ? u"files of at most %1 bytes"_s.arg(point.size_limit)
                                : point.call + u' ' + point.fault);
}

Snapshot OnDisk(const DataFolders& folders)
{
    Snapshot snapshot;
    for (const QString& name : folders.Names())
        snapshot[name] = folders.Get(name);
    return snapshot;
}

/// What ReadBytes gives of these files.
Snapshot AsSeen(const DataFolders& folders, const QStringList& names)
{
    Snapshot snapshot;
    for (const QString& name : names) {
        if (FileExists(folders.files, name))
            snapshot[name] = ReadBytes(folders.files, name);
    }
    return snapshot;
}

/// Empty, or what is wrong with a snapshot.
QString Compare(const Snapshot& found, const Recording& recording, bool is_confirmed)
{
    const auto old_or_new = [&](const QString& name, const Snapshot& wanted) {
        return found.contains(name) == wanted.contains(name)
            && found.value(name) == wanted.value(name);
    };
    Snapshot all = found;
    all.insert(recording.before);
    all.insert(recording.after);
    all.remove(u".parzello.neu"_s); // what is left of a backup that was interrupted
    for (const QString& name : all.keys()) {
        const bool is_new = old_or_new(name, recording.after);
        if (is_confirmed && !is_new)
            return name + u" is not the new one after a confirmed save"_s;
        if (!is_new && !old_or_new(name, recording.before))
            return name + u" is neither the old nor the new one"_s;
    }
    return {};
}

QStringList DriverCall(const CrashAction& action, const DataFolders& folders)
{
    return { QStringLiteral(CRASH_DRIVER), QString::fromUtf8(action.name),
        folders.files.DataDirectory, folders.files.StateDirectory };
}

/// Runs one action of a program of its own, under strace unless strace_options are empty. Returns
/// its output.
QByteArray RunDriver(const Point& point, const DataFolders& folders, const QStringList& options)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s); // leaks are sought by tracing, too
    if (point.size_limit >= 0) {
        const rlim_t bytes = static_cast<rlim_t>(point.size_limit);
        process.setChildProcessModifier([bytes] {
            const rlimit limit { bytes, bytes };
            ::setrlimit(RLIMIT_FSIZE, &limit);
            ::signal(SIGXFSZ, SIG_IGN);
        });
    }
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"XDG_RUNTIME_DIR"_s, folders.root.path());
    process.setProcessEnvironment(environment);
    QStringList command = options.isEmpty() ? QStringList() : QStringList { u"strace"_s } + options;
    command += DriverCall(*point.action, folders);
    const QString program = command.takeFirst();
    process.start(program, command);
    if (!process.waitForFinished(60000))
        return "hangs or does not start: " + process.errorString().toUtf8();
    return process.readAll();
}

QStringList StraceOptions(const DataFolders& folders, const QStringList& more)
{
    return QStringList { u"-f"_s, u"-o"_s, folders.root.filePath(u"trace"_s) } + more;
}

QByteArray TraceOf(const DataFolders& folders)
{
    QFile trace(folders.root.filePath(u"trace"_s));
    return trace.open(QIODevice::ReadOnly) ? trace.readAll() : QByteArray();
}

Recording Record(const CrashAction& action)
{
    Recording recording;
    const DataFolders folders;
    action.prepare(folders.files);
    const QByteArray output = RunDriver(Point { &action }, folders,
        StraceOptions(folders, { u"-y"_s, u"-e"_s, u"trace=%file,%desc"_s }));
    if (output != "confirmed\n")
        qFatal("%s without any fault: %s", action.name, output.constData());
    const QString root = folders.root.path();
    recording.calls = CallsBetweenMarks(TraceOf(folders), root);
    const QString complaint = SyncComplaint(recording.calls, folders.files.DataDirectory);
    if (!complaint.isEmpty())
        qFatal("%s: %s", action.name, qPrintable(complaint));
    for (TracedCall& call : recording.calls)
        call.path.remove(0, root.size());
    for (const QString& path : PathsBelow(TraceOf(folders), root))
        recording.paths += path.mid(root.size());
    recording.after = OnDisk(folders);
    const DataFolders untouched;
    action.prepare(untouched.files);
    recording.before = AsSeen(untouched, untouched.Names() + folders.Names());
    return recording;
}

/// A failure to store the file or its record must never be taken for a success.
bool IsVital(const TracedCall& call)
{
    return (call.name == u"pwrite64"_s || call.name == u"fsync"_s || call.name == u"ftruncate"_s)
        && (call.path.contains(u"/daten"_s) || call.path.endsWith(u".entwurf"_s));
}

bool Changes(const TracedCall& call)
{
    const QStringList changing { u"pwrite64"_s, u"fsync"_s, u"ftruncate"_s, u"rename"_s,
        u"unlink"_s, u"mkdir"_s };
    return call.creates || changing.contains(call.name);
}

/// The window takes its time to start, and its files are written by the same routine: every look-up
/// and every read fails once; what changes something is killed before it, too, and fails for good.
void AddWindowPoints(const CrashAction& action, const Recording& recording, QList<Point>& points)
{
    for (const TracedCall& call : recording.calls) {
        const QString once = u":when=%1"_s.arg(call.number);
        const Demand demand = IsVital(call) ? Demand::Refuse : Demand::None;
        const auto add = [&](const QString& fault) {
            points += { &action, &recording, call.name, call.path, fault, -1, demand };
        };
        add(u"error=EIO"_s + once);
        if (!Changes(call))
            continue;
        points += { &action, &recording, call.name, call.path, u"signal=SIGKILL"_s + once };
        add(u"error=ENOSPC"_s + once + u'+');
    }
}

void AddPoints(const CrashAction& action, const Recording& recording, QList<Point>& points)
{
    if (action.run == nullptr)
        return AddWindowPoints(action, recording, points);
    const QStringList interruptible { u"openat"_s, u"read"_s, u"pwrite64"_s, u"fsync"_s,
        u"ftruncate"_s, u"close"_s };
    for (const TracedCall& call : recording.calls) {
        const QString once = u":when=%1"_s.arg(call.number);
        const QString from_then_on = once + u'+';
        const auto add = [&](const QString& fault, Demand demand = Demand::None) {
            points += { &action, &recording, call.name, call.path, fault, -1, demand };
        };
        const Demand demand = IsVital(call) ? Demand::Refuse : Demand::None;
        add(u"signal=SIGKILL"_s + once);
        for (const QString& error : { u"error=ENOSPC"_s, u"error=EIO"_s, u"error=EACCES"_s })
            add(error + once, demand);
        add(u"error=EIO"_s + from_then_on, demand);
        if (interruptible.contains(call.name))
            add(u"error=EINTR"_s + once, Demand::Confirm);
        if (call.name != u"pwrite64"_s)
            continue;
        add(u"error=ENOSPC"_s + from_then_on, demand);
        for (const QString& count : { u"retval=0"_s, u"retval=1"_s, u"retval=1000"_s })
            add(count + once, demand); // says that it took so much, and took nothing
    }
    // Honest short writes: the system takes what fits and refuses the rest.
    qint64 largest = 0;
    for (const QByteArray& content : recording.after)
        largest = std::max(largest, content.size() + 200); // a record is a little larger
    for (qint64 limit = 0; limit <= largest; limit += std::max<qint64>(1, largest / 30))
        points += { &action, &recording, {}, {}, {}, limit, Demand::None };
}

/// What strace needs to count and to fault the calls about the club's folders alone.
QStringList FaultOptions(const Point& point, const DataFolders& folders)
{
    // where a path leads is no matter of the program, which is compared by what it says
    QStringList options { u"--quiet=path-resolution"_s, u"-y"_s, u"-e"_s, u"trace="_s + point.call,
        u"-e"_s, u"inject="_s + point.call + u':' + point.fault };
    for (const QString& path : point.recording->paths)
        options << u"-P"_s << folders.root.path() + path;
    if (!point.fault.contains(u"signal"_s))
        options += u"--seccomp-bpf"_s; // quicker, but kills nothing
    return options;
}

/// Empty, or what is wrong with a trace that should show the fault at its call: what the window
/// does before to the club's files must be the same in every run, or the count leads elsewhere.
QString PlaceComplaint(const Point& point, const QByteArray& trace, const DataFolders& folders)
{
    QByteArray hit;
    for (const QByteArray& line : trace.split('\n')) {
        if (line.contains("+++ killed by SIGKILL +++"))
            break;
        hit = line;
        if (line.contains("(INJECTED)"))
            break;
    }
    const QString root = folders.root.path();
    const bool is_there = PathsBelow(hit, root).contains(root + point.place);
    return is_there ? QString() : u"another call was reached: "_s + QString::fromUtf8(hit);
}

/// True for an action that rewrites files of the club, and does not only copy them.
bool KeepsHistory(const Recording& recording)
{
    return std::any_of(recording.calls.cbegin(), recording.calls.cend(),
        [](const TracedCall& call) { return call.path.contains(u"/verlauf"_s); });
}

/// Empty, or what is wrong with the kept states: each is whole, and where no call was refused, what
/// was overwritten and what took its place are among them.
QString HistoryComplaint(const Point& point, const DataFolders& folders)
{
    const DataFiles files { folders.files.DataDirectory, folders.files.StateDirectory };
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        return u"the history cannot be read"_s;
    QMultiMap<QString, QByteArray> kept;
    for (const HistoryEntry& entry : std::as_const(entries)) {
        const std::optional<RedoRecord> state = ReadKept(files, entry);
        if (!state)
            return u"a kept state is damaged"_s;
        kept.insert(state->target, state->content);
    }
    if (!point.fault.contains(u"SIGKILL"_s) || !KeepsHistory(*point.recording))
        return {};
    const Snapshot& before = point.recording->before;
    const Snapshot now = OnDisk(folders);
    for (const QString& name : now.keys()) {
        if (now.value(name) == before.value(name))
            continue;
        if (!kept.contains(name, now.value(name)))
            return name + u" is not in the history"_s;
        if (before.contains(name) && !kept.contains(name, before.value(name)))
            return name + u" was overwritten and is not in the history"_s;
    }
    return {};
}

/// Runs the point and starts the program again. Empty, or what is wrong.
QString Complaint(const Point& point)
{
    const DataFolders folders;
    point.action->prepare(folders.files);
    const Recording& recording = *point.recording;
    QStringList options;
    if (!point.call.isEmpty())
        options = StraceOptions(folders, FaultOptions(point, folders));
    const QByteArray output = RunDriver(point, folders, options);
    if (!point.call.isEmpty()) {
        const QByteArray trace = TraceOf(folders);
        if (!trace.contains("(INJECTED)") && !trace.contains("+++ killed by SIGKILL +++"))
            return u"the point was not reached"_s;
        if (const QString wrong = PlaceComplaint(point, trace, folders); !wrong.isEmpty())
            return wrong;
    }
    const bool is_confirmed = output == "confirmed\n";
    if (!is_confirmed && !output.startsWith("refused ") && !point.fault.contains(u"SIGKILL"_s))
        return u"ends otherwise: "_s + QString::fromUtf8(output);
    if ((point.demand == Demand::Confirm && !is_confirmed)
        || (point.demand == Demand::Refuse && is_confirmed))
        return QString::fromUtf8(output);

    QStringList names = recording.before.keys() + recording.after.keys();
    QString wrong = Compare(AsSeen(folders, names), recording, is_confirmed);
    if (!wrong.isEmpty())
        return u"seen by the program: "_s + wrong;
    FinishRewrites(folders.files);
    wrong = Compare(OnDisk(folders), recording, is_confirmed);
    if (!wrong.isEmpty())
        return u"after the start: "_s + wrong;
    if (const QString lost = HistoryComplaint(point, folders); !lost.isEmpty())
        return lost;
    if (!folders.StateNames().isEmpty())
        return u"left in the state directory: "_s + folders.StateNames().join(u' ');
    if (point.action->run != nullptr)
        point.action->run(folders.files);
    else if (const QByteArray next = RunDriver(Point { point.action }, folders, {});
             next != "confirmed\n")
        return u"the next save: "_s + QString::fromUtf8(next);
    if (OnDisk(folders) != recording.after)
        return u"the next save does not give the new files"_s;
    return {};
}

QString ComplaintOrError(const Point& point)
{
    try {
        return Complaint(point);
    } catch (const RuntimeError& error) {
        return u"the start after it fails: "_s + ErrorHeadline(error) + u' ' + ErrorSentence(error);
    }
}

/// Runs all points, as many at a time as there are processors. Returns the complaints.
QStringList RunAll(const QList<Point>& points)
{
    std::atomic<qsizetype> next = 0;
    std::mutex guard;
    QStringList complaints;
    const auto work = [&] {
        for (qsizetype i = next++; i < points.size(); i = next++) {
            const QString complaint = ComplaintOrError(points[i]);
            const std::lock_guard lock(guard);
            if (!complaint.isEmpty())
                complaints += NameOf(points[i]) + u": "_s + complaint;
        }
    };
    std::vector<std::thread> workers;
    for (unsigned i = 0; i < std::max(2U, std::thread::hardware_concurrency()); ++i)
        workers.emplace_back(work);
    for (std::thread& worker : workers)
        worker.join();
    return complaints;
}

/// The actions with these names; all without any.
QList<CrashAction> ChosenActions(int argument_count, char** arguments)
{
    QList<CrashAction> actions = CrashActions();
    if (argument_count > 1)
        actions.removeIf([&](const CrashAction& action) {
            return std::find_if(arguments + 1, arguments + argument_count, [&](const char* name) {
                return std::strcmp(name, action.name) == 0;
            }) == arguments + argument_count;
        });
    return actions;
}

} // namespace

int main(int argument_count, char** arguments)
{
    constexpr qsizetype fewest_points = 8122;
    if (QFileInfo(u"/dev/shm"_s).isWritable())
        qputenv("TMPDIR", "/dev/shm"); // thousands of folders, and thousands of times fsync
    QTextStream out(stdout);
    std::list<Recording> recordings; // points lead to them
    QList<Point> points;
    const QList<CrashAction> actions = ChosenActions(argument_count, arguments);
    for (const CrashAction& action : actions) {
        const Recording& recording = recordings.emplace_back(Record(action));
        const qsizetype before = points.size();
        AddPoints(action, recording, points);
        out << action.name << ": " << recording.calls.size() << " calls, " << points.size() - before
            << " points" << Qt::endl;
    }
    const QStringList complaints = RunAll(points);
    for (const QString& complaint : complaints)
        out << complaint << Qt::endl;
    out << "crash-matrix: " << points.size() << " points, " << complaints.size() << " complaints"
        << Qt::endl;
    return complaints.isEmpty() && (argument_count > 1 || points.size() >= fewest_points) ? 0 : 1;
}
