// Names of the PDFs that leave the house: one for each member, or one for all.
#pragma once

#include <QString>
#include <QStringList>

/// What a member's file is called after.
struct BillNameParts {
    QString Surname; ///< as printed on the bill
    QString FirstName;
    QString Garden; ///< as stored
    bool Drawn = true; ///< a bill that was not drawn gets no file
};

/// "Abrechnung 2026 Garten 0007 Krüger Uwe.pdf" for each member in turn, empty for a bill that was
/// not drawn. Gardens of digits alone have as many as the year's longest. No name comes twice,
/// whatever its letters' case; none has a character that a file system refuses, more than 120
/// characters or 240 bytes.
QStringList BillFileNames(const QString& year_text, const QList<BillNameParts>& members);

/// "Abrechnungen 2026.pdf"
QString AllBillsFileName(const QString& year_text);
