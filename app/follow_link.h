// Where the links of the reports lead.
#pragma once

#include "report/report.h"

struct Program;

/// Brings the target to the front as clicks would: the tab (its guard may ask, and may keep the
/// cash book in front: then nothing more happens), the member, row or page, and the focus into the
/// control. Unsaved texts in the member form are not left without a question. A target that is
/// there no more leads to its tab.
void FollowLink(Program& program, const LinkTarget& target);
