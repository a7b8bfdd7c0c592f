// A line of a members file as the rules of the check report see it.
#pragma once

#include "data/records.h"

#include <QString>

/// A member of this or a line of last year.
struct CheckMember {
    MemberRecord Fields;
    bool Whole = true; ///< exactly 16 fields
};

/// The field's text, empty when the record is too short.
inline QString FieldOf(const CheckMember& member, int field)
{
    return FieldOrEmpty(member.Fields, field);
}
