// The start of the program without its tabs: takes the data directory, waits for later starts and
// says on standard output what happens. Ends when standard input does.
#include "app/single_start.h"

#include <QApplication>
#include <QWidget>

#include <unistd.h>

#include <cstdio>

namespace {

void Say(const char* word, const QByteArray& more = {})
{
    std::printf("%s %s\n", word, more.constData());
    std::fflush(stdout);
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
