#include "tests/support/full_redraw.h"

#include "cashbook/ledger_form.h"
#include "cashbook/ledger_rows.h"
#include "cashbook/ledger_view_form.h"
#include "statement/statement_pages.h"
#include "tests/support/page_picture.h"

#include <QAbstractItemModel>
#include <QTableView>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

StatementState DrawnFromNothing(const BillSource& source)
{
    StatementState anew;
    try {
        DrawAllPages(anew, source);
    } catch (const RuntimeError&) {
        // The drawing stops where the window's did, or the pages differ.
    }
    return anew;
}

QStringList Described(const StatementState& statement, qsizetype page)
{
    const PageContents contents = ContentsOfPage(statement, page);
    QStringList lines = DescribePage(contents.member);
    if (contents.fixed != nullptr)
        lines = DescribePage(*contents.fixed) + lines;
    return lines;
}

bool SamePicture(const Program& program, const StatementState& anew)
{
    QWidget* surface = program.StatementPreview.P2;
    QImage shown = surface->grab().toImage().convertToFormat(QImage::Format_RGB32);
    shown.setDevicePixelRatio(1.0); // pixel by pixel
    return shown
        == PagePicture(anew, program.Statement.ShownPage - 1, surface->devicePixelRatioF());
}

/// The shown ledger cell by cell.
bool SameLedgerRows(const Program& program)
{
    const QAbstractItemModel& model = *program.CashBookTab.ListView1->model();
    const LedgerRows rows = MakeLedgerRows(CurrentLedger(program));
    if (model.rowCount() != rows.lines.size())
        return false;
    for (int i = 0; i < model.rowCount(); ++i) {
        const LedgerRow row = RowAt(rows, i);
        const QString texts[] { row.date, row.text, row.deposit, row.withdrawal, row.balance };
        for (int column = 0; column < 5; ++column) {
            if (model.index(i, column).data().toString() != texts[column])
                return false;
        }
    }
    return true;
}

} // namespace

QString DifferenceToFullRedraw(const Program& program)
{
    if (!SameLedgerRows(program))
        return u"the rows of the ledger"_s;
    const StatementState& shown = program.Statement;
    if (!shown.Drawn)
        return {};
    const StatementState anew = DrawnFromNothing(shown.Source);
    if (shown.StatementTotals != anew.StatementTotals)
        return u"the totals list"_s;
    if (shown.FinishedPages != anew.FinishedPages)
        return u"the number of finished pages"_s;
    for (qsizetype page = 0; page < PageCount(anew); ++page) {
        if (Described(shown, page) != Described(anew, page))
            return u"page %1"_s.arg(page + 1);
    }
    return SamePicture(program, anew) ? QString() : u"the picture of the shown page"_s;
}
