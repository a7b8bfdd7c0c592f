#include "app/main_window.h"

#include "app/program.h"

void BuildMainWindow(Program&) { }
void DestroyMainWindow(Program&) { }
