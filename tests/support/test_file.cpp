#include "tests/support/test_file.h"

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

namespace {

std::map<std::string, RunTest>& TestFiles()
{
    static std::map<std::string, RunTest> files;
    return files;
}

} // namespace

void AddTestFile(const char* path, RunTest run)
{
    TestFiles()[std::filesystem::path(path).stem().string()] = run;
}

int RunTestFile(int count, char** arguments)
{
    const auto found = TestFiles().find(count > 1 ? arguments[1] : "");
    if (found != TestFiles().end()) {
        arguments[1] = arguments[0];
        return found->second(count - 1, arguments + 1);
    }
    std::fprintf(stderr, "usage: %s FILE [options of Qt Test]\n", arguments[0]);
    for (const auto& [name, run] : TestFiles())
        std::fprintf(stderr, "%s\n", name.c_str());
    return 2;
}
