#include "tests/check/check_club.h"

#include "cashbook/ledger_file.h"
#include "cashbook/ledger_rows.h"
#include "data/ansi_text.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "statement/statement_pages.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int member_count = 30;
constexpr int without_plot = 20; // places from 0
constexpr int without_water = 12;
constexpr int new_tenant = 7;
const QString to_update = u"Bitte aktualisieren"_s;

/// Surnames that repeat, each with another first name.
MemberRecord RecordOf(int k)
{
    static const QStringList surnames { u"Meier"_s, u"Schulze"_s, u"Lang"_s, u"Köhler"_s,
        u"Thiele"_s, u"Vogt"_s, u"Sommer"_s, u"Weiß"_s, u"Krüger"_s, u"Noack"_s };
    static const QStringList first_names { u"Anna"_s, u"Bernd"_s, u"Ida"_s };
    MemberRecord fields;
    fields << surnames[k % 10] << first_names[k / 10] << u"Lindenstraße %1"_s.arg(k + 1)
           << u"39999 Rotenfeld"_s << u"030 2312 %1"_s.arg(k + 10) << QString::number(k + 1)
           << QString::number(300 + 2 * k) << u"1"_s << u"7,50"_s << u"0,00"_s << u"3,20"_s
           << u"12,00"_s;
    if (k == without_plot)
        fields[PlotNumber] = fields[PlotSize] = QString();
    return fields << QString() << QString() << QString() << QString();
}

QString Start(int k, int base) { return QString::number(base + 10 * k); }

/// Readings of a year, 2025 the first: each year's start is the end of the year before.
void Read(MemberRecord& fields, int k, int year)
{
    fields[ElectricityStart] = Start(k, 1000 + 100 * (year - 2025));
    fields[ElectricityEnd] = Start(k, 1000 + 100 * (year - 2024));
    if (k == without_water)
        return;
    fields[WaterStart] = Start(k, 50 + 20 * (year - 2025));
    fields[WaterEnd] = Start(k, 50 + 20 * (year - 2024));
}

void ClearEnds(MemberRecord& fields)
{
    fields[ElectricityEnd].clear();
    fields[WaterEnd].clear();
}

PriceSettings PricesOf(const QString& electricity, const QString& date, const QString& deadline)
{
    PriceSettings prices;
    prices.ElectricityPrice = electricity;
    prices.WaterPrice = u"2,40"_s;
    prices.FlatEnergyCharge = u"8,00"_s;
    prices.MembershipFee = u"40,00"_s;
    prices.Lease = u"0,10"_s;
    prices.PropertyTax = u"0,02"_s;
    prices.AreaContribution = u"0,05"_s;
    prices.RepairLevy = u"0,00"_s;
    prices.BillingDate = date;
    prices.PaymentDeadline = deadline;
    return prices;
}

BankSettings BankOf()
{
    BankSettings bank;
    bank.BankName = u"Volksbank Rotenfeld"_s;
    bank.Iban = u"DE06 0000 0000 0000 0047 11"_s;
    bank.FirstContact = u"Meier,Anna"_s;
    bank.SecondContact = u"Lang,Bernd"_s;
    bank.TreasurerName = u"Renate Noack"_s;
    bank.TreasurerSalutation = u"Frau"_s;
    return bank;
}

QByteArray SectionOf(const QString& year, const PriceSettings& prices, const QStringList& ticks)
{
    QStringList lines { u'[' + year + u']' };
    for (const PriceRow& row : PriceTable())
        lines += row.Key + u'=' + prices.*row.Text;
    lines += u"Abrechnungsdatum="_s + prices.BillingDate;
    lines += u"Überweisdatum="_s + prices.PaymentDeadline;
    lines += u"Vorauszahlung Strom="_s + ticks[0];
    lines += u"Vorauszahlung Wasser="_s + ticks[1];
    return BytesOfLines(lines);
}

/// As the program writes them; not by its own routine, which waits for the disk.
QByteArray BytesOf(const BankSettings& bank)
{
    return BytesOfLines({ u"[Daten]"_s, u"Bankname="_s + bank.BankName, u"BLZ="_s + bank.Iban,
        u"Kontonummer="_s + bank.Bic, u"Name1="_s + bank.FirstContact,
        u"Name2="_s + bank.SecondContact, u"Name="_s + bank.TreasurerName,
        u"Anrede="_s + bank.TreasurerSalutation });
}

QByteArray BytesOfRecords(const QList<MemberRecord>& records)
{
    QStringList lines;
    for (const MemberRecord& record : records)
        lines += JoinRecord(record);
    return BytesOfLines(lines);
}

float ShownBalanceOf(const QStringList& lines) { return ClosingBalance(MakeLedgerRows(lines)); }

template <typename Read> void Try(Read read)
{
    try {
        read();
    } catch (const RuntimeError&) {
        return; // the program shows a box and goes on
    }
}

/// Every character as wide as a digit of the page's small font, a blank half of it.
int WidthOf(const PageText& text)
{
    if (text.element == u"head_1"_s)
        return 471;
    if (text.element == u"head_2"_s)
        return 453;
    if (text.text == u"KWh "_s)
        return 26;
    return static_cast<int>(text.text.size() * 6 - text.text.count(u' ') * 3);
}

} // namespace

CheckClub::CheckClub(Season season)
{
    for (int k = 0; k < member_count; ++k) {
        MemberRecord record = RecordOf(k);
        MemberRecord before = record;
        Read(record, k, 2026);
        Read(before, k, 2025);
        if (k == new_tenant)
            before[FirstName] = u"Wilhelm"_s;
        if (season == Season::January || (season == Season::HalfRead && k % 2 == 1))
            ClearEnds(record);
        if (k == member_count - 1) { // a new garden at the end of both lists
            before[ElectricityStart].clear();
            before[WaterStart].clear();
            ClearEnds(before);
        }
        Members += record;
        LastYear += before;
    }
    const bool january = season == Season::January;
    Today = january ? QDate(2026, 1, 4) : QDate(2026, 11, 21);
    Prices = PricesOf(january ? u"0,34"_s : u"0,36"_s, january ? to_update : u"20.11.2026"_s,
        january ? to_update : u"20.12.2026"_s);
    LastYearPrices = PricesOf(u"0,34"_s, u"20.11.2025"_s, u"20.12.2025"_s);
    Bank = BankOf();
    LastYearBankLines
        = { u"02.01.2025;Guthaben;500,00;0,00"_s, u"20.12.2025;Abrechnung Meier;150,00;0,00"_s };
    LastYearCashBoxLines = { u"02.01.2025;Guthaben;80,00;0,00"_s };
    BankLines = { u"04.01.2026;Übertrag Saldo 2025;650,00;0,00"_s };
    if (january)
        return; // the cash box was not looked at yet
    BankLines += { u"01.03.2026;Gartenzeitung;0,00;45,90"_s, u"10.11.2026;Spende;20,00;0,00"_s };
    CashBoxLines
        = { u"04.01.2026;Übertrag Saldo 2025;80,00;0,00"_s, u"02.05.2026;Nägel;0,00;4,99"_s };
}

void CheckClub::Write(const QString& name, const QByteArray& bytes) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(name));
}

QByteArray CheckClub::Config() const
{
    return SectionOf(u"2025"_s, LastYearPrices, LastYearTicks)
        + SectionOf(u"2026"_s, Prices, Ticks);
}

void CheckClub::WriteFiles() const
{
    QHash<QString, std::optional<QByteArray>> files {
        { u"Mitgliedsdaten2026.pz"_s, BytesOfRecords(Members) },
        { u"Mitgliedsdaten2025.pz"_s, BytesOfRecords(LastYear) },
        { u"Konto2026.pz"_s, BytesOfLines(BankLines) },
        { u"Konto2025.pz"_s, BytesOfLines(LastYearBankLines) },
        { u"HandKasse2025.pz"_s, BytesOfLines(LastYearCashBoxLines) },
        { u"V.dat"_s, BytesOfLines({ u"KGV Am Mühlgraben e.V."_s }) },
        { u"Config.ini"_s, Config() },
        { u"Config1.ini"_s, BytesOf(Bank) },
    };
    if (!CashBoxLines.isEmpty())
        files.insert(u"HandKasse2026.pz"_s, BytesOfLines(CashBoxLines));
    for (auto raw = Raw.cbegin(); raw != Raw.cend(); ++raw)
        files.insert(raw.key(), raw.value());
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        if (file.value())
            Write(file.key(), *file.value());
    }
}

/// A rule can be switched off from outside, to see that a test misses it (scripts/mutate-check).
CheckResult CheckClub::Check()
{
    const QString without = qEnvironmentVariable("WITHOUT_RULE");
    std::vector<CheckRule> rules = CheckRules();
    std::erase_if(rules, [&](const CheckRule& rule) { return rule.id == without; });
    return RunCheck(Load(), rules);
}

CheckSource CheckClub::Load()
{
    WriteFiles();
    CheckSource source;
    source.Files = { m_folder.path(), m_folder.filePath(u"state"_s) };
    source.YearText = source.LoadedYear = Year;
    source.Today = Today;
    source.ClubNameHint = u"Hier bitte Ihren Vereinsnamen eingeben"_s;
    Try([&] { source.ClubName = ReadFirstLine(source.Files, ClubNameFile); });
    Try([&] { ReadMembersFile(source.Members, source.Files, Year); });
    Try([&] { ReadPreviousYear(source.Members, source.Files, Year); });
    Try([&] { source.Prices = ReadPrices(source.Files, Year, 2026, {}).Prices; });
    source.Prices.RepairLevy = Prices.RepairLevy;
    Try([&] { source.Bank = ReadBank(source.Files, {}); });
    const QString names[] { BankLedgerFileName(Year), CashBoxLedgerFileName(Year) };
    for (std::size_t account = 0; account < 2; ++account) {
        CheckAccount& shown = source.Accounts.at(account);
        shown.Unread = FileExists(source.Files, names[account]);
        Try([&] {
            if (shown.Unread)
                shown.Lines = ReadLedger(source.Files, names[account]);
            shown.Unread = false;
        });
        shown.ShownBalance = ShownBalanceOf(shown.Lines);
    }
    const BillSource bills { source.ClubName, Year, Year, source.Members, source.Prices,
        source.Bank, Today };
    Try([&] { DrawAllPages(source.Statement, bills); });
    source.WidthOf = WidthOf;
    if (Spoil)
        Spoil(source);
    return source;
}

std::optional<Finding> FindingOf(const CheckResult& result, const QString& id)
{
    for (const Finding& finding : result.All) {
        if (finding.id == id)
            return finding;
    }
    return std::nullopt;
}
