// How the check report is written: errors, warnings, hints; each entry with its rows and remedy.
#pragma once

#include "check/check.h"
#include "report/report.h"
#include "report/report_choices.h"

#include <QDate>
#include <QString>

/// The report of that year. Lists beyond 20 rows end in a link that shows them whole.
Report LayOutCheck(const CheckResult& result, const QString& year, const QDate& today,
    const ReportChoices& choices);

/// "2 Fehler, 1 Warnung, 3 Hinweise", or what was checked when nothing was found.
QString CheckSummary(const CheckResult& result);
