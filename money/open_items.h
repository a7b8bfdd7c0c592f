// Who has paid what of the year's bill, and which payments belong to nobody for certain.
#pragma once

#include "money/money_source.h"

#include <QDate>
#include <QStringList>

#include <optional>
#include <vector>

/// One member. Paid counts every assigned booking of every ledger.
struct OpenItem {
    std::optional<Cents> bill; ///< nothing: not drawn
    Cents paid = 0;
    std::optional<QDate> last_payment;
    int instalments = 0; ///< agreed, 2 to 12; 0 without an agreement or a bill to pay
};

/// Bill less paid; 0 without a bill.
Cents RestOf(const OpenItem& item);

/// "offen", "bezahlt" and the like.
QString StateOf(const OpenItem& item);

/// The amount of an instalment, number 1 is the first: it takes the odd cents.
Cents InstalmentAmount(const OpenItem& item, int number);

/// So many instalments are covered by what was paid.
int InstalmentsPaid(const OpenItem& item);

/// "33,34 € + 2 × 33,33 €, 2 von 3 bezahlt"; empty without instalments.
QString InstalmentsText(const OpenItem& item);

/// For the tool tip of a name: "bezahlt 45,25 € von 135,74 €, Rest 90,49 €, 3 Raten".
QString PaidText(const OpenItem& item);

/// A payment that is counted for nobody.
struct UnassignedPayment {
    Booking booking;
    QString reason;
    QStringList names; ///< of the members who fit, as in the name list
};

struct OpenItems {
    std::vector<OpenItem> Members; ///< in list order
    std::vector<UnassignedPayment> Unassigned;
    int OtherYears = 0; ///< payments in this year's ledgers that belong to bills of other years
    Cents OtherYearsSum = 0;
    std::vector<NoAmount> NoAmounts; ///< in all ledgers that were read
};

/// Members files of other years are read when a payment asks for them (source.Years).
OpenItems FindOpenItems(MoneySource& source);

/// The sum of the positive rests, how many there are, and the sum of the negative ones without
/// their sign.
struct OpenTotals {
    Cents Claims = 0;
    int Debtors = 0;
    Cents Credits = 0;
};
OpenTotals TotalsOf(const OpenItems& items);
