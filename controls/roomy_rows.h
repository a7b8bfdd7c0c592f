// Rows of a list of names, high enough to be read and hit with ease.
#pragma once

#include <QStyledItemDelegate>

class QPalette;

class RoomyRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// A text that is cut off at large fonts is told whole by the tool tip, unless the row has one.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
