#include "app/load_year.h"

#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_form.h"
#include "cashbook/payment_lists_form.h"
#include "controls/fields.h"
#include "data/dates.h"
#include "data/file_names.h"

#include <QLineEdit>

#include <utility>

void ShowYear(Program& program)
{
    QLineEdit* year_box = program.MembersTab.Text2;
    year_box->setText(program.Year.YearText);
    const QString& year = program.Year.YearText;
    const QString& loaded = program.Year.LoadedYear;
    const bool nothing_to_say
        = loaded == year || (loaded.isEmpty() && !FileExists(program.Files, MembersFileName(year)));
    if (nothing_to_say)
        Tint(year_box, TintKind::None);
    else if (loaded.isEmpty())
        Tint(year_box, TintKind::OtherYear,
            QStringLiteral("Die Daten von %1 sind nicht geladen. „Laden“ lädt sie.").arg(year));
    else
        Tint(year_box, TintKind::OtherYear,
            QStringLiteral("Gezeigt werden noch die Daten von %1. „Laden“ lädt %2; ein Speichern "
                           "ohne Laden schreibt die gezeigten Mitglieder, Preise und Buchungen in "
                           "das Jahr %2.")
                .arg(loaded, year));
}

void StepYear(Program& program, int index)
{
    const QString present = QString::number(program.Today().year());
    if (index == 1)
        program.Year.YearText = PreviousYear(program.Year.YearText);
    else if (program.Year.YearText != present)
        program.Year.YearText = NextYear(program.Year.YearText);
    ShowYear(program);
}

namespace {

/// Both members files, read into fresh lists: when one cannot be read, the lists in memory stay.
MemberLists ReadLists(const Program& program)
{
    MemberLists lists;
    ReadMembersFile(lists, program.Files, program.Year.YearText);
    ReadPreviousYear(lists, program.Files, program.Year.YearText);
    return lists;
}

void ClearLedgers(Program& program)
{
    program.CashBook.BankLedger.clear();
    program.CashBook.CashBoxLedger.clear();
    program.CashBook.BankUnsaved = false;
    program.CashBook.CashBoxUnsaved = false;
}

void ShowFirstOrCurrentMember(Program& program)
{
    qint16& current = program.Member.CurrentMember;
    if (current < 0 || current >= program.Members.RecordList.size())
        current = 0;
    ShowMember(program);
}

} // namespace

void LoadYear(Program& program)
{
    const QString& year = program.Year.YearText;
    if (!FileExists(program.Files, MembersFileName(year))) {
        MessageBox box;
        box.text = NoDataForYear(year);
        box.title = DataErrorTitle;
        program.Ask(box);
        return;
    }
    const RedrawsPostponed until_done(program);
    program.Members = ReadLists(program);
    program.Year.LoadedYear = year;
    ClearLedgers(program);
    ClearFields(program, 1);
    ShowYear(program);
    ShowNameList(program);
    ShowCashBookNames(program);
    OfferContactNames(program);

    program.Year.CurrentLedgerName = BankLedgerFileName(year);
    ShowSettingsYear(program);
    SetPageFields(program);
    RunStep(program, ReadCashBoxLedger);
    MakeBankAccountCurrent(program);
    program.Year.CurrentLedgerName = QStringLiteral("/Konto") + year + QStringLiteral(".pz");

    RunStep(program, LoadSettings);
    RunStep(program, RebuildStatementPages);
    RunStep(program, DrawStatementPages);
    RunStep(program, ShowLedger);
    RunStep(program, ShowFirstOrCurrentMember);
}
