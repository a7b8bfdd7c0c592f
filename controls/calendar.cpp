#include "controls/calendar.h"

#include "controls/events.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// The widget of that name inside the calendar; Qt names them and nothing else gives access.
template <typename Inner> Inner* InnerWidget(QCalendarWidget* calendar, const char* name)
{
    return calendar->findChild<Inner*>(QString::fromLatin1(name));
}

/// The head would be as loud as a selection; it gets the ground of the window instead.
void MakeHeadCalm(QCalendarWidget* calendar)
{
    auto* head = InnerWidget<QWidget>(calendar, "qt_calendar_navigationbar");
    if (head == nullptr)
        return;
    QPalette palette = head->palette();
    for (const QPalette::ColorGroup group :
        { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        palette.setColor(group, QPalette::Highlight, palette.color(group, QPalette::Window));
        palette.setColor(
            group, QPalette::HighlightedText, palette.color(group, QPalette::WindowText));
    }
    head->setPalette(palette);
}

/// Red weekends would say that something is wrong.
void MakeWeekendCalm(QCalendarWidget* calendar)
{
    QTextCharFormat weekend;
    weekend.setForeground(calendar->palette().color(QPalette::Text));
    calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
    calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
}

/// Plain arrows in the colour of the text instead of the desktop's coloured icons.
void MakeArrow(QCalendarWidget* calendar, const char* name, Qt::ArrowType arrow)
{
    if (auto* button = InnerWidget<QToolButton>(calendar, name); button != nullptr) {
        button->setIcon({});
        button->setArrowType(arrow);
        const int size = calendar->fontMetrics().height();
        button->setIconSize({ size, size });
    }
}

void NameInner(QCalendarWidget* calendar, const char* name, const QString& says)
{
    if (auto* inner = InnerWidget<QWidget>(calendar, name); inner != nullptr)
        inner->setAccessibleName(calendar->accessibleName() + u", "_s + says);
}

/// Qt leaves so little room around the names of the days that the widest one would be cut off.
void KeepDayNamesWhole(QCalendarWidget* calendar)
{
    const auto fit = [calendar] {
        constexpr int days = 7;
        constexpr int more_for_each_day = 4;
        calendar->setMinimumWidth(calendar->minimumSizeHint().width() + days * more_for_each_day);
    };
    fit();
    HookEvent(calendar, QEvent::FontChange, [fit](QEvent&) {
        fit();
        return false;
    });
}

} // namespace

QCalendarWidget* MakeCalendar(QWidget* parent, const QString& accessible_name)
{
    auto* calendar = new QCalendarWidget(parent);
    calendar->setLocale(QLocale(QLocale::German, QLocale::Germany));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    calendar->setGridVisible(false);
    calendar->setAccessibleName(accessible_name);
    MakeHeadCalm(calendar);
    MakeWeekendCalm(calendar);
    MakeArrow(calendar, "qt_calendar_prevmonth", Qt::LeftArrow);
    MakeArrow(calendar, "qt_calendar_nextmonth", Qt::RightArrow);
    KeepDayNamesWhole(calendar);
    NameInner(calendar, "qt_calendar_prevmonth", u"voriger Monat"_s);
    NameInner(calendar, "qt_calendar_nextmonth", u"nächster Monat"_s);
    NameInner(calendar, "qt_calendar_monthbutton", u"Monat"_s);
    NameInner(calendar, "qt_calendar_yearbutton", u"Jahr"_s);
    NameInner(calendar, "qt_calendar_yearedit", u"Jahr eingeben"_s);
    NameInner(calendar, "qt_calendar_calendarview", u"Tage"_s);
    return calendar;
}
