#include "data/records.h"

#include <array>

QString MemberFieldCaption(int field)
{
    static const std::array<QString, MemberFieldCount> captions { QStringLiteral("Name"),
        QStringLiteral("Vorname"), QStringLiteral("Str./HausNr"), QStringLiteral("Plz/Ort"),
        QStringLiteral("Telefon"), QStringLiteral("Gartennr."), QStringLiteral("Größe"),
        QStringLiteral("Ratenzahlung"), QStringLiteral("Haftpflicht"),
        QStringLiteral("Rechtschutz"), QStringLiteral("Unfall"), QStringLiteral("Gebäude"),
        QStringLiteral("Anfangsstand Strom"), QStringLiteral("Endstand Strom"),
        QStringLiteral("Anfangsstand Wasser"), QStringLiteral("Endstand Wasser") };
    return field >= 0 && field < MemberFieldCount ? captions[static_cast<std::size_t>(field)]
                                                  : QString();
}

QStringList SplitRecord(const QString& line) { return line.split(QLatin1Char(';')); }

QString JoinRecord(const QStringList& fields) { return fields.join(QLatin1Char(';')); }

const QString& FieldAt(const QStringList& fields, int field, const Place& where)
{
    if (field < 0 || field >= fields.size())
        throw RuntimeError { ErrorKind::SubscriptOutOfRange, where, {} };
    return fields[field];
}

QString FieldOrEmpty(const QStringList& fields, int field) { return fields.value(field); }

QString NameEntry(const MemberRecord& fields)
{
    return FieldOrEmpty(fields, Surname) + QLatin1Char(',') + FieldOrEmpty(fields, FirstName);
}

QString NameEntryOfLine(const QString& line)
{
    const QStringView surname = FieldOfLine(line, Surname);
    const QStringView first_name = FieldOfLine(line, FirstName);
    QString name;
    name.reserve(surname.size() + 1 + first_name.size());
    name += surname;
    name += u',';
    name += first_name;
    return name;
}

QStringView FieldOfLine(QStringView line, int field)
{
    for (; field > 0; --field) {
        const qsizetype mark = line.indexOf(u';');
        if (mark < 0)
            return {};
        line = line.sliced(mark + 1);
    }
    const qsizetype end = line.indexOf(u';');
    return end < 0 ? line : line.first(end);
}

QString FirstFourFields(const QStringList& fields)
{
    QStringList four = fields.mid(0, LedgerFieldCount);
    while (four.size() < LedgerFieldCount)
        four += QString();
    return JoinRecord(four);
}
