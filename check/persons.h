// Who is who in the lists of two years: the same person, the line of the same garden, changes of
// the tenant, lists that are shifted against each other.
#pragma once

#include "data/records.h"

#include <QString>

#include <optional>
#include <vector>

struct CheckMember;

/// From that place on the persons of last year stand so many places further on.
struct Shift {
    qsizetype place = 0; ///< the first place with another person, 0 the first member
    int distance = 0; ///< below 0: lines are missing in last year's list; above: in this year's
};

struct Persons {
    std::vector<int> Ids; ///< of this year's members; equal ids are the same person; -1: nobody
    std::vector<int> LastYearIds;
    std::vector<qsizetype> GardenLines; ///< last year's line of each member's garden, -1: none
    std::vector<bool> TenantChanges; ///< by place of this year
    std::optional<Shift> Shifted;
    std::vector<bool> Explained; ///< by place: the shift says why its person is another one
    std::vector<bool> NameTwice; ///< by place: that name stands in this year's list more than once
    std::vector<bool> GardenTwice; ///< the same of the plot number
};

/// Persons are told by surname and first name without blanks around; by the garden too where a name
/// stands more than once in one of the lists.
Persons ComparePersons(
    const std::vector<CheckMember>& members, const std::vector<CheckMember>& last_year);

/// True when the place has a line in both years and the persons are the same.
bool SamePersonAt(const Persons& persons, qsizetype place);

/// True when the place has a line in both years and the persons differ.
bool OtherPersonAt(const Persons& persons, qsizetype place);
