#include "data/runtime_error.h"

#include <QStringList>

QString ErrorHeadline(const RuntimeError& error)
{
    switch (error.kind) {
    case ErrorKind::Overflow:
        return QStringLiteral("Laufzeitfehler 6: Überlauf");
    case ErrorKind::SubscriptOutOfRange:
        return QStringLiteral("Laufzeitfehler 9: Index außerhalb des gültigen Bereichs");
    case ErrorKind::TypeMismatch:
        return QStringLiteral("Laufzeitfehler 13: Typen unverträglich");
    case ErrorKind::InvalidIndex:
        return QStringLiteral("Laufzeitfehler 381: Ungültiger Index");
    case ErrorKind::File:
        break;
    }
    return error.reason;
}

void AppendToRemedy(RuntimeError& error, const QString& sentence)
{
    QString& remedy = error.where.remedy;
    remedy = (remedy + QLatin1Char(' ') + sentence).trimmed();
}

void PrependToRemedy(RuntimeError& error, const QString& sentence)
{
    QString& remedy = error.where.remedy;
    remedy = (sentence + QLatin1Char(' ') + remedy).trimmed();
}

QString ErrorSentence(const RuntimeError& error)
{
    const Place& where = error.where;
    QStringList places;
    if (!where.file.isEmpty())
        places += QStringLiteral("Datei „%1“").arg(where.file);
    if (where.line > 0)
        places += QStringLiteral("Zeile %1").arg(where.line);
    if (!where.member.isEmpty())
        places += QStringLiteral("Mitglied „%1“").arg(where.member);
    if (!where.field.isEmpty())
        places += QStringLiteral("Feld „%1“").arg(where.field);
    QString sentence = places.join(QStringLiteral(", "));
    if (!where.content.isNull())
        sentence += QStringLiteral(" (dort steht „%1“)").arg(where.content);
    if (!sentence.isEmpty())
        sentence += where.remedy.isEmpty() ? QStringLiteral(".") : QStringLiteral(": ");
    return sentence + where.remedy;
}
