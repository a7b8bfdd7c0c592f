// The window "Prüfbericht" and what the button "Mehr" says about it.
#pragma once

struct Program;

/// Opens the check report (F9).
void ShowCheckReport(Program& program);
