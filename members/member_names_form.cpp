// The two lists of the tab "Stammdaten": the names, and the overview that the cash book fills.
#include "app/program.h"

#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeWidget>

namespace {

constexpr qsizetype longest_shown_name = 300; // characters; beyond it a list would only get slow

} // namespace

void MarkShownMember(const Program& program)
{
    const int row = program.Member.CurrentMember;
    QListWidget* names = program.MembersTab.List1;
    const QSignalBlocker silent_names(names);
    if (row >= 0) {
        names->setCurrentRow(row);
    } else {
        names->setCurrentIndex({}); // unlike row -1 this lets the list get the focus without a row
        names->clearSelection();
    }
    names->scrollToItem(names->item(row));

    QTreeWidget* overview = program.MembersTab.ListView2;
    const QSignalBlocker silent_overview(overview);
    overview->setCurrentItem(overview->topLevelItem(row));
    if (row < 0)
        overview->clearSelection();
    overview->scrollToItem(overview->topLevelItem(row));
}

void ShowNameList(Program& program)
{
    QListWidget* list = program.MembersTab.List1;
    const QStringList& names = program.Members.NameList;
    const QSignalBlocker silent(list);
    while (list->count() > names.size())
        delete list->takeItem(list->count() - 1);
    for (int row = 0; row < names.size(); ++row) { // row by row, so that the list does not jump
        const QString name = names[row].left(longest_shown_name);
        if (row >= list->count())
            list->addItem(name);
        else if (list->item(row)->text() != name)
            list->item(row)->setText(name);
    }
    MarkShownMember(program);
}

void ShowMemberOverview(Program& program, const QStringList& rows)
{
    QTreeWidget* overview = program.MembersTab.ListView2;
    const QSignalBlocker silent(overview);
    const int scrolled = overview->verticalScrollBar()->value();
    overview->clear();
    overview->setHeaderLabels({ QStringLiteral("Namen") });
    QList<QTreeWidgetItem*> items;
    for (qsizetype row = 0; row < rows.size(); ++row) {
        auto* item = new QTreeWidgetItem;
        item->setText(0, rows[row].left(longest_shown_name));
        item->setToolTip(0, item->text(0));
        item->setData(0, Qt::UserRole, QStringLiteral("Zeile ") + QString::number(row + 1));
        items += item;
    }
    overview->addTopLevelItems(items);
    overview->verticalScrollBar()->setValue(scrolled);
    MarkShownMember(program);
}
