// What went out: a finished run of bills, printed or as PDF, with each member's total. Kept in the
// history beside the states of the files, so that a bill that has changed since can be told.
#pragma once

#include "data/data_files.h"

#include <QDateTime>
#include <QList>
#include <QString>

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

/// Of each member that a bill of that year went out to, the last one; ordered by page. Empty when
/// there is none, or no history can be read.
QList<LastSentBill> LastSentBills(const DataFiles& files, const QString& year_text);

/// "Abrechnungen 2026: Seiten 1 bis 11 gedruckt"
QString WordsOfSentOut(const QString& name, const QByteArray& content);

/// The bills of a kept run.
QList<SentBill> BillsOfSentOut(const QByteArray& content);
