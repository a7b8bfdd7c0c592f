// The frame "Datensicherung" on the tab "Einstellungen": "Sichern", "Wiederherstellen" and the bar.
// Copying and the search for the stick know no window: copying.h, drives.h.
#pragma once

#include "backup/drives.h"

#include <QString>
#include <QTime>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;
class QWidget;
struct Program;

struct BackupForm {
    QPushButton* Command10 = nullptr; ///< "Sichern"
    QPushButton* Command11 = nullptr; ///< "Wiederherstellen"
    QProgressBar* PB1 = nullptr; ///< 0 to 100, at its minimum between two runs
    QLabel* DoneLine = nullptr; ///< below the bar: where the last backup went and when
    std::function<QTime()> Clock = [] { return QTime::currentTime(); };
    std::function<QString()> FindDrive; ///< text of the first removable drive, empty when there
                                        ///< is none; set by BuildBackupFrame unless a test has
    std::function<Fallback()> FindFallback; ///< where to save without a drive; set likewise
};

/// The frame with its controls, for the settings tab to place.
QWidget* BuildBackupFrame(Program& program, QWidget* parent);

/// Command10: finds the drive, creates the folder, asks for the stick, copies, reads the copies
/// back, says so, also below the bar. Anything
/// but "OK" ends it with nothing copied. Throws RuntimeError (File); the bar is at its minimum
/// then.
void SaveBackup(Program& program);

/// Command11: finds the drive, lists the folder, asks for the stick, copies back, loads the year
/// and says so. Throws RuntimeError (File) before anything is loaded.
void RestoreBackup(Program& program);

/// Both buttons tell the folder in use.
void ShowBackupFolder(Program& program);
