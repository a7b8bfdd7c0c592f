// The line that searches a list: hidden, and without room, until it is called.
#pragma once

#include <QString>

class QLabel;
class QLineEdit;
class QWidget;

struct SearchLine {
    QWidget* Row = nullptr; ///< holds the other two
    QLineEdit* Words = nullptr; ///< what is searched
    QLabel* Hits = nullptr; ///< what was found
};

/// Words gets that object name, Hits the same with "Hits" behind it.
SearchLine MakeSearchLine(QWidget* parent, const QString& name, const QString& accessible_name,
    const QString& placeholder);

/// Shows the line; its words are selected, so that typing replaces them.
void OpenSearchLine(const SearchLine& line);

/// The number of a hit one step on, around at the ends; -1 without hits.
int NextHit(int current, int direction, qsizetype count);
