// The history as a report: what happened, newest first, by day, with its links. The window and what
// the links do: history_form.
#pragma once

#include "data/history.h"
#include "report/report.h"
#include "report/report_choices.h"

#include <QString>

inline constexpr qsizetype ActionsOnAPage = 100;

/// The report as it is now; at most ActionsOnAPage actions, and as many more for each time that
/// "ältere zeigen" was chosen.
Report HistoryReport(const DataFiles& files, const ReportChoices& choices);

/// What a link of the report asks for.
enum class HistoryDeed {
    None,
    Look, ///< show the state of that number
    Take, ///< take the state of that number back
    TakeAll, ///< take all states of the action of that number back
    TakeBefore, ///< take the states before the action of that number back
    Empty ///< empty the history
};

struct HistoryLink {
    HistoryDeed Deed = HistoryDeed::None;
    qint64 Number = 0;
};

/// Of the name of a link's action; None for any other text.
HistoryLink HistoryLinkOf(const QString& action);
