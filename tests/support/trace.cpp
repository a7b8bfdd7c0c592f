#include "tests/support/trace.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

QString FolderOf(const QString& path) { return path.section(u'/', 0, -2); }

/// What the disk may not have yet.
struct Unsynced {
    QSet<QString> paths; ///< files with new content, folders with new or removed names

    bool Has(const QString& path) const { return paths.contains(path); }

    bool HasBelow(const QString& folder) const
    {
        return std::any_of(paths.cbegin(), paths.cend(),
            [&](const QString& path) { return path == folder || path.startsWith(folder + u'/'); });
    }
};

bool ChangesContent(const TracedCall& call)
{
    return call.name == u"ftruncate"_s || call.name == u"pwrite64"_s || call.name == u"write"_s;
}

bool ChangesFolder(const TracedCall& call)
{
    return call.name == u"rename"_s || call.name == u"unlink"_s || call.name == u"mkdir"_s
        || call.creates;
}

} // namespace

QList<TracedCall> CallsBetweenMarks(const QByteArray& trace)
{
    static const QRegularExpression form(
        u"^(\\d+) +(\\w+)\\((-[78])?(?:AT_FDCWD[^,]*, )?(?:\\d+<([^>]*)>|\"([^\"]*)\")?"_s);
    QList<TracedCall> calls;
    QMap<QString, int> counts; // each thread has its own
    bool is_inside = false;
    for (const QByteArray& line : trace.split('\n')) {
        const QRegularExpressionMatch match = form.match(QString::fromUtf8(line));
        if (!match.hasMatch())
            continue;
        const int number = ++counts[match.captured(1) + u' ' + match.captured(2)];
        if (!match.captured(3).isEmpty())
            is_inside = match.captured(3) == u"-7"_s;
        else if (is_inside)
            calls += { match.captured(2), number, match.captured(4) + match.captured(5),
                line.contains("O_CREAT") };
    }
    return calls;
}

QString SyncComplaint(const QList<TracedCall>& calls, const QString& data_directory)
{
    Unsynced unsynced;
    for (const TracedCall& call : calls) {
        const bool is_data = call.path.startsWith(data_directory);
        if (call.name == u"fsync"_s)
            unsynced.paths.remove(call.path);
        if (call.name == u"syncfs"_s)
            unsynced.paths.clear();
        if (call.name == u"rename"_s && unsynced.Has(call.path))
            return u"a record takes its place before its content is safe"_s;
        const bool is_draft = call.path.endsWith(u".neu"_s); // a copy that is still growing
        if (is_data && !is_draft && ChangesContent(call)) {
            for (const QString& path : std::as_const(unsynced.paths)) {
                if (!path.startsWith(data_directory))
                    return call.path + u" is touched before the record is safe"_s;
            }
        }
        const bool gives_up_record = call.path.endsWith(u".vormerkung"_s)
            && (call.name == u"ftruncate"_s || call.name == u"unlink"_s
                || call.name == u"rename"_s); // it becomes history
        if (gives_up_record && unsynced.HasBelow(data_directory))
            return u"a record is given up before the file is safe"_s;
        if (ChangesContent(call))
            unsynced.paths += call.path;
        if (ChangesFolder(call))
            unsynced.paths += FolderOf(call.path);
    }
    return unsynced.HasBelow(data_directory) ? u"a save is confirmed before the file is safe"_s
                                             : QString();
}
