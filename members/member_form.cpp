// What the fields of the tab "Stammdaten" show and what its buttons do. The controls are made in
// member_tab_form.cpp, its lists are filled in member_names_form.cpp, the rules stand in
// member_editing and member_lists.
#include "app/program.h"
#include "controls/fields.h"
#include "data/file_names.h"
#include "members/member_editing.h"

#include <QLineEdit>

namespace {

template <typename Fields> void ClearAll(const Fields& fields)
{
    for (QLineEdit* field : fields)
        field->clear();
}

void ShowText(QLineEdit* field, const QString& text)
{
    field->setText(text);
    field->setCursorPosition(0); // a long text shows its beginning
}

QStringList FormFields(const MemberForm& form)
{
    QStringList fields;
    for (int field = 0; field < MemberFieldCount; ++field)
        fields += ControlOfField(form, field)->text();
    return fields;
}

QStringList StoredFields(const Program& program)
{
    return SplitRecord(program.Members.StoredList.value(program.Member.CurrentMember));
}

/// While a new member is typed nothing of him is stored.
QString StoredText(const Program& program, int field)
{
    return program.Member.CurrentMember < 0 ? QString()
                                            : FieldOrEmpty(StoredFields(program), field);
}

void ShowFieldStates(Program& program)
{
    for (int field = 0; field < MemberFieldCount; ++field)
        ShowFieldState(program, field);
}

QString UnsavedToolTip(const QString& stored)
{
    const QString not_yet = QStringLiteral("Noch nicht gespeichert. ");
    return stored.isEmpty() ? not_yet + QStringLiteral("Gespeichert ist hier nichts.")
                            : not_yet + QStringLiteral("Gespeichert ist „%1“.").arg(stored);
}

/// A difference stays as it is while one of its readings is empty.
void ComputeDifference(
    Program& program, MemberField start, MemberField end, QLineEdit* difference_field)
{
    const QStringList fields = FormFields(program.MembersTab);
    const auto place = [&](MemberField field) {
        return ReadingPlace(program.Year.LoadedYear, program.Member.CurrentMember, fields, field);
    };
    const QString difference
        = MeterDifference(fields[start], fields[end], place(start), place(end));
    if (!difference.isEmpty())
        difference_field->setText(difference);
}

void ComputeDifferences(Program& program)
{
    const MemberForm& form = program.MembersTab;
    ComputeDifference(program, ElectricityStart, ElectricityEnd, form.Text1[2]);
    ComputeDifference(program, WaterStart, WaterEnd, form.Text1[5]);
    program.Member.ElectricityDifference = form.Text1[2]->text();
    program.Member.WaterDifference = form.Text1[5]->text();
}

/// A file of the year that could not be read would be replaced by what was typed since.
void RequireLoadedYear(const Program& program, const QString& file_name)
{
    if (!program.Year.LoadedYear.isEmpty() || !FileExists(program.Files, file_name))
        return;
    Place where;
    where.file = FileNameOf(file_name);
    where.remedy
        = QStringLiteral("Die Mitglieder dieses Jahres sind nicht geladen, darum wird ihre "
                         "Datei nicht überschrieben. Bitte beheben Sie, was beim Laden "
                         "gemeldet wurde, und drücken Sie „Laden“.");
    throw RuntimeError { ErrorKind::File, where, QStringLiteral("Datei ist nicht geladen") };
}

/// Writes the lists as file of YearText; an error says in addition what became of the input. An
/// error after which the file holds the lists all the same (only the note of the rewrite could not
/// be removed) is shown and ends nothing: the same member would be added a second time.
void WriteMembers(Program& program, const MemberLists& lists, const QString& what_is_left)
{
    const QString& year = program.Year.YearText;
    RequireLoadedYear(program, MembersFileName(year));
    try {
        WriteMembersFile(lists, program.Files, year);
    } catch (const RuntimeError& error) {
        if (IsInFile(lists, program.Files, year))
            return ReportError(program.Errors, program.Ask, error);
        RuntimeError extended = error;
        if (!extended.where.remedy.isEmpty())
            extended.where.remedy += QLatin1Char(' ');
        extended.where.remedy += what_is_left;
        throw RuntimeError(extended);
    }
}

/// What follows a save and a delete: the year is loaded from its new file and member 0 shown.
void ReloadAfterWriting(Program& program)
{
    ClearFields(program, 0);
    program.Member.CurrentMember = -1;
    program.Year.LoadedYear = program.Year.YearText; // the lists are that year's file now
    RebuildStatementPages(program);
    WithErrorBox(program.Errors, program.Ask, [&program] { LoadYear(program); });
    if (program.Member.CurrentMember >= 0)
        return;
    program.Member.CurrentMember
        = 0; // a year that cannot be read again leaves the lists as written
    ShowNameList(program);
    ShowMember(program);
}

/// Readings that could not be entered are in the record all the same, and not in the file.
bool DiffersFromRecordOrFile(const Program& program)
{
    const QStringList typed = FormFields(program.MembersTab);
    const QStringList record
        = SplitRecord(program.Members.RecordList.value(program.Member.CurrentMember));
    for (int field = 0; field < MemberFieldCount; ++field) {
        if (typed[field] != StoredText(program, field)
            || typed[field] != FieldOrEmpty(record, field))
            return true;
    }
    return false;
}

} // namespace

QLineEdit* ControlOfField(const MemberForm& form, int field)
{
    const auto index = static_cast<std::size_t>(field);
    if (field < ElectricityStart)
        return form.Text3.at(index);
    constexpr std::array<std::size_t, 4> readings { 0, 1, 3, 4 }; // 2 and 5 are the differences
    return form.Text1.at(readings.at(index - ElectricityStart));
}

void ClearFields(Program& program, int group)
{
    if (group == 0)
        ClearAll(program.MembersTab.Text3);
    else if (group == 1)
        ClearAll(program.MembersTab.Text1);
    else if (group == 2)
        ClearAll(program.SettingsTab.Text4);
}

void ShowFieldState(Program& program, int field)
{
    QLineEdit* control = ControlOfField(program.MembersTab, field);
    const QString stored = StoredText(program, field);
    switch (StateOf(field, control->text(), stored)) {
    case FieldState::Stored:
        return Tint(control, TintKind::None);
    case FieldState::Unsaved:
        return Tint(control, TintKind::Unsaved, UnsavedToolTip(stored));
    case FieldState::NoNumber:
        return; // tinted by the field itself
    case FieldState::Separator:
        return Tint(control, TintKind::Wrong,
            QStringLiteral("Der Strichpunkt trennt in der Datei die Felder: Nach dem Speichern "
                           "steht alles dahinter ein Feld weiter."));
    }
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
    const QStringList& fields = member.MemberFields;
    for (int field = 0; field < MemberFieldCount && field < fields.size(); ++field)
        ShowText(ControlOfField(program.MembersTab, field), fields[field]);
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

void MemberFieldClicked(Program& program, int field)
{
    program.Member.ClickedFieldText = ControlOfField(program.MembersTab, field)->text();
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
    const QStringList fields = FormFields(program.MembersTab);
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

void EnterReadings(Program& program)
{
    ReplaceRecord(program.Members, program.Member.CurrentMember, FormFields(program.MembersTab));
    ComputeDifferences(program);
    WriteMembers(program, program.Members,
        QStringLiteral("Die Zählerstände stehen noch im Formular: Drücken Sie, sobald das "
                       "behoben ist, noch einmal „OK“."));
    LoadYear(program);
}

void StepMember(Program& program, int direction)
{
    if (DiffersFromRecordOrFile(program))
        EnterReadings(program);
    const int next
        = NeighbourOf(program.Member.CurrentMember, direction, program.Members.RecordList.size());
    QLineEdit* end_reading = program.MembersTab.Text1[1];
    end_reading->setFocus(); // before a member that cannot be shown whole ends this
    SelectMember(program, next);
    end_reading->selectAll();
}
