#include "controls/outline.h"

#include <QColor>
#include <QPalette>

namespace {

constexpr int half_light = 128;
constexpr int outline_shade = 130; // percent; styles draw the outline darker still

} // namespace

void ClearOutline(QPalette& palette, const QPalette& of)
{
    if (of.color(QPalette::Base).lightness() < half_light)
        palette.setColor(QPalette::Window, of.color(QPalette::Text).darker(outline_shade));
}
