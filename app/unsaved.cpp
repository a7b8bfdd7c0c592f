#include "app/unsaved.h"

#include "app/program.h"
#include "app/texts.h"
#include "controls/fields.h"
#include "members/member_marks_form.h"
#include "settings/bank_frames_form.h"
#include "settings/price_frame_form.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What is not saved on each tab.
std::array<QStringList, TabCount> UnsavedOnTabs(const Program& program)
{
    std::array<QStringList, TabCount> unsaved;
    if (MemberFormDiffers(program))
        unsaved[MembersTab] += u"Angaben des Mitglieds"_s;
    if (program.CashBook.Bank.Unsaved)
        unsaved[CashBookTab] += u"Buchungen des Bankkontos"_s;
    if (program.CashBook.CashBox.Unsaved)
        unsaved[CashBookTab] += u"Buchungen der Handkasse"_s;
    if (PricesDiffer(program))
        unsaved[SettingsTab] += u"Preise"_s;
    if (BankDiffers(program))
        unsaved[SettingsTab] += u"Bank und Namen"_s;
    return unsaved;
}

bool ClubNameIsTyped(const MainWindowForm& window)
{
    return !window.Text5->isHidden() && window.Text5->text() != ClubNameHint;
}

void ShowOnTab(const Program& program, int tab, const QStringList& unsaved)
{
    QTabWidget* tabs = program.Window.SSTab1;
    const QString keys = u"Strg+%1"_s.arg(tab + 1);
    const bool saved = unsaved.isEmpty();
    tabs->setTabToolTip(
        tab, saved ? keys : keys + u"\n● Nicht gespeichert: "_s + unsaved.join(u", "_s));
    tabs->tabBar()->setAccessibleTabName(
        tab, saved ? QString() : tabs->tabText(tab) + u" ● nicht gespeichert"_s);
}

} // namespace

void ShowUnsaved(Program& program)
{
    const MainWindowForm& window = program.Window;
    if (window.SSTab1 == nullptr || window.SSTab1->count() < TabCount)
        return; // the window is being built
    QStringList all;
    if (ClubNameIsTyped(window))
        all += u"Vereinsname"_s;
    const std::array<QStringList, TabCount> unsaved = UnsavedOnTabs(program);
    for (int tab = 0; tab < TabCount; ++tab) {
        ShowOnTab(program, tab, unsaved.at(static_cast<std::size_t>(tab)));
        all += unsaved.at(static_cast<std::size_t>(tab));
    }
    Tint(window.Command8, TintKind::None);
    if (!all.isEmpty())
        Tint(window.Command8, TintKind::Unsaved,
            window.Command8->toolTip() + u"\nNicht gespeichert: "_s + all.join(u", "_s));
}
