// The frame of the tour: the club's folder, starting and closing the program, checks after every
// chapter.
#include "tests/tour/tour.h"

#include "app/german.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QTest>

QString OutPath(const QString& name) { return QStringLiteral(PARZELLO_ROOT "/out/") + name; }

void Tour::initTestCase()
{
    QVERIFY2(InstallGerman(*qApp), "Qt's German translation is missing");
    QVERIFY(QDir().mkpath(OutPath({})));
    QVERIFY(QDir(Folder.path()).mkdir(QStringLiteral("state")));
    QVERIFY(QDir(Folder.path()).mkdir(QStringLiteral("Stick")));
    Club.Path = Folder.filePath(QStringLiteral("Verein"));
    QCOMPARE(QProcess::execute(QStringLiteral(PARZELLO_ROOT "/scripts/make-example"),
                 { Club.Path, QStringLiteral("2026-11-20") }),
        0);
    Club.Remember();
}

void Tour::Start(const QDate& today, const QList<ExpectedBox>& boxes)
{
    program = std::make_unique<Program>();
    program->Files.DataDirectory = Club.Path;
    program->Files.StateDirectory = Folder.filePath(QStringLiteral("state"));
    program->Today = [today] { return today; };
    program->Files.History->Now = [today] { return QDateTime(today, QTime(14, 3)); };
    program->Backup.FindDrive = [this] { return StickPath(); };
    BuildMainWindow(*program);
    QMainWindow* window = program->Window.Window;
    User = std::make_unique<Robot>(window);
    for (const ExpectedBox& box : boxes)
        User->Expect(box.title, box.text, box.button);
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
    if (!program)
        return;
    program->Window.Window->close();
    const QStringList faults = User->Faults();
    DestroyMainWindow(*program);
    User.reset();
    program.reset();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
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

QString Tour::Text(const QString& name)
{
    QWidget* control = User->Control(name);
    if (const auto* field = qobject_cast<QLineEdit*>(control))
        return field->text();
    if (const auto* label = qobject_cast<QLabel*>(control))
        return label->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(control))
        return button->text();
    return QStringLiteral("(no text)");
}

QStringList Tour::Rows(const QString& name)
{
    QStringList rows;
    const auto* view = qobject_cast<QAbstractItemView*>(User->Control(name));
    if (view == nullptr)
        return rows;
    const QAbstractItemModel* model = view->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells += model->index(row, column).data().toString();
        rows += cells.join(QStringLiteral(" | "));
    }
    return rows;
}

QStringList Tour::SelectedRows(const QString& name)
{
    QStringList rows;
    const auto* view = qobject_cast<QAbstractItemView*>(User->Control(name));
    if (view == nullptr)
        return rows;
    QModelIndexList selected = view->selectionModel()->selectedRows();
    std::sort(selected.begin(), selected.end());
    for (const QModelIndex& index : std::as_const(selected))
        rows += index.data().toString();
    return rows;
}

bool Tour::Shown(const QString& name)
{
    const QWidget* control = User->Control(name);
    return control != nullptr && control->isVisible();
}

QTEST_MAIN(Tour)
