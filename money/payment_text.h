// What the text of a booking says about a bill: whether it pays one, of which year and garden, and
// what is left of the text to find the member in.
#pragma once

#include "money/folding.h"

#include <QString>

enum class PaymentKind {
    None, ///< not a word of a bill
    Payment,
    SpecialBilling, ///< "Sonderabrechnung": its amount is known to no bill
    UnknownWord ///< "Abrechnungsgebühr": may be a payment, may be none
};

/// By the words alone; "Abrechnung" counts with no letter directly beside it.
PaymentKind PaymentKindOf(const QString& folded);

/// The years that a text names: 19xx or 20xx, but not those of dates.
struct NamedYears {
    int Year = 0; ///< 0: none
    bool Several = false; ///< several different ones, or a season ("2025/26")
};

/// A text that was looked through.
struct PaymentText {
    PaymentKind Kind = PaymentKind::None;
    NamedYears Years;
    FoldedText Rest; ///< the payment words and garden marks are blanks
    qsizetype BehindWord = -1; ///< place in Rest behind the first payment word, -1 without one
    QString Garden; ///< GardenKey of the first garden mark ("Parzelle Nr. 012a"), empty without one
};

/// Looks through a text that is no PaymentKind::None.
PaymentText ReadPaymentText(const QString& text);

/// The years named in a folded text.
NamedYears YearsIn(QStringView folded);

/// True when a year stands at that place of a folded text: four digits, no letter or digit beside
/// them, no date around them.
bool IsYearAt(QStringView folded, qsizetype place);
