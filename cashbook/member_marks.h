// Which members have a special billing file, and which have paid.
#pragma once

#include "data/line_file.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// The rows of the member overview, one for each name entry: the entry, followed by
/// " SonderAbrechnung" when the special billing file of that surname and year exists, in any case
/// of letters. Throws RuntimeError (File) when the folder cannot be searched.
QStringList OverviewRows(
    const DataFiles& files, const QStringList& names, const QString& year_text);

/// For each name entry whether a booking's text contains both the surname and "Abrechnung", as
/// plain substrings. An empty answer (and not one false for each) for an empty ledger: the marks
/// then stay as they are.
QVector<bool> PaidMarks(const QStringList& names, const QStringList& ledger);
