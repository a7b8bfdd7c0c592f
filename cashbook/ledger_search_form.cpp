#include "cashbook/ledger_search_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/ledger_model.h"
#include "cashbook/ledger_search.h"
#include "cashbook/ledger_view_form.h"
#include "controls/search_line.h"
#include "money/cents.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

/// "12 Treffer, Einzahlung 1.204,20 €, Abheben 0,00 €"
QString SumsOf(const QStringList& ledger, const std::vector<int>& hits)
{
    Cents deposits = 0;
    Cents withdrawals = 0;
    for (const int row : hits) {
        const LedgerEntry booking = EntryOfLine(ledger.value(row));
        deposits += CentsOrZero(booking.deposit);
        withdrawals += CentsOrZero(booking.withdrawal);
    }
    return u"%1 Treffer, Einzahlung %2, Abheben %3"_s.arg(
        QString::number(hits.size()), EuroText(deposits), EuroText(withdrawals));
}

/// The current hit is seen; no row is picked by that.
void ShowCurrentHit(const Program& program, int hit)
{
    LedgerModel* ledger = program.CashBookTab.Ledger;
    ledger->SetCurrentHit(hit);
    if (hit >= 0)
        program.CashBookTab.ListView1->scrollTo(
            ledger->index(ledger->Hits().at(static_cast<std::size_t>(hit)), 0));
}

void WordsTyped(Program& program)
{
    ShowLedgerHits(program);
    ShowCurrentHit(program, program.CashBookTab.Ledger->Hits().empty() ? -1 : 0);
}

/// Enter: the current hit goes into the fields, and its amount is next to be typed.
void PickHit(Program& program)
{
    const LedgerModel* ledger = program.CashBookTab.Ledger;
    if (ledger->CurrentHit() < 0)
        return;
    PickLedgerRow(program, ledger->Hits().at(static_cast<std::size_t>(ledger->CurrentHit())));
    const auto& entries = program.CashBookTab.Text10;
    const bool is_deposit = CentsOrZero(entries[DepositEntry]->text()) != 0;
    entries[is_deposit ? DepositEntry : WithdrawalEntry]->setFocus(Qt::ShortcutFocusReason);
}

} // namespace

QWidget* BuildLedgerSearch(Program& program, QWidget* tab)
{
    CashBookForm& form = program.CashBookTab;
    const SearchLine line = MakeSearchLine(tab, u"LedgerSearch"_s, u"In den Buchungen suchen"_s,
        u"Vorgang, Betrag oder Tag suchen; F3 zum nächsten, Eingabetaste zum Berichtigen"_s);
    form.LedgerSearchRow = line.Row;
    form.LedgerSearch = line.Words;
    form.LedgerSearchHits = line.Hits;
    On(program, form.LedgerSearch, &QLineEdit::textChanged, WordsTyped);
    On(program, form.LedgerSearch, &QLineEdit::returnPressed, PickHit);
    return form.LedgerSearchRow;
}

void OpenLedgerSearch(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    OpenSearchLine({ form.LedgerSearchRow, form.LedgerSearch, form.LedgerSearchHits });
    WordsTyped(program);
}

void StepLedgerHit(Program& program, int direction)
{
    const LedgerModel* ledger = program.CashBookTab.Ledger;
    ShowCurrentHit(program, NextHit(ledger->CurrentHit(), direction, std::ssize(ledger->Hits())));
}

void ShowLedgerHits(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    LedgerModel* ledger = form.Ledger;
    const QString words = form.LedgerSearchRow->isHidden() ? QString() : form.LedgerSearch->text();
    ledger->SetHits(FindBookings(ledger->Rows(), words));
    form.LedgerSearchHits->setText(
        words.isEmpty() ? QString() : SumsOf(ledger->Rows().lines, ledger->Hits()));
}

bool IsSearching(const Program& program) { return program.CashBookTab.LedgerSearch->hasFocus(); }

void CloseLedgerSearch(Program& program)
{
    if (IsSearching(program))
        program.CashBookTab.ListView1->setFocus(Qt::OtherFocusReason);
    program.CashBookTab.LedgerSearchRow->hide();
    ShowLedgerHits(program);
}
