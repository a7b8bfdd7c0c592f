// One member's bill of a year as numbers: made from the lists and prices without a page. How it
// looks on the page is said in bill_amounts.h; what each row holds is described in
// docs/bill-page.md. The bills of the loaded year are had from statement_pages.h.
#pragma once

#include "data/german_numbers.h"
#include "data/runtime_error.h"
#include "statement/bill_source.h"

#include <QString>
#include <QStringList>

#include <array>
#include <cstddef>
#include <optional>

/// The rows of a bill from top to bottom; the page numbers them 1 to 18, with two numbered 16.
enum BillRow : std::size_t {
    ElectricityRow, ///< 1: consumption and its amount
    ElectricityPaidRow, ///< 2: paid in advance last year, a deduction
    ElectricityAheadRow, ///< 3: asked for in advance
    FlatEnergyChargeRow, ///< 4
    ElectricitySumRow, ///< 5
    WaterRow, ///< 6
    WaterPaidRow, ///< 7: a deduction
    WaterAheadRow, ///< 8
    WaterSumRow, ///< 9
    MembershipFeeRow, ///< 10
    LeaseRow, ///< 11: plot size and amount, as the two that follow
    PropertyTaxRow, ///< 12
    AreaContributionRow, ///< 13
    LiabilityRow, ///< 14
    LegalRow, ///< 15
    AccidentRow, ///< 16
    BuildingRow, ///< 16 a second time
    InsuranceSumRow, ///< 17
    BillRowCount ///< row 18 is AnnualStatement::total
};

/// The cells of a row; absent where the cell stays empty.
struct StatementRow {
    std::optional<QString> quantity; ///< as shown: whole kWh or m³, or the plot size as typed
    std::optional<double> amount; ///< euros, rounded as shown; rows 2 and 7 are taken off the sum
    std::optional<double> subtotal; ///< euros, rounded as shown
};

/// A member's bill. One that could not be finished holds what was computed before it stopped.
struct AnnualStatement {
    QStringList address; ///< name, street, town; fewer when it stopped at one of them
    std::array<StatementRow, BillRowCount> rows; ///< by BillRow
    std::optional<float> total; ///< row 18, summed in single precision; absent when it stopped
    std::optional<RuntimeError> stopped; ///< why it is not finished
};

/// The prices that count, read once for all members. The empty text counts as 0.
struct PriceNumbers {
    ParsedDouble electricity;
    ParsedDouble water;
    ParsedDouble flat_energy_charge;
    ParsedDouble membership_fee;
    ParsedDouble lease;
    ParsedDouble property_tax;
    ParsedDouble area_contribution;
    ParsedDouble previous_electricity;
    ParsedDouble previous_water;
};
PriceNumbers ReadPriceNumbers(const PriceSettings& prices);

/// The bill of the member at that position (0 is the first member of the record list). Readings are
/// single precision, prices and products double, the running total single. Throws nothing: it stops
/// at SubscriptOutOfRange (short record, no line in last year's file), TypeMismatch or Overflow
/// (reading, price, premium, amount), in the order of the rows.
AnnualStatement ComputeStatement(const BillSource& source, qsizetype member);

/// The same with the numbers of source.Prices, for all members one after the other.
AnnualStatement ComputeStatement(
    const BillSource& source, const PriceNumbers& prices, qsizetype member);

/// A total as it goes into the totals list: default text of a single.
QString TotalText(float total);

/// The surname as it stands on the page: a 2 at its end tells two members of the same surname apart
/// in the lists and is left out.
QString PrintedSurname(const QString& surname);
