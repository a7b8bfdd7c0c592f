// Which click, key and event of the tab "Kontoführung" runs which handler.
#include "app/program.h"
#include "cashbook/ledger_model.h"

#include <QCalendarWidget>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>

#include <memory>

namespace {

bool IsPickKey(const QEvent& event)
{
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

void LedgerSelectionChanged(Program& program, const QItemSelection& selected, const QItemSelection&)
{
    if (!program.CashBookTab.MarkingByCode && !selected.isEmpty())
        PickLedgerRow(program, selected.indexes().first().row());
}

/// The row that has the focus but was never picked, or was picked before.
bool LedgerKeyPressed(Program& program, QEvent& event)
{
    const QModelIndex current = program.CashBookTab.ListView1->currentIndex();
    if (!IsPickKey(event) || !current.isValid())
        return false;
    PickLedgerRow(program, current.row());
    return true;
}

bool PayeeKeyPressed(Program& program, QEvent& event)
{
    const int position = program.CashBookTab.List9->currentRow();
    if (!IsPickKey(event) || position < 0)
        return false;
    program.CashBookTab.List9->setCurrentRow(position);
    PickPayee(program, position);
    return true;
}

bool NameKeyPressed(Program& program, QEvent& event)
{
    if (static_cast<const QKeyEvent&>(event).matches(QKeySequence::SelectAll))
        return true; // it would mark everybody as paid
    const int position = program.CashBookTab.List4->currentRow();
    if (!IsPickKey(event) || position < 0)
        return false;
    PickMember(program, position);
    return true;
}

/// Arrow keys, the search as you type and the mouse select; a click on the selected row clicks.
void ConnectLists(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    On(program, form.ListView1->selectionModel(), &QItemSelectionModel::selectionChanged,
        LedgerSelectionChanged);
    On(program, form.ListView1, &QTableView::clicked,
        [](Program& p, const QModelIndex& index) { PickLedgerRow(p, index.row()); });
    OnEvent(program, form.ListView1, QEvent::KeyPress, LedgerKeyPressed);
    OnEvent(program, form.ListView1, QEvent::FontChange, [](Program& p, QEvent&) {
        FitLedgerColumns(p);
        return false;
    });

    On(program, form.List9, &QListWidget::itemSelectionChanged, [](Program& p) {
        const QListWidget* payees = p.CashBookTab.List9;
        if (const QList<QListWidgetItem*> selected = payees->selectedItems(); !selected.isEmpty())
            PickPayee(p, payees->row(selected.first()));
    });
    On(program, form.List9, &QListWidget::itemClicked,
        [](Program& p, QListWidgetItem* item) { PickPayee(p, p.CashBookTab.List9->row(item)); });
    OnEvent(program, form.List9, QEvent::KeyPress, PayeeKeyPressed);

    On(program, form.List4, &QListWidget::itemClicked,
        [](Program& p, QListWidgetItem* item) { PickMember(p, p.CashBookTab.List4->row(item)); });
    OnEvent(program, form.List4, QEvent::KeyPress, NameKeyPressed);
}

/// The way back from another window or from the context menu: the field had the focus all along.
bool ComesBack(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

/// The whole amount is selected when the field is entered, by key or by mouse. The press that
/// enters it would set the caret, so the text is selected again when the button is let go.
void SelectOnFocus(Program& program, QLineEdit* amount)
{
    const auto pressed_in = std::make_shared<bool>(false);
    OnEvent(program, amount, QEvent::FocusIn, [amount, pressed_in](Program&, QEvent& event) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
        *pressed_in = reason == Qt::MouseFocusReason;
        if (!ComesBack(reason))
            amount->selectAll();
        return false;
    });
    OnEvent(program, amount, QEvent::MouseButtonRelease, [amount, pressed_in](Program&, QEvent&) {
        if (*pressed_in)
            amount->selectAll();
        *pressed_in = false;
        return false;
    });
}

void ConnectFields(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    for (std::size_t i = 0; i < form.Text10.size(); ++i) {
        QWidget* next = form.Command12[0];
        if (i + 1 < form.Text10.size())
            next = form.Text10[i + 1];
        On(program, form.Text10[i], &QLineEdit::returnPressed,
            [next](Program&) { next->setFocus(Qt::TabFocusReason); });
        On(program, form.Text10[i], &QLineEdit::textChanged,
            [i](Program& p) { ShowEntryState(p, static_cast<int>(i)); });
    }
    SelectOnFocus(program, form.Text10[2]);
    SelectOnFocus(program, form.Text10[3]);
}

void ConnectCalendar(Program& program)
{
    const QCalendarWidget* calendar = program.CashBookTab.Cal3;
    On(program, calendar, &QCalendarWidget::clicked, PickDay);
    On(program, calendar, &QCalendarWidget::activated, PickDay);
}

} // namespace

void ConnectCashBookTab(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    ConnectLists(program);
    ConnectFields(program);
    ConnectCalendar(program);
    On(program, form.Command15, &QPushButton::clicked, SwitchAccount);
    On(program, form.Command12[0], &QPushButton::clicked, ApplyEntryClicked);
    On(program, form.Command12[1], &QPushButton::clicked, DeleteEntryClicked);
    On(program, form.CommandSaveLedger, &QPushButton::clicked, SaveLedger);
}
