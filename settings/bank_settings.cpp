#include "settings/bank_settings.h"

#include "data/file_names.h"
#include "settings/ini_file.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct KeyedText {
    QString BankSettings::*text;
    QString key;
};

const QString section = u"Daten"_s;
const QString salutation_key = u"Anrede"_s;

/// In the order of the fields and of the file. IBAN and BIC lie under the names of the numbers that
/// they replaced, so that old files stay readable.
const std::array<KeyedText, BankFieldCount + 1> texts { {
    { &BankSettings::BankName, u"Bankname"_s },
    { &BankSettings::Iban, u"BLZ"_s }, // sic
    { &BankSettings::Bic, u"Kontonummer"_s }, // sic
    { &BankSettings::FirstContact, u"Name1"_s },
    { &BankSettings::SecondContact, u"Name2"_s },
    { &BankSettings::TreasurerName, u"Name"_s },
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
