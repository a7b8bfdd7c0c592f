// Rewrites that fail half-way, and what is said of the file then. A crash at every call: the
// crash-matrix.
#include "data/line_file.h"
#include "data/redo_record.h"
#include "data/rewrite_file.h"
#include "data/whole_files.h"
#include "tests/support/data_folders.h"
#include "tests/support/error_of.h"
#include "tests/support/privileges.h"
#include "tests/support/sealed_file.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString ledger = u"\\Konto2016.pz"_s;
const QString name = u"Konto2016.pz"_s;

const QString kept = u"Datei „Konto2016.pz“: Die Datei ließ sich nicht vollständig schreiben. Der "
                     "neue Stand ist aber vorgemerkt und wird beim nächsten Start des Programms "
                     "eingetragen."_s;

RuntimeError Refusal(const DataFolders& folders)
{
    return ErrorOf([&] { RewriteFile(folders.files, ledger, "new\r\n"); });
}

RuntimeError FinishError(const DataFolders& folders)
{
    return ErrorOf([&] { FinishRewrites(folders.files); });
}

} // namespace

class TestRefusedRewrite : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_file_that_cannot_be_emptied_gets_its_content_at_a_later_start()
    {
        const DataFolders folders;
        {
            const SealedFile file(folders.Path(name), "old\r\n", Seals::Length);
            if (!file.Works)
                QSKIP("there are no sealed files here");
            const RuntimeError error = Refusal(folders);
            QCOMPARE(error.reason, u"Vorgang nicht zulässig"_s);
            QCOMPARE(ErrorSentence(error),
                kept
                    + u" Bitte die Schreibrechte der Datei und des Ordners „%1“ prüfen und noch "
                      "einmal speichern."_s.arg(folders.files.DataDirectory));
            QCOMPARE(folders.Get(name), QByteArray("old\r\n"));
            QCOMPARE(ReadBytes(folders.files, ledger), QByteArray("new\r\n"));
            QCOMPARE(ErrorSentence(FinishError(folders)),
                u"Datei „Konto2016.pz“: Das Speichern dieser Datei war unterbrochen worden. Ihr "
                "neuer Stand ist vorgemerkt, ließ sich aber noch nicht eintragen; er bleibt "
                "vorgemerkt. Bitte die Schreibrechte der Datei und des Ordners „%1“ prüfen und das "
                "Programm neu starten."_s.arg(folders.files.DataDirectory));
        }
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(name), QByteArray("new\r\n"));
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_file_that_was_emptied_and_takes_nothing_any_more_is_not_lost()
    {
        const DataFolders folders;
        {
            const SealedFile file(folders.Path(name), "old\r\n", Seals::Growth);
            if (!file.Works)
                QSKIP("there are no sealed files here");
            QVERIFY(ErrorSentence(Refusal(folders)).startsWith(kept));
            QCOMPARE(folders.Get(name), QByteArray());
            QCOMPARE(ReadBytes(folders.files, ledger), QByteArray("new\r\n"));
        }
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(name), QByteArray("new\r\n"));
    }

    void what_could_be_put_back_is_not_saved_later()
    {
        const DataFolders folders;
        const SealedFile file(folders.Path(name), {}, Seals::Length);
        if (!file.Works)
            QSKIP("there are no sealed files here");
        const RuntimeError error = Refusal(folders);
        QCOMPARE(error.reason, u"Vorgang nicht zulässig"_s);
        QVERIFY(error.where.remedy.startsWith(
            u"Es wurde nicht gespeichert, die Datei hat ihren alten Inhalt. Bitte "_s));
        QCOMPARE(folders.StateNames(), QStringList {});
        QCOMPARE(ReadBytes(folders.files, ledger), QByteArray());
    }

    void an_unfinished_save_is_followed_by_the_next_one_that_fails()
    {
        const DataFolders folders;
        const SealedFile file(folders.Path(name), {}, Seals::Length);
        if (!file.Works)
            QSKIP("there are no sealed files here");
        QCOMPARE(NoteRewrite(folders.files.StateDirectory, { name, "first\r\n" }), Fault::None);
        QVERIFY(ErrorSentence(Refusal(folders)).startsWith(kept)); // "first" cannot come back
        QCOMPARE(ReadBytes(folders.files, ledger), QByteArray("new\r\n"));
    }

    void a_file_that_cannot_be_made_is_not_made_later()
    {
        const DataFolders folders;
        const auto readable = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther
            | QFile::ExeOther | QFile::ReadUser | QFile::ExeUser;
        const auto writable = readable | QFile::WriteOwner | QFile::WriteOther | QFile::WriteUser;
        QVERIFY(QFile::setPermissions(folders.root.path(), writable));
        QVERIFY(QFile::setPermissions(folders.files.DataDirectory, readable));
        RuntimeError error;
        {
            const WithoutPrivileges user;
            if (!user.Works)
                QSKIP("the user cannot be changed here");
            error = Refusal(folders);
        }
        QVERIFY(QFile::setPermissions(folders.files.DataDirectory, writable));
        QCOMPARE(error.reason, u"Keine Berechtigung"_s);
        QVERIFY(error.where.remedy.startsWith(u"Es wurde nicht gespeichert. Bitte "_s));
        QCOMPARE(folders.Names(), QStringList {});
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_file_too_large_to_be_kept_is_rewritten_all_the_same()
    {
        const DataFolders folders;
        folders.Put(name, "old\r\n");
        QVERIFY(QFile::resize(folders.Path(name), LargestFile + 1));
        RewriteFile(folders.files, ledger, "new\r\n");
        QCOMPARE(folders.Get(name), QByteArray("new\r\n"));
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void what_was_too_large_to_be_kept_cannot_come_back()
    {
        const DataFolders folders;
        const SealedFile file(folders.Path(name), "old\r\n", Seals::Growth, LargestFile + 1);
        if (!file.Works)
            QSKIP("there are no sealed files here");
        QVERIFY(ErrorSentence(Refusal(folders)).startsWith(kept));
        QCOMPARE(ReadBytes(folders.files, ledger), QByteArray("new\r\n"));
    }

    void a_record_that_cannot_be_read_is_not_replaced()
    {
        const DataFolders folders;
        folders.Put(name, "old\r\n");
        const QString& state = folders.files.StateDirectory;
        QVERIFY(QDir().mkpath(RecordPathOf(state, name))); // a folder where the record should be
        const RuntimeError error = Refusal(folders);
        QCOMPARE(error.reason, u"Ist ein Verzeichnis"_s);
        QCOMPARE(ErrorSentence(error),
            u"Datei „Konto2016.pz“: Es wurde nicht gespeichert. Im Ordner „%1“ liegt an der Stelle "
            "der Datei etwas anderes. Bitte dieses umbenennen oder verschieben."_s.arg(state));
        QCOMPARE(folders.Get(name), QByteArray("old\r\n"));
        const RuntimeError at_start = FinishError(folders);
        QCOMPARE(at_start.reason, u"Ist ein Verzeichnis"_s);
        QVERIFY(at_start.where.remedy.startsWith(
            u"Im Ordner „%1“ ließ sich nicht nachsehen, ob ein Speichern unterbrochen worden "
            "ist."_s.arg(state)));
    }
};

const TestFile<TestRefusedRewrite> test_file(__FILE__);
#include "test_refused_rewrite.moc"
