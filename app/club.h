// The club name: read at start-up, typed once when its file is missing.
#pragma once

struct Program;

/// Reads the first line of "\V.dat" into ClubName and hides the entry box; without the file the box
/// is shown.
void ReadClubName(Program& program);

/// The Enter key in Text5: as Command22, but nothing happens while it holds the hint.
void ClubNameEntered(Program& program);

/// Command22: writes the text of the box (Text5) as club name, shows it and hides the box.
void SaveClubName(Program& program);

/// Label1(1) shows ClubName, or "Vereinsname" at start-up when it is empty.
void ShowClubName(Program& program);
