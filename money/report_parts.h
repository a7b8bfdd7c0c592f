// What the money reports have in common.
#pragma once

#include "money/bookings.h"
#include "money/money_source.h"
#include "report/report.h"

#include <QString>
#include <QStringList>

#include <vector>

/// "1 Buchung" or "3 Buchungen".
QString Counted(qsizetype count, const QString& one, const QString& many);

/// A right-aligned amount, sorted by its size.
ReportCell EuroCell(Cents cents);

/// A column of amounts or other numbers.
ReportColumn NumberColumn(const QString& caption, bool sortable = false);
ReportColumn TextColumn(const QString& caption, bool sortable = false);

/// Where a booking of the report's year stands in the cash book; no target for other years.
LinkTarget LinkToBooking(const Booking& booking, int report_year);

/// The date of a booking as a cell that is sorted by day and leads to the booking.
ReportCell DateCell(const Booking& booking, int report_year);

/// Heading and table of the amounts that are no numbers; nothing when there are none.
void AddNoAmounts(Report& report, const std::vector<NoAmount>& list, int report_year);

/// "Enthält 2 noch nicht gespeicherte Buchungen."; empty when all are saved.
QString UnsavedSentence(const UnsavedBookings& unsaved);

/// One sentence for each file that cannot be read, of the members files asked for meanwhile too.
QStringList UnreadableSentences(const MoneySource& source);
