// What a bill is computed from, read as numbers: the fields of a member's record and the prices. An
// error says where the text stands that is none.
#pragma once

#include "data/german_numbers.h"
#include "statement/bill_source.h"

#include <QString>
#include <QStringList>

struct AnnualStatement;
struct PriceNumbers;

/// One member's bill while it is computed.
struct Bill {
    const BillSource& source;
    const PriceNumbers& prices;
    qsizetype member; ///< position from 0
    QStringList fields; ///< this year's record
    QStringList previous_fields; ///< last year's record at the same position
    AnnualStatement& statement;
};

/// A price as typed and as number, with its key in the settings file.
struct BillPrice {
    QString key;
    const QString& text;
    const ParsedDouble& number;
};

/// A money or size text, the empty one counting as 0.
ParsedDouble ParseAmount(const QString& text);

/// The value. Throws RuntimeError Overflow when it is no number or above single precision.
double Finite(double value, const Bill& bill);

/// Field 0 to 15 of this or last year's record. Throws RuntimeError SubscriptOutOfRange when the
/// record is too short.
const QString& Field(const Bill& bill, int field);
const QString& PreviousField(const Bill& bill, int field);

// Each throws RuntimeError TypeMismatch or Overflow with the place of a text that is no number; the
// field must be there.

double NumberIn(const BillPrice& price, const Bill& bill); ///< a price of this year
double PreviousNumberIn(const BillPrice& price, const Bill& bill);
double AmountIn(const Bill& bill, int field); ///< money or size, the empty text counting as 0
float ReadingIn(const Bill& bill, int field);
float PreviousReadingIn(const Bill& bill, int field);
