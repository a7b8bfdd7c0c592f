// The lists that fill the fields of a booking: recurring payees, and the members with their paid
// marks.
#include "cashbook/payment_lists_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/booking_form.h"
#include "cashbook/ledger_view_form.h"
#include "cashbook/member_marks.h"
#include "cashbook/texts.h"
#include "controls/fields.h"
#include "controls/picking.h"
#include "controls/roomy_rows.h"
#include "money/money_form.h"

#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

constexpr int name_characters = 16;

/// A list whose selection says who has paid. Mouse and keys move the current entry only; marks are
/// set by code.
class PaidMarkList : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex&, const QEvent*) const override
    {
        return QItemSelectionModel::NoUpdate;
    }
};

/// Paints a paid mark paler while part of the bill is still owed. Who owes what is found when a
/// mark is painted for the first time after bookings or bills changed.
class PaidMarkDelegate : public RoomyRows {
public:
    PaidMarkDelegate(Program& program, QObject* parent)
        : RoomyRows(parent)
        , m_program(program)
    {
    }

    /// The tool tip of a marked name says what is paid, as of now.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip || !view->selectionModel()->isSelected(index))
            return RoomyRows::helpEvent(event, view, option, index);
        const QString tip = PaidTip(m_program, index.row());
        QToolTip::showText(event->globalPos(),
            index.data(Qt::ToolTipRole).toString() + (tip.isEmpty() ? tip : u'\n' + tip), view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        RoomyRows::initStyleOption(option, index);
        if (!option->state.testFlag(QStyle::State_Selected) || !IsPartPaid(index.row()))
            return;
        option->palette.setColor(QPalette::Highlight, PalerMark(option->palette));
        option->palette.setColor(
            QPalette::HighlightedText, option->palette.color(QPalette::Active, QPalette::Text));
    }

private:
    bool IsPartPaid(int member) const
    {
        std::optional<std::vector<bool>>& part_paid = m_program.CashBookTab.PartPaid;
        if (!part_paid)
            part_paid = PartPaidMembers(m_program);
        return static_cast<std::size_t>(member) < part_paid->size()
            && part_paid->at(static_cast<std::size_t>(member));
    }

    static QColor PalerMark(const QPalette& palette)
    {
        const QColor mark = palette.color(QPalette::Active, QPalette::Highlight);
        const QColor ground = palette.color(QPalette::Active, QPalette::Base);
        const auto between = [](int a, int b) { return (a + 2 * b) / 3; };
        return { between(mark.red(), ground.red()), between(mark.green(), ground.green()),
            between(mark.blue(), ground.blue()) };
    }

    Program& m_program;
};

QVBoxLayout* WithCaption(QListWidget* list, const QString& caption, QWidget* tab)
{
    list->setAccessibleName(caption);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    list->setMinimumHeight(list->fontMetrics().lineSpacing() * 4);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    KeepSelectionClear(list);
    MakeRowsRoomy(list);
    auto* column = new QVBoxLayout;
    column->setSpacing(FrameSpacing / 2);
    QLabel* above = MakeCaption(tab, caption, list);
    above->setWordWrap(true);
    column->addWidget(above);
    column->addWidget(list, 1);
    return column;
}

void PickPayee(Program& program, int position)
{
    program.CashBookTab.Text10[TextEntry]->setText(TextForPayee(position, program.Year.YearText));
}

/// A bill that was not finished proposes "0,00"; that nobody books it unseen, the field says so.
void ShowWhetherBilled(const Program& program, int position)
{
    QLineEdit* deposit = program.CashBookTab.Text10[DepositEntry];
    if (program.Statement.StatementTotals.value(position).isEmpty())
        Tint(deposit, TintKind::Wrong,
            QStringLiteral("Die Abrechnung von „%1“ ist nicht fertig, deshalb ist kein Betrag "
                           "bekannt.")
                .arg(program.Members.CashBookNameList.value(position)));
    else
        Tint(deposit, TintKind::None);
}

void PickMember(Program& program, int position)
{
    if (ShownAccount(program) != Account::Bank)
        return; // members pay into the bank account
    const PaymentProposal proposal
        = ProposePayment(program.Members.CashBookNameList.value(position),
            program.Statement.StatementTotals.value(position),
            program.Members.InstalmentList.value(position));
    program.CashBookTab.Text10[TextEntry]->setText(proposal.text);
    program.CashBookTab.Text10[DepositEntry]->setText(proposal.deposit);
    ShowWhetherBilled(program, position);
    program.CashBookTab.Text11->setText(proposal.note);
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

void ConnectPayees(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    On(program, form.List9, &QListWidget::itemSelectionChanged, [](Program& p) {
        const QListWidget* payees = p.CashBookTab.List9;
        if (const QList<QListWidgetItem*> selected = payees->selectedItems(); !selected.isEmpty())
            PickPayee(p, payees->row(selected.first()));
    });
    On(program, form.List9, &QListWidget::itemClicked,
        [](Program& p, QListWidgetItem* item) { PickPayee(p, p.CashBookTab.List9->row(item)); });
    OnEvent(program, form.List9, QEvent::KeyPress, PayeeKeyPressed);
}

void ConnectNames(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    On(program, form.List4, &QListWidget::itemClicked,
        [](Program& p, QListWidgetItem* item) { PickMember(p, p.CashBookTab.List4->row(item)); });
    OnEvent(program, form.List4, QEvent::KeyPress, NameKeyPressed);
}

void MarkPaid(QListWidgetItem* name, bool paid)
{
    name->setSelected(paid);
    name->setToolTip(
        paid ? name->text() + QStringLiteral("\nAbrechnung ist gebucht") : name->text());
}

} // namespace

QVBoxLayout* BuildPayees(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    form.List9 = Named(new QListWidget(tab), QStringLiteral("List9"));
    form.List9->addItems(RecurringPayees);
    QVBoxLayout* column
        = WithCaption(form.List9, QStringLiteral("sich wiederholende Vorgänge"), tab);
    form.List9->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents); // none is cut off
    form.List9->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    ConnectPayees(program);
    return column;
}

QVBoxLayout* BuildNames(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    form.List4 = Named(new PaidMarkList(tab), QStringLiteral("List4"));
    form.List4->setSelectionMode(QAbstractItemView::MultiSelection);
    form.List4->setMinimumWidth(form.List4->fontMetrics().averageCharWidth() * name_characters);
    form.List4->setAccessibleDescription(
        QStringLiteral("Markiert ist, wessen Abrechnung in diesem Konto gebucht ist. Die Leertaste "
                       "oder die Eingabetaste schlägt die Zahlung vor."));
    ConnectNames(program);
    QVBoxLayout* column = WithCaption(form.List4, QStringLiteral("Namen"), tab);
    form.List4->setItemDelegate(new PaidMarkDelegate(program, form.List4));
    return column;
}

void ShowCashBookNames(Program& program)
{
    QListWidget* list = program.CashBookTab.List4;
    const QSignalBlocker silent(list);
    const int scrolled = list->verticalScrollBar()->value();
    constexpr qsizetype longest_shown_name = 200;
    list->clear();
    for (const QString& name : program.Members.CashBookNameList)
        list->addItem(name.left(longest_shown_name));
    list->verticalScrollBar()->setValue(scrolled);
}

void ShowPaidMarks(Program& program)
{
    QListWidget* list = program.CashBookTab.List4;
    const QVector<bool> marks = PaidMarks(program.Members.CashBookNameList, CurrentLedger(program));
    const QSignalBlocker silent(list);
    program.CashBookTab.PartPaid.reset();
    list->viewport()->update();
    for (qsizetype i = 0; i < marks.size() && i < list->count(); ++i)
        MarkPaid(list->item(static_cast<int>(i)), marks[i]);
}

void ForgetPayee(Program& program)
{
    const QSignalBlocker silent(program.CashBookTab.List9);
    program.CashBookTab.List9->clearSelection();
}
