// Everything that the bills of a year are made of: lists, prices, names and the day, all as the
// program holds them in memory.
#pragma once

#include "members/member_lists.h"
#include "settings/bank_settings.h"
#include "settings/price_settings.h"

#include <QDate>
#include <QString>

struct BillSource {
    QString ClubName;
    QString YearText; ///< the chosen year; printed on the page
    QString LoadedYear; ///< the year of the member lists; names their files in error messages
    MemberLists Members;
    PriceSettings Prices;
    BankSettings Bank;
    QDate Today; ///< date of the closing line
};
