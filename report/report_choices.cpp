#include "report/report_choices.h"

#include "data/collation.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString show_all = u"show_all:"_s;
const QString filter_by = u"filter:"_s;
const QString sort_by = u"sort:"_s;

const ReportCell& CellOf(const ReportRow& row, std::size_t column)
{
    static const ReportCell none;
    return column < row.cells.size() ? row.cells[column] : none;
}

/// -1, 0 or 1; rows without a value stand behind those that have one.
int Compare(const ReportCell& a, const ReportCell& b)
{
    if (a.sort_value && b.sort_value)
        return *a.sort_value < *b.sort_value ? -1 : (*b.sort_value < *a.sort_value ? 1 : 0);
    if (a.sort_value || b.sort_value)
        return a.sort_value ? -1 : 1;
    return CompareTexts(a.text.text, b.text.text);
}

void Sort(ReportTable& table, const SortChoice& choice)
{
    const auto column = static_cast<std::size_t>(choice.column);
    const bool falling = choice.order == Qt::DescendingOrder;
    const auto before = [&](const ReportRow& a, const ReportRow& b) {
        if (a.total || b.total)
            return !a.total && b.total;
        const int order = Compare(CellOf(a, column), CellOf(b, column));
        return falling ? order > 0 : order < 0;
    };
    std::stable_sort(table.rows.begin(), table.rows.end(), before);
}

} // namespace

LinkTarget ShowAllLink(const QString& list) { return { LinkKind::Action, show_all + list, -1 }; }

LinkTarget FilterLink(const QString& filter)
{
    return { LinkKind::Action, filter_by + filter, -1 };
}

LinkTarget SortLink(const QString& table, int column)
{
    return { LinkKind::Action, sort_by + QString::number(column) + u':' + table, -1 };
}

bool TakeChoice(ReportChoices& choices, const QString& action)
{
    if (action.startsWith(show_all)) {
        choices.ShownWhole.insert(action.mid(show_all.size()));
        return true;
    }
    if (action.startsWith(filter_by)) {
        choices.Filter = action.mid(filter_by.size());
        return true;
    }
    if (!action.startsWith(sort_by))
        return false;
    const QString rest = action.mid(sort_by.size());
    const QString table = rest.section(u':', 1);
    SortChoice choice { rest.section(u':', 0, 0).toInt(), Qt::AscendingOrder };
    if (choices.Sorting.contains(table) && choices.Sorting.value(table) == choice)
        choice.order = Qt::DescendingOrder;
    choices.Sorting.insert(table, choice);
    return true;
}

void SortTables(Report& report, const ReportChoices& choices)
{
    for (ReportItem& item : report.items) {
        auto* table = std::get_if<ReportTable>(&item);
        if (table != nullptr && choices.Sorting.contains(table->name))
            Sort(*table, choices.Sorting.value(table->name));
    }
}
