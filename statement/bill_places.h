// Where a bill failed and what the treasurer can do about it: the places that go into error
// messages while bills are drawn.
#pragma once

#include "data/runtime_error.h"
#include "statement/bill_source.h"

/// File, line and name of a member (position from 0) in this year's list; no field, no remedy.
Place MemberPlace(const BillSource& source, qsizetype member);

/// A record with fewer than 16 fields; the field is its first missing one.
Place ShortRecordPlace(const BillSource& source, qsizetype member);

/// A record of last year without the field that is asked for.
Place ShortPreviousRecordPlace(const BillSource& source, qsizetype member, int field);

/// A record too short for the search of the contact persons.
Place ShortContactPlace(const BillSource& source, qsizetype member, int field);

/// A member who has no line in last year's file.
Place NoPreviousLinePlace(const BillSource& source, qsizetype member);

/// A field with a text that is no number, or one too large.
Place MemberFieldPlace(
    const BillSource& source, qsizetype member, int field, const QString& content);
Place PreviousFieldPlace(
    const BillSource& source, qsizetype member, int field, const QString& content);

/// A price of this or of last year with such a text; key as in the settings file.
Place PricePlace(const BillSource& source, const QString& key, const QString& content);
Place PreviousPricePlace(const BillSource& source, const QString& key, const QString& content);

/// A bill whose amounts grow beyond what can be summed.
Place AmountsPlace(const BillSource& source, qsizetype member);
