// Money that went from one account to the other: a withdrawal here and a deposit there of the same
// date and amount. In the report of both accounts it is neither income nor expense.
#pragma once

#include "money/bookings.h"

#include <vector>

/// A pair of bookings; positions in their ledgers.
struct Transfer {
    Account from = Account::Bank;
    std::size_t withdrawal = 0; ///< in the ledger of `from`
    std::size_t deposit = 0; ///< in the other one
    Cents amount = 0;
};

/// Withdrawals and deposits that could be paired in more than one way, and therefore are not.
struct UnclearTransfers {
    QString date;
    Cents amount = 0;
    int withdrawals = 0;
    int deposits = 0;
};

struct TransferSearch {
    std::vector<Transfer> found; ///< first from the bank account, then from the cash box
    std::vector<UnclearTransfers> unclear;
};

/// The ledgers of one year, in this order: bank account, cash box. A pair counts only when its
/// texts are equal or one of them has a word of a transfer ("Bareinzahlung", "zur Bank"): a gift
/// and a bill of the same day and amount are none.
TransferSearch FindTransfers(const MoneyLedger& bank, const MoneyLedger& cash_box);

/// True when the folded text has a word of a transfer.
bool HasTransferWord(const QString& folded);
