// The size of the picture in the preview: Ctrl with the wheel, Ctrl++, Ctrl+- and Ctrl+0.
#pragma once

class QEvent;
class QWidget;
struct Program;

/// Ctrl++, Ctrl+- and Ctrl+0 on the whole tab.
void BuildZoomKeys(Program& program, QWidget* tab);

/// The wheel with Ctrl over viewport or desk; swallowed then.
bool ZoomByWheel(Program& program, QEvent& event);

/// Left and Right move a page that is wider than the viewport; swallowed.
bool MovePageByKey(Program& program, QEvent& event);

/// Left edge of the page surface in the viewport: 0 while the page is not wider.
int LeftOfPage(const Program& program);
