// Bills as PDF, 1,000 members: a file for each, one file of all, and a bare loop of the toolkit's
// PDF writer that draws as many texts. All in the same run, one after the other, several rounds.
#include "benchmarks/made_up_club.h"
#include "outgoing/bill_contents.h"
#include "outgoing/single_pages.h"
#include "statement/statement_pages.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

constexpr int members = 1000;
constexpr int rounds = 5;
constexpr int dots_per_inch = 300;

void WriteFiles(const StatementState& statement, const QString& folder, BillSplit split)
{
    const std::vector<BillFile> files = BillFilesOf(statement, split);
    BillContents contents(statement, files, nullptr, SinglePages);
    for (const BillFile& file : files) {
        const QByteArray content = contents.Next();
        if (content.isEmpty() || WriteBillFile(folder, file.Name, content))
            qFatal("cannot write %s", qPrintable(file.Name));
    }
}

/// Every text of the page, one call of the toolkit for each; no boxes, no right edges.
void DrawTexts(QPainter& painter, const PageItems& items, double scale)
{
    for (const PageItem& item : items) {
        if (const auto* text = std::get_if<PageText>(&item))
            painter.drawText(QPointF(text->x * scale, text->y * scale), text->text);
    }
}

void WriteBare(const StatementState& statement, const PageRange& range, const QString& path)
{
    QPdfWriter writer(path);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    writer.setResolution(dots_per_inch);
    QPainter painter(&writer);
    QFont font = painter.font();
    font.setPointSize(8);
    painter.setFont(font);
    const double scale = static_cast<double>(writer.width()) / PageWidth;
    for (qsizetype page = range.first; page <= range.last; ++page) {
        if (page > range.first)
            writer.newPage();
        const PageContents contents = ContentsOfPage(statement, page);
        DrawTexts(painter, *contents.fixed, scale);
        DrawTexts(painter, contents.member, scale);
    }
}

/// Milliseconds.
struct Cost {
    double Wall = 1e9;
    double Processor = 1e9;
};

/// Runs it and keeps the least of what it cost so far.
template <typename Routine> void Measure(Cost& least, Routine routine)
{
    QElapsedTimer timer;
    timer.start();
    const std::clock_t begin = std::clock();
    routine();
    const double processor = 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    least.Processor = std::min(least.Processor, processor);
    least.Wall = std::min(least.Wall, static_cast<double>(timer.nsecsElapsed()) / 1e6);
}

void Print(const char* name, const Cost& cost, const char* floor_name, const Cost& floor)
{
    std::printf("%s: processor %.0f ms, %.2f of %s; wall %.0f ms, %.2f\n", name, cost.Processor,
        cost.Processor / floor.Processor, floor_name, cost.Wall, cost.Wall / floor.Wall);
}

} // namespace

int main(int argument_count, char** arguments)
{
    const QApplication application(argument_count, arguments);
    MadeUpClub club(members, 10);
    club.Open();
    const StatementState& statement = club.program.Statement;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"bare.pdf"_s);
    Cost single, one, bare, bare_single;
    for (int round = 0; round < rounds; ++round) {
        Measure(single, [&] { WriteFiles(statement, folder.path(), BillSplit::FilePerMember); });
        Measure(one, [&] { WriteFiles(statement, folder.path(), BillSplit::AllInOneFile); });
        Measure(bare, [&] { WriteBare(statement, { 0, members - 1 }, path); });
        Measure(bare_single, [&] {
            for (qsizetype page = 0; page < members; ++page)
                WriteBare(statement, { page, page }, path);
        });
    }
    std::printf("%d bills\n", members);
    Print("single files", single, "one file", one);
    Print("one file", one, "the bare loop", bare);
    Print("the toolkit alone, single files", bare_single, "its one file", bare);
    return 0;
}
