// The tab "Einstellungen": prices of the year, bank, treasurer and contact persons. This file puts
// the frames together and does what concerns all of them; each frame has a header of its own.
#pragma once

#include "settings/bank_settings.h"
#include "settings/price_settings.h"

#include <array>

class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStringListModel;
class QWidget;
struct Program;

struct SettingsForm {
    // price_frame_form.h
    QLabel* Label4 = nullptr; ///< "Preise für das Jahr " + year
    std::array<QLineEdit*, PriceCount + 1>
        Text4 {}; ///< prices 0 to 6, "Reparaturumlage" 7, payment deadline 8 (by calendar only)
    QLabel* Label7 = nullptr; ///< billing date
    QCalendarWidget* Calendar1 = nullptr; ///< sets the billing date
    QCalendarWidget* Calendar2 = nullptr; ///< sets the payment deadline
    QCheckBox* Check1 = nullptr; ///< "Vorauszahlung Strom"
    QCheckBox* Check2 = nullptr; ///< "Vorauszahlung Wasser"
    QLabel* PricesMark = nullptr; ///< beside Command5, shown while something there is not saved
    QPushButton* Command5 = nullptr; ///< "Speichern" of the prices

    // bank_frames_form.h
    std::array<QLineEdit*, BankFieldCount> Text6 {}; ///< in the order of BankField
    QComboBox* C1 = nullptr; ///< "Anrede"
    QStringListModel* ContactNames = nullptr; ///< what Text6(3) and Text6(4) complete from
    QLabel* BankMark = nullptr; ///< beside Command7
    QPushButton* Command7 = nullptr; ///< "Speichern" of bank, treasurer and contacts
};

/// Builds the tab into the page, the frame "Datensicherung" of backup_form included.
void BuildSettingsTab(Program& program, QWidget* tab);

/// Fills the fields for YearText from both INI files; a new year without prices takes over last
/// year's and writes them. Errors are reported here and callers go on: one file that cannot be read
/// leaves its half of the tab as it was. Counts as no edit and leaves SettingsSaved alone.
void LoadSettings(Program& program);

/// Puts the saved texts (but no empty ones) and the prepayment boxes back; "Nein" of the tab guard.
void RestoreSettingsFields(Program& program);
