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

/// A path as strace writes it: letters outside ASCII as three octal digits.
QString PathOf(const QString& written)
{
    QByteArray path = written.toUtf8();
    for (qsizetype i = path.indexOf('\\'); i >= 0; i = path.indexOf('\\', i + 1))
        path.replace(i, 4, QByteArray(1, static_cast<char>(path.mid(i + 1, 3).toInt(nullptr, 8))));
    return QString::fromUtf8(path);
}

} // namespace

QStringList PathsBelow(const QByteArray& trace, const QString& folder)
{
    const QRegularExpression form(
        u"[\"<](%1(?:/[^\"<>]*)?)[\">]"_s.arg(QRegularExpression::escape(folder)));
    QSet<QString> paths;
    QRegularExpressionMatchIterator found = form.globalMatch(QString::fromUtf8(trace));
    while (found.hasNext())
        paths += PathOf(found.next().captured(1));
    QStringList sorted(paths.cbegin(), paths.cend());
    sorted.sort();
    return sorted;
}

QList<TracedCall> CallsBetweenMarks(const QByteArray& trace, const QString& folder)
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
        if (!match.captured(3).isEmpty())
            is_inside = match.captured(3) == u"-7"_s;
        if (PathsBelow(line, folder).isEmpty())
            continue;
        const int number = ++counts[match.captured(1) + u' ' + match.captured(2)];
        if (is_inside)
            calls += { match.captured(2), number, PathOf(match.captured(4) + match.captured(5)),
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
