#include "money/money_source.h"

#include <algorithm>

const MoneyLedger* LedgerOfYear(const MoneySource& source, Account account, int year)
{
    const auto found = std::find_if(
        source.Ledgers.begin(), source.Ledgers.end(), [&](const MoneyLedger& ledger) {
            return ledger.account == account && ledger.year == year;
        });
    return found == source.Ledgers.end() ? nullptr : &*found;
}
