#include "money/years.h"

#include "data/file_names.h"
#include "data/german_numbers.h"
#include "data/records.h"
#include "statement/statement_pages.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype most_years = 10;
constexpr int longest_bar = 100;

/// The whole number that is drawn as a quantity.
qint64 QuantityOf(const AnnualStatement& statement, BillRow row)
{
    const ParsedSingle number = ParseTextOfSingle(statement.rows[row].quantity.value_or(u"0"_s));
    constexpr float largest = 1.0e12F; // beyond it sums would be no whole numbers any more
    return std::abs(number.value) < largest ? static_cast<qint64>(number.value) : 0;
}

YearMember MemberOf(const QString& record)
{
    const QStringList fields = SplitRecord(record);
    YearMember member;
    member.Surname = FieldOrEmpty(fields, Surname).trimmed();
    member.FirstName = FieldOrEmpty(fields, FirstName).trimmed();
    member.Garden = FieldOrEmpty(fields, PlotNumber);
    return member;
}

void AddBill(ClubYear& year, YearMember& member, const AnnualStatement& statement)
{
    member.Electricity = QuantityOf(statement, ElectricityRow);
    member.Water = QuantityOf(statement, WaterRow);
    member.Bill = BillOf(statement);
    ++year.Bills;
    year.Electricity += *member.Electricity;
    year.Water += *member.Water;
    year.Sum += member.Bill.value_or(0);
}

/// The first `drawn` members have a bill; it ends before that at the first one that cannot be
/// drawn.
ClubYear YearOf(int number, const BillSource& source, qsizetype drawn)
{
    ClubYear year;
    year.Year = number;
    year.ElectricityPrice = source.Prices.ElectricityPrice;
    year.WaterPrice = source.Prices.WaterPrice;
    for (const QString& record : source.Members.RecordList)
        year.Members.push_back(MemberOf(record));
    const PriceNumbers prices = ReadPriceNumbers(source.Prices);
    for (qsizetype i = 0; i < drawn; ++i) {
        const AnnualStatement statement = ComputeStatement(source, prices, i);
        if (!statement.total)
            break;
        AddBill(year, year.Members[static_cast<std::size_t>(i)], statement);
    }
    return year;
}

/// As "Laden" would read them, without a carry-over of prices.
BillSource ReadBillSource(const DataFiles& files, int year)
{
    const QString text = QString::number(year);
    BillSource source;
    source.YearText = text;
    source.LoadedYear = text;
    ReadMembersFile(source.Members, files, text);
    ReadPreviousYear(source.Members, files, text);
    for (const QString& record : source.Members.RecordList)
        RequireWholeRecord(SplitRecord(record), {});
    source.Prices = ReadPrices(files, text, 0, {}).Prices;
    return source;
}

ClubYear ReadYear(const LoadedClub& club, int number)
{
    if (number == club.Year) {
        const qsizetype drawn = std::min(
            club.Statement.StatementTotals.size(), club.Statement.Source.Members.RecordList.size());
        return YearOf(number, club.Statement.Source, drawn);
    }
    try {
        const BillSource source = ReadBillSource(club.Files, number);
        return YearOf(number, source, source.Members.RecordList.size());
    } catch (const RuntimeError&) {
        ClubYear unreadable; // it is named as such, and the other years go on
        unreadable.Year = number;
        unreadable.Readable = false;
        return unreadable;
    }
}

MemberYear FindMember(const ClubYear& year, const YearMember& wanted)
{
    std::vector<const YearMember*> found;
    for (const YearMember& member : year.Members) {
        if (member.Surname == wanted.Surname && member.FirstName == wanted.FirstName)
            found.push_back(&member);
    }
    if (found.size() > 1) {
        const QString garden = GardenKey(wanted.Garden);
        std::erase_if(found,
            [&garden](const YearMember* member) { return GardenKey(member->Garden) != garden; });
        if (found.size() != 1)
            return { year.Year, Presence::Unclear, {} };
    }
    return found.empty() ? MemberYear { year.Year, Presence::Missing, {} }
                         : MemberYear { year.Year, Presence::There, *found.front() };
}

} // namespace

std::vector<ClubYear> ReadYears(const LoadedClub& club)
{
    QVector<int> numbers = YearsOfFiles(club.Files, u"Mitgliedsdaten"_s);
    numbers.removeIf([&club](int number) { return number > club.Year; });
    if (!numbers.contains(club.Year) && !club.Members.RecordList.isEmpty())
        numbers += club.Year;
    std::vector<ClubYear> years;
    for (const int number : numbers.last(std::min(numbers.size(), most_years)))
        years.push_back(ReadYear(club, number));
    return years;
}

std::optional<Cents> PerBill(const ClubYear& year)
{
    return year.Bills == 0 ? std::nullopt : std::optional(RoundedQuotient(year.Sum, year.Bills));
}

int BarLength(qint64 value, qint64 largest)
{
    if (value == 0 || largest == 0)
        return 0;
    // Hundred times the sum of a whole club's largest bills would leave 64 bits.
    const long double length
        = longest_bar * static_cast<long double>(value) / static_cast<long double>(largest);
    return static_cast<int>(std::max(std::lround(std::abs(length)), 1L));
}

std::vector<MemberYear> MemberOverYears(const std::vector<ClubYear>& years, std::size_t position)
{
    std::vector<MemberYear> found;
    if (years.empty() || position >= years.back().Members.size())
        return found;
    const YearMember& wanted = years.back().Members[position];
    for (const ClubYear& year : years)
        found.push_back(FindMember(year, wanted));
    found.back() = { years.back().Year, Presence::There, wanted };
    return found;
}
