#include "history/sent_pages_form.h"

#include "app/program.h"
#include "history/shown_total.h"

void KeepSentPages(const Program& program, SentHow how, const QList<PageRange>& pages)
{
    const StatementState& statement = program.Statement;
    QList<SentBill> bills;
    for (const PageRange& range : pages) {
        for (qsizetype page = range.first; page <= range.last; ++page)
            bills += { page + 1, program.Members.NameList.value(page),
                ShownTotal(statement.DrawnTotals.value(page)) };
    }
    KeepSentBills(program.Files, statement.Source.YearText, how, bills);
}
