// What the tab "Einstellungen" does: loading, saving, putting back, picking a date. The tab itself
// is built in settings_form.cpp.
#include "settings/settings_form.h"

#include "app/program.h"
#include "cashbook/ledger_view_form.h"
#include "data/dates.h"
#include "settings/settings_marks_form.h"
#include "settings/texts.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringListModel>

#include <algorithm>

namespace {

/// The price half of the tab as it stands on the screen.
PriceSettings ReadPriceFields(const SettingsForm& form)
{
    PriceSettings typed;
    for (std::size_t i = 0; i < form.Text4.size(); ++i)
        PriceText(typed, i) = form.Text4[i]->text();
    typed.BillingDate = form.Label7->text();
    typed.ElectricityPrepayment = form.Check1->isChecked() ? 1 : 0;
    typed.WaterPrepayment = form.Check2->isChecked() ? 1 : 0;
    return typed;
}

void ShowPriceFields(const SettingsForm& form, const PriceSettings& prices)
{
    for (std::size_t i = 0; i < form.Text4.size(); ++i)
        form.Text4[i]->setText(PriceText(prices, i));
    form.Label7->setText(prices.BillingDate);
    form.Check1->setChecked(prices.ElectricityPrepayment == 1);
    form.Check2->setChecked(prices.WaterPrepayment == 1);
}

BankSettings ReadBankFields(const SettingsForm& form)
{
    BankSettings typed;
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        BankText(typed, i) = form.Text6[i]->text();
    typed.TreasurerSalutation = form.C1->currentText();
    return typed;
}

void ShowBankFields(const SettingsForm& form, const BankSettings& bank)
{
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        form.Text6[i]->setText(BankText(bank, i));
    form.C1->setCurrentIndex(form.C1->findText(bank.TreasurerSalutation, Qt::MatchFixedString));
    form.C1->setEditText(bank.TreasurerSalutation); // any text, not only those of the list
}

/// What the fields hold is what lies in the file.
void TakePrices(Program& program, const PriceSettings& prices)
{
    program.Prices = prices;
    for (std::size_t i = 0; i < PriceCount; ++i)
        program.Settings.SavedPrices[i] = PriceText(prices, i);
    program.Settings.DeclinedPrices.fill({});
    program.Settings.SavedBillingDate = prices.BillingDate;
    program.Settings.SavedDeadline = prices.PaymentDeadline;
}

void TakeBank(Program& program, const BankSettings& bank)
{
    program.Bank = bank;
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        program.Settings.SavedBank[i] = BankText(bank, i);
}

/// Says in the error what it means for the settings; the file routines do not know it.
template <typename Routine> auto WithConsequence(const QString& consequence, Routine routine)
{
    try {
        return routine();
    } catch (RuntimeError& error) {
        error.where.remedy = (consequence + QLatin1Char(' ') + error.where.remedy).trimmed();
        throw;
    }
}

/// The prices are shown and in force before the carry-over is written: in a folder that cannot be
/// written the year's bills are right all the same.
void LoadPrices(Program& program)
{
    const QString& year = program.Year.YearText;
    const LoadedPrices loaded = WithConsequence(PricesNotRead, [&] {
        return ReadPrices(
            program.Files, year, program.Year.YearNumber, ReadPriceFields(program.SettingsTab));
    });
    ShowPriceFields(program.SettingsTab, loaded.Prices);
    TakePrices(program, loaded.Prices);
    if (loaded.CarriedOver)
        WithConsequence(
            CarryOverNotWritten, [&] { WriteCarriedOver(program.Files, year, loaded.Prices); });
}

void LoadBank(Program& program)
{
    const BankSettings bank = WithConsequence(
        BankNotRead, [&] { return ReadBank(program.Files, ReadBankFields(program.SettingsTab)); });
    ShowBankFields(program.SettingsTab, bank);
    TakeBank(program, bank);
}

void TellSaved(Program& program)
{
    MessageBox box;
    box.text = SettingsSavedMessage;
    box.title = SettingsSavedTitle;
    program.Ask(box);
}

} // namespace

void LoadSettings(Program& program)
{
    WithErrorBox(program.Errors, program.Ask, [&program] { LoadPrices(program); });
    WithErrorBox(program.Errors, program.Ask, [&program] { LoadBank(program); });
    ShowAccountTitle(program); // it names the bank
    ShowSettingsMarks(program);
}

void SavePriceSettings(Program& program)
{
    PriceSettings typed = ReadPriceFields(program.SettingsTab);
    PriceSettings stored = typed;
    stored.BillingDate = program.Prices.BillingDate; // the dates in force, not those shown
    stored.PaymentDeadline = program.Prices.PaymentDeadline;
    WithConsequence(
        SettingsNotSaved, [&] { WritePrices(program.Files, program.Year.YearText, stored); });

    typed.PreviousElectricityPrice = program.Prices.PreviousElectricityPrice;
    typed.PreviousWaterPrice = program.Prices.PreviousWaterPrice;
    TakePrices(program, typed);
    DrawStatementPages(program);
    program.Settings.SettingsSaved = true;
    program.Settings.PricesEdited = false;
    ShowSettingsMarks(program);
    TellSaved(program);
}

void SaveBankSettings(Program& program)
{
    const BankSettings typed = ReadBankFields(program.SettingsTab);
    WithConsequence(SettingsNotSaved, [&] { WriteBank(program.Files, typed); });

    TakeBank(program, typed);
    DrawStatementPages(program);
    ShowAccountTitle(program);
    program.Settings.SettingsSaved = true;
    program.Settings.PricesEdited = PricesDiffer(program); // the salutation is saved now
    ShowSettingsMarks(program);
    TellSaved(program);
}

void SaveSalutation(Program& program)
{
    const QString typed = program.SettingsTab.C1->currentText();
    if (typed == program.Bank.TreasurerSalutation)
        return;
    WithConsequence(SettingsNotSaved, [&] { WriteSalutation(program.Files, typed); });
    program.Bank.TreasurerSalutation = typed;
    DrawStatementPages(program); // it stands on every bill
    ShowSettingsMarks(program);
}

void RestoreSettingsFields(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const SettingsState& state = program.Settings;
    for (std::size_t i = 0; i < form.Text4.size(); ++i) {
        if (!state.SavedPrices[i].isEmpty()) // an empty saved text leaves the field as it is
            form.Text4[i]->setText(state.SavedPrices[i]);
    }
    for (std::size_t i = 0; i < BankFieldCount; ++i) {
        if (!state.SavedBank[i].isEmpty())
            form.Text6[i]->setText(state.SavedBank[i]);
    }
    form.Check1->setChecked(program.Prices.ElectricityPrepayment == 1);
    form.Check2->setChecked(program.Prices.WaterPrepayment == 1);
    program.CashBook.LedgerChanged = false;
    program.Settings.PricesEdited = false;
    ShowSettingsMarks(program);
}

namespace {

void SetYear(QCalendarWidget* calendar, int year)
{
    const QDate shown = calendar->selectedDate();
    const int days = QDate(year, shown.month(), 1).daysInMonth();
    const QDate moved(year, shown.month(), std::min(shown.day(), days));
    const QSignalBlocker silent(calendar);
    if (moved.isValid())
        calendar->setSelectedDate(moved);
}

} // namespace

void ShowSettingsYear(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const QString& year = program.Year.YearText;
    form.Label4->setText(QStringLiteral("Preise für das Jahr ") + year);
    SetYear(form.Calendar1, year.toInt());
    SetYear(form.Calendar2, year.toInt());
}

void SetSettingsCalendarsToToday(Program& program)
{
    for (QCalendarWidget* calendar :
        { program.SettingsTab.Calendar1, program.SettingsTab.Calendar2 }) {
        const QSignalBlocker silent(calendar);
        calendar->setSelectedDate(program.Today());
    }
}

void OfferContactNames(Program& program)
{
    program.SettingsTab.ContactNames->setStringList(program.Members.NameList);
    ShowSettingsMarks(program);
}

void PickBillingDate(Program& program, const QDate& date)
{
    program.Settings.SettingsSaved = false;
    program.Settings.PricesEdited = true;
    program.SettingsTab.Label7->setText(ShortDate(date));
    program.Prices.BillingDate = program.SettingsTab.Label7->text();
    ShowSettingsMarks(program);
}

void PickPaymentDeadline(Program& program, const QDate& date)
{
    program.Settings.SettingsSaved = false;
    program.Settings.PricesEdited = true;
    QLineEdit* deadline = program.SettingsTab.Text4[DeadlineField];
    deadline->setText(ShortDate(date));
    program.Prices.PaymentDeadline = deadline->text();
    ShowSettingsMarks(program);
}
