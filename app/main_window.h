// The main window: club name, "Beenden", the tab control with its four tabs.
#pragma once

#include "app/more.h"

class QLabel;
class QLineEdit;
class QMainWindow;
class QPushButton;
class QTabWidget;
struct Program;

/// The tabs in their order.
enum Tab { MembersTab, StatementTab, CashBookTab, SettingsTab, TabCount };

/// Controls outside the tabs.
struct MainWindowForm {
    QMainWindow* Window = nullptr;
    QTabWidget* SSTab1 = nullptr;
    QLabel* ClubNameLabel = nullptr; ///< Label1(1)
    QLineEdit* Text5 = nullptr; ///< club name entry, only while "\V.dat" is missing
    QPushButton* Command22 = nullptr; ///< saves the club name
    QPushButton* Command8 = nullptr; ///< "Beenden"
    MoreForm More; ///< in the corner of the tabs
};

/// Builds the window with all four tabs and connects every handler. The window is not shown and
/// nothing is loaded. The program owns the window; it lives until DestroyMainWindow.
void BuildMainWindow(Program& program);

void DestroyMainWindow(Program& program);
