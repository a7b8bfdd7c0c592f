#include "controls/picking.h"

#include <QKeyEvent>
#include <QPalette>
#include <QWidget>

bool IsPickKey(const QEvent& event)
{
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

void KeepSelectionClear(QWidget* view)
{
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
        palette.color(QPalette::Active, QPalette::Highlight));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
        palette.color(QPalette::Active, QPalette::HighlightedText));
    view->setPalette(palette);
}
