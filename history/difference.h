// What happened to a file, in words made from the difference of two of its states.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

struct DifferenceWords {
    QString Short; ///< "Meier,Anna: Endstand Strom 2171 → 2181", "7 Mitglieder geändert"
    QStringList Single; ///< the sentences that Short sums up; empty when it is one itself
};

/// Nothing as `before`: there was no such file.
DifferenceWords WordsOfDifference(
    const QString& target, const std::optional<QByteArray>& before, const QByteArray& after);
