// The contact persons at the foot of a bill: found in the member list by surname and first name,
// printed in columns of 20 characters.
#pragma once

#include "statement/bill_source.h"

#include <QString>

#include <array>

/// The five lines of a contact person, each exactly 20 characters wide; all empty when nobody was
/// found.
struct ContactPerson {
    bool found = false;
    QString name; ///< first name, blank, surname
    QString street;
    QString town; ///< the part before the first "/"
    QString second_town; ///< the part after it
    QString telephone;
};

/// Cut to 20 characters or padded with blanks on the right.
QString TwentyCharacters(const QString& text);

/// The first member whose surname and first name are exactly those of the setting ("Meier,Anna").
/// A setting that is empty or lacks the comma finds nobody. Throws RuntimeError SubscriptOutOfRange
/// at a record with fewer than five fields that the search comes by.
ContactPerson FindContact(const QString& setting, const BillSource& source);

/// Both contact persons of the bank settings, found in one pass through the list. Throws like
/// FindContact, at the first short record that one of the two searches comes by.
std::array<ContactPerson, 2> FindContacts(const BillSource& source);

/// The town without postcode that begins the closing line: characters 7 to 20 of the town line
/// without blanks at both ends; empty when nobody was found.
QString ClosingTown(const ContactPerson& person);
