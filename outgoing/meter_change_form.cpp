#include "outgoing/meter_change_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "outgoing/meter_change.h"

#include <QButtonGroup>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int reading_characters = 12;

/// The controls of the dialog.
struct MeterChangeForm {
    QRadioButton* Electricity = nullptr;
    QRadioButton* Water = nullptr;
    QLineEdit* Start = nullptr; ///< of the year, only shown
    QLineEdit* OldOut = nullptr;
    QLineEdit* NewIn = nullptr;
    QLabel* Consumption = nullptr;
    QLabel* NewStart = nullptr;
    QLabel* Sentence = nullptr; ///< what is in the way
    QPushButton* Enter = nullptr;
};

MeterChangeForm FormOf(const QDialog* dialog)
{
    return { Find<QRadioButton>(dialog, u"MeterElectricity"_s),
        Find<QRadioButton>(dialog, u"MeterWater"_s), Find<QLineEdit>(dialog, u"MeterStart"_s),
        Find<QLineEdit>(dialog, u"MeterOldOut"_s), Find<QLineEdit>(dialog, u"MeterNewIn"_s),
        Find<QLabel>(dialog, u"MeterConsumption"_s), Find<QLabel>(dialog, u"MeterNewStart"_s),
        Find<QLabel>(dialog, u"MeterSentence"_s), Find<QPushButton>(dialog, u"MeterEnter"_s) };
}

/// The field of the form that the dialog reads and fills: Text1(0) or Text1(3).
QLineEdit* StartField(const Program& program, const MeterChangeForm& form)
{
    return ControlOfField(
        program.MembersTab, form.Electricity->isChecked() ? ElectricityStart : WaterStart);
}

void TintReading(QLineEdit* field, bool wrong, const QString& sentence)
{
    Tint(field, wrong ? TintKind::Wrong : TintKind::None, sentence);
}

MeterChangeResult ResultOf(const MeterChangeForm& form)
{
    return ComputeMeterChange({ form.Start->text(), form.OldOut->text(), form.NewIn->text() });
}

void ShowResult(const MeterChangeForm& form)
{
    const MeterChangeResult result = ResultOf(form);
    const QString unit = form.Electricity->isChecked() ? u"KWh"_s : u"m³"_s;
    const bool right = result.Wrong == MeterReading::None;
    form.Consumption->setText(u"Verbrauch mit dem alten Zähler: "_s
        + (right ? result.Consumption + u' ' + unit : QString()));
    form.NewStart->setText(u"Neuer Anfangsstand: "_s + result.NewStart);
    form.Sentence->setText(result.Sentence);
    TintReading(form.Start, result.Wrong == MeterReading::Start, result.Sentence);
    TintReading(form.OldOut, result.Wrong == MeterReading::OldOut, result.Sentence);
    TintReading(form.NewIn, result.Wrong == MeterReading::NewIn, result.Sentence);
    form.Enter->setEnabled(right);
}

void MeterChosen(Program& program, const MeterChangeForm& form)
{
    form.Start->setText(StartField(program, form)->text());
    ShowResult(form);
}

void EnterStart(Program& program, QDialog* dialog) // MeterEnter
{
    const MeterChangeForm form = FormOf(dialog);
    const MeterChangeResult result = ResultOf(form);
    QLineEdit* start = StartField(program, form);
    dialog->accept();
    start->setText(result.NewStart);
    Tint(start, TintKind::Unsaved, u"Zählerwechsel eingerechnet"_s);
    start->setFocus();
}

void AddMeterChoice(QDialog* dialog, QGridLayout* grid)
{
    auto* electricity = Named(new QRadioButton(u"&Strom"_s, dialog), u"MeterElectricity"_s);
    auto* water = Named(new QRadioButton(u"&Wasser"_s, dialog), u"MeterWater"_s);
    electricity->setChecked(true);
    KeepOutlineClear(electricity);
    KeepOutlineClear(water);
    auto* row = new QHBoxLayout;
    row->addWidget(electricity);
    row->addWidget(water);
    row->addStretch(1);
    grid->addLayout(row, grid->rowCount(), 0, 1, 2);
}

QLineEdit* AddReading(
    QDialog* dialog, QGridLayout* grid, FieldKind kind, const QString& name, const QString& caption)
{
    QLineEdit* field = Named(MakeField(dialog, kind, reading_characters, caption), name);
    AddRow(grid, caption, KeepNarrow(field));
    return field;
}

void AddLabel(QDialog* dialog, QGridLayout* grid, const QString& name)
{
    auto* label = Named(new QLabel(dialog), name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    grid->addWidget(label, grid->rowCount(), 0, 1, 2);
}

void AddButtons(QDialog* dialog, QGridLayout* grid)
{
    QPushButton* enter = Named(MakeButton(dialog, u"Anfangsstand eintragen"_s,
                                   u"Gespeichert wird erst mit „OK“ bei den Zählerständen."_s),
        u"MeterEnter"_s);
    enter->setDefault(true);
    QPushButton* cancel = Named(MakeButton(dialog, u"Abbrechen"_s), u"MeterCancel"_s);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(enter);
    row->addWidget(cancel);
    grid->addLayout(row, grid->rowCount(), 0, 1, 2);
}

QString MemberTitle(const Program& program)
{
    const MemberRecord fields = TypedRecord(program.MembersTab);
    const QString name = fields[Surname] + u", "_s + fields[FirstName];
    return name == u", "_s ? u"Zähler gewechselt"_s : u"Zähler gewechselt – "_s + name;
}

QDialog* BuildDialog(Program& program)
{
    auto* dialog = Named(new QDialog(program.Window.Window), u"MeterChange"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(MemberTitle(program));
    auto* grid = new QGridLayout(dialog);
    AddMeterChoice(dialog, grid);
    AddReading(dialog, grid, FieldKind::DisplayOnly, u"MeterStart"_s, u"Anfangsstand des Jahres"_s);
    AddReading(dialog, grid, FieldKind::Amount, u"MeterOldOut"_s, u"Alter Zähler beim Ausbau"_s)
        ->setFocus();
    AddReading(dialog, grid, FieldKind::Amount, u"MeterNewIn"_s, u"Neuer Zähler beim Einbau"_s)
        ->setText(u"0"_s);
    for (const QString& name : { u"MeterConsumption"_s, u"MeterNewStart"_s, u"MeterSentence"_s })
        AddLabel(dialog, grid, name);
    AddButtons(dialog, grid);
    return dialog;
}

} // namespace

void ShowMeterChange(Program& program)
{
    QDialog* dialog = BuildDialog(program);
    const MeterChangeForm form = FormOf(dialog);
    On(program, form.Electricity, &QRadioButton::toggled,
        [form](Program& p) { MeterChosen(p, form); });
    for (QLineEdit* field : { form.OldOut, form.NewIn })
        On(program, field, &QLineEdit::textChanged, [form](Program&) { ShowResult(form); });
    On(program, form.Enter, &QPushButton::clicked, [dialog](Program& p) { EnterStart(p, dialog); });
    MeterChosen(program, form);
    dialog->open(); // over the window alone; returns at once
}
