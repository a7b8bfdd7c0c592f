#include "cashbook/date_ordering.h"

#include "data/collation.h"
#include "data/records.h"

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
    QStringList sorted = Sorted(lines).KeyLines;
    for (QString& line : sorted)
        line = LineOfDateKey(line);
    return sorted;
}
