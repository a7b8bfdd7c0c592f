#include "check/check_data.h"

#include "check/finding.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "data/german_numbers.h"
#include "data/line_file.h"
#include "settings/ini_file.h"
#include "statement/statement_pages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What is counted in a run of bytes, in counters of a byte each, which is quickest.
struct RunCounts {
    unsigned char returns = 0;
    unsigned char feeds = 0;
    unsigned char pairs = 0; ///< CR and LF
    unsigned char all = 0; ///< every bit that is set somewhere
};

RunCounts CountRun(const char* signs, qsizetype size)
{
    RunCounts counts;
    for (qsizetype i = 0; i < size; ++i) {
        const unsigned char is_return = signs[i] == '\r' ? 1 : 0;
        counts.returns = static_cast<unsigned char>(counts.returns + is_return);
        counts.feeds = static_cast<unsigned char>(counts.feeds + (signs[i] == '\n' ? 1 : 0));
        counts.pairs = static_cast<unsigned char>(
            counts.pairs + (is_return & (signs[i + 1] == '\n' ? 1 : 0)));
        counts.all |= static_cast<unsigned char>(signs[i]);
    }
    return counts;
}

/// Torn lines: a CR without LF behind it, or CR LF in one place and a lone LF in another.
void LookAtBytes(RawFile& file)
{
    constexpr qsizetype run = 192; // a NUL stands behind the last byte
    qsizetype returns = 0;
    qsizetype feeds = 0;
    qsizetype pairs = 0;
    unsigned all = 0;
    for (qsizetype begin = 0; begin < file.Bytes.size(); begin += run) {
        const qsizetype size = std::min(run, file.Bytes.size() - begin);
        const RunCounts counts = CountRun(file.Bytes.constData() + begin, size);
        returns += counts.returns;
        feeds += counts.feeds;
        pairs += counts.pairs;
        all |= counts.all;
    }
    file.TornLines = returns > pairs || (pairs > 0 && feeds > pairs);
    file.Ascii = all < 128;
}

RawFile ReadRaw(const DataFiles& files, const QString& name)
{
    RawFile file;
    file.Name = FileNameOf(name);
    try {
        file.There = FileExists(files, name);
        if (file.There)
            file.Bytes = ReadTextBytes(files, name);
        LookAtBytes(file);
    } catch (const RuntimeError& error) {
        file.There = true;
        file.Refused = error;
    }
    return file;
}

void ReadFiles(CheckData& data)
{
    const DataFiles& files = data.Source.Files;
    data.MembersFile = ReadRaw(files, MembersFileName(data.Year));
    data.LastYearMembersFile = ReadRaw(files, MembersFileName(data.LastYear));
    data.Ledgers = { ReadRaw(files, BankLedgerFileName(data.Year)),
        ReadRaw(files, CashBoxLedgerFileName(data.Year)) };
    data.LastYearLedgers = { ReadRaw(files, BankLedgerFileName(data.LastYear)),
        ReadRaw(files, CashBoxLedgerFileName(data.LastYear)) };
    data.ClubFile = ReadRaw(files, ClubNameFile);
    data.PricesFile = ReadRaw(files, PriceSettingsFile);
    data.BankFile = ReadRaw(files, BankSettingsFile);
    data.PricesFile.TornLines = false; // any line end ends a line there
    data.BankFile.TornLines = false;
}

void ReadLastYearSettings(CheckData& data)
{
    if (!data.PricesFile.There || data.PricesFile.Refused)
        return;
    QStringList keys;
    for (std::size_t field = 0; field < data.LastYearSettings.Prices.size(); ++field)
        keys += PriceTable().at(field).Key;
    for (const MeterKind& meter : MeterKinds())
        keys += meter.TickKey;
    const QStringList values
        = ReadIniValues(data.Source.Files, data.LastYear, keys, PriceSettingsFile);
    auto value = values.begin();
    for (QString& price : data.LastYearSettings.Prices)
        price = *value++;
    for (QString& tick : data.LastYearSettings.Ticks)
        tick = *value++;
}

bool HasEntry(const CheckData& data, qsizetype member, const MeterKind& meter)
{
    const CheckMember& here = data.Members[static_cast<std::size_t>(member)];
    if (!FieldOf(here, meter.Start).isEmpty() || !FieldOf(here, meter.End).isEmpty())
        return true;
    const qsizetype line = GardenLine(data, member);
    if (line < 0)
        return false;
    const CheckMember& before = data.LastYearMembers[static_cast<std::size_t>(line)];
    return !FieldOf(before, meter.Start).isEmpty() || !FieldOf(before, meter.End).isEmpty();
}

void CollectMeters(CheckData& data)
{
    bool any = false;
    for (std::size_t kind = 0; kind < MeterKinds().size(); ++kind) {
        const MeterKind& meter = MeterKinds().at(kind);
        MeterEntries& entries = data.Meters.at(kind);
        if (IsEmptyOrZero(PriceText(data.Source.Prices, meter.Price)))
            continue;
        for (std::size_t k = 0; k < data.Members.size(); ++k) {
            const auto member = static_cast<qsizetype>(k);
            if (!HasEntry(data, member, meter))
                continue;
            entries.Members.push_back(member);
            if (!FieldOf(data.Members[k], meter.End).isEmpty())
                ++entries.WithEnd;
        }
        const auto count = static_cast<qsizetype>(entries.Members.size());
        any = any || count > 0;
        data.BillingTime = data.BillingTime || 2 * entries.WithEnd > count;
    }
    data.BillingTime = data.BillingTime || !any;
}

/// The members of the year in the box could not be loaded, or a file that the rules rest on is not
/// what the program holds.
void FindUnsafe(CheckData& data)
{
    const auto unsafe = [](const RawFile& file) { return file.Refused || file.TornLines; };
    data.MembersUnsafe = unsafe(data.MembersFile) || unsafe(data.LastYearMembersFile)
        || (data.Source.LoadedYear.isEmpty() && data.MembersFile.There);
    for (std::size_t account = 0; account < 2; ++account) {
        data.LedgerUnsafe.at(account) = unsafe(data.Ledgers.at(account))
            || unsafe(data.LastYearLedgers.at(account)) || data.Source.Accounts.at(account).Unread;
    }
}

} // namespace

const std::array<MeterKind, 2>& MeterKinds()
{
    static const std::array<MeterKind, 2> kinds { {
        { u"Strom"_s, u"kWh"_s, ElectricityStart, ElectricityEnd, ElectricityPriceField,
            u"Vorauszahlung Strom"_s, u"Check1"_s, 3000.0F, 300.0F },
        { u"Wasser"_s, u"m³"_s, WaterStart, WaterEnd, WaterPriceField, u"Vorauszahlung Wasser"_s,
            u"Check2"_s, 200.0F, 30.0F },
    } };
    return kinds;
}

CheckData MakeCheckData(const CheckSource& source)
{
    CheckData data(source);
    data.Year = source.LoadedYear.isEmpty() ? source.YearText : source.LoadedYear;
    data.LastYear = PreviousYear(data.Year);
    data.FollowingYear = NextYear(data.Year);
    data.Members = TakeMembersApart(source.Members.RecordList, PlotSize);
    data.LastYearRead = source.Members.PreviousYearRead && !source.Members.PreviousYearMissing;
    if (data.LastYearRead)
        data.LastYearMembers = TakeMembersApart(source.Members.PreviousYearList, ElectricityStart);
    data.Pairs = ComparePersons(data.Members, data.LastYearMembers);
    ReadFiles(data);
    ReadLastYearSettings(data);
    for (std::size_t account = 0; account < 2; ++account) {
        data.LedgerLines.at(account) = ReadLedgerFileLines(data.Ledgers.at(account));
        data.Bookings.at(account) = TakeBookingsApart(source.Accounts.at(account).Lines);
    }
    CollectMeters(data);
    FindUnsafe(data);
    return data;
}

QString DisplayName(const CheckMember& member, qsizetype place)
{
    return DisplayName(FieldOf(member, Surname), FieldOf(member, FirstName), place);
}

QString DisplayName(const QString& surname, const QString& first_name, qsizetype place)
{
    if (surname.trimmed().isEmpty() && first_name.trimmed().isEmpty())
        return u"Platz %1"_s.arg(place + 1);
    QString name;
    name += surname; // a text of its own: fields are parts of lines
    if (!first_name.isEmpty() && !surname.isEmpty())
        name += u", "_s;
    return name += first_name;
}

FindingRow MemberRow(const CheckData& data, qsizetype member, int field, const QString& text)
{
    const QString place = u"Platz %1"_s.arg(member + 1);
    const QString name = DisplayName(data.Members[static_cast<std::size_t>(member)], member);
    QString row = name == place ? place : place + u", "_s + name;
    if (!text.isEmpty())
        row += u": "_s + text;
    return { row, MemberTarget(member, field) };
}

QString FieldCaption(int field)
{
    if (field < ElectricityStart)
        return MemberFieldCaption(field).trimmed();
    const QString words = MemberFieldCaption(field); // "Anfangsstand Strom"
    return words.section(u' ', 1) + u' ' + words.section(u' ', 0, 0);
}

QString PriceCaption(std::size_t field) { return PriceTable().at(field).Caption.trimmed(); }

bool IsEmptyOrZero(const QString& text)
{
    if (text.isEmpty())
        return true;
    const ParsedDouble number = ParseDouble(text);
    return number.outcome == NumberOutcome::Ok && number.value == 0.0;
}

bool IsNoNumber(const QString& text) { return !text.isEmpty() && !IsNumber(text); }

QString AccountNameOf(std::size_t account)
{
    return account == static_cast<std::size_t>(Account::Bank) ? u"Konto"_s : u"Handkasse"_s;
}

LinkTarget BookingTarget(std::size_t account, qsizetype row, const QString& control)
{
    const bool bank = account == static_cast<std::size_t>(Account::Bank);
    return { bank ? LinkKind::BankRow : LinkKind::CashBoxRow, control, row };
}

QString EuroAmount(double value) { return FormatNumber(value, u"0.00"_s); }

std::array<double, 2> Deductions(const CheckData& data, qsizetype member)
{
    if (member >= data.Source.Statement.MemberPages)
        return {};
    const AnnualStatement bill = StatementOfPage(data.Source.Statement, member);
    return { bill.rows[ElectricityPaidRow].amount.value_or(0.0),
        bill.rows[WaterPaidRow].amount.value_or(0.0) };
}
