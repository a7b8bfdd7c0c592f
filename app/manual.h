// The German manual in a window of its own, without browser or network.
#pragma once

#include <QString>

struct Program;

/// F1: opens handbuch/handbuch.html (beside the program) at the chapter of the tab in front;
/// without the file a box says so. The window stays open beside the program.
void ShowManual(Program& program);

/// Anchor of a tab's chapter: "stammdaten", "druckvorlagen", "kontofuehrung", "einstellungen".
QString ManualChapter(int tab);
