// The program: one window over the data that lie beside it.
#include "app/german.h"
#include "app/program.h"

#include <QApplication>
#include <QMainWindow>

int main(int argument_count, char** arguments)
{
    // Dialogs of the desktop would speak its language; Qt's own speak German.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argument_count, arguments);
    QApplication::setApplicationName(QStringLiteral("Parzello"));
    InstallGerman(application);

    Program program;
    program.Files.DataDirectory = QCoreApplication::applicationDirPath();
    program.Files.StateDirectory = StateDirectoryFor(program.Files.DataDirectory);
    BuildMainWindow(program);
    StartUp(program);
    program.Window.Window->show();
    const int code = QApplication::exec();
    DestroyMainWindow(program);
    return code;
}
