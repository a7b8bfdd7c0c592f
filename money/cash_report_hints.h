// The sentences under "Hinweise" of the cash report: what a reader must know to trust its numbers.
#pragma once

#include "money/cash_report.h"
#include "money/cash_report_context.h"
#include "money/money_source.h"

#include <QStringList>

/// In their order; each only when it applies.
QStringList CashReportHints(
    const MoneySource& source, const CashReport& report, const CashReportContext& context);

/// True when the year has a cash box: a file or a booking.
bool HasCashBox(const MoneySource& source);
