// Asks on every change of the tab whether changed bookings, prices or bank data are to be saved.
#pragma once

#include <QString>

struct Program;

/// Runs after the user switched to new_tab (0 to 3). Three questions in this order: balance,
/// prices, bank.
void TabChanged(Program& program, int new_tab);

/// The questions that closing the window by its frame asks: whether the member form may be left as
/// it is, then those of TabChanged for everything unsaved. False when the window should stay: the
/// first was answered with "Nein", or a "Ja" could not be carried out and the error box has been
/// shown.
bool AskForUnsaved(Program& program);

/// The same before a state comes back from the history; the first question is the given one.
bool AskForUnsaved(Program& program, const QString& leave_member);

/// Command8 "Beenden": ends the program at once and asks nothing.
void Exit(Program& program);
