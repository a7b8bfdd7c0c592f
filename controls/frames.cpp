#include "controls/frames.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

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
    auto* mark = Named(new QLabel(u"Nicht gespeichert"_s, parent), name);
    mark->setBackgroundRole(QPalette::Base);
    mark->setAutoFillBackground(true);
    mark->setMargin(FrameSpacing / 2);
    Tint(mark, TintKind::Unsaved, u"Hier wurde etwas geändert und noch nicht gespeichert."_s);
    QSizePolicy policy = mark->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // nothing moves when it appears
    mark->setSizePolicy(policy);
    mark->hide();
    return mark;
}

void MarkUnsaved(QWidget* field, bool differs)
{
    if (TintOf(field) != TintKind::Wrong)
        Tint(field, differs ? TintKind::Unsaved : TintKind::None,
            u"Diese Eingabe ist noch nicht gespeichert."_s);
}

void MarkWrongOrUnsaved(QWidget* field, bool wrong, const QString& tool_tip, bool differs)
{
    Tint(field, TintKind::None);
    if (wrong)
        Tint(field, TintKind::Wrong, tool_tip);
    MarkUnsaved(field, differs);
}

void LeaveRoomBeside(QGridLayout* grid)
{
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(grid->rowCount(), 1);
}

QLabel* MakeWarningLine(QWidget* parent, const QString& name, TintKind kind)
{
    auto* line = Named(new QLabel(parent), name);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->setBackgroundRole(QPalette::Base);
    line->setAutoFillBackground(true);
    line->setMargin(FrameSpacing / 2);
    Tint(line, kind);
    line->hide();
    return line;
}

void ShowWarningLine(QLabel* line, const QString& text, const QString& tool_tip)
{
    line->setText(text);
    line->setToolTip(tool_tip);
    line->setVisible(!text.isEmpty());
}

QPushButton* MakeSaveButton(
    QWidget* parent, const QString& name, const QString& accessible_name, const QString& tool_tip)
{
    auto* button = Named(MakeButton(parent, u"Speichern"_s, tool_tip), name);
    button->setAccessibleName(accessible_name);
    MakePrimary(button);
    return button;
}

QSize SizeOnScreen(const QWidget* window, const QSize& wanted)
{
    // What the desktop puts around a window: two edges, a title bar and an edge below.
    constexpr QSize frame(16, 48);
    return wanted.boundedTo(window->screen()->availableGeometry().size() - frame);
}
