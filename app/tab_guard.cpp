#include "app/tab_guard.h"

#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_form.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"

#include <QCoreApplication>
#include <QSignalBlocker>
#include <QTabWidget>

namespace {

constexpr int cash_book_tab = 2;
constexpr int settings_tab = 3;

bool Confirmed(Program& program, const QString& question)
{
    MessageBox box;
    box.text = question;
    box.title = HintTitle;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    return program.Ask(box) == BoxAnswer::Yes;
}

/// Bookings that could not be saved are only in memory, and much of what the other tabs do reads
/// the year anew: the cash book comes back to the front, and the question will come again.
void KeepCashBookInFront(Program& program)
{
    program.CashBook.LedgerChanged = true;
    const QSignalBlocker not_by_the_user(program.Window.SSTab1);
    program.Window.SSTab1->setCurrentIndex(cash_book_tab);
}

void AskForBalance(Program& program)
{
    const bool save = Confirmed(program, AskSaveBalance);
    program.CashBook.LedgerChanged = false;
    if (!save)
        return;
    try {
        SaveBothLedgers(program);
    } catch (const RuntimeError&) {
        KeepCashBookInFront(program);
        throw;
    }
}

void DeclinePrices(Program& program)
{
    RestoreSettingsFields(program);
    program.Settings.DeclinedPrices = ReadPriceFields(program);
}

/// True when the question was asked; the guard ends with it then.
bool AskForPrices(Program& program)
{
    if (!AsksForPrices(program.Settings, ReadPriceFields(program)))
        return false;
    if (Confirmed(program, AskSavePrices)) {
        SavePriceSettings(program);
        SaveSalutation(program);
    } else {
        DeclinePrices(program);
    }
    return true;
}

/// True when the question was asked.
bool AskForBank(Program& program)
{
    if (!AsksForBank(program.Settings, ReadBankFields(program)))
        return false;
    if (Confirmed(program, AskSaveBank)) {
        SaveBankSettings(program);
    } else {
        RestoreSettingsFields(program);
    }
    return true;
}

/// A new salutation counts as saved once the prices are; when the window closes it still is not.
void AskForSalutation(Program& program)
{
    if (BankDiffers(program) && Confirmed(program, AskSaveBank))
        SaveBankSettings(program);
}

} // namespace

void TabChanged(Program& program, int new_tab)
{
    if (new_tab != cash_book_tab && program.CashBook.LedgerChanged)
        AskForBalance(program);
    if (new_tab == settings_tab)
        return;
    if (!AskForPrices(program))
        AskForBank(program);
}

bool AskForUnsaved(Program& program)
{
    bool asked_for_settings = false;
    const auto done = [&program](const auto& question) {
        bool without_error = false;
        WithErrorBox(program.Errors, program.Ask, [&] {
            question();
            without_error = true;
        });
        return without_error;
    };
    bool all_done = true;
    if (program.CashBook.Bank.Unsaved || program.CashBook.CashBox.Unsaved)
        all_done = done([&] { AskForBalance(program); });
    all_done = done([&] { asked_for_settings = AskForPrices(program); }) && all_done;
    all_done = done([&] { asked_for_settings |= AskForBank(program); }) && all_done;
    if (all_done && !asked_for_settings)
        all_done = done([&] { AskForSalutation(program); });
    return all_done;
}

void Exit(Program&)
{
    QCoreApplication::exit(
        0); // not quit(): that would close the window first, and closing asks questions
}
