// The button "Mehr" beside the tabs and its menu: everything that is not prescribed is reached from
// here. An entry more is one line in more.cpp.
#pragma once

#include <QString>

#include <vector>

class QMenu;
class QPushButton;
struct Program;

/// An entry of the menu.
struct MoreEntry {
    QString name; ///< object name of its action ("MoreCheck")
    QString caption; ///< with the underlined letter ("&Prüfbericht …")
    QString keys; ///< work without the menu as well ("F9"); empty: none
    void (*run)(Program& program) = nullptr;
};

/// All entries, in the order of the menu.
const std::vector<MoreEntry>& MoreEntries();

struct MoreForm {
    QPushButton* More = nullptr;
    QMenu* MoreMenu = nullptr;
};

/// Puts the button into the corner of the tabs and connects the keys (F10 opens the menu).
void BuildMore(Program& program);
