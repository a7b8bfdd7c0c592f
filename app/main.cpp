// The program: one window over the data that lie beside it.
#include "app/german.h"
#include "app/program.h"
#include "app/single_start.h"

#include <QApplication>
#include <QMainWindow>

int main(int argument_count, char** arguments)
{
    // Dialogs of the desktop would speak its language; Qt's own speak German.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argument_count, arguments);
    QApplication::setApplicationName(QStringLiteral("Parzello"));
    QGuiApplication::setDesktopFileName(
        QStringLiteral("de.parzello.parzello")); // the desktop's icon
    InstallGerman(application);

    Program program;
    program.Files.DataDirectory = QCoreApplication::applicationDirPath();
    program.Files.StateDirectory = StateDirectoryFor(program.Files.DataDirectory);
    SingleStart start;
    if (!TakeDataDirectory(start, program.Files))
        return 0; // the first start's window has come to the front
    BuildMainWindow(program);
    OnLaterStart(start, [&program] { BringToFront(*program.Window.Window); });
    StartUp(program);
    program.Window.Window->show();
    const int code = QApplication::exec();
    DestroyMainWindow(program);
    return code;
}
