#include "app/program.h"

void BuildCashBookTab(Program&, QWidget*) { }
void ResetCashBook(Program&) { }
void ReadCashBoxLedger(Program&) { }
void SetUpLedgerColumns(Program&) { }
void MakeBankAccountCurrent(Program&) { }
void ShowAccountTitle(Program&) { }
void ShowCashBookNames(Program&) { }
void LoadLedger(Program&) { }
void ShowLedger(Program&) { }
void SwitchAccount(Program&) { }
void SaveLedger(Program&) { }
