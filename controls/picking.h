// Lists and tables whose rows are picked.
#pragma once

class QEvent;
class QWidget;

/// True for a key press that picks the current row: space and both Enter keys.
bool IsPickKey(const QEvent& event);

/// The selection is as clear without the focus as with it: it says something.
void KeepSelectionClear(QWidget* view);
