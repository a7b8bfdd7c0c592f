// Which of the club's files a name stands for, and what the history calls it.
#pragma once

#include <QString>

enum class FileKind { Members, BankLedger, CashBoxLedger, Prices, Bank, ClubName, Other };

struct KindOfFile {
    FileKind Kind = FileKind::Other;
    QString Year; ///< of a file that belongs to a year
};

/// By a name without its separator ("Mitgliedsdaten2026.pz").
KindOfFile KindOf(const QString& target);

/// "Mitglieder 2026", "Konto 2026", "Handkasse 2026", "Preise und Termine", "Bank und Namen",
/// "Vereinsname"; any other name as it is.
QString FileCaption(const QString& target);
