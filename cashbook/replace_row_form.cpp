#include "cashbook/replace_row_form.h"

#include "app/program.h"
#include "cashbook/ledger_model.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longest_text = 60; // characters of a booking's text; more would hide the amount

/// "22.11.2026 Abrechnung Albers 193,53 €"
QString NameOf(const LedgerModel& ledger, int row)
{
    const auto shown
        = [&](LedgerColumn column) { return ledger.index(row, column).data().toString(); };
    QString text = shown(TextColumn);
    if (text.size() > longest_text)
        text = text.left(longest_text) + u"…"_s;
    const bool is_withdrawal = shown(DepositColumn) == u"0,00 €"_s;
    return u"%1 %2 %3"_s.arg(shown(DateColumn), text,
        is_withdrawal ? u"Abheben "_s + shown(WithdrawalColumn) : shown(DepositColumn));
}

} // namespace

QWidget* BuildReplaceRow(Program& program, QWidget* frame)
{
    CashBookForm& form = program.CashBookTab;
    form.ReplaceRow = new QWidget(frame);
    form.ReplaceMark = MakeWarningLine(form.ReplaceRow, u"ReplaceMark"_s, TintKind::Doubtful);
    form.KeepRow = Named(MakeButton(form.ReplaceRow, u"nicht ersetzen"_s,
                             u"„OK“ bucht die Felder dann als neue Zeile (Esc)"_s),
        u"KeepRow"_s);
    auto* row = new QHBoxLayout(form.ReplaceRow);
    row->setContentsMargins({});
    row->setSpacing(FrameSpacing);
    row->addWidget(form.ReplaceMark, 1);
    row->addWidget(form.KeepRow);
    form.ReplaceRow->hide();
    On(program, form.KeepRow, &QPushButton::clicked, StopReplacing);
    return form.ReplaceRow;
}

void ShowReplaceRow(const Program& program, int row)
{
    const CashBookForm& form = program.CashBookTab;
    ShowWarningLine(
        form.ReplaceMark, row < 0 ? QString() : u"OK ersetzt: "_s + NameOf(*form.Ledger, row));
    form.ReplaceRow->setVisible(row >= 0);
}

void StopReplacing(Program& program)
{
    CashBookState& book = program.CashBook;
    if (!book.LedgerEditMode)
        return;
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
    program.CashBookTab.ListView1->clearSelection();
    ShowReplaceRow(program, -1);
}
