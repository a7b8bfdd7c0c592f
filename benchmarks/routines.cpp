// Single routines, measured by Google Benchmark: scripts/benchmark runs them and looks at them
// beside a floor in its table. More by hand: bench_routines --benchmark_filter=...
#include "benchmarks/made_up_club.h"
#include "cashbook/date_ordering.h"
#include "data/german_numbers.h"
#include "data/records.h"
#include "statement/bill_amounts.h"
#include "statement/contacts.h"
#include "statement/page_player.h"
#include "statement/statement_pages.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

QStringList LinesOf(const QByteArray& bytes)
{
    QStringList lines = QString::fromLatin1(bytes).split(u"\r\n"_s);
    lines.removeLast();
    return lines;
}

BillSource SourceWith(int members)
{
    BillSource source;
    source.YearText = u"2017"_s;
    source.LoadedYear = u"2017"_s;
    source.Members.RecordList = LinesOf(MembersBytes(members, false));
    source.Members.PreviousYearList = LinesOf(MembersBytes(members, true));
    source.Members.PreviousYearRead = true;
    source.Prices.ElectricityPrice = u"0,3125"_s;
    source.Prices.PreviousElectricityPrice = u"0,30"_s;
    source.Prices.WaterPrice = u"2,15"_s;
    source.Prices.PreviousWaterPrice = u"2,00"_s;
    source.Prices.Lease = u"0,1850"_s;
    source.Bank.FirstContact = u"Name0,Vorname0"_s;
    source.Bank.SecondContact = u"niemand,nirgends"_s;
    source.Today = QDate(2017, 12, 1);
    return source;
}

void ComputeOneBill(benchmark::State& state)
{
    const BillSource source = SourceWith(1);
    const PriceNumbers prices = ReadPriceNumbers(source.Prices);
    for (auto _ : state)
        benchmark::DoNotOptimize(ComputeStatement(source, prices, 0));
}
BENCHMARK(ComputeOneBill);

/// The least for a bill: take both lines apart and read its twelve numbers.
void FloorOfOneBill(benchmark::State& state)
{
    const BillSource source = SourceWith(1);
    for (auto _ : state) {
        double sum = 0.0;
        const QStringList fields = source.Members.RecordList[0].split(u';');
        const QStringList previous = source.Members.PreviousYearList[0].split(u';');
        for (int field = PlotSize; field < MemberFieldCount; ++field) {
            sum += QLocale::c().toDouble(fields[field]);
            sum += QLocale::c().toDouble(previous[field]);
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(FloorOfOneBill);

void DrawEveryBillAnew(benchmark::State& state)
{
    const BillSource source = SourceWith(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StatementState statement;
        DrawAllPages(statement, source);
        benchmark::DoNotOptimize(statement.StatementTotals);
    }
}
BENCHMARK(DrawEveryBillAnew)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void DrawAfterOneChange(benchmark::State& state)
{
    BillSource source = SourceWith(static_cast<int>(state.range(0)));
    StatementState statement;
    DrawAllPages(statement, source);
    for (auto _ : state) {
        QString& record = source.Members.RecordList[0];
        record[0] = record[0] == u'N' ? u'M' : u'N';
        statement.StatementTotals.clear();
        DrawAllPages(statement, source);
    }
}
BENCHMARK(DrawAfterOneChange)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void FindBothContacts(benchmark::State& state)
{
    const BillSource source = SourceWith(1000);
    for (auto _ : state)
        benchmark::DoNotOptimize(FindContacts(source));
}
BENCHMARK(FindBothContacts);

void PaintOnePage(benchmark::State& state)
{
    StatementState statement;
    DrawAllPages(statement, SourceWith(1));
    QImage image(PageWidth, PageHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    for (auto _ : state) {
        const PageContents contents = ContentsOfPage(statement, 0);
        PlayPage(painter, *contents.fixed, 1.0);
        PlayPage(painter, contents.member, 1.0);
    }
}
BENCHMARK(PaintOnePage)->Unit(benchmark::kMicrosecond);

void ReadANumber(benchmark::State& state)
{
    const QString text = u"1.234,50"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(ParseDouble(text));
}
BENCHMARK(ReadANumber);

void SortALedger(benchmark::State& state)
{
    const QStringList lines = LinesOf(LedgerBytes(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(SortLedgerByDate(lines));
}
BENCHMARK(SortALedger)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    benchmark::Initialize(&argument_count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
