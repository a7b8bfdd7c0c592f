#include "app/program.h"

void StepYear(Program&, int) { }
void LoadYear(Program&) { }
void ShowYear(Program&) { }
