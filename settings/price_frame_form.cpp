#include "settings/price_frame_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/dates.h"
#include "settings/billing_dates_form.h"
#include "settings/texts.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QLineEdit* MakePriceField(QWidget* parent, std::size_t index)
{
    const PriceRow& price = PriceTable().at(index);
    QLineEdit* field = MakeField(
        parent, FieldKind::Amount, AmountCharacters, price.Caption.trimmed(), price.Unit);
    field->setMaximumWidth(field->minimumWidth());
    field->setToolTip(price.Unit);
    return Named(field, u"Text4"_s, static_cast<int>(index));
}

QGridLayout* BuildPriceColumn(SettingsForm& form, QWidget* frame)
{
    auto* grid = new QGridLayout;
    grid->setSpacing(FrameSpacing);
    for (std::size_t i = 0; i < PriceCount; ++i) {
        form.Text4[i] = MakePriceField(frame, i);
        AddRow(grid, PriceTable().at(i).Caption, form.Text4[i]);
    }
    form.Text4[PriceCount - 1]->setToolTip(
        u"Euro. Wird gespeichert und in das nächste Jahr übernommen, aber nicht "
        "berechnet. Nach einem Neustart ist das Feld leer: Ein Speichern ersetzt "
        "dann den alten Betrag."_s);
    form.Check1 = Named(new QCheckBox(u"Vorauszahlung Strom"_s, frame), u"Check1"_s);
    form.Check2 = Named(new QCheckBox(u"Vorauszahlung Wasser"_s, frame), u"Check2"_s);
    KeepOutlineClear(form.Check1);
    KeepOutlineClear(form.Check2);
    grid->addWidget(form.Check1, grid->rowCount(), 0, 1, 2);
    grid->addWidget(form.Check2, grid->rowCount(), 0, 1, 2);
    LeaveRoomBeside(grid);
    return grid;
}

QLabel* MakeHeading(QWidget* parent)
{
    QLabel* heading = Named(MakeCaption(parent, u"Preise für das Jahr"_s), u"Label4"_s);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    return heading;
}

void PriceEdited(Program& program)
{
    CountAsEdited(program.Settings, SettingsQuestion::Prices);
    ShowPriceMarks(program);
}

void ConnectCalendar(
    Program& program, QCalendarWidget* calendar, void (*pick)(Program&, const QDate&))
{
    On(program, calendar, &QCalendarWidget::clicked, pick);
    On(program, calendar, &QCalendarWidget::activated, pick);
}

/// Marks follow every text, typed or set by code; edits are only what the user does.
void ConnectPriceFrame(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    for (std::size_t i = 0; i < PriceCount; ++i) {
        On(program, form.Text4[i], &QLineEdit::textEdited, PriceEdited);
        On(program, form.Text4[i], &QLineEdit::textChanged, ShowPriceMarks);
    }
    On(program, form.Check1, &QCheckBox::clicked, PriceEdited);
    On(program, form.Check2, &QCheckBox::clicked, PriceEdited);
    ConnectCalendar(program, form.Calendar1, PickBillingDate);
    ConnectCalendar(program, form.Calendar2, PickPaymentDeadline);
    On(program, form.Command5, &QPushButton::clicked, SavePriceSettings);
}

void ShowPriceFields(const SettingsForm& form, const PriceSettings& prices)
{
    for (std::size_t i = 0; i < form.Text4.size(); ++i)
        form.Text4[i]->setText(PriceText(prices, i));
    form.Label7->setText(prices.BillingDate);
    form.Check1->setChecked(prices.ElectricityPrepayment == 1);
    form.Check2->setChecked(prices.WaterPrepayment == 1);
}

/// What the fields hold is what lies in the file.
void TakePrices(Program& program, const PriceSettings& prices)
{
    program.Prices = prices;
    program.Settings.SavedPrices = prices;
    program.Settings.DeclinedPrices.reset();
}

} // namespace

PriceFrame BuildPriceFrame(Program& program, QWidget* parent)
{
    SettingsForm& form = program.SettingsTab;
    QGroupBox* frame = MakeFrame(parent, u"Kosten"_s);
    form.Label4 = MakeHeading(frame);
    auto* columns = new QBoxLayout(QBoxLayout::LeftToRight);
    columns->setSpacing(3 * FrameSpacing);
    columns->addLayout(BuildPriceColumn(form, frame));
    columns->addLayout(BuildBillingDates(program, frame), 1);
    form.PricesMark = MakeMark(frame, u"PricesMark"_s);
    form.Command5 = MakeSaveButton(frame, u"Command5"_s, u"Preise speichern"_s,
        u"Speichert Preise, beide Daten und die Vorauszahlungen (Strg+S)"_s);

    QGridLayout* grid = GridOf(frame);
    grid->addWidget(form.Label4, 0, 0);
    grid->addLayout(columns, 1, 0);
    grid->addWidget(MakeYearNote(program, frame, YearNoteKind::Save, u"YearNotePrices"_s), 2, 0);
    AddSaveRow(grid, form.PricesMark, form.Command5);
    grid->setColumnStretch(1, 1); // the button stays with the calendars in a wide frame
    ConnectPriceFrame(program);
    return { frame, columns };
}

PriceSettings ReadPriceFields(const Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    PriceSettings typed = program.Settings.SavedPrices; // last year's prices stand in no field
    for (std::size_t i = 0; i < form.Text4.size(); ++i)
        PriceText(typed, i) = form.Text4[i]->text();
    typed.BillingDate = form.Label7->text();
    typed.ElectricityPrepayment = form.Check1->isChecked() ? 1 : 0;
    typed.WaterPrepayment = form.Check2->isChecked() ? 1 : 0;
    return typed;
}

bool PricesDiffer(const Program& program)
{
    return ReadPriceFields(program) != program.Settings.SavedPrices;
}

void ShowPriceMarks(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const PriceSettings shown = ReadPriceFields(program);
    const PriceSettings& saved = program.Settings.SavedPrices;
    for (std::size_t i = 0; i < PriceCount; ++i)
        MarkUnsaved(form.Text4[i], PriceText(shown, i) != PriceText(saved, i));
    ShowDateMarks(program);
    MarkUnsaved(form.Check1, shown.ElectricityPrepayment != saved.ElectricityPrepayment);
    MarkUnsaved(form.Check2, shown.WaterPrepayment != saved.WaterPrepayment);
    form.PricesMark->setVisible(shown != saved);
    ShowUnsaved(program);
}

void LoadPrices(Program& program)
{
    const QString& year = program.Year.YearText;
    const LoadedPrices loaded = WithConsequence(PricesNotRead, [&] {
        return ReadPrices(program.Files, year, program.Year.YearNumber, ReadPriceFields(program));
    });
    ShowPriceFields(program.SettingsTab, loaded.Prices);
    TakePrices(program, loaded.Prices);
    if (loaded.CarriedOver)
        WithConsequence(
            CarryOverNotWritten, [&] { WriteCarriedOver(program.Files, year, loaded.Prices); });
}

void SavePriceSettings(Program& program) // Command5, "Speichern"
{
    const PriceSettings typed = ReadPriceFields(program);
    PriceSettings stored = typed;
    stored.BillingDate = program.Prices.BillingDate; // the dates in force, not those shown
    stored.PaymentDeadline = program.Prices.PaymentDeadline;
    WithConsequence(
        SettingsNotSaved, [&] { WritePrices(program.Files, program.Year.YearText, stored); });

    TakePrices(program, typed);
    DrawStatementPages(program);
    CountAsSaved(program.Settings);
    ShowPriceMarks(program);
    Tell(program.Ask, SettingsSavedTitle, SettingsSavedMessage);
}

void RestorePriceFields(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const PriceSettings& saved = program.Settings.SavedPrices;
    for (std::size_t i = 0; i < PriceCount; ++i) {
        if (!PriceText(saved, i).isEmpty()) // an empty saved text leaves the field as it is
            form.Text4[i]->setText(PriceText(saved, i));
    }
    form.Check1->setChecked(saved.ElectricityPrepayment == 1);
    form.Check2->setChecked(saved.WaterPrepayment == 1);
    ShowPriceMarks(program);
}

void ShowSettingsYear(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const QString& year = program.Year.YearText;
    form.Label4->setText(u"Preise für das Jahr "_s + year);
    SetSettingsCalendarsToYear(program, year.toInt());
}

void PickBillingDate(Program& program, const QDate& date) // Calendar1
{
    CountAsEdited(program.Settings, SettingsQuestion::Prices);
    program.SettingsTab.Label7->setText(ShortDate(date));
    program.Prices.BillingDate = program.SettingsTab.Label7->text();
    ShowPriceMarks(program);
}

void PickPaymentDeadline(Program& program, const QDate& date) // Calendar2
{
    CountAsEdited(program.Settings, SettingsQuestion::Prices);
    QLineEdit* deadline = program.SettingsTab.Text4[DeadlineField];
    deadline->setText(ShortDate(date));
    program.Prices.PaymentDeadline = deadline->text();
    ShowPriceMarks(program);
}

void FocusFirstPrice(const Program& program)
{
    program.SettingsTab.Text4.at(ElectricityPriceField)->setFocus(Qt::ShortcutFocusReason);
}
