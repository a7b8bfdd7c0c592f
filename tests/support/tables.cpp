#include "tests/support/tables.h"

#include <QFile>
#include <QStringList>

QVector<TableRow> ReadTable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", qPrintable(path));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    const QStringList header = lines.value(0).split(QLatin1Char('\t'));
    QVector<TableRow> rows;
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines[i].isEmpty())
            continue;
        const QStringList cells = lines[i].split(QLatin1Char('\t'));
        TableRow row;
        for (qsizetype k = 0; k < header.size(); ++k)
            row[header[k]] = cells.value(k);
        rows += row;
    }
    return rows;
}

QString CellText(const QString& cell)
{
    QString text;
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != QLatin1Char('\\') || i + 1 >= cell.size()) {
            text += cell[i];
            continue;
        }
        const QChar kind = cell[++i];
        if (kind == QLatin1Char('x') || kind == QLatin1Char('u')) {
            const int digits = kind == QLatin1Char('x') ? 2 : 4;
            text += QChar(cell.mid(i + 1, digits).toUShort(nullptr, 16));
            i += digits;
        } else if (kind == QLatin1Char('t')) {
            text += QLatin1Char('\t');
        } else if (kind == QLatin1Char('r')) {
            text += QLatin1Char('\r');
        } else if (kind == QLatin1Char('n')) {
            text += QLatin1Char('\n');
        } else {
            text += kind;
        }
    }
    return text;
}

QByteArray ByteCell(const QString& cell) { return CellText(cell).toLatin1(); }

QStringList AcceptedCells(const TableRow& row, const QString& column)
{
    const QString recorded = row[column];
    const QString mark = row[QStringLiteral("mark")];
    QString believed = row[QStringLiteral("believed")];
    const bool has_believed = !believed.isEmpty();
    if (believed == QStringLiteral("(empty)"))
        believed.clear();
    if (mark == QStringLiteral("differs"))
        return { believed };
    if (mark == QStringLiteral("suspect") && has_believed)
        return { believed, recorded };
    return { recorded };
}
