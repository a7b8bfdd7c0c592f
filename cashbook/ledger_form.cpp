// The two accounts: loading, showing, switching and saving. How the table looks stands in
// ledger_view_form, the fields of a booking in booking_form, what its buttons do in
// booking_buttons_form.
#include "cashbook/ledger_form.h"

#include "app/program.h"
#include "cashbook/booking_form.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_opening.h"
#include "cashbook/ledger_search_form.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/member_marks.h"
#include "cashbook/payment_lists_form.h"
#include "cashbook/texts.h"
#include "controls/fields.h"
#include "data/file_names.h"

#include <QLineEdit>
#include <QPushButton>

#include <optional>

namespace {

void ShowHint(Program& program, const QString& text)
{
    MessageBox box;
    box.text = text;
    box.title = CashBookHintTitle;
    box.icon = BoxIcon::Exclamation;
    program.Ask(box);
}

/// The account in the chosen year.
LedgerPlace PlaceOf(Program& program, Account account)
{
    return { program.Files, account, program.Year.YearText, program.Today(),
        { [&program](const QString& text) { ShowHint(program, text); },
            [&program](
                const RuntimeError& error) { ReportError(program.Errors, program.Ask, error); } } };
}

void LoadShownLedger(Program& program)
{
    LoadLedger(program.CashBook, PlaceOf(program, ShownAccount(program)));
}

void ShowBank(Program& program)
{
    program.CashBookTab.Command15->setText(SwitchToCashBox);
    ShowAccountTitle(program);
    program.CashBook.LedgerFileName = BankLedgerFileName(program.Year.YearText);
}

/// Bookings that were not saved go into the file of the year for which they were typed.
void SaveIntoItsYear(Program& program, Account account)
{
    CashBookState& book = program.CashBook;
    LedgerPlace place = PlaceOf(program, account);
    place.YearText = LedgerOf(book, account).Year;
    if (LedgerOf(book, account).Unread)
        JoinLedgerWithFile(book, place);
    SaveLedgerLines(book, place);
}

bool IsStale(const Program& program, Account account)
{
    return IsOfAnotherYear(
        LedgerOf(program.CashBook, account), program.Year.YearText, program.Year.LoadedYear);
}

void AskForOldYear(Program& program, Account account)
{
    MessageBox box;
    box.text = OldYearQuestion(account, LedgerOf(program.CashBook, account).Year);
    box.title = CashBookHintTitle;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    if (program.Ask(box) == BoxAnswer::Yes)
        SaveIntoItsYear(program, account);
}

/// The row that was picked is in the list no more: what it put into the fields would be booked a
/// second time.
void EndEditMode(Program& program)
{
    CashBookState& book = program.CashBook;
    if (book.LedgerEditMode)
        ResetEntry(program);
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
}

/// The shown list belongs to a year that is neither chosen nor loaded any more; with the next
/// "Speichern" it would replace the bookings of the chosen year, so those are read.
void ReadStaleAnew(Program& program)
{
    const Account account = ShownAccount(program);
    if (LedgerOf(program.CashBook, account).Unsaved)
        AskForOldYear(program, account);
    EndEditMode(program);
    LoadLedger(program.CashBook, PlaceOf(program, account));
}

/// The cash box without a file gets its first lines now; bookings that wait to be saved stay.
void LoadCashBox(Program& program)
{
    const CashBookState& book = program.CashBook;
    if (book.CashBox.Unsaved && !book.CashBox.Lines.isEmpty())
        return;
    if (!FileExists(program.Files, book.LedgerFileName))
        LoadShownLedger(program);
    else if (book.CashBox.Unread)
        ReadCashBoxLedger(program);
}

void ShowCashBox(Program& program)
{
    program.CashBookTab.Command15->setText(SwitchToBank);
    ShowAccountTitle(program);
    program.CashBook.LedgerFileName = CashBoxLedgerFileName(program.Year.YearText);
    RunStep(program, LoadCashBox);
}

void LoadPending(Program& program)
{
    // before the load: one that fails must not run again at the next booking and empty the list
    program.CashBook.LedgerReloadPending = false;
    if (program.CashBook.LedgerWithoutHistory)
        RunStep(program,
            [](Program& p) { LoadLedgerWithoutHistory(p.CashBook, PlaceOf(p, ShownAccount(p))); });
    else
        RunStep(program, LoadShownLedger);
}

void SortCurrentLedger(Program& program)
{
    Ledger& ledger = LedgerOf(program.CashBook, ShownAccount(program));
    if (ledger.InOrder)
        return;
    ledger.Lines = SortLedgerByDate(ledger.Lines);
    ledger.InOrder = KeepsBookingOrder(ledger.Lines);
}

void ShowOverview(Program& program)
{
    ShowMemberOverview(
        program, OverviewRows(program.Files, program.Members.NameList, program.Year.YearText));
}

void SwitchAccount(Program& program)
{
    if (ShownAccount(program) == Account::Bank)
        ShowCashBox(program);
    else
        ShowBank(program);
    ResetEntry(program);
    program.CashBookTab.Text11->clear();
    ShowLedger(program);
    if (LineToReplace(program.CashBook, ShownAccount(program)) < 0)
        ShowLedgerRow(program, -1);
}

} // namespace

QPushButton* BuildAccountSwitch(Program& program, QWidget* tab)
{
    QPushButton* button
        = Named(MakeButton(tab, SwitchToCashBox, QStringLiteral("Zeigt das andere Konto")),
            QStringLiteral("Command15"));
    program.CashBookTab.Command15 = button;
    On(program, button, &QPushButton::clicked, SwitchAccount);
    return button;
}

void ResetEntry(Program& program)
{
    ResetEntryFields(program);
    ForgetPayee(program);
}

void ResetCashBook(Program& program)
{
    program.CashBook = {};
    program.CashBookTab.Command15->setText(SwitchToCashBox);
    FillEmptyAmounts(program);
}

void ReadCashBoxLedger(Program& program)
{
    ReadLedgerAsItStands(program.CashBook, PlaceOf(program, Account::CashBox));
}

void MakeBankAccountCurrent(Program& program)
{
    CashBookState& book = program.CashBook;
    ShowBank(program);
    book.LedgerWithoutHistory = false;
    book.LedgerReloadPending = true;
    EndEditMode(program);
}

void ShowLedger(Program& program)
{
    const bool reloads = program.CashBook.LedgerReloadPending;
    if (reloads)
        LoadPending(program);
    else if (IsStale(program, ShownAccount(program)))
        RunStep(program, ReadStaleAnew);
    else
        SortCurrentLedger(program);
    ShowLedgerRows(program);
    ShowLedgerHits(program);
    if (reloads)
        ShowLedgerRow(program, -1); // the last bookings are the ones that are looked for
    ShowCashBookMarks(program);
    RunStep(program, ShowOverview);
    ShowPaidMarks(program);
}

void ShowIfStale(Program& program)
{
    if (!IsStale(program, ShownAccount(program)))
        return;
    ReadStaleAnew(program);
    ShowLedger(program);
}

void SaveLedger(Program& program)
{
    ShowIfStale(program);
    CashBookState& book = program.CashBook;
    const Account account = ShownAccount(program);
    book.LedgerFileName = LedgerFileNameOf(account, program.Year.YearText);
    if (LedgerOf(book, account).Unread) {
        JoinLedgerWithFile(book, PlaceOf(program, account));
        ShowLedger(program);
    }
    SaveLedgerLines(book, PlaceOf(program, account));
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
    for (const Account account : { Account::Bank, Account::CashBox }) {
        if (IsStale(program, account) && LedgerOf(book, account).Unsaved)
            attempt([&] { SaveIntoItsYear(program, account); });
    }
    if (!IsStale(program, ShownAccount(program)))
        attempt([&] { SaveLedger(program); });
    const bool bank_is_shown = ShownAccount(program) == Account::Bank;
    const Account other = bank_is_shown ? Account::CashBox : Account::Bank;
    const bool unsaved = LedgerOf(book, other).Unsaved && !IsStale(program, other);
    const bool unread = LedgerOf(book, other).Unread;
    if (unsaved && unread)
        SwitchAccount(program); // its file is read first, which may have something to say
    if (unsaved)
        attempt(
            [&] { unread ? SaveLedger(program) : SaveLedgerLines(book, PlaceOf(program, other)); });
    ShowCashBookMarks(program);
    if (first_error)
        throw RuntimeError(*first_error);
}
