// The start of the program without its tabs: takes the data directory, waits for later starts and
// says on standard output what happens. Ends when standard input does. With "box" as third argument
// a message box stands over the window, with "early box" before the window is shown.
#include "app/single_start.h"
#include "controls/message_boxes.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <unistd.h>

#include <cstdio>

namespace {

void Say(const char* word, const QByteArray& more = {})
{
    std::printf("%s %s\n", word, more.constData());
    std::fflush(stdout);
}

/// Which windows were raised, in this order.
struct Raised : QObject {
    QByteArray names;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ZOrderChange && watched->isWidgetType()
            && static_cast<QWidget*>(watched)->isWindow())
            names += watched->objectName().toUtf8() + ' ';
        return false;
    }
};

/// Another program's window has the keyboard now.
void LoseFocus(QWindow& rival)
{
    rival.show();
    rival.requestActivate();
    QCoreApplication::processEvents();
    if (QApplication::activeWindow() != nullptr)
        qFatal("the window keeps the focus");
}

void SayWhatIsInFront(const QWidget& window, const Raised& raised)
{
    QCoreApplication::processEvents(); // the window system's answer
    const QWidget* active = QApplication::activeWindow();
    Say(!window.isVisible()        ? "hidden"
            : window.isMinimized() ? "minimised"
                                   : "shown",
        "raised " + raised.names + "active "
            + (active == nullptr ? QByteArray("none") : active->objectName().toUtf8()));
}

/// A box is open over the window when the later start comes.
int RunWithBox(SingleStart& start, bool is_early)
{
    QWidget window;
    window.setObjectName(QStringLiteral("Window"));
    if (!is_early)
        window.showMinimized();
    Raised raised;
    QWindow rival;
    OnLaterStart(start, [&] {
        LoseFocus(rival);
        QApplication::instance()->installEventFilter(&raised);
        BringToFront(window);
        SayWhatIsInFront(window, raised);
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &window, [] {
        QApplication::closeAllWindows(); // the box
        QApplication::quit();
    });
    QTimer::singleShot(0, &window, [] { Say("first"); });
    MessageBox box;
    box.title = QStringLiteral("Hinweis");
    box.text = QStringLiteral("Es ist etwas zu sagen.");
    ShowMessageBox(&window, box);
    return 0;
}

} // namespace

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    const QStringList given = QCoreApplication::arguments();
    const DataFiles files { given.value(1), given.value(2) };
    SingleStart start;
    if (!TakeDataDirectory(start, files)) {
        Say("other");
        return 0;
    }
    if (const QString box = given.value(3); !box.isEmpty())
        return RunWithBox(start, box == QStringLiteral("early box"));
    QWidget window;
    window.showMinimized();
    OnLaterStart(start, [&window] {
        BringToFront(window);
        Say(window.isMinimized() ? "minimised" : "front", qgetenv("XDG_ACTIVATION_TOKEN"));
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QApplication::quit);
    Say("first");
    return QApplication::exec();
}
