// The window "Prüfbericht" and what the button "Mehr" says about it.
#pragma once

#include "check/check_source.h"

struct Program;

/// Everything that the rules look at, as it stands now.
CheckSource CheckSourceOf(const Program& program);

/// Opens the check report (F9).
void ShowCheckReport(Program& program);

/// Tints the button "Mehr" while the report has errors, and says how many. Called after each
/// redraw.
void AnnounceErrors(Program& program);
