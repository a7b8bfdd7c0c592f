// Events that have no signal: a press into a field, the focus, the closing of the window.
#pragma once

#include <QEvent>
#include <QObject>

#include <functional>

/// Calls the routine for every event of that type that watched gets; true swallows the event. The
/// hook lives as long as the watched object. Handlers of the program go through OnEvent in
/// app/program.h, which shows what they throw.
void HookEvent(QObject* watched, QEvent::Type type, std::function<bool(QEvent&)> routine);
