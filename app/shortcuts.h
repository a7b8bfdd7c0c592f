// The keys of the main window: tabs, saving, new member, printing, manual.
#pragma once

struct Program;

/// Ctrl+1 to Ctrl+4, Ctrl+S, Ctrl+N, Ctrl+P and F1. A shortcut does what the click on its control
/// would do.
void BuildShortcuts(Program& program);
