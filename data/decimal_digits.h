// The decimal digits of a binary number, rounded the way people round: half away from zero. Shared
// by the default texts and the number formats; knows no locale.
#pragma once

#include <string>

/// A number as 0.d1d2d3... times ten to the power of point: 12.5 is "125" with point 2. The digits
/// begin and end with another digit than 0; zero has no digits and is never negative.
struct DecimalDigits {
    bool negative = false;
    std::string digits;
    int point = 0;
};

/// The exact value of a finite number, rounded to so many significant digits, half away from zero.
DecimalDigits DigitsOf(double value, int significant);

/// Rounded to so many decimals behind the comma, half away from zero. What becomes zero loses its
/// sign.
DecimalDigits RoundedToDecimals(const DecimalDigits& number, int decimals);
