#include "app/start_up.h"

#include "app/program.h"
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/payment_lists_form.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "settings/billing_dates_form.h"
#include "settings/price_frame_form.h"

#include <QCalendarWidget>
#include <QSignalBlocker>

namespace {

void TakeTodaysYear(Program& program)
{
    const int year = program.Today().year();
    program.Year.YearText = QString::number(year);
    program.Year.YearNumber = static_cast<qint16>(year);
}

void SetCalendarsToToday(Program& program)
{
    const QSignalBlocker silent(program.CashBookTab.Cal3);
    program.CashBookTab.Cal3->setSelectedDate(program.Today());
    SetSettingsCalendarsToToday(program);
}

/// The first start of a new year: last year's members with their end readings as start readings.
/// The new file is computed whole and written before anything is kept.
void BeginNewYear(Program& program)
{
    const QString& year = program.Year.YearText;
    const QString last_year = PreviousYear(year);
    MemberLists lists;
    ReadMembersFile(lists, program.Files, last_year);
    DropBlankLinesAtEnd(lists);
    lists.RecordList
        = RollReadingsForward(lists.RecordList, FileNameOf(MembersFileName(last_year)));
    lists.PreviousYearMissing = true;
    WriteMembersFile(lists, program.Files, year);
    program.Members = lists;
    program.Year.LoadedYear = year;
}

/// What went wrong is noted: a member saved in this run would be all that the new year ever has.
void TryToBeginNewYear(Program& program)
{
    try {
        BeginNewYear(program);
    } catch (const RuntimeError& error) {
        program.Year.Troubles.RollForward = error;
        program.Year.Troubles.RollForwardYear = program.Year.YearText;
        throw;
    }
}

void TakeTodaysMembers(Program& program)
{
    const QString& year = program.Year.YearText;
    const bool this_year = FileExists(program.Files, MembersFileName(year));
    const bool last_year = FileExists(program.Files, MembersFileName(PreviousYear(year)));
    if (this_year && last_year)
        ReadMembersOfYear(program);
    else if (last_year)
        TryToBeginNewYear(program);
    else {
        program.Members.PreviousYearMissing
            = false; // a file of this year alone is read by LoadYear
        return;
    }
    ClearFields(program, 1);
    ShowNameList(program);
    ShowCashBookNames(program);
}

void ShowMemberZero(Program& program)
{
    program.Member.CurrentMember = 0;
    ShowMember(program);
}

} // namespace

void StartUp(Program& program)
{
    const RedrawsPostponed until_done(program);
    const SavingAction action(program.Files);
    WithErrorBox(program.Errors, program.Ask, [&program] {
        RunStep(program, [](Program& p) { FinishRewrites(p.Files); });
        ResetCashBook(program);
        RunStep(program, ReadClubName);
        TakeTodaysYear(program);
        SetCalendarsToToday(program);
        program.Year.CurrentLedgerName = BankLedgerFileName(program.Year.YearText);
        program.Member.CurrentMember = -1;
        ShowSettingsYear(program);
        ShowClubName(program);
        ShowYear(program);
        RunStep(program, TakeTodaysMembers);
        RunStep(program, ReadCashBoxLedger);
        SetUpLedgerColumns(program);
        MakeBankAccountCurrent(program);
        RunStep(program, ShowLedger);
        RunStep(program, LoadSettings);
        CountAsSaved(program.Settings);
        RunStep(program, RebuildStatementPages);
        RunStep(program, ShowMemberZero);
        RunStep(program, LoadYear);
    });
}
