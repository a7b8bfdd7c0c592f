#include "history/file_kinds.h"

#include "data/data_files.h"
#include "data/file_names.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

KindOfFile KindOf(const QString& target)
{
    for (const auto& [name, kind] : { std::pair(PriceSettingsFile, FileKind::Prices),
             std::pair(BankSettingsFile, FileKind::Bank),
             std::pair(ClubNameFile, FileKind::ClubName) }) {
        if (target == NameWithin(name))
            return { kind, {} };
    }
    static const QRegularExpression digits(u"\\d+"_s);
    const QString year = digits.match(target).captured();
    if (year.isEmpty())
        return {};
    for (const auto& [name, kind] : { std::pair(MembersFileName(year), FileKind::Members),
             std::pair(BankLedgerFileName(year), FileKind::BankLedger),
             std::pair(CashBoxLedgerFileName(year), FileKind::CashBoxLedger) }) {
        if (target == NameWithin(name))
            return { kind, year };
    }
    return {};
}

QString FileCaption(const QString& target)
{
    const KindOfFile file = KindOf(target);
    switch (file.Kind) {
    case FileKind::Members:
        return u"Mitglieder "_s + file.Year;
    case FileKind::BankLedger:
        return u"Konto "_s + file.Year;
    case FileKind::CashBoxLedger:
        return u"Handkasse "_s + file.Year;
    case FileKind::Prices:
        return u"Preise und Termine"_s;
    case FileKind::Bank:
        return u"Bank und Namen"_s;
    case FileKind::ClubName:
        return u"Vereinsname"_s;
    case FileKind::Other:
        break;
    }
    return target;
}
