// The frame "Drucken" of the tab "Druckvorlagen": which pages, and the button that prints them.
#pragma once

#include <functional>

class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;
class QRadioButton;
class QWidget;
struct Program;

struct PrintFrameForm {
    QRadioButton* Option1 = nullptr; ///< "Alles"
    QRadioButton* Option2 = nullptr; ///< "Seiten"
    QLineEdit* Text8From = nullptr; ///< Text8(0)
    QLineEdit* Text8To = nullptr; ///< Text8(1)
    QLabel* UnfinishedLine = nullptr; ///< says from which page on amounts are missing
    QLabel* YearLine = nullptr; ///< says that the pages name another year than their data
    QPushButton* Command6 = nullptr; ///< "Drucken"

    /// Lets the user set up the printer; false ends the print run. Tests put a printer file here.
    std::function<bool(QPrinter&)> ShowPrintDialog;
};

QWidget* BuildPrintFrame(Program& program, QWidget* parent);

/// Tints the page fields while they would print nothing, or less than "Alles" promises, and says
/// what is wrong with the pages: nothing is said when "Drucken" is pressed.
void ShowWhatWillBePrinted(Program& program);

void PrintStatements(Program& program); ///< Command6
