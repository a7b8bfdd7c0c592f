// How long all rules of the check report take beside one redraw of the bills: 1,000 members, 10,000
// bookings, both measured in the same run.
#include "cashbook/ledger_file.h"
#include "cashbook/ledger_rows.h"
#include "check/check.h"
#include "data/file_names.h"
#include "data/line_file.h"
#include "statement/statement_pages.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int members = 1000;
constexpr int bookings = 10'000;
constexpr int rounds = 40;
constexpr int rounds_of_every_page = 4; // many times a redraw, each
constexpr int rounds_of_a_rule = 10;

QStringList MemberLines(int year)
{
    QStringList lines;
    for (int k = 0; k < members; ++k) {
        const int reading = 1000 + 10 * k + 100 * (year - 2025);
        const int water = 50 + k + 20 * (year - 2025);
        lines += u"Name%1a;Anna;Lindenstraße %1;39999 Rotenfeld;030 23%1;%1;%2;1;7,50;0,00;3,20;"
                 "12,00;%3;%4;%5;%6"_s.arg(QString::number(k + 1), QString::number(300 + k),
                     QString::number(reading), QString::number(reading + 100),
                     QString::number(water), QString::number(water + 20));
    }
    return lines;
}

QStringList LedgerLines()
{
    QStringList lines { u"02.01.2026;Übertrag Saldo 2025;650,00;0,00"_s };
    const QDate first(2026, 1, 3);
    for (int i = 1; i < bookings; ++i) {
        const QString day = first.addDays(i * 320 / bookings).toString(u"dd.MM.yyyy"_s);
        lines += i % 10 == 0
            ? u"%1;Abrechnung Name%2a;%3,25;0,00"_s.arg(day).arg(i / 10).arg(100 + i % 90)
            : u"%1;Vorgang %2;0,00;%3,40"_s.arg(day).arg(i).arg(1 + i % 70);
    }
    return lines;
}

PriceSettings Prices()
{
    PriceSettings prices;
    const QString texts[] { u"0,36"_s, u"2,40"_s, u"8,00"_s, u"40,00"_s, u"0,10"_s, u"0,02"_s,
        u"0,05"_s };
    for (std::size_t field = 0; field < 7; ++field)
        PriceText(prices, field) = texts[field];
    prices.BillingDate = u"20.11.2026"_s;
    prices.PaymentDeadline = u"20.12.2026"_s;
    prices.ElectricityPrepayment = prices.WaterPrepayment = 1;
    return prices;
}

/// The club's files, and what the program would hold of them.
CheckSource Load(const DataFiles& files)
{
    RewriteLines(files, MembersFileName(u"2026"_s), MemberLines(2026));
    RewriteLines(files, MembersFileName(u"2025"_s), MemberLines(2025));
    WriteLedger(files, BankLedgerFileName(u"2026"_s), LedgerLines());
    WriteLedger(files, BankLedgerFileName(u"2025"_s), { u"02.01.2025;Guthaben;650,00;0,00"_s });
    RewriteLines(files, ClubNameFile, { u"KGV"_s });
    PriceSettings before = Prices();
    before.ElectricityPrice = u"0,34"_s;
    WritePrices(files, u"2025"_s, before);
    WritePrices(files, u"2026"_s, Prices());
    CheckSource source;
    source.Files = files;
    source.YearText = source.LoadedYear = u"2026"_s;
    source.Today = { 2026, 11, 21 };
    source.ClubName = u"KGV"_s;
    ReadMembersFile(source.Members, files, u"2026"_s);
    ReadPreviousYear(source.Members, files, u"2026"_s);
    source.Prices = ReadPrices(files, u"2026"_s, 2026, {}).Prices;
    source.Bank.Iban = u"DE06 0000 0000 0000 0047 11"_s;
    source.Bank.FirstContact = source.Bank.SecondContact = u"Name1a,Anna"_s;
    source.Accounts[0].Lines = ReadLedger(files, BankLedgerFileName(u"2026"_s));
    source.Accounts[0].ShownBalance = ClosingBalance(MakeLedgerRows(source.Accounts[0].Lines));
    source.WidthOf = [](const PageText& text) { return static_cast<int>(text.text.size()) * 6; };
    return source;
}

/// Milliseconds.
template <typename Routine> double Timed(Routine routine)
{
    QElapsedTimer timer;
    timer.start();
    routine();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Milliseconds, the quickest of several rounds.
template <typename Routine> double Quickest(Routine routine)
{
    double quickest = 1e9;
    for (int round = 0; round < rounds_of_a_rule; ++round)
        quickest = std::min(quickest, Timed(routine));
    return quickest;
}

/// A redraw as it would be if every bill were drawn at once, not when it is seen.
void MakeEveryPage(StatementState& statement, const BillSource& bills)
{
    statement = {};
    DrawAllPages(statement, bills);
    for (qsizetype page = 0; page < PageCount(statement); ++page) {
        if (ContentsOfPage(statement, page).member.empty())
            std::abort(); // never; keeps the pages from being optimised away
    }
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    CheckSource source = Load({ folder.path(), folder.filePath(u"state"_s) });
    const BillSource bills { source.ClubName, u"2026"_s, u"2026"_s, source.Members, source.Prices,
        source.Bank, source.Today };
    double redraw = 1e9;
    double pages = 1e9;
    double rules = 1e9;
    CheckResult result;
    for (int round = 0; round < rounds; ++round) { // in turn: other work slows down both
        redraw = std::min(redraw, Timed([&] {
            source.Statement = {}; // what was drawn before would be kept
            DrawAllPages(source.Statement, bills);
        }));
        if (round < rounds_of_every_page)
            pages = std::min(pages, Timed([&] { MakeEveryPage(source.Statement, bills); }));
        rules = std::min(rules, Timed([&] { result = RunCheck(source); }));
    }
    std::printf(
        "redraw %.2f ms, all rules %.2f ms (%lld errors, %lld warnings): %.2f of a redraw\n",
        redraw, rules, static_cast<long long>(result.Errors),
        static_cast<long long>(result.Warnings), rules / redraw);
    std::printf("with every page drawn %.2f ms: %.2f of such a redraw\n", pages, rules / pages);
    const double none = Quickest([&] { RunCheck(source, {}); });
    std::printf("before the rules %.2f ms\n", none);
    for (const CheckRule& rule : CheckRules()) {
        const double alone = Quickest([&] { RunCheck(source, { rule }); }) - none;
        if (alone > redraw / 20.0)
            std::printf("%s %.2f ms\n", qPrintable(rule.id), alone);
    }
    return 0;
}
