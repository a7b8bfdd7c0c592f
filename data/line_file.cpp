#include "data/line_file.h"

#include "data/ansi_text.h"
#include "data/redo_record.h"
#include "data/whole_files.h"

#include <QLocale>

#include <optional>

namespace {

const QByteArray line_end = QByteArrayLiteral("\r\n");

/// A file without any CR was written by hand on another system: there LF ends the lines.
QByteArray LineEndOf(const QByteArray& content)
{
    return content.contains('\r') ? line_end : QByteArrayLiteral("\n");
}

qsizetype EndOfLine(const QByteArray& content, qsizetype begin, const QByteArray& end_mark)
{
    const qsizetype before = end_mark.size() - 1; // a CR in front of the LF
    for (qsizetype feed = content.indexOf('\n', begin); feed >= 0;
         feed = content.indexOf('\n', feed + 1)) {
        if (before == 0 || (feed > begin && content[feed - 1] == '\r'))
            return feed - before;
    }
    return content.size();
}

QString GermanCount(qsizetype count) { return QLocale(QLocale::German).toString(count); }

RuntimeError TooLong(const QString& file, qsizetype line, const QString& remedy)
{
    Place where;
    where.file = file;
    where.line = static_cast<int>(line);
    where.remedy = remedy;
    return { ErrorKind::Overflow, where, {} };
}

void CheckLine(const QString& file, qsizetype line, qsizetype length, qsizetype most_lines)
{
    if (line > most_lines) {
        throw TooLong(file, line,
            QStringLiteral("Mehr als %1 Zeilen kann das Programm nicht führen. Bitte prüfen, ob "
                           "die Datei beschädigt ist.")
                .arg(GermanCount(most_lines)));
    }
    if (length > LongestLine) {
        throw TooLong(file, line,
            QStringLiteral("Die Zeile ist mit %1 Zeichen zu lang; mehr als %2 kann das Programm "
                           "nicht führen. Bitte prüfen, ob die Datei beschädigt ist.")
                .arg(GermanCount(length), GermanCount(LongestLine)));
    }
}

/// The content that a rewrite under way has noted for this file, if there is one.
std::optional<RedoRecord> Noted(const DataFiles& files, const QString& name)
{
    std::optional<RedoRecord> record;
    const SystemError error = FindRewrite(files.StateDirectory, NameWithin(name), record);
    if (error)
        throw FileError(files, name, error, FileDeed::Read);
    return record;
}

QByteArray ReadUpTo(const DataFiles& files, const QString& name, qint64 largest)
{
    const std::optional<RedoRecord> record = Noted(files, name);
    QByteArray content;
    const SystemError error
        = record ? Fault::None : ReadFileBytes(PathOf(files, name), content, largest);
    if (error)
        throw FileError(files, name, error, FileDeed::Read);
    return record ? record->content : content;
}

enum class ReadingEnd { EndOfFile, EmptyLine };

QStringList LinesOf(
    const DataFiles& files, const QString& name, qsizetype most_lines, ReadingEnd reading_end)
{
    const QByteArray content = ReadTextBytes(files, name);
    const QByteArray end_mark = LineEndOf(content);
    const QString file = FileNameOf(name);
    QStringList lines;
    for (qsizetype begin = 0; begin < content.size();) {
        const qsizetype end = EndOfLine(content, begin, end_mark);
        if (end == begin && reading_end == ReadingEnd::EmptyLine)
            return lines;
        CheckLine(file, lines.size() + 1, end - begin, most_lines);
        lines += DecodeAnsi(QByteArrayView(content).sliced(begin, end - begin));
        begin = end + end_mark.size();
    }
    return lines;
}

} // namespace

bool FileExists(const DataFiles& files, const QString& name)
{
    bool is_folder = false;
    const SystemError error = LookUp(PathOf(files, name), is_folder);
    if (error && !MeansMissing(error))
        throw FileError(files, name, error, FileDeed::Read);
    return (!error && !is_folder) || Noted(files, name).has_value();
}

QByteArray ReadBytes(const DataFiles& files, const QString& name)
{
    return ReadUpTo(files, name, LargestFile);
}

QByteArray ReadTextBytes(const DataFiles& files, const QString& name)
{
    return ReadUpTo(files, name, LargestText);
}

QStringList ReadLines(const DataFiles& files, const QString& name, qsizetype most_lines)
{
    return LinesOf(files, name, most_lines, ReadingEnd::EndOfFile);
}

QStringList ReadLinesUpToEmpty(const DataFiles& files, const QString& name, qsizetype most_lines)
{
    return LinesOf(files, name, most_lines, ReadingEnd::EmptyLine);
}

QString ReadFirstLine(const DataFiles& files, const QString& name)
{
    const QByteArray content = ReadTextBytes(files, name);
    const qsizetype end = EndOfLine(content, 0, LineEndOf(content));
    CheckLine(FileNameOf(name), 1, end, MostLines);
    return DecodeAnsi(content.left(end));
}

QByteArray BytesOfLines(const QStringList& lines)
{
    QByteArray content;
    for (const QString& line : lines) {
        content += EncodeAnsi(line);
        content += line_end;
    }
    return content;
}

void RewriteLines(
    const DataFiles& files, const QString& name, const QStringList& lines, qsizetype most_lines)
{
    const QString file = FileNameOf(name);
    for (qsizetype i = 0; i < lines.size(); ++i)
        CheckLine(file, i + 1, lines[i].size(), most_lines);
    const QByteArray content = BytesOfLines(lines);
    if (content.size() > LargestText)
        throw FileError(files, name, Fault::TooLarge, FileDeed::Write,
            QStringLiteral("Es wurde nicht gespeichert."));
    RewriteFile(files, name, content);
}
