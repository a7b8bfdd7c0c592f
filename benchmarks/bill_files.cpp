// Bills as PDF, 1,000 members: a file for each, one file of all, and a bare loop of the toolkit's
// PDF writer that draws as many texts. All three in the same run, one after the other, several
// rounds.
#include "outgoing/bill_files.h"
#include "benchmarks/made_up_club.h"
#include "statement/statement_pages.h"
#include "statement/statement_printer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int members = 1000;
constexpr int rounds = 3;
constexpr int dots_per_inch = 300;

void WriteFiles(const StatementState& statement, const QString& folder, BillSplit split)
{
    for (const BillFile& file : BillFilesOf(statement, split)) {
        const QByteArray content = PdfOfPages(statement, file.Pages, nullptr);
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

/// Milliseconds, the quickest of several rounds.
template <typename Routine> double Quickest(Routine routine)
{
    double quickest = 1e9;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        routine();
        quickest = std::min(quickest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return quickest;
}

} // namespace

int main(int argument_count, char** arguments)
{
    const QApplication application(argument_count, arguments);
    MadeUpClub club(members, 10);
    club.Open();
    const StatementState& statement = club.program.Statement;
    const QTemporaryDir folder;
    const double single
        = Quickest([&] { WriteFiles(statement, folder.path(), BillSplit::FilePerMember); });
    const double one
        = Quickest([&] { WriteFiles(statement, folder.path(), BillSplit::AllInOneFile); });
    const QString path = folder.filePath(u"bare.pdf"_s);
    const double bare = Quickest([&] { WriteBare(statement, { 0, members - 1 }, path); });
    const double bare_single = Quickest([&] {
        for (qsizetype page = 0; page < members; ++page)
            WriteBare(statement, { page, page }, path);
    });
    std::printf(
        "%d bills: single files %.0f ms, one file %.0f ms, bare loop %.0f ms\n"
        "single files %.2f of one file, one file %.2f of the bare loop; the toolkit alone %.0f ms "
        "for single files, %.2f of its one file\n",
        members, single, one, bare, single / one, one / bare, bare_single, bare_single / bare);
    return 0;
}
