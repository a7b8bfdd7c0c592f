#include "app/main_window.h"

#include "app/bill_ways.h"
#include "app/program.h"
#include "app/shortcuts.h"
#include "app/texts.h"
#include "cashbook/cashbook_tab_form.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFont>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

/// In several sizes as pictures, so that no plug-in has to draw it.
QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : { 16, 24, 32, 48, 64, 128, 256 })
        icon.addFile(QStringLiteral(":/symbole/parzello-%1.png").arg(size));
    return icon;
}

QWidget* BuildHead(Program& program, QWidget* parent)
{
    MainWindowForm& window = program.Window;
    auto* head = new QWidget(parent);
    window.ClubNameLabel = Named(new QLabel(head), QStringLiteral("Label1"), 1);
    window.ClubNameLabel->setTextFormat(Qt::PlainText);
    window.ClubNameLabel->setWordWrap(
        true); // a long club name takes two lines instead of widening the window
    QFont large = window.ClubNameLabel->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    window.ClubNameLabel->setFont(large);

    window.Text5 = Named(MakeField(head, FieldKind::Text, 30, QStringLiteral("Vereinsname")),
        QStringLiteral("Text5"));
    window.Text5->setText(ClubNameHint);
    window.Text5->setCursorPosition(0);
    window.Command22
        = Named(MakeButton(head, QStringLiteral("Speichern")), QStringLiteral("Command22"));
    window.Command22->setAccessibleName(QStringLiteral("Vereinsname speichern"));
    window.Command22->setToolTip(
        QStringLiteral("Speichert den Vereinsnamen. Er steht auf jeder Abrechnung."));
    window.Command8
        = Named(MakeButton(head, QStringLiteral("Beenden")), QStringLiteral("Command8"));
    window.Command8->setAutoDefault(false); // a stray Enter must not end the program
    window.Command8->setToolTip(QStringLiteral(
        "Beendet das Programm sofort und ohne Rückfrage. Nicht Gespeichertes geht verloren."));

    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(TabSpacing, FrameSpacing, TabSpacing, FrameSpacing);
    row->setSpacing(TabSpacing);
    row->addWidget(window.ClubNameLabel, 1);
    row->addWidget(window.Text5, 2);
    row->addWidget(window.Command22);
    row->addWidget(window.Command8);
    return head;
}

/// What does not fit scrolls, on the ground of whatever it lies in.
QScrollArea* Scrolling(QWidget* content)
{
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    scroll->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return scroll;
}

/// Each tab scrolls by itself, so that the head and the row of tabs stay in sight.
void AddTab(Program& program, const QString& caption, void (*build)(Program&, QWidget*))
{
    auto* page = new QWidget;
    program.Window.SSTab1->addTab(Scrolling(page), caption);
    build(program, page);
}

void BuildTabs(Program& program, QWidget* parent)
{
    program.Window.SSTab1 = Named(new QTabWidget(parent), QStringLiteral("SSTab1"));
    program.Window.SSTab1->setAccessibleName(QStringLiteral("Bereiche"));
    AddTab(program, QStringLiteral("Stammdaten"), BuildMemberTab);
    AddTab(program, QStringLiteral("Druckvorlagen"), BuildStatementTab);
    AddTab(program, QStringLiteral("Kontoführung"), BuildCashBookTab);
    AddTab(program, QStringLiteral("Einstellungen"), BuildSettingsTab);
}

/// The whole scrolls too: with very large letters even the head is wider than a very small screen.
QWidget* BuildContent(Program& program)
{
    auto* content = new QWidget;
    QWidget* head = BuildHead(program, content);
    BuildTabs(program, content);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(head);
    column->addWidget(program.Window.SSTab1, 1);

    return Scrolling(content);
}

/// The window stays when something could not be saved.
bool WindowClosing(Program& program, QEvent& event)
{
    if (AskForUnsaved(program))
        return false;
    event.ignore();
    return true;
}

/// The end of the desktop session must not wait for an answer: the event would close the window,
/// which asks. It also comes after the window was closed, with nothing left to ask.
bool SessionEnds(QEvent&)
{
    QCoreApplication::exit(0);
    return true;
}

/// Typing replaces the hint: it is selected with the focus, and again after a click, which would
/// set the caret into it. What was typed is treated as everywhere.
bool SelectClubNameHint(Program& program, QEvent&)
{
    if (program.Window.Text5->text() == ClubNameHint)
        program.Window.Text5->selectAll();
    return false;
}

void ConnectHandlers(Program& program)
{
    const MainWindowForm& window = program.Window;
    On(program, window.SSTab1, &QTabWidget::currentChanged, TabChanged);
    On(program, window.Command8, &QPushButton::clicked, Exit);
    On(program, window.Command22, &QPushButton::clicked, SaveClubName);
    On(program, window.Text5, &QLineEdit::returnPressed, ClubNameEntered);
    On(program, window.Text5, &QLineEdit::textChanged, ShowUnsaved);
    OnEvent(program, window.Text5, QEvent::FocusIn, SelectClubNameHint);
    OnEvent(program, window.Text5, QEvent::MouseButtonRelease, SelectClubNameHint);
    OnEvent(program, window.Window, QEvent::Close, WindowClosing);
}

/// Large enough for each tab to be seen whole, where the screen is; with its frame it lies on the
/// screen whole.
QSize FirstSize(const Program& program)
{
    const QTabWidget* tabs = program.Window.SSTab1;
    QSize wanted(1280, 860);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        const auto* scroll = static_cast<const QScrollArea*>(tabs->widget(tab));
        const int above = tabs->parentWidget()->minimumSizeHint().height()
            - scroll->minimumSizeHint().height(); // the head and the row of tabs
        wanted = wanted.expandedTo(
            scroll->widget()->minimumSizeHint() + QSize(2 * FrameSpacing, above));
    }
    return SizeOnScreen(program.Window.Window, wanted);
}

} // namespace

void BuildMainWindow(Program& program)
{
    Q_INIT_RESOURCE(parzello); // the icon lies in a static library
    auto* window = Named(new QMainWindow, QStringLiteral("MainWindow"));
    program.Window.Window = window;
    window->setWindowTitle(WindowCaption);
    window->setWindowIcon(ProgramIcon());
    if (!program.Ask)
        program.Ask = [window](const MessageBox& box) { return ShowMessageBox(window, box); };
    window->setCentralWidget(BuildContent(program));
    window->resize(FirstSize(program));
    program.Window.SSTab1->setFocus(); // else the first button has the focus: "Beenden"
    BuildMore(program);
    BuildShortcuts(program);
    BuildBillWays(program);
    HookEvent(qApp, QEvent::Quit, SessionEnds);
    ShowUnsaved(program);
    ConnectHandlers(program); // last: building a tab control signals tab changes
}

void DestroyMainWindow(Program& program)
{
    program.Readings.RunOpen = false; // its readings are in the file; nothing is drawn any more
    delete program.Window.Window;
    program.Window = {};
    program.Readings = {};
    program.Reports.Opened.clear(); // their windows went with the main window
}
