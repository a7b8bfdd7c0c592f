// Which year's bill a payment belongs to.
#pragma once

#include "money/payment_text.h"

#include <QDate>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

/// What is known about the years.
struct KnownYears {
    QSet<int> WithMembers; ///< years that have a members file
    QHash<int, QDate> BillStarts; ///< from that day on the year's bill is out; missing: not out yet
};

/// The earlier one of the billing date and the 60th day before the payment deadline; nothing when
/// neither is a date. Sixty days, because the deadline is on every bill and so is kept, while some
/// set the billing date to the last of December.
std::optional<QDate> BillStart(const QString& billing_date, const QString& payment_deadline);

enum class YearDoubt { None, SeveralYears, NoMembersFile };

struct BillYear {
    int Year = 0;
    YearDoubt Doubt = YearDoubt::None;
};

/// The year in the text; without one the year of the ledger, or the year before for what came in
/// before this year's bill was out. No date of the booking: the ledger's year.
BillYear BillYearOf(const NamedYears& named, int ledger_year, const std::optional<QDate>& date,
    const KnownYears& known);
