// The frames "Adresse" and "Zählerstände": their buttons, and showing, saving and deleting a
// member. The fields stand in member_fields_form, the rules in member_editing and member_saving.
#include "members/member_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/records.h"
#include "members/member_editing.h"
#include "members/member_marks_form.h"
#include "members/member_saving.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int address_characters = 90; // at most, the whole frame: longer fields would stay empty

QHBoxLayout* BuildMemberButtons(MemberForm& form, QGroupBox* frame)
{
    form.Command14
        = Named(MakeButton(frame, QStringLiteral("Neu Anlegen"),
                    QStringLiteral("Leert das Formular für ein neues Mitglied (Strg+N).")),
            QStringLiteral("Command14"));
    form.Command1Save = Named(
        MakeButton(frame, QStringLiteral("Speichern"),
            QStringLiteral("Speichert das Mitglied in der Datei des gezeigten Jahres (Strg+S).")),
        QStringLiteral("Command1"), 0);
    MakePrimary(form.Command1Save);
    form.Command1Delete
        = Named(MakeButton(frame, QStringLiteral("Löschen"),
                    QStringLiteral("Löscht das gezeigte Mitglied sofort und ohne Rückfrage.")),
            QStringLiteral("Command1"), 2);
    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command14);
    row->addWidget(form.Command1Save);
    row->addStretch(1); // apart: it asks nothing
    row->addWidget(form.Command1Delete);
    return row;
}

/// SaveMembers for the chosen year; an error that does not matter is shown and ends nothing.
void WriteMembers(Program& program, const MemberLists& lists, const QString& what_is_left)
{
    const std::optional<RuntimeError> shown = SaveMembers(lists, program.Files,
        program.Year.YearText, program.Year.LoadedYear, program.Year.Troubles, what_is_left);
    if (shown)
        ReportError(program.Errors, program.Ask, *shown);
}

/// What follows a save and a delete: the year is loaded from its new file and member 0 shown.
void ReloadAfterWriting(Program& program)
{
    ClearFields(program, 0);
    program.Member.CurrentMember = -1;
    program.Year.LoadedYear = program.Year.YearText; // the lists are that year's file now
    const RedrawsPostponed until_done(program);
    RebuildStatementPages(program);
    RunStep(program, LoadYear);
    if (program.Member.CurrentMember >= 0)
        return;
    program.Member.CurrentMember
        = 0; // a year that cannot be read again leaves the lists as written
    ShowYear(program);
    ShowNameList(program);
    ShowMember(program);
}

/// Steps stay in the meter that they were made in; from a button it is electricity.
QLineEdit* EndReadingInUse(const MemberForm& form)
{
    const bool water = ControlOfField(form, WaterStart)->hasFocus()
        || ControlOfField(form, WaterEnd)->hasFocus();
    return ControlOfField(form, water ? WaterEnd : ElectricityEnd);
}

void StepKey(Program& program, QGroupBox* frame, int key, int direction)
{
    auto* shortcut = new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | key), frame);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    On(program, shortcut, &QShortcut::activated,
        [direction](Program& p) { StepMember(p, direction); });
}

void ConnectMemberButtons(Program& program)
{
    const MemberForm& form = program.MembersTab;
    QWidget::setTabOrder(form.Text3[BuildingPremium], form.Command1Save);
    QWidget::setTabOrder(form.Command1Save, form.Command1Delete);
    QWidget::setTabOrder(form.Command1Delete, form.Command14);
    On(program, form.Command14, &QPushButton::clicked, NewMember);
    On(program, form.Command1Save, &QPushButton::clicked, SaveMember);
    On(program, form.Command1Delete, &QPushButton::clicked, DeleteMember);
}

void ConnectReadings(Program& program, QGroupBox* frame)
{
    const MemberForm& form = program.MembersTab;
    On(program, form.Command2, &QPushButton::clicked, EnterReadings);
    for (int field = ElectricityStart; field <= WaterEnd; ++field) {
        On(program, ControlOfField(form, field), &QLineEdit::returnPressed,
            [](Program& p) { p.MembersTab.Command2->click(); });
    }
    StepKey(program, frame, Qt::Key_Down, 1);
    StepKey(program, frame, Qt::Key_Up, -1);
}

} // namespace

QGroupBox* BuildAddress(Program& program, QWidget* parent)
{
    QGroupBox* frame = BuildAddressFields(program, parent);
    QGridLayout* grid = GridOf(frame);
    int row = grid->rowCount();
    grid->setRowMinimumHeight(row++, FrameSpacing);
    grid->addWidget(MakeYearNote(program, frame, YearNoteKind::Save, u"YearNoteMember"_s), row++, 0,
        1, grid->columnCount());
    grid->addLayout(
        BuildMemberButtons(program.MembersTab, frame), row++, 0, 1, grid->columnCount());
    grid->setRowStretch(row, 1);
    frame->setMaximumWidth(frame->fontMetrics().averageCharWidth() * address_characters);
    ConnectMemberButtons(program);
    return frame;
}

QGroupBox* BuildReadings(Program& program, QWidget* parent)
{
    MemberForm& form = program.MembersTab;
    auto* frame = new QGroupBox(QStringLiteral("Zählerstände"), parent);
    BuildMeterFields(program, frame);
    form.Command2 = Named(
        MakeButton(frame, QStringLiteral("OK"),
            QStringLiteral("Speichert die Zählerstände (Eingabetaste in einem Zählerstand). "
                           "Strg+Pfeil ab oder auf speichert sie und zeigt das nächste oder das "
                           "vorige Mitglied.")),
        QStringLiteral("Command2"));
    MakePrimary(form.Command2);
    frame->layout()->addWidget(
        MakeYearNote(program, frame, YearNoteKind::Ok, u"YearNoteReadings"_s));
    frame->layout()->addWidget(form.Command2);
    frame->layout()->setAlignment(form.Command2, Qt::AlignLeft);
    ConnectReadings(program, frame);
    return frame;
}

void ShowMember(Program& program)
{
    MemberState& member = program.Member;
    ClearFields(program, 0);
    ClearFields(program, 1);
    MarkShownMember(program);
    if (program.Members.RecordList.isEmpty()) {
        member.ElectricityDifference.clear();
        member.WaterDifference.clear();
        return ShowFieldStates(program);
    }
    member.MemberFields = SplitRecord(program.Members.RecordList.value(member.CurrentMember));
    const MemberRecord& fields = member.MemberFields;
    ShowRecord(program, fields);
    ShowFieldStates(program);
    RequireWholeRecord(
        fields, ShortRecordPlace(program.Year.LoadedYear, member.CurrentMember, fields));
    ComputeDifferences(program);
}

void SelectMember(Program& program, int position)
{
    if (position < 0)
        return; // the list was left without a selection
    program.Member.CurrentMember = static_cast<qint16>(position);
    ShowMember(program);
}

void NewMember(Program& program)
{
    program.Member.CurrentMember = -1;
    program.Member.ClickedFieldText.clear();
    ClearFields(program, 0);
    ClearFields(program, 1);
    MarkShownMember(program);
    ShowFieldStates(program);
    program.MembersTab.Text3[0]->setFocus();
}

void SaveMember(Program& program)
{
    const MemberRecord fields = TypedRecord(program.MembersTab);
    MemberLists changed = program.Members;
    if (DecideSave(program.Member, changed) == SaveWay::Update)
        ReplaceMember(changed, program.Member.CurrentMember, fields);
    else
        AddMember(changed, fields);
    WriteMembers(program, changed,
        QStringLiteral("Ihre Eingaben stehen noch im Formular: Drücken Sie, sobald das behoben "
                       "ist, noch einmal „Speichern“."));
    program.Members = changed;
    program.Member.ClickedFieldText.clear();
    ReloadAfterWriting(program);
}

void DeleteMember(Program& program)
{
    MemberLists changed = program.Members;
    RemoveMember(changed, program.Member.CurrentMember);
    WriteMembers(program, changed,
        QStringLiteral("Das Mitglied steht noch in der Liste: Drücken Sie, sobald das behoben "
                       "ist, noch einmal „Löschen“."));
    program.Members = changed;
    ReloadAfterWriting(program);
}

namespace {

/// The first half of "OK": list, differences, file.
void StoreReadings(Program& program)
{
    ReplaceRecord(program.Members, program.Member.CurrentMember, TypedRecord(program.MembersTab));
    ComputeDifferences(program);
    WriteMembers(program, program.Members,
        QStringLiteral("Die Zählerstände stehen noch im Formular: Drücken Sie, sobald das "
                       "behoben ist, noch einmal „OK“."));
}

} // namespace

void EnterReadings(Program& program)
{
    StoreReadings(program);
    LoadYear(program);
    if (auto* reading = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        reading->selectAll(); // the next one typed replaces it
}

void StoreReading(Program& program, int position, MemberField field, const QString& text)
{
    SelectMember(program, position);
    ControlOfField(program.MembersTab, field)->setText(text);
    StoreReadings(program);
    program.Members.StoredList = program.Members.RecordList; // as a reload would find it
    ShowFieldStates(program);
}

void StepMember(Program& program, int direction)
{
    QLineEdit* end_reading = EndReadingInUse(program.MembersTab);
    if (MemberFormDiffers(program))
        EnterReadings(program);
    const int next
        = NeighbourOf(program.Member.CurrentMember, direction, program.Members.RecordList.size());
    end_reading->setFocus(); // before a member that cannot be shown whole ends this
    SelectMember(program, next);
    end_reading->selectAll();
}
