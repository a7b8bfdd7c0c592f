// A report as HTML for a text document, on screen and on paper. Every text is escaped.
#pragma once

#include "report/report.h"
#include "report/report_choices.h"

/// Paper has no links and no palette of a dark desktop.
enum class HtmlUse { Screen, Paper };

/// The whole report. The choices say which column of a table carries the mark of its order.
QString HtmlOfReport(const Report& report, const ReportChoices& choices, HtmlUse use);
