// The month view from which a day is picked.
#pragma once

#include <QString>

class QCalendarWidget;
class QWidget;

/// A calendar in German whatever the desktop speaks: weeks begin with Monday, no week numbers, calm
/// colours of the desktop's own palette. A click or Enter picks a day (signals clicked and
/// activated). The accessible name also names its buttons, so that two calendars on one tab can be
/// told apart.
QCalendarWidget* MakeCalendar(QWidget* parent, const QString& accessible_name);
