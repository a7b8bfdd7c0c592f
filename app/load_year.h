// Choosing and loading a year: the year buttons and "Laden".
#pragma once

struct Program;

/// Command3(index): 0 one year forward (not past today's year), 1 one year back. Nothing is loaded.
void StepYear(Program& program, int index);

/// Command4 "Laden": reloads every list of YearText and redraws all that depends on them; without a
/// members file the box "Datenfehler" is shown and everything loaded before stays.
void LoadYear(Program& program);

/// The year box Text2 shows YearText; tinted while it differs from the loaded year, since a save
/// goes to YearText.
void ShowYear(Program& program);
