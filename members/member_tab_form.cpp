// Makes the controls of the tab "Stammdaten" and lays them out. What they do stands in
// member_form.cpp.
#include "app/program.h"
#include "controls/fields.h"
#include "controls/stacking.h"
#include "data/records.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int text_characters = 22; // at least; they grow with the window
constexpr int number_characters = 10;
constexpr int address_characters = 90; // at most, the whole frame: longer fields would stay empty
constexpr int list_characters = 16; // at least
constexpr int all_columns = -1; // of a grid: as far as it goes

/// Columns of the grid in the frame "Adresse": two number fields stand side by side, texts take the
/// whole width.
enum AddressColumn { Caption, Field, Unit, SecondCaption, SecondField, SecondUnit, Rest };

QGridLayout* GridOf(QGroupBox* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(FrameSpacing, FrameSpacing, FrameSpacing, FrameSpacing);
    grid->setSpacing(FrameSpacing);
    return grid;
}

QVBoxLayout* ColumnOf(QGroupBox* frame)
{
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(FrameSpacing, FrameSpacing, FrameSpacing, FrameSpacing);
    column->setSpacing(FrameSpacing);
    return column;
}

/// Lists are as high as the window allows and never make it scroll: the fields need the height
/// more.
void TakeLeftOverHeight(QWidget* list)
{
    list->setMinimumHeight(list->fontMetrics().lineSpacing() * 6); // some rows
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

QHBoxLayout* BuildYearChoice(MemberForm& form, QWidget* parent)
{
    form.Command3[1] = Named(MakeButton(parent, QStringLiteral("◄"),
                                 QStringLiteral("Ein Jahr zurück. Geladen wird es mit „Laden“.")),
        QStringLiteral("Command3"), 1);
    form.Command3[1]->setAccessibleName(QStringLiteral("Ein Jahr zurück"));
    form.Text2 = Named(MakeField(parent, FieldKind::DisplayOnly, 5, QStringLiteral("Jahr")),
        QStringLiteral("Text2"));
    form.Text2->setAlignment(Qt::AlignCenter);
    form.Text2->setMaximumWidth(form.Text2->fontMetrics().averageCharWidth() * number_characters);
    form.Command3[0] = Named(MakeButton(parent, QStringLiteral("►"),
                                 QStringLiteral("Ein Jahr vor. Geladen wird es mit „Laden“.")),
        QStringLiteral("Command3"), 0);
    form.Command3[0]->setAccessibleName(QStringLiteral("Ein Jahr vor"));
    form.Command4 = Named(
        MakeButton(parent, QStringLiteral("Laden"),
            QStringLiteral("Lädt die Mitglieder, Preise und Konten des Jahres, das links steht.")),
        QStringLiteral("Command4"));
    for (QPushButton* arrow : form.Command3)
        arrow->setFixedWidth(std::max(32, arrow->fontMetrics().averageCharWidth() * 4));
    form.Command4->setMinimumWidth(0); // this row decides how narrow the tab can be

    auto* row = new QHBoxLayout;
    row->setSpacing(FrameSpacing);
    row->addWidget(form.Command3[1]);
    row->addWidget(form.Text2, 1);
    row->addWidget(form.Command3[0]);
    row->addWidget(form.Command4);
    row->addStretch();
    return row;
}

QGroupBox* BuildNames(MemberForm& form, QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Mitglieder Namen"), parent);
    form.List1 = Named(new QListWidget(frame), QStringLiteral("List1"));
    form.List1->setAccessibleName(QStringLiteral("Mitglieder Namen"));
    form.List1->setUniformItemSizes(true); // quick with thousands of names
    form.List1->setMinimumWidth(form.List1->fontMetrics().averageCharWidth() * list_characters);
    form.List1->setToolTip(
        QStringLiteral("Pfeiltasten wählen ein Mitglied, Tippen sucht den Nachnamen."));
    MakeRowsRoomy(form.List1);
    TakeLeftOverHeight(form.List1);
    ColumnOf(frame)->addWidget(form.List1);
    return frame;
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

    auto* grid = static_cast<QGridLayout*>(frame->layout());
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

QGroupBox* BuildAddress(MemberForm& form, QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Adresse"), parent);
    QGridLayout* grid = GridOf(frame);
    QLabel* hint = MakeCaption(frame,
        QStringLiteral("Bitte tragen Sie hier die Mitglieder am besten nach Gartennummer ein. "));
    hint->setWordWrap(true);
    int row = 0;
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
    grid->setRowMinimumHeight(row++, FrameSpacing);
    grid->addLayout(BuildMemberButtons(form, frame), row++, Caption, 1, all_columns);
    grid->setRowStretch(row, 1);
    frame->setMaximumWidth(frame->fontMetrics().averageCharWidth() * address_characters);
    return frame;
}

QGroupBox* BuildMeter(
    MemberForm& form, QWidget* parent, const QString& name, const QString& unit, int first)
{
    auto* frame = new QGroupBox(name, parent);
    QGridLayout* grid = GridOf(frame);
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

QGroupBox* BuildReadings(Program& program, QWidget* parent)
{
    MemberForm& form = program.MembersTab;
    auto* frame = new QGroupBox(QStringLiteral("Zählerstände"), parent);
    QGroupBox* electricity
        = BuildMeter(form, frame, QStringLiteral("Strom"), QStringLiteral("KWh"), 0);
    QGroupBox* water = BuildMeter(form, frame, QStringLiteral("Wasser"), QStringLiteral("m³"), 3);
    form.Command2 = Named(
        MakeButton(frame, QStringLiteral("OK"),
            QStringLiteral("Speichert die Zählerstände (Eingabetaste in einem Zählerstand). "
                           "Strg+Pfeil ab oder auf speichert sie und zeigt das nächste oder das "
                           "vorige Mitglied.")),
        QStringLiteral("Command2"));
    MakePrimary(form.Command2);
    QVBoxLayout* column = ColumnOf(frame);
    column->addWidget(electricity);
    column->addWidget(water);
    column->addWidget(form.Command2, 0, Qt::AlignLeft);

    const auto step_key = [&](int key, int direction) {
        auto* shortcut = new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | key), frame);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        On(program, shortcut, &QShortcut::activated,
            [direction](Program& p) { StepMember(p, direction); });
    };
    step_key(Qt::Key_Down, 1);
    step_key(Qt::Key_Up, -1);
    return frame;
}

QGroupBox* BuildOverview(MemberForm& form, QWidget* parent)
{
    auto* frame = new QGroupBox(QStringLiteral("Mittglieder"), parent); // sic
    form.ListView2 = Named(new QTreeWidget(frame), QStringLiteral("ListView2"));
    form.ListView2->setAccessibleName(QStringLiteral("Mitglieder und ihre Sonderabrechnungen"));
    form.ListView2->setHeaderLabels({ QStringLiteral("Namen") });
    form.ListView2->setRootIsDecorated(false);
    form.ListView2->setUniformRowHeights(true);
    form.ListView2->setTabKeyNavigation(false);
    form.ListView2->setMinimumWidth(
        form.ListView2->fontMetrics().averageCharWidth() * list_characters);
    MakeRowsRoomy(form.ListView2);
    TakeLeftOverHeight(form.ListView2);
    ColumnOf(frame)->addWidget(form.ListView2);
    return frame;
}

} // namespace

void BuildMemberTab(Program& program, QWidget* tab)
{
    MemberForm& form = program.MembersTab;
    auto* left = new QVBoxLayout; // the controls are made in reading order, which is the Tab order
    left->setSpacing(TabSpacing);
    left->addLayout(BuildYearChoice(form, tab));
    left->addWidget(BuildNames(form, tab), 1);
    QGroupBox* address = BuildAddress(form, tab);
    auto* right = new QVBoxLayout;
    right->setSpacing(TabSpacing);
    right->addWidget(BuildReadings(program, tab));
    right->addWidget(BuildOverview(form, tab), 1);

    auto* member = new QBoxLayout(QBoxLayout::LeftToRight);
    member->setSpacing(TabSpacing);
    member->addWidget(address, 3);
    member->addLayout(right, 2);
    auto* row = new QHBoxLayout(tab);
    row->setContentsMargins(TabSpacing, TabSpacing, TabSpacing, TabSpacing);
    row->setSpacing(TabSpacing);
    row->addLayout(left, 2);
    row->addLayout(member, 5);
    StackWhenNarrow(member, row, tab);

    ConnectMemberTab(program);
}
