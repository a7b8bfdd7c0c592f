// The order of texts in the platform's sorted lists: German word order without regard to letter
// case. Recorded answers: tests/fixtures/facts/collate.tsv and sorted_list.tsv.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// -1, 0 or 1: a before, equal to or after b. Hyphen and apostrophe count only when all else is
/// equal; ß is ss.
int CompareTexts(const QString& a, const QString& b);

/// A key whose byte order is the order of CompareTexts; for sorting long lists.
QByteArray CollationKey(const QString& text);

/// The entries in the order of the sorted list; equal entries keep their order. Quick at 100,000
/// entries.
QStringList SortedTexts(const QStringList& texts);
