// The payment code of a member's bill: its transfer, and whether the page has room for it.
#pragma once

#include "outgoing/transfer_code.h"
#include "statement/statement_state.h"

/// The transfer that pays the bill on page index, as it was drawn.
BankTransfer TransferOfPage(const StatementState& statement, const QString& payee, qsizetype index);

/// Why page index gets no code: NoCodeReason, or an address that reaches into its place. Empty when
/// it gets one.
QString NoCodeOnPage(const StatementState& statement, const QString& payee, qsizetype index);

/// What goes onto page index beside the bill; nothing when there is no code.
PageItems CodeOfPage(const StatementState& statement, const QString& payee, qsizetype index);
