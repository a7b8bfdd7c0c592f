// Reads what the money reports are made of: the loaded year as it is in memory, the other years
// from their files. Nothing is written; a file that cannot be read is named, and the others go on.
#pragma once

#include "cashbook/ledger.h"
#include "data/line_file.h"
#include "members/member_lists.h"
#include "money/money_source.h"
#include "settings/price_settings.h"
#include "statement/annual_statement.h"
#include "statement/statement_state.h"

#include <QString>
#include <QVector>

#include <optional>

/// The loaded year in memory.
struct LoadedClub {
    const DataFiles& Files;
    int Year;
    const MemberLists& Members;
    const PriceSettings& Prices;
    const StatementState& Statement;
    const CashBookState& Book;
};

MoneySource ReadMoneySource(const LoadedClub& club);

/// The loaded year's bookings of that account in the order of the ledger view, in which the cash
/// box is put only when it is shown.
QStringList LedgerLines(const LoadedClub& club, Account account);

/// The balance as "Kontoführung" shows it, summed in single precision: "710,33 €".
QString ShownBalance(const LoadedClub& club, Account account);

/// The years of the files with that beginning, four digits and ".pz" in the data directory, in
/// rising order; none when it cannot be searched.
QVector<int> YearsOfFiles(const DataFiles& files, const QString& beginning);

/// The bill as its row 18 shows it; nothing when it is not finished.
std::optional<Cents> BillOf(const AnnualStatement& statement);
