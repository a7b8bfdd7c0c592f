// Numbers as the German desktop writes and reads them. The only place where numbers become text and
// text becomes numbers. Rules and examples: docs/file-formats.md, "Numbers"; recorded answers:
// tests/fixtures/facts.
#pragma once

#include "data/runtime_error.h"

#include <QString>
#include <QStringView>

#include <cmath>
#include <optional>
#include <string>

enum class NumberOutcome { Ok, TypeMismatch, Overflow };

struct ParsedDouble {
    NumberOutcome outcome = NumberOutcome::TypeMismatch;
    double value = 0.0;
};

struct ParsedSingle {
    NumberOutcome outcome = NumberOutcome::TypeMismatch;
    float value = 0.0F;
};

/// A number as most are typed: some digits, with or without a comma, no more of them than are exact
/// in a double. Its value is digits / 10 to the power of decimals.
struct ShortDecimal {
    qint64 digits = 0;
    int decimals = 0; ///< 0 to 14
};

/// Nothing for any text that is longer or otherwise written: ParseDouble may read it all the same.
std::optional<ShortDecimal> ShortDecimalOf(QStringView text);

/// The nearest double.
double ValueOf(const ShortDecimal& number);

/// Reads a typed number: blanks around, a sign in front, digits with points only between
/// well-formed groups of three, a decimal comma, "€" in front or behind. Everything else (the empty
/// text too) is a type mismatch.
ParsedDouble ParseDouble(QStringView text);

/// The same in single precision; beyond its range the outcome is Overflow.
ParsedSingle ParseSingle(QStringView text);

/// A number that was read in double precision as ParseSingle reads its text.
inline ParsedSingle Narrowed(const ParsedDouble& number)
{
    if (number.outcome != NumberOutcome::Ok)
        return { number.outcome, 0.0F };
    // From half a step beyond the largest single on, the nearest single would be infinite.
    constexpr double limit = 0x1.ffffffp127;
    if (std::abs(number.value) >= limit)
        return { NumberOutcome::Overflow, 0.0F };
    return { NumberOutcome::Ok, static_cast<float>(number.value) };
}

/// True when the text is a number (the empty text is none).
bool IsNumber(QStringView text);

/// The digits of a typed number as they stand there, for sums that must not be rounded: a "-" when
/// negative, at least one digit, a point, any number of decimals ("-1.193,5" gives "-01193.5").
/// Reads exactly what ParseDouble reads; nothing when the text is no number.
std::optional<std::string> DigitsOfNumber(QStringView text);

/// The number in the text; throws RuntimeError (TypeMismatch or Overflow) with the given place when
/// there is none.
double NumberOf(const QString& text, const Place& where);

/// NumberOf in single precision.
float SingleOf(const QString& text, const Place& where);

/// A money or size text as number, the empty text counting as 0; otherwise like NumberOf.
double AmountOf(const QString& text, const Place& where);

/// The number that stands in a text which TextOfSingle can write, exponent forms included
/// ("1,5E-05"); TypeMismatch otherwise. "278937,1" is that number and not the nearest single.
ParsedDouble ParseTotal(const QString& text);

/// ParseTotal in single precision: what TextOfSingle wrote.
ParsedSingle ParseTextOfSingle(const QString& text);

/// Default text of a double: 15 significant digits, decimal comma, no fixed number of decimals
/// ("50,5").
QString TextOfDouble(double value);

/// Default text of a single: 7 significant digits ("173,66").
QString TextOfSingle(float value);

/// Rounded to so many decimals (0 to 22): the value scaled in double precision, half to even.
double RoundTo(double value, int decimals);

/// Number formats of the form prefix + #…0.00 + suffix; a leading "-" in the prefix is a written
/// minus sign. Rounds half away from zero; no thousands separator. What shows as zero shows no sign
/// of its own. A negative number under "-0.00" shows as the plain positive amount.
QString FormatNumber(double value, const QString& format);

/// A single is formatted from its exact value.
QString FormatNumber(float value, const QString& format);

/// A text in a number format: formatted when it is a number, else unchanged.
QString FormatText(const QString& text, const QString& format);
