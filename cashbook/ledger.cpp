#include "cashbook/ledger.h"

#include "cashbook/date_ordering.h"
#include "data/records.h"
#include "data/runtime_error.h"

#include <algorithm>

Ledger& LedgerOf(CashBookState& book, Account account)
{
    return account == Account::Bank ? book.Bank : book.CashBox;
}

const Ledger& LedgerOf(const CashBookState& book, Account account)
{
    return account == Account::Bank ? book.Bank : book.CashBox;
}

int LineToReplace(const CashBookState& book, Account account)
{
    const qsizetype count = LedgerOf(book, account).Lines.size();
    if (!book.LedgerEditMode)
        return -1;
    if (count == 1)
        return 0;
    const bool is_there = book.SelectedLedgerRow >= 1 && book.SelectedLedgerRow <= count;
    return is_there ? book.SelectedLedgerRow - 1 : -1;
}

bool IsOfAnotherYear(
    const Ledger& ledger, const BillingYear& chosen_year, const BillingYear& loaded_year)
{
    return !ledger.Year.isEmpty() && ledger.Year != chosen_year && ledger.Year != loaded_year;
}

namespace {

void MarkChanged(CashBookState& book, Account account)
{
    book.LedgerChanged = true;
    LedgerOf(book, account).Unsaved = true;
}

QString WithFourFields(const QString& line) { return FirstFourFields(SplitRecord(line)); }

RuntimeError NothingToDelete(const QString& remedy)
{
    Place where;
    where.remedy = remedy;
    return { ErrorKind::InvalidIndex, where, {} };
}

} // namespace

void ApplyEntry(CashBookState& book, Account account, const QString& line)
{
    Ledger& ledger = LedgerOf(book, account);
    QStringList& lines = ledger.Lines;
    const int replaced = LineToReplace(book, account);
    if (!ledger.InOrder && book.LedgerEditMode && lines.size() >= 2)
        std::transform(lines.begin(), lines.end(), lines.begin(), WithFourFields);
    ledger.InOrder = ledger.InOrder && KeepsBookingOrder({ line });
    if (ledger.InOrder)
        PutInBookingOrder(lines, line, replaced);
    else if (replaced >= 0)
        lines[replaced] = line;
    else
        lines += line;
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
    MarkChanged(book, account);
}

void DeleteEntry(CashBookState& book, Account account)
{
    QStringList& ledger = LedgerOf(book, account).Lines;
    const int position = book.SelectedLedgerRow - 1;
    if (position < 0)
        throw NothingToDelete(
            QStringLiteral("Es ist keine Buchung ausgewählt. Bitte zuerst in der Liste die Zeile "
                           "anklicken, die gelöscht werden soll."));
    if (position >= ledger.size())
        throw NothingToDelete(
            QStringLiteral("Zuletzt war die Zeile %1 ausgewählt, und so viele Zeilen hat dieses "
                           "Konto nicht. Bitte zuerst in der Liste die Zeile anklicken, die "
                           "gelöscht werden soll, auch wenn sie schon markiert ist.")
                .arg(book.SelectedLedgerRow));
    ledger.removeAt(position);
    MarkChanged(book, account);
}
