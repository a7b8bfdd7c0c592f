#include "statement/bill_amounts.h"

#include "data/german_numbers.h"
#include "data/records.h"
#include "statement/bill_places.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// One member's bill while it is drawn.
struct Bill {
    const BillSource& source;
    PageItems& page;
    qsizetype member; ///< position from 0
    QStringList fields; ///< this year's record
    QStringList previous_fields; ///< last year's record at the same position
};

/// What electricity and water have in common.
struct Meter {
    int start_field;
    int end_field;
    const QString& price;
    const QString& previous_price;
    bool prepaid; ///< the prepayment for next year applies
    QString price_key; ///< key of the price in the settings file
    QStringList rows; ///< element names: consumption, deduction, prepayment
    int tops[3];
    int deduction_edge;
};

double Finite(double value, const Bill& bill)
{
    if (!std::isfinite(value) || std::abs(value) > std::numeric_limits<float>::max())
        throw RuntimeError { ErrorKind::Overflow, AmountsPlace(bill.source, bill.member), {} };
    return value;
}

void AddAmount(Bill& bill, const QString& element, int right_edge, int y, double value,
    const QString& format = u"0.00"_s)
{
    AddRightAligned(bill.page, element, right_edge, y, FormatNumber(Finite(value, bill), format));
}

const QString& Field(const Bill& bill, int field)
{
    return FieldAt(bill.fields, field, ShortRecordPlace(bill.source, bill.member, field));
}

const QString& PreviousField(const Bill& bill, int field)
{
    return FieldAt(
        bill.previous_fields, field, ShortPreviousRecordPlace(bill.source, bill.member, field));
}

/// Single precision: two single readings, one single difference.
float Difference(float end, float start, const Bill& bill)
{
    const float difference = end - start;
    Finite(difference, bill);
    return difference;
}

float Consumption(const Bill& bill, const Meter& meter)
{
    const auto reading = [&](int field) {
        const QString& text = bill.fields[field];
        return SingleOf(text, MemberFieldPlace(bill.source, bill.member, field, text));
    };
    const float end = reading(meter.end_field);
    return Difference(end, reading(meter.start_field), bill);
}

float PreviousConsumption(const Bill& bill, const Meter& meter)
{
    const auto reading = [&](int field) {
        const QString& text = bill.previous_fields[field];
        return SingleOf(text, PreviousFieldPlace(bill.source, bill.member, field, text));
    };
    const float end = reading(meter.end_field);
    return Difference(end, reading(meter.start_field), bill);
}

/// Rows 1 to 3 or 6 to 8; returns their sum as drawn.
double DrawMeterRows(Bill& bill, const Meter& meter)
{
    const bool charged = !Field(bill, meter.end_field).isEmpty()
        && !Field(bill, meter.start_field).isEmpty() && !meter.price.isEmpty();
    double amount = 0.0;
    double prepayment = 0.0;
    QString quantity_text = u"0"_s;
    float quantity = 0.0F;
    if (charged) {
        // A difference that rounds to zero from below has no sign.
        quantity
            = static_cast<float>(RoundTo(static_cast<double>(Consumption(bill, meter)), 0)) + 0.0F;
        quantity_text = TextOfSingle(quantity);
    }
    AddRightAligned(
        bill.page, meter.rows[0] + u"_quantity"_s, QuantityEdge, meter.tops[0], quantity_text);
    if (charged) {
        const double cost = static_cast<double>(quantity)
            * NumberOf(meter.price, PricePlace(bill.source, meter.price_key, meter.price));
        amount = RoundTo(Finite(cost, bill), 2);
        AddAmount(bill, meter.rows[0] + u"_amount"_s, AmountEdge, meter.tops[0], amount);
        if (meter.prepaid)
            prepayment = RoundTo(cost, 0);
    }

    double deduction = 0.0;
    if (!PreviousField(bill, meter.end_field).isEmpty()
        && !PreviousField(bill, meter.start_field).isEmpty()) {
        // Not rounded before it is multiplied, unlike this year's consumption.
        const double consumption = static_cast<double>(PreviousConsumption(bill, meter));
        const double price = AmountOf(meter.previous_price,
            PreviousPricePlace(bill.source, meter.price_key, meter.previous_price));
        deduction = RoundTo(Finite(consumption * price, bill), 0);
    }
    AddAmount(bill, meter.rows[1] + u"_amount"_s, meter.deduction_edge, meter.tops[1], deduction,
        u"-0.00"_s);
    AddAmount(bill, meter.rows[2] + u"_amount"_s, AmountEdge, meter.tops[2], prepayment);
    return amount - deduction + prepayment;
}

void DrawAddress(Bill& bill)
{
    QString surname = Field(bill, Surname);
    if (surname.endsWith(u'2')) // tells two members of the same surname apart in the lists
        surname.chop(1);
    AddText(bill.page, u"address_name"_s, 60, 180, Field(bill, FirstName) + u' ' + surname);
    AddText(bill.page, u"address_street"_s, 60, 200, Field(bill, Street));
    AddText(bill.page, u"address_town"_s, 60, 220, Field(bill, Town));
}

double DrawElectricity(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    double sum = DrawMeterRows(bill,
        { ElectricityStart, ElectricityEnd, prices.ElectricityPrice,
            prices.PreviousElectricityPrice, prices.ElectricityPrepayment == 1, u"Stromkosten"_s,
            { u"row_1"_s, u"row_2"_s, u"row_3"_s }, { Row1, Row2, Row3 }, AmountEdge });
    const QString& charge = prices.FlatEnergyCharge;
    const double flat
        = RoundTo(AmountOf(charge, PricePlace(bill.source, u"Energiepauschale"_s, charge)), 2);
    AddAmount(bill, u"row_4_amount"_s, AmountEdge, Row4, flat);
    sum += flat;
    AddAmount(bill, u"row_5_subtotal"_s, SubtotalEdge, Row5, sum);
    return sum;
}

double DrawWater(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    const double sum = DrawMeterRows(bill,
        { WaterStart, WaterEnd, prices.WaterPrice, prices.PreviousWaterPrice,
            prices.WaterPrepayment == 1, u"Wasserkosten"_s, { u"row_6"_s, u"row_7"_s, u"row_8"_s },
            { Row6, Row7, Row8 }, WaterPrepaymentEdge });
    AddAmount(bill, u"row_9_subtotal"_s, SubtotalEdge, Row9, sum);
    return sum;
}

double DrawMembershipFee(Bill& bill)
{
    const QString& fee = bill.source.Prices.MembershipFee;
    const double amount = RoundTo(AmountOf(fee, PricePlace(bill.source, u"Beitrag"_s, fee)), 2);
    AddAmount(bill, u"row_10_subtotal"_s, SubtotalEdge, Row10, amount);
    return amount;
}

/// Rows 11 to 13: plot size times a price per square metre.
double DrawPlotCharge(
    Bill& bill, const QString& row, int y, const QString& price, const QString& price_key)
{
    const QString& size = Field(bill, PlotSize);
    AddRightAligned(bill.page, row + u"_quantity"_s, QuantityEdge, y, size);
    const double square_metres
        = AmountOf(size, MemberFieldPlace(bill.source, bill.member, PlotSize, size));
    const double amount
        = square_metres * AmountOf(price, PricePlace(bill.source, price_key, price));
    const double rounded = RoundTo(Finite(amount, bill), 2);
    AddAmount(bill, row + u"_subtotal"_s, SubtotalEdge, y, rounded);
    return rounded;
}

double DrawInsurances(Bill& bill)
{
    struct Premium {
        int field;
        QString element;
        int y;
    };
    const Premium premiums[] { { LiabilityPremium, u"row_14_amount"_s, Row14 },
        { LegalPremium, u"row_15_amount"_s, Row15 }, { AccidentPremium, u"row_16_amount"_s, Row16 },
        { BuildingPremium, u"row_16b_amount"_s, Row16b } };
    double sum = 0.0;
    for (const Premium& premium : premiums) {
        const QString& text = Field(bill, premium.field);
        const double amount = RoundTo(
            AmountOf(text, MemberFieldPlace(bill.source, bill.member, premium.field, text)), 2);
        AddAmount(bill, premium.element, AmountEdge, premium.y, amount);
        sum += amount;
    }
    AddAmount(bill, u"row_17_subtotal"_s, SubtotalEdge, Row17, sum);
    return sum;
}

float DrawBill(Bill& bill)
{
    const PriceSettings& prices = bill.source.Prices;
    float total = 0.0F;
    const auto add = [&](double subtotal) {
        total = static_cast<float>(Finite(static_cast<double>(total) + subtotal, bill));
    };
    DrawAddress(bill);
    add(DrawElectricity(bill));
    add(DrawWater(bill));
    add(DrawMembershipFee(bill));
    add(DrawPlotCharge(bill, u"row_11"_s, Row11, prices.Lease, u"Pacht"_s));
    add(DrawPlotCharge(bill, u"row_12"_s, Row12, prices.PropertyTax, u"Steuer"_s));
    add(DrawPlotCharge(bill, u"row_13"_s, Row13, prices.AreaContribution, u"Fläche"_s));
    add(DrawInsurances(bill));
    AddRightAligned(
        bill.page, u"row_18_total"_s, SubtotalEdge, Row18, FormatNumber(total, u"0.00  €"_s));
    return total;
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

void DrawStatementAmounts(StatementState& statement, const BillSource& source)
{
    statement.PageSelection.clear();
    const QStringList& records = source.Members.RecordList;
    for (qsizetype member = 0; member < records.size(); ++member) {
        PageItems& page = statement.MemberContents[static_cast<std::size_t>(member)];
        Bill bill { source, page, member, SplitRecord(records[member]),
            PreviousFields(source, member) };
        statement.LastGrandTotal = DrawBill(bill);
        statement.StatementTotals += TextOfSingle(statement.LastGrandTotal);
    }
}
