#include "tests/tour/club_folder.h"

#include "data/ansi_text.h"

#include <QDir>
#include <QFile>

namespace {

const QByteArray LineEnd("\r\n");

QByteArray Bytes(const QString& line) { return EncodeAnsi(line) + LineEnd; }

/// Where a line stands in a file: at its beginning or behind a line end.
qsizetype PlaceOf(const QByteArray& content, const QByteArray& line)
{
    if (content.startsWith(line))
        return 0;
    const qsizetype found = content.indexOf(LineEnd + line);
    return found < 0 ? found : found + LineEnd.size();
}

QMap<QString, QByteArray> FilesOf(const QString& path)
{
    QMap<QString, QByteArray> files;
    const QDir folder(path);
    const QStringList names = folder.entryList(
        QDir::Files | QDir::Dirs | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        files[name] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    return files;
}

QString FirstDifference(const QByteArray& actual, const QByteArray& expected)
{
    const QStringList now = DecodeAnsi(actual).split(QLatin1Char('\n'));
    const QStringList then = DecodeAnsi(expected).split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < qMax(now.size(), then.size()); ++i) {
        if (now.value(i) != then.value(i))
            return QStringLiteral("line %1 is \"%2\" instead of \"%3\"")
                .arg(i + 1)
                .arg(now.value(i), then.value(i));
    }
    return {};
}

} // namespace

void ClubFolder::Remember() { Expected = FilesOf(Path); }

void ClubFolder::Replace(const QString& name, const QString& line, const QString& by)
{
    QByteArray& content = Expected[name];
    const qsizetype place = PlaceOf(content, Bytes(line));
    if (place < 0 || content.indexOf(LineEnd + Bytes(line), place) >= 0)
        qFatal("%s does not hold once: %s", qPrintable(name), qPrintable(line));
    content.replace(place, Bytes(line).size(), by.isNull() ? QByteArray() : Bytes(by));
}

void ClubFolder::Append(const QString& name, const QString& line) { Expected[name] += Bytes(line); }

void ClubFolder::Remove(const QString& name, const QString& line)
{
    Replace(name, line, QString());
}

void ClubFolder::Set(const QString& name, const QStringList& lines)
{
    Expected[name].clear();
    for (const QString& line : lines)
        Append(name, line);
}

QStringList ClubFolder::Differences() const
{
    QStringList differences;
    const QMap<QString, QByteArray> actual = FilesOf(Path);
    for (auto file = actual.begin(); file != actual.end(); ++file) {
        if (!Expected.contains(file.key()))
            differences += file.key() + QStringLiteral(" should not be there");
    }
    for (auto file = Expected.begin(); file != Expected.end(); ++file) {
        if (!actual.contains(file.key()))
            differences += file.key() + QStringLiteral(" is missing");
        else if (actual[file.key()] != file.value())
            differences += file.key() + QStringLiteral(": ")
                + FirstDifference(actual[file.key()], file.value());
    }
    return differences;
}
