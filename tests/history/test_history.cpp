// Keeping every state of a file: what is kept, in which order, what belongs together, what damage
// and refusals do. Every fault at every call: the crash-matrix.
#include "data/history.h"
#include "data/line_file.h"
#include "data/redo_record.h"
#include "tests/support/data_folders.h"
#include "tests/support/privileges.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString ledger = u"\\Konto2016.pz"_s;
const QString members = u"\\Mitgliedsdaten2016.pz"_s;

QString FolderOfHistory(const DataFolders& folders)
{
    return folders.files.StateDirectory + u"/verlauf"_s;
}

QStringList NamesOfStates(const DataFolders& folders)
{
    return QDir(FolderOfHistory(folders)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

QList<HistoryEntry> Entries(const DataFiles& files)
{
    QList<HistoryEntry> entries;
    if (ReadHistory(files, entries))
        qFatal("the history cannot be read");
    return entries;
}

/// "Konto2016.pz=content" of each state in order, "*" before a found one, "?" for a damaged one.
QStringList States(const DataFiles& files)
{
    QStringList states;
    for (const HistoryEntry& entry : Entries(files)) {
        const std::optional<RedoRecord> kept = ReadKept(files, entry);
        states += !kept ? u"?"_s
                        : (entry.Mark.How == Deed::Found ? u"*"_s : QString()) + kept->target + u'='
                + QString::fromUtf8(kept->content);
    }
    return states;
}

/// The program is started again.
DataFiles Restarted(const DataFiles& files)
{
    return { files.DataDirectory, files.StateDirectory };
}

QList<qint64> Actions(const DataFiles& files)
{
    QList<qint64> actions;
    for (const HistoryEntry& entry : Entries(files))
        actions += entry.Mark.Action;
    return actions;
}

void SetClock(const DataFiles& files, const QString& time)
{
    files.History->Now = [time] { return QDateTime::fromString(time, u"yyyy-MM-dd HH:mm"_s); };
}

} // namespace

class TestHistory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_save_is_a_state_and_the_first_finds_what_was_there()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old");
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(folders.files, ledger, "two");
        RewriteFile(folders.files, members, "m");
        QCOMPARE(States(folders.files),
            (QStringList { u"*Konto2016.pz=old"_s, u"Konto2016.pz=one"_s, u"Konto2016.pz=two"_s,
                u"Mitgliedsdaten2016.pz=m"_s }));
    }

    void what_others_wrote_between_two_saves_is_found()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        folders.Put(u"Konto2016.pz"_s, "by hand");
        RewriteFile(folders.files, ledger, "two");
        folders.Put(u"Konto2016.pz"_s, "by hand again");
        RewriteFile(Restarted(folders.files), ledger, "three");
        QCOMPARE(States(folders.files),
            (QStringList { u"Konto2016.pz=one"_s, u"*Konto2016.pz=by hand"_s, u"Konto2016.pz=two"_s,
                u"*Konto2016.pz=by hand again"_s, u"Konto2016.pz=three"_s }));
    }

    void nothing_is_found_where_a_later_run_meets_its_own_state()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(Restarted(folders.files), ledger, "two");
        QCOMPARE(States(folders.files).size(), 2);
    }

    void an_unchanged_save_is_a_state_too()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(folders.files, ledger, "one");
        QCOMPARE(States(folders.files).size(), 2);
    }

    void states_are_private_and_no_backup_takes_their_names()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old");
        RewriteFile(folders.files, ledger, "one");
        static const QRegularExpression plain(u"^[0-9A-Za-z_-]+$"_s);
        const QStringList names = NamesOfStates(folders);
        QCOMPARE(names.size(), 2);
        for (const QString& name : names) {
            QVERIFY2(plain.match(name).hasMatch(), qPrintable(name));
            struct stat status { };
            const QString path = FolderOfHistory(folders) + u'/' + name;
            QCOMPARE(::stat(path.toUtf8().constData(), &status), 0);
            QCOMPARE(status.st_mode & 0777U, 0600U);
        }
        QCOMPARE(folders.Names(), QStringList { u"Konto2016.pz"_s });
    }

    void the_mark_of_a_state_stands_in_its_name()
    {
        HistoryEntry entry;
        entry.Mark = { 17, 12, QDateTime({ 2026, 11, 20 }, { 14, 3, 9 }), Deed::Restored };
        entry.Key = HistoryKeyOf(u"Konto2016.pz"_s);
        entry.Size = 4711;
        QCOMPARE(HistoryEntryOf(HistoryNameOf(entry)), std::optional(entry));
        for (const QString& name : { u"entwurf"_s, u"x"_s, QString(), HistoryNameOf({}),
                 HistoryNameOf(entry) + u'0' + u'x', HistoryNameOf(entry).replace(u'-', u'_') })
            QVERIFY2(!HistoryEntryOf(name).has_value(), qPrintable(name));
    }

    void one_action_holds_all_its_saves_and_later_ones_none_of_them()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old");
        {
            const SavingAction outer(folders.files);
            RewriteFile(folders.files, ledger, "one");
            const SavingAction inner(folders.files, Deed::Restored);
            RewriteFile(folders.files, members, "m");
        }
        RewriteFile(folders.files, ledger, "two");
        QCOMPARE(Actions(folders.files), (QList<qint64> { 1, 2, 2, 4 }));
        QCOMPARE(Entries(folders.files)[2].Mark.How, Deed::Restored);
        QCOMPARE(Entries(folders.files)[3].Mark.How, Deed::Saved);
    }

    void order_is_by_number_whatever_the_clock_says()
    {
        const DataFolders folders;
        SetClock(folders.files, u"2026-11-20 14:03"_s);
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(folders.files, ledger, "two"); // the same second
        SetClock(folders.files, u"2019-01-01 00:00"_s); // an empty battery
        RewriteFile(folders.files, ledger, "three");
        QVERIFY(QFile::remove(FolderOfHistory(folders) + u'/' + NamesOfStates(folders)[1]));
        const DataFiles again = Restarted(folders.files);
        SetClock(again, u"2026-11-21 08:00"_s);
        RewriteFile(again, ledger, "four");
        QCOMPARE(States(folders.files),
            (QStringList {
                u"Konto2016.pz=one"_s, u"Konto2016.pz=three"_s, u"Konto2016.pz=four"_s }));
        QCOMPARE(Entries(folders.files)[2].Mark.Number, 4);
    }

    void a_damaged_state_is_told_from_the_others_and_counts_as_nothing()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(folders.files, ledger, "two");
        QFile state(FolderOfHistory(folders) + u'/' + NamesOfStates(folders)[1]);
        QVERIFY(state.open(QIODevice::ReadWrite));
        QVERIFY(state.seek(state.size() - 30));
        QCOMPARE(state.write("!"), 1);
        state.close();
        QCOMPARE(States(folders.files), (QStringList { u"Konto2016.pz=one"_s, u"?"_s }));
        RewriteFile(
            Restarted(folders.files), ledger, "three"); // keeps what it overwrites once more
        QCOMPARE(States(folders.files),
            (QStringList {
                u"Konto2016.pz=one"_s, u"?"_s, u"*Konto2016.pz=two"_s, u"Konto2016.pz=three"_s }));
    }

    void a_state_under_a_foreign_name_is_damaged()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        const QString folder = FolderOfHistory(folders) + u'/';
        const QString name = NamesOfStates(folders)[0];
        QVERIFY(QFile::copy(folder + name, folder + u"000000000009"_s + name.mid(12)));
        QVERIFY(QFile::copy(folder + name, folder + u"fremd"_s));
        QCOMPARE(States(folders.files), (QStringList { u"?"_s, u"Konto2016.pz=one"_s, u"?"_s }));
    }

    void a_save_counts_when_its_state_cannot_be_kept()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old");
        QVERIFY(QDir().mkpath(folders.files.StateDirectory));
        QFile obstacle(FolderOfHistory(folders)); // a file where the folder should be
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        RewriteFile(folders.files, ledger, "one");
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("one"));
        QVERIFY(folders.files.History->Failure.Error == Fault::NotAFolder);
        QCOMPARE(folders.StateNames(), QStringList {});
        QVERIFY(obstacle.remove());
        RewriteFile(folders.files, ledger, "two"); // what was missed is found now
        QCOMPARE(
            States(folders.files), (QStringList { u"*Konto2016.pz=one"_s, u"Konto2016.pz=two"_s }));
    }

    void a_folder_that_vanished_while_running_is_made_anew()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        QVERIFY(QDir(FolderOfHistory(folders)).removeRecursively());
        RewriteFile(folders.files, ledger, "two");
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("two"));
        RewriteFile(folders.files, ledger, "three");
        QCOMPARE(States(folders.files),
            (QStringList { u"*Konto2016.pz=two"_s, u"Konto2016.pz=three"_s }));
    }

    void a_start_that_finishes_a_save_keeps_it_and_not_the_half_of_it()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        HistoryMark mark = NextMark(folders.files);
        folders.Put(u"Konto2016.pz"_s, "tw");
        QVERIFY(!NoteRewrite(folders.files.StateDirectory, { u"Konto2016.pz"_s, "two", mark }));
        FinishRewrites(Restarted(folders.files));
        QCOMPARE(
            States(folders.files), (QStringList { u"Konto2016.pz=one"_s, u"Konto2016.pz=two"_s }));
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_start_that_finishes_a_save_keeps_what_somebody_put_there_since()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "by hand");
        QVERIFY(!NoteRewrite(
            folders.files.StateDirectory, { u"Konto2016.pz"_s, "two", NextMark(folders.files) }));
        FinishRewrites(Restarted(folders.files));
        QVERIFY(States(folders.files).contains(u"*Konto2016.pz=by hand"_s));
        QVERIFY(States(folders.files).contains(u"Konto2016.pz=two"_s));
    }

    void an_unfinished_save_is_kept_before_the_next_one_takes_its_place()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "");
        QVERIFY(!NoteRewrite(
            folders.files.StateDirectory, { u"Konto2016.pz"_s, "one", NextMark(folders.files) }));
        RewriteFile(folders.files, ledger, "two");
        QCOMPARE(
            States(folders.files), (QStringList { u"Konto2016.pz=one"_s, u"Konto2016.pz=two"_s }));
    }

    void the_last_copy_of_an_older_program_is_finished_and_kept()
    {
        const DataFolders folders;
        QVERIFY(!NoteRewrite(folders.files.StateDirectory, { u"Konto2016.pz"_s, "one" }));
        FinishRewrites(folders.files);
        QCOMPARE(folders.Get(u"Konto2016.pz"_s), QByteArray("one"));
        QCOMPARE(States(folders.files), QStringList { u"Konto2016.pz=one"_s });
        QCOMPARE(folders.StateNames(), QStringList {});
    }

    void a_refused_save_leaves_no_state_but_what_it_found()
    {
        const DataFolders folders;
        folders.Put(u"Konto2016.pz"_s, "old");
        QVERIFY(QDir().mkpath(folders.files.StateDirectory));
        QVERIFY(QDir().mkpath(folders.Path(u"V.dat"_s)));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, RewriteFile(folders.files, u"\\V.dat"_s, "x"));
        QCOMPARE(States(folders.files), QStringList {});
    }

    void emptying_leaves_nothing_and_keeping_begins_anew()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        RewriteFile(folders.files, ledger, "two");
        QVERIFY(!EmptyHistory(folders.files));
        QCOMPARE(NamesOfStates(folders), QStringList {});
        RewriteFile(folders.files, ledger, "three");
        QCOMPARE(States(folders.files),
            (QStringList { u"*Konto2016.pz=two"_s, u"Konto2016.pz=three"_s }));
    }

    void too_many_bytes_take_the_oldest_but_the_newest_fifty()
    {
        const DataFolders folders;
        SetClock(folders.files, u"2026-11-20 14:03"_s);
        folders.files.History->MostBytes = 70'000;
        for (int i = 1; i <= 80; ++i)
            RewriteFile(folders.files, ledger, QByteArray(1000, char('0' + i % 10)));
        const QList<HistoryEntry> entries = Entries(folders.files);
        QCOMPARE(entries.size(), 70);
        QCOMPARE(entries.first().Mark.Number, 11);
        folders.files.History->MostBytes = 10'000;
        RewriteFile(folders.files, ledger, "last");
        QCOMPARE(Entries(folders.files).size(), 50);
    }

    void what_went_out_is_kept_beside_the_states()
    {
        const DataFolders folders;
        RewriteFile(folders.files, ledger, "one");
        KeepSentOut(folders.files, u"Abrechnungen2026"_s, "Meier,Anna;12,50");
        RewriteFile(folders.files, ledger, "two");
        const QList<HistoryEntry> entries = Entries(folders.files);
        QCOMPARE(entries.size(), 3);
        QCOMPARE(entries[1].Mark.How, Deed::SentOut);
        QCOMPARE(ReadKept(folders.files, entries[1])->content, QByteArray("Meier,Anna;12,50"));
    }
};

const TestFile<TestHistory> test_file(__FILE__);
#include "test_history.moc"
