// The window of the German manual: contents, search and text side by side.
#pragma once

#include <QString>

struct Program;

/// Shows the page in its window, made when it is needed for the first time, at the anchor. The
/// window stays open beside the program: "ManualWindow" with "ManualSearch" (Ctrl+F, F3 and Enter
/// go on), "ManualContents" and the text "Manual".
void ShowManualPage(Program& program, const QString& path, const QString& anchor);
