#include "app/shortcuts.h"

#include "app/manual.h"
#include "app/program.h"
#include "cashbook/booking_form.h"
#include "cashbook/ledger_search_form.h"
#include "history/history_form.h"
#include "members/member_names_form.h"
#include "members/member_search_form.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"
#include "statement/statement_form.h"

#include <QKeySequence>
#include <QMainWindow>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

namespace {

template <typename Routine> void Key(Program& program, const QKeySequence& keys, Routine routine)
{
    auto* shortcut = new QShortcut(keys, program.Window.Window);
    On(program, shortcut, &QShortcut::activated, routine);
}

/// The settings have two buttons "Speichern"; the key presses those whose fields were changed, else
/// that of the prices.
void SaveSettingsInFront(Program& program)
{
    const bool bank = BankDiffers(program);
    if (!bank || PricesDiffer(program))
        program.SettingsTab.Command5->click();
    if (bank)
        program.SettingsTab.Command7->click();
}

void SaveTabInFront(Program& program)
{
    switch (program.Window.SSTab1->currentIndex()) {
    case MembersTab:
        program.MembersTab.Command1Save->click();
        break;
    case CashBookTab:
        program.CashBookTab.CommandSaveLedger->click();
        break;
    case SettingsTab:
        SaveSettingsInFront(program);
        break;
    default: // the preview has nothing to save
        break;
    }
}

/// False when something could not be saved and its tab came back to the front.
bool BringToFront(Program& program, Tab tab)
{
    program.Window.SSTab1->setCurrentIndex(tab);
    return program.Window.SSTab1->currentIndex() == tab;
}

/// Where work begins on a tab; never a button that acts.
void FocusFirstField(const Program& program, Tab tab)
{
    switch (tab) {
    case MembersTab:
        return FocusNames(program);
    case StatementTab:
        return FocusPage(program);
    case CashBookTab:
        return FocusDate(program);
    case SettingsTab:
        return FocusFirstPrice(program);
    case TabCount:
        break;
    }
}

void GoToWork(Program& program, Tab tab)
{
    if (BringToFront(program, tab))
        FocusFirstField(program, tab);
}

/// What is searched is the list of the tab in front.
void Search(Program& program)
{
    const int tab = program.Window.SSTab1->currentIndex();
    if (tab == MembersTab)
        OpenMemberSearch(program);
    else if (tab == CashBookTab)
        OpenLedgerSearch(program);
}

void StepHit(Program& program, int direction)
{
    const int tab = program.Window.SSTab1->currentIndex();
    if (tab == MembersTab)
        StepMemberHit(program, direction);
    else if (tab == CashBookTab)
        StepLedgerHit(program, direction);
}

} // namespace

void BuildShortcuts(Program& program)
{
    for (int tab = 0; tab < TabCount; ++tab) {
        Key(program, QKeySequence(static_cast<int>(Qt::CTRL) | (Qt::Key_1 + tab)),
            [tab](Program& p) { GoToWork(p, static_cast<Tab>(tab)); });
    }
    Key(program, QKeySequence(QStringLiteral("Ctrl+S")), SaveTabInFront);
    Key(program, QKeySequence(QStringLiteral("Ctrl+N")), [](Program& p) {
        if (BringToFront(p, MembersTab))
            p.MembersTab.Command14->click();
    });
    Key(program, QKeySequence(QStringLiteral("Ctrl+P")), [](Program& p) {
        if (BringToFront(p, StatementTab))
            p.PrintFrame.Command6->click();
    });
    Key(program, QKeySequence(QStringLiteral("Ctrl+F")), Search);
    Key(program, QKeySequence(Qt::Key_F3), [](Program& p) { StepHit(p, 1); });
    Key(program, QKeySequence(QStringLiteral("Shift+F3")), [](Program& p) { StepHit(p, -1); });
    Key(program, QKeySequence(QStringLiteral("Ctrl+Z")), TakeBackTheLast);
    Key(program, QKeySequence(Qt::Key_F1), ShowManual);
}
