// From a place on a bill page to the field that its text comes from.
#pragma once

#include "statement/page.h"

/// Name of the element that stands at that place (page pixels); empty where none does. A
/// right-aligned text counts as wide as its column.
QString ElementAt(const PageItems& items, int x, int y);

/// Object name of the control that an element of the page comes from ("row_14_amount" gives
/// "Text3(8)"); empty for sums and fixed texts.
QString ControlOfElement(const QString& element);
