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

bool Confirmed(Program& program, const QString& question)
{
    MessageBox box;
    box.text = question;
    box.title = HintTitle;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    return program.Ask(box) == BoxAnswer::Yes;
}

/// What could not be saved is only in memory or in the fields, and much of what the other tabs do
/// reads the year anew: its tab comes back to the front, and the question will come again.
void KeepInFront(Program& program, Tab tab)
{
    const QSignalBlocker not_by_the_user(program.Window.SSTab1);
    program.Window.SSTab1->setCurrentIndex(tab);
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
        program.CashBook.LedgerChanged = true;
        KeepInFront(program, CashBookTab);
        throw;
    }
}

/// The "Ja" to a question for settings.
template <typename Routine> void SaveOrComeBack(Program& program, Routine save)
{
    try {
        save(program);
    } catch (const RuntimeError&) {
        KeepInFront(program, SettingsTab);
        throw;
    }
}

/// The salutation is asked about with the prices, and again while it is not in its file.
void SavePricesAndSalutation(Program& program)
{
    SavePriceSettings(program);
    CountAsEdited(program.Settings, SettingsQuestion::Prices);
    SaveSalutation(program);
    CountAsSaved(program.Settings);
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
    if (Confirmed(program, AskSavePrices))
        SaveOrComeBack(program, SavePricesAndSalutation);
    else
        DeclinePrices(program);
    return true;
}

/// True when the question was asked.
bool AskForBank(Program& program)
{
    if (!AsksForBank(program.Settings, ReadBankFields(program)))
        return false;
    if (Confirmed(program, AskSaveBank))
        SaveOrComeBack(program, SaveBankSettings);
    else
        RestoreSettingsFields(program);
    return true;
}

/// A new salutation counts as saved once the prices are; when the window closes it still is not.
void AskForSalutation(Program& program)
{
    if (BankDiffers(program) && Confirmed(program, AskSaveBank))
        SaveOrComeBack(program, SaveBankSettings);
}

} // namespace

void TabChanged(Program& program, int new_tab)
{
    if (new_tab != CashBookTab && program.CashBook.LedgerChanged)
        AskForBalance(program);
    if (new_tab == SettingsTab)
        return;
    if (!AskForPrices(program))
        AskForBank(program);
    if (new_tab == CashBookTab)
        ShowIfStale(program);
}

bool AskForUnsaved(Program& program) { return AskForUnsaved(program, AskLeaveMember); }

bool AskForUnsaved(Program& program, const QString& leave_member)
{
    if (MemberFormDiffers(program) && !Confirmed(program, leave_member))
        return false;
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
