// The texts of the messages that starting, loading a year, the tab guard and the club name show.
#pragma once

#include "data/dates.h"

#include <QString>

inline const QString WindowCaption = QStringLiteral("Kleingarten Parzello");

inline QString NoDataForYear(const BillingYear& year_text)
{
    return QStringLiteral("Für ") + year_text + QStringLiteral(" sind keine Daten gespeichert.");
}
inline const QString DataErrorTitle = QStringLiteral("Datenfehler");

inline const QString HintTitle = QStringLiteral("Hinweis");
inline const QString AskSaveBalance = QStringLiteral(
    "Sie haben den Kontostand geändert. Sollen die Änderungen gespeichert werden ?"); // blank
                                                                                      // before "?":
                                                                                      // sic
inline const QString AskSavePrices
    = QStringLiteral("Sie haben die Werte in den Einstellungen geändert. Sollen die Änderungen "
                     "gespeichert werden ?");
inline const QString AskSaveBank
    = QStringLiteral("Sie haben die Bankverbindung oder Namen in den Einstellungen geändert. "
                     "Sollen die Änderungen gespeichert werden ?");

inline const QString AskLeaveMember = QStringLiteral(
    "Die Angaben im Formular sind nicht gespeichert. Soll das Programm trotzdem beendet werden ?");

inline const QString AskLeaveMemberForReadings = QStringLiteral(
    "Die Angaben im Formular sind nicht gespeichert. Trotzdem Zählerstände anderer Mitglieder "
    "eintragen ?");

inline const QString ClubNameHint = QStringLiteral(
    "Hier bitte Ihren Vereinsnamen eingeben z.B.: KGV \"Lindenblick\" e.V. Wiesenrode");
inline const QString ClubNamePlaceholder = QStringLiteral("Vereinsname");
