// The messages of saving and restoring. Error sentences stand where they are thrown.
#pragma once

#include <QString>

using namespace Qt::StringLiterals;

inline const QString BackupTitle = u"Datensicherung"_s;
inline const QString AskForStick
    = u"Bitte stecken Sie zur Datensicherung einen USB Stick in einen Ihrer USB "
      "Anschlüße und drücken Sie die OK Taste"_s;
inline const QString AskForSavedStick
    = u"Bitte stecken Sie den USB Stick mit den gesicherten Daten in Ihren USB "
      "Anschluß: und drücken Sie die OK Taste"_s;

inline const QString SavedTitle = u"Datensicherug"_s; // sic
inline QString SavedTo(const QString& drive) { return u"Daten auf "_s + drive + u" gesichert!"_s; }

inline const QString RestoredTitle = u"Daten Wiederherstellung"_s;
inline QString RestoredFrom(const QString& drive)
{
    return u"Daten von "_s + drive + u" wieder hergestellt!"_s;
}

/// The line below the bar.
inline QString BackupDone(
    const QString& drive, const QString& when, const QString& folder, qsizetype copies)
{
    const QString files = copies == 1 ? u"1 Datei"_s : u"%1 Dateien"_s.arg(copies);
    const QString where = drive.isEmpty() ? u", kein USB-Stick: gesichert nach "_s : u" nach "_s;
    return when + where + folder + u", "_s + files + u", geprüft"_s;
}

/// Tool tip of both buttons: the folder in use.
inline QString BackupFolderTip(const QString& drive, const QString& folder)
{
    if (drive.isEmpty())
        return u"Kein USB-Stick gefunden. Ordner der Sicherung: "_s + folder;
    return u"Ordner der Sicherung: "_s + folder;
}
