#include "controls/roomy_rows.h"

#include "controls/outline.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace {

constexpr int row_margin = 3; // above and below the text of a row

} // namespace

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * row_margin);
}

bool RoomyRows::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const bool cut_off = sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !cut_off || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), index.data().toString(), view);
    return true;
}

void RoomyRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    ClearOutline(option->palette, option->palette);
}
