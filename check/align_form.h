// The window "Vorjahr abgleichen": both years' names side by side, one tick for each difference.
#pragma once

struct Program;

/// Opens the window, or makes the opened one anew. Without a list of last year it says so instead.
void ShowAlignWindow(Program& program);
