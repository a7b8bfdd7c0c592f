// The names of a year's files. They begin with a backslash and are appended to the DataDirectory
// (PathOf).
#pragma once

#include "data/dates.h"

#include <QString>

QString MembersFileName(const BillingYear& year_text); ///< "\Mitgliedsdaten2016.pz"
QString BankLedgerFileName(const BillingYear& year_text); ///< "\Konto2016.pz"
QString CashBoxLedgerFileName(const BillingYear& year_text); ///< "\HandKasse2016.pz"
QString SpecialBillingFileName(
    const QString& surname, const BillingYear& year_text); ///< "/SonderAbrechnungMeier2016.xls"

inline const QString ClubNameFile = QStringLiteral("\\V.dat");
inline const QString PriceSettingsFile = QStringLiteral("\\Config.ini");
inline const QString BankSettingsFile = QStringLiteral("\\Config1.ini");
