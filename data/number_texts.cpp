// From number to text: the second half of german_numbers.h.
#include "data/decimal_digits.h"
#include "data/german_numbers.h"

#include <QStringView>

#include <algorithm>
#include <cmath>

namespace {

constexpr QChar decimal_comma = u',';
constexpr int digits_of_double = 15;
constexpr int digits_of_single = 7;

// The digits from one place to another (place 0 is the first one behind the point of 0.ddd), zeros
// where there are none.
QString Digits(const DecimalDigits& number, int from, int to)
{
    QString text;
    for (int place = from; place < to; ++place) {
        const bool there = place >= 0 && place < static_cast<int>(number.digits.size());
        text += there ? QLatin1Char(number.digits[static_cast<std::size_t>(place)])
                      : QLatin1Char('0');
    }
    return text;
}

QString WithDecimals(const QString& whole, const QString& decimals)
{
    return decimals.isEmpty() ? whole : whole + decimal_comma + decimals;
}

QString PlainText(const DecimalDigits& number)
{
    const QString whole = number.point > 0 ? Digits(number, 0, number.point) : QStringLiteral("0");
    return WithDecimals(
        whole, Digits(number, number.point, static_cast<int>(number.digits.size())));
}

QString ExponentText(const DecimalDigits& number)
{
    const QString mantissa = WithDecimals(
        Digits(number, 0, 1), Digits(number, 1, static_cast<int>(number.digits.size())));
    const int exponent = number.point - 1;
    return mantissa + (exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+"))
        + QString::number(std::abs(exponent)).rightJustified(2, QLatin1Char('0'));
}

// Results that left the range of a double; none of them reads back as a number.
QString TextOfNoNumber(double value)
{
    if (std::isnan(value))
        return QStringLiteral("-1,#IND");
    return value < 0 ? QStringLiteral("-1,#INF") : QStringLiteral("1,#INF");
}

// The exponent form stands where plain digits would not do: more places before the comma than
// significant digits, or more behind it.
QString DefaultText(double value, int significant)
{
    if (!std::isfinite(value))
        return TextOfNoNumber(value);
    const DecimalDigits number = DigitsOf(value, significant);
    const int decimals = static_cast<int>(number.digits.size()) - number.point;
    const bool plain = number.point <= significant && decimals <= significant;
    const QString text = plain ? PlainText(number) : ExponentText(number);
    return number.negative ? QLatin1Char('-') + text : text;
}

// The parts of a format like "#0.00 €".
struct NumberFormat {
    QString prefix;
    int whole_digits = 0; ///< zeros before the point: so many digits at least
    int decimals = 0;
    QString suffix;
};

NumberFormat PartsOf(const QString& format)
{
    const auto places = [](QChar sign) { return sign == u'#' || sign == u'0'; };
    const auto first = std::find_if(format.begin(), format.end(), places);
    const auto point = std::find_if_not(first, format.end(), places);
    const bool has_point = point != format.end() && *point == u'.';
    const auto decimals = has_point ? point + 1 : point;
    const auto last = has_point ? std::find_if_not(decimals, format.end(), places) : decimals;
    NumberFormat parts;
    parts.prefix = QString(format.begin(), first - format.begin());
    parts.whole_digits = static_cast<int>(std::count(first, point, QChar(u'0')));
    parts.decimals = static_cast<int>(last - decimals);
    parts.suffix = QString(last, format.end() - last);
    return parts;
}

} // namespace

QString TextOfDouble(double value) { return DefaultText(value, digits_of_double); }

QString TextOfSingle(float value)
{
    // Whole numbers of up to seven digits are their own digits; most readings are of this kind.
    constexpr float most = 9'999'999.0F;
    if (value != 0.0F && std::abs(value) <= most && value == std::trunc(value))
        return QString::number(static_cast<int>(value));
    return DefaultText(static_cast<double>(value), digits_of_single);
}

QString FormatNumber(double value, const QString& format)
{
    if (!std::isfinite(value))
        return TextOfNoNumber(value);
    NumberFormat parts = PartsOf(format);
    // Fifteen digits first: 0.285 lies a hair below the tie, but everybody who reads "0,285"
    // expects "0,29".
    const DecimalDigits shown
        = RoundedToDecimals(DigitsOf(value, digits_of_double), parts.decimals);
    // A written minus turns the sign: a deduction of a negative amount is an amount.
    const bool written_minus = parts.prefix.startsWith(u'-');
    if (written_minus && value < 0)
        parts.prefix.remove(0, 1);
    const QString sign = shown.negative && !written_minus ? QStringLiteral("-") : QString();
    const QString whole = Digits(shown, std::min(shown.point - parts.whole_digits, 0), shown.point);
    return sign + parts.prefix
        + WithDecimals(whole, Digits(shown, shown.point, shown.point + parts.decimals))
        + parts.suffix;
}

QString FormatNumber(float value, const QString& format)
{
    return FormatNumber(static_cast<double>(value), format);
}
