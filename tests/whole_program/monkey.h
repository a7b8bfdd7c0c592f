// The random user: what he has at hand, and the ways that lead behind "Mehr". Everything else of
// him is in monkey.cpp.
#pragma once

#include "tests/support/club.h"
#include "tests/support/kept_promise.h"

#include <QList>
#include <QMap>
#include <QRandomGenerator>
#include <QSet>
#include <QString>

class QAbstractItemView;
class QCalendarWidget;
class QLineEdit;
class QPushButton;
class QWidget;

struct Monkey {
    TestClub Club;
    QRandomGenerator Dice;
    QString LastAction;
    QMap<QString, int> Done; ///< how often each action was taken
    int BoxCount = 0;
    int LedgersWritten = 0;
    QSet<QString> Replaced; ///< bookings that were in a list when "OK" or "Löschen" changed it
    int SettledChecks = 0; ///< checks made while lists and files had to be alike
    int Step = 0;
    bool ErrorSinceLoad
        = false; ///< an error box since the last complete load: lists and file may differ
    KeptPromise Kept; ///< what the history holds of this run
    QList<QLineEdit*> Fields;
    QList<QPushButton*> Buttons;
    QList<QAbstractItemView*> Lists;
    QList<QCalendarWidget*> Calendars;
    QList<QWidget*> Toggles;
};

/// 0 to bound - 1.
int Below(Monkey& monkey, qsizetype bound);

/// Numbers, dates and names, good ones and bad ones.
const QString& AnyText(Monkey& monkey);

void TypeKeys(QWidget* field, const QString& text);

/// Ends the run with that promise when it does not hold.
void Check(const Monkey& monkey, bool holds, const char* promise);

// --- behind "Mehr" (monkey_more.cpp) ----------------------------------------------------------

void ReadAReport(Monkey& monkey); ///< opens one, follows one of its links, closes it
void LookIntoAWindow(Monkey& monkey); ///< opens one and closes it: files and pages stay
void TypeAReading(Monkey& monkey); ///< into the table of all members
void AlignTheYears(Monkey& monkey); ///< carries out some of the offers for last year's list
void CreatePdfs(Monkey& monkey); ///< into a folder beside the data
void SwitchTheCode(Monkey& monkey); ///< on or off; beside it the pages stay as they are
void ChangeAMeter(Monkey& monkey);
void TakeBackByKey(Monkey& monkey); ///< Ctrl+Z outside of text fields
