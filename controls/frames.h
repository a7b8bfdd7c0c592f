// The parts that frames with captions, fields and a button "Speichern" are made of.
#pragma once

#include "controls/fields.h"

#include <QString>

class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QVBoxLayout;
class QSize;
class QWidget;

inline constexpr int AmountCharacters = 10;
inline constexpr int DateCharacters = 19; ///< "Bitte aktualisieren"
inline constexpr int TextCharacters = 30;

/// A frame whose grid is filled by AddRow.
QGroupBox* MakeFrame(QWidget* parent, const QString& caption);

/// The grid of a frame that MakeFrame made.
QGridLayout* GridOf(QGroupBox* frame);

/// A column as layout of a frame that has none yet.
QVBoxLayout* ColumnOf(QGroupBox* frame);

/// A caption and its field as the next row of the grid; returns the caption.
QLabel* AddRow(QGridLayout* grid, const QString& caption, QWidget* field);

/// The mark "Nicht gespeichert" (hidden) and the button "Speichern" as the last row of a frame.
void AddSaveRow(QGridLayout* grid, QLabel* mark, QPushButton* button);

/// The mark "Nicht gespeichert", tinted and hidden; nothing moves when it appears.
QLabel* MakeMark(QWidget* parent, const QString& name);

/// Tints a field that differs from what is saved. A field that is tinted as wrong stays so: that
/// tint is the louder one and set by the field.
void MarkUnsaved(QWidget* field, bool differs);

/// The same for a field that does not know by itself that it is wrong; tool_tip says why.
void MarkWrongOrUnsaved(QWidget* field, bool wrong, const QString& tool_tip, bool differs);

/// Where there is more room than needed it goes to the right and below, not between captions and
/// fields.
void LeaveRoomBeside(QGridLayout* grid);

/// A tinted line of text that takes no room while it has nothing to say. Long texts wrap.
QLabel* MakeWarningLine(QWidget* parent, const QString& name, TintKind kind);

/// Shows the line with that text and tool tip; without a text it is gone.
void ShowWarningLine(QLabel* line, const QString& text, const QString& tool_tip = {});

/// The accessible name tells several buttons "Speichern" of a tab apart.
QPushButton* MakeSaveButton(
    QWidget* parent, const QString& name, const QString& accessible_name, const QString& tool_tip);

/// That size, or less where the window's screen is smaller: with its frame it lies on it whole.
QSize SizeOnScreen(const QWidget* window, const QSize& wanted);
