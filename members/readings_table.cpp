#include "members/readings_table.h"

#include "data/german_numbers.h"

#include <algorithm>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

MemberRecord RecordAt(const QStringList& lines, int position)
{
    return SplitRecord(lines.value(position));
}

/// What a garden is sorted by; texts without a number come last.
double PlotOf(const MemberLists& lists, int position)
{
    const QString plot = FieldOrEmpty(RecordAt(lists.RecordList, position), PlotNumber);
    return IsNumber(plot) ? ParseDouble(plot).value : std::numeric_limits<double>::max();
}

QString UnitOf(MemberField start) { return start == ElectricityStart ? u"KWh"_s : u"m³"_s; }

} // namespace

MeterReading ReadingOf(const MemberLists& lists, int position, MemberField start)
{
    const MemberRecord fields = RecordAt(lists.RecordList, position);
    MeterReading reading;
    reading.Start = FieldOrEmpty(fields, start);
    reading.End = FieldOrEmpty(fields, start + 1);
    reading.Consumption = ConsumptionOf(fields, start);
    reading.LastConsumption = ConsumptionOf(RecordAt(lists.PreviousYearList, position), start);
    reading.Doubt = DoubtOf(reading.Consumption, reading.LastConsumption);
    return reading;
}

QString ReadingsSum(const MemberLists& lists, MemberField start)
{
    int read = 0;
    double consumption = 0;
    for (int position = 0; position < lists.RecordList.size(); ++position) {
        const MeterReading reading = ReadingOf(lists, position, start);
        if (reading.Consumption.isEmpty())
            continue;
        ++read;
        consumption += ParseDouble(reading.Consumption).value;
    }
    return u"%1 von %2 abgelesen, zusammen %3 %4"_s.arg(QString::number(read),
        QString::number(lists.RecordList.size()), TextOfDouble(consumption), UnitOf(start));
}

std::vector<int> PositionsByPlot(const MemberLists& lists)
{
    std::vector<int> positions(static_cast<std::size_t>(lists.RecordList.size()));
    std::iota(positions.begin(), positions.end(), 0);
    std::stable_sort(positions.begin(), positions.end(),
        [&lists](int a, int b) { return PlotOf(lists, a) < PlotOf(lists, b); });
    return positions;
}
