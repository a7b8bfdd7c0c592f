// The report "Jahre im Vergleich".
#pragma once

#include "money/years.h"
#include "report/report.h"
#include "report/report_choices.h"

/// The years, newest last, and, when a member was chosen, this member's years.
Report MakeYearsReport(
    const std::vector<ClubYear>& years, int loaded_year, const ReportChoices& choices);
