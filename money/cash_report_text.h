// The report "Kassenbericht" and the page that the auditors sign.
#pragma once

#include "money/cash_report.h"
#include "money/open_items.h"
#include "report/report.h"
#include "report/report_choices.h"

#include <QDate>
#include <QString>

#include <optional>

/// What the report says beside the numbers of the ledgers.
struct CashReportContext {
    QString ClubName;
    QString BankName;
    QString Treasurer;
    QDate Today;
    QString ShownBankBalance; ///< as "Kontoführung" shows it, in single precision
    QString ShownCashBoxBalance;
};

Report MakeCashReportText(
    MoneySource& source, const CashReportContext& context, const ReportChoices& choices);
