#include "statement/annual_statement.h"

#include "data/records.h"
#include "statement/bill_numbers.h"
#include "statement/bill_places.h"

using namespace Qt::StringLiterals;

namespace {

/// What electricity and water have in common.
struct Meter {
    BillRow row; ///< the first of its three rows
    int start_field;
    int end_field;
    BillPrice price;
    BillPrice previous_price;
    bool prepaid; ///< the prepayment for next year applies
};

/// Single precision: two single readings, one single difference. The end is read first.
float Consumption(const Bill& bill, const Meter& meter)
{
    const float end = ReadingIn(bill, meter.end_field);
    const float difference = end - ReadingIn(bill, meter.start_field);
    Finite(static_cast<double>(difference), bill);
    return difference;
}

float PreviousConsumption(const Bill& bill, const Meter& meter)
{
    const float end = PreviousReadingIn(bill, meter.end_field);
    const float difference = end - PreviousReadingIn(bill, meter.start_field);
    Finite(static_cast<double>(difference), bill);
    return difference;
}

void SetAmount(Bill& bill, std::size_t row, double amount)
{
    bill.statement.rows[row].amount = Finite(amount, bill);
}

void SetSubtotal(Bill& bill, std::size_t row, double subtotal)
{
    bill.statement.rows[row].subtotal = Finite(subtotal, bill);
}

/// What this year's consumption costs and what of it is asked for in advance.
struct Charge {
    double amount = 0.0;
    double prepayment = 0.0;
};

/// Row 1 or 6. Without both readings and a price the quantity is "0" and the amount stays empty.
Charge ChargeConsumption(Bill& bill, const Meter& meter)
{
    StatementRow& row = bill.statement.rows[meter.row];
    if (Field(bill, meter.end_field).isEmpty() || Field(bill, meter.start_field).isEmpty()
        || meter.price.text.isEmpty()) {
        row.quantity = u"0"_s;
        return {};
    }
    // A difference that rounds to zero from below has no sign.
    const float quantity
        = static_cast<float>(RoundTo(static_cast<double>(Consumption(bill, meter)), 0)) + 0.0F;
    row.quantity = TextOfSingle(quantity);
    const double cost = Finite(static_cast<double>(quantity) * NumberIn(meter.price, bill), bill);
    const Charge charge { RoundTo(cost, 2), meter.prepaid ? RoundTo(cost, 0) : 0.0 };
    SetAmount(bill, meter.row, charge.amount);
    return charge;
}

/// Row 2 or 7: what was paid in advance last year, whenever both readings of last year are there.
double DeductPrepayment(Bill& bill, const Meter& meter)
{
    double deduction = 0.0;
    if (!PreviousField(bill, meter.end_field).isEmpty()
        && !PreviousField(bill, meter.start_field).isEmpty()) {
        // Not rounded before it is multiplied, unlike this year's consumption.
        const double consumption = static_cast<double>(PreviousConsumption(bill, meter));
        const double price = PreviousNumberIn(meter.previous_price, bill);
        deduction = RoundTo(Finite(consumption * price, bill), 0);
    }
    SetAmount(bill, meter.row + 1, deduction);
    return deduction;
}

/// Rows 1 to 3 or 6 to 8; returns their sum as shown.
double ChargeMeter(Bill& bill, const Meter& meter)
{
    const Charge charge = ChargeConsumption(bill, meter);
    const double deduction = DeductPrepayment(bill, meter);
    SetAmount(bill, meter.row + 2, charge.prepayment);
    return charge.amount - deduction + charge.prepayment;
}

void WriteAddress(Bill& bill)
{
    const QString surname = Field(bill, Surname);
    QStringList& lines = bill.statement.address;
    lines += Field(bill, FirstName) + u' ' + PrintedSurname(surname);
    lines += Field(bill, Street);
    lines += Field(bill, Town);
}

double ChargeElectricity(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    const QString key = u"Stromkosten"_s;
    double sum = ChargeMeter(bill,
        { ElectricityRow, ElectricityStart, ElectricityEnd,
            { key, prices.ElectricityPrice, bill.prices.electricity },
            { key, prices.PreviousElectricityPrice, bill.prices.previous_electricity },
            prices.ElectricityPrepayment == 1 });
    const BillPrice charge { u"Energiepauschale"_s, prices.FlatEnergyCharge,
        bill.prices.flat_energy_charge };
    const double flat = RoundTo(NumberIn(charge, bill), 2);
    SetAmount(bill, FlatEnergyChargeRow, flat);
    sum += flat;
    SetSubtotal(bill, ElectricitySumRow, sum);
    return sum;
}

double ChargeWater(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    const QString key = u"Wasserkosten"_s;
    const double sum = ChargeMeter(bill,
        { WaterRow, WaterStart, WaterEnd, { key, prices.WaterPrice, bill.prices.water },
            { key, prices.PreviousWaterPrice, bill.prices.previous_water },
            prices.WaterPrepayment == 1 });
    SetSubtotal(bill, WaterSumRow, sum);
    return sum;
}

double ChargeMembership(Bill& bill)
{
    const BillPrice fee { u"Beitrag"_s, bill.source.Prices.MembershipFee,
        bill.prices.membership_fee };
    const double amount = RoundTo(NumberIn(fee, bill), 2);
    SetSubtotal(bill, MembershipFeeRow, amount);
    return amount;
}

/// Rows 11 to 13: plot size times a price per square metre.
double ChargePlot(Bill& bill, BillRow row, const BillPrice& price)
{
    bill.statement.rows[row].quantity = Field(bill, PlotSize);
    const double square_metres = AmountIn(bill, PlotSize);
    const double amount = square_metres * NumberIn(price, bill);
    const double rounded = RoundTo(Finite(amount, bill), 2);
    SetSubtotal(bill, row, rounded);
    return rounded;
}

double ChargeInsurances(Bill& bill)
{
    double sum = 0.0;
    for (std::size_t row = LiabilityRow; row <= BuildingRow; ++row) {
        const int field = LiabilityPremium + static_cast<int>(row - LiabilityRow);
        Field(bill, field);
        const double amount = RoundTo(AmountIn(bill, field), 2);
        SetAmount(bill, row, amount);
        sum += amount;
    }
    SetSubtotal(bill, InsuranceSumRow, sum);
    return sum;
}

void ComputeRows(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    float total = 0.0F;
    const auto add = [&](double subtotal) {
        total = static_cast<float>(Finite(static_cast<double>(total) + subtotal, bill));
    };
    WriteAddress(bill);
    add(ChargeElectricity(bill));
    add(ChargeWater(bill));
    add(ChargeMembership(bill));
    add(ChargePlot(bill, LeaseRow, { u"Pacht"_s, prices.Lease, bill.prices.lease }));
    add(ChargePlot(
        bill, PropertyTaxRow, { u"Steuer"_s, prices.PropertyTax, bill.prices.property_tax }));
    add(ChargePlot(bill, AreaContributionRow,
        { u"Fläche"_s, prices.AreaContribution, bill.prices.area_contribution }));
    add(ChargeInsurances(bill));
    bill.statement.total = total;
}

/// Last year's fields of that position; all empty when there is no such year.
QStringList PreviousFields(const BillSource& source, qsizetype member)
{
    const MemberLists& lists = source.Members;
    if (lists.PreviousYearMissing || !lists.PreviousYearRead) {
        QStringList nothing;
        nothing.resize(MemberFieldCount);
        return nothing;
    }
    if (member >= lists.PreviousYearList.size())
        throw RuntimeError { ErrorKind::SubscriptOutOfRange, NoPreviousLinePlace(source, member),
            {} };
    return SplitRecord(lists.PreviousYearList[member]);
}

} // namespace

QString PrintedSurname(const QString& surname)
{
    return surname.endsWith(u'2') ? surname.chopped(1) : surname;
}

PriceNumbers ReadPriceNumbers(const PriceSettings& prices)
{
    return { ParseAmount(prices.ElectricityPrice), ParseAmount(prices.WaterPrice),
        ParseAmount(prices.FlatEnergyCharge), ParseAmount(prices.MembershipFee),
        ParseAmount(prices.Lease), ParseAmount(prices.PropertyTax),
        ParseAmount(prices.AreaContribution), ParseAmount(prices.PreviousElectricityPrice),
        ParseAmount(prices.PreviousWaterPrice) };
}

AnnualStatement ComputeStatement(
    const BillSource& source, const PriceNumbers& prices, qsizetype member)
{
    AnnualStatement statement;
    try {
        Bill bill { source, prices, member, SplitRecord(source.Members.RecordList[member]),
            PreviousFields(source, member), statement };
        ComputeRows(bill);
    } catch (const RuntimeError& error) {
        statement.stopped = error;
    }
    return statement;
}

AnnualStatement ComputeStatement(const BillSource& source, qsizetype member)
{
    return ComputeStatement(source, ReadPriceNumbers(source.Prices), member);
}

QString TotalText(float total) { return TextOfSingle(total); }
