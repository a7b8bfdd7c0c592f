#include "settings/settings_marks_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "data/dates.h"
#include "settings/texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr std::size_t first_contact = 3; // Text6(3) and Text6(4)
constexpr std::size_t second_contact = 4;

bool PriceDiffers(const Program& program, std::size_t index)
{
    return program.SettingsTab.Text4[index]->text() != program.Settings.SavedPrices[index];
}

bool BillingDateDiffers(const Program& program)
{
    return program.SettingsTab.Label7->text() != program.Settings.SavedBillingDate;
}

bool DeadlineDiffers(const Program& program)
{
    return program.SettingsTab.Text4[DeadlineField]->text() != program.Settings.SavedDeadline;
}

bool BoxDiffers(const QCheckBox* box, qint16 flag) { return box->isChecked() != (flag == 1); }

bool BankTextDiffers(const Program& program, std::size_t index)
{
    return program.SettingsTab.Text6[index]->text() != program.Settings.SavedBank[index];
}

bool SalutationDiffers(const Program& program)
{
    return program.SettingsTab.C1->currentText() != program.Bank.TreasurerSalutation;
}

/// A field that is tinted as wrong stays so: that tint is the louder one and set by the field.
void MarkUnsaved(QWidget* field, bool differs)
{
    if (TintOf(field) != TintKind::Wrong)
        Tint(field, differs ? TintKind::Unsaved : TintKind::None, UnsavedTip);
}

void MarkWrongOrUnsaved(QWidget* field, bool wrong, const QString& tip, bool differs)
{
    Tint(field, TintKind::None);
    if (wrong)
        Tint(field, TintKind::Wrong, tip);
    MarkUnsaved(field, differs);
}

bool IsNoDate(const QString& text) { return !text.isEmpty() && !ParseDate(text).has_value(); }

/// True when the bill would not find this contact. Before members are loaded nobody is unknown.
bool IsUnknownContact(const Program& program, const QString& contact)
{
    const QStringList& names = program.Members.NameList;
    if (contact.isEmpty() || names.isEmpty())
        return false;
    const QString surname_and_first_name = contact.section(QLatin1Char(','), 0, 1);
    return !names.contains(surname_and_first_name);
}

void MarkPrices(const Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (std::size_t i = 0; i < PriceCount; ++i)
        MarkUnsaved(form.Text4[i], PriceDiffers(program, i));
    QLineEdit* deadline = form.Text4[DeadlineField];
    MarkWrongOrUnsaved(deadline, IsNoDate(deadline->text()), NoDateTip, DeadlineDiffers(program));
    MarkWrongOrUnsaved(
        form.Label7, IsNoDate(form.Label7->text()), NoDateTip, BillingDateDiffers(program));
    MarkUnsaved(form.Check1, BoxDiffers(form.Check1, program.Prices.ElectricityPrepayment));
    MarkUnsaved(form.Check2, BoxDiffers(form.Check2, program.Prices.WaterPrepayment));
    form.PricesMark->setVisible(PricesDiffer(program));
}

void MarkBank(const Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (std::size_t i = 0; i < BankFieldCount; ++i) {
        const bool is_contact = i == first_contact || i == second_contact;
        const bool wrong = is_contact && IsUnknownContact(program, form.Text6[i]->text());
        MarkWrongOrUnsaved(form.Text6[i], wrong, UnknownContactTip, BankTextDiffers(program, i));
    }
    MarkUnsaved(form.C1->lineEdit(), SalutationDiffers(program));
    form.BankMark->setVisible(BankDiffers(program));
}

} // namespace

bool PricesDiffer(const Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (std::size_t i = 0; i < PriceCount; ++i) {
        if (PriceDiffers(program, i))
            return true;
    }
    return BillingDateDiffers(program) || DeadlineDiffers(program)
        || BoxDiffers(form.Check1, program.Prices.ElectricityPrepayment)
        || BoxDiffers(form.Check2, program.Prices.WaterPrepayment);
}

bool BankDiffers(const Program& program)
{
    for (std::size_t i = 0; i < BankFieldCount; ++i) {
        if (BankTextDiffers(program, i))
            return true;
    }
    return SalutationDiffers(program);
}

void ShowSettingsMarks(Program& program)
{
    MarkPrices(program);
    MarkBank(program);
}
