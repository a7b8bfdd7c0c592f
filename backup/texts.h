// The messages of saving and restoring. Error sentences stand where they are thrown.
#pragma once

#include <QString>

inline const QString BackupTitle = QStringLiteral("Datensicherung");
inline const QString AskForStick
    = QStringLiteral("Bitte stecken Sie zur Datensicherung einen USB Stick in einen Ihrer USB "
                     "Anschlüße und drücken Sie die OK Taste");
inline const QString AskForSavedStick
    = QStringLiteral("Bitte stecken Sie den USB Stick mit den gesicherten Daten in Ihren USB "
                     "Anschluß: und drücken Sie die OK Taste");

inline const QString SavedTitle = QStringLiteral("Datensicherug"); // sic
inline QString SavedTo(const QString& drive)
{
    return QStringLiteral("Daten auf ") + drive + QStringLiteral(" gesichert!");
}

inline const QString RestoredTitle = QStringLiteral("Daten Wiederherstellung");
inline QString RestoredFrom(const QString& drive)
{
    return QStringLiteral("Daten von ") + drive + QStringLiteral(" wieder hergestellt!");
}

/// Tool tip of both buttons: the folder in use.
inline QString BackupFolderTip(const QString& drive, const QString& folder)
{
    if (drive.isEmpty())
        return QStringLiteral("Kein USB-Stick gefunden. Ordner der Sicherung: ") + folder;
    return QStringLiteral("Ordner der Sicherung: ") + folder;
}
