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
    QString elements[4]; ///< quantity, amount, deduction, prepayment
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

// Places of errors are put together only when there is an error: a bill asks for forty fields.

const QString& Field(const Bill& bill, int field)
{
    if (field < bill.fields.size())
        return bill.fields[field];
    return FieldAt(bill.fields, field, ShortRecordPlace(bill.source, bill.member));
}

const QString& PreviousField(const Bill& bill, int field)
{
    if (field < bill.previous_fields.size())
        return bill.previous_fields[field];
    return FieldAt(
        bill.previous_fields, field, ShortPreviousRecordPlace(bill.source, bill.member, field));
}

/// The empty text counts as 0.
template <typename MakePlace> double Amount(const QString& text, MakePlace place)
{
    const ParsedDouble parsed = ParseDouble(text);
    return parsed.outcome == NumberOutcome::Ok ? parsed.value : AmountOf(text, place());
}

template <typename MakePlace> float Reading(const QString& text, MakePlace place)
{
    const ParsedSingle parsed = ParseSingle(text);
    return parsed.outcome == NumberOutcome::Ok ? parsed.value : SingleOf(text, place());
}

double Price(const Bill& bill, const QString& key, const QString& text)
{
    return Amount(text, [&] { return PricePlace(bill.source, key, text); });
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
        return Reading(
            text, [&] { return MemberFieldPlace(bill.source, bill.member, field, text); });
    };
    const float end = reading(meter.end_field);
    return Difference(end, reading(meter.start_field), bill);
}

float PreviousConsumption(const Bill& bill, const Meter& meter)
{
    const auto reading = [&](int field) {
        const QString& text = bill.previous_fields[field];
        return Reading(
            text, [&] { return PreviousFieldPlace(bill.source, bill.member, field, text); });
    };
    const float end = reading(meter.end_field);
    return Difference(end, reading(meter.start_field), bill);
}

/// What this year's consumption costs and what of it is asked for in advance.
struct Charge {
    double amount = 0.0;
    double prepayment = 0.0;
};

/// Row 1 or 6. Without both readings and a price "0" is drawn and the amount cell stays empty.
Charge DrawConsumption(Bill& bill, const Meter& meter)
{
    if (Field(bill, meter.end_field).isEmpty() || Field(bill, meter.start_field).isEmpty()
        || meter.price.isEmpty()) {
        AddRightAligned(bill.page, meter.elements[0], QuantityEdge, meter.tops[0], u"0"_s);
        return {};
    }
    // A difference that rounds to zero from below has no sign.
    const float quantity
        = static_cast<float>(RoundTo(static_cast<double>(Consumption(bill, meter)), 0)) + 0.0F;
    AddRightAligned(
        bill.page, meter.elements[0], QuantityEdge, meter.tops[0], TextOfSingle(quantity));
    const double cost
        = Finite(static_cast<double>(quantity) * Price(bill, meter.price_key, meter.price), bill);
    const Charge charge { RoundTo(cost, 2), meter.prepaid ? RoundTo(cost, 0) : 0.0 };
    AddAmount(bill, meter.elements[1], AmountEdge, meter.tops[0], charge.amount);
    return charge;
}

/// Row 2 or 7: what was paid in advance last year, whenever both readings of last year are there.
double DrawDeduction(Bill& bill, const Meter& meter)
{
    double deduction = 0.0;
    if (!PreviousField(bill, meter.end_field).isEmpty()
        && !PreviousField(bill, meter.start_field).isEmpty()) {
        // Not rounded before it is multiplied, unlike this year's consumption.
        const double consumption = static_cast<double>(PreviousConsumption(bill, meter));
        const double price = Amount(meter.previous_price,
            [&] { return PreviousPricePlace(bill.source, meter.price_key, meter.previous_price); });
        deduction = RoundTo(Finite(consumption * price, bill), 0);
    }
    AddAmount(bill, meter.elements[2], meter.deduction_edge, meter.tops[1], deduction, u"-0.00"_s);
    return deduction;
}

/// Rows 1 to 3 or 6 to 8; returns their sum as drawn.
double DrawMeterRows(Bill& bill, const Meter& meter)
{
    const Charge charge = DrawConsumption(bill, meter);
    const double deduction = DrawDeduction(bill, meter);
    AddAmount(bill, meter.elements[3], AmountEdge, meter.tops[2], charge.prepayment);
    return charge.amount - deduction + charge.prepayment;
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
            { u"row_1_quantity"_s, u"row_1_amount"_s, u"row_2_amount"_s, u"row_3_amount"_s },
            { Row1, Row2, Row3 }, AmountEdge });
    const QString& charge = prices.FlatEnergyCharge;
    const double flat = RoundTo(Price(bill, u"Energiepauschale"_s, charge), 2);
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
            prices.WaterPrepayment == 1, u"Wasserkosten"_s,
            { u"row_6_quantity"_s, u"row_6_amount"_s, u"row_7_amount"_s, u"row_8_amount"_s },
            { Row6, Row7, Row8 }, WaterPrepaymentEdge });
    AddAmount(bill, u"row_9_subtotal"_s, SubtotalEdge, Row9, sum);
    return sum;
}

double DrawMembershipFee(Bill& bill)
{
    const QString& fee = bill.source.Prices.MembershipFee;
    const double amount = RoundTo(Price(bill, u"Beitrag"_s, fee), 2);
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
        = Amount(size, [&] { return MemberFieldPlace(bill.source, bill.member, PlotSize, size); });
    const double amount = square_metres * Price(bill, price_key, price);
    const double rounded = RoundTo(Finite(amount, bill), 2);
    AddAmount(bill, row + u"_subtotal"_s, SubtotalEdge, y, rounded);
    return rounded;
}

double DrawInsurances(Bill& bill)
{
    struct Premium {
        QString element;
        int field;
        int y;
    };
    const Premium premiums[] { { u"row_14_amount"_s, LiabilityPremium, Row14 },
        { u"row_15_amount"_s, LegalPremium, Row15 }, { u"row_16_amount"_s, AccidentPremium, Row16 },
        { u"row_16b_amount"_s, BuildingPremium, Row16b } };
    double sum = 0.0;
    for (const Premium& premium : premiums) {
        const QString& text = Field(bill, premium.field);
        const double amount = RoundTo(
            Amount(text,
                [&] { return MemberFieldPlace(bill.source, bill.member, premium.field, text); }),
            2);
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
