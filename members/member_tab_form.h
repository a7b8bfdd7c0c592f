// The tab "Stammdaten" as a whole.
#pragma once

class QWidget;
struct Program;

/// Builds the tab's frames into the given page, connected.
void BuildMemberTab(Program& program, QWidget* tab);
