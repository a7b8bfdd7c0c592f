#include "statement/bill_numbers.h"

#include "data/records.h"
#include "statement/bill_places.h"

#include <cmath>
#include <limits>

namespace {

ErrorKind KindOf(NumberOutcome outcome)
{
    return outcome == NumberOutcome::Overflow ? ErrorKind::Overflow : ErrorKind::TypeMismatch;
}

} // namespace

ParsedDouble ParseAmount(const QString& text)
{
    return text.isEmpty() ? ParsedDouble { NumberOutcome::Ok, 0.0 } : ParseDouble(text);
}

double Finite(double value, const Bill& bill)
{
    if (!std::isfinite(value) || std::abs(value) > std::numeric_limits<float>::max())
        throw RuntimeError { ErrorKind::Overflow, AmountsPlace(bill.source, bill.member), {} };
    return value;
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

double NumberIn(const BillPrice& price, const Bill& bill)
{
    if (price.number.outcome != NumberOutcome::Ok)
        throw RuntimeError { KindOf(price.number.outcome),
            PricePlace(bill.source, price.key, price.text), {} };
    return price.number.value;
}

double PreviousNumberIn(const BillPrice& price, const Bill& bill)
{
    if (price.number.outcome != NumberOutcome::Ok)
        throw RuntimeError { KindOf(price.number.outcome),
            PreviousPricePlace(bill.source, price.key, price.text), {} };
    return price.number.value;
}

double AmountIn(const Bill& bill, int field)
{
    const QString& text = bill.fields[field];
    const ParsedDouble number = ParseAmount(text);
    if (number.outcome != NumberOutcome::Ok)
        throw RuntimeError { KindOf(number.outcome),
            MemberFieldPlace(bill.source, bill.member, field, text), {} };
    return number.value;
}

float ReadingIn(const Bill& bill, int field)
{
    const QString& text = bill.fields[field];
    const ParsedSingle number = ParseSingle(text);
    if (number.outcome != NumberOutcome::Ok)
        throw RuntimeError { KindOf(number.outcome),
            MemberFieldPlace(bill.source, bill.member, field, text), {} };
    return number.value;
}

float PreviousReadingIn(const Bill& bill, int field)
{
    const QString& text = bill.previous_fields[field];
    const ParsedSingle number = ParseSingle(text);
    if (number.outcome != NumberOutcome::Ok)
        throw RuntimeError { KindOf(number.outcome),
            PreviousFieldPlace(bill.source, bill.member, field, text), {} };
    return number.value;
}
