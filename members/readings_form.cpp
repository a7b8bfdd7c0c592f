#include "members/readings_form.h"

#include "app/program.h"
#include "app/texts.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "members/readings_cells_form.h"
#include "members/readings_sheet_form.h"
#include "members/readings_table.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int first_height = 600; // pixels

/// What is read anew at the end of a run must not cost bookings or a member that is being typed.
bool MayEnter(Program& program, int position)
{
    program.Window.SSTab1->setCurrentIndex(MembersTab); // its guard asks for what is unsaved
    if (program.Window.SSTab1->currentIndex() != MembersTab)
        return false;
    if (program.Member.CurrentMember == position || !MemberFormDiffers(program))
        return true;
    MessageBox box;
    box.text = AskLeaveMemberForReadings;
    box.title = HintTitle;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    return program.Ask(box) == BoxAnswer::Yes;
}

/// The bills, the lists and the form take over what was typed, all at once.
void EndRun(Program& program)
{
    if (!program.Readings.RunOpen)
        return;
    program.Readings.RunOpen = false;
    LoadYear(program);
}

void ShowSheet(Program& program)
{
    EndRun(program); // its last readings are this table's start
    ShowReadingsSheet(program);
}

QHBoxLayout* BuildBelow(Program& program, QWidget* window)
{
    ReadingsForm& form = program.Readings;
    auto* sums = new QVBoxLayout;
    for (std::size_t meter = 0; meter < Meters.size(); ++meter) {
        form.Sums.at(meter)
            = Named(MakeCaption(window, {}), u"ReadingsSum"_s, static_cast<int>(meter));
        sums->addWidget(form.Sums.at(meter));
    }
    QPushButton* sheet = Named(MakeButton(window, u"Ableseliste drucken"_s,
                                   u"Ein leeres Blatt für den Gang durch die Gärten"_s),
        u"ReadingsSheet"_s);
    QPushButton* close = Named(MakeButton(window, u"Schließen"_s, u"Esc"_s), u"ReadingsClose"_s);
    On(program, sheet, &QPushButton::clicked, ShowSheet);
    On(program, close, &QPushButton::clicked,
        [](Program& p) { p.Readings.ReadingsWindow->hide(); });
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addLayout(sums, 1);
    row->addWidget(sheet);
    row->addWidget(close);
    return row;
}

void BuildKeys(Program& program)
{
    const auto key = [&](int keys, auto routine) {
        auto* shortcut = new QShortcut(QKeySequence(keys), program.Readings.ReadingsWindow);
        On(program, shortcut, &QShortcut::activated, routine);
    };
    key(static_cast<int>(Qt::CTRL) | Qt::Key_Tab, NextMeters);
    key(Qt::Key_Escape, [](Program& p) { p.Readings.ReadingsWindow->hide(); });
}

void BuildWindow(Program& program)
{
    ReadingsForm& form = program.Readings;
    form.ReadingsWindow
        = Named(new QWidget(program.Window.Window, Qt::Window), u"ReadingsWindow"_s);
    form.ReadingsWindow->setWindowTitle(u"Ablesung – "_s + WindowCaption);
    auto* column = new QVBoxLayout(form.ReadingsWindow);
    column->setSpacing(FrameSpacing);
    QLabel* hint = MakeCaption(form.ReadingsWindow,
        u"Endstand eintippen, Enter führt zum nächsten Mitglied. Gespeichert wird jeder Wert, "
        "sobald seine Zelle verlassen ist. Strg+Tab: nur Strom, nur Wasser, beide."_s);
    hint->setWordWrap(true);
    column->addWidget(hint);
    column->addWidget(MakeYearNote(
        program, form.ReadingsWindow, YearNoteKind::Table, u"YearNoteReadingsTable"_s));
    form.ReadingsTable = BuildReadingsTable(program, form.ReadingsWindow);
    column->addWidget(form.ReadingsTable, 1);
    column->addLayout(BuildBelow(program, form.ReadingsWindow));
    BuildKeys(program);
    for (const QEvent::Type end : { QEvent::WindowDeactivate, QEvent::Hide })
        OnEvent(program, form.ReadingsWindow, end, [](Program& p, QEvent&) {
            EndRun(p);
            return false;
        });
    OnEvent(program, form.ReadingsWindow, QEvent::WindowActivate, [](Program& p, QEvent&) {
        ShowReadingsTable(p);
        return false;
    });
}

/// The whole table where the screen is wide enough for it.
void ResizeToTable(const ReadingsForm& form)
{
    QTableWidget* table = form.ReadingsTable;
    table->resizeColumnsToContents();
    const int around = 2 * table->frameWidth() + table->verticalScrollBar()->sizeHint().width()
        + 4 * FrameSpacing;
    form.ReadingsWindow->resize(SizeOnScreen(
        form.ReadingsWindow, QSize(table->horizontalHeader()->length() + around, first_height)));
}

} // namespace

void ShowReadings(Program& program)
{
    ReadingsForm& form = program.Readings;
    const bool first = form.ReadingsWindow == nullptr;
    if (first)
        BuildWindow(program);
    ShowReadingsTable(program);
    ShowMeters(program, form.Shown);
    if (first)
        ResizeToTable(form);
    ShowYearNotes(program);
    form.ReadingsWindow->show();
    form.ReadingsWindow->raise();
    form.ReadingsWindow->activateWindow();
    form.ReadingsTable->setFocus();
    GoToFirstMissing(program);
}

void ShowReadingsSums(Program& program)
{
    for (std::size_t meter = 0; meter < Meters.size(); ++meter) {
        const QString name = Meters.at(meter) == ElectricityStart ? u"Strom: "_s : u"Wasser: "_s;
        program.Readings.Sums.at(meter)->setText(
            name + ReadingsSum(program.Members, Meters.at(meter)));
    }
}

void StoreTypedReading(Program& program, int row, MemberField field, const QString& text)
{
    if (!MayEnter(program, row))
        return;
    program.Readings.RunOpen = true;
    StoreReading(program, row, field, text);
}
