// The yearly prices in memory, read from and written to "\Config.ini" (one section per year).
// Keys and file format: docs/file-formats.md, "INI files".
#pragma once

#include "data/line_file.h"

#include <QString>

#include <array>
#include <cstddef>

using Qt::StringLiterals::operator""_s;

/// The prices of the loaded year; texts as typed. Text4(0) to Text4(6), in this order, are the
/// first seven.
struct PriceSettings {
    QString ElectricityPrice; ///< Text4(0) "Stromkosten", euros per kWh
    QString WaterPrice; ///< Text4(1) "Wasserkosten", euros per m³
    QString FlatEnergyCharge; ///< Text4(2) "Energiepauschale", euros
    QString MembershipFee; ///< Text4(3) "Beitrag", euros
    QString Lease; ///< Text4(4) "Pacht", euros per m²
    QString PropertyTax; ///< Text4(5) "Steuer", euros per m²
    QString AreaContribution; ///< Text4(6) "Fläche", euros per m²
    QString RepairLevy; ///< Text4(7) "RepUmlage", euros; stored and carried over, charged nowhere
    QString BillingDate; ///< Label7 "Abrechnungsdatum", date text
    QString PaymentDeadline; ///< Text4(8) "Überweisdatum", date text
    qint16 ElectricityPrepayment = 0; ///< 1 when the electricity prepayment applies, else 0
    qint16 WaterPrepayment = 0; ///< the same for water
    QString PreviousElectricityPrice; ///< last year's "Stromkosten"
    QString PreviousWaterPrice; ///< last year's "Wasserkosten"

    bool operator==(const PriceSettings& other) const = default;
};

/// The prices in the order of their fields Text4(0) to Text4(7), and the field behind them.
enum PriceField : std::size_t {
    ElectricityPriceField = 0,
    WaterPriceField,
    FlatEnergyChargeField,
    MembershipFeeField,
    LeaseField,
    PropertyTaxField,
    AreaContributionField,
    RepairLevyField,
    PriceCount,
    DeadlineField = PriceCount ///< Text4(8): the payment deadline
};

/// What belongs to one price.
struct PriceRow {
    QString PriceSettings::*Text;
    QString Key; ///< in "\Config.ini"
    QString Caption; ///< as it stands beside the field, a blank at its end included
    QString Unit; ///< "Euro je Kubikmeter"
};

/// One row for each price, Text4(0) to Text4(7).
const std::array<PriceRow, PriceCount>& PriceTable();

/// Both dates of a new year read so until they are picked.
inline const QString DateToUpdate = u"Bitte aktualisieren"_s;

/// The text that the field Text4(index) shows, index 0 to 8.
QString& PriceText(PriceSettings& prices, std::size_t index);
const QString& PriceText(const PriceSettings& prices, std::size_t index);

struct LoadedPrices {
    PriceSettings Prices;
    bool CarriedOver = false; ///< last year's prices, for a new year that had none
};

/// The prices of a year. Without the file every text is "0,00" (the deadline too) and the billing
/// date stays the shown one; the repair levy always stays the shown one, except in a carry-over.
/// The start-up year takes over last year's prices when it has no electricity price; nothing is
/// written here. Throws RuntimeError (File) when the file cannot be read.
LoadedPrices ReadPrices(const DataFiles& files, const QString& year_text, int start_up_year,
    const PriceSettings& shown);

/// Writes what a carry-over puts into the new year's section: seven prices and both dates. Repair
/// levy and prepayments are left out. Throws RuntimeError (File).
void WriteCarriedOver(
    const DataFiles& files, const QString& year_text, const PriceSettings& prices);

/// Writes all twelve values of the year, the repair levy first, in one rewrite. Throws RuntimeError
/// (File).
void WritePrices(const DataFiles& files, const QString& year_text, const PriceSettings& prices);
