// Writing the members file of the chosen year: when it must not be written, and what an error says.
#pragma once

#include "data/runtime_error.h"
#include "members/member_lists.h"

#include <optional>

/// Throws RuntimeError (File) while the year's file is there and no year is loaded: a file that
/// could not be read would be replaced by what was typed since. loaded_year is empty before the
/// first load.
void RequireLoadedYear(
    const DataFiles& files, const BillingYear& year_text, const BillingYear& loaded_year);

/// Writes the lists as file of year_text. Throws RuntimeError (File) after RequireLoadedYear or
/// when the file could not be written; what_is_left ends its remedy and says what became of the
/// input. Returns the error after which the file holds the lists all the same (only the note of the
/// rewrite could not be removed): it is to be shown and ends nothing, for the same member would be
/// added a second time.
std::optional<RuntimeError> SaveMembers(const MemberLists& lists, const DataFiles& files,
    const BillingYear& year_text, const BillingYear& loaded_year, const QString& what_is_left);
