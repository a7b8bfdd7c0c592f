// Bank, treasurer and contact persons in memory, read from and written to "\Config1.ini", section
// "Daten".
#pragma once

#include <QString>

/// Texts as typed. Text6(0) to Text6(5), in this order, are the first six.
struct BankSettings {
    QString BankName; ///< Text6(0) "Bankname"
    QString Iban; ///< Text6(1), stored under the old key "BLZ"
    QString Bic; ///< Text6(2), stored under the old key "Kontonummer"
    QString FirstContact; ///< Text6(3) "Name1": surname, comma, first name
    QString SecondContact; ///< Text6(4) "Name2"
    QString TreasurerName; ///< Text6(5) "Name"
    QString TreasurerSalutation; ///< C1 "Anrede"
};
