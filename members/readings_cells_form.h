// The table of the window "Ablesung".
#pragma once

class QTableWidget;
class QWidget;
enum class ShownMeters;
struct Program;

/// Makes and connects the table; its rows are filled by ShowReadingsTable.
QTableWidget* BuildReadingsTable(Program& program, QWidget* window);

/// One row for each member as the lists have him, and the sums.
void ShowReadingsTable(Program& program);

/// Shows the columns of these meters alone, and their sums.
void ShowMeters(Program& program, ShownMeters shown);

/// Both meters, electricity, water, and round again; the member stays.
void NextMeters(Program& program);

/// Leads to the first member without a reading, else to the first member.
void GoToFirstMissing(Program& program);
