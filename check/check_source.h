// Everything that the check report looks at, as the program holds it in memory, and the files that
// it may read. Nothing in here is changed.
#pragma once

#include "cashbook/ledger.h"
#include "data/data_files.h"
#include "report/report.h"
#include "statement/statement_state.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <vector>

/// Something typed that is neither in memory nor in a file.
struct UnsavedPart {
    QString what; ///< "Preise und Termine"
    LinkTarget target; ///< the changed field
};

struct CheckAccount {
    QStringList Lines; ///< the bookings in memory, unsaved ones included
    float ShownBalance = 0.0F; ///< as the tab shows it, single precision
    bool Unread = false; ///< the last load failed: the list is not its file
};

struct CheckSource {
    DataFiles Files;
    QString YearText; ///< the year in the year box
    QString LoadedYear; ///< the year of the lists; empty while nothing is loaded
    QDate Today;
    QString ClubName;
    QString ClubNameHint; ///< the hint text of the entry box of the club name
    bool ClubNameBoxShown = false;
    MemberLists Members;
    PriceSettings Prices;
    BankSettings Bank;
    std::array<CheckAccount, 2> Accounts; ///< by Account
    StatementState Statement; ///< the bills as they were drawn last
    std::vector<UnsavedPart> Unsaved;
    std::function<int(const PageText&)> WidthOf; ///< page pixels in the page font
};
