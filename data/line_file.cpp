#include "data/line_file.h"

#include "data/ansi_text.h"
#include "data/system_files.h"

#include <QLocale>

namespace {

const QByteArray line_end = QByteArrayLiteral("\r\n");

bool IsSeparator(QChar character)
{
    return character == QLatin1Char('\\') || character == QLatin1Char('/');
}

qsizetype EndOfLine(const QByteArray& content, qsizetype begin)
{
    const qsizetype end = content.indexOf(line_end, begin);
    return end < 0 ? content.size() : end;
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

void CheckLine(const QString& file, qsizetype line, qsizetype length)
{
    if (line > MostLines) {
        throw TooLong(file, line,
            QStringLiteral("Mehr als %1 Zeilen kann das Programm nicht führen. Bitte prüfen, ob "
                           "die Datei beschädigt ist.")
                .arg(GermanCount(MostLines)));
    }
    if (length > LongestLine) {
        throw TooLong(file, line,
            QStringLiteral("Die Zeile ist mit %1 Zeichen zu lang; mehr als %2 kann das Programm "
                           "nicht führen. Bitte prüfen, ob die Datei beschädigt ist.")
                .arg(GermanCount(length), GermanCount(LongestLine)));
    }
}

RuntimeError FileError(const QString& name, int error, const QString& remedy)
{
    Place where;
    where.file = FileNameOf(name);
    where.remedy = remedy;
    return { ErrorKind::File, where, ReasonOf(error) };
}

} // namespace

QString PathOf(const DataFiles& files, const QString& name)
{
    const bool begins_with_separator = !name.isEmpty() && IsSeparator(name[0]);
    return files.DataDirectory + QLatin1Char('/') + (begins_with_separator ? name.mid(1) : name);
}

QString FileNameOf(const QString& path_or_name)
{
    qsizetype begin = path_or_name.size();
    while (begin > 0 && !IsSeparator(path_or_name[begin - 1]))
        --begin;
    return path_or_name.mid(begin);
}

bool FileExists(const DataFiles& files, const QString& name)
{
    bool is_folder = false;
    const int error = LookUp(PathOf(files, name), is_folder);
    if (error != 0 && !MeansMissing(error))
        throw FileError(name, error, {});
    return error == 0 && !is_folder;
}

QByteArray ReadBytes(const DataFiles& files, const QString& name)
{
    QByteArray content;
    const int error = ReadFileBytes(PathOf(files, name), content);
    if (error != 0)
        throw FileError(name, error, {});
    return content;
}

QStringList ReadLines(const DataFiles& files, const QString& name)
{
    const QByteArray content = ReadBytes(files, name);
    QStringList lines;
    for (qsizetype begin = 0; begin < content.size();) {
        const qsizetype end = EndOfLine(content, begin);
        CheckLine(FileNameOf(name), lines.size() + 1, end - begin);
        lines += DecodeAnsi(content.mid(begin, end - begin));
        begin = end + line_end.size();
    }
    return lines;
}

QString ReadFirstLine(const DataFiles& files, const QString& name)
{
    const QByteArray content = ReadBytes(files, name);
    const qsizetype end = EndOfLine(content, 0);
    CheckLine(FileNameOf(name), 1, end);
    return DecodeAnsi(content.left(end));
}

QByteArray BytesOfLines(const QStringList& lines)
{
    QByteArray content;
    for (const QString& line : lines)
        content += EncodeAnsi(line) + line_end;
    return content;
}

void RewriteFile(const DataFiles& files, const QString& name, const QByteArray& content)
{
    Overwritten done = Overwritten::Nothing;
    const int error = OverwriteFile(PathOf(files, name), content, done);
    if (error != 0)
        throw FileError(name, error, {});
}

void RewriteLines(const DataFiles& files, const QString& name, const QStringList& lines)
{
    for (qsizetype i = 0; i < lines.size(); ++i)
        CheckLine(FileNameOf(name), i + 1, lines[i].size());
    RewriteFile(files, name, BytesOfLines(lines));
}

void FinishRewrites(const DataFiles&) { }
