// The fields of the tab "Stammdaten": how they are made, filled, read and tinted. The buttons and
// what they do stand in member_form.
#include "members/member_fields_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/records.h"
#include "members/member_editing.h"
#include "members/member_marks_form.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

constexpr int text_characters = 22; // at least; they grow with the window
constexpr int number_characters = 10;
constexpr int all_columns = -1; // of a grid: as far as it goes

/// Columns of the grid in the frame "Adresse": two number fields stand side by side, texts take the
/// whole width.
enum AddressColumn { Caption, Field, Unit, SecondCaption, SecondField, SecondUnit, Rest };

QGridLayout* MakeGrid(QGroupBox* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(FrameSpacing, FrameSpacing, FrameSpacing, FrameSpacing);
    grid->setSpacing(FrameSpacing);
    return grid;
}

QString UnitOf(int field)
{
    if (field == PlotSize)
        return QStringLiteral("m²");
    if (field == Instalments)
        return QStringLiteral("anzahl");
    return field >= LiabilityPremium ? QStringLiteral("€") : QString();
}

void AddField(MemberForm& form, QGroupBox* frame, int field, int row, int column)
{
    const auto index = static_cast<std::size_t>(field);
    const bool is_short = field >= PlotNumber;
    const QString caption = MemberFieldCaption(field);
    const QString unit = UnitOf(field);
    QLineEdit* control = MakeField(frame, field >= PlotSize ? FieldKind::Amount : FieldKind::Text,
        is_short ? number_characters : text_characters, caption, unit);
    form.Text3[index] = Named(control, QStringLiteral("Text3"), field);

    QGridLayout* grid = GridOf(frame);
    grid->addWidget(MakeCaption(frame, caption, control), row, column);
    if (is_short)
        grid->addWidget(control, row, column + 1);
    else
        grid->addWidget(control, row, column + 1, 1, all_columns);
    if (field == Instalments) // alone in its row: a long unit must not push the second column away
        grid->addWidget(MakeCaption(frame, unit), row, column + 2, 1, all_columns);
    else if (!unit.isEmpty())
        grid->addWidget(MakeCaption(frame, unit), row, column + 2);
}

QHBoxLayout* BuildHeading(QGroupBox* frame, const QString& text)
{
    auto* line = new QFrame(frame);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Mid); // on a dark desktop too no more than a hint of a line
    auto* row = new QHBoxLayout;
    row->addWidget(MakeCaption(frame, text));
    row->addWidget(line, 1);
    return row;
}

QGroupBox* MakeMeter(
    MemberForm& form, QWidget* parent, const QString& name, const QString& unit, int first)
{
    auto* frame = new QGroupBox(name, parent);
    QGridLayout* grid = MakeGrid(frame);
    const std::array<QString, 3> captions { QStringLiteral("Anfangsstand"),
        QStringLiteral("Endstand"), QStringLiteral("Differenz") };
    for (int row = 0; row < 3; ++row) {
        const QString& caption = captions[static_cast<std::size_t>(row)];
        const int index = first + row;
        QLineEdit* field = MakeField(frame, row == 2 ? FieldKind::DisplayOnly : FieldKind::Amount,
            number_characters, caption + QLatin1Char(' ') + name, unit);
        form.Text1[static_cast<std::size_t>(index)] = Named(field, QStringLiteral("Text1"), index);
        grid->addWidget(MakeCaption(frame, caption, field), row, Caption);
        grid->addWidget(field, row, Field);
        grid->addWidget(MakeCaption(frame, unit), row, Unit);
    }
    grid->setColumnMinimumWidth(
        Unit, // the same in both frames, whose fields stand below each other
        frame->fontMetrics().horizontalAdvance(QStringLiteral("KWh")));
    grid->setColumnStretch(Rest, 1);
    return frame;
}

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

/// A difference stays as it is while one of its readings is empty.
void ComputeDifference(Program& program, MemberField start, MemberField end)
{
    const MemberRecord fields = TypedRecord(program.MembersTab);
    const auto place = [&](MemberField field) {
        return ReadingPlace(program.Year.LoadedYear, program.Member.CurrentMember, fields, field);
    };
    const QString difference
        = MeterDifference(fields[start], fields[end], place(start), place(end));
    if (!difference.isEmpty())
        DifferenceOf(program.MembersTab, start)->setText(difference);
}

/// What ConnectFields does for one of the fields of the frame "Adresse".
void ConnectAddressField(Program& program, int field)
{
    OnEvent(program, ControlOfField(program.MembersTab, field), QEvent::MouseButtonPress,
        [field](Program& p, QEvent& event) {
            if (static_cast<QMouseEvent&>(event).button() == Qt::LeftButton)
                MemberFieldClicked(p, field); // the right one opens the menu, "Einfügen" for one
            return false;
        });
}

void ConnectFields(Program& program, int first, int last)
{
    for (int field = first; field <= last; ++field) {
        On(program, ControlOfField(program.MembersTab, field), &QLineEdit::textChanged,
            [field](Program& p) {
                ShowFieldState(p, field);
                ShowUnsaved(p);
            });
        if (field < ElectricityStart)
            ConnectAddressField(program, field);
    }
}

void ConnectDifference(Program& program, MemberField start)
{
    On(program, DifferenceOf(program.MembersTab, start), &QLineEdit::textChanged,
        [start](Program& p) { ShowDifferenceState(p, start); });
}

} // namespace

QGroupBox* BuildAddressFields(Program& program, QWidget* parent)
{
    MemberForm& form = program.MembersTab;
    auto* frame = new QGroupBox(QStringLiteral("Adresse"), parent);
    QGridLayout* grid = MakeGrid(frame);
    QLabel* hint = MakeCaption(frame,
        QStringLiteral("Bitte tragen Sie hier die Mitglieder am besten nach Gartennummer ein. "));
    hint->setWordWrap(true);
    int row = 0;
    grid->addWidget(MakeShiftNotice(program, frame), row++, Caption, 1, all_columns);
    grid->addWidget(hint, row++, Caption, 1, all_columns);
    for (int field = Surname; field <= Telephone; ++field)
        AddField(form, frame, field, row++, Caption);
    AddField(form, frame, PlotNumber, row, Caption);
    AddField(form, frame, PlotSize, row++, SecondCaption);
    AddField(form, frame, Instalments, row++, Caption);
    grid->addLayout(
        BuildHeading(frame, QStringLiteral("Versicherungen")), row++, Caption, 1, all_columns);
    AddField(form, frame, LiabilityPremium, row, Caption);
    AddField(form, frame, LegalPremium, row++, SecondCaption);
    AddField(form, frame, AccidentPremium, row, Caption);
    AddField(form, frame, BuildingPremium, row++, SecondCaption);
    for (int premium = LiabilityPremium; premium <= BuildingPremium; ++premium)
        form.Text3[static_cast<std::size_t>(premium)]->setText(QStringLiteral("0,00"));
    grid->setColumnStretch(Rest, 1);
    // a gap behind the unit, so that the next caption does not seem to belong to it
    grid->setColumnMinimumWidth(Unit, frame->fontMetrics().averageCharWidth() * 3);
    ConnectFields(program, Surname, BuildingPremium);
    return frame;
}

void BuildMeterFields(Program& program, QGroupBox* frame)
{
    QVBoxLayout* column = ColumnOf(frame);
    MemberForm& form = program.MembersTab;
    column->addWidget(MakeMeter(form, frame, QStringLiteral("Strom"), QStringLiteral("KWh"), 0));
    column->addWidget(MakeMeter(form, frame, QStringLiteral("Wasser"), QStringLiteral("m³"), 3));
    ConnectFields(program, ElectricityStart, WaterEnd);
    ConnectDifference(program, ElectricityStart);
    ConnectDifference(program, WaterStart);
    std::vector<QLineEdit*> record;
    record.reserve(MemberFieldCount);
    for (int field = 0; field < MemberFieldCount; ++field)
        record.push_back(ControlOfField(form, field));
    ShareOneLine(record, LongestLine);
}

QLineEdit* ControlOfField(const MemberForm& form, int field)
{
    const auto index = static_cast<std::size_t>(field);
    if (field < ElectricityStart)
        return form.Text3.at(index);
    constexpr std::array<std::size_t, 4> readings { 0, 1, 3, 4 }; // 2 and 5 are the differences
    return form.Text1.at(readings.at(index - ElectricityStart));
}

QLineEdit* DifferenceOf(const MemberForm& form, MemberField start)
{
    return form.Text1.at(start == ElectricityStart ? 2 : 5);
}

MemberRecord TypedRecord(const MemberForm& form)
{
    MemberRecord fields;
    for (int field = 0; field < MemberFieldCount; ++field)
        fields += ControlOfField(form, field)->text();
    return fields;
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

void ShowRecord(Program& program, const MemberRecord& fields)
{
    for (int field = 0; field < MemberFieldCount && field < fields.size(); ++field)
        ShowText(ControlOfField(program.MembersTab, field), fields[field]);
}

void ComputeDifferences(Program& program)
{
    const MemberForm& form = program.MembersTab;
    ComputeDifference(program, ElectricityStart, ElectricityEnd);
    ComputeDifference(program, WaterStart, WaterEnd);
    program.Member.ElectricityDifference = DifferenceOf(form, ElectricityStart)->text();
    program.Member.WaterDifference = DifferenceOf(form, WaterStart)->text();
}

void MemberFieldClicked(Program& program, int field)
{
    program.Member.ClickedFieldText = ControlOfField(program.MembersTab, field)->text();
}
