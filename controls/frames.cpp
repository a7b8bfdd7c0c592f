#include "controls/frames.h"

#include "controls/fields.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

QGroupBox* MakeFrame(QWidget* parent, const QString& caption)
{
    auto* frame = new QGroupBox(caption, parent);
    auto* grid = new QGridLayout(frame);
    grid->setSpacing(FrameSpacing);
    return frame;
}

QGridLayout* GridOf(QGroupBox* frame) { return static_cast<QGridLayout*>(frame->layout()); }

QVBoxLayout* ColumnOf(QGroupBox* frame)
{
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(FrameSpacing, FrameSpacing, FrameSpacing, FrameSpacing);
    column->setSpacing(FrameSpacing);
    return column;
}

QLabel* AddRow(QGridLayout* grid, const QString& caption, QWidget* field)
{
    const int row = grid->count() == 0 ? 0 : grid->rowCount();
    QLabel* label = MakeCaption(field->parentWidget(), caption, field);
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    return label;
}

void AddSaveRow(QGridLayout* grid, QLabel* mark, QPushButton* button)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addStretch();
    row->addWidget(mark);
    row->addWidget(button);
    grid->addLayout(row, grid->rowCount(), 0, 1, grid->columnCount());
}

QLabel* MakeMark(QWidget* parent, const QString& name)
{
    auto* mark = Named(new QLabel(QStringLiteral("Nicht gespeichert"), parent), name);
    mark->setBackgroundRole(QPalette::Base);
    mark->setAutoFillBackground(true);
    mark->setMargin(FrameSpacing / 2);
    Tint(mark, TintKind::Unsaved,
        QStringLiteral("Hier wurde etwas geändert und noch nicht gespeichert."));
    QSizePolicy policy = mark->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when it appears
    mark->setSizePolicy(policy);
    mark->hide();
    return mark;
}

QPushButton* MakeSaveButton(
    QWidget* parent, const QString& name, const QString& accessible_name, const QString& tool_tip)
{
    auto* button = Named(MakeButton(parent, QStringLiteral("Speichern"), tool_tip), name);
    button->setAccessibleName(accessible_name);
    MakePrimary(button);
    return button;
}
