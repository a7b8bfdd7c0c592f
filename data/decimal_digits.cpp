#include "data/decimal_digits.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

// No double has more significant digits than that, so that nothing is rounded before we round.
constexpr int exact_decimals = 766;

void DropZerosAtTheEnd(DecimalDigits& number)
{
    number.digits.resize(number.digits.find_last_not_of('0') + 1); // npos + 1 is 0
    if (number.digits.empty())
        number = {};
}

// Adds one to the last digit; a row of nines becomes a 1 one place further left.
void CountUp(DecimalDigits& number)
{
    while (!number.digits.empty() && number.digits.back() == '9')
        number.digits.pop_back();
    if (number.digits.empty()) {
        number.digits.push_back('1');
        ++number.point;
    } else {
        ++number.digits.back();
    }
}

// Keeps so many digits; a negative count means that even the first digit lies below a tenth of the
// last place that is kept.
DecimalDigits Shortened(DecimalDigits number, int keep)
{
    if (keep < 0)
        return {};
    const auto kept = static_cast<std::size_t>(keep);
    if (kept >= number.digits.size())
        return number;
    const bool up = number.digits[kept] >= '5';
    number.digits.resize(kept);
    if (up)
        CountUp(number);
    DropZerosAtTheEnd(number);
    return number;
}

} // namespace

DecimalDigits DigitsOf(double value, int significant)
{
    std::array<char, exact_decimals + 16> text {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
        std::chars_format::scientific, exact_decimals); // d.ddd...e+xx
    const std::string written(text.data(), end.ptr);
    const std::size_t exponent_mark = written.find('e');
    DecimalDigits number;
    number.negative = value < 0;
    number.digits = written.substr(0, 1) + written.substr(2, exponent_mark - 2);
    number.point = std::stoi(written.substr(exponent_mark + 1)) + 1;
    DropZerosAtTheEnd(number);
    return Shortened(number, significant);
}

DecimalDigits RoundedToDecimals(const DecimalDigits& number, int decimals)
{
    return Shortened(number, number.point + decimals);
}
