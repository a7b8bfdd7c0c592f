// The sheet for the walk round the gardens, shown in the window of the reports.
#pragma once

struct Program;

/// "Ableseliste drucken": garden, name, last reading and an empty cell for each meter, by garden
/// number.
void ShowReadingsSheet(Program& program);
