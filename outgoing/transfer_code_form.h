// The dialog "Überweisungscode": whether each bill carries a code to pay by. Nothing of it is
// stored: it is off at every start.
#pragma once

#include <QString>

struct Program;

/// What was said in the dialog, while the program runs.
struct TransferCodeChoice {
    bool OnEveryBill = false;
    QString Payee; ///< account holder as typed; empty: the club name
};

/// Opens the dialog `TransferCode` over the window.
void ShowTransferCode(Program& program);
