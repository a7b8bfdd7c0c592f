// Files read and written whole, and the calls of the system below: what each says of a file that is
// not as usual.
#include "data/whole_files.h"
#include "tests/support/data_folders.h"
#include "tests/support/privileges.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <sys/stat.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

const QString no_size = u"/proc/filesystems"_s; // the system makes its lines while they are read
const QString null_name = u"/a"_s + QChar(0);

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

} // namespace

class TestWholeFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_file_that_is_longer_than_it_says_is_read_whole()
    {
        QCOMPARE(QFileInfo(no_size).size(), 0);
        QByteArray content;
        QCOMPARE(ReadFileBytes(no_size, content), Fault::None);
        QVERIFY(content.size() > 4);
        QCOMPARE(content, Read(no_size));
        QCOMPARE(ReadFileBytes(no_size, content, 4), Fault::TooLarge);
    }

    void more_than_the_largest_is_not_read()
    {
        const DataFolders folders;
        folders.Put(u"V.dat"_s, "12345");
        QByteArray content;
        QCOMPARE(ReadFileBytes(folders.Path(u"V.dat"_s), content, 5), Fault::None);
        QCOMPARE(content, QByteArray("12345"));
        QCOMPARE(ReadFileBytes(folders.Path(u"V.dat"_s), content, 4), Fault::TooLarge);
    }

    void what_is_no_file_is_not_read()
    {
        const DataFolders folders;
        QByteArray content;
        QCOMPARE(ReadFileBytes(folders.root.path(), content), Fault::IsAFolder);
        QCOMPARE(ReadFileBytes(folders.Path(u"x"_s), content), Fault::Missing);
        QCOMPARE(ReadFileBytes(null_name, content), Fault::NotAFileName);
    }

    void a_pipe_is_left_alone()
    {
        const DataFolders folders;
        const QString pipe = folders.Path(u"pipe"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        SystemFile file;
        qint64 size = 7;
        QCOMPARE(file.Open(pipe, OpenMode::Read), Fault::None); // does not wait for a writer
        QCOMPARE(file.FindSize(size), Fault::NotARegularFile);
        QCOMPARE(file.Sync(), Fault::InvalidCall);
        QCOMPARE(file.Empty(), Fault::InvalidCall);
        QCOMPARE(size, 7);
        QCOMPARE(CheckWritable(pipe), Fault::NotARegularFile);
    }

    void a_file_that_is_not_open_answers_every_call()
    {
        const SystemError not_open(Fault::Unnamed, EBADF);
        SystemFile file;
        char byte = 'x';
        qsizetype count = 0;
        qint64 size = 0;
        QCOMPARE(file.FindSize(size), not_open);
        QCOMPARE(file.ReadSome(&byte, 1, count), not_open);
        QCOMPARE(file.WriteSome(&byte, 1, 0, count), not_open);
        QCOMPARE(file.Sync(), not_open);
        QCOMPARE(file.Close(), Fault::None);
    }

    void a_file_that_is_read_only_is_not_written()
    {
        const DataFolders folders;
        folders.Put(u"V.dat"_s, "old");
        SystemFile file;
        qsizetype count = 0;
        QCOMPARE(file.Open(folders.Path(u"V.dat"_s), OpenMode::Read), Fault::None);
        QCOMPARE(file.WriteSome("x", 1, 0, count), SystemError(Fault::Unnamed, EBADF));
        QCOMPARE(file.Empty(), Fault::InvalidCall);
        QCOMPARE(folders.Get(u"V.dat"_s), QByteArray("old"));
    }

    void a_new_file_takes_no_others_place()
    {
        const DataFolders folders;
        folders.Put(u"V.dat"_s, "old");
        SystemFile file;
        QCOMPARE(file.Open(folders.Path(u"V.dat"_s), OpenMode::CreateNew), Fault::AlreadyThere);
        QVERIFY(QFile::link(folders.Path(u"V.dat"_s), folders.Path(u"link"_s)));
        QCOMPARE(file.Open(folders.Path(u"link"_s), OpenMode::CreatePrivate), Fault::LinkLoop);
        QCOMPARE(folders.Get(u"V.dat"_s), QByteArray("old"));
    }

    void an_overwrite_says_what_it_came_to()
    {
        const DataFolders folders;
        Overwritten done = Overwritten::Existing;
        QCOMPARE(OverwriteFile(folders.Path(u"no/V.dat"_s), "x", done), Fault::Missing);
        QVERIFY(done == Overwritten::Nothing);
        QCOMPARE(OverwriteFile(folders.files.DataDirectory, "x", done), Fault::IsAFolder);
        QVERIFY(done == Overwritten::Nothing);
        QCOMPARE(OverwriteFile(folders.Path(u"V.dat"_s), "long", done), Fault::None);
        QVERIFY(done == Overwritten::Created);
        QCOMPARE(OverwriteFile(folders.Path(u"V.dat"_s), "x", done), Fault::None);
        QVERIFY(done == Overwritten::Existing);
        QCOMPARE(folders.Get(u"V.dat"_s), QByteArray("x"));
    }

    void a_file_takes_anothers_name_and_place()
    {
        const DataFolders folders;
        folders.Put(u"a"_s, "new");
        folders.Put(u"b"_s, "old");
        QCOMPARE(ReplaceFile(folders.Path(u"a"_s), folders.Path(u"b"_s)), Fault::None);
        QCOMPARE(folders.Names(), QStringList { u"b"_s });
        QCOMPARE(folders.Get(u"b"_s), QByteArray("new"));
        QCOMPARE(ReplaceFile(folders.Path(u"a"_s), folders.Path(u"b"_s)), Fault::Missing);
        QCOMPARE(folders.Get(u"b"_s), QByteArray("new"));
    }

    void removing_what_is_gone_is_no_error()
    {
        const DataFolders folders;
        folders.Put(u"a"_s, "x");
        QCOMPARE(RemoveFile(folders.Path(u"a"_s)), Fault::None);
        QCOMPARE(RemoveFile(folders.Path(u"a"_s)), Fault::None);
        QCOMPARE(folders.Names(), QStringList {});
        QCOMPARE(RemoveFile(folders.files.DataDirectory), Fault::IsAFolder);
    }

    void folders_are_made_down_to_the_last_and_are_private()
    {
        const DataFolders folders;
        const QString deep = folders.Path(u"a/b/c"_s);
        QCOMPARE(MakePrivateFolder(deep), Fault::None);
        QCOMPARE(MakePrivateFolder(deep), Fault::None);
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(folders.Path(u"a"_s)).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0700U);
        folders.Put(u"file"_s, "x");
        QCOMPARE(MakePrivateFolder(folders.Path(u"file"_s)), Fault::NotAFolder);
        QCOMPARE(MakePrivateFolder(folders.Path(u"file/x"_s)), Fault::NotAFolder);
        QCOMPARE(MakePrivateFolder(null_name), Fault::NotAFileName);
    }

    void a_folder_is_not_made_where_nobody_may()
    {
        const DataFolders folders;
        const auto everyone = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
            | QFile::ExeOther | QFile::ReadUser | QFile::ExeUser;
        for (const QString& path : { folders.root.path(), folders.files.DataDirectory })
            QVERIFY(QFile::setPermissions(path, everyone));
        SystemError error;
        {
            const WithoutPrivileges user;
            if (!user.Works)
                QSKIP("the user cannot be changed here");
            error = MakePrivateFolder(folders.Path(u"a/b"_s));
        }
        for (const QString& path : { folders.files.DataDirectory, folders.root.path() })
            QVERIFY(QFile::setPermissions(path, everyone | QFile::WriteOwner));
        QCOMPARE(error, Fault::NoAccess);
        QCOMPARE(folders.Names(), QStringList {});
    }

    void the_folder_above_is_cut_off_the_path()
    {
        QCOMPARE(FolderOf(u"/verein/V.dat"_s), u"/verein"_s);
        QCOMPARE(FolderOf(u"/V.dat"_s), u"/"_s);
        QCOMPARE(FolderOf(u"V.dat"_s), u"."_s);
    }

    void a_folder_that_cannot_be_waited_for_is_told_from_one_that_need_not()
    {
        const DataFolders folders;
        QCOMPARE(SyncFolder(folders.files.DataDirectory), Fault::None);
        QCOMPARE(SyncFolder(u"/proc"_s), Fault::None); // has no disk to wait for
        QCOMPARE(SyncFolder(folders.Path(u"x"_s)), Fault::Missing);
        folders.Put(u"file"_s, "x");
        QCOMPARE(SyncFolder(folders.Path(u"file"_s)), Fault::NotAFolder);
    }

    void a_folder_that_is_not_there_has_no_entries()
    {
        const DataFolders folders;
        folders.Put(u"b"_s, {});
        folders.Put(u"a"_s, {});
        QStringList names;
        QCOMPARE(ListFolder(folders.files.DataDirectory, names), Fault::None);
        QCOMPARE(names, QStringList({ u"."_s, u".."_s, u"a"_s, u"b"_s }));
        QCOMPARE(ListFolder(folders.Path(u"no"_s), names), Fault::None);
        QVERIFY(names.isEmpty());
        QCOMPARE(ListFolder({}, names), Fault::None);
        QCOMPARE(ListFolder(folders.Path(u"a"_s), names), Fault::NotAFolder);
    }

    void without_a_usable_home_the_systems_own_list_knows_it()
    {
        qunsetenv("XDG_STATE_HOME");
        qputenv("HOME", "relative");
        const QString of_list = UserStateFolder();
        qunsetenv("HOME");
        QCOMPARE(UserStateFolder(), of_list);
        QVERIFY(of_list.startsWith(u'/'));
        QVERIFY(of_list.endsWith(u"/.local/state"_s));
        qputenv("XDG_STATE_HOME", "/state/../here/");
        QCOMPARE(UserStateFolder(), u"/here"_s);
    }
};

const TestFile<TestWholeFiles> test_file(__FILE__);
#include "test_whole_files.moc"
