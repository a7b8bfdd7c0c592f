// Where words stand in the member list.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Positions of the records whose name, street or garden holds the words, without regard to letter
/// case; the name as the list shows it. Nothing for no words.
std::vector<int> FindMembers(const QStringList& records, const QString& words);
