#include "check/bookings.h"

#include "cashbook/texts.h"
#include "check/text_numbers.h"
#include "data/german_numbers.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

/// What is not yet taken of a line.
struct Rest {
    const char16_t* at;
    const char16_t* end;
};

bool IsOver(const Rest& rest) { return rest.at == rest.end; }

/// Takes the ";" behind a field.
void TakeMark(Rest& rest) { rest.at += IsOver(rest) ? 0 : 1; }

/// The text up to the next ";", which is taken off with it.
QStringView TakeField(Rest& rest)
{
    const char16_t* begin = rest.at; // fields are short: nothing is quicker than to look
    while (!IsOver(rest) && *rest.at != u';')
        ++rest.at;
    const QStringView field(begin, rest.at);
    TakeMark(rest);
    return field;
}

// --- texts ------------------------------------------------------------------------------------

constexpr qsizetype stride = 4; // characters in 64 bits

/// Not zero where the character is among the four.
quint64 HoldsSign(quint64 four, char16_t sign)
{
    constexpr quint64 ones = 0x0001'0001'0001'0001;
    const quint64 others = four ^ (ones * sign);
    return (others - ones) & ~others & (ones << 15);
}

quint64 Spread(quint64 spread, quint64 four)
{
    constexpr quint64 odd = 0x9E37'79B9'7F4A'7C15;
    spread = (spread ^ four) * odd;
    return spread ^ (spread >> 32);
}

/// The booking's text, looked at once, four characters at a time: where it ends, what it shares
/// with its equals. True when it may be a statement's.
bool TakeText(CheckBooking& booking, Rest& rest)
{
    const char16_t statement = StatementWord.front().unicode();
    const char16_t* begin = rest.at;
    quint64 spread = booking.key;
    quint64 statements = 0;
    for (; rest.end - rest.at >= stride; rest.at += stride) {
        quint64 four = 0;
        std::memcpy(&four, rest.at, sizeof four);
        statements |= HoldsSign(four, statement);
        if (HoldsSign(four, u';') != 0)
            break;
        spread = Spread(spread, four);
    }
    quint64 last = 0;
    for (; !IsOver(rest) && *rest.at != u';'; ++rest.at) {
        statements |= *rest.at == statement ? 1 : 0;
        last = (last << 16) | *rest.at;
    }
    booking.text = QStringView(begin, rest.at);
    booking.key = static_cast<std::uint32_t>(Spread(spread, last));
    TakeMark(rest);
    return statements != 0;
}

// --- amounts ----------------------------------------------------------------------------------

template <typename Number> qint8 SignOf(Number value)
{
    return static_cast<qint8>(value < 0 ? -1 : (value > 0 ? 1 : 0));
}

void ReadAmount(BookedAmount& amount, QStringView text)
{
    amount.size = static_cast<qint32>(text.size());
    const std::optional<Cents> cents = CentsOf(text);
    amount.cents = cents.value_or(0);
    amount.sign = SignOf(amount.cents);
    if (amount.cents != 0)
        return;
    const ParsedDouble number = ParseDouble(text); // less than a cent, too large, or no number
    amount.is_number = number.outcome == NumberOutcome::Ok;
    amount.is_exact = cents || !amount.is_number;
    amount.sign = SignOf(number.value);
}

bool IsDigit(char16_t sign) { return sign >= u'0' && sign <= u'9'; }

/// Takes "0,00", which half of all amounts are; false for any other.
bool TakeNothing(BookedAmount& amount, Rest& rest)
{
    constexpr std::u16string_view nothing = u"0,00";
    const auto size = static_cast<qsizetype>(nothing.size());
    const qsizetype behind = rest.end - rest.at;
    if (behind < size || std::memcmp(rest.at, nothing.data(), 2 * nothing.size()) != 0
        || (behind > size && rest.at[size] != u';'))
        return false;
    amount.size = static_cast<qint32>(size);
    rest.at += size;
    TakeMark(rest);
    return true;
}

/// Takes an amount as the program writes it, "104,25"; false for any other, which stays.
bool TakeWritten(BookedAmount& amount, Rest& rest)
{
    constexpr qsizetype most_digits = 9; // of whole euros
    const char16_t* most = rest.at + std::min<qsizetype>(most_digits, rest.end - rest.at);
    const char16_t* comma = rest.at;
    Cents cents = 0;
    for (; comma != most && IsDigit(*comma); ++comma)
        cents = cents * 10 + (*comma - u'0');
    const qsizetype behind = rest.end - comma;
    if (comma == rest.at || behind < 3 || *comma != u',' || !IsDigit(comma[1]) || !IsDigit(comma[2])
        || (behind > 3 && comma[3] != u';'))
        return false;
    const Cents tens = comma[1] - u'0';
    amount.cents = cents * 100 + tens * 10 + (comma[2] - u'0');
    amount.sign = SignOf(amount.cents);
    amount.size = static_cast<qint32>(comma + 3 - rest.at);
    rest.at = comma + 3;
    TakeMark(rest);
    return true;
}

void TakeAmount(BookedAmount& amount, Rest& rest)
{
    if (!TakeNothing(amount, rest) && !TakeWritten(amount, rest))
        ReadAmount(amount, TakeField(rest));
}

// --- lines ------------------------------------------------------------------------------------

bool CarriesOver(QStringView text)
{
    return !text.isEmpty() && text.front() == CarryOverText.front()
        && text.startsWith(CarryOverText);
}

/// The day that a line begins with; most lines have that of the line before them.
class DayReader {
public:
    explicit DayReader(std::vector<BookedDay>& days)
        : m_days(days)
    {
    }

    QStringView Take(Rest& rest, std::size_t row)
    {
        if (m_whole && rest.end - rest.at > length && HasSameDay(rest)) {
            const QStringView day(rest.at, length);
            rest.at += length + 1;
            return day;
        }
        const QStringView day = TakeField(rest);
        m_whole = day.size() == length && rest.at != day.utf16() + length;
        m_key = static_cast<std::uint32_t>(SpreadText(day));
        m_days.push_back({ day, row });
        return day;
    }

    std::uint32_t Key() const { return m_key; } ///< of the day taken last

private:
    static constexpr qsizetype length = 10; // two, two and four digits

    bool HasSameDay(const Rest& rest) const
    {
        constexpr std::size_t bytes = (length + 1) * sizeof(char16_t); // the ";" too
        return std::memcmp(rest.at, m_days.back().date.utf16(), bytes) == 0;
    }

    std::vector<BookedDay>& m_days;
    std::uint32_t m_key = 0;
    bool m_whole = false; ///< the last day is of that length, and a ";" stands behind it
};

/// One amount above zero, the other zero, and a text.
bool IsUsual(const CheckBooking& booking)
{
    const BookedAmount& in = booking.deposit;
    const BookedAmount& out = booking.withdrawal;
    return in.is_number && out.is_number && in.sign >= 0 && out.sign >= 0 && in.sign + out.sign == 1
        && !booking.text.isEmpty();
}

/// Fields of one line, one after the other.
void TakeApart(CheckBookings& bookings, DayReader& days, QStringView line)
{
    const std::size_t row = bookings.Rows.size();
    CheckBooking& booking = bookings.Rows.emplace_back();
    Rest rest { line.utf16(), line.utf16() + line.size() };
    booking.date = days.Take(rest, row);
    booking.key = days.Key();
    if (TakeText(booking, rest))
        bookings.MaybeStatements.push_back(row);
    TakeAmount(booking.deposit, rest);
    TakeAmount(booking.withdrawal, rest);
    booking.carried_over = CarriesOver(booking.text);
    if (!IsUsual(booking))
        bookings.Unusual.push_back(row);
}

} // namespace

CheckBookings TakeBookingsApart(const QStringList& lines)
{
    CheckBookings bookings;
    bookings.Rows.reserve(static_cast<std::size_t>(lines.size()));
    DayReader days(bookings.Days);
    Cents balance = 0;
    bool exact = true;
    for (const QString& line : lines) {
        TakeApart(bookings, days, line);
        const CheckBooking& booking = bookings.Rows.back();
        exact = exact && booking.deposit.is_exact && booking.withdrawal.is_exact;
        balance += booking.deposit.cents - booking.withdrawal.cents;
    }
    if (exact)
        bookings.Balance = balance;
    return bookings;
}

QStringView AmountText(const CheckBooking& booking, const BookedAmount& amount)
{
    if (amount.size == 0)
        return {};
    const QChar* deposit = booking.text.end() + 1;
    const bool is_deposit = &amount == &booking.deposit;
    return { is_deposit ? deposit : deposit + booking.deposit.size + 1, amount.size };
}

QString BookingWords(const CheckBooking& booking)
{
    const bool paid_out = booking.deposit.is_number && booking.deposit.sign == 0;
    const BookedAmount& amount = paid_out ? booking.withdrawal : booking.deposit;
    return u"%1 %2 %3"_s.arg(booking.date, booking.text, AmountText(booking, amount)).trimmed();
}
