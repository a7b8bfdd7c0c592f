#include "app/more.h"

#include "app/program.h"
#include "check/align_form.h"
#include "check/check_form.h"
#include "controls/fields.h"
#include "history/history_form.h"
#include "money/money_form.h"
#include "outgoing/bills_as_pdf_form.h"
#include "outgoing/meter_change_form.h"
#include "outgoing/transfer_code_form.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

void OpenMenu(Program& program) // More
{
    const QPushButton* button = program.Window.More.More;
    QMenu* menu = program.Window.More.MoreMenu;
    const QPoint below(button->width() - menu->sizeHint().width(), button->height());
    menu->popup(button->mapToGlobal(below)); // returns at once; exec() would wait for a choice
    menu->setActiveAction(menu->actions().constFirst());
}

/// Its keys work wherever the focus is in the main window.
void AddEntry(Program& program, const MoreEntry& entry)
{
    auto* action = new QAction(entry.caption, program.Window.More.MoreMenu);
    action->setObjectName(entry.name);
    action->setShortcut(QKeySequence(entry.keys));
    program.Window.More.MoreMenu->addAction(action);
    program.Window.Window->addAction(action);
    On(program, action, &QAction::triggered, entry.run);
}

} // namespace

const std::vector<MoreEntry>& MoreEntries()
{
    static const std::vector<MoreEntry> entries {
        { u"MoreCheck"_s, u"&Prüfbericht …"_s, u"F9"_s, ShowCheckReport },
        { u"MoreReadings"_s, u"&Ablesung …"_s, u"F8"_s, ShowReadings },
        { u"MoreAlign"_s, u"&Vorjahr abgleichen …"_s, {}, ShowAlignWindow },
        { u"MoreOpenItems"_s, u"&Offene Posten …"_s, {}, ShowOpenItems },
        { u"MoreCashReport"_s, u"&Kassenbericht …"_s, {}, ShowCashReport },
        { u"MoreCashBook"_s, u"Kassen&buch …"_s, {}, ShowCashBook },
        { u"MoreYears"_s, u"&Jahre im Vergleich …"_s, {}, ShowYears },
        { u"MorePdf"_s, u"&Abrechnungen als PDF …"_s, {}, ShowBillsAsPdf },
        { u"MoreCode"_s, u"Überweisungs&code …"_s, {}, ShowTransferCode },
        { u"MoreMeter"_s, u"&Zähler gewechselt …"_s, {}, ShowMeterChange },
        { u"MoreHistory"_s, u"&Verlauf …"_s, {}, ShowHistory },
    };
    return entries;
}

void BuildMore(Program& program)
{
    MoreForm& form = program.Window.More;
    QTabWidget* tabs = program.Window.SSTab1;
    form.More = Named(
        MakeButton(tabs, u"Mehr"_s, u"Prüfbericht und weitere Werkzeuge (F10)"_s), u"More"_s);
    form.More->setMinimumWidth(0); // the corner is as wide as the style wants it, no wider
    form.More->setAccessibleName(u"Mehr Werkzeuge"_s);
    form.MoreMenu = Named(new QMenu(form.More), u"MoreMenu"_s);
    for (const MoreEntry& entry : MoreEntries())
        AddEntry(program, entry);
    tabs->setCornerWidget(form.More, Qt::TopRightCorner);
    form.More->show(); // a corner widget of a shown row stays hidden otherwise
    On(program, form.More, &QPushButton::clicked, OpenMenu);
    program.Reports.AfterRedraw = AnnounceErrors;
    auto* key = new QShortcut(QKeySequence(Qt::Key_F10), program.Window.Window);
    On(program, key, &QShortcut::activated, OpenMenu);
}
