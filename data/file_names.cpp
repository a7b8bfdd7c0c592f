#include "data/file_names.h"

QString MembersFileName(const BillingYear& year_text)
{
    return QStringLiteral("\\Mitgliedsdaten") + year_text + QStringLiteral(".pz");
}

QString BankLedgerFileName(const BillingYear& year_text)
{
    return QStringLiteral("\\Konto") + year_text + QStringLiteral(".pz");
}

QString CashBoxLedgerFileName(const BillingYear& year_text)
{
    return QStringLiteral("\\HandKasse") + year_text + QStringLiteral(".pz");
}

QString SpecialBillingFileName(const QString& surname, const BillingYear& year_text)
{
    return QStringLiteral("/SonderAbrechnung") + surname + year_text + QStringLiteral(".xls");
}
