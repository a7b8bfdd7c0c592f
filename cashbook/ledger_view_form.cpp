// The view of the tab "Kontoführung": title and balance of the shown account, the table of its
// bookings with its keys and its marked row. Where the lines come from stands in ledger_form.
#include "cashbook/ledger_view_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/booking_form.h"
#include "cashbook/booking_marks_form.h"
#include "cashbook/ledger_model.h"
#include "cashbook/ledger_rows.h"
#include "cashbook/replace_row_form.h"
#include "cashbook/texts.h"
#include "controls/fields.h"
#include "controls/picking.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>

namespace {

/// A table whose marked row is the one that "OK" replaces: only another row takes the mark away, no
/// click beside the rows.
class LedgerTable : public QTableView {
public:
    using QTableView::QTableView;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override
    {
        return index.isValid() ? QTableView::selectionCommand(index, event)
                               : QItemSelectionModel::NoUpdate;
    }
};

QFont Larger(const QFont& font, qreal factor)
{
    QFont larger = font;
    larger.setPointSizeF(font.pointSizeF() * factor);
    larger.setBold(true);
    return larger;
}

QLabel* MakeTitle(QWidget* tab)
{
    auto* title = Named(new QLabel(tab), QStringLiteral("Label21"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true); // club and bank names are long
    title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    title->setFont(Larger(title->font(), 1.25));
    return title;
}

/// Black or red on white on every desktop: these colours mean something.
QLabel* MakeBalance(QWidget* tab)
{
    auto* balance = Named(new QLabel(tab), QStringLiteral("BalanceLabel"));
    balance->setTextFormat(Qt::PlainText);
    balance->setFont(Larger(balance->font(), 1.75));
    balance->setFrameShape(QFrame::StyledPanel);
    balance->setAutoFillBackground(true);
    balance->setMargin(FrameSpacing / 2);
    balance->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    balance->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return balance;
}

void SelectMarkedRow(Program& program, int row)
{
    CashBookForm& form = program.CashBookTab;
    const QScopedValueRollback by_code(form.MarkingByCode, true);
    QItemSelectionModel* selection = form.ListView1->selectionModel();
    if (row >= 0 && selection->isRowSelected(row))
        return; // picked by the user: the view must not scroll away under the mouse
    if (row < 0) {
        selection->clearSelection();
        return;
    }
    const QModelIndex index = form.Ledger->index(row, 0);
    selection->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    form.ListView1->scrollTo(index);
}

void FitLedgerColumns(Program& program)
{
    QTableView* view = program.CashBookTab.ListView1;
    QHeaderView* header = view->horizontalHeader();
    if (header->count() <= BalanceColumn)
        return; // no columns yet
    const QFontMetrics metrics = view->fontMetrics();
    constexpr int margins = 24; // of a cell and of a head, both sides
    const auto fit = [&](int column, const QString& widest) {
        const int head = header->fontMetrics().horizontalAdvance(LedgerColumns[column]);
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        header->resizeSection(column, qMax(head, metrics.horizontalAdvance(widest)) + margins);
    };
    fit(DateColumn, QStringLiteral("00.00.0000"));
    for (const int amount : { DepositColumn, WithdrawalColumn, BalanceColumn })
        fit(amount, QStringLiteral("-00000000,00 €"));
    header->setMinimumSectionSize(metrics.averageCharWidth() * 10);
    header->setSectionResizeMode(TextColumn, QHeaderView::Stretch);
    view->verticalHeader()->setDefaultSectionSize(metrics.height() + FrameSpacing);
}

void ShowBalance(const Program& program, float balance)
{
    QLabel* label = program.CashBookTab.BalanceLabel;
    const QString text = CurrentBalanceText(balance);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(
        QPalette::WindowText, ShowsBelowZero(text) ? QColor(255, 0, 0) : QColor(0, 0, 0));
    label->setPalette(palette);
    label->setText(text);
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

/// Arrow keys, the search as you type and the mouse select; a click on the selected row picks it
/// again.
void ConnectLedgerView(Program& program)
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
}

} // namespace

QHBoxLayout* BuildLedgerHead(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    form.Label21 = MakeTitle(tab);
    form.BalanceLabel = MakeBalance(tab);
    auto* head = new QHBoxLayout;
    head->setSpacing(TabSpacing);
    head->addWidget(form.Label21, 1);
    head->addWidget(MakeCaption(tab, QStringLiteral("aktueller Kontostand"), form.BalanceLabel));
    head->addWidget(form.BalanceLabel, 0, Qt::AlignVCenter); // a long title is higher
    return head;
}

QTableView* BuildLedgerView(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    QTableView* view = Named<QTableView>(new LedgerTable(tab), QStringLiteral("ListView1"));
    form.ListView1 = view;
    form.Ledger = new LedgerModel(view);
    view->setModel(form.Ledger);
    view->setAccessibleName(QStringLiteral("Buchungen"));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setMinimumHeight(view->fontMetrics().lineSpacing() * 8); // the heading and some rows
    view->setTabKeyNavigation(false);
    view->setCornerButtonEnabled(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // quick at 100,000 rows
    view->horizontalHeader()->setHighlightSections(false);
    view->horizontalHeader()->setSectionsClickable(false);
    KeepSelectionClear(view);
    ConnectLedgerView(program);
    return view;
}

Account ShownAccount(const Program& program)
{
    const bool bank = program.CashBookTab.Command15->text() == SwitchToCashBox;
    return bank ? Account::Bank : Account::CashBox;
}

const QStringList& CurrentLedger(const Program& program)
{
    return LedgerOf(program.CashBook, ShownAccount(program)).Lines;
}

void SetUpLedgerColumns(Program& program)
{
    program.CashBookTab.Ledger->SetColumns(LedgerColumns);
    FitLedgerColumns(program);
}

void ShowAccountTitle(Program& program)
{
    const QString bank = BankTitleBegin + program.ClubName + QLatin1Char(' ')
        + program.SettingsTab.Text6[0]->text();
    const QString cash_box = CashBoxTitleBegin + QLatin1Char(' ') + program.ClubName;
    QLabel* title = program.CashBookTab.Label21;
    title->setText(ShownAccount(program) == Account::Bank ? bank : cash_box);
    title->setToolTip(title->text().toHtmlEscaped());
}

void ShowLedgerRows(Program& program)
{
    CashBookForm& form = program.CashBookTab;
    const LedgerRows rows = MakeLedgerRows(CurrentLedger(program));
    const int scrolled = form.ListView1->verticalScrollBar()->value();
    form.Ledger->SetRows(rows);
    form.ListView1->verticalScrollBar()->setValue(scrolled);
    ShowBalance(program, ClosingBalance(rows));
}

void ShowCashBookMarks(Program& program)
{
    const int row = LineToReplace(program.CashBook, ShownAccount(program));
    SelectMarkedRow(program, row);
    ShowReplaceRow(program, row);
    ShowEntryStates(program);
    ShowUnsavedMark(program, ShownAccount(program));
    ShowUnsaved(program);
}

void ShowLedgerRow(Program& program, qsizetype row)
{
    QTableView* view = program.CashBookTab.ListView1;
    if (row < 0)
        view->scrollToBottom();
    else
        view->scrollTo(program.CashBookTab.Ledger->index(static_cast<int>(row), 0));
}

void PickLedgerRow(Program& program, int row)
{
    CashBookState& book = program.CashBook;
    book.LedgerEditMode = true;
    book.SelectedLedgerRow = row + 1;
    FillEntry(program, EntryOfLine(CurrentLedger(program).value(row)));
    ShowCashBookMarks(program);
}
