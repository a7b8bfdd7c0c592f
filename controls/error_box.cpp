#include "controls/error_box.h"

#include "data/system_error.h"

#include <exception>
#include <new>

using namespace Qt::StringLiterals;

MessageBox ErrorBox(const RuntimeError& error)
{
    MessageBox box;
    box.title = u"Kleingarten Parzello"_s;
    box.icon = BoxIcon::Error;
    box.text = ErrorHeadline(error);
    box.detail = ErrorSentence(error);
    return box;
}

namespace {

void ShowOnce(ErrorBoxState& state, const AskRoutine& ask, const MessageBox& box)
{
    const QString whole = box.text + u'\n' + box.detail;
    if (state.Showing || state.ShownInThisAction.contains(whole))
        return;
    state.ShownInThisAction += whole;
    state.Showing = true;
    ask(box);
    state.Showing = false;
}

} // namespace

void ReportError(ErrorBoxState& state, const AskRoutine& ask, const RuntimeError& error)
{
    ShowOnce(state, ask, ErrorBox(error));
}

void WithErrorBox(ErrorBoxState& state, const AskRoutine& ask, const std::function<void()>& handler)
{
    if (state.Depth == 0)
        state.ShownInThisAction.clear();
    ++state.Depth;
    try {
        handler();
    } catch (const RuntimeError& error) {
        ReportError(state, ask, error);
    } catch (const std::bad_alloc&) {
        ReportError(state, ask, { ErrorKind::File, {}, ReasonOf(Fault::NoMemory) });
    } catch (const std::exception& error) {
        RuntimeError unexpected { ErrorKind::File, {}, QString::fromUtf8(error.what()) };
        ReportError(state, ask, unexpected);
    }
    --state.Depth;
}
