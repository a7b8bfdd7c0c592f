// What goes into the entry fields: a booking of the ledger, a recurring payee, a member's payment.
#pragma once

#include <QString>
#include <QStringList>

/// The texts of Text10(0) to Text10(3).
struct LedgerEntry {
    QString date;
    QString text;
    QString deposit;
    QString withdrawal;
};

/// The stored texts of a ledger line, unformatted; missing fields are empty.
LedgerEntry EntryOfLine(const QString& line);

/// The fields joined with ";" as typed, neither checked nor reformatted.
QString LineOfEntry(const LedgerEntry& booking);

/// True when date and text are there; else "OK" and "Löschen" do nothing.
bool IsComplete(const LedgerEntry& booking);

/// The text for a position of List9: the first three payees as they are, those that are paid once a
/// year with the year.
QString TextForPayee(int position, const QString& year_text);

struct PaymentProposal {
    QString text; ///< "Abrechnung " and the surname up to its first blank
    QString deposit; ///< the member's total, "0,00" when there is none
    QString note; ///< "3 Raten"
};

/// The payment of a member: name as in the name list, total as the statement totals list holds it
/// (default text of a single, or empty), instalments as in the record. Throws RuntimeError
/// TypeMismatch for a total that is no such text.
PaymentProposal ProposePayment(
    const QString& name, const QString& total, const QString& instalments);
