#include "cashbook/date_ordering.h"

#include "data/collation.h"
#include "data/records.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

/// "07.03.2016" gives "20160307".
QString KeyOfDate(const QString& date) { return date.right(4) + date.mid(3, 2) + date.left(2); }

/// "20160307" gives "07.03.2016".
QString DateOfKey(const QString& key)
{
    return key.right(2) + QLatin1Char('.') + key.mid(4, 2) + QLatin1Char('.') + key.left(4);
}

QString WithDate(QStringList fields, const QString& date)
{
    fields[BookingDate] = date;
    return FirstFourFields(fields);
}

/// The lines of one sort in the form in which they are compared, in order.
struct SortBox {
    QStringList KeyLines;
};

SortBox Sorted(const QStringList& lines)
{
    QStringList key_lines;
    key_lines.reserve(lines.size());
    for (const QString& line : lines)
        key_lines += DateKeyLine(line);
    return { SortedTexts(key_lines) };
}

constexpr qsizetype date_length = 10;

/// The date's points and the fields' semicolons where sorting puts them.
bool KeepsItsForm(const QString& line)
{
    return line.indexOf(QLatin1Char(';')) == date_length && line[2] == QLatin1Char('.')
        && line[5] == QLatin1Char('.') && line.count(QLatin1Char(';')) == LedgerFieldCount - 1;
}

/// Day, month and year as a number that grows with the days; nothing when a place holds no digit.
std::optional<int> NumberOfDate(const QString& line)
{
    int number = 0;
    for (const int place : { 6, 7, 8, 9, 3, 4, 0, 1 }) {
        const char16_t digit = line[place].unicode();
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        number = number * 10 + (digit - u'0');
    }
    return number;
}

/// Sees whether lines that keep their form come in order. Of another day than the line before, the
/// day decides; of the same day, what stands behind it.
class OrderWatch {
public:
    bool GoesOn(const QString& line)
    {
        const std::optional<int> date = NumberOfDate(line);
        if (!date || date < m_date)
            return false;
        QByteArray rest = CollationKey(line.mid(date_length));
        const bool goes_on = date > m_date || !(rest < m_rest);
        m_date = *date;
        m_rest = std::move(rest);
        return goes_on;
    }

private:
    int m_date = -1;
    QByteArray m_rest;
};

/// True when sorting would change nothing, as with each file that the program wrote.
bool IsInOrder(const QStringList& lines)
{
    OrderWatch watch;
    return std::all_of(lines.begin(), lines.end(),
        [&](const QString& line) { return KeepsItsForm(line) && watch.GoesOn(line); });
}

QByteArray SortKey(const QString& line) { return CollationKey(DateKeyLine(line)); }

} // namespace

QString DateKeyLine(const QString& line)
{
    const QStringList fields = SplitRecord(line);
    return WithDate(fields, KeyOfDate(fields[BookingDate]));
}

QString LineOfDateKey(const QString& key_line)
{
    const QStringList fields = SplitRecord(key_line);
    return WithDate(fields, DateOfKey(fields[BookingDate]));
}

QStringList SortLedgerByDate(const QStringList& lines)
{
    if (IsInOrder(lines))
        return lines;
    QStringList sorted = Sorted(lines).KeyLines;
    for (QString& line : sorted)
        line = LineOfDateKey(line);
    return sorted;
}

bool KeepsBookingOrder(const QStringList& sorted_lines)
{
    return std::all_of(sorted_lines.begin(), sorted_lines.end(), KeepsItsForm);
}

void PutInBookingOrder(QStringList& sorted_lines, const QString& line, qsizetype replaced)
{
    const qsizetype was_at = replaced < 0 ? sorted_lines.size() : replaced;
    if (replaced >= 0)
        sorted_lines.removeAt(replaced);
    const QByteArray key = SortKey(line);
    const auto begin = sorted_lines.cbegin();
    const auto first = std::lower_bound(begin, sorted_lines.cend(), key,
        [](const QString& other, const QByteArray& k) { return SortKey(other) < k; });
    const auto last = std::upper_bound(first, sorted_lines.cend(), key,
        [](const QByteArray& k, const QString& other) { return k < SortKey(other); });
    // among equal lines it stays where it was, as a stable sort leaves it
    sorted_lines.insert(std::clamp<qsizetype>(was_at, first - begin, last - begin), line);
}
