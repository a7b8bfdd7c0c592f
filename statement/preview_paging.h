// Which page the preview shows and where it stands in the viewport. Pages are counted from 1,
// positions are viewport pixels.
#pragma once

#include "statement/statement_state.h"

/// One page per member, page 1 shown, all pages at the current ScrollOffset. Nothing is drawn.
void RebuildPreview(StatementState& statement, qsizetype members);

/// The next page, when there is one, takes the scroll position of the page before.
void StepToNextPage(StatementState& statement, qsizetype members);
void StepToPreviousPage(StatementState& statement);

/// The scroll bar stands at value: the shown page moves up by ten pixels a step, hidden pages stay
/// where they were left. Throws RuntimeError Overflow beyond the 16-bit range; nothing has moved
/// then.
void ScrollShownPage(StatementState& statement, int value);

/// Top of the shown page surface, 0 or negative.
qint32 TopOfShownPage(const StatementState& statement);

/// The scroll bar for a viewport of that height, both rounded half to even and never negative.
struct ScrollRange {
    int maximum = 0; ///< a tenth of what the viewport does not show
    int large_step = 0; ///< a fifth of the maximum
};
ScrollRange ScrollRangeFor(int page_height, int viewport_height);
