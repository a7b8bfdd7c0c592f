// Things that stand side by side where there is room and one below the other where there is not
// (large fonts, small windows), so that nobody has to scroll sideways.
#pragma once

class QBoxLayout;
class QLayout;
class QWidget;

/// Pixels that the items of the layout need side by side, whatever its direction is now.
int WidthSideBySide(const QBoxLayout* layout);

/// Stands the items side by side or one below the other.
void SetSideBySide(QBoxLayout* layout, bool side_by_side);

/// Stacks the layout while the page, which lies in a scroll area, is seen less wide than the row
/// needs. The row is the page's layout or stands in its full width, and holds the layout.
void StackWhenNarrow(QBoxLayout* layout, const QLayout* row, QWidget* page);
