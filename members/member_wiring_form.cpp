// Which click, key and event of the tab "Stammdaten" runs which handler.
#include "app/program.h"
#include "data/records.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>

namespace {

int RowOf(const QTreeWidget* overview, QTreeWidgetItem* item)
{
    return overview->indexOfTopLevelItem(item);
}

/// A press on the row that is shown already shows the member anew, as the press on any other row.
bool NamePressed(Program& program, QEvent& event)
{
    const QListWidget* names = program.MembersTab.List1;
    const auto& press = static_cast<const QMouseEvent&>(event);
    const QListWidgetItem* pressed = names->itemAt(press.position().toPoint());
    if (pressed != nullptr && pressed == names->currentItem())
        SelectMember(program, names->currentRow());
    return false;
}

bool OverviewPressed(Program& program, QEvent& event)
{
    const QTreeWidget* overview = program.MembersTab.ListView2;
    const auto& press = static_cast<const QMouseEvent&>(event);
    QTreeWidgetItem* pressed = overview->itemAt(press.position().toPoint());
    if (pressed != nullptr && pressed == overview->currentItem())
        SelectMember(program, RowOf(overview, pressed));
    return false;
}

void ConnectLists(Program& program)
{
    const MemberForm& form = program.MembersTab;
    // the current row changes by mouse, by arrow keys and by the search as you type
    On(program, form.List1, &QListWidget::currentRowChanged, SelectMember);
    OnEvent(program, form.List1->viewport(), QEvent::MouseButtonPress, NamePressed);
    On(program, form.ListView2, &QTreeWidget::currentItemChanged,
        [](Program& p, QTreeWidgetItem* current, QTreeWidgetItem*) {
            SelectMember(p, RowOf(p.MembersTab.ListView2, current));
        });
    OnEvent(program, form.ListView2->viewport(), QEvent::MouseButtonPress, OverviewPressed);
}

void ConnectFields(Program& program)
{
    const MemberForm& form = program.MembersTab;
    for (int field = 0; field < MemberFieldCount; ++field) {
        QLineEdit* control = ControlOfField(form, field);
        On(program, control, &QLineEdit::textChanged,
            [field](Program& p) { ShowFieldState(p, field); });
        if (field >= ElectricityStart) {
            On(program, control, &QLineEdit::returnPressed,
                [](Program& p) { p.MembersTab.Command2->click(); });
            continue;
        }
        OnEvent(program, control, QEvent::MouseButtonPress, [field](Program& p, QEvent& event) {
            if (static_cast<QMouseEvent&>(event).button() == Qt::LeftButton)
                MemberFieldClicked(p, field); // the right one opens the menu, "Einfügen" for one
            return false;
        });
    }
}

void ConnectButtons(Program& program)
{
    const MemberForm& form = program.MembersTab;
    for (int index = 0; index < 2; ++index) {
        On(program, form.Command3[static_cast<std::size_t>(index)], &QPushButton::clicked,
            [index](Program& p) { StepYear(p, index); });
    }
    On(program, form.Command4, &QPushButton::clicked, LoadYear);
    On(program, form.Command14, &QPushButton::clicked, NewMember);
    On(program, form.Command1Save, &QPushButton::clicked, SaveMember);
    On(program, form.Command1Delete, &QPushButton::clicked, DeleteMember);
    On(program, form.Command2, &QPushButton::clicked, EnterReadings);
}

} // namespace

void ConnectMemberTab(Program& program)
{
    ConnectLists(program);
    ConnectFields(program);
    ConnectButtons(program);
}
