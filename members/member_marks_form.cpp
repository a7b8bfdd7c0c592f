#include "members/member_marks_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "members/member_editing.h"
#include "members/record_doubts.h"

#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

MemberRecord ShownRecord(const Program& program)
{
    return SplitRecord(program.Members.RecordList.value(program.Member.CurrentMember));
}

QString UnsavedToolTip(const QString& stored)
{
    const QString not_yet = u"Noch nicht gespeichert. "_s;
    return stored.isEmpty() ? not_yet + u"Gespeichert ist hier nichts."_s
                            : not_yet + u"Gespeichert ist „%1“."_s.arg(stored);
}

QString LastConsumption(const Program& program, MemberField start)
{
    const QStringList& last_year = program.Members.PreviousYearList;
    return ConsumptionOf(SplitRecord(last_year.value(program.Member.CurrentMember)), start);
}

/// Tints the control for a doubt about this consumption; false when there is none.
bool TintDoubt(
    const Program& program, QLineEdit* control, MemberField start, const QString& consumption)
{
    const QString last = LastConsumption(program, start);
    const ReadingDoubt doubt = DoubtOf(consumption, last);
    if (doubt == ReadingDoubt::None)
        return false;
    Tint(control, doubt == ReadingDoubt::BelowStart ? TintKind::Wrong : TintKind::Doubtful,
        DoubtText(doubt, last));
    return true;
}

bool TintEndReading(const Program& program, MemberField start)
{
    const MemberForm& form = program.MembersTab;
    QLineEdit* end = ControlOfField(form, start + 1);
    return TintDoubt(
        program, end, start, ConsumptionOf(ControlOfField(form, start)->text(), end->text()));
}

/// What a shifted record shows in the field is no wrong text, only at the wrong place.
void TintStored(const Program& program, int field)
{
    QLineEdit* control = ControlOfField(program.MembersTab, field);
    const MemberRecord record = ShownRecord(program);
    if (field >= FirstShiftedField(record))
        Tint(control, TintKind::Wrong, ShiftText(record));
    else
        Tint(control, TintKind::None);
}

/// A plain text: the reading's own doubts come before the mark that it is not saved yet.
void TintText(Program& program, int field, FieldState state, const QString& stored)
{
    if ((field == ElectricityEnd && TintEndReading(program, ElectricityStart))
        || (field == WaterEnd && TintEndReading(program, WaterStart)))
        return;
    if (state == FieldState::Stored)
        return TintStored(program, field);
    Tint(ControlOfField(program.MembersTab, field), TintKind::Unsaved, UnsavedToolTip(stored));
}

} // namespace

QLabel* MakeShiftNotice(Program& program, QWidget* frame)
{
    program.MembersTab.ShiftNotice = MakeWarningLine(frame, u"ShiftNotice"_s, TintKind::Wrong);
    return program.MembersTab.ShiftNotice;
}

void ShowFieldState(Program& program, int field)
{
    QLineEdit* control = ControlOfField(program.MembersTab, field);
    const QString stored = StoredText(program.Members, program.Member, field);
    const FieldState state = StateOf(field, control->text(), stored);
    if (state == FieldState::Separator)
        Tint(control, TintKind::Wrong,
            u"Der Strichpunkt trennt in der Datei die Felder: Nach dem Speichern steht alles "
            "dahinter ein Feld weiter."_s);
    else if (state != FieldState::NoNumber) // that one is tinted by the field itself
        TintText(program, field, state, stored);
    if (field == ElectricityStart || field == WaterStart)
        ShowFieldState(program, field + 1); // it is measured by this one
}

void ShowFieldStates(Program& program)
{
    for (int field = 0; field < MemberFieldCount; ++field)
        ShowFieldState(program, field);
    ShowWarningLine(program.MembersTab.ShiftNotice, ShiftText(ShownRecord(program)));
    ShowUnsaved(program);
}

void ShowDifferenceState(Program& program, MemberField start)
{
    QLineEdit* difference = DifferenceOf(program.MembersTab, start);
    if (!TintDoubt(program, difference, start, difference->text()))
        Tint(difference, TintKind::None);
}

bool MemberFormDiffers(const Program& program)
{
    const MemberRecord typed = TypedRecord(program.MembersTab);
    const MemberRecord record = ShownRecord(program);
    for (int field = 0; field < MemberFieldCount; ++field) {
        if (typed[field] != StoredText(program.Members, program.Member, field)
            || typed[field] != FieldOrEmpty(record, field))
            return true;
    }
    return false;
}
