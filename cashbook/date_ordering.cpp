#include "cashbook/date_ordering.h"

#include "data/collation.h"
#include "data/records.h"

#include <utility>

namespace {

using ChangedDate = QString (*)(const QString&);

/// "07.03.2016" gives "20160307".
QString KeyOfDate(const QString& date) { return date.right(4) + date.mid(3, 2) + date.left(2); }

/// "20160307" gives "07.03.2016".
QString DateOfKey(const QString& key)
{
    return key.right(2) + QLatin1Char('.') + key.mid(4, 2) + QLatin1Char('.') + key.left(4);
}

QString WithDate(const QString& line, ChangedDate changed)
{
    QStringList fields = SplitRecord(line);
    fields[BookingDate] = changed(fields[BookingDate]);
    return FirstFourFields(fields);
}

QStringList WithDates(QStringList lines, ChangedDate changed)
{
    for (QString& line : lines)
        line = WithDate(line, changed);
    return lines;
}

} // namespace

QString DateKeyLine(const QString& line) { return WithDate(line, KeyOfDate); }

QString LineOfDateKey(const QString& key_line) { return WithDate(key_line, DateOfKey); }

QStringList SortLedgerByDate(const QStringList& lines)
{
    return WithDates(SortedTexts(WithDates(lines, KeyOfDate)), DateOfKey);
}
