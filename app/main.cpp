#include "app/program.h"

#include <QApplication>

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    Program program;
    BuildMainWindow(program);
    return 0;
}
