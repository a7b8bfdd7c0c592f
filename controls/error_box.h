// The error box. Every handler runs inside WithErrorBox, so that no exception leaves an event
// handler.
#pragma once

#include "controls/message_boxes.h"
#include "data/runtime_error.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <utility>

/// State of the error box: while a box is open, a further error (from a nested event) does not open
/// a second one on top.
struct ErrorBoxState {
    bool Showing = false;
    QStringList ShownInThisAction; ///< the same text at most once per user action
    int Depth = 0; ///< nesting of handlers; 0 between user actions
};

/// The box for an error: title "Kleingarten Parzello", error icon, headline and sentence.
MessageBox ErrorBox(const RuntimeError& error);

/// Shows the error now unless the same text was already shown in this user action.
void ReportError(ErrorBoxState& state, const AskRoutine& ask, const RuntimeError& error);

/// Runs the handler and reports what it throws. std::bad_alloc and other exceptions are reported as
/// well.
void WithErrorBox(
    ErrorBoxState& state, const AskRoutine& ask, const std::function<void()>& handler);
