// The members whose surname stands in the text of a payment.
#pragma once

#include "money/member_index.h"
#include "money/payment_text.h"

/// How well a surname was written; the best rank decides between several members.
enum Rank { WithoutItsTwo = 1, EqualWhenFolded = 2, LetterForLetter = 3 };

struct Candidate {
    int member = 0;
    int rank = 0; ///< the best of its places
    QVector<NameFind> places; ///< of the surname
};

/// In list order. A surname inside a longer one that was found does not count (Kunz inside
/// Meier-Kunz).
QVector<Candidate> CandidatesOf(const MemberIndex& index, const PaymentText& payment);
