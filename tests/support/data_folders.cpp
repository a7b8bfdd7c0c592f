#include "tests/support/data_folders.h"

#include <QDir>
#include <QFile>

namespace {

QStringList NamesIn(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

DataFolders::DataFolders()
    : files { root.filePath(QStringLiteral("daten")), root.filePath(QStringLiteral("state")) }
{
    if (!QDir().mkpath(files.DataDirectory))
        qFatal("no data directory");
}

QString DataFolders::Path(const QString& name) const
{
    return files.DataDirectory + QLatin1Char('/') + name;
}

void DataFolders::Put(const QString& name, const QByteArray& content) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
}

QByteArray DataFolders::Get(const QString& name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

QStringList DataFolders::Names() const { return NamesIn(files.DataDirectory); }

QStringList DataFolders::StateNames() const
{
    QStringList names = NamesIn(files.StateDirectory);
    names.removeAll(QStringLiteral("verlauf"));
    return names;
}
