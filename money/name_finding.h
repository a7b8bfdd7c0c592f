// Finding a name in a folded text.
#pragma once

#include "money/folding.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// A name cut at its blanks and hyphens, folded.
struct FoldedName {
    QStringList Parts;
    qsizetype FirstRun = 0; ///< so many signs stand in front of the first letter or digit
};

/// The characters [begin, end) of a folded text.
struct NameFind {
    qsizetype begin = 0;
    qsizetype end = 0;
};

/// Cut at blanks and hyphens, folded; no parts for an empty name.
FoldedName FoldName(const QString& name);

/// The end of the name when it begins at this place of the text as a whole word, else -1. Between
/// its parts the text may have blanks, a hyphen, or both.
qsizetype EndOfNameAt(QStringView text, const FoldedName& name, qsizetype place);

/// Every place where the name stands.
QVector<NameFind> FindName(QStringView text, const FoldedName& name);

bool Overlap(const NameFind& a, const NameFind& b);

/// True when it lies within the other one, which is longer.
bool IsInsideLonger(const NameFind& find, const NameFind& longer);
