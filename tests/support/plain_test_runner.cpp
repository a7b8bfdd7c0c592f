#include "tests/support/test_file.h"

#include <QCoreApplication>

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments);
    return RunTestFile(count, arguments);
}
