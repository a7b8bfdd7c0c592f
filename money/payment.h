// A booking looked at as a payment of a bill: of which year's, and by which member.
#pragma once

#include "money/bill_year.h"
#include "money/cents.h"
#include "money/member_index.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <map>
#include <optional>

/// The club's years: which are known, and their members as soon as a payment asks for them.
struct ClubYears {
    KnownYears Known;
    std::function<QStringList(int year)> ReadRecords; ///< lines of that members file; may throw
                                                      ///< RuntimeError
    std::map<int, MemberIndex> Indexes; ///< of the years read so far
    QVector<int> Unreadable; ///< their members file could not be read: nobody is found in them
};

/// The members of that year; none for a year whose file is not there or cannot be read.
const MemberIndex& IndexOf(ClubYears& years, int year);

enum class PaymentFinding {
    None, ///< no payment of a bill, or an amount of 0
    SpecialBilling, ///< this and the next three are listed, and counted for nobody
    UnknownWord,
    SeveralYears,
    NoMembersFile,
    OfYear ///< of the bill of Year, by Members
};

struct Payment {
    PaymentFinding Finding = PaymentFinding::None;
    int Year = 0; ///< 0 when it is in doubt
    QVector<int> Members; ///< with OfYear: positions in that year's list; one is the payer
    PaymentText Text; ///< of a payment, looked through
};

/// What a booking counts as and the year that it pays, members not looked for yet. The amount is
/// deposit less withdrawal; the ledger's year decides where the text names none.
Payment AssessYear(const KnownYears& known, const QString& text, Cents amount, int ledger_year,
    const std::optional<QDate>& date);

/// Finds the members of a payment that is OfYear.
void FindPayers(ClubYears& years, Payment& payment);

/// Both.
Payment AssessPayment(ClubYears& years, const QString& text, Cents amount, int ledger_year,
    const std::optional<QDate>& date);

/// The reason for which a payment is listed as not assigned: "mehrere Mitglieder"; empty when it is
/// assigned or no payment.
QString ReasonOf(const Payment& payment);
