// Writing the members file of the chosen year: when it must not be written, and what an error says.
#pragma once

#include "data/runtime_error.h"
#include "members/member_lists.h"

#include <QSet>

#include <optional>

/// What went wrong with members files in this run.
struct MemberTroubles {
    QSet<BillingYear> NotLoaded; ///< years whose file could not be loaded when it was last tried
    std::optional<RuntimeError> RollForward; ///< why last year's members were not taken over
    BillingYear RollForwardYear; ///< the year that they were to be taken over into
};

/// Throws RuntimeError (File) when the year's file must not be written:
/// - it is there and could not be loaded (no year at all is loaded: loaded_year is empty; the last
///   try failed; it is not the loaded year and cannot be read now), so that it would be replaced by
///   something else;
/// - it is not there, last year's is, and its members could not be taken over in this run: once
///   there is a file of this year they never would be.
void RequireMayWrite(const DataFiles& files, const BillingYear& year_text,
    const BillingYear& loaded_year, const MemberTroubles& troubles);

/// Writes the lists as file of year_text, once RequireMayWrite allows it. Throws RuntimeError
/// (File) when the file could not be written; what_is_left ends every remedy and says what became
/// of the input. Returns the error after which the file holds the lists all the same (only the note
/// of the rewrite could not be removed): it is to be shown and ends nothing, for the same member
/// would be added a second time.
std::optional<RuntimeError> SaveMembers(const MemberLists& lists, const DataFiles& files,
    const BillingYear& year_text, const BillingYear& loaded_year, const MemberTroubles& troubles,
    const QString& what_is_left);
