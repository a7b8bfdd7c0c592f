// How a test file joins the test program of its folder. Every test class runs in a process of its
// own, as before: the program is told the file by its first argument (data_tests test_dates).
#pragma once

#include <QTest>

/// Runs the test class of one file; arguments and answer as QTest::qExec has them.
using RunTest = int (*)(int count, char** arguments);

/// Makes the tests of a file known by the file's name without folder and ending.
void AddTestFile(const char* path, RunTest run);

/// Written once at the end of a test file: const TestFile<TestDates> test_file(__FILE__);
template <typename Tests> struct TestFile {
    explicit TestFile(const char* path)
    {
        AddTestFile(path, [](int count, char** arguments) {
            Tests tests;
            return QTest::qExec(&tests, count, arguments);
        });
    }
};

/// Runs the file that the first argument names; the other arguments are Qt Test's. Without a known
/// name it lists the names and answers 2.
int RunTestFile(int count, char** arguments);
