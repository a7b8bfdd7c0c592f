// The report "Offene Posten".
#pragma once

#include "money/open_items.h"
#include "report/report.h"
#include "report/report_choices.h"

/// The action of the link on the name of a member who has not paid all; carried out by the window's
/// owner.
QString PayAction(int member);

/// The member of such an action, -1 for any other text.
int MemberOfPayAction(const QString& action);

/// The source's payments are looked through anew.
Report MakeOpenItemsReport(MoneySource& source, const ReportChoices& choices);
