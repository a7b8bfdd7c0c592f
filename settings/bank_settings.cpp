#include "settings/bank_settings.h"

#include "data/file_names.h"
#include "settings/ini_file.h"

#include <array>

namespace {

struct KeyedText {
    QString BankSettings::*text;
    QString key;
};

const QString section = QStringLiteral("Daten");
const QString salutation_key = QStringLiteral("Anrede");

/// In the order of the fields and of the file. IBAN and BIC lie under the names of the numbers that
/// they replaced, so that old files stay readable.
const std::array<KeyedText, BankFieldCount + 1> texts { {
    { &BankSettings::BankName, QStringLiteral("Bankname") },
    { &BankSettings::Iban, QStringLiteral("BLZ") }, // sic
    { &BankSettings::Bic, QStringLiteral("Kontonummer") }, // sic
    { &BankSettings::FirstContact, QStringLiteral("Name1") },
    { &BankSettings::SecondContact, QStringLiteral("Name2") },
    { &BankSettings::TreasurerName, QStringLiteral("Name") },
    { &BankSettings::TreasurerSalutation, salutation_key },
} };

} // namespace

QString& BankText(BankSettings& bank, std::size_t index) { return bank.*texts.at(index).text; }

const QString& BankText(const BankSettings& bank, std::size_t index)
{
    return bank.*texts.at(index).text;
}

BankSettings ReadBank(const DataFiles& files, const BankSettings& shown)
{
    BankSettings bank;
    if (!FileExists(files, BankSettingsFile)) {
        bank.TreasurerSalutation = shown.TreasurerSalutation;
        return bank;
    }
    QStringList keys;
    for (const KeyedText& text : texts)
        keys += text.key;
    const QStringList values = ReadIniValues(files, section, keys, BankSettingsFile);
    for (std::size_t i = 0; i < texts.size(); ++i)
        bank.*texts[i].text = values[static_cast<qsizetype>(i)];
    return bank;
}

void WriteBank(const DataFiles& files, const BankSettings& bank)
{
    QVector<IniEntry> entries;
    for (const KeyedText& text : texts)
        entries += IniEntry { text.key, bank.*text.text };
    WriteIniValues(files, section, entries, BankSettingsFile);
}

void WriteSalutation(const DataFiles& files, const QString& salutation)
{
    WriteIni(files, section, salutation_key, salutation, BankSettingsFile);
}
