// Which member a payment belongs to, by surname, first name and garden in its text. Never a guess:
// what fits several members names them all.
#pragma once

#include "money/member_index.h"
#include "money/payment_text.h"

/// The members who fit, as positions in list order: one is the payer; several or none leave it
/// open.
QVector<int> MatchMembers(const MemberIndex& index, const PaymentText& payment);
