#include "cashbook/ledger_rows.h"

#include "cashbook/texts.h"
#include "data/dates.h"
#include "data/german_numbers.h"
#include "data/records.h"

#include <cmath>

namespace {

const QString amount_format = QStringLiteral("#0.00 €");
const QString balance_format = QStringLiteral("0.00 €");

/// Most amounts of a ledger are "0,00"; they need no reading.
ParsedSingle ReadAmount(QStringView text)
{
    return text == u"0,00" ? ParsedSingle { NumberOutcome::Ok, 0.0F } : ParseSingle(text);
}

/// The text up to the next ";", which is taken off with it; empty when the line is over.
QStringView TakeField(QStringView& line)
{
    const qsizetype end = line.indexOf(u';');
    const QStringView field = end < 0 ? line : line.first(end);
    line = end < 0 ? QStringView() : line.sliced(end + 1);
    return field;
}

enum class Side { Deposit, Withdrawal };

/// The new balance in single precision, or false when the amount cannot be counted.
bool Count(float& balance, QStringView amount_text, Side side)
{
    const ParsedSingle amount = ReadAmount(amount_text);
    if (amount.outcome != NumberOutcome::Ok)
        return false;
    const float stepped = side == Side::Deposit ? amount.value + balance : balance - amount.value;
    if (!std::isfinite(stepped))
        return false;
    balance = stepped;
    return true;
}

} // namespace

CountedAmounts AddToBalance(float& balance, const QString& line)
{
    static_assert(Deposit == 2 && Withdrawal == Deposit + 1);
    QStringView rest(line); // no list of fields: every redraw counts all lines
    TakeField(rest);
    TakeField(rest);
    CountedAmounts counted;
    counted.deposit = Count(balance, TakeField(rest), Side::Deposit);
    counted.withdrawal = Count(balance, TakeField(rest), Side::Withdrawal);
    return counted;
}

LedgerRows MakeLedgerRows(const QStringList& ledger)
{
    LedgerRows rows;
    rows.lines = ledger;
    rows.balances.reserve(static_cast<std::size_t>(ledger.size()));
    rows.counted.reserve(static_cast<std::size_t>(ledger.size()));
    float balance = 0.0F;
    for (const QString& line : ledger) {
        rows.counted.push_back(AddToBalance(balance, line));
        rows.balances.push_back(balance);
    }
    return rows;
}

LedgerRow RowAt(const LedgerRows& rows, qsizetype position)
{
    const QStringList fields = SplitRecord(rows.lines[position]);
    const auto index = static_cast<std::size_t>(position);
    LedgerRow row;
    row.key = RowKeyBegin + QString::number(position + 1);
    row.date = FormatDateText(FieldOrEmpty(fields, BookingDate));
    row.text = FieldOrEmpty(fields, BookingText);
    row.deposit = FormatText(FieldOrEmpty(fields, Deposit), amount_format);
    row.withdrawal = FormatText(FieldOrEmpty(fields, Withdrawal), amount_format);
    row.balance = FormatNumber(rows.balances[index], amount_format);
    row.counted = rows.counted[index];
    row.well_dated = IsWellFormedDate(FieldOrEmpty(fields, BookingDate));
    return row;
}

float ClosingBalance(const LedgerRows& rows)
{
    return rows.balances.empty() ? 0.0F : rows.balances.back();
}

QString CurrentBalanceText(float balance) { return FormatNumber(balance, balance_format); }

bool ShowsBelowZero(const QString& amount_text) { return amount_text.startsWith(QLatin1Char('-')); }
