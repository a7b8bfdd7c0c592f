#include "app/tab_guard.h"

#include "app/program.h"
#include "app/texts.h"
#include "settings/settings_marks_form.h"

#include <QCoreApplication>
#include <QLineEdit>

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

void AskForBalance(Program& program)
{
    const bool save = Confirmed(program, AskSaveBalance);
    program.CashBook.LedgerChanged = false;
    if (!save)
        return;
    try {
        SaveBothLedgers(program);
    } catch (const RuntimeError&) {
        program.CashBook.LedgerChanged = true; // the bookings are still only in memory: ask again
        throw;
    }
}

bool PriceTextDiffers(const Program& program)
{
    for (std::size_t i = 0; i < 8; ++i) {
        if (program.SettingsTab.Text4[i]->text() != program.Settings.SavedPrices[i])
            return true;
    }
    return false;
}

/// True when the question was asked; the guard ends with it then.
bool AskForPrices(Program& program)
{
    const bool edited = !program.Settings.SettingsSaved && program.Settings.PricesEdited;
    if (!edited && !PriceTextDiffers(program))
        return false;
    if (Confirmed(program, AskSavePrices)) {
        SavePriceSettings(program);
        SaveSalutation(program);
    } else {
        RestoreSettingsFields(program);
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

void AskForUnsaved(Program& program)
{
    if (program.CashBook.LedgerChanged || program.CashBook.BankUnsaved
        || program.CashBook.CashBoxUnsaved)
        AskForBalance(program);
    bool asked = AskForPrices(program);
    asked = AskForBank(program) || asked;
    if (!asked)
        AskForSalutation(program);
}

void Exit(Program&)
{
    QCoreApplication::exit(
        0); // not quit(): that would close the window first, and closing asks questions
}
