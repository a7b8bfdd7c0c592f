// What is not saved, said where it can be lost: at "Beenden" and at the tabs. Saves nothing and
// asks nothing.
#pragma once

struct Program;

/// Tints "Beenden" while anything is not saved; its tool tip lists what, and so do the tool tips
/// and the accessible names of the tabs that hold it. Called whenever a mark of unsaved things
/// changes.
void ShowUnsaved(Program& program);
