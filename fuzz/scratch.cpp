#include "fuzz/scratch.h"

#include "data/ansi_text.h"
#include "fuzz/fuzz.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

DataFiles EmptyScratchFiles()
{
    static const QTemporaryDir folder;
    Require(folder.isValid(), "a temporary folder");
    DataFiles files;
    files.DataDirectory = folder.path() + u"/data"_s;
    files.StateDirectory = folder.path() + u"/state"_s;
    for (const QString& path : { files.DataDirectory, files.StateDirectory }) {
        QDir directory(path);
        Require(directory.removeRecursively() && directory.mkpath(path), "an empty folder", path);
    }
    return files;
}

void PutFile(const DataFiles& files, const char* name, const QByteArray& content)
{
    QFile file(files.DataDirectory + u'/' + QString::fromLatin1(name));
    Require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a file");
}

QByteArray FileBytes(const DataFiles& files, const char* name)
{
    QFile file(files.DataDirectory + u'/' + QString::fromLatin1(name));
    Require(file.open(QIODevice::ReadOnly), "the file is there", file.fileName());
    return file.readAll();
}

QStringList NaiveLines(const QByteArray& content)
{
    const bool has_cr = content.contains('\r');
    QStringList lines = DecodeAnsi(content).split(has_cr ? u"\r\n"_s : u"\n"_s);
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}
