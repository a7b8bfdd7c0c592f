#include "app/program.h"

void StartUp(Program&) { }
