// The line above List1 that searches the members, and the tints of their names.
#pragma once

class QWidget;
struct Program;

QWidget* BuildMemberSearch(Program& program, QWidget* frame);

/// Tints the names in List1 that the search finds and those whose line has too many fields.
void ShowNameMarks(Program& program);

void OpenMemberSearch(Program& program); ///< Ctrl+F

/// F3 and Shift+F3: the next hit (1) or the one before (-1) is the current one and is seen.
void StepMemberHit(Program& program, int direction);
