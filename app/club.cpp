#include "app/program.h"

void ReadClubName(Program&) { }
void SaveClubName(Program&) { }
void ShowClubName(Program&) { }
