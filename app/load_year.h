// Choosing and loading a year: the year buttons and "Laden".
#pragma once

#include <array>

class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QWidget;
struct Program;

/// The year row at the top of the tab "Stammdaten".
struct YearForm {
    std::array<QPushButton*, 2> Command3 {}; ///< year forward, year back
    QLineEdit* Text2 = nullptr; ///< year box, display only
    QPushButton* Command4 = nullptr; ///< "Laden"
};

/// Makes and connects the year row.
QHBoxLayout* BuildYearRow(Program& program, QWidget* parent);

/// Command3(index): 0 one year forward (not past today's year), 1 one year back. Nothing is loaded.
void StepYear(Program& program, int index);

/// Reads the members of YearText and last year's lines; that year is the loaded one then. What is
/// wrong with last year's file is shown. Throws RuntimeError for this year's file; the lists stay
/// as they were, and the file is not written until it could be loaded.
void ReadMembersOfYear(Program& program);

/// Command4 "Laden": reloads every list of YearText and redraws all that depends on them; without a
/// members file the box "Datenfehler" is shown and everything loaded before stays.
void LoadYear(Program& program);

/// The year box Text2 shows YearText; tinted while it differs from the loaded year, since a save
/// goes to YearText.
void ShowYear(Program& program);

/// LoadYear after files were replaced as a whole: what was typed or booked before is gone with the
/// year that is loaded, and nobody must be asked whether to save it.
void LoadReplacedYear(Program& program);
