#include "settings/billing_dates_form.h"

#include "app/program.h"
#include "controls/calendar.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/dates.h"
#include "settings/texts.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A label that looks like the read-only field of the other date.
QLabel* MakeDateLabel(QWidget* parent)
{
    auto* label = Named(new QLabel(parent), u"Label7"_s);
    label->setTextFormat(Qt::PlainText);
    label->setFrameShape(QFrame::StyledPanel);
    label->setBackgroundRole(QPalette::Base);
    label->setAutoFillBackground(true);
    LookReadOnly(label);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setAccessibleName(u"Abrechnungsdatum"_s);
    return label;
}

QCalendarWidget* MakeDateCalendar(QWidget* parent, const QString& name, const QString& says)
{
    QCalendarWidget* calendar = Named(MakeCalendar(parent, says), name);
    calendar->setToolTip(u"Ein Klick oder die Eingabetaste nimmt den Tag. Bild auf und Bild ab "
                         "wechseln den Monat."_s);
    return calendar;
}

bool IsNoDate(const QString& text) { return !text.isEmpty() && !ParseDate(text).has_value(); }

void MarkDate(QWidget* field, const QString& shown, const QString& saved)
{
    MarkWrongOrUnsaved(field, IsNoDate(shown), NoDateTip, shown != saved);
}

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

QGridLayout* BuildBillingDates(Program& program, QWidget* frame)
{
    SettingsForm& form = program.SettingsTab;
    form.Label7 = MakeDateLabel(frame);
    form.Calendar1 = MakeDateCalendar(frame, u"Calendar1"_s, u"Abrechnungsdatum wählen"_s);
    form.Text4[DeadlineField] = Named(
        MakeField(frame, FieldKind::DisplayOnly, DateCharacters, u"Einzuzahlen bis Spätestens"_s),
        u"Text4"_s, static_cast<int>(DeadlineField));
    form.Calendar2
        = MakeDateCalendar(frame, u"Calendar2"_s, u"Einzuzahlen bis Spätestens wählen"_s);

    form.Text4[DeadlineField]->setMaximumWidth(form.Text4[DeadlineField]->minimumWidth());

    auto* grid = new QGridLayout;
    grid->setSpacing(FrameSpacing);
    AddRow(grid, u"Abrechnungsdatum"_s, form.Label7);
    form.Label7->setMinimumHeight(form.Text4[DeadlineField]->sizeHint().height());
    form.Label7->setMaximumWidth(form.Text4[DeadlineField]->minimumWidth());
    grid->addWidget(form.Calendar1, grid->rowCount(), 0, 1, 2);
    AddRow(grid, u"Einzuzahlen bis Spätestens"_s, form.Text4[DeadlineField]);
    grid->addWidget(form.Calendar2, grid->rowCount(), 0, 1, 2);
    LeaveRoomBeside(grid);
    return grid;
}

void ShowDateMarks(Program& program)
{
    const SettingsForm& form = program.SettingsTab;
    const PriceSettings& saved = program.Settings.SavedPrices;
    MarkDate(form.Text4[DeadlineField], form.Text4[DeadlineField]->text(), saved.PaymentDeadline);
    MarkDate(form.Label7, form.Label7->text(), saved.BillingDate);
}

void SetSettingsCalendarsToYear(Program& program, int year)
{
    SetYear(program.SettingsTab.Calendar1, year);
    SetYear(program.SettingsTab.Calendar2, year);
}

void SetSettingsCalendarsToToday(Program& program)
{
    for (QCalendarWidget* calendar :
        { program.SettingsTab.Calendar1, program.SettingsTab.Calendar2 }) {
        const QSignalBlocker silent(calendar);
        calendar->setSelectedDate(program.Today());
    }
}
