#include "outgoing/meter_change.h"

#include "data/german_numbers.h"

#include <algorithm>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// A number of any length: its digits without a point, so many of them behind it.
struct Decimal {
    bool negative = false;
    std::string digits;
    std::size_t decimals = 0;
};

std::optional<Decimal> DecimalOf(const QString& text)
{
    const std::optional<std::string> typed = DigitsOfNumber(text);
    if (!typed)
        return std::nullopt;
    Decimal number;
    number.negative = typed->front() == '-';
    number.digits = typed->substr(number.negative ? 1 : 0);
    const std::size_t point = number.digits.find('.');
    number.decimals = number.digits.size() - point - 1;
    number.digits.erase(point, 1);
    return number;
}

/// Both with as many digits before and behind the point.
void Align(Decimal& a, Decimal& b)
{
    const std::size_t decimals = std::max(a.decimals, b.decimals);
    for (Decimal* number : { &a, &b }) {
        number->digits.append(decimals - number->decimals, '0');
        number->decimals = decimals;
    }
    const std::size_t length = std::max(a.digits.size(), b.digits.size()) + 1; // one to carry into
    for (Decimal* number : { &a, &b })
        number->digits.insert(0, length - number->digits.size(), '0');
}

/// larger + sign × smaller, digit by digit from the end; the sizes are those of Align.
std::string Combined(const std::string& larger, const std::string& smaller, int sign)
{
    std::string digits = larger;
    int carried = 0;
    for (std::size_t place = digits.size(); place-- > 0;) {
        int digit = larger[place] - '0' + sign * (smaller[place] - '0') + carried;
        carried = digit < 0 ? -1 : digit / 10;
        digit = (digit + 10) % 10;
        digits[place] = static_cast<char>('0' + digit);
    }
    return digits;
}

Decimal Difference(Decimal a, Decimal b)
{
    Align(a, b);
    Decimal result { a.negative, {}, a.decimals };
    if (a.negative != b.negative) {
        result.digits = Combined(a.digits, b.digits, 1);
    } else if (a.digits >= b.digits) {
        result.digits = Combined(a.digits, b.digits, -1);
    } else {
        result.negative = !a.negative;
        result.digits = Combined(b.digits, a.digits, -1);
    }
    return result;
}

bool IsZero(const Decimal& number)
{
    return number.digits.find_first_not_of('0') == std::string::npos;
}

QString TextOf(const Decimal& number)
{
    std::string whole = number.digits.substr(0, number.digits.size() - number.decimals);
    std::string decimals = number.digits.substr(number.digits.size() - number.decimals);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    decimals.erase(decimals.find_last_not_of('0') + 1);
    const QString sign = number.negative && !IsZero(number) ? u"-"_s : QString();
    return sign + QString::fromStdString(whole)
        + (decimals.empty() ? QString() : u',' + QString::fromStdString(decimals));
}

MeterChangeResult Wrong(MeterReading reading, const QString& sentence)
{
    return { {}, {}, reading, sentence };
}

} // namespace

MeterChangeResult ComputeMeterChange(const MeterChange& change)
{
    const QString no_number = u"Bitte eine Zahl mit Dezimalkomma eintragen, zum Beispiel 1450."_s;
    if (change.Start.isEmpty())
        return Wrong(MeterReading::Start, u"Zuerst den Anfangsstand des Jahres eintragen."_s);
    const std::optional<Decimal> start = DecimalOf(change.Start);
    const std::optional<Decimal> old_out = DecimalOf(change.OldOut);
    const std::optional<Decimal> new_in = DecimalOf(change.NewIn);
    if (!start)
        return Wrong(MeterReading::Start, no_number);
    if (!old_out)
        return Wrong(MeterReading::OldOut, no_number);
    if (!new_in)
        return Wrong(MeterReading::NewIn, no_number);
    const Decimal consumption = Difference(*old_out, *start);
    if (consumption.negative && !IsZero(consumption)) {
        return Wrong(MeterReading::OldOut,
            u"Der alte Zähler zeigt weniger als der Anfangsstand. Bitte beide Zahlen prüfen."_s);
    }
    return { TextOf(consumption), TextOf(Difference(*new_in, consumption)), MeterReading::None,
        {} };
}
