// The few kinds of captions and entry fields that every tab is made of: one look, one behaviour.
#pragma once

#include "controls/controls.h"

#include <QColor>
#include <QString>

#include <vector>

class QAbstractItemView;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

inline constexpr int FrameSpacing = 8; ///< pixels between things inside a frame
inline constexpr int TabSpacing = 12; ///< pixels between frames

/// What goes into a field; amounts and readings are right-aligned and tinted while their text is no
/// number.
enum class FieldKind { Text, Amount, DisplayOnly };

/// An entry field wide enough for so many characters. What is typed or pasted is shown at once as
/// it will be stored (data/ansi_text.h, AsStored), and a short note at the field says so when a
/// character had to be replaced; texts set by code are left alone. An amount is selected whole when
/// the focus comes, also with the first click, so that typing replaces it. The accessible
/// name is what a screen reader says and is unique within the tab; the unit ("KWh", "€") goes into
/// the accessible description.
QLineEdit* MakeField(QWidget* parent, FieldKind kind, int characters,
    const QString& accessible_name, const QString& unit = {});

/// A field for a number stays as narrow as its digits; returns the field.
QLineEdit* KeepNarrow(QLineEdit* field);

/// Gives a control the ground of the window, as everything has that cannot be typed into.
void LookReadOnly(QWidget* control);

/// A caption in front of a field (plain text; its buddy is the field).
QLabel* MakeCaption(QWidget* parent, const QString& text, QWidget* field = nullptr);

/// A button with room around its caption; Enter presses it while it has the focus.
QPushButton* MakeButton(QWidget* parent, const QString& caption, const QString& tool_tip = {});

/// Makes the button stand out as the one that its frame is for.
void MakePrimary(QPushButton* button);

/// Lets the outline of a box to tick or of a round button be seen on a dark desktop as well: some
/// styles draw it darker than the ground.
void KeepOutlineClear(QWidget* control);

/// Rows of a list of names high enough to be read and hit with ease; the tool tip of a name that is
/// cut off says it whole. Boxes to tick are seen on a dark desktop as well.
void MakeRowsRoomy(QAbstractItemView* list);

enum class TintKind { None, Unsaved, Wrong, OtherYear, Doubtful };

/// The ground of that tint for a widget, on light and dark desktops alike; None: its own ground.
QColor TintedGround(const QWidget* widget, TintKind kind);

/// Colours the field's ground (light and dark desktops alike) and shows the tool tip while it is
/// tinted; None gives the field its own colours and its own tool tip back. Tints say something,
/// they never change behaviour.
void Tint(QWidget* field, TintKind kind, const QString& tool_tip = {});

/// What is typed into these fields goes into one line of a file, joined with one separator: the
/// text that is typed is cut off where the line would become longer than that many characters.
void ShareOneLine(const std::vector<QLineEdit*>& fields, qsizetype longest_line);

/// The tint of a field, None when it has its own colours.
TintKind TintOf(const QWidget* field);
