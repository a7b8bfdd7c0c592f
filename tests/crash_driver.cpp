// Runs one saving action of the program on a data directory, for the crash-matrix, and says how it
// ended: "confirmed", or "refused" with the sentence that the user sees.
#include "tests/support/crash_actions.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace {

// Calls that fail and do nothing; they show in the trace where the action begins and ends.
void MarkBegin() { static_cast<void>(::fsync(-7)); }
void MarkEnd() { static_cast<void>(::fsync(-8)); }

int Run(const CrashAction& action, const DataFiles& files)
{
    MarkBegin();
    try {
        action.run(files);
    } catch (const RuntimeError& error) {
        MarkEnd();
        const QString sentence = ErrorHeadline(error) + QStringLiteral(". ") + ErrorSentence(error);
        std::printf("refused %s\n", qPrintable(sentence));
        return 1;
    }
    MarkEnd();
    std::printf("confirmed\n");
    return 0;
}

} // namespace

int main(int argument_count, char** arguments)
{
    if (argument_count != 4)
        return 2;
    const DataFiles files { QString::fromUtf8(arguments[2]), QString::fromUtf8(arguments[3]) };
    for (const CrashAction& action : CrashActions()) {
        if (std::strcmp(action.name, arguments[1]) == 0)
            return Run(action, files);
    }
    return 2;
}
