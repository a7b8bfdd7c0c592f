// The lists that fill the fields of a booking: List9, the recurring payees, and List4, the members
// and who of them has paid.
#pragma once

class QVBoxLayout;
class QWidget;
struct Program;

QVBoxLayout* BuildPayees(Program& program, QWidget* tab);
QVBoxLayout* BuildNames(Program& program, QWidget* tab);

/// List4 shows the cash-book name list. Runs no handler.
void ShowCashBookNames(Program& program);

/// List4 marks who has paid into the shown account.
void ShowPaidMarks(Program& program);

/// No payee of List9 is selected any more.
void ForgetPayee(Program& program);
