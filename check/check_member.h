// A line of a members file as the rules of the check report see it: taken apart once, its numbers
// read once.
#pragma once

#include "data/german_numbers.h"
#include "data/records.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

/// A member of this or a line of last year.
struct CheckMember {
    /// The first 17 fields, empty where the record is too short: parts of the line, which must
    /// outlive them.
    std::array<QStringView, MemberFieldCount + 1> Fields;
    qsizetype FieldCount = 0; ///< of the line
    bool Whole = true; ///< exactly 16 fields
    std::array<ParsedDouble, MemberFieldCount - PlotSize> Numbers; ///< see NumberIn
    bool PlainNumbers = true; ///< all of them are empty, or digits with two decimals at most
};

/// The lines taken apart; the numbers are those from that field on, plot size at the earliest.
std::vector<CheckMember> TakeMembersApart(const QStringList& lines, MemberField first_number);

/// The field's text, empty when the record is too short. No copy: the line must outlive it and all
/// texts that are copied from it alone.
inline QString FieldOf(const CheckMember& member, int field)
{
    const QStringView text = member.Fields[static_cast<std::size_t>(field)];
    return QString(QString::DataPointer::fromRawData(text.utf16(), text.size()));
}

/// A field from plot size on as number; of last year's lines the readings alone.
inline const ParsedDouble& NumberIn(const CheckMember& member, int field)
{
    return member.Numbers[static_cast<std::size_t>(field - PlotSize)];
}

/// True for an empty field and for a number that is 0.
bool IsEmptyOrZero(const CheckMember& member, int field);

/// True for a field that is filled and no number.
bool IsNoNumber(const CheckMember& member, int field);

/// True when both fields are filled and different.
bool AreFilledAndDifferent(const CheckMember& member, int start, int end);
