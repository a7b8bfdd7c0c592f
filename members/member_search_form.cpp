// The line that searches the member list, and the tints of its names: what was found, and whose
// line has too many fields.
#include "members/member_search_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/search_line.h"
#include "data/records.h"
#include "members/member_search.h"
#include "members/record_doubts.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The tint of a row of List1: of what its line has too much of, or of the search.
TintKind GroundOf(const MemberNamesForm& form, int row, bool shifted)
{
    const auto hit = std::lower_bound(form.Hits.begin(), form.Hits.end(), row);
    if (hit != form.Hits.end() && *hit == row)
        return hit - form.Hits.begin() == form.CurrentHit ? TintKind::Doubtful : TintKind::Unsaved;
    return shifted ? TintKind::Wrong : TintKind::None;
}

/// Names whose line has too many fields, and those that were searched.
void MarkNames(const Program& program)
{
    QListWidget* list = program.NameLists.List1;
    const QStringList& records = program.Members.RecordList;
    for (int row = 0; row < list->count(); ++row) {
        const bool shifted = records.value(row).count(u';') >= MemberFieldCount;
        QListWidgetItem* item = list->item(row);
        const TintKind ground = GroundOf(program.NameLists, row, shifted);
        const bool was_marked = item->background().style() != Qt::NoBrush;
        if (ground == TintKind::None && !was_marked)
            continue; // as nearly all
        item->setData(Qt::ToolTipRole, shifted ? ShiftText(SplitRecord(records[row])) : QVariant());
        item->setBackground(
            ground == TintKind::None ? QBrush(Qt::NoBrush) : QBrush(TintedGround(list, ground)));
    }
}

void ShowCurrentHit(Program& program, int hit)
{
    MemberNamesForm& form = program.NameLists;
    form.CurrentHit = hit;
    MarkNames(program);
    if (hit >= 0)
        form.List1->scrollToItem(form.List1->item(form.Hits.at(static_cast<std::size_t>(hit))));
}

void WordsTyped(Program& program)
{
    ShowNameMarks(program);
    ShowCurrentHit(program, program.NameLists.Hits.empty() ? -1 : 0);
}

/// Enter: the current hit is shown, as by a click on its name.
void PickHit(Program& program)
{
    const MemberNamesForm& form = program.NameLists;
    if (form.CurrentHit < 0)
        return;
    form.List1->setFocus(Qt::OtherFocusReason);
    form.List1->setCurrentRow(form.Hits.at(static_cast<std::size_t>(form.CurrentHit)));
}

void CloseSearch(Program& program)
{
    program.NameLists.List1->setFocus(Qt::OtherFocusReason);
    program.NameLists.MemberSearchRow->hide();
    ShowNameMarks(program);
}

} // namespace

void ShowNameMarks(Program& program)
{
    MemberNamesForm& form = program.NameLists;
    const QString words = form.MemberSearchRow->isHidden() ? QString() : form.MemberSearch->text();
    form.Hits = FindMembers(program.Members.RecordList, words);
    form.CurrentHit = form.CurrentHit < std::ssize(form.Hits) ? form.CurrentHit : -1;
    form.MemberSearchHits->setText(
        words.isEmpty() ? QString() : u"%1 Treffer"_s.arg(std::ssize(form.Hits)));
    MarkNames(program);
}

QWidget* BuildMemberSearch(Program& program, QWidget* frame)
{
    MemberNamesForm& form = program.NameLists;
    const SearchLine line = MakeSearchLine(
        frame, u"MemberSearch"_s, u"In den Namen suchen"_s, u"Name, Straße oder Garten suchen"_s);
    form.MemberSearchRow = line.Row;
    form.MemberSearch = line.Words;
    form.MemberSearchHits = line.Hits;
    On(program, form.MemberSearch, &QLineEdit::textChanged, WordsTyped);
    On(program, form.MemberSearch, &QLineEdit::returnPressed, PickHit);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), line.Row);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    On(program, escape, &QShortcut::activated, CloseSearch);
    return line.Row;
}

void OpenMemberSearch(Program& program)
{
    const MemberNamesForm& form = program.NameLists;
    OpenSearchLine({ form.MemberSearchRow, form.MemberSearch, form.MemberSearchHits });
    WordsTyped(program);
}

void StepMemberHit(Program& program, int direction)
{
    const MemberNamesForm& form = program.NameLists;
    ShowCurrentHit(program, NextHit(form.CurrentHit, direction, std::ssize(form.Hits)));
}
