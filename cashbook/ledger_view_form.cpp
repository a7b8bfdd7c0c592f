// The view of the tab "Kontoführung": rows, balance, title, marks. Where the lines come from stands
// in ledger_form.cpp.
#include "app/program.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_model.h"
#include "cashbook/ledger_rows.h"
#include "cashbook/member_marks.h"
#include "cashbook/texts.h"
#include "controls/fields.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableView>

namespace {

enum LedgerColumn { DateColumn, TextColumn, DepositColumn, WithdrawalColumn, BalanceColumn };

/// A step of a longer action: what goes wrong in it is shown, and the action goes on.
template <typename Routine> void Step(Program& program, Routine routine)
{
    WithErrorBox(program.Errors, program.Ask, [&] { routine(program); });
}

void LoadPending(Program& program)
{
    // before the load: one that fails must not run again at the next booking and empty the list
    program.CashBook.LedgerReloadPending = false;
    if (program.CashBook.LedgerWithoutHistory)
        Step(program, LoadLedgerWithoutHistory);
    else
        Step(program, LoadLedger);
}

void SortCurrentLedger(Program& program)
{
    QStringList& ledger = CurrentLedger(program);
    ledger = SortLedgerByDate(ledger);
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

void ShowOverview(Program& program)
{
    ShowMemberOverview(
        program, OverviewRows(program.Files, program.Members.NameList, program.Year.YearText));
}

void MarkPaid(QListWidgetItem* name, bool paid)
{
    name->setSelected(paid);
    name->setToolTip(
        paid ? name->text() + QStringLiteral("\nAbrechnung ist gebucht") : name->text());
}

void ShowPaidMarks(Program& program)
{
    QListWidget* list = program.CashBookTab.List4;
    const QVector<bool> marks = PaidMarks(program.Members.CashBookNameList, CurrentLedger(program));
    const QSignalBlocker silent(list);
    for (qsizetype i = 0; i < marks.size() && i < list->count(); ++i)
        MarkPaid(list->item(static_cast<int>(i)), marks[i]);
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

void ShowReplaceMark(const Program& program, int row)
{
    QLabel* mark = program.CashBookTab.ReplaceMark;
    mark->setText(row < 0 ? QString() : QStringLiteral("„OK“ ersetzt Zeile %1").arg(row + 1));
}

QString UnsavedText(const CashBookState& book)
{
    if (book.BankUnsaved && book.CashBoxUnsaved)
        return QStringLiteral("beide Konten nicht gespeichert");
    if (book.BankUnsaved)
        return QStringLiteral("Konto nicht gespeichert");
    return book.CashBoxUnsaved ? QStringLiteral("Handkasse nicht gespeichert") : QString();
}

void ShowUnsavedMark(Program& program)
{
    QLabel* mark = program.CashBookTab.UnsavedMark;
    const bool unread = UnreadOf(program.CashBook, ShownAccount(program));
    mark->setText(unread ? QStringLiteral("Datei nicht gelesen") : UnsavedText(program.CashBook));
    mark->setAutoFillBackground(!mark->text().isEmpty());
    if (unread)
        Tint(mark, TintKind::Wrong,
            QStringLiteral("Die Buchungen aus der Datei des Kontos fehlen hier. „Speichern“ liest "
                           "sie zuerst und fügt hinzu, was seither gebucht wurde."));
    else if (!mark->text().isEmpty())
        Tint(mark, TintKind::Unsaved,
            QStringLiteral("„Speichern“ schreibt die Buchungen des gezeigten Kontos in seine "
                           "Datei"));
    else
        Tint(mark, TintKind::None);
}

} // namespace

void SetUpLedgerColumns(Program& program)
{
    program.CashBookTab.Ledger->SetColumns(LedgerColumns);
    FitLedgerColumns(program);
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

void ShowAccountTitle(Program& program)
{
    const QString bank = BankTitleBegin + program.ClubName + QLatin1Char(' ')
        + program.SettingsTab.Text6[0]->text();
    const QString cash_box = CashBoxTitleBegin + QLatin1Char(' ') + program.ClubName;
    QLabel* title = program.CashBookTab.Label21;
    title->setText(ShownAccount(program) == Account::Bank ? bank : cash_box);
    title->setToolTip(title->text().toHtmlEscaped());
}

void ShowLedger(Program& program)
{
    CashBookForm& form = program.CashBookTab;
    const bool reloads = program.CashBook.LedgerReloadPending;
    if (reloads)
        LoadPending(program);
    else
        SortCurrentLedger(program);
    const LedgerRows rows = MakeLedgerRows(CurrentLedger(program));
    const int scrolled = form.ListView1->verticalScrollBar()->value();
    form.Ledger->SetRows(rows);
    form.ListView1->verticalScrollBar()->setValue(scrolled);
    if (reloads)
        ShowLedgerRow(program, -1); // the last bookings are the ones that are looked for
    ShowBalance(program, ClosingBalance(rows));
    ShowCashBookMarks(program);
    Step(program, ShowOverview);
    ShowPaidMarks(program);
}

void ShowCashBookMarks(Program& program)
{
    const int row = LineToReplace(program.CashBook, ShownAccount(program));
    SelectMarkedRow(program, row);
    ShowReplaceMark(program, row);
    ShowUnsavedMark(program);
}

void ShowLedgerRow(Program& program, qsizetype row)
{
    QTableView* view = program.CashBookTab.ListView1;
    if (row < 0)
        view->scrollToBottom();
    else
        view->scrollTo(program.CashBookTab.Ledger->index(static_cast<int>(row), 0));
}
