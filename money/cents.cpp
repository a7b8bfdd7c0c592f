#include "money/cents.h"

#include "data/german_numbers.h"

#include <cstdlib>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr Cents cents_of_euro = 100;

int DigitAt(const std::string& digits, std::size_t position)
{
    return position < digits.size() ? digits[position] - '0' : 0;
}

/// 100, 10 or 1 for no, one or two decimals.
Cents TimesForCents(int decimals) { return decimals == 0 ? 100 : (decimals == 1 ? 10 : 1); }

std::optional<Cents> WithinLimit(Cents cents)
{
    return cents > LargestAmount ? std::nullopt : std::optional(cents);
}

QString TwoDigits(Cents cents) { return QString::number(cents).rightJustified(2, u'0'); }

QString Sign(Cents cents) { return cents < 0 ? u"-"_s : QString(); }

/// "1.193" for 1193.
QString Grouped(Cents whole)
{
    QString text = QString::number(whole);
    for (qsizetype place = text.size() - 3; place > 0; place -= 3)
        text.insert(place, u'.');
    return text;
}

} // namespace

std::optional<Cents> CentsOf(QStringView text)
{
    const std::optional<ShortDecimal> short_number = ShortDecimalOf(text);
    if (short_number && short_number->decimals <= 2)
        return WithinLimit(short_number->digits * TimesForCents(short_number->decimals));
    const std::optional<std::string> digits = DigitsOfNumber(text);
    if (!digits)
        return std::nullopt;
    const bool negative = digits->front() == '-';
    const std::size_t point = digits->find('.');
    Cents cents = 0;
    for (std::size_t i = negative ? 1 : 0; i < point + 3; ++i) {
        if (i == point)
            continue;
        cents = cents * 10 + DigitAt(*digits, i);
        if (cents > LargestAmount)
            return std::nullopt;
    }
    if (DigitAt(*digits, point + 3) >= 5)
        ++cents;
    if (cents > LargestAmount)
        return std::nullopt;
    return negative ? -cents : cents;
}

Cents CentsOrZero(QStringView text) { return CentsOf(text).value_or(0); }

QString EuroText(Cents cents)
{
    const Cents size = std::abs(cents);
    return Sign(cents) + Grouped(size / cents_of_euro) + u',' + TwoDigits(size % cents_of_euro)
        + u" €"_s;
}

QString AmountText(Cents cents)
{
    const Cents size = std::abs(cents);
    return Sign(cents) + QString::number(size / cents_of_euro) + u','
        + TwoDigits(size % cents_of_euro);
}

qint64 RoundedQuotient(qint64 numerator, qint64 denominator)
{
    const qint64 whole = numerator / denominator;
    const qint64 rest = std::abs(numerator % denominator);
    const bool away = rest >= denominator - rest;
    if (!away)
        return whole;
    return numerator < 0 ? whole - 1 : whole + 1;
}
