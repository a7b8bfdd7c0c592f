#include "data/system_error.h"

namespace {

struct Reason {
    Fault kind;
    const char* german;
};

// The wording of the desktop's own German messages; the system's own would be English without a
// German locale.
constexpr Reason reasons[] = {
    { Fault::Missing, "Datei oder Verzeichnis nicht gefunden" },
    { Fault::NotAFolder, "Ist kein Verzeichnis" },
    { Fault::NameTooLong, "Der Dateiname ist zu lang" },
    { Fault::NotAFileName, "Das ist kein gültiger Dateiname" },
    { Fault::NoAccess, "Keine Berechtigung" },
    { Fault::NotPermitted, "Vorgang nicht zulässig" },
    { Fault::IsAFolder, "Ist ein Verzeichnis" },
    { Fault::NotARegularFile, "Ist keine gewöhnliche Datei" },
    { Fault::IsALink, "Ist nur eine Verknüpfung" },
    { Fault::IsDataDirectory, "Daten und Sicherung lägen im selben Ordner" },
    { Fault::NoSpace, "Auf dem Gerät ist kein Speicherplatz mehr verfügbar" },
    { Fault::NoQuota, "Der zugewiesene Speicherplatz ist überschritten" },
    { Fault::ReadOnlyMedium, "Das Dateisystem ist nur lesbar" },
    { Fault::BrokenMedium, "Eingabe-/Ausgabefehler" },
    { Fault::Busy, "Das Gerät oder die Ressource ist belegt" },
    { Fault::FileInUse, "Die Datei wird gerade benutzt" },
    { Fault::NoDevice, "Kein passendes Gerät gefunden" },
    { Fault::TooManyOpenFiles, "Zu viele offene Dateien" },
    { Fault::TooManyOpenFilesOfAll, "Zu viele offene Dateien im System" },
    { Fault::TooLarge, "Die Datei ist zu groß" },
    { Fault::TooLargeForMedium, "Die Datei ist zu groß" },
    { Fault::LinkLoop, "Zu viele Ebenen aus symbolischen Verknüpfungen" },
    { Fault::NoMemory, "Nicht genügend Hauptspeicher verfügbar" },
    { Fault::InvalidCall, "Ungültiger Aufruf" },
    { Fault::AlreadyThere, "Die Datei existiert bereits" },
    { Fault::WrittenOtherwise, "Die Datei enthält nicht, was geschrieben wurde" },
};

} // namespace

QString ReasonOf(const SystemError& error)
{
    for (const Reason& reason : reasons) {
        if (reason.kind == error.Kind)
            return QString::fromUtf8(reason.german);
    }
    return QStringLiteral("Fehler %1 des Betriebssystems").arg(error.Number);
}

bool MeansMissing(const SystemError& error)
{
    return error == Fault::Missing || error == Fault::NotAFolder || error == Fault::NameTooLong
        || error == Fault::NotAFileName;
}
