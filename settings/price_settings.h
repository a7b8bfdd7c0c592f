// The yearly prices in memory, read from and written to "\Config.ini" (one section per year).
// Keys and file format: docs/file-formats.md.
#pragma once

#include "data/line_file.h"

#include <QString>

#include <array>

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
};
