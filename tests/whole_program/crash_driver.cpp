// Runs one saving action of the program on a data directory, for the crash-matrix, and says how it
// ended: "confirmed", or "refused" with the sentence that the user sees.
#include "app/program.h"
#include "tests/support/crash_actions.h"

#include <QApplication>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <optional>

namespace {

// Calls that fail and do nothing; they show in the trace where the action begins and ends.
void MarkBegin() { static_cast<void>(::fsync(-7)); }
void MarkEnd() { static_cast<void>(::fsync(-8)); }

int Answer(const std::optional<QString>& refusal)
{
    if (refusal)
        std::printf("refused %s\n", qPrintable(*refusal));
    else
        std::printf("confirmed\n");
    return refusal ? 1 : 0;
}

int RunOnFiles(const CrashAction& action, const DataFiles& files)
{
    std::optional<QString> refusal;
    MarkBegin();
    try {
        action.run(files);
    } catch (const RuntimeError& error) {
        refusal = ErrorHeadline(error) + QStringLiteral(". ") + ErrorSentence(error);
    }
    MarkEnd();
    return Answer(refusal);
}

/// The window of the program; every question is answered with "Ja" or "OK". An error box of the
/// press is a refusal.
int RunInWindow(const CrashAction& action, const DataFiles& files)
{
    int count = 0;
    QApplication application(count, nullptr);
    std::optional<QString> refusal;
    Program program;
    program.Files = files;
    program.Today = [] { return QDate(2017, 1, 6); };
    program.Backup.FindDrive = [files] { return files.DataDirectory + QStringLiteral("/.."); };
    program.Backup.FindFallback = [] { return Fallback {}; };
    program.Ask = [&refusal](const MessageBox& box) {
        if (box.icon == BoxIcon::Error && !refusal)
            refusal = box.text + QStringLiteral(". ") + box.detail;
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
    };
    BuildMainWindow(program);
    action.fill(program);
    refusal.reset();
    MarkBegin();
    action.press(program);
    MarkEnd();
    const int code = Answer(refusal);
    DestroyMainWindow(program);
    return code;
}

} // namespace

int main(int argument_count, char** arguments)
{
    if (argument_count != 4)
        return 2;
    const DataFiles files { QString::fromUtf8(arguments[2]), QString::fromUtf8(arguments[3]) };
    files.History->Now = [] { return QDateTime({ 2017, 1, 6 }, { 12, 0 }); }; // stands in names
    for (const CrashAction& action : CrashActions()) {
        if (std::strcmp(action.name, arguments[1]) == 0)
            return action.run != nullptr ? RunOnFiles(action, files) : RunInWindow(action, files);
    }
    return 2;
}
