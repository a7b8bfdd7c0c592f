// The words of the cash book: messages, titles and the texts that it writes into bookings.
#pragma once

#include "cashbook/ledger.h"

#include <QString>
#include <QStringList>

inline const QString CashBookHintTitle = QStringLiteral("Hinweis");
inline const QString NoHistoryWarning
    = QStringLiteral("Achtung ! Es ist am besten erst einen aktuelles Guthaben unter Ein & "
                     "Ausgaben einzutragen da sonst das Konto mit Minus anfängt.");
inline QString NewYearNotice(const QString& year_text)
{
    return QStringLiteral("Achtung ! Es beginnt ein Neues Jahr ") + year_text
        + QStringLiteral(" und Ihr Konto wird mit Übertrag neu Weitwrgeführt !"); // sic
}

/// The bookings of the other year would be gone with the next reading.
inline QString OldYearQuestion(Account account, const BillingYear& year)
{
    const QString text = account == Account::Bank
        ? QStringLiteral(
            "Die Buchungen des Bankkontos von %1 sind nicht gespeichert. Sollen sie in "
            "das Jahr %1 gespeichert werden ?")
        : QStringLiteral("Die Buchungen der Handkasse von %1 sind nicht gespeichert. Sollen sie in "
                         "das Jahr %1 gespeichert werden ?");
    return text.arg(year);
}

// Command15 names the account that a press would switch to.
inline const QString SwitchToCashBox = QStringLiteral("Kasse Kassenwart");
inline const QString SwitchToBank = QStringLiteral("Konto Sparkasse");

inline const QString BankTitleBegin = QStringLiteral("Konto ");
inline const QString CashBoxTitleBegin = QStringLiteral("Handkasse Kassenwart ");

inline const QString CarryOverText = QStringLiteral("Übertrag Saldo ");
inline const QString StatementText = QStringLiteral("Abrechnung ");
inline const QString StatementWord = QStringLiteral("Abrechnung");
inline const QString InstalmentsEnd = QStringLiteral(" Raten");
inline const QString SpecialBillingMark = QStringLiteral(" SonderAbrechnung");
inline const QString RowKeyBegin = QStringLiteral("Zeile ");

inline const QStringList RecurringPayees { // List9
    QStringLiteral("Eon Avacon"), QStringLiteral("Steuern (Stadt)"),
    QStringLiteral("Eon Avacon Wasser"), QStringLiteral("Gartenzeitung"),
    QStringLiteral("BV Mitglieds/Vers.Beiträge"), QStringLiteral("BV Pacht")
};

inline const QStringList LedgerColumns { QStringLiteral("Buchungsdatum"), QStringLiteral("Vorgang"),
    QStringLiteral("Einzahlung"), QStringLiteral("Abheben"), QStringLiteral("Kontostand") };
