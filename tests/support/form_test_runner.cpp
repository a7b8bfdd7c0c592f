#include "tests/support/test_file.h"

#include <QApplication>

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    QApplication::setAttribute(Qt::AA_Use96Dpi); // as every test of Qt's own
    return RunTestFile(count, arguments);
}
