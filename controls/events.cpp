#include "controls/events.h"

#include <utility>

namespace {

class EventHook : public QObject {
public:
    EventHook(QObject* watched, QEvent::Type type, std::function<bool(QEvent&)> routine)
        : QObject(watched)
        , m_type(type)
        , m_routine(std::move(routine))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == m_type && m_routine(*event);
    }

private:
    QEvent::Type m_type;
    std::function<bool(QEvent&)> m_routine;
};

} // namespace

void HookEvent(QObject* watched, QEvent::Type type, std::function<bool(QEvent&)> routine)
{
    new EventHook(watched, type, std::move(routine)); // owned by the watched object
}
