#include "statement/statement_pages.h"

#include "statement/bill_amounts.h"
#include "statement/page_layout.h"

namespace {

void DrawAmounts(StatementState& statement)
{
    statement.PageSelection.clear();
    const BillSource& source = statement.Source;
    const PriceNumbers prices = ReadPriceNumbers(source.Prices);
    for (qsizetype member = 0; member < source.Members.RecordList.size(); ++member) {
        const AnnualStatement bill = ComputeStatement(source, prices, member);
        statement.MemberPages = member + 1;
        if (bill.stopped)
            throw RuntimeError { *bill.stopped };
        statement.FinishedPages = member + 1;
        statement.LastGrandTotal = *bill.total;
        statement.StatementTotals += TotalText(*bill.total);
    }
}

void DrawFixed(StatementState& statement)
{
    if (PageCount(statement) == 0)
        return;
    // The drawing goes page by page: when it fails, only the page in hand shows something.
    statement.FixedPages = 1;
    DrawFixedContents(statement.FixedContents, statement.Source);
    statement.FixedPages = PageCount(statement);
}

} // namespace

void DrawAllPages(StatementState& statement, const BillSource& source)
{
    statement.Source = source;
    statement.FixedContents.clear();
    statement.FixedPages = 0;
    statement.MemberPages = 0;
    statement.FinishedPages = 0;
    statement.Stopped.reset();
    try {
        DrawFixed(statement);
        DrawAmounts(statement);
    } catch (const RuntimeError& error) {
        statement.Stopped = error; // the pages say so as long as they stand
        throw;
    }
}

qsizetype PageCount(const StatementState& statement)
{
    return statement.Source.Members.RecordList.size();
}

AnnualStatement StatementOfPage(const StatementState& statement, qsizetype index)
{
    return ComputeStatement(statement.Source, index);
}

PageContents ContentsOfPage(const StatementState& statement, qsizetype index)
{
    PageContents contents;
    if (index >= 0 && index < statement.FixedPages)
        contents.fixed = &statement.FixedContents;
    if (index >= 0 && index < statement.MemberPages)
        DrawStatement(contents.member, StatementOfPage(statement, index));
    return contents;
}

bool IsUnfinished(const StatementState& statement, qsizetype index)
{
    return index >= statement.FinishedPages && index < PageCount(statement);
}

QString TitleOfPages(const StatementState& statement)
{
    for (const PageItem& item : statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        if (text != nullptr && text->element == QLatin1String("title"))
            return text->text;
    }
    return {};
}
