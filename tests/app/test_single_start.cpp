// A second start on the same data directory, with real processes.
#include "tests/support/data_folders.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience_milliseconds = 20000;

/// One start of the program; ended with it.
struct Start {
    QProcess process;

    explicit Start(
        const DataFiles& files, const QStringList& variables = {}, const QStringList& more = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"XDG_RUNTIME_DIR"_s);
        environment.remove(u"XDG_ACTIVATION_TOKEN"_s);
        for (const QString& variable : variables)
            environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(SINGLE_START_DRIVER),
            QStringList { files.DataDirectory, files.StateDirectory } + more);
    }

    ~Start()
    {
        process.closeWriteChannel();
        process.waitForFinished(patience_milliseconds);
    }

    /// The next line that it says.
    QByteArray Line()
    {
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(patience_milliseconds))
                return "(silence)";
        }
        return process.readLine().trimmed();
    }

    bool Ends() { return process.waitForFinished(patience_milliseconds); }
};

/// True while a program holds the lock of the only club in this state home.
bool IsLocked(const DataFolders& folders)
{
    const QDir clubs(folders.files.StateDirectory + u"/parzello"_s);
    const QString club = clubs.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    const QString path = clubs.filePath(club + u"/sperre"_s);
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool is_locked = ::flock(file, LOCK_SH | LOCK_NB) != 0;
    ::close(file);
    return is_locked;
}

} // namespace

class TestSingleStart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_second_start_brings_the_first_window_to_the_front_and_ends()
    {
        const DataFolders folders;
        Start first(folders.files);
        QCOMPARE(first.Line(), QByteArray("first"));
        for (int again = 0; again < 3; ++again) {
            Start second(folders.files);
            QCOMPARE(second.Line(), QByteArray("other"));
            QVERIFY(second.Ends());
            QCOMPARE(second.process.exitCode(), 0);
            QCOMPARE(first.Line(), QByteArray("front"));
        }
        QCOMPARE(folders.Names(), QStringList {});
        for (const QString& name : folders.StateNames()) {
            for (const QString& ending : { u".pz"_s, u".ini"_s, u".xls"_s })
                QVERIFY(!name.endsWith(ending));
        }
    }

    void the_permission_to_come_to_the_front_is_handed_on()
    {
        const DataFolders folders;
        Start first(folders.files);
        QCOMPARE(first.Line(), QByteArray("first"));
        Start second(folders.files, { u"XDG_ACTIVATION_TOKEN=token-17"_s });
        QCOMPARE(second.Line(), QByteArray("other"));
        QCOMPARE(first.Line(), QByteArray("front token-17"));
    }

    void an_open_message_box_comes_to_the_front_with_its_window()
    {
        const DataFolders folders;
        Start first(folders.files, {}, { u"box"_s });
        QCOMPARE(first.Line(), QByteArray("first"));
        Start second(folders.files);
        QCOMPARE(second.Line(), QByteArray("other"));
        // the box last: it must not end up below its window
        QCOMPARE(first.Line(), QByteArray("shown raised Window MessageBox active MessageBox"));
    }

    void a_box_of_the_start_comes_to_the_front_while_the_window_is_not_shown_yet()
    {
        const DataFolders folders;
        Start first(folders.files, {}, { u"early box"_s });
        QCOMPARE(first.Line(), QByteArray("first"));
        Start second(folders.files);
        QCOMPARE(second.Line(), QByteArray("other"));
        QCOMPARE(first.Line(), QByteArray("hidden raised MessageBox active MessageBox"));
    }

    void after_a_crash_the_next_start_goes_on()
    {
        const DataFolders folders;
        Start crashing(folders.files);
        QCOMPARE(crashing.Line(), QByteArray("first"));
        crashing.process.kill();
        QVERIFY(crashing.Ends());
        Start next(folders.files);
        QCOMPARE(next.Line(), QByteArray("first"));
        Start second(folders.files);
        QCOMPARE(second.Line(), QByteArray("other"));
        QCOMPARE(next.Line(), QByteArray("front"));
    }

    void after_the_first_has_ended_the_next_start_is_the_first()
    {
        const DataFolders folders;
        {
            Start first(folders.files);
            QCOMPARE(first.Line(), QByteArray("first"));
        }
        Start next(folders.files);
        QCOMPARE(next.Line(), QByteArray("first"));
    }

    void another_data_directory_is_another_program()
    {
        const DataFolders one;
        const DataFolders other;
        Start first(one.files);
        QCOMPARE(first.Line(), QByteArray("first"));
        Start second(other.files);
        QCOMPARE(second.Line(), QByteArray("first"));
    }

    void the_runtime_folder_holds_the_socket_where_there_is_one()
    {
        const DataFolders folders;
        const QString runtime = u"XDG_RUNTIME_DIR="_s + folders.root.path();
        Start first(folders.files, { runtime });
        QCOMPARE(first.Line(), QByteArray("first"));
        Start second(folders.files, { runtime });
        QCOMPARE(second.Line(), QByteArray("other"));
        QCOMPARE(first.Line(), QByteArray("front"));
        QCOMPARE(folders.StateNames(), QStringList { u"sperre"_s });
    }

    void without_a_usable_state_directory_the_program_starts_all_the_same()
    {
        const DataFolders folders;
        QFile obstacle(folders.files.StateDirectory);
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        Start first(folders.files);
        QCOMPARE(first.Line(), QByteArray("first"));
        Start homeless({ folders.files.DataDirectory, {} });
        QCOMPARE(homeless.Line(), QByteArray("first"));
    }

    void the_program_itself_starts_once_and_again_after_a_crash()
    {
        const DataFolders folders;
        const QString program = folders.Path(u"parzello"_s);
        QVERIFY(QFile::copy(QStringLiteral(PROGRAM), program)); // its folder is the data directory
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_STATE_HOME"_s, folders.files.StateDirectory);
        environment.insert(u"XDG_RUNTIME_DIR"_s, folders.root.path());
        for (int round = 0; round < 2; ++round) {
            QProcess first;
            first.setProcessEnvironment(environment);
            first.start(program, {});
            QTRY_VERIFY_WITH_TIMEOUT(IsLocked(folders), patience_milliseconds);
            QProcess second;
            second.setProcessEnvironment(environment);
            second.start(program, {});
            QVERIFY(second.waitForFinished(patience_milliseconds));
            QCOMPARE(second.exitStatus(), QProcess::NormalExit);
            QCOMPARE(second.exitCode(), 0);
            QCOMPARE(first.state(), QProcess::Running);
            first.kill();
            QVERIFY(first.waitForFinished(patience_milliseconds));
            QCOMPARE(folders.Names(), QStringList { u"parzello"_s });
        }
    }
};

const TestFile<TestSingleStart> test_file(__FILE__);
#include "test_single_start.moc"
