// Amounts of money in whole cents, taken from the digits of a text and never by way of a
// floating-point number: sums of them are exact.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

using Cents = qint64;

/// Beyond it an amount is a slip of the keyboard and counts as no number; thousands of such amounts
/// still fit into one sum.
inline constexpr Cents LargestAmount = 10'000'000'000'000; // 100.000.000.000,00 €

/// The cents of a typed or shown amount ("1.193,53", "5 €"): the third decimal decides, half away
/// from zero. Nothing when the text is no number (data/german_numbers.h) or beyond LargestAmount.
std::optional<Cents> CentsOf(QStringView text);

/// CentsOf, what is no number counting as 0.
Cents CentsOrZero(QStringView text);

/// As reports show it: "1.193,53 €", with the minus sign in front, never "-0,00 €".
QString EuroText(Cents cents);

/// As an amount field holds it: "1193,53".
QString AmountText(Cents cents);

/// The nearest whole number to numerator / denominator (above 0), half away from zero.
qint64 RoundedQuotient(qint64 numerator, qint64 denominator);
