#include "app/program.h"

void BuildStatementTab(Program&, QWidget*) { }
void RebuildStatementPages(Program&) { }
void DrawStatementPages(Program&) { }
void SetPageFields(Program&) { }
void NextPage(Program&) { }
void PreviousPage(Program&) { }
void PrintStatements(Program&) { }
