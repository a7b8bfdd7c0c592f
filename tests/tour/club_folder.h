// The club's folder as the tour expects it: every file byte for byte. A chapter of the tour says
// what changes; whatever else differs is a fault.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

struct ClubFolder {
    QString Path;
    QMap<QString, QByteArray> Expected; ///< file name to content

    /// Takes what lies there now as expected.
    void Remember();

    /// One line of a file (without CR LF, as text) becomes another one. Ends the tour when the line
    /// is not there exactly once.
    void Replace(const QString& name, const QString& line, const QString& by);

    /// A line more at the end of a file; an unknown file begins with it.
    void Append(const QString& name, const QString& line);

    /// One line less.
    void Remove(const QString& name, const QString& line);

    /// A file with these lines, new or instead of the old one.
    void Set(const QString& name, const QStringList& lines);

    /// Files that are missing, too many or otherwise than expected, with the first differing line.
    QStringList Differences() const;
};
