// How long the money reports of 1,000 members and 10,000 bookings take, beside a floor: one pass
// over the same lines that does what the ledger view does with them, balances and the texts of
// every row. Measured in the same run on the same machine; the best of several runs counts, since a
// busy machine only ever adds time.
#include "cashbook/ledger_rows.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "money/cash_book_report.h"
#include "money/cash_report_text.h"
#include "money/money_reading.h"
#include "money/open_items_report.h"
#include "money/years_report.h"
#include "statement/statement_pages.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int member_count = 1000;
constexpr int booking_count = 10'000;
constexpr int runs = 7;

double BestOf(const std::function<void()>& work)
{
    double best = 1e9;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

/// A name of letters alone, another one for each number.
QString Name(int number)
{
    QString name(u'M');
    for (; number > 0; number /= 26)
        name += QChar(u'a' + number % 26);
    return name + u"ann"_s;
}

QStringList Members()
{
    QStringList records;
    for (int i = 0; i < member_count; ++i)
        records
            += u"%1;Anna;Weg 1;Ort;;%2;300;3;5,00;0,00;0,00;0,00;100;%3;10;20"_s.arg(Name(i / 2))
                   .arg(i + 1)
                   .arg(200 + i % 50);
    return records;
}

/// Every other line is a member's payment.
QStringList Bookings()
{
    QStringList lines;
    for (int i = 0; i < booking_count; ++i) {
        const QString date
            = QDate(2026, 1, 1).addDays(i * 365LL / booking_count).toString(u"dd.MM.yyyy");
        const QString text = i % 2 == 0
            ? u"Abrechnung %1 Garten %2"_s.arg(Name(i % member_count / 2)).arg(i % member_count + 1)
            : u"Vorgang %1"_s.arg(i % 300);
        lines += u"%1;%2;%3,50;0,00"_s.arg(date, text).arg(i % 90);
    }
    return lines;
}

void ReadEveryRow(const QStringList& lines)
{
    const LedgerRows rows = MakeLedgerRows(lines);
    for (qsizetype row = 0; row < lines.size(); ++row)
        RowAt(rows, row);
}

void Compare(const char* name, double floor, const std::function<void()>& work)
{
    const double time = BestOf(work);
    std::printf("%-14s %8.2f ms  %5.2f x\n", name, time, time / floor);
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const DataFiles files { folder.path(), folder.path() };
    for (int year = 2017; year <= 2026; ++year)
        RewriteLines(files, MembersFileName(QString::number(year)), Members());
    MemberLists members;
    members.RecordList = Members();
    PriceSettings prices;
    prices.ElectricityPrice = u"0,30"_s;
    prices.WaterPrice = u"2,20"_s;
    prices.BillingDate = u"15.11.2026"_s;
    StatementState statement;
    BillSource bills;
    bills.YearText = u"2026"_s;
    bills.LoadedYear = bills.YearText;
    bills.Members = members;
    bills.Prices = prices;
    DrawAllPages(statement, bills);
    CashBookState book;
    book.Bank.Lines = Bookings();
    const LoadedClub club { files, 2026, members, prices, statement, book };
    const CashReportContext context { {}, {}, {}, QDate(2026, 12, 31), {}, {} };

    const double floor = BestOf([&] { ReadEveryRow(book.Bank.Lines); });
    std::printf("%-14s %8.2f ms\n", "one pass", floor);
    Compare("cents alone", floor, [&] { ReadBookings(Account::Bank, 2026, book.Bank.Lines); });
    Compare("source", floor, [&] { ReadMoneySource(club); });
    Compare("open items", floor, [&] {
        MoneySource source = ReadMoneySource(club);
        MakeOpenItemsReport(source, {});
    });
    Compare("cash report", floor, [&] {
        MoneySource source = ReadMoneySource(club);
        MakeCashReportText(source, context, {});
    });
    Compare("cash book", floor, [&] { MakeCashBookReport(ReadMoneySource(club), {}); });
    Compare("years", floor, [&] { MakeYearsReport(ReadYears(club), 2026, {}); });
}
