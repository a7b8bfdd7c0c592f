// What the cash report says beside the numbers of the ledgers.
#pragma once

#include <QDate>
#include <QString>

struct CashReportContext {
    QString ClubName;
    QString BankName;
    QString Treasurer;
    QDate Today;
    QString ShownBankBalance; ///< as "Kontoführung" shows it, in single precision
    QString ShownCashBoxBalance;
};
