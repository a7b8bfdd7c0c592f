#include "money/money_reading.h"

#include "cashbook/date_ordering.h"
#include "cashbook/ledger_file.h"
#include "cashbook/ledger_rows.h"
#include "data/file_names.h"
#include "data/german_numbers.h"
#include "data/records.h"
#include "data/system_files.h"
#include "statement/statement_pages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString members_beginning = u"Mitgliedsdaten"_s;
const QString bank_beginning = u"Konto"_s;
const QString cash_box_beginning = u"HandKasse"_s;

QString LedgerFileName(Account account, int year)
{
    const QString text = QString::number(year);
    return account == Account::Bank ? BankLedgerFileName(text) : CashBoxLedgerFileName(text);
}

/// Runs the routine; a file that cannot be read is named, and the report goes on without it.
template <typename Routine>
void OrName(QStringList& unreadable, const QString& file_name, Routine routine)
{
    try {
        routine();
    } catch (const RuntimeError&) {
        unreadable += NameWithin(file_name);
    }
}

std::vector<std::optional<Cents>> BillsOf(const StatementState& statement, qsizetype members)
{
    std::vector<std::optional<Cents>> bills(static_cast<std::size_t>(members));
    const qsizetype drawn = std::min(members, statement.StatementTotals.size());
    const PriceNumbers prices = ReadPriceNumbers(statement.Source.Prices);
    for (qsizetype member = 0; member < drawn; ++member)
        bills[static_cast<std::size_t>(member)]
            = BillOf(ComputeStatement(statement.Source, prices, member));
    return bills;
}

void ReadOtherLedger(MoneySource& source, const LoadedClub& club, Account account, int year)
{
    const QString name = LedgerFileName(account, year);
    OrName(source.Unreadable, name, [&] {
        source.Ledgers.push_back(ReadBookings(account, year, ReadLedger(club.Files, name)));
    });
}

void AddLedgers(MoneySource& source, const LoadedClub& club)
{
    for (const Account account : { Account::Bank, Account::CashBox }) {
        source.Ledgers.push_back(ReadBookings(account, club.Year, LedgerLines(club, account)));
        if (LedgerOf(club.Book, account).Unread)
            source.Unreadable += NameWithin(LedgerFileName(account, club.Year));
        const QString beginning = account == Account::Bank ? bank_beginning : cash_box_beginning;
        for (const int year : YearsOfFiles(club.Files, beginning)) {
            if (year >= club.Year - 1 && year != club.Year)
                ReadOtherLedger(source, club, account, year);
        }
    }
    std::stable_sort(source.Ledgers.begin(), source.Ledgers.end(),
        [](const MoneyLedger& a, const MoneyLedger& b) { return a.year < b.year; });
}

/// When the bills of the ledgers' years were out; those of the loaded year by what is in memory.
void AddBillStarts(MoneySource& source, const LoadedClub& club)
{
    for (const MoneyLedger& ledger : source.Ledgers) {
        PriceSettings prices;
        OrName(source.Unreadable, PriceSettingsFile, [&] {
            prices = ledger.year == club.Year
                ? club.Prices
                : ReadPrices(club.Files, QString::number(ledger.year), 0, {}).Prices;
        });
        if (const auto start = BillStart(prices.BillingDate, prices.PaymentDeadline))
            source.Years.Known.BillStarts[ledger.year] = *start;
    }
}

/// The lines of the account that its file lacks, each as its four fields; nothing when the file has
/// lines that the account lacks.
std::optional<int> CountUnsaved(const LoadedClub& club, Account account)
{
    const auto four_fields = [](const QStringList& lines) {
        QStringList fields;
        for (const QString& line : lines)
            fields += FirstFourFields(SplitRecord(line));
        std::sort(fields.begin(), fields.end());
        return fields;
    };
    const QString name = LedgerFileName(account, club.Year);
    const QStringList stored
        = four_fields(FileExists(club.Files, name) ? ReadLedger(club.Files, name) : QStringList());
    const QStringList booked = four_fields(LedgerOf(club.Book, account).Lines);
    if (!std::includes(booked.begin(), booked.end(), stored.begin(), stored.end()))
        return std::nullopt;
    return static_cast<int>(booked.size() - stored.size());
}

UnsavedBookings FindUnsaved(const LoadedClub& club)
{
    UnsavedBookings unsaved;
    unsaved.Count = 0;
    for (const Account account : { Account::Bank, Account::CashBox }) {
        if (!LedgerOf(club.Book, account).Unsaved)
            continue;
        unsaved.Any = true;
        std::optional<int> count;
        QStringList unreadable; // the ledger's own load has said so already
        OrName(unreadable, {}, [&] { count = CountUnsaved(club, account); });
        unsaved.Count
            = unsaved.Count && count ? std::optional(*unsaved.Count + *count) : std::nullopt;
    }
    return unsaved;
}

} // namespace

QStringList LedgerLines(const LoadedClub& club, Account account)
{
    const QStringList& lines = LedgerOf(club.Book, account).Lines;
    return account == Account::Bank ? lines : SortLedgerByDate(WithoutStoredBalances(lines));
}

QString ShownBalance(const LoadedClub& club, Account account)
{
    return CurrentBalanceText(ClosingBalance(MakeLedgerRows(LedgerLines(club, account))));
}

QVector<int> YearsOfFiles(const DataFiles& files, const QString& beginning)
{
    constexpr qsizetype year_digits = 4;
    const QString end = u".pz"_s;
    QStringList names;
    if (ListFolder(files.DataDirectory, names))
        return {};
    QVector<int> years;
    for (const QString& name : names) {
        const bool fits = name.size() == beginning.size() + year_digits + end.size()
            && name.startsWith(beginning) && name.endsWith(end);
        const QString digits = fits ? name.mid(beginning.size(), year_digits) : QString();
        const bool all_digits = std::all_of(
            digits.begin(), digits.end(), [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
        if (fits && all_digits)
            years += digits.toInt();
    }
    std::sort(years.begin(), years.end());
    return years;
}

std::optional<Cents> BillOf(const AnnualStatement& statement)
{
    return statement.total ? CentsOf(FormatNumber(*statement.total, u"0.00"_s)) : std::nullopt;
}

MoneySource ReadMoneySource(const LoadedClub& club)
{
    MoneySource source;
    source.Year = club.Year;
    source.Records = club.Members.RecordList;
    source.Bills = BillsOf(club.Statement, source.Records.size());
    const QVector<int> years = YearsOfFiles(club.Files, members_beginning);
    source.Years.Known.WithMembers = { years.begin(), years.end() };
    source.Years.Known.WithMembers += club.Year;
    source.Years.ReadRecords = [files = club.Files](int year) {
        MemberLists lists;
        ReadMembersFile(lists, files, QString::number(year));
        return lists.RecordList;
    };
    source.Years.Indexes[club.Year] = MakeMemberIndex(source.Records);
    AddLedgers(source, club);
    AddBillStarts(source, club);
    const QString cash_box = CashBoxLedgerFileName(QString::number(club.Year));
    OrName(source.Unreadable, cash_box,
        [&] { source.CashBoxHasFile = FileExists(club.Files, cash_box); });
    source.Unsaved = FindUnsaved(club);
    source.Unreadable.removeDuplicates();
    return source;
}
