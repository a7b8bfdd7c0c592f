// The tab "Stammdaten": year choice, name list, member form, meter readings, member overview.
#pragma once

#include <QStringList>

#include <array>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;
class QWidget;
struct Program;

/// Controls of the tab. Command1 has the indexes 0 and 2 only.
struct MemberForm {
    std::array<QLineEdit*, 12> Text3 {}; ///< member fields, record fields 0 to 11
    std::array<QLineEdit*, 6>
        Text1 {}; ///< readings and differences: electricity 0 to 2, water 3 to 5
    QLineEdit* Text2 = nullptr; ///< year box, display only
    std::array<QPushButton*, 2> Command3 {}; ///< year forward, year back
    QPushButton* Command4 = nullptr; ///< "Laden"
    QListWidget* List1 = nullptr; ///< "Mitglieder Namen"
    QTreeWidget* ListView2 = nullptr; ///< member overview in the frame "Mittglieder"
    QPushButton* Command14 = nullptr; ///< "Neu Anlegen"
    QPushButton* Command1Save = nullptr; ///< Command1(0) "Speichern"
    QPushButton* Command1Delete = nullptr; ///< Command1(2) "Löschen"
    QPushButton* Command2 = nullptr; ///< "OK" of the readings
};

/// Builds the tab's controls into the given page and connects their handlers.
void BuildMemberTab(Program& program, QWidget* tab);

/// Connects the handlers of the built controls; the last step of BuildMemberTab.
void ConnectMemberTab(Program& program);

/// Group 0: the twelve member fields; 1: the six meter fields; 2: the price fields of the settings
/// tab. Others: nothing.
void ClearFields(Program& program, int group);

/// Shows entry CurrentMember in the form. An empty record list only clears the form. Throws
/// RuntimeError SubscriptOutOfRange (after filling what is there) and TypeMismatch (differences).
void ShowMember(Program& program);

/// List1 shows the name list; its selection follows CurrentMember. Runs no handler.
void ShowNameList(Program& program);

/// ListView2 shows these rows in its only column "Namen", the shown member marked; row k has the
/// key "Zeile k" (item data, Qt::UserRole). Runs no handler.
void ShowMemberOverview(Program& program, const QStringList& rows);

/// Both lists mark the shown member and scroll to him; none is marked while a new one is typed.
/// Runs no handler.
void MarkShownMember(const Program& program);

/// The control of record field 0 to 15: Text3(0) to Text3(11), Text1(0), (1), (3), (4).
QLineEdit* ControlOfField(const MemberForm& form, int field);

/// Tints record field 0 to 15 by how its text stands to the file.
void ShowFieldState(Program& program, int field);

void SelectMember(Program& program, int position); ///< name list and member table
void MemberFieldClicked(Program& program, int field); ///< Text3(field)
void NewMember(Program& program); ///< Command14

/// Command1(0). When the file cannot be written, lists and form stay as they are.
void SaveMember(Program& program);

/// Command1(2). When the file cannot be written, lists and form stay as they are.
void DeleteMember(Program& program);

/// Command2. The record list has the readings before the differences are computed: a reading that
/// is no number stops it there, before the file is written.
void EnterReadings(Program& program);

/// Ctrl+Down (1) and Ctrl+Up (-1) in the readings: enters what was typed, then shows the member
/// below or above with the electricity end reading selected for typing.
void StepMember(Program& program, int direction);
