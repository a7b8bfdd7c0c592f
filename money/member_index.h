// The members of a year, made ready for looking up by surname, first name and garden.
#pragma once

#include "money/name_finding.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

enum class SurnameForm {
    Whole,
    WithoutTwo, ///< "Hollerbusch" for Hollerbusch2
    FirstPart ///< "van" for van Dijk, as the cash book proposes it
};

/// One way to write the surname of all members who share it.
struct SurnameEntry {
    QString Exact; ///< letter for letter as stored; the first part in FirstPart
    FoldedName Name;
    SurnameForm Form = SurnameForm::Whole;
    int Surname = 0; ///< position in MemberIndex::Sharers
};

/// The members of a year, made ready for looking up. Positions are those of the records.
struct MemberIndex {
    QVector<SurnameEntry> Entries;
    QHash<QString, QVector<int>> EntriesByWord; ///< first run of letters and digits of the name
    QVector<QVector<int>> Sharers; ///< per surname the members who bear it, in list order
    QVector<FoldedName> FirstNames;
    QVector<QString> Initials; ///< "a." of Anna; empty without a first name
    QHash<QString, QVector<int>> MembersByGarden; ///< GardenKey
    QVector<QString> Gardens; ///< GardenKey of each member
};

/// Of the lines of a members file; missing fields are empty. A name without a letter or digit is
/// never found.
MemberIndex MakeMemberIndex(const QStringList& records);
