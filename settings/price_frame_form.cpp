// The frame "Kosten" of the tab "Einstellungen".
#include "settings/price_frame_form.h"

#include "app/program.h"
#include "controls/calendar.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit* MakePriceField(QWidget* parent, std::size_t index)
{
    const PriceRow& price = PriceTable().at(index);
    QLineEdit* field = MakeField(
        parent, FieldKind::Amount, AmountCharacters, price.Caption.trimmed(), price.Unit);
    field->setMaximumWidth(field->minimumWidth());
    field->setToolTip(price.Unit);
    return Named(field, QStringLiteral("Text4"), static_cast<int>(index));
}

/// Where there is more room than needed it goes to the right and below, not between captions and
/// fields.
void LeaveRoomAround(QGridLayout* grid)
{
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(grid->rowCount(), 1);
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
        QStringLiteral("Euro. Wird gespeichert und in das nächste Jahr übernommen, aber nicht "
                       "berechnet. Nach einem Neustart ist das Feld leer: Ein Speichern ersetzt "
                       "dann den alten Betrag."));
    form.Check1 = Named(
        new QCheckBox(QStringLiteral("Vorauszahlung Strom"), frame), QStringLiteral("Check1"));
    form.Check2 = Named(
        new QCheckBox(QStringLiteral("Vorauszahlung Wasser"), frame), QStringLiteral("Check2"));
    grid->addWidget(form.Check1, grid->rowCount(), 0, 1, 2);
    grid->addWidget(form.Check2, grid->rowCount(), 0, 1, 2);
    LeaveRoomAround(grid);
    return grid;
}

/// A label that looks like the read-only field of the other date.
QLabel* MakeDateLabel(QWidget* parent)
{
    auto* label = Named(new QLabel(parent), QStringLiteral("Label7"));
    label->setTextFormat(Qt::PlainText);
    label->setFrameShape(QFrame::StyledPanel);
    label->setBackgroundRole(QPalette::Base);
    label->setAutoFillBackground(true);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setAccessibleName(QStringLiteral("Abrechnungsdatum"));
    return label;
}

QCalendarWidget* MakeDateCalendar(QWidget* parent, const QString& name, const QString& says)
{
    QCalendarWidget* calendar = Named(MakeCalendar(parent, says), name);
    calendar->setToolTip(
        QStringLiteral("Ein Klick oder die Eingabetaste nimmt den Tag. Bild auf und Bild ab "
                       "wechseln den Monat."));
    return calendar;
}

QGridLayout* BuildDateColumn(SettingsForm& form, QWidget* frame)
{
    form.Label7 = MakeDateLabel(frame);
    form.Calendar1 = MakeDateCalendar(
        frame, QStringLiteral("Calendar1"), QStringLiteral("Abrechnungsdatum wählen"));
    form.Text4[DeadlineField] = Named(MakeField(frame, FieldKind::DisplayOnly, DateCharacters,
                                          QStringLiteral("Einzuzahlen bis Spätestens")),
        QStringLiteral("Text4"), static_cast<int>(DeadlineField));
    form.Calendar2 = MakeDateCalendar(
        frame, QStringLiteral("Calendar2"), QStringLiteral("Einzuzahlen bis Spätestens wählen"));

    form.Text4[DeadlineField]->setMaximumWidth(form.Text4[DeadlineField]->minimumWidth());

    auto* grid = new QGridLayout;
    grid->setSpacing(FrameSpacing);
    AddRow(grid, QStringLiteral("Abrechnungsdatum"), form.Label7);
    form.Label7->setMinimumHeight(form.Text4[DeadlineField]->sizeHint().height());
    form.Label7->setMaximumWidth(form.Text4[DeadlineField]->minimumWidth());
    grid->addWidget(form.Calendar1, grid->rowCount(), 0, 1, 2);
    AddRow(grid, QStringLiteral("Einzuzahlen bis Spätestens"), form.Text4[DeadlineField]);
    grid->addWidget(form.Calendar2, grid->rowCount(), 0, 1, 2);
    LeaveRoomAround(grid);
    return grid;
}

QLabel* MakeHeading(QWidget* parent)
{
    QLabel* heading = Named(
        MakeCaption(parent, QStringLiteral("Preise für das Jahr")), QStringLiteral("Label4"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    return heading;
}

} // namespace

PriceFrame BuildPriceFrame(SettingsForm& form, QWidget* parent)
{
    QGroupBox* frame = MakeFrame(parent, QStringLiteral("Kosten"));
    form.Label4 = MakeHeading(frame);
    auto* columns = new QBoxLayout(QBoxLayout::LeftToRight);
    columns->setSpacing(3 * FrameSpacing);
    columns->addLayout(BuildPriceColumn(form, frame));
    columns->addLayout(BuildDateColumn(form, frame), 1);
    form.PricesMark = MakeMark(frame, QStringLiteral("PricesMark"));
    form.Command5
        = MakeSaveButton(frame, QStringLiteral("Command5"), QStringLiteral("Preise speichern"),
            QStringLiteral("Speichert Preise, beide Daten und die Vorauszahlungen (Strg+S)"));

    QGridLayout* grid = GridOf(frame);
    grid->addWidget(form.Label4, 0, 0);
    grid->addLayout(columns, 1, 0);
    AddSaveRow(grid, form.PricesMark, form.Command5);
    grid->setColumnStretch(1, 1); // the button stays with the calendars in a wide frame
    return { frame, columns };
}
