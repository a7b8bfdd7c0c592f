// The texts of the tab "Einstellungen" that are shown in boxes and as marks.
#pragma once

#include <QString>

using namespace Qt::StringLiterals;

inline const QString SettingsSavedTitle = u"Hinweis"_s;
inline const QString SettingsSavedMessage
    = u"Datenänderung ist gespeichert !"_s; // blank before "!": sic

inline const QString NoDateTip
    = u"Das ist noch kein Datum. Bitte im Kalender darunter einen Tag wählen."_s;
inline const QString UnknownContactTip
    = u"Diesen Namen gibt es in der Namensliste nicht; auf der Abrechnung steht dann "
      "„Datensatz fehlt“. Bitte wie in der Namensliste schreiben: Nachname,Vorname"_s;

// What a failed read or write means for the settings; stands in front of the file's own remedy.
inline const QString PricesNotRead
    = u"Es gelten weiter die Preise, die unter „Einstellungen“ stehen; sie können "
      "von einem anderen Jahr sein."_s;
inline const QString BankNotRead
    = u"Es gelten weiter die Bankdaten und Namen, die unter „Einstellungen“ stehen."_s;
inline const QString CarryOverNotWritten
    = u"Die Preise des Vorjahres gelten auch für das neue Jahr, stehen aber noch "
      "nicht in der Datei."_s;
inline const QString SettingsNotSaved = u"Die Eingaben stehen noch in den Feldern."_s;
