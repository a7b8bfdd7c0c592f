// The report "Kassenbericht" and the page that the auditors sign.
#pragma once

#include "money/cash_report_context.h"
#include "money/money_source.h"
#include "report/report.h"
#include "report/report_choices.h"

Report MakeCashReportText(
    MoneySource& source, const CashReportContext& context, const ReportChoices& choices);
