// The outline of boxes to tick.
#pragma once

class QPalette;

/// Colours it so that it is seen on a dark ground; of holds the colours of the control or list.
void ClearOutline(QPalette& palette, const QPalette& of);
