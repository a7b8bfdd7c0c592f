// The order of bookings: by day, on the same day by text and amounts as texts.
#pragma once

#include <QString>
#include <QStringList>

/// The line with its date rewritten as yyyymmdd and its first four fields, missing ones empty; the
/// form in which lines are compared. The date is taken by character positions, whatever stands
/// there.
QString DateKeyLine(const QString& line);

/// The line of such a key, its date put together again from character positions.
QString LineOfDateKey(const QString& key_line);

/// The lines in booking order; equal lines keep their order. Fields beyond the fourth are dropped,
/// and a date that is not in the form dd.mm.yyyy comes back as those positions yield it (1.3.2016
/// as 1...2.2016). No line is ever dropped.
QStringList SortLedgerByDate(const QStringList& lines);

/// True for sorted lines that the next sort would leave as they are: four fields each, and the
/// points of the date where they belong. Lines with other dates change with every sort. The order
/// itself is not looked at.
bool KeepsBookingOrder(const QStringList& sorted_lines);

/// Puts the line where SortLedgerByDate would: into sorted lines that keep their order, in place of
/// the one at that position (-1: of none, it is a new one). Line and lines are as KeepsBookingOrder
/// wants them.
void PutInBookingOrder(QStringList& sorted_lines, const QString& line, qsizetype replaced);
