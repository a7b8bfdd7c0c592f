// The texts of the tab "Einstellungen" that are shown in boxes and as marks.
#pragma once

#include <QString>

inline const QString SettingsSavedTitle = QStringLiteral("Hinweis");
inline const QString SettingsSavedMessage
    = QStringLiteral("Datenänderung ist gespeichert !"); // blank before "!": sic

inline const QString UnsavedTip = QStringLiteral("Diese Eingabe ist noch nicht gespeichert.");
inline const QString NoDateTip
    = QStringLiteral("Das ist noch kein Datum. Bitte im Kalender darunter einen Tag wählen.");
inline const QString UnknownContactTip
    = QStringLiteral("Diesen Namen gibt es in der Namensliste nicht; auf der Abrechnung steht dann "
                     "„Datensatz fehlt“. Bitte wie in der Namensliste schreiben: Nachname,Vorname");

// What a failed read or write means for the settings; stands in front of the file's own remedy.
inline const QString PricesNotRead
    = QStringLiteral("Es gelten weiter die Preise, die unter „Einstellungen“ stehen; sie können "
                     "von einem anderen Jahr sein.");
inline const QString BankNotRead
    = QStringLiteral("Es gelten weiter die Bankdaten und Namen, die unter „Einstellungen“ stehen.");
inline const QString CarryOverNotWritten
    = QStringLiteral("Die Preise des Vorjahres gelten auch für das neue Jahr, stehen aber noch "
                     "nicht in der Datei.");
inline const QString SettingsNotSaved = QStringLiteral("Die Eingaben stehen noch in den Feldern.");
