#include "app/year_notes.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"

#include <QLabel>

using namespace Qt::StringLiterals;

QString YearNoteText(YearNoteKind kind, const BillingYear& chosen, const BillingYear& loaded)
{
    if (loaded.isEmpty() || loaded == chosen)
        return {};
    switch (kind) {
    case YearNoteKind::Save:
        return u"Gewählt ist %1, gezeigt ist %2: Speichern schreibt in das Jahr %1."_s.arg(
            chosen, loaded);
    case YearNoteKind::Ok:
        return u"Gewählt ist %1, gezeigt ist %2: OK schreibt in das Jahr %1."_s.arg(chosen, loaded);
    case YearNoteKind::Table:
        return u"Gewählt ist %1, gezeigt ist %2: Gespeichert wird in das Jahr %1."_s.arg(
            chosen, loaded);
    case YearNoteKind::Balance:
        return u"Gewählt ist %1, gezeigt sind die Buchungen von %2."_s.arg(chosen, loaded);
    }
    return {};
}

QLabel* MakeYearNote(Program& program, QWidget* parent, YearNoteKind kind, const QString& name)
{
    QLabel* line = MakeWarningLine(parent, name, TintKind::OtherYear);
    program.YearNotes.push_back({ line, kind });
    return line;
}

void ShowYearNotes(Program& program)
{
    for (const YearNote& note : program.YearNotes) {
        if (note.Line != nullptr)
            ShowWarningLine(
                note.Line, YearNoteText(note.Kind, program.Year.YearText, program.Year.LoadedYear));
    }
}
