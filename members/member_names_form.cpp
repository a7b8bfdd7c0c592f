// The two lists of the tab "Stammdaten": the names, and the overview that the cash book fills.
#include "members/member_names_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/records.h"
#include "members/member_search_form.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int list_characters = 16; // at least
constexpr qsizetype longest_shown_name = 300; // characters; beyond it a list would only get slow

/// A frame that a list fills as high as the window allows; it never makes the window scroll: the
/// fields need the height more.
void FillFrame(QGroupBox* frame, QAbstractItemView* list)
{
    list->setMinimumWidth(list->fontMetrics().averageCharWidth() * list_characters);
    list->setMinimumHeight(list->fontMetrics().lineSpacing() * 6); // some rows
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    MakeRowsRoomy(list);
    ColumnOf(frame)->addWidget(list);
}

int RowOf(const QTreeWidget* overview, QTreeWidgetItem* item)
{
    return overview->indexOfTopLevelItem(item);
}

/// A press on the row that is shown already shows the member anew, as the press on any other row.
bool NamePressed(Program& program, QEvent& event)
{
    const QListWidget* names = program.NameLists.List1;
    const auto& press = static_cast<const QMouseEvent&>(event);
    const QListWidgetItem* pressed = names->itemAt(press.position().toPoint());
    if (pressed != nullptr && pressed == names->currentItem())
        SelectMember(program, names->currentRow());
    return false;
}

bool OverviewPressed(Program& program, QEvent& event)
{
    const QTreeWidget* overview = program.NameLists.ListView2;
    const auto& press = static_cast<const QMouseEvent&>(event);
    QTreeWidgetItem* pressed = overview->itemAt(press.position().toPoint());
    if (pressed != nullptr && pressed == overview->currentItem())
        SelectMember(program, RowOf(overview, pressed));
    return false;
}

/// What an empty list says; it lies on the list, which takes the mouse as ever.
QLabel* MakeFirstSteps(QListWidget* list)
{
    auto* text = Named(
        new QLabel(u"Noch keine Mitglieder. Mit „Neu Anlegen“ beginnen; F1 zeigt die Schritte."_s,
            list->viewport()),
        u"FirstSteps"_s);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    text->setForegroundRole(QPalette::PlaceholderText);
    text->setAttribute(Qt::WA_TransparentForMouseEvents);
    (new QVBoxLayout(list->viewport()))->addWidget(text, 0, Qt::AlignTop);
    return text;
}

void ConnectNames(Program& program)
{
    QListWidget* names = program.NameLists.List1;
    // the current row changes by mouse, by arrow keys and by the search as you type
    On(program, names, &QListWidget::currentRowChanged, SelectMember);
    OnEvent(program, names->viewport(), QEvent::MouseButtonPress, NamePressed);
}

void ConnectOverview(Program& program)
{
    QTreeWidget* overview = program.NameLists.ListView2;
    On(program, overview, &QTreeWidget::currentItemChanged,
        [](Program& p, QTreeWidgetItem* current, QTreeWidgetItem*) {
            SelectMember(p, RowOf(p.NameLists.ListView2, current));
        });
    OnEvent(program, overview->viewport(), QEvent::MouseButtonPress, OverviewPressed);
}

void ShowOverviewRow(QTreeWidgetItem* item, const QString& row)
{
    const QString text = row.left(longest_shown_name);
    if (item->text(0) == text)
        return;
    item->setText(0, text);
    item->setToolTip(0, text);
}

} // namespace

QGroupBox* BuildNameList(Program& program, QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Mitglieder Namen"), parent);
    MemberNamesForm& form = program.NameLists;
    form.List1 = Named(new QListWidget(frame), QStringLiteral("List1"));
    form.List1->setAccessibleName(QStringLiteral("Mitglieder Namen"));
    form.List1->setUniformItemSizes(true); // quick with thousands of names
    form.List1->setToolTip(
        QStringLiteral("Pfeiltasten wählen ein Mitglied, Tippen sucht den Nachnamen."));
    FillFrame(frame, form.List1);
    static_cast<QVBoxLayout*>(frame->layout())->insertWidget(0, BuildMemberSearch(program, frame));
    form.FirstSteps = MakeFirstSteps(form.List1);
    ConnectNames(program);
    return frame;
}

QGroupBox* BuildMemberOverview(Program& program, QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Mittglieder"), parent); // sic
    MemberNamesForm& form = program.NameLists;
    form.ListView2 = Named(new QTreeWidget(frame), QStringLiteral("ListView2"));
    form.ListView2->setAccessibleName(QStringLiteral("Mitglieder und ihre Sonderabrechnungen"));
    form.ListView2->setHeaderLabels({ QStringLiteral("Namen") });
    form.ListView2->setRootIsDecorated(false);
    form.ListView2->setUniformRowHeights(true);
    form.ListView2->setTabKeyNavigation(false);
    FillFrame(frame, form.ListView2);
    ConnectOverview(program);
    return frame;
}

void MarkShownMember(const Program& program)
{
    const int row = program.Member.CurrentMember;
    QListWidget* names = program.NameLists.List1;
    const QSignalBlocker silent_names(names);
    if (row >= 0) {
        names->setCurrentRow(row);
    } else {
        names->setCurrentIndex({}); // unlike row -1 this lets the list get the focus without a row
        names->clearSelection();
    }
    names->scrollToItem(names->item(row));

    QTreeWidget* overview = program.NameLists.ListView2;
    const QSignalBlocker silent_overview(overview);
    overview->setCurrentItem(overview->topLevelItem(row));
    if (row < 0)
        overview->clearSelection();
    overview->scrollToItem(overview->topLevelItem(row));
}

void ShowNameList(Program& program)
{
    QListWidget* list = program.NameLists.List1;
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
    ShowNameMarks(program);
    program.NameLists.FirstSteps->setVisible(names.isEmpty());
    MarkShownMember(program);
}

void ShowMemberOverview(Program& program, const QStringList& rows)
{
    QTreeWidget* overview = program.NameLists.ListView2;
    const QSignalBlocker silent(overview);
    const int scrolled = overview->verticalScrollBar()->value();
    while (overview->topLevelItemCount() > rows.size())
        delete overview->takeTopLevelItem(overview->topLevelItemCount() - 1);
    const int known = overview->topLevelItemCount();
    for (int row = 0; row < known; ++row)
        ShowOverviewRow(overview->topLevelItem(row), rows[row]);
    QList<QTreeWidgetItem*> items;
    for (qsizetype row = known; row < rows.size(); ++row) {
        auto* item = new QTreeWidgetItem;
        item->setData(0, Qt::UserRole, QStringLiteral("Zeile ") + QString::number(row + 1));
        ShowOverviewRow(item, rows[row]);
        items += item;
    }
    overview->addTopLevelItems(items);
    overview->verticalScrollBar()->setValue(scrolled);
    MarkShownMember(program);
}

void FocusNames(const Program& program)
{
    program.NameLists.List1->setFocus(Qt::ShortcutFocusReason);
}
