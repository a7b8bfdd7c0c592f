// The line above "OK" that names the booking which "OK" would replace, and the way out of it.
#pragma once

class QWidget;
struct Program;

/// ReplaceMark and KeepRow; the row is hidden, and takes no room, while nothing would be replaced.
QWidget* BuildReplaceRow(Program& program, QWidget* frame);

/// Names the booking in that row of the shown account (0 is the first, -1: none).
void ShowReplaceRow(const Program& program, int row);

/// "nicht ersetzen" and Escape: edit mode ends, no row is selected, the fields stay as they are, so
/// that "OK" books them anew. Nothing happens outside edit mode.
void StopReplacing(Program& program);
