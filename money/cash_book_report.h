// The report "Kassenbuch": every booking of both accounts with its number and the exact running
// balance, cut into pages whose sums are carried over.
#pragma once

#include "money/money_source.h"
#include "report/report.h"

#include <QString>

/// How much of a page a report may fill: lines of table rows, and characters of a booking's text in
/// one line.
struct PageRoom {
    int lines = 38;
    int characters = 46;
};

/// The account that has no booking says so. Headings are "Konto" with the bank's name and
/// "Handkasse".
Report MakeCashBookReport(
    const MoneySource& source, const QString& bank_name, const PageRoom& room = {});
