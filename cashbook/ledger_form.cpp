// The two accounts of the tab "Kontoführung": loading, switching, saving. How they are shown stands
// in ledger_view_form.cpp, the entry form in cashbook_form.cpp.
#include "app/program.h"
#include "cashbook/ledger_file.h"
#include "cashbook/texts.h"
#include "data/dates.h"
#include "data/file_names.h"

#include <QLineEdit>
#include <QPushButton>

#include <optional>

namespace {

QString LedgerFileNameOf(Account account, const QString& year_text)
{
    return account == Account::Bank ? BankLedgerFileName(year_text)
                                    : CashBoxLedgerFileName(year_text);
}

void ShowHint(Program& program, const QString& text)
{
    MessageBox box;
    box.text = text;
    box.title = CashBookHintTitle;
    box.icon = BoxIcon::Exclamation;
    program.Ask(box);
}

/// A step of a longer action: what goes wrong in it is shown, and the action goes on.
template <typename Routine> void Step(Program& program, Routine routine)
{
    WithErrorBox(program.Errors, program.Ask, [&] { routine(program); });
}

/// The first lines of an account in a year without a file: last year's balance, written at once, or
/// none and a warning.
QStringList OpenYear(Program& program)
{
    const QString& year = program.Year.YearText;
    const QString previous_year = PreviousYear(year);
    const QString previous_file = LedgerFileNameOf(ShownAccount(program), previous_year);
    if (!FileExists(program.Files, previous_file)) {
        ShowHint(program, NoHistoryWarning);
        program.CashBook.LedgerWithoutHistory = true;
        return {};
    }
    ShowHint(program, NewYearNotice(year));
    const CarryOver carry_over = MakeCarryOver(
        ReadLedgerLines(program.Files, previous_file), previous_year, program.Today());
    WriteLedger(program.Files, program.CashBook.LedgerFileName, { carry_over.line });
    if (const auto error = UncountedError(carry_over, FileNameOf(previous_file), previous_year))
        ReportError(program.Errors, program.Ask, *error);
    return { carry_over.line };
}

/// Takes over what load answers; a load that throws leaves the list alone, but marked as not being
/// what stands in its file.
template <typename Load> void FillCurrentLedger(Program& program, Load load)
{
    CashBookState& book = program.CashBook;
    const Account account = ShownAccount(program);
    UnreadOf(book, account) = true;
    LedgerOf(book, account) = load();
    UnreadOf(book, account) = false;
    UnsavedOf(book, account) = false;
}

/// What was typed since the failed load, behind what the file holds.
void JoinWithFile(Program& program)
{
    const QStringList typed = CurrentLedger(program);
    LoadLedger(program);
    CurrentLedger(program) += typed;
    UnsavedOf(program.CashBook, ShownAccount(program)) = true;
    ShowLedger(program);
}

void ShowBank(Program& program)
{
    program.CashBookTab.Command15->setText(SwitchToCashBox);
    ShowAccountTitle(program);
    program.CashBook.LedgerFileName = BankLedgerFileName(program.Year.YearText);
}

/// The cash box without a file gets its first lines now; bookings that wait to be saved stay.
void LoadCashBox(Program& program)
{
    const CashBookState& book = program.CashBook;
    if (book.CashBoxUnsaved && !book.CashBoxLedger.isEmpty())
        return;
    if (!FileExists(program.Files, book.LedgerFileName))
        LoadLedger(program);
    else if (book.CashBoxUnread)
        ReadCashBoxLedger(program);
}

void ShowCashBox(Program& program)
{
    program.CashBookTab.Command15->setText(SwitchToBank);
    ShowAccountTitle(program);
    program.CashBook.LedgerFileName = CashBoxLedgerFileName(program.Year.YearText);
    Step(program, LoadCashBox);
}

void SaveAccount(Program& program, Account account)
{
    CashBookState& book = program.CashBook;
    WriteLedger(
        program.Files, LedgerFileNameOf(account, program.Year.YearText), LedgerOf(book, account));
    UnsavedOf(book, account) = false;
}

} // namespace

void ReadCashBoxLedger(Program& program)
{
    CashBookState& book = program.CashBook;
    const QString name = CashBoxLedgerFileName(program.Year.YearText);
    book.CashBoxUnread = true;
    if (FileExists(program.Files, name))
        book.CashBoxLedger = ReadLedgerLines(program.Files, name);
    book.CashBoxUnread = false;
}

void MakeBankAccountCurrent(Program& program)
{
    CashBookState& book = program.CashBook;
    ShowBank(program);
    book.LedgerWithoutHistory = false;
    book.LedgerReloadPending = true;
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
}

void LoadLedger(Program& program)
{
    FillCurrentLedger(program, [&program] {
        const QString& name = program.CashBook.LedgerFileName;
        return FileExists(program.Files, name) ? ReadLedger(program.Files, name)
                                               : OpenYear(program);
    });
}

void LoadLedgerWithoutHistory(Program& program)
{
    FillCurrentLedger(program, [&program]() -> QStringList {
        const QString& name = program.CashBook.LedgerFileName;
        return FileExists(program.Files, name) ? ReadLedger(program.Files, name) : QStringList();
    });
}

void SwitchAccount(Program& program)
{
    if (ShownAccount(program) == Account::Bank)
        ShowCashBox(program);
    else
        ShowBank(program);
    ResetEntryFields(program);
    program.CashBookTab.Text11->clear();
    ShowLedger(program);
    if (LineToReplace(program.CashBook, ShownAccount(program)) < 0)
        ShowLedgerRow(program, -1);
}

void SaveLedger(Program& program)
{
    CashBookState& book = program.CashBook;
    const Account account = ShownAccount(program);
    book.LedgerFileName = LedgerFileNameOf(account, program.Year.YearText);
    if (UnreadOf(book, account))
        JoinWithFile(program);
    SaveAccount(program, account);
    ShowCashBookMarks(program);
}

void SaveBothLedgers(Program& program)
{
    CashBookState& book = program.CashBook;
    std::optional<RuntimeError> first_error;
    const auto attempt = [&](auto&& save) {
        try {
            save();
        } catch (const RuntimeError& error) { // the other account is saved all the same
            first_error = first_error.value_or(error);
        }
    };
    attempt([&] { SaveLedger(program); });
    const bool bank_is_shown = ShownAccount(program) == Account::Bank;
    const Account other = bank_is_shown ? Account::CashBox : Account::Bank;
    const bool unsaved = UnsavedOf(book, other);
    const bool unread = UnreadOf(book, other);
    if (unsaved && unread)
        SwitchAccount(program); // its file is read first, which may have something to say
    if (unsaved)
        attempt([&] { unread ? SaveLedger(program) : SaveAccount(program, other); });
    ShowCashBookMarks(program);
    if (first_error)
        throw RuntimeError(*first_error);
}
