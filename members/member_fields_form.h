// The fields of the tab "Stammdaten": the member's address, plot and premiums (Text3), his readings
// (Text1).
#pragma once

#include "data/records.h"

class QGroupBox;
class QLineEdit;
class QWidget;
struct MemberForm;
struct Program;

/// Makes and connects the frame "Adresse" with the fields Text3; its grid has room for more rows.
QGroupBox* BuildAddressFields(Program& program, QWidget* parent);

/// Fills the frame "Zählerstände", which has no layout yet, with the two meters (Text1) in a column
/// and connects them.
void BuildMeterFields(Program& program, QGroupBox* frame);

/// The control of record field 0 to 15: Text3(0) to Text3(11), Text1(0), (1), (3), (4).
QLineEdit* ControlOfField(const MemberForm& form, int field);

/// The difference of the meter whose start reading that is: Text1(2) or Text1(5).
QLineEdit* DifferenceOf(const MemberForm& form, MemberField start);

/// The 16 texts of the form, as they go into the record.
MemberRecord TypedRecord(const MemberForm& form);

/// Group 0: the twelve member fields; 1: the six meter fields; 2: the price fields of the settings
/// tab. Others: nothing.
void ClearFields(Program& program, int group);

/// Fills the fields with a record's texts; for missing ones (a short record) they stay as they are.
void ShowRecord(Program& program, const MemberRecord& fields);

/// Both differences, in their fields and in the member state; a difference stays as it is while one
/// of its readings is empty. Throws RuntimeError TypeMismatch for a reading that is no number.
void ComputeDifferences(Program& program);

void MemberFieldClicked(Program& program, int field); ///< Text3(field)
