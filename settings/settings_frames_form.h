// The frames of the tab "Einstellungen", each built by one routine, and the parts they share.
#pragma once

#include <QString>

class QBoxLayout;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QWidget;
struct Program;
struct SettingsForm;

inline constexpr int AmountCharacters = 10;
inline constexpr int DateCharacters = 19; ///< "Bitte aktualisieren"
inline constexpr int TextCharacters = 30;

/// A frame whose grid is filled by AddRow.
QGroupBox* MakeFrame(QWidget* parent, const QString& caption);

QGridLayout* GridOf(QGroupBox* frame);

/// A caption and its field as the next row of the grid; returns the caption.
QLabel* AddRow(QGridLayout* grid, const QString& caption, QWidget* field);

/// The mark "Nicht gespeichert" (hidden) and the button "Speichern" as the last row of a frame.
void AddSaveRow(QGridLayout* grid, QLabel* mark, QPushButton* button);

QLabel* MakeMark(QWidget* parent, const QString& name);

/// The accessible name tells the tab's two buttons "Speichern" apart.
QPushButton* MakeSaveButton(
    QWidget* parent, const QString& name, const QString& accessible_name, const QString& tool_tip);

struct PriceFrame {
    QGroupBox* frame = nullptr;
    QBoxLayout* columns = nullptr; ///< prices and dates, side by side or one below the other
};

/// Frame "Kosten".
PriceFrame BuildPriceFrame(SettingsForm& form, QWidget* parent);

/// Frames "Bankverbindung", "Kassenwart" and "Ansprechpartner", and below them the frame of
/// backup_form.
QWidget* BuildBankFrames(Program& program, QWidget* parent);
