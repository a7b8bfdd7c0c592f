// The tab "Einstellungen": prices of the year, bank, treasurer and contact persons.
#pragma once

#include <QString>

#include <array>
#include <optional>

class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QDate;
class QLabel;
class QLineEdit;
class QPushButton;
class QStringListModel;
class QWidget;
struct Program;

/// Marks of unsaved settings and the texts last loaded or saved.
struct SettingsState {
    bool SettingsSaved = true; ///< false after any edit on the tab
    bool PricesEdited = false; ///< a price, a date, the salutation or a prepayment box was edited
    std::array<QString, 11> SavedPrices; ///< snapshot of Text4(0) to Text4(7)
    std::array<std::optional<QString>, 8>
        DeclinedPrices; ///< Text4(0) to Text4(7) after the last "Nein" to their question
    std::array<QString, 6> SavedBank; ///< snapshot of Text6(0) to Text6(5)
    QString SavedBillingDate; ///< as last loaded or saved; a click in a calendar leaves it
    QString SavedDeadline; ///< the same
};

struct SettingsForm {
    QLabel* Label4 = nullptr; ///< "Preise für das Jahr " + year
    std::array<QLineEdit*, 9>
        Text4 {}; ///< prices 0 to 6, "Reparaturumlage" 7, payment deadline 8 (by calendar only)
    QLabel* Label7 = nullptr; ///< billing date
    QCalendarWidget* Calendar1 = nullptr; ///< sets the billing date
    QCalendarWidget* Calendar2 = nullptr; ///< sets the payment deadline
    QCheckBox* Check1 = nullptr; ///< "Vorauszahlung Strom"
    QCheckBox* Check2 = nullptr; ///< "Vorauszahlung Wasser"
    QPushButton* Command5 = nullptr; ///< "Speichern" of the prices
    std::array<QLineEdit*, 6> Text6 {}; ///< bank name, IBAN, BIC, two contacts, treasurer
    QComboBox* C1 = nullptr; ///< "Anrede"
    QPushButton* Command7 = nullptr; ///< "Speichern" of bank, treasurer and contacts
    QLabel* PricesMark = nullptr; ///< beside Command5, shown while something there is not saved
    QLabel* BankMark = nullptr; ///< beside Command7
    QStringListModel* ContactNames = nullptr; ///< what Text6(3) and Text6(4) complete from
};

/// Builds the tab into the page, the frame "Datensicherung" of backup_form included.
void BuildSettingsTab(Program& program, QWidget* tab);

/// Fills the fields for YearText from both INI files; a new year without prices takes over last
/// year's and writes them. Errors are reported here and callers go on: one file that cannot be read
/// leaves its half of the tab as it was. Counts as no edit and leaves SettingsSaved alone.
void LoadSettings(Program& program);

/// Command5: writes the twelve values of YearText, redraws the bills, tells so. Throws RuntimeError
/// (File) and leaves marks, memory and bills as they were then.
void SavePriceSettings(Program& program);

/// Command7: writes bank, treasurer, salutation and contacts; otherwise like SavePriceSettings.
void SaveBankSettings(Program& program);

/// Writes "Anrede" alone when C1 differs from the salutation in memory; the guard's Yes to the
/// price question.
void SaveSalutation(Program& program);

/// Puts the saved texts (but no empty ones) and the prepayment boxes back; "Nein" of the guard.
void RestoreSettingsFields(Program& program);

/// Label4 := "Preise für das Jahr " + YearText; both calendars take the year of YearText (29
/// February becomes the 28th).
void ShowSettingsYear(Program& program);

/// Both calendars show today's date. Runs no handler.
void SetSettingsCalendarsToToday(Program& program);

/// The contact fields complete from the name list.
void OfferContactNames(Program& program);

void PickBillingDate(Program& program, const QDate& date); ///< Calendar1
void PickPaymentDeadline(Program& program, const QDate& date); ///< Calendar2
