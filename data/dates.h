// Dates as the German desktop writes and reads them: day.month.year with points.
#pragma once

#include <QDate>
#include <QString>
#include <QStringView>

#include <optional>

/// A year as text, four digits: the year of a set of files, of a bill, of prices.
using BillingYear = QString;

/// The short date form, always dd.mm.yyyy ("03.02.2016").
QString ShortDate(const QDate& date);

/// Reads day.month.year in digits with points ("3.2.16" included, years 00 to 49 are 2000 to 2049,
/// 50 to 99 are 1950 to 1999); nothing else is a date.
std::optional<QDate> ParseDate(QStringView text);

/// The text in the form dd.mm.yyyy when it is a date, else unchanged.
QString FormatDateText(const QString& text);

/// True when the text stands in the form dd.mm.yyyy: ten characters, two-digit day and month, and
/// it is a date.
bool IsWellFormedDate(QStringView text);

/// The text of the year before ("2017" gives "2016"); throws RuntimeError TypeMismatch when the
/// text is no number.
BillingYear PreviousYear(const BillingYear& year_text);

/// The text of the year after.
BillingYear NextYear(const BillingYear& year_text);
