#include "settings/price_settings.h"

#include "data/dates.h"
#include "data/file_names.h"
#include "settings/ini_file.h"

#include <array>

namespace {

using TextMember = QString PriceSettings::*;

/// A text of the prices and the key under which it is stored.
struct KeyedText {
    TextMember text;
    QString key;
};

const std::array<TextMember, PriceCount + 1> price_fields { &PriceSettings::ElectricityPrice,
    &PriceSettings::WaterPrice, &PriceSettings::FlatEnergyCharge, &PriceSettings::MembershipFee,
    &PriceSettings::Lease, &PriceSettings::PropertyTax, &PriceSettings::AreaContribution,
    &PriceSettings::RepairLevy, &PriceSettings::PaymentDeadline };

const KeyedText repair_levy { &PriceSettings::RepairLevy, QStringLiteral("RepUmlage") };

const std::array<KeyedText, 7> prices_charged { {
    { &PriceSettings::ElectricityPrice, QStringLiteral("Stromkosten") },
    { &PriceSettings::WaterPrice, QStringLiteral("Wasserkosten") },
    { &PriceSettings::FlatEnergyCharge, QStringLiteral("Energiepauschale") },
    { &PriceSettings::MembershipFee, QStringLiteral("Beitrag") },
    { &PriceSettings::Lease, QStringLiteral("Pacht") },
    { &PriceSettings::PropertyTax, QStringLiteral("Steuer") },
    { &PriceSettings::AreaContribution, QStringLiteral("Fläche") },
} };

const std::array<KeyedText, 2> dates { {
    { &PriceSettings::BillingDate, QStringLiteral("Abrechnungsdatum") },
    { &PriceSettings::PaymentDeadline, QStringLiteral("Überweisdatum") },
} };

const QString electricity_prepayment_key = QStringLiteral("Vorauszahlung Strom");
const QString water_prepayment_key = QStringLiteral("Vorauszahlung Wasser");
const QString no_amount = QStringLiteral("0,00");

/// Reads these texts from one section.
template <typename KeyedTexts>
void ReadTexts(
    PriceSettings& prices, const DataFiles& files, const QString& section, const KeyedTexts& texts)
{
    QStringList keys;
    for (const KeyedText& text : texts)
        keys += text.key;
    const QStringList values = ReadIniValues(files, section, keys, PriceSettingsFile);
    for (std::size_t i = 0; i < texts.size(); ++i)
        prices.*texts[i].text = values[static_cast<qsizetype>(i)];
}

qint16 ReadFlag(const DataFiles& files, const QString& section, const QString& key)
{
    const QString stored = ReadIni(files, section, key, PriceSettingsFile);
    return stored == QStringLiteral("1") ? 1 : 0; // "-1" is no yes either
}

void ReadPreviousPrices(PriceSettings& prices, const DataFiles& files, const QString& last_year)
{
    PriceSettings previous;
    ReadTexts(previous, files, last_year, prices_charged);
    prices.PreviousElectricityPrice = previous.ElectricityPrice;
    prices.PreviousWaterPrice = previous.WaterPrice;
}

void CarryOver(PriceSettings& prices, const DataFiles& files, const QString& last_year)
{
    ReadTexts(prices, files, last_year, std::array { repair_levy });
    ReadTexts(prices, files, last_year, prices_charged);
    prices.BillingDate = DateToUpdate;
    prices.PaymentDeadline = DateToUpdate;
}

PriceSettings WithoutFile(const PriceSettings& shown)
{
    PriceSettings prices;
    for (const TextMember field : price_fields)
        prices.*field = no_amount;
    prices.BillingDate = shown.BillingDate;
    return prices;
}

template <typename KeyedTexts>
void AddEntries(QVector<IniEntry>& entries, const PriceSettings& prices, const KeyedTexts& texts)
{
    for (const KeyedText& text : texts)
        entries += IniEntry { text.key, prices.*text.text };
}

} // namespace

QString& PriceText(PriceSettings& prices, std::size_t index)
{
    return prices.*price_fields.at(index);
}

const QString& PriceText(const PriceSettings& prices, std::size_t index)
{
    return prices.*price_fields.at(index);
}

LoadedPrices ReadPrices(
    const DataFiles& files, const QString& year_text, int start_up_year, const PriceSettings& shown)
{
    if (!FileExists(files, PriceSettingsFile))
        return { WithoutFile(shown), false };
    const QString last_year = PreviousYear(year_text);
    LoadedPrices loaded;
    PriceSettings& prices = loaded.Prices;
    prices.RepairLevy = shown.RepairLevy;
    ReadTexts(prices, files, year_text, prices_charged);
    ReadTexts(prices, files, year_text, dates);
    prices.ElectricityPrepayment = ReadFlag(files, year_text, electricity_prepayment_key);
    prices.WaterPrepayment = ReadFlag(files, year_text, water_prepayment_key);
    ReadPreviousPrices(prices, files, last_year);
    loaded.CarriedOver
        = prices.ElectricityPrice.isEmpty() && year_text == QString::number(start_up_year);
    if (loaded.CarriedOver)
        CarryOver(prices, files, last_year);
    return loaded;
}

void WriteCarriedOver(const DataFiles& files, const QString& year_text, const PriceSettings& prices)
{
    QVector<IniEntry> entries;
    AddEntries(entries, prices, prices_charged);
    AddEntries(entries, prices, dates);
    WriteIniValues(files, year_text, entries, PriceSettingsFile);
}

void WritePrices(const DataFiles& files, const QString& year_text, const PriceSettings& prices)
{
    QVector<IniEntry> entries;
    AddEntries(entries, prices, std::array { repair_levy });
    AddEntries(entries, prices, prices_charged);
    AddEntries(entries, prices, dates);
    entries
        += IniEntry { electricity_prepayment_key, QString::number(prices.ElectricityPrepayment) };
    entries += IniEntry { water_prepayment_key, QString::number(prices.WaterPrepayment) };
    WriteIniValues(files, year_text, entries, PriceSettingsFile);
}
