// What became of the lines of a file between two of its states. Which words tell it: difference.h.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

struct ChangedLine {
    QString Before;
    QString After;
};

struct LineDifference {
    QStringList Removed;
    QStringList Added;
    QList<ChangedLine> Changed;
};

/// Lines that are alike stay paired wherever they stand; of the others those of the same name are
/// the same line changed; the rest are changed when as many are left on both sides, else gone and
/// new. All lists are in the order of the file.
LineDifference DifferenceOfLines(const QStringList& before, const QStringList& after,
    const std::function<QString(const QString& line)>& name);
