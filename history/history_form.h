// The window "Verlauf" and what its links do; the key that takes the last thing back.
#pragma once

struct Program;

/// Opens the history ("Mehr", "Verlauf …").
void ShowHistory(Program& program);

/// Ctrl+Z where no text field has the focus: asks, and takes back what was done last.
void TakeBackTheLast(Program& program);
