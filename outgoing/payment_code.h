// The payment code of a member's bill: its transfer, and whether the page has room for it.
#pragma once

#include "outgoing/transfer_code.h"
#include "statement/statement_state.h"

/// The code of a page, or why it has none.
struct PageCode {
    BankTransfer Transfer; ///< pays the bill as it was drawn
    QString Reason; ///< NoCodeReason, or an address that reaches into the code's place; empty when
                    ///< the page gets its code
    CodeSquares Squares; ///< none while there is a reason
};

/// The code of a bill that was computed already.
PageCode CodeOfBill(const StatementState& statement, const QString& payee, const PageBill& bill);

/// The code of page index (0 is the first).
PageCode CodeOfPage(const StatementState& statement, const QString& payee, qsizetype index);

/// What goes onto the page beside the bill; nothing when there is no code.
PageItems ItemsOfCode(const PageCode& code);
