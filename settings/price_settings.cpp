#include "settings/price_settings.h"

#include "data/dates.h"
#include "data/file_names.h"
#include "settings/ini_file.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A text of the prices and the key under which it is stored.
struct KeyedText {
    QString PriceSettings::*text;
    QString key;
};

const std::array<KeyedText, 2> dates { {
    { &PriceSettings::BillingDate, u"Abrechnungsdatum"_s },
    { &PriceSettings::PaymentDeadline, u"Überweisdatum"_s },
} };

KeyedText KeyedPrice(std::size_t field)
{
    return { PriceTable().at(field).Text, PriceTable().at(field).Key };
}

std::array<KeyedText, 1> RepairLevy() { return { KeyedPrice(RepairLevyField) }; }

/// All prices but the repair levy, which is stored in front of them and at other times.
std::array<KeyedText, RepairLevyField> PricesCharged()
{
    std::array<KeyedText, RepairLevyField> texts;
    for (std::size_t field = 0; field < texts.size(); ++field)
        texts.at(field) = KeyedPrice(field);
    return texts;
}

const QString electricity_prepayment_key = u"Vorauszahlung Strom"_s;
const QString water_prepayment_key = u"Vorauszahlung Wasser"_s;
const QString no_amount = u"0,00"_s;

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
    return stored == u"1"_s ? 1 : 0; // "-1" is no yes either
}

void ReadPreviousPrices(PriceSettings& prices, const DataFiles& files, const QString& last_year)
{
    PriceSettings previous;
    ReadTexts(previous, files, last_year, PricesCharged());
    prices.PreviousElectricityPrice = previous.ElectricityPrice;
    prices.PreviousWaterPrice = previous.WaterPrice;
}

void CarryOver(PriceSettings& prices, const DataFiles& files, const QString& last_year)
{
    ReadTexts(prices, files, last_year, RepairLevy());
    ReadTexts(prices, files, last_year, PricesCharged());
    prices.BillingDate = DateToUpdate;
    prices.PaymentDeadline = DateToUpdate;
}

PriceSettings WithoutFile(const PriceSettings& shown)
{
    PriceSettings prices;
    for (std::size_t field = 0; field <= DeadlineField; ++field)
        PriceText(prices, field) = no_amount;
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

const std::array<PriceRow, PriceCount>& PriceTable()
{
    static const std::array<PriceRow, PriceCount> table { {
        { &PriceSettings::ElectricityPrice, u"Stromkosten"_s, u"Stromkosten pro KWh Mitglieder"_s,
            u"Euro je Kilowattstunde"_s },
        { &PriceSettings::WaterPrice, u"Wasserkosten"_s, u"Wasserkosten pro m³"_s,
            u"Euro je Kubikmeter"_s },
        { &PriceSettings::FlatEnergyCharge, u"Energiepauschale"_s, u"Energiepauschale"_s,
            u"Euro"_s },
        { &PriceSettings::MembershipFee, u"Beitrag"_s, u"Mitgliedsbeitrag"_s, u"Euro"_s },
        { &PriceSettings::Lease, u"Pacht"_s, u"Pacht pro m²"_s, u"Euro je Quadratmeter"_s },
        { &PriceSettings::PropertyTax, u"Steuer"_s, u"Grundsteuern (GS)A "_s, // sic
            u"Euro je Quadratmeter"_s },
        { &PriceSettings::AreaContribution, u"Fläche"_s, u"Flächenbeitrag"_s,
            u"Euro je Quadratmeter"_s },
        { &PriceSettings::RepairLevy, u"RepUmlage"_s, u"Reparaturumlage"_s, u"Euro"_s },
    } };
    return table;
}

QString& PriceText(PriceSettings& prices, std::size_t index)
{
    return index == DeadlineField ? prices.PaymentDeadline : prices.*PriceTable().at(index).Text;
}

const QString& PriceText(const PriceSettings& prices, std::size_t index)
{
    return index == DeadlineField ? prices.PaymentDeadline : prices.*PriceTable().at(index).Text;
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
    ReadTexts(prices, files, year_text, PricesCharged());
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
    AddEntries(entries, prices, PricesCharged());
    AddEntries(entries, prices, dates);
    WriteIniValues(files, year_text, entries, PriceSettingsFile);
}

void WritePrices(const DataFiles& files, const QString& year_text, const PriceSettings& prices)
{
    QVector<IniEntry> entries;
    AddEntries(entries, prices, RepairLevy());
    AddEntries(entries, prices, PricesCharged());
    AddEntries(entries, prices, dates);
    entries
        += IniEntry { electricity_prepayment_key, QString::number(prices.ElectricityPrepayment) };
    entries += IniEntry { water_prepayment_key, QString::number(prices.WaterPrepayment) };
    WriteIniValues(files, year_text, entries, PriceSettingsFile);
}
