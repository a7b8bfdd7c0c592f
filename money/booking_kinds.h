// What a booking is for the cash report: the opening balance, a member's payment, or of the kind
// that its text names.
#pragma once

#include "money/bookings.h"
#include "money/payment.h"

#include <QString>

/// True for a folded text that opens the account: "Übertrag Saldo 2025", "Anfangsbestand",
/// "Guthaben 2026". "Übertrag Handkasse" and "Guthaben Meier" open nothing.
bool IsOpeningText(const QString& folded);

/// The text with single blanks and without a year at its very end ("Gartenzeitung 2026"); "ohne
/// Text" when nothing is left.
QString KindText(const QString& text);

/// True for a payment of a bill that fits at least one member: of the bill's year, or of the
/// report's where the bill's is in doubt.
bool IsMembersPayment(ClubYears& years, const Booking& booking, int report_year);
