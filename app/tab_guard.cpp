#include "app/program.h"

void TabChanged(Program&, int) { }
void AskForUnsaved(Program&) { }
void Exit(Program&) { }
