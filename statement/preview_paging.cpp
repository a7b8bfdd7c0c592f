#include "statement/preview_paging.h"

#include "data/german_numbers.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int pixels_per_step = 10;
constexpr double large_steps_per_page = 5.0;

/// The first page surface exists even when there is no member.
void TakeScrollPosition(StatementState& statement)
{
    statement.PageTops[static_cast<std::size_t>(statement.ShownPage - 1)] = statement.ScrollOffset;
}

} // namespace

void RebuildPreview(StatementState& statement, qsizetype members)
{
    const auto surfaces = static_cast<std::size_t>(std::max<qsizetype>(members, 1));
    statement.PageTops.assign(surfaces, statement.ScrollOffset);
    statement.ShownPage = 1;
}

void StepToNextPage(StatementState& statement, qsizetype members)
{
    // A record that was added but could not be saved has no page yet.
    const auto pages = std::min(members, static_cast<qsizetype>(statement.PageTops.size()));
    if (statement.ShownPage < pages)
        statement.ShownPage = static_cast<qint16>(statement.ShownPage + 1);
    TakeScrollPosition(statement);
}

void StepToPreviousPage(StatementState& statement)
{
    if (statement.ShownPage >= 2)
        statement.ShownPage = static_cast<qint16>(statement.ShownPage - 1);
    TakeScrollPosition(statement);
}

void ScrollShownPage(StatementState& statement, int value)
{
    const long long offset = -static_cast<long long>(pixels_per_step) * value;
    if (offset < std::numeric_limits<qint16>::min() || offset > std::numeric_limits<qint16>::max())
        throw RuntimeError { ErrorKind::Overflow, {}, {} };
    statement.ScrollOffset = static_cast<qint32>(offset);
    TakeScrollPosition(statement);
}

qint32 TopOfShownPage(const StatementState& statement)
{
    return statement.PageTops[static_cast<std::size_t>(statement.ShownPage - 1)];
}

ScrollRange ScrollRangeFor(int page_height, int viewport_height)
{
    const double hidden = std::max(0, page_height - viewport_height);
    ScrollRange range;
    range.maximum = static_cast<int>(RoundTo(hidden / pixels_per_step, 0));
    range.large_step = static_cast<int>(RoundTo(range.maximum / large_steps_per_page, 0));
    return range;
}
