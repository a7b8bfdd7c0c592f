// The lists of the tab "Stammdaten": the frames "Mitglieder Namen" and "Mittglieder".
#pragma once

#include <QStringList>

#include <vector>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QTreeWidget;
class QWidget;
struct Program;

struct MemberNamesForm {
    QListWidget* List1 = nullptr; ///< "Mitglieder Namen"
    QWidget* MemberSearchRow = nullptr; ///< above List1; holds the next two
    QLineEdit* MemberSearch = nullptr; ///< what is searched
    QLabel* MemberSearchHits = nullptr; ///< what was found
    std::vector<int> Hits; ///< rows of List1 that it found
    int CurrentHit = -1; ///< of these; -1: none
    QLabel* FirstSteps = nullptr; ///< on List1 while there is no member
    QTreeWidget* ListView2 = nullptr; ///< member overview in the frame "Mittglieder"
};

/// Makes and connects the frame "Mitglieder Namen" with List1.
QGroupBox* BuildNameList(Program& program, QWidget* parent);

/// Makes and connects the frame "Mittglieder" with ListView2.
QGroupBox* BuildMemberOverview(Program& program, QWidget* parent);

/// List1 shows the name list; its selection follows CurrentMember. Runs no handler.
void ShowNameList(Program& program);

/// ListView2 shows these rows in its only column "Namen", the shown member marked; row k has the
/// key "Zeile k" (item data, Qt::UserRole). Runs no handler.
void ShowMemberOverview(Program& program, const QStringList& rows);

/// Both lists mark the shown member and scroll to him; none is marked while a new one is typed.
/// Runs no handler.
void MarkShownMember(const Program& program);

void FocusNames(const Program& program); ///< Ctrl+1: List1
