#include "data/runtime_error.h"

#include <QStringList>

#include <cerrno>
#include <cstring>

namespace {

struct Reason {
    int number;
    const char* german;
};

// The wording of the desktop's own German messages; the system's strerror would be English without
// a German locale.
constexpr Reason reasons[] = {
    { ENOENT, "Datei oder Verzeichnis nicht gefunden" },
    { EACCES, "Keine Berechtigung" },
    { EPERM, "Vorgang nicht zulässig" },
    { EISDIR, "Ist ein Verzeichnis" },
    { ENOTDIR, "Ist kein Verzeichnis" },
    { ENOSPC, "Auf dem Gerät ist kein Speicherplatz mehr verfügbar" },
    { EDQUOT, "Der zugewiesene Speicherplatz ist überschritten" },
    { EROFS, "Das Dateisystem ist nur lesbar" },
    { EIO, "Eingabe-/Ausgabefehler" },
    { EBUSY, "Das Gerät oder die Ressource ist belegt" },
    { ETXTBSY, "Die Datei wird gerade benutzt" },
    { ENODEV, "Kein passendes Gerät gefunden" },
    { ENXIO, "Kein passendes Gerät gefunden" },
    { ENAMETOOLONG, "Der Dateiname ist zu lang" },
    { EMFILE, "Zu viele offene Dateien" },
    { ENFILE, "Zu viele offene Dateien im System" },
    { EFBIG, "Die Datei ist zu groß" },
    { ELOOP, "Zu viele Ebenen aus symbolischen Verknüpfungen" },
    { ENOMEM, "Nicht genügend Hauptspeicher verfügbar" },
    { EINVAL, "Ungültiger Aufruf" },
    { EEXIST, "Die Datei existiert bereits" },
};

} // namespace

QString GermanReason(int error_number)
{
    for (const Reason& reason : reasons) {
        if (reason.number == error_number)
            return QString::fromUtf8(reason.german);
    }
    return QStringLiteral("Fehler %1 des Betriebssystems").arg(error_number);
}

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
