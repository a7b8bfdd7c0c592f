// Whole rewrites in place, and what becomes of one that was interrupted. Every fault at every call:
// the crash-matrix.
#include "data/line_file.h"
#include "data/redo_record.h"
#include "data/whole_files.h"
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

RuntimeError RewriteError(
    const DataFiles& files, const QString& name, const QByteArray& content = "new")
{
    try {
        RewriteFile(files, name, content);
    } catch (const RuntimeError& error) {
        return error;
    }
    return { ErrorKind::File, {}, u"no error"_s };
}

QString FinishError(const DataFiles& files)
{
    try {
        FinishRewrites(files);
    } catch (const RuntimeError& error) {
        return error.reason + u": "_s + ErrorSentence(error);
    }
    return u"no error"_s;
}

void Note(const DataFolders& folders, const QString& target, const QByteArray& content)
{
    QCOMPARE(NoteRewrite(folders.files.StateDirectory, { target, content }), Fault::None);
}

const QString ledger = u"\\Konto2016.pz"_s;

} // namespace

class TestRewriteFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_rewrite_leaves_the_new_content_and_nothing_else()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "a much longer old content\r\n");
        RewriteFile(folders.files, ledger, "new\r\n");
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("new\r\n"));
        QCOMPARE(folders.Names(), QStringList { u"Konto2016.pz"_s });
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_missing_file_is_created()
    {
        const DataFolders folders;
        RewriteFile(folders.files, u"/Konto2016.pz"_s, "new\r\n");
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("new\r\n"));
        QCOMPARE(folders.Names(), QStringList { u"Konto2016.pz"_s });
    }

    void an_empty_list_leaves_a_file_of_zero_bytes()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        RewriteLines(folders.files, ledger, {});
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray());
        QVERIFY(FileExists(folders.files, ledger));
    }

    void the_file_is_rewritten_in_place()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        struct stat before { };
        struct stat after { };
        const QByteArray path = folders.Path(u"Konto2016.pz"_s).toUtf8();
        QCOMPARE(::chmod(path.constData(), 0640), 0);
        QCOMPARE(::stat(path.constData(), &before), 0);
        RewriteFile(folders.files, ledger, "new\r\n");
        QCOMPARE(::stat(path.constData(), &after), 0);
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_mode, before.st_mode);
    }

    void a_large_file_survives_the_way_through_the_record()
    {
        const DataFolders folders;
        const QByteArray content = QByteArray("0123456789abcdef").repeated(1 << 20);
        RewriteFile(folders.files, ledger, content);
        QVERIFY(folders.Get(u"Konto2016.pz"_s) == content);
    }

    void names_that_lead_elsewhere_are_refused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("above") << u"\\../x"_s;
        QTest::newRow("folder") << u"\\sub/x"_s;
        QTest::newRow("backslash") << u"\\sub\\x"_s;
        QTest::newRow("empty") << u"\\"_s;
        QTest::newRow("dots") << u"\\.."_s;
        QTest::newRow("null") << QString(u"\\a"_s + QChar(0));
    }

    void names_that_lead_elsewhere_are_refused()
    {
        QFETCH(QString, name);
        const DataFolders folders;
        QVERIFY(QDir().mkpath(folders.Path(u"sub"_s)));
        QCOMPARE(RewriteError(folders.files, name).reason, u"Das ist kein gültiger Dateiname"_s);
        QCOMPARE(folders.Names(), QStringList { u"sub"_s });
        QCOMPARE(QDir(folders.root.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            QStringList { u"daten"_s });
    }

    void a_folder_or_a_pipe_in_place_of_the_file_is_left_alone()
    {
        const DataFolders folders;
        QVERIFY(QDir().mkpath(folders.Path(u"V.dat"_s)));
        QCOMPARE(::mkfifo(folders.Path(u"Config.ini"_s).toUtf8().constData(), 0600), 0);
        const RuntimeError folder = RewriteError(folders.files, u"\\V.dat"_s);
        QCOMPARE(folder.reason, u"Ist ein Verzeichnis"_s);
        QCOMPARE(folder.where.file, u"V.dat"_s);
        QVERIFY(folder.where.remedy.startsWith(u"Es wurde nicht gespeichert. "_s));
        QCOMPARE(RewriteError(folders.files, u"\\Config.ini"_s).reason,
            u"Ist keine gewöhnliche Datei"_s);
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_missing_data_directory_is_reported_and_not_created()
    {
        const DataFolders folders;
        QVERIFY(QDir().rmdir(folders.files.DataDirectory));
        const RuntimeError error = RewriteError(folders.files, ledger);
        QCOMPARE(error.reason, u"Datei oder Verzeichnis nicht gefunden"_s);
        QVERIFY(error.where.remedy.contains(folders.files.DataDirectory));
        QVERIFY(!QFile::exists(folders.files.DataDirectory));
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void without_a_record_the_old_file_is_untouched()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        QFile obstacle(folders.files.StateDirectory);
        QVERIFY(obstacle.open(QIODevice::WriteOnly)); // a file where the folder should be
        const RuntimeError error = RewriteError(folders.files, ledger);
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.reason, u"Ist kein Verzeichnis"_s);
        QCOMPARE(error.where.file, u"Konto2016.pz"_s);
        QVERIFY(error.where.remedy.startsWith(u"Die Datei ist unverändert"_s));
        QVERIFY(error.where.remedy.contains(folders.files.StateDirectory));
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("old\r\n"));
    }

    void without_a_home_the_old_file_is_untouched()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        const DataFiles homeless { folders.files.DataDirectory, {} };
        FinishRewrites(homeless);
        const RuntimeError error = RewriteError(homeless, ledger);
        QVERIFY(error.where.remedy.contains(u"HOME"_s));
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("old\r\n"));
        QCOMPARE(ReadBytes(homeless, ledger), QByteArray("old\r\n"));
    }

    void more_than_a_record_holds_is_refused_before_anything_is_touched()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        QCOMPARE(RewriteError(folders.files, ledger, QByteArray(LargestContent + 1, 'x')).reason,
            u"Die Datei ist zu groß"_s);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("old\r\n"));
    }

    void the_next_start_finishes_every_complete_record()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "half wri");
        Note(folders, u"Konto2016.pz"_s, "new\r\n");
        Note(folders, u"V.dat"_s, "KGV\r\n"); // was to be created
        Note(folders, u"Leer.pz"_s, "");
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("new\r\n"));
        QCOMPARE(folders.Get(u"V.dat"_s), QByteArray("KGV\r\n"));
        QCOMPARE(folders.Get(u"Leer.pz"_s), QByteArray());
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void the_next_start_drops_an_incomplete_record()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old\r\n");
        Note(folders, u"Konto2016.pz"_s, "new\r\n");
        const QString record = folders.files.StateDirectory + u'/' + folders.StateNames().value(0);
        QVERIFY(QFile::resize(record, QFileInfo(record).size() - 1));
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("old\r\n"));
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_record_that_cannot_be_finished_stays_and_the_others_are_finished()
    {
        const DataFolders folders;
        QVERIFY(QDir().mkpath(folders.Path(u"Konto2016.pz"_s)));
        Note(folders, u"Konto2016.pz"_s, "new\r\n");
        Note(folders, u"V.dat"_s, "KGV\r\n");
        Note(folders, u"Config.ini"_s, "[2016]\r\n");
        const QString error = FinishError(folders.files);
        QVERIFY2(error.startsWith(u"Ist ein Verzeichnis: Datei „Konto2016.pz“: Das Speichern"_s),
            qPrintable(error));
        QCOMPARE(folders.Get(u"V.dat"_s), QByteArray("KGV\r\n"));
        QCOMPARE(folders.Get(u"Config.ini"_s), QByteArray("[2016]\r\n"));
        QCOMPARE(folders.StateNames().size(), 1);
        QVERIFY(QDir().rmdir(folders.Path(u"Konto2016.pz"_s)));
        QCOMPARE(FinishError(folders.files), u"no error"_s);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("new\r\n"));
    }

    void as_long_as_a_record_stands_it_is_the_content_of_the_file()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "half wri");
        Note(folders, u"Konto2016.pz"_s, "new\r\n");
        Note(folders, u"V.dat"_s, "KGV\r\n");
        QCOMPARE(ReadLines(folders.files, ledger), QStringList { u"new"_s });
        QCOMPARE(ReadBytes(folders.files, u"/Konto2016.pz"_s), QByteArray("new\r\n"));
        QVERIFY(FileExists(folders.files, u"\\V.dat"_s));
    }

    void the_next_save_takes_the_place_of_an_unfinished_record()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "half wri");
        Note(folders, u"Konto2016.pz"_s, "first\r\n");
        RewriteFile(folders.files, ledger, "second\r\n");
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("second\r\n"));
        QCOMPARE(folders.StateNames(), QStringList {});
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("second\r\n"));
    }

    void a_save_that_fails_keeps_the_record_of_an_unfinished_one()
    {
        const DataFolders folders;
        QVERIFY(QDir().mkpath(folders.Path(u"Konto2016.pz"_s)));
        Note(folders, u"Konto2016.pz"_s, "first\r\n");
        QCOMPARE(RewriteError(folders.files, ledger).reason, u"Ist ein Verzeichnis"_s);
        QCOMPARE(ReadBytes(folders.files, ledger), QByteArray("first\r\n"));
    }

    void the_state_directory_is_keyed_by_the_real_data_directory()
    {
        const DataFolders folders;
        qputenv("XDG_STATE_HOME", folders.root.path().toUtf8());
        const QString state = StateDirectoryFor(folders.files.DataDirectory);
        QVERIFY(state.startsWith(folders.root.path() + u"/parzello/"_s));
        QVERIFY(!QFile::exists(state));
        const QString link = folders.root.filePath(u"link"_s);
        QVERIFY(QFile::link(folders.files.DataDirectory, link));
        QCOMPARE(StateDirectoryFor(link), state);
        QCOMPARE(StateDirectoryFor(link + u"/."_s), state);
        QVERIFY(StateDirectoryFor(folders.root.path()) != state);
        qputenv("XDG_STATE_HOME", "relative");
        qputenv("HOME", "/home/kassenwart");
        QVERIFY(StateDirectoryFor(link).startsWith(u"/home/kassenwart/.local/state/parzello/"_s));
        qunsetenv("XDG_STATE_HOME");
        QVERIFY(StateDirectoryFor(link).startsWith(u"/home/kassenwart/.local/state/parzello/"_s));
    }
};

const TestFile<TestRewriteFile> test_file(__FILE__);
#include "test_rewrite_file.moc"
