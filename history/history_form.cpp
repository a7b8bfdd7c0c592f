#include "history/history_form.h"

#include "app/program.h"
#include "history/file_kinds.h"
#include "history/history_report.h"
#include "history/state_report.h"
#include "history/taking_back.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString history_title = u"Verlauf"_s;

bool Confirmed(const Program& program, const QString& question)
{
    MessageBox box;
    box.text = question;
    box.title = history_title;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    return program.Ask(box) == BoxAnswer::Yes;
}

void Say(const Program& program, const QString& text)
{
    MessageBox box;
    box.text = text;
    box.title = history_title;
    box.icon = BoxIcon::Information;
    program.Ask(box);
}

/// What is typed and not saved would be gone with the next load.
bool MayLeaveUnsaved(Program& program)
{
    return AskForUnsaved(
        program, u"Die Angaben im Formular sind nicht gespeichert. Trotzdem zurückholen ?"_s);
}

/// True for a file whose content is in memory.
bool IsLoaded(const Program& program, const QString& target)
{
    const KindOfFile file = KindOf(target);
    const QString& loaded = program.Year.LoadedYear;
    switch (file.Kind) {
    case FileKind::Members:
        return file.Year == loaded || NextYear(file.Year) == loaded;
    case FileKind::BankLedger:
    case FileKind::CashBoxLedger:
        return file.Year == loaded;
    case FileKind::Prices:
    case FileKind::Bank:
    case FileKind::ClubName:
        return true;
    case FileKind::Other:
        break;
    }
    return false;
}

void LoadWhatCameBack(Program& program, const QList<RedoRecord>& states)
{
    const auto is_loaded = [&](const RedoRecord& state) { return IsLoaded(program, state.target); };
    if (std::none_of(states.cbegin(), states.cend(), is_loaded))
        return;
    ReadClubName(program);
    ShowClubName(program);
    if (!program.Year.LoadedYear.isEmpty())
        LoadReplacedYear(program);
}

void AskAndTakeBack(Program& program, const StatesToTake& take)
{
    if (take.States.isEmpty())
        return Say(program, u"Davor gibt es keinen Stand, der zurückgeholt werden kann."_s);
    if (!Confirmed(program, take.Question) || !MayLeaveUnsaved(program))
        return;
    TakeBack(program.Files, take.States);
    LoadWhatCameBack(program, take.States);
}

// --- the window -------------------------------------------------------------------------------

std::optional<QByteArray> ContentNow(const Program& program, const QString& target)
{
    try {
        return ReadBytes(program.Files, u'\\' + target);
    } catch (const RuntimeError&) {
        return std::nullopt; // the file is gone or cannot be read: nothing of the state is there
    }
}

Report MakeStateReport(const Program& program, qint64 number)
{
    QList<HistoryEntry> entries;
    std::optional<RedoRecord> state;
    if (!ReadHistory(program.Files, entries)) {
        for (const HistoryEntry& entry : std::as_const(entries)) {
            if (entry.Mark.Number == number)
                state = ReadKept(program.Files, entry);
        }
    }
    if (state)
        return StateReport(*state, ContentNow(program, state->target));
    Report report;
    report.title = u"Verlauf – Kleingarten Parzello"_s;
    AddSentence(report, u"Dieser Stand ist nicht mehr im Verlauf."_s);
    return report;
}

void ShowState(Program& program, qint64 number)
{
    ShowReport(program,
        { u"HistoryState"_s, u"Stand aus dem Verlauf"_s,
            [number](Program& p, const ReportChoices&) { return MakeStateReport(p, number); },
            {} });
}

void EmptyTheHistory(Program& program)
{
    if (!Confirmed(program,
            u"Soll der ganze Verlauf gelöscht werden ? Danach kann kein früherer Stand mehr "
            "zurückgeholt werden. Die Daten selbst bleiben."_s))
        return;
    if (const SystemError error = EmptyHistory(program.Files))
        Say(program, u"Der Verlauf ließ sich nicht ganz löschen: %1."_s.arg(ReasonOf(error)));
}

void FollowHistoryLink(Program& program, const QString& action)
{
    const HistoryLink link = HistoryLinkOf(action);
    switch (link.Deed) {
    case HistoryDeed::Look:
        return ShowState(program, link.Number);
    case HistoryDeed::Take:
        return AskAndTakeBack(program, StateOfNumber(program.Files, link.Number));
    case HistoryDeed::TakeAll:
        return AskAndTakeBack(program, StatesOfAction(program.Files, link.Number));
    case HistoryDeed::TakeBefore:
        return AskAndTakeBack(program, StatesBeforeAction(program.Files, link.Number));
    case HistoryDeed::Empty:
        return EmptyTheHistory(program);
    case HistoryDeed::None:
        break;
    }
}

} // namespace

void ShowHistory(Program& program)
{
    ShowReport(program,
        { u"History"_s, u"Verlauf"_s,
            [](Program& p, const ReportChoices& choices) {
                return HistoryReport(p.Files, choices);
            },
            FollowHistoryLink });
}

void TakeBackTheLast(Program& program) // Ctrl+Z
{
    AskAndTakeBack(program, StatesBeforeTheLast(program.Files));
}
