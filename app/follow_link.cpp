#include "app/follow_link.h"

#include "app/program.h"
#include "cashbook/ledger_view_form.h"
#include "data/records.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

int TabOf(const Program& program, const QWidget* control)
{
    const QTabWidget* tabs = program.Window.SSTab1;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (tabs->widget(tab)->isAncestorOf(control))
            return tab;
    }
    return -1; // the head of the window
}

/// False when the tab guard kept another tab in front.
bool BringTabToFront(Program& program, int tab)
{
    QMainWindow* window = program.Window.Window;
    window->raise();
    window->activateWindow();
    if (tab < 0)
        return true;
    program.Window.SSTab1->setCurrentIndex(tab);
    return program.Window.SSTab1->currentIndex() == tab;
}

void FocusControl(const Program& program, const QString& name)
{
    auto* control = program.Window.Window->findChild<QWidget*>(name);
    if (name.isEmpty() || control == nullptr)
        return;
    control->setFocus(Qt::OtherFocusReason);
    for (QWidget* parent = control->parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (auto* scroll = qobject_cast<QScrollArea*>(parent))
            scroll->ensureWidgetVisible(control);
    }
}

bool MayLeaveMember(Program& program)
{
    if (!MemberFormDiffers(program))
        return true;
    MessageBox box;
    box.text
        = u"Die Angaben im Formular sind nicht gespeichert. Trotzdem zum Mitglied wechseln ?"_s;
    box.title = u"Prüfbericht"_s;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    return program.Ask(box) == BoxAnswer::Yes;
}

void GoToMember(Program& program, const LinkTarget& target)
{
    const bool there = target.position >= 0 && target.position < program.Members.RecordList.size();
    const bool other = there && target.position != program.Member.CurrentMember;
    if (other && !MayLeaveMember(program))
        return;
    if (!BringTabToFront(program, MembersTab))
        return;
    if (other)
        SelectMember(program, static_cast<int>(target.position));
    FocusControl(program, target.control);
}

void GoToBooking(Program& program, const LinkTarget& target, Account account)
{
    if (!BringTabToFront(program, CashBookTab))
        return;
    if (ShownAccount(program) != account)
        program.CashBookTab.Command15->click();
    if (target.position >= 0 && target.position < CurrentLedger(program).size()) {
        PickLedgerRow(program, static_cast<int>(target.position));
        ShowLedgerRow(program, target.position);
    }
    FocusControl(program, target.control.isEmpty() ? u"ListView1"_s : target.control);
}

void GoToBill(Program& program, const LinkTarget& target)
{
    if (!BringTabToFront(program, StatementTab))
        return;
    const qsizetype members = program.Members.RecordList.size();
    const qsizetype wanted = qMin(target.position, members - 1) + 1;
    while (wanted > 0 && program.Statement.ShownPage < wanted)
        NextPage(program);
    while (wanted > 0 && program.Statement.ShownPage > wanted)
        PreviousPage(program);
    FocusControl(program, target.control.isEmpty() ? u"P1"_s : target.control);
}

void GoToControl(Program& program, const LinkTarget& target)
{
    const auto* control = program.Window.Window->findChild<QWidget*>(target.control);
    if (control != nullptr && BringTabToFront(program, TabOf(program, control)))
        FocusControl(program, target.control);
}

} // namespace

void FollowLink(Program& program, const LinkTarget& target)
{
    switch (target.kind) {
    case LinkKind::None:
    case LinkKind::Action:
        return;
    case LinkKind::Tab:
        BringTabToFront(program, static_cast<int>(target.position));
        return;
    case LinkKind::Control:
        return GoToControl(program, target);
    case LinkKind::Member:
        return GoToMember(program, target);
    case LinkKind::BankRow:
        return GoToBooking(program, target, Account::Bank);
    case LinkKind::CashBoxRow:
        return GoToBooking(program, target, Account::CashBox);
    case LinkKind::BillPage:
        return GoToBill(program, target);
    }
}
