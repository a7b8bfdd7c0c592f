// Numbers: reading against a second, naive reader, default texts and formats against digits that
// are counted on the whole decimal expansion. The first byte says what follows: "d" the eight bytes
// of a double, "f" the four bytes of a single, "u" a text in UTF-8, anything else a text in the
// code page.
#include "data/ansi_text.h"
#include "data/german_numbers.h"
#include "fuzz/fuzz.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using namespace Qt::StringLiterals;

// A decimal expansion: digits, the last `decimals` of which stand behind the comma.
struct Expansion {
    std::string digits;
    int decimals = 0;
};

// All digits of the number, whole: no double has more than 1074 decimals.
Expansion WholeExpansion(double value)
{
    constexpr int all_decimals = 1074;
    std::array<char, 310 + all_decimals + 8> text {};
    const int length
        = std::snprintf(text.data(), text.size(), "%.*f", all_decimals, std::abs(value));
    std::string digits(text.data(), static_cast<std::size_t>(length));
    digits.erase(digits.size() - all_decimals - 1, 1);
    return { "0" + digits, all_decimals };
}

// Cut to so many decimals (negative: zeros in front of the comma), half of the last place counts
// up.
Expansion CutTo(const Expansion& number, int decimals)
{
    const int cut = number.decimals - decimals;
    if (cut <= 0)
        return { number.digits + std::string(static_cast<std::size_t>(-cut), '0'), decimals };
    if (cut > static_cast<int>(number.digits.size()))
        return { std::string(static_cast<std::size_t>(decimals + 1), '0'), decimals };
    const auto kept = number.digits.size() - static_cast<std::size_t>(cut);
    Expansion result { number.digits.substr(0, kept), decimals };
    bool up = number.digits[kept] >= '5';
    for (std::size_t place = kept; up && place > 0; --place) {
        char& digit = result.digits[place - 1];
        up = digit == '9';
        digit = up ? '0' : static_cast<char>(digit + 1);
    }
    return result;
}

// So many significant digits, filled up with zeros to whole decimals again.
Expansion Significant(const Expansion& number, int significant)
{
    const std::size_t first = number.digits.find_first_not_of('0');
    if (first == std::string::npos)
        return number;
    const int places_in_front = static_cast<int>(number.digits.size() - first) - number.decimals;
    return CutTo(CutTo(number, significant - places_in_front), number.decimals);
}

QString NaiveFormat(double value, int decimals, bool written_minus, const QString& suffix)
{
    const Expansion all = Significant(WholeExpansion(value), 15);
    const Expansion shown = CutTo(all, decimals);
    std::string text = shown.digits;
    const bool is_zero = text.find_first_not_of('0') == std::string::npos;
    text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
    while (static_cast<int>(text.size()) < decimals + 1)
        text.insert(text.begin(), '0');
    if (decimals > 0)
        text.insert(text.size() - static_cast<std::size_t>(decimals), ",");
    const bool minus = written_minus ? !(value < 0) : value < 0 && !is_zero;
    return (minus ? u"-"_s : QString()) + QString::fromStdString(text) + suffix;
}

QString NaiveDefaultText(double value, int significant)
{
    const Expansion all = Significant(WholeExpansion(value), significant);
    const std::size_t first = all.digits.find_first_not_of('0');
    if (first == std::string::npos)
        return u"0"_s;
    const std::size_t last = all.digits.find_last_not_of('0');
    const int in_front = static_cast<int>(all.digits.size()) - all.decimals;
    const int exponent = in_front - 1 - static_cast<int>(first);
    const int decimals = static_cast<int>(last) - in_front + 1;
    std::string text;
    if (exponent >= significant || decimals > significant) {
        text = all.digits.substr(first, last - first + 1);
        if (text.size() > 1)
            text.insert(1, ",");
        std::array<char, 16> power {};
        std::snprintf(
            power.data(), power.size(), "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        text += power.data();
    } else {
        const auto comma = static_cast<std::size_t>(in_front);
        text = all.digits.substr(std::min(first, comma - 1), comma - std::min(first, comma - 1));
        if (decimals > 0)
            text += "," + all.digits.substr(comma, static_cast<std::size_t>(decimals));
    }
    return (value < 0 ? u"-"_s : QString()) + QString::fromStdString(text);
}

// The naive reader: one look at each character, then the C library.
bool NaiveNumber(QString text, double& value)
{
    const auto trim = [](QString& part) {
        static const QString blanks = u" \t\n\v\f\r\u00A0"_s;
        while (!part.isEmpty() && blanks.contains(part.front()))
            part.remove(0, 1);
        while (!part.isEmpty() && blanks.contains(part.back()))
            part.chop(1);
    };
    trim(text);
    if (text.startsWith(u"€"_s))
        text.remove(0, 1);
    else if (text.endsWith(u"€"_s))
        text.chop(1);
    trim(text);
    std::string number;
    int whole = 0, decimals = 0, points = 0, since_point = 0;
    bool comma = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c == '-' || c == '+') {
            if (i != 0)
                return false;
            number += static_cast<char>(c);
        } else if (c >= '0' && c <= '9') {
            number += static_cast<char>(c);
            ++(comma ? decimals : whole);
            ++since_point;
        } else if (c == ',' && !comma) {
            if (points > 0 && since_point != 3)
                return false;
            number += '.';
            comma = true;
        } else if (c == '.' && !comma) {
            const bool first = points == 0;
            const bool leading_zero = number.find_first_of("0123456789") != std::string::npos
                && number[number.find_first_of("0123456789")] == '0';
            if (first ? (whole < 1 || whole > 3 || leading_zero) : since_point != 3)
                return false;
            ++points;
            since_point = 0;
        } else {
            return false;
        }
    }
    if (whole + decimals == 0 || (points > 0 && !comma && since_point != 3))
        return false;
    value = std::strtod(number.c_str(), nullptr);
    return true;
}

void CheckRounding(double value)
{
    for (const int decimals : { 0, 1, 2, 3 }) {
        const double scale = std::pow(10.0, decimals);
        const double scaled = value * scale;
        if (!std::isfinite(scaled))
            continue;
        double rounded = std::floor(scaled);
        const double above = scaled - rounded;
        if (above > 0.5 || (above == 0.5 && std::fmod(rounded, 2.0) != 0.0))
            rounded += 1.0;
        Require(RoundTo(value, decimals) == rounded / scale, "ties go to the even digit",
            QString::number(value, 'g', 17));
    }
}

void CheckNumber(double value)
{
    if (!std::isfinite(value)) {
        Require(!IsNumber(TextOfDouble(value)), "what left the range reads as no number");
        return;
    }
    const QString detail = QString::number(value, 'g', 17);
    Require(TextOfDouble(value) == NaiveDefaultText(value, 15), "default text of a double", detail);
    Require(
        FormatNumber(value, u"0.00"_s) == NaiveFormat(value, 2, false, QString()), "0.00", detail);
    Require(
        FormatNumber(value, u"-0.00"_s) == NaiveFormat(value, 2, true, QString()), "-0.00", detail);
    Require(FormatNumber(value, u"#0.00 €"_s) == NaiveFormat(value, 2, false, u" €"_s), "#0.00 €",
        detail);
    Require(FormatNumber(value, u"0"_s) == NaiveFormat(value, 0, false, QString()), "0", detail);
    CheckRounding(value);
}

void CheckSingle(float value)
{
    const QString text = TextOfSingle(value);
    if (!std::isfinite(value)) {
        Require(ParseTextOfSingle(text).outcome == NumberOutcome::TypeMismatch, "no number", text);
        return;
    }
    const auto wide = static_cast<double>(value);
    Require(text == NaiveDefaultText(wide, 7), "default text of a single", text);
    Require(FormatNumber(value, u"0.00  €"_s) == NaiveFormat(wide, 2, false, u"  €"_s), "0.00  €",
        text);
    const ParsedSingle back = ParseTextOfSingle(text);
    if (back.outcome == NumberOutcome::Overflow)
        Require(text.endsWith(u"3,402824E+38"_s), "only beyond the last single", text);
    else
        Require(back.outcome == NumberOutcome::Ok && TextOfSingle(back.value) == text, "reads back",
            text);
}

void CheckText(const QString& text)
{
    double naive = 0.0;
    const bool is_number = NaiveNumber(text, naive);
    const ParsedDouble number = ParseDouble(text);
    const ParsedSingle single = ParseSingle(text);
    if (!is_number || std::isinf(naive)) {
        Require(
            number.outcome == (is_number ? NumberOutcome::Overflow : NumberOutcome::TypeMismatch),
            "no number", text);
        Require(single.outcome == number.outcome, "no single either", text);
        Require(!IsNumber(text) && FormatText(text, u"0.00"_s) == text, "stays as it is", text);
    } else {
        Require(
            number.outcome == NumberOutcome::Ok && number.value == naive, "the same number", text);
        const bool fits = std::abs(naive) < 0x1.ffffffp127;
        Require(
            single.outcome == (fits ? NumberOutcome::Ok : NumberOutcome::Overflow), "range", text);
        Require(!fits || single.value == static_cast<float>(naive), "the same single", text);
        Require(
            FormatText(text, u"#0.00 €"_s) == FormatNumber(naive, u"#0.00 €"_s), "format", text);
        CheckNumber(naive);
    }
    const ParsedSingle back = ParseTextOfSingle(text);
    if (back.outcome == NumberOutcome::Ok && single.outcome == NumberOutcome::Ok)
        Require(back.value == single.value, "both readers agree", text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    if (input.startsWith('d') && size == 9) {
        double value = 0.0;
        std::memcpy(&value, data + 1, sizeof value);
        CheckNumber(value);
    } else if (input.startsWith('f') && size == 5) {
        float value = 0.0F;
        std::memcpy(&value, data + 1, sizeof value);
        CheckSingle(value);
    } else if (input.startsWith('u')) {
        CheckText(QString::fromUtf8(input.mid(1)));
    } else {
        CheckText(DecodeAnsi(input));
    }
    return 0;
}
