// The buttons below the booking that is typed: what "OK" and "Löschen" do to the lines of the shown
// account. What "Speichern" does stands in ledger_form.
#include "cashbook/booking_buttons_form.h"

#include "app/program.h"
#include "cashbook/booking_entry.h"
#include "cashbook/booking_form.h"
#include "cashbook/booking_marks_form.h"
#include "cashbook/date_ordering.h"
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_view_form.h"
#include "controls/fields.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// Where the ledger holds a booking after sorting.
qsizetype RowOfBooking(const Program& program, const QString& line)
{
    return CurrentLedger(program).lastIndexOf(SortLedgerByDate({ line }).first());
}

void ApplyEntryClicked(Program& program)
{
    ShowIfStale(program);
    const LedgerEntry booking = ReadEntry(program);
    if (!IsComplete(booking))
        return TintMissing(program); // nothing else happens, and nothing is said
    const QString line = LineOfEntry(booking);
    ApplyEntry(program.CashBook, ShownAccount(program), line);
    ResetEntry(program);
    ShowLedger(program);
    ShowLedgerRow(program, RowOfBooking(program, line));
    program.CashBookTab.Text10[DateEntry]->setFocus(); // the next booking begins here
}

void DeleteEntryClicked(Program& program)
{
    ShowIfStale(program);
    if (!IsComplete(ReadEntry(program)))
        return; // as with "OK"
    DeleteEntry(program.CashBook, ShownAccount(program));
    ResetEntry(program);
    ShowLedger(program);
}

void ConnectButtons(Program& program)
{
    const CashBookForm& form = program.CashBookTab;
    On(program, form.Command12[0], &QPushButton::clicked, ApplyEntryClicked);
    On(program, form.Command12[1], &QPushButton::clicked, DeleteEntryClicked);
    On(program, form.CommandSaveLedger, &QPushButton::clicked, SaveLedger);
}

} // namespace

QHBoxLayout* BuildLedgerButtons(Program& program, QWidget* frame)
{
    CashBookForm& form = program.CashBookTab;
    form.Command12[0] = Named(MakeButton(frame, QStringLiteral("OK"),
                                  QStringLiteral("Bucht die Felder darüber oder ersetzt die "
                                                 "markierte Zeile. Datum und Vorgang müssen "
                                                 "ausgefüllt sein.")),
        QStringLiteral("Command12"), 0);
    MakePrimary(form.Command12[0]);
    form.Command12[1] = Named(MakeButton(frame, QStringLiteral("Löschen"),
                                  QStringLiteral("Löscht die angeklickte Zeile")),
        QStringLiteral("Command12"), 1);
    form.CommandSaveLedger = Named(MakeButton(frame, QStringLiteral("Speichern"),
                                       QStringLiteral("Schreibt alle Buchungen des gezeigten "
                                                      "Kontos in seine Datei (Strg+S)")),
        QStringLiteral("CommandSaveLedger"));
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command12[0]);
    row->addWidget(form.Command12[1]);
    row->addStretch(1);
    row->addWidget(form.CommandSaveLedger);
    ConnectButtons(program);
    return row;
}
