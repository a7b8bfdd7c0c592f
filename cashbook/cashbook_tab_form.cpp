// Arranges the frames of the tab "Kontoführung": the account and its table above, below them the
// booking that is typed and the lists that fill its fields.
#include "cashbook/cashbook_tab_form.h"

#include "app/program.h"
#include "cashbook/booking_buttons_form.h"
#include "cashbook/booking_form.h"
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_search_form.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/payment_lists_form.h"
#include "cashbook/replace_row_form.h"
#include "controls/fields.h"
#include "controls/stacking.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

namespace {

QHBoxLayout* ArrangeHead(Program& program, QWidget* tab)
{
    QHBoxLayout* head = BuildLedgerHead(program, tab);
    head->addWidget(BuildAccountSwitch(program, tab));
    return head;
}

QHBoxLayout* ArrangeBooking(Program& program, QWidget* tab)
{
    auto* booking = new QHBoxLayout;
    booking->setSpacing(TabSpacing);
    booking->addWidget(BuildCalendar(program, tab));
    QFrame* frame = BuildBookingFrame(program, tab);
    auto* grid = static_cast<QGridLayout*>(frame->layout());
    grid->addWidget(BuildReplaceRow(program, frame), grid->rowCount(), 0, 1, -1);
    grid->addWidget(
        MakeYearNote(program, frame, YearNoteKind::Save, QStringLiteral("YearNoteLedger")),
        grid->rowCount(), 0, 1, -1);
    grid->addLayout(BuildLedgerButtons(program, frame), grid->rowCount(), 0, 1, -1);
    booking->addWidget(frame, 1);
    return booking;
}

QHBoxLayout* ArrangeLists(Program& program, QWidget* tab)
{
    auto* lists = new QHBoxLayout;
    lists->setSpacing(TabSpacing);
    lists->addLayout(BuildPayees(program, tab), 1);
    lists->addLayout(BuildNames(program, tab), 1);
    return lists;
}

/// The way out of what was begun last: the search while words are typed, then the replacing.
void EscapePressed(Program& program)
{
    if (program.CashBook.LedgerEditMode && !IsSearching(program))
        StopReplacing(program);
    else
        CloseLedgerSearch(program);
}

} // namespace

void BuildCashBookTab(Program& program, QWidget* tab)
{
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    column->setSpacing(TabSpacing);
    column->addLayout(ArrangeHead(program, tab));
    column->addWidget(
        MakeYearNote(program, tab, YearNoteKind::Balance, QStringLiteral("YearNoteBalance")));
    column->addWidget(BuildLedgerSearch(program, tab));
    column->addWidget(BuildLedgerView(program, tab), 1);
    auto* below = new QBoxLayout(QBoxLayout::LeftToRight);
    below->setSpacing(TabSpacing);
    below->addLayout(ArrangeBooking(program, tab), 5);
    below->addLayout(ArrangeLists(program, tab), 3);
    column->addLayout(below);
    StackWhenNarrow(below, below, tab);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), tab);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    On(program, escape, &QShortcut::activated, EscapePressed);
}
