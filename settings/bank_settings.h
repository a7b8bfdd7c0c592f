// Bank, treasurer and contact persons in memory, read from and written to "\Config1.ini", section
// "Daten". Keys and file format: docs/file-formats.md, "INI files".
#pragma once

#include "data/line_file.h"

#include <QString>

#include <cstddef>

/// Texts as typed. Text6(0) to Text6(5), in this order, are the first six.
struct BankSettings {
    QString BankName; ///< Text6(0) "Bankname"
    QString Iban; ///< Text6(1), stored under the old key "BLZ"
    QString Bic; ///< Text6(2), stored under the old key "Kontonummer"
    QString FirstContact; ///< Text6(3) "Name1": surname, comma, first name
    QString SecondContact; ///< Text6(4) "Name2"
    QString TreasurerName; ///< Text6(5) "Name"
    QString TreasurerSalutation; ///< C1 "Anrede"

    bool operator==(const BankSettings& other) const = default;
};

/// The fields Text6(0) to Text6(5).
enum BankField : std::size_t {
    BankNameField = 0,
    IbanField,
    BicField,
    FirstContactField,
    SecondContactField,
    TreasurerNameField,
    BankFieldCount
};

/// The text that the field Text6(index) shows, index 0 to 5.
QString& BankText(BankSettings& bank, std::size_t index);
const QString& BankText(const BankSettings& bank, std::size_t index);

/// The stored texts. Without the file every text is empty and the salutation stays the shown one.
/// Throws RuntimeError (File) when the file cannot be read.
BankSettings ReadBank(const DataFiles& files, const BankSettings& shown);

/// Writes all seven values in one rewrite. Throws RuntimeError (File).
void WriteBank(const DataFiles& files, const BankSettings& bank);

/// Writes the salutation alone. Throws RuntimeError (File).
void WriteSalutation(const DataFiles& files, const QString& salutation);
