#include "tests/support/club.h"

#include <QDir>
#include <QFile>
#include <QMainWindow>

TestClub::TestClub()
{
    QDir folder(Folder.path());
    folder.mkdir(QStringLiteral("daten"));
    folder.mkdir(QStringLiteral("state"));
    program.Files.DataDirectory = folder.filePath(QStringLiteral("daten"));
    program.Files.StateDirectory = folder.filePath(QStringLiteral("state"));
    // no test may ever save to this computer's real drives
    for (const char* name : { "stick", "root", "home" })
        folder.mkdir(QString::fromLatin1(name));
    Drive = folder.filePath(QStringLiteral("stick"));
    program.Backup.FindDrive = [this] { return Drive; };
    program.Backup.FindFallback = [folder] {
        return Fallback { folder.filePath(QStringLiteral("root")),
            folder.filePath(QStringLiteral("home")) };
    };
    program.Ask = [this](const MessageBox& box) {
        Boxes += box;
        if (!Answers.isEmpty())
            return Answers.takeFirst();
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
    };
}

TestClub::~TestClub() { DestroyMainWindow(program); }

void TestClub::CopyExample(const QString& name)
{
    const QDir example(QStringLiteral(PARZELLO_FIXTURES "/examples/") + name);
    if (!example.exists())
        qFatal("no example %s", qPrintable(name));
    const QStringList names = example.entryList(QDir::Files);
    for (const QString& file : names) {
        QFile source(example.filePath(file));
        if (!source.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(file));
        Write(file, source.readAll()); // written anew: a copy would stay write-protected
    }
}

void TestClub::Start(const QDate& today)
{
    program.Today = [today] { return today; };
    BuildMainWindow(program);
    StartUp(program);
}

QString TestClub::Path(const QString& name) const
{
    return program.Files.DataDirectory + QLatin1Char('/') + name;
}

void TestClub::Write(const QString& name, const QByteArray& bytes)
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(name));
}

QByteArray TestClub::Read(const QString& name) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

bool TestClub::Exists(const QString& name) const { return QFile::exists(Path(name)); }

const QWidget* TestClub::Window() const { return program.Window.Window; }

QStringList TestClub::BoxTexts() const
{
    QStringList texts;
    for (const MessageBox& box : Boxes)
        texts += box.title + QStringLiteral(": ") + box.text;
    return texts;
}
