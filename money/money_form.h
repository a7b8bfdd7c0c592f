// The four money reports in the window of the reports, and what their links do in the cash book.
#pragma once

#include <QString>

#include <vector>

struct Program;

void ShowOpenItems(Program& program); ///< "Offene Posten"
void ShowCashReport(Program& program); ///< "Kassenbericht"
void ShowCashBook(Program& program); ///< "Kassenbuch"
void ShowYears(Program& program); ///< "Jahre im Vergleich"

/// What the member at that position (0 is the first) has paid of the bill, for a tool tip: "bezahlt
/// 45,25 € von 135,74 €, Rest 90,49 €, 3 Raten"; empty for a position past the end. Reads ledgers
/// of other years: to be asked for when the tool tip is wanted, not for every name at once.
QString PaidTip(const Program& program, int member);

/// For each member whether the bill is not paid in full (the open items' matching). Reads ledgers
/// of other years, as PaidTip does.
std::vector<bool> PartPaidMembers(const Program& program);

/// The bank account comes to the front, as clicks would bring it, and the fields get the rest of
/// the member's bill. Nothing is booked, and nothing is filled in when the tab guard keeps another
/// tab in front.
void ProposeRest(Program& program, int member);
