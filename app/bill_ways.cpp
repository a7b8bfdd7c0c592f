#include "app/bill_ways.h"

#include "app/follow_link.h"
#include "app/program.h"
#include "controls/fields.h"
#include "statement/page_places.h"
#include "statement/statement_pages.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

qsizetype ShownMember(const Program& program) { return program.Statement.ShownPage - 1; }

void ShowBill(Program& program, int member)
{
    if (member >= 0)
        FollowLink(program, { LinkKind::BillPage, {}, member });
}

/// An entry of the control's context menu, with keys that work while the control has the focus.
template <typename Routine>
void AddWay(Program& program, QWidget* control, const QString& caption,
    const QList<QKeySequence>& keys, Routine routine)
{
    auto* action = new QAction(caption, control);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    control->addAction(action);
    control->setContextMenuPolicy(Qt::ActionsContextMenu);
    On(program, action, &QAction::triggered, routine);
}

QList<QKeySequence> ControlEnter()
{
    constexpr int control = Qt::CTRL;
    return { QKeySequence(control | Qt::Key_Return), QKeySequence(control | Qt::Key_Enter) };
}

void AddWaysToBills(Program& program)
{
    const QString caption = u"Abrechnung zeigen"_s;
    AddWay(program, program.NameLists.List1, caption, ControlEnter(),
        [](Program& p) { ShowBill(p, p.NameLists.List1->currentRow()); });
    AddWay(program, program.NameLists.ListView2, caption, ControlEnter(), [](Program& p) {
        const QTreeWidget* overview = p.NameLists.ListView2;
        ShowBill(p, overview->indexOfTopLevelItem(overview->currentItem()));
    });
    AddWay(program, program.CashBookTab.List4, caption, ControlEnter(),
        [](Program& p) { ShowBill(p, p.CashBookTab.List4->currentRow()); });
}

// --- on the page --------------------------------------------------------------------------------

void GoToMemberOfPage(Program& program)
{
    FollowLink(program, { LinkKind::Member, u"Text3(0)"_s, ShownMember(program) });
}

void ChooseThisPage(Program& program)
{
    const QString page = QString::number(program.Statement.ShownPage);
    program.PrintFrame.Text8From->setText(page);
    program.PrintFrame.Text8To->setText(page);
    program.PrintFrame.Command6->setFocus();
}

/// The control that the text at a place of the viewport comes from; empty: none.
QString ControlAt(Program& program, const QPointF& place)
{
    const StatementForm& form = program.StatementPreview;
    const QPointF on_page
        = (place - form.P2->pos()) * PageWidth / qMax(1, form.P2->width()); // at any zoom
    const PageContents contents = ContentsOfPage(program.Statement, ShownMember(program));
    const int x = qRound(on_page.x());
    const int y = qRound(on_page.y());
    QString element = ElementAt(contents.member, x, y);
    if (element.isEmpty() && contents.fixed != nullptr)
        element = ElementAt(*contents.fixed, x, y);
    return ControlOfElement(element);
}

bool PageDoubleClicked(Program& program, QEvent& event)
{
    const QString control = ControlAt(program, static_cast<const QMouseEvent&>(event).position());
    if (control.isEmpty())
        return false;
    const bool price = control.startsWith(u"Text4"_s);
    FollowLink(program,
        price ? LinkTarget { LinkKind::Control, control, -1 }
              : LinkTarget { LinkKind::Member, control, ShownMember(program) });
    return true;
}

// --- names in the preview -----------------------------------------------------------------------

QListWidget* NamesOver(const Program& program)
{
    return program.StatementPreview.Desk->findChild<QListWidget*>(u"PageNames"_s);
}

void NameChosen(Program& program, QListWidgetItem* item)
{
    QListWidget* names = NamesOver(program);
    const int member = names->row(item);
    names->hide();
    ShowBill(program, member);
}

/// Escape and a click elsewhere leave the list; the page has the focus again.
bool NamesLeft(Program& program, QEvent& event)
{
    if (event.type() == QEvent::KeyPress
        && static_cast<const QKeyEvent&>(event).key() != Qt::Key_Escape)
        return false;
    NamesOver(program)->hide();
    if (event.type() == QEvent::KeyPress)
        program.StatementPreview.P1->setFocus();
    return event.type() == QEvent::KeyPress;
}

void BuildNamesOver(Program& program)
{
    auto* names = Named(new QListWidget(program.StatementPreview.Desk), u"PageNames"_s);
    names->setAccessibleName(u"Abrechnung von"_s);
    MakeRowsRoomy(names);
    names->hide();
    On(program, names, &QListWidget::itemActivated, NameChosen);
    OnEvent(program, names, QEvent::KeyPress, NamesLeft);
    OnEvent(program, names, QEvent::FocusOut, NamesLeft);
}

/// A letter typed on the page begins the search for a name.
bool PageKeyPressed(Program& program, QEvent& event)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    const bool letter = key.text().size() == 1 && key.text().front().isLetter();
    const bool with_control = key.modifiers().testFlag(Qt::ControlModifier);
    if (!letter || with_control || program.Members.NameList.isEmpty())
        return false;
    QListWidget* names = NamesOver(program);
    names->clear();
    names->addItems(program.Members.NameList);
    names->setCurrentRow(static_cast<int>(ShownMember(program)));
    const QWidget* page = program.StatementPreview.P1;
    names->setGeometry(page->x(), page->y(), page->width() / 2, page->height() * 2 / 3);
    names->show();
    names->raise();
    names->setFocus();
    names->keyboardSearch(key.text());
    return true;
}

} // namespace

void BuildBillWays(Program& program)
{
    AddWaysToBills(program);
    QWidget* page = program.StatementPreview.P1;
    AddWay(program, page, u"Zum Mitglied"_s, ControlEnter(), GoToMemberOfPage);
    AddWay(program, page, u"Nur diese Seite drucken"_s, {}, ChooseThisPage);
    BuildNamesOver(program);
    OnEvent(program, page, QEvent::MouseButtonDblClick, PageDoubleClicked);
    OnEvent(program, page, QEvent::KeyPress, PageKeyPressed);
}
