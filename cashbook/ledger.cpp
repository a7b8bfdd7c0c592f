#include "cashbook/ledger.h"

#include "data/records.h"
#include "data/runtime_error.h"

#include <algorithm>

QStringList& CurrentLedger(CashBookState& book)
{
    return book.CashBoxIsCurrent ? book.CashBoxLedger : book.BankLedger;
}

const QStringList& CurrentLedger(const CashBookState& book)
{
    return book.CashBoxIsCurrent ? book.CashBoxLedger : book.BankLedger;
}

bool& CurrentUnsaved(CashBookState& book)
{
    return book.CashBoxIsCurrent ? book.CashBoxUnsaved : book.BankUnsaved;
}

bool& CurrentUnread(CashBookState& book)
{
    return book.CashBoxIsCurrent ? book.CashBoxUnread : book.BankUnread;
}

int LineToReplace(const CashBookState& book)
{
    const qsizetype count = CurrentLedger(book).size();
    if (!book.LedgerEditMode)
        return -1;
    if (count == 1)
        return 0;
    const bool is_there = book.SelectedLedgerRow >= 1 && book.SelectedLedgerRow <= count;
    return is_there ? book.SelectedLedgerRow - 1 : -1;
}

namespace {

void MarkChanged(CashBookState& book)
{
    book.LedgerChanged = true;
    CurrentUnsaved(book) = true;
}

QString WithFourFields(const QString& line) { return FirstFourFields(SplitRecord(line)); }

} // namespace

void ApplyEntry(CashBookState& book, const QString& line)
{
    QStringList& ledger = CurrentLedger(book);
    const int replaced = LineToReplace(book);
    if (book.LedgerEditMode && ledger.size() >= 2)
        std::transform(ledger.begin(), ledger.end(), ledger.begin(), WithFourFields);
    if (replaced >= 0)
        ledger[replaced] = line;
    else
        ledger += line;
    book.LedgerEditMode = false;
    book.SelectedLedgerRow = 0;
    MarkChanged(book);
}

void DeleteEntry(CashBookState& book)
{
    QStringList& ledger = CurrentLedger(book);
    const int position = book.SelectedLedgerRow - 1;
    if (position < 0 || position >= ledger.size()) {
        Place where;
        where.remedy = QStringLiteral("Es ist keine Buchung ausgewählt. Bitte zuerst in der Liste "
                                      "die Zeile anklicken, die gelöscht werden soll.");
        throw RuntimeError { ErrorKind::InvalidIndex, where, {} };
    }
    ledger.removeAt(position);
    MarkChanged(book);
}
