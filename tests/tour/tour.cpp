// A club's year in the real window: mouse and keys alone, real message boxes and dialogs, on the
// example club with fixed dates. Leaves a picture of every tab and the printed bills in out/. The
// chapters build on each other and run in this order.
#include "app/german.h"
#include "app/program.h"
#include "tests/tour/club_folder.h"
#include "tests/tour/robot.h"

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

const QString Root = QStringLiteral(PARZELLO_ROOT);

QString OutPath(const QString& name) { return Root + QStringLiteral("/out/") + name; }

} // namespace

class Tour : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void the_first_start_shows_the_members();

private:
    void Start(const QDate& today);
    void Close();

    QTemporaryDir Folder;
    ClubFolder Club;
    std::unique_ptr<Program> program;
    std::unique_ptr<Robot> User;
    bool Broken = false; ///< a chapter failed; those behind it would only fail for the same reason
};

void Tour::initTestCase()
{
    QVERIFY2(InstallGerman(*qApp), "Qt's German translation is missing");
    QVERIFY(QDir().mkpath(OutPath({})));
    QDir(Folder.path()).mkdir(QStringLiteral("state"));
    Club.Path = Folder.filePath(QStringLiteral("Verein"));
    QCOMPARE(QProcess::execute(Root + QStringLiteral("/scripts/make-example"),
                 { Club.Path, QStringLiteral("2026-11-20") }),
        0);
    Club.Remember();
}

void Tour::Start(const QDate& today)
{
    program = std::make_unique<Program>();
    program->Files.DataDirectory = Club.Path;
    program->Files.StateDirectory = Folder.filePath(QStringLiteral("state"));
    program->Today = [today] { return today; };
    BuildMainWindow(*program);
    QMainWindow* window = program->Window.Window;
    User = std::make_unique<Robot>(window);
    StartUp(*program);
    window->resize(1280, 860);
    window->move(0, 0);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
}

void Tour::Close()
{
    User.reset();
    if (program)
        DestroyMainWindow(*program);
    program.reset();
}

void Tour::init()
{
    if (Broken)
        QSKIP("an earlier chapter failed");
}

void Tour::cleanup()
{
    const QStringList faults = User ? User->Faults() : QStringList();
    const QStringList differences = Club.Differences();
    Broken = Broken || QTest::currentTestFailed() || !faults.isEmpty() || !differences.isEmpty();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(QLatin1Char('\n'))));
}

void Tour::cleanupTestCase() { Close(); }

void Tour::the_first_start_shows_the_members()
{
    Start(QDate(2026, 11, 20));
    QCOMPARE(program->Window.Window->windowTitle(), QStringLiteral("Kleingarten Parzello"));
    User->Tab(QStringLiteral("Druckvorlagen"));
    User->Tab(QStringLiteral("Stammdaten"));
    User->Picture(OutPath(QStringLiteral("stammdaten.png")));
}

QTEST_MAIN(Tour)

#include "tour.moc"
