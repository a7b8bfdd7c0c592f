// Folders, links and times of a medium, call by call.
#include "backup/medium.h"
#include "tests/support/test_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Folder {
    QTemporaryDir root;

    QString Path(const QString& name) const { return root.filePath(name); }

    QString File(const QString& name) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write");
        return Path(name);
    }

    QString SubFolder(const QString& name) const
    {
        if (!QDir().mkpath(Path(name)))
            qFatal("cannot make a folder");
        return Path(name);
    }

    QString Link(const QString& target, const QString& name) const
    {
        if (!QFile::link(target, Path(name)))
            qFatal("cannot link");
        return Path(name);
    }
};

} // namespace

class TestMedium : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void links_are_followed_or_passed_over()
    {
        const Folder folder;
        const QString inside = folder.SubFolder(u"stick"_s);
        const QString file = folder.File(u"stick/a.pz"_s);
        folder.SubFolder(u"stick/folder.pz"_s);
        folder.Link(file, u"stick/b.pz"_s);
        folder.Link(folder.Path(u"nowhere"_s), u"stick/c.pz"_s);
        QStringList names;
        QCOMPARE(ListFiles(inside, Links::PassOver, names), Fault::None);
        QCOMPARE(names, QStringList { u"a.pz"_s });
        QCOMPARE(ListFiles(inside, Links::Follow, names), Fault::None);
        names.sort();
        QCOMPARE(names, QStringList({ u"a.pz"_s, u"b.pz"_s }));
    }

    void a_file_that_cannot_be_looked_at_is_not_passed_over_in_silence()
    {
        const Folder folder;
        const QString inside = folder.SubFolder(u"stick"_s);
        folder.File(u"stick/a.pz"_s);
        folder.Link(folder.Path(u"stick/b.pz"_s), u"stick/b.pz"_s); // leads to itself
        QStringList names;
        QCOMPARE(ListFiles(inside, Links::Follow, names), Fault::LinkLoop);
        QCOMPARE(ListFiles(inside, Links::PassOver, names), Fault::None);
    }

    void what_is_no_folder_has_no_files()
    {
        const Folder folder;
        QStringList names { u"before"_s };
        QCOMPARE(ListFiles(folder.File(u"file"_s), Links::Follow, names), Fault::NotAFolder);
        QVERIFY(names.isEmpty());
        QCOMPARE(ListFiles(folder.Path(u"nowhere"_s), Links::Follow, names), Fault::Missing);
    }

    void a_folder_is_made_once_and_never_behind_a_link()
    {
        const Folder folder;
        const QString made = folder.Path(u"Parzello/"_s);
        QCOMPARE(CheckFolder(made), Fault::Missing);
        QCOMPARE(MakeFolder(made), Fault::None);
        QVERIFY(QFileInfo(made).isDir());
        QCOMPARE(MakeFolder(made), Fault::None);
        QCOMPARE(CheckFolder(made), Fault::None);
        QCOMPARE(MakeFolder(folder.File(u"file"_s)), Fault::NotAFolder);
        const QString link = folder.Link(made, u"link"_s);
        QCOMPARE(CheckFolder(link + u'/'), Fault::IsALink);
        QCOMPARE(MakeFolder(link), Fault::IsALink);
        QCOMPARE(MakeFolder(folder.Path(u"nowhere/below"_s)), Fault::Missing);
        QCOMPARE(CheckFolder(u"/"_s), Fault::None);
    }

    void a_link_is_told_from_what_it_leads_to()
    {
        const Folder folder;
        const QString file = folder.File(u"file"_s);
        QVERIFY(IsLink(folder.Link(file, u"link"_s)));
        QVERIFY(!IsLink(file));
        QVERIFY(!IsLink(folder.Path(u"nowhere"_s)));
    }

    void two_names_may_lead_to_one_folder()
    {
        const Folder folder;
        const QString one = folder.SubFolder(u"one"_s);
        const QString link = folder.Link(one, u"link"_s);
        const QString nowhere = folder.Path(u"nowhere"_s);
        QVERIFY(IsSameFolder(one, link));
        QVERIFY(!IsSameFolder(one, folder.SubFolder(u"two"_s)));
        QVERIFY(!IsSameFolder(one, u"/proc"_s)); // another medium
        QVERIFY(!IsSameFolder(nowhere, one));
        QVERIFY(!IsSameFolder(one, nowhere));
    }

    void a_copy_takes_the_time_of_its_original()
    {
        const Folder folder;
        const QString original = folder.File(u"a.pz"_s);
        const QString copy = folder.File(u"b.pz"_s);
        const QDateTime long_ago(QDate(2016, 3, 7), QTime(12, 30, 20), Qt::UTC);
        QFile file(original);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(long_ago, QFileDevice::FileModificationTime));
        QCOMPARE(CopyFileTimes(original, copy), Fault::None);
        QCOMPARE(QFileInfo(copy).lastModified().toUTC(), long_ago);
        QCOMPARE(CopyFileTimes(folder.Path(u"nowhere"_s), copy), Fault::Missing);
        QCOMPARE(CopyFileTimes(original, folder.Path(u"nowhere"_s)), Fault::Missing);
    }

    void a_medium_that_is_gone_cannot_be_waited_for()
    {
        const Folder folder;
        QCOMPARE(FlushMedium(folder.root.path()), Fault::None);
        QCOMPARE(FlushMedium(folder.Path(u"nowhere"_s)), Fault::Missing);
        QCOMPARE(FlushMedium(folder.File(u"file"_s)), Fault::NotAFolder);
    }
};

const TestFile<TestMedium> test_file(__FILE__);
#include "test_medium.moc"
