// The lines that say, where it bites, that the chosen year is not the loaded one.
#pragma once

#include "data/dates.h"

#include <QPointer>
#include <QString>

#include <vector>

class QLabel;
class QWidget;
struct Program;

/// What stands beside the line.
enum class YearNoteKind {
    Save, ///< a button "Speichern" that writes a file of the chosen year
    Ok, ///< the button "OK" of the readings, which does
    Table, ///< the table of the readings, which stores each value by itself
    Balance ///< the balance of the shown account
};

struct YearNote {
    QPointer<QLabel> Line;
    YearNoteKind Kind = YearNoteKind::Save;
};

using YearNotes = std::vector<YearNote>;

/// What the line says; empty when both years are the same and while none is loaded.
QString YearNoteText(YearNoteKind kind, const BillingYear& chosen, const BillingYear& loaded);

/// A line of that kind with that object name; hidden, and without room, while it says nothing.
QLabel* MakeYearNote(Program& program, QWidget* parent, YearNoteKind kind, const QString& name);

/// All lines say how the years stand now.
void ShowYearNotes(Program& program);
