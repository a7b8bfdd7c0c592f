#include "cashbook/ledger_search.h"

#include "data/german_numbers.h"

namespace {

/// An amount may be typed with points between the thousands; the table shows none.
QString AsShownAmount(const QString& words)
{
    QString without_points = words;
    without_points.remove(u'.');
    return IsNumber(words) ? without_points : words;
}

} // namespace

std::vector<int> FindBookings(const LedgerRows& rows, const QString& words)
{
    std::vector<int> found;
    const QString amount = AsShownAmount(words);
    for (qsizetype i = 0; !words.isEmpty() && i < rows.lines.size(); ++i) {
        const LedgerRow row = RowAt(rows, i);
        if (row.date.contains(words) || row.text.contains(words, Qt::CaseInsensitive)
            || row.deposit.contains(amount) || row.withdrawal.contains(amount))
            found.push_back(static_cast<int>(i));
    }
    return found;
}
