// The frame "Datensicherung" on the tab "Einstellungen": "Sichern", "Wiederherstellen" and the bar.
#pragma once

#include <QString>

#include <functional>

class QProgressBar;
class QPushButton;
class QWidget;
struct Program;

struct BackupForm {
    QPushButton* Command10 = nullptr; ///< "Sichern"
    QPushButton* Command11 = nullptr; ///< "Wiederherstellen"
    QProgressBar* PB1 = nullptr;
    std::function<QString()>
        FindDrive; ///< text of the first removable drive, empty when there is none
};

/// The frame with its controls, for the settings tab to place.
QWidget* BuildBackupFrame(Program& program, QWidget* parent);
