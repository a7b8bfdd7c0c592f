// The frames "Adresse" and "Zählerstände" of the tab "Stammdaten" with their buttons, and showing,
// saving and deleting a member.
#pragma once

#include "data/records.h"

#include <array>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;
struct Program;

/// Controls of both frames. Command1 has the indexes 0 and 2 only.
struct MemberForm {
    std::array<QLineEdit*, 12> Text3 {}; ///< member fields, record fields 0 to 11
    std::array<QLineEdit*, 6>
        Text1 {}; ///< readings and differences: electricity 0 to 2, water 3 to 5
    QLabel* ShiftNotice = nullptr; ///< over the address, for a record with too many fields
    QPushButton* Command14 = nullptr; ///< "Neu Anlegen"
    QPushButton* Command1Save = nullptr; ///< Command1(0) "Speichern"
    QPushButton* Command1Delete = nullptr; ///< Command1(2) "Löschen"
    QPushButton* Command2 = nullptr; ///< "OK" of the readings
};

/// Makes and connects the frame "Adresse".
QGroupBox* BuildAddress(Program& program, QWidget* parent);

/// Makes and connects the frame "Zählerstände".
QGroupBox* BuildReadings(Program& program, QWidget* parent);

/// Shows entry CurrentMember in the form. An empty record list only clears the form. Throws
/// RuntimeError SubscriptOutOfRange (after filling what is there) and TypeMismatch (differences).
void ShowMember(Program& program);

void SelectMember(Program& program, int position); ///< name list and member table
void NewMember(Program& program); ///< Command14

/// Command1(0). When the file cannot be written, lists and form stay as they are.
void SaveMember(Program& program);

/// Command1(2). When the file cannot be written, lists and form stay as they are.
void DeleteMember(Program& program);

/// Command2. The record list has the readings before the differences are computed: a reading that
/// is no number stops it there, before the file is written.
void EnterReadings(Program& program);

/// Shows the member at that position, puts the text into that reading and does what Command2 does,
/// except that the year is not read anew: who enters many does so at the end, with LoadYear.
void StoreReading(Program& program, int position, MemberField field, const QString& text);

/// Ctrl+Down (1) and Ctrl+Up (-1) in the readings: enters what was typed, then shows the member
/// below or above with the end reading of the same meter selected for typing.
void StepMember(Program& program, int direction);
