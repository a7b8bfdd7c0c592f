// What went out: a finished run of bills, printed or as PDF, with each member's total. Kept in the
// history beside the states of the files, so that a bill that has changed since can be told.
#pragma once

#include "data/data_files.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// One bill of a run.
struct SentBill {
    qsizetype Page = 0; ///< 1 is the first
    QString Name; ///< surname, comma, first name
    QString Total; ///< as it stands on the bill ("193,53")
};

enum class SentHow { Printed, Pdf };

/// Keeps a finished run. A run without bills is none. Whatever fails leads to no error: the bills
/// are printed.
void KeepSentBills(
    const DataFiles& files, const QString& year_text, SentHow how, const QList<SentBill>& bills);

/// The last bill of a member that went out.
struct LastSentBill {
    SentBill Bill;
    SentHow How = SentHow::Printed;
    QDateTime Time;
};

/// For each of these members (surname, comma, first name; namesakes are told apart by their order)
/// the last bill of that year that went out; nothing where none did, or no history can be read.
QList<std::optional<LastSentBill>> LastSentBills(
    const DataFiles& files, const QString& year_text, const QStringList& names);

/// "Abrechnungen 2026: Seiten 1 bis 11 gedruckt"
QString WordsOfSentOut(const QString& name, const QByteArray& content);

/// The bills of a kept run.
QList<SentBill> BillsOfSentOut(const QByteArray& content);
