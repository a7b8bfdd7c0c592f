#include "statement/statement_pages.h"

#include "statement/bill_amounts.h"
#include "statement/page_layout.h"

namespace {

/// The bill of one member and what it was computed from. It depends on nothing else but the prices.
struct BillInput {
    const QString* record = nullptr;
    const QString* previous = nullptr; ///< null: last year has no such line
};

BillInput InputOf(const MemberLists& lists, qsizetype member)
{
    const bool paired = !lists.PreviousYearMissing && lists.PreviousYearRead
        && member < lists.PreviousYearList.size();
    return { &lists.RecordList[member], paired ? &lists.PreviousYearList[member] : nullptr };
}

bool SameInput(const BillInput& a, const BillInput& b)
{
    const bool paired = a.previous != nullptr;
    return paired == (b.previous != nullptr) && *a.record == *b.record
        && (!paired || *a.previous == *b.previous);
}

bool SameYearBefore(const MemberLists& a, const MemberLists& b)
{
    return a.PreviousYearMissing == b.PreviousYearMissing
        && a.PreviousYearRead == b.PreviousYearRead;
}

/// What the drawing before left: its bills whose input is still the same need not be computed
/// again.
struct EarlierDrawing {
    BillSource source;
    QStringList totals;
    bool same_prices = false;

    /// True when that member's bill was finished and would come out the same.
    bool Holds(const MemberLists& lists, qsizetype member) const
    {
        return same_prices && member < totals.size()
            && SameInput(InputOf(source.Members, member), InputOf(lists, member));
    }
};

/// Throws where a bill stops; those before it are finished.
void DrawAmounts(
    StatementState& statement, const PriceNumbers& prices, const EarlierDrawing& earlier)
{
    const BillSource& source = statement.Source;
    statement.DrawnTotals.reserve(PageCount(statement));
    for (qsizetype member = 0; member < PageCount(statement); ++member) {
        statement.MemberPages = member + 1;
        if (earlier.Holds(source.Members, member)) {
            statement.DrawnTotals += earlier.totals[member];
        } else {
            const AnnualStatement bill = ComputeStatement(source, prices, member);
            if (bill.stopped)
                throw RuntimeError { *bill.stopped };
            statement.DrawnTotals += TotalText(*bill.total);
        }
        statement.FinishedPages = member + 1;
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

void ClearPages(StatementState& statement)
{
    statement.FixedContents.clear();
    statement.FixedPages = 0;
    statement.MemberPages = 0;
    statement.FinishedPages = 0;
    statement.DrawnTotals.clear();
    statement.Stopped.reset();
}

void DrawAnew(StatementState& statement, const BillSource& source)
{
    const EarlierDrawing earlier { statement.Source, statement.DrawnTotals,
        statement.Source.Prices == source.Prices
            && SameYearBefore(statement.Source.Members, source.Members) };
    ClearPages(statement);
    statement.Source = source;
    statement.Drawn = true;
    const PriceNumbers prices = ReadPriceNumbers(source.Prices);
    try {
        DrawFixed(statement);
        DrawAmounts(statement, prices, earlier);
    } catch (const RuntimeError& error) {
        statement.Stopped = error; // the pages say so as long as they stand
    }
    if (statement.FinishedPages > 0)
        statement.LastGrandTotal
            = *ComputeStatement(source, prices, statement.FinishedPages - 1).total;
}

/// True when bills made of these two are the same in every text.
bool SameBills(const BillSource& a, const BillSource& b)
{
    return a.ClubName == b.ClubName && a.YearText == b.YearText && a.LoadedYear == b.LoadedYear
        && a.Today == b.Today && a.Prices == b.Prices && a.Bank == b.Bank
        && SameYearBefore(a.Members, b.Members) && a.Members.RecordList == b.Members.RecordList
        && a.Members.PreviousYearList == b.Members.PreviousYearList;
}

} // namespace

void DrawAllPages(StatementState& statement, const BillSource& source)
{
    if (!statement.Drawn || !SameBills(statement.Source, source))
        DrawAnew(statement, source);
    if (!statement.Stopped || statement.MemberPages > 0)
        statement.PageSelection.clear(); // the amounts were reached
    statement.StatementTotals += statement.DrawnTotals;
    if (statement.Stopped)
        throw RuntimeError { *statement.Stopped };
}

qsizetype PageCount(const StatementState& statement)
{
    return statement.Source.Members.RecordList.size();
}

AnnualStatement StatementOfPage(const StatementState& statement, qsizetype index)
{
    if (index >= 0 && index < PageCount(statement))
        return ComputeStatement(statement.Source, index);
    AnnualStatement none;
    none.stopped = RuntimeError { ErrorKind::SubscriptOutOfRange, {}, {} };
    return none;
}

PageBill BillOfPage(const StatementState& statement, qsizetype index)
{
    PageBill bill { index, StatementOfPage(statement, index), {} };
    DrawStatement(bill.Items, bill.Statement);
    return bill;
}

PageContents ContentsOfPage(const StatementState& statement, qsizetype index)
{
    PageContents contents;
    if (index >= 0 && index < statement.FixedPages)
        contents.fixed = &statement.FixedContents;
    if (index < 0 || index >= statement.MemberPages)
        return contents;
    PageBill bill = BillOfPage(statement, index);
    if (statement.AddedItems) {
        const PageItems added = statement.AddedItems(bill);
        bill.Items.insert(bill.Items.end(), added.begin(), added.end());
    }
    contents.member = std::move(bill.Items);
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
