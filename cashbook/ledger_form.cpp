// The two accounts: loading, showing, switching, booking and saving, and the buttons for that. How
// the table looks stands in ledger_view_form, the fields of a booking in booking_form.
#include "cashbook/ledger_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/booking_form.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_opening.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/member_marks.h"
#include "cashbook/payment_lists_form.h"
#include "cashbook/texts.h"
#include "controls/fields.h"
#include "data/file_names.h"

#include <QHBoxLayout>
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
    QStringList& ledger = CurrentLedger(program);
    ledger = SortLedgerByDate(ledger);
}

void ShowOverview(Program& program)
{
    ShowMemberOverview(
        program, OverviewRows(program.Files, program.Members.NameList, program.Year.YearText));
}

void ResetEntry(Program& program)
{
    ResetEntryFields(program);
    ForgetPayee(program);
}

/// Where the ledger holds a booking after sorting.
qsizetype RowOfBooking(const Program& program, const QString& line)
{
    return CurrentLedger(program).lastIndexOf(SortLedgerByDate({ line }).first());
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

void ApplyEntryClicked(Program& program)
{
    const LedgerEntry booking = ReadEntry(program);
    if (!IsComplete(booking))
        return; // nothing happens, and nothing is said
    const QString line = LineOfEntry(booking);
    ApplyEntry(program.CashBook, ShownAccount(program), line);
    ResetEntry(program);
    ShowLedger(program);
    ShowLedgerRow(program, RowOfBooking(program, line));
    program.CashBookTab.Text10[DateEntry]->setFocus(); // the next booking begins here
}

void DeleteEntryClicked(Program& program)
{
    if (!IsComplete(ReadEntry(program)))
        return; // as with "OK"
    DeleteEntry(program.CashBook, ShownAccount(program));
    ResetEntry(program);
    ShowLedger(program);
}

void ConnectButtons(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    On(program, form.Command12[0], &QPushButton::clicked, ApplyEntryClicked);
    On(program, form.Command12[1], &QPushButton::clicked, DeleteEntryClicked);
    On(program, form.CommandSaveLedger, &QPushButton::clicked, SaveLedger);
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

QHBoxLayout* BuildLedgerButtons(Program& program, QWidget* frame)
{
    CashBookForm& form = program.CashBookTab;
    form.Command12[0] = Named(MakeButton(frame, QStringLiteral("OK"),
                                  QStringLiteral("Bucht die Felder darüber oder ersetzt die "
                                                 "markierte Zeile. Datum und Vorgang müssen "
                                                 "ausgefüllt sein.")),
        QStringLiteral("Command12"), 0);
    MakePrimary(form.Command12[0]);
    form.Command12[1] = Named(MakeButton(frame, QStringLiteral("Löschen"),
                                  QStringLiteral("Löscht die angeklickte Zeile")),
        QStringLiteral("Command12"), 1);
    form.CommandSaveLedger = Named(MakeButton(frame, QStringLiteral("Speichern"),
                                       QStringLiteral("Schreibt alle Buchungen des gezeigten "
                                                      "Kontos in seine Datei (Strg+S)")),
        QStringLiteral("CommandSaveLedger"));
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command12[0]);
    row->addWidget(form.Command12[1]);
    row->addStretch(1);
    row->addWidget(form.CommandSaveLedger);
    ConnectButtons(program);
    return row;
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
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
}

void ShowLedger(Program& program)
{
    const bool reloads = program.CashBook.LedgerReloadPending;
    if (reloads)
        LoadPending(program);
    else
        SortCurrentLedger(program);
    ShowLedgerRows(program);
    if (reloads)
        ShowLedgerRow(program, -1); // the last bookings are the ones that are looked for
    ShowCashBookMarks(program);
    RunStep(program, ShowOverview);
    ShowPaidMarks(program);
}

void SaveLedger(Program& program)
{
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
    attempt([&] { SaveLedger(program); });
    const bool bank_is_shown = ShownAccount(program) == Account::Bank;
    const Account other = bank_is_shown ? Account::CashBox : Account::Bank;
    const bool unsaved = LedgerOf(book, other).Unsaved;
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
