// Asks on every change of the tab whether changed bookings, prices or bank data are to be saved.
#pragma once

struct Program;

/// Runs after the user switched to new_tab (0 to 3). Three questions in this order: balance,
/// prices, bank.
void TabChanged(Program& program, int new_tab);

/// The questions that closing the window by its frame asks: those of TabChanged for everything
/// unsaved. False when a "Ja" could not be carried out; the error box has been shown then and the
/// window should stay.
bool AskForUnsaved(Program& program);

/// Command8 "Beenden": ends the program at once and asks nothing.
void Exit(Program& program);
