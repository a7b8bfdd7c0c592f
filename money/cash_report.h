// The year's cash report as numbers: per account opening balance, income and expenses by kind,
// transfers, closing balance.
#pragma once

#include "money/money_source.h"
#include "money/transfers.h"

#include <QString>

#include <optional>
#include <vector>

/// The bookings of one kind on one side of an account.
struct KindSum {
    QString name; ///< as its first booking writes it
    Cents sum = 0;
    std::vector<std::size_t> bookings; ///< positions in the ledger
};

struct AccountReport {
    int openings = 0; ///< so many bookings make up the opening balance
    Cents opening = 0;
    std::vector<KindSum> income; ///< largest sum first, then by name
    std::vector<KindSum> expenses;
    Cents income_sum = 0;
    Cents expense_sum = 0;
    Cents transferred_in = 0; ///< from the other account
    Cents transferred_out = 0;
    Cents closing = 0; ///< deposits less withdrawals of all lines
};

struct CashReport {
    AccountReport Bank;
    AccountReport CashBox;
    TransferSearch Transfers;
    int OddDates = 0; ///< bookings dated in another year, or without a date
    std::vector<NoAmount> NoAmounts;
};

/// Opening balance and income less expenses, both accounts together, is the closing balance: money
/// that went from one to the other is neither.
CashReport MakeCashReport(MoneySource& source);
