#include "statement/zoom_form.h"

#include "app/program.h"
#include "statement/page_preview.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int smallest = 50; // percent
constexpr int largest = 300;
constexpr int zoom_step = 25;
constexpr int sideways_step = 40; // pixels

void SetZoom(Program& program, int percent)
{
    StatementForm& form = program.StatementPreview;
    const int zoom = std::clamp(percent, smallest, largest);
    if (zoom == form.Zoom)
        return;
    const int scrolled = form.VScroll1->value() * zoom / form.Zoom;
    form.Zoom = zoom;
    form.LeftOut = 0;
    static_cast<PageSurface*>(form.P2)->SetZoom(zoom);
    static_cast<PageViewport*>(form.P1)->SetZoom(zoom);
    FitPreview(program);
    form.VScroll1->setValue(scrolled); // what was at the top stays there
}

void MoveSideways(Program& program, int pixels)
{
    StatementForm& form = program.StatementPreview;
    form.LeftOut
        = std::clamp(form.LeftOut + pixels, 0, std::max(0, form.P2->width() - form.P1->width()));
    FitPreview(program);
}

} // namespace

void BuildZoomKeys(Program& program, QWidget* tab)
{
    const auto key = [&](int keys, auto routine) {
        auto* shortcut = new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | keys), tab);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        On(program, shortcut, &QShortcut::activated, routine);
    };
    key(Qt::Key_Plus, [](Program& p) { SetZoom(p, p.StatementPreview.Zoom + zoom_step); });
    key(Qt::Key_Minus, [](Program& p) { SetZoom(p, p.StatementPreview.Zoom - zoom_step); });
    key(Qt::Key_0, [](Program& p) { SetZoom(p, 100); });
}

int LeftOfPage(const Program& program)
{
    const StatementForm& form = program.StatementPreview;
    return -std::min(form.LeftOut, std::max(0, form.P2->width() - form.P1->width()));
}

bool ZoomByWheel(Program& program, QEvent& event)
{
    const auto& wheel = static_cast<const QWheelEvent&>(event);
    if (!wheel.modifiers().testFlag(Qt::ControlModifier))
        return false;
    const int up = wheel.angleDelta().y();
    if (up != 0)
        SetZoom(program, program.StatementPreview.Zoom + (up > 0 ? zoom_step : -zoom_step));
    return true;
}

bool MovePageByKey(Program& program, QEvent& event)
{
    const int key = static_cast<const QKeyEvent&>(event).key();
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    MoveSideways(program, key == Qt::Key_Left ? -sideways_step : sideways_step);
    return true;
}
