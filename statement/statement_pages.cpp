#include "statement/statement_pages.h"

#include "statement/bill_amounts.h"
#include "statement/page_layout.h"

void DrawAllPages(StatementState& statement, const BillSource& source)
{
    const auto pages = static_cast<std::size_t>(source.Members.RecordList.size());
    statement.FixedContents.clear();
    statement.FixedPages = 0;
    statement.MemberContents.assign(pages, {});
    if (pages > 0) {
        // The drawing goes page by page: when it fails, only the page in hand shows something.
        statement.FixedPages = 1;
        DrawFixedContents(statement.FixedContents, source);
        statement.FixedPages = source.Members.RecordList.size();
    }
    DrawStatementAmounts(statement, source);
}

PageContents ContentsOfPage(const StatementState& statement, qsizetype index)
{
    PageContents contents;
    if (index >= 0 && index < statement.FixedPages)
        contents.fixed = &statement.FixedContents;
    if (index >= 0 && index < static_cast<qsizetype>(statement.MemberContents.size()))
        contents.member = &statement.MemberContents[static_cast<std::size_t>(index)];
    return contents;
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
