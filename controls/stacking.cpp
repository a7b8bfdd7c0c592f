#include "controls/stacking.h"

#include "controls/events.h"

#include <QBoxLayout>
#include <QEvent>
#include <QWidget>

int WidthSideBySide(const QBoxLayout* layout)
{
    int width = (layout->count() - 1) * layout->spacing();
    for (int i = 0; i < layout->count(); ++i)
        width += layout->itemAt(i)->minimumSize().width();
    return width;
}

void SetSideBySide(QBoxLayout* layout, bool side_by_side)
{
    layout->setDirection(side_by_side ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void StackWhenNarrow(QBoxLayout* layout, const QLayout* row, QWidget* page)
{
    QWidget* viewport = page->parentWidget();
    HookEvent(viewport, QEvent::Resize, [layout, row, page, viewport](QEvent&) {
        const QMargins margins = page->layout()->contentsMargins();
        const int around = row == page->layout() ? 0 : margins.left() + margins.right();
        const int needed = around + row->minimumSize().width() - layout->minimumSize().width()
            + WidthSideBySide(layout);
        // The whole area counts: its scroll bar is only there while the layout is stacked.
        SetSideBySide(layout, needed <= viewport->parentWidget()->contentsRect().width());
        return false;
    });
}
