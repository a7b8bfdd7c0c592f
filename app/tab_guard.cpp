#include "app/tab_guard.h"

#include "app/program.h"
#include "app/texts.h"
#include "cashbook/ledger_form.h"
#include "settings/settings_marks_form.h"

#include <QCoreApplication>
#include <QLineEdit>
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

/// Texts that were answered with "Nein" and stayed in their field, because the saved text is empty,
/// are not asked about again.
bool PriceTextDiffers(const Program& program)
{
    const SettingsState& state = program.Settings;
    for (std::size_t i = 0; i < state.DeclinedPrices.size(); ++i) {
        const QString text = program.SettingsTab.Text4[i]->text();
        if (text != state.SavedPrices[i] && text != state.DeclinedPrices[i])
            return true;
    }
    return false;
}

/// The bank's "Speichern" counts everything as saved, a ticked box or a date beside it is not.
bool PricesAreUnsaved(const Program& program)
{
    const SettingsState& state = program.Settings;
    return (state.PricesEdited && (!state.SettingsSaved || PricesDiffer(program)))
        || PriceTextDiffers(program);
}

void DeclinePrices(Program& program)
{
    RestoreSettingsFields(program);
    for (std::size_t i = 0; i < program.Settings.DeclinedPrices.size(); ++i)
        program.Settings.DeclinedPrices[i] = program.SettingsTab.Text4[i]->text();
}

/// True when the question was asked; the guard ends with it then.
bool AskForPrices(Program& program)
{
    if (!PricesAreUnsaved(program))
        return false;
    if (Confirmed(program, AskSavePrices)) {
        SavePriceSettings(program);
        SaveSalutation(program);
    } else {
        DeclinePrices(program);
    }
    program.Settings.SettingsSaved = true;
    return true;
}

/// True when the question was asked.
bool AskForBank(Program& program)
{
    for (std::size_t i = 0; i < 6; ++i) {
        const QString typed = program.SettingsTab.Text6[i]->text();
        if (program.Settings.SavedBank[i] == typed)
            continue;
        if (Confirmed(program, AskSaveBank)) {
            SaveBankSettings(
                program); // takes every field into the saved array once the file is written
        } else {
            RestoreSettingsFields(program);
        }
        program.Settings.SettingsSaved = true;
        return true;
    }
    return false;
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
    if (program.CashBook.BankUnsaved || program.CashBook.CashBoxUnsaved)
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
