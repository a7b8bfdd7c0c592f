// The total of a bill as its page shows it.
#pragma once

#include <QString>

/// "193,53" of a text of the totals list; empty for a bill without a total.
QString ShownTotal(const QString& text_of_single);
