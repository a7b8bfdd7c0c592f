#include "data/german_numbers.h"

#include "data/decimal_digits.h"

#include <QList>
#include <QStringView>

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace {

constexpr QChar decimal_comma = u',';
constexpr QChar thousands_point = u'.';
constexpr QChar euro_sign = u'\u20AC';

// Exact, all of them.
constexpr double powers_of_ten[] { 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22 };

bool IsDigit(QChar sign) { return sign >= u'0' && sign <= u'9'; }

/// Adds the digits from there on to the number; returns the first sign that is none.
const char16_t* TakeDigits(qint64& number, const char16_t* at, const char16_t* end)
{
    for (; at != end && *at >= u'0' && *at <= u'9'; ++at)
        number = number * 10 + (*at - u'0');
    return at;
}

bool AreDigits(QStringView text)
{
    for (const QChar sign : text) {
        if (!IsDigit(sign))
            return false;
    }
    return true;
}

// The blanks that a line edit or a pasted amount can bring; the no-break space stands before many a
// pasted "€".
bool IsBlank(QChar sign)
{
    return sign == u' ' || (sign >= u'\t' && sign <= u'\r') || sign == u'\u00A0';
}

QStringView WithoutBlanks(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    return text;
}

QStringView WithoutEuroSign(QStringView text)
{
    if (text.startsWith(euro_sign))
        return WithoutBlanks(text.sliced(1));
    if (text.endsWith(euro_sign))
        return WithoutBlanks(text.chopped(1));
    return text;
}

// "1.250" is 1250, but "12.5", "0.285" and "1.25" are most likely a decimal point out of habit: a
// wrong amount if we dropped the point.
bool AreWellFormedGroups(QStringView whole)
{
    const QList<QStringView> groups = whole.split(thousands_point);
    const QStringView first = groups.front();
    if (groups.size() < 2 || first.isEmpty() || first.size() > 3 || first.front() == u'0')
        return false;
    for (qsizetype i = 1; i < groups.size(); ++i) {
        if (groups[i].size() != 3 || !AreDigits(groups[i]))
            return false;
    }
    return AreDigits(first);
}

void AppendDigits(std::string& number, QStringView text)
{
    for (const QChar sign : text) {
        if (IsDigit(sign))
            number += sign.toLatin1();
    }
}

// Digits, points between groups, a comma, as in "1.250,00", written as std::from_chars reads it; no
// value when the text is no such number.
std::optional<std::string> PlainNumber(QStringView text)
{
    std::string number;
    if (text.startsWith(u'-') || text.startsWith(u'+')) {
        if (text.front() == u'-')
            number = "-";
        text = text.sliced(1);
    }
    const qsizetype comma = text.indexOf(decimal_comma);
    const QStringView whole = comma < 0 ? text : text.first(comma);
    const QStringView decimals = comma < 0 ? QStringView() : text.sliced(comma + 1);
    if (whole.isEmpty() && decimals.isEmpty())
        return std::nullopt;
    if (!AreDigits(decimals))
        return std::nullopt;
    if (!AreDigits(whole) && !AreWellFormedGroups(whole))
        return std::nullopt;
    number += '0'; // ",5" has no digit in front
    AppendDigits(number, whole);
    number += '.';
    AppendDigits(number, decimals);
    return number;
}

// Correctly rounded and without a look at any locale. What is too small for a double is 0.
ParsedDouble DoubleOf(const std::string& number, bool too_small)
{
    double value = 0.0;
    const auto end = std::from_chars(number.data(), number.data() + number.size(), value);
    if (end.ec == std::errc())
        return { NumberOutcome::Ok, value };
    return { too_small ? NumberOutcome::Ok : NumberOutcome::Overflow, 0.0 }; // out of range
}

[[noreturn]] void ThrowNoNumber(NumberOutcome outcome, const QString& text, Place where)
{
    if (where.content.isEmpty())
        where.content = text;
    const bool overflow = outcome == NumberOutcome::Overflow;
    throw RuntimeError { overflow ? ErrorKind::Overflow : ErrorKind::TypeMismatch, where, {} };
}

} // namespace

std::optional<std::string> DigitsOfNumber(QStringView text)
{
    return PlainNumber(WithoutEuroSign(WithoutBlanks(text)));
}

std::optional<ShortDecimal> ShortDecimalOf(QStringView text)
{
    constexpr qsizetype most_characters = 15;
    if (text.isEmpty() || text.size() > most_characters)
        return std::nullopt;
    const char16_t* end = text.utf16() + text.size();
    ShortDecimal number;
    const char16_t* comma = TakeDigits(number.digits, text.utf16(), end);
    if (comma == end)
        return number;
    if (*comma != decimal_comma || text.size() == 1
        || TakeDigits(number.digits, comma + 1, end) != end)
        return std::nullopt;
    number.decimals = static_cast<int>(end - comma - 1);
    return number;
}

double ValueOf(const ShortDecimal& number)
{
    const auto digits = static_cast<double>(number.digits);
    return number.decimals == 0 ? digits : digits / powers_of_ten[number.decimals];
}

ParsedDouble ParseDouble(QStringView text)
{
    if (const std::optional<ShortDecimal> number = ShortDecimalOf(text))
        return { NumberOutcome::Ok, ValueOf(*number) };
    if (text.isEmpty())
        return {};
    const std::optional<std::string> number = DigitsOfNumber(text);
    if (!number)
        return {};
    const bool too_small = number->find_first_of("123456789") > number->find('.');
    return DoubleOf(*number, too_small);
}

ParsedSingle ParseSingle(QStringView text) { return Narrowed(ParseDouble(text)); }

bool IsNumber(QStringView text) { return ParseDouble(text).outcome == NumberOutcome::Ok; }

double NumberOf(const QString& text, const Place& where)
{
    const ParsedDouble number = ParseDouble(text);
    if (number.outcome != NumberOutcome::Ok)
        ThrowNoNumber(number.outcome, text, where);
    return number.value;
}

float SingleOf(const QString& text, const Place& where)
{
    const ParsedSingle number = ParseSingle(text);
    if (number.outcome != NumberOutcome::Ok)
        ThrowNoNumber(number.outcome, text, where);
    return number.value;
}

double AmountOf(const QString& text, const Place& where)
{
    return text.isEmpty() ? 0.0 : NumberOf(text, where);
}

ParsedDouble ParseTotal(const QString& text)
{
    if (const std::optional<ShortDecimal> number = ShortDecimalOf(text))
        return { NumberOutcome::Ok, ValueOf(*number) };
    const QStringView whole_text(text);
    const qsizetype mark = whole_text.indexOf(u'E');
    const QStringView mantissa = mark < 0 ? whole_text : whole_text.first(mark);
    const QStringView exponent = mark < 0 ? QStringView(u"+0") : whole_text.sliced(mark + 1);
    constexpr qsizetype longest_mantissa = 16; // seven digits, sign, comma, and room to spare
    if (mantissa.size() > longest_mantissa || mantissa.startsWith(u'+')
        || mantissa.contains(thousands_point))
        return {};
    std::optional<std::string> number = PlainNumber(mantissa);
    const bool signed_exponent = exponent.startsWith(u'-') || exponent.startsWith(u'+');
    if (!number || !signed_exponent || exponent.size() < 2 || !AreDigits(exponent.sliced(1)))
        return {};
    const bool small = exponent.startsWith(u'-');
    *number += small ? "e-" : "e+";
    AppendDigits(*number, exponent);
    return DoubleOf(*number, small);
}

ParsedSingle ParseTextOfSingle(const QString& text) { return Narrowed(ParseTotal(text)); }

double RoundTo(double value, int decimals)
{
    Q_ASSERT(decimals >= 0 && decimals <= 22);
    const double scale = powers_of_ten[decimals];
    const double scaled = value * scale;
    if (!std::isfinite(scaled))
        return value; // so large that it has no decimals
    return std::nearbyint(scaled) / scale; // half to even, the only rounding mode in use here
}

QString FormatText(const QString& text, const QString& format)
{
    const ParsedDouble number = ParseDouble(text);
    return number.outcome == NumberOutcome::Ok ? FormatNumber(number.value, format) : text;
}
