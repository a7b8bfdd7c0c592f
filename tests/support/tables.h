// Tab-separated tables of the fixtures: reading, unescaping cells of text and of bytes.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

/// One row: column name to cell, cells as they stand in the file (still escaped).
using TableRow = QHash<QString, QString>;

/// Reads a UTF-8 table with one header line; ends the program when the file is missing.
QVector<TableRow> ReadTable(const QString& path);

/// A text cell: "\\" "\t" "\r" "\n" "\xHH" and "\uXXXX" become their characters.
QString CellText(const QString& cell);

/// A byte cell: "\xHH" and the short escapes become bytes, everything else is Latin-1.
QByteArray ByteCell(const QString& cell);

/// The answers that a row of recorded answers takes as right in that column, the best one first,
/// still escaped: tests/fixtures/facts/README.md, "How a row is judged".
QStringList AcceptedCells(const TableRow& row, const QString& column);
