#include "check/align_form.h"

#include "app/program.h"
#include "app/texts.h"
#include "check/alignment.h"
#include "check/check_form.h"
#include "check/finding.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "data/line_file.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum Column { PlaceColumn, MemberColumn, LineColumn, OfferColumn, FirstReading, ColumnCount = 8 };
constexpr int reading_count = 4;
constexpr int first_width = 1100; // pixels
constexpr int first_height = 640;

const QString title = u"Vorjahr abgleichen"_s;

QWidget* AlignWindow(const Program& program)
{
    return program.Window.Window->findChild<QWidget*>(u"AlignWindow"_s);
}

QTableWidget* Table(const Program& program)
{
    return Find<QTableWidget>(AlignWindow(program), u"AlignList"_s);
}

void Say(Program& program, const QString& text)
{
    MessageBox box;
    box.text = text;
    box.title = title;
    box.icon = BoxIcon::Information;
    program.Ask(box);
}

// --- showing ----------------------------------------------------------------------------------

QTableWidgetItem* TextItem(const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

QTableWidgetItem* OfferItem(const AlignRow& row)
{
    QTableWidgetItem* item = TextItem(row.offer);
    item->setToolTip(row.offer);
    if (!IsOffer(row))
        return item;
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    return item;
}

void ShowRow(QTableWidget* table, int number, const AlignRow& row)
{
    const QString place = row.member < 0 ? QString() : QString::number(row.member + 1);
    table->setItem(number, PlaceColumn, TextItem(place));
    table->setItem(number, MemberColumn, TextItem(row.member_name));
    table->setItem(
        number, LineColumn, TextItem(row.kind == AlignKind::Moved ? QString() : row.line_name));
    table->setItem(number, OfferColumn, OfferItem(row));
    for (int reading = 0; reading < reading_count; ++reading) {
        QTableWidgetItem* item = TextItem({});
        if (row.kind == AlignKind::Missing)
            item->setFlags(item->flags() | Qt::ItemIsEditable);
        table->setItem(number, FirstReading + reading, item);
    }
}

void ShowLists(Program& program)
{
    QTableWidget* table = Table(program);
    const QString& year = program.Year.LoadedYear;
    const QString before = PreviousYear(year);
    const std::vector<AlignRow> rows
        = AlignLists(program.Members.RecordList, program.Members.PreviousYearList);
    table->clear();
    table->setHorizontalHeaderLabels({ u"Platz"_s, year, before, u"Angebot"_s, u"Strom Anfang"_s,
        u"Strom Ende"_s, u"Wasser Anfang"_s, u"Wasser Ende"_s });
    table->setRowCount(static_cast<int>(rows.size()));
    bool any = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ShowRow(table, static_cast<int>(i), rows[i]);
        any = any || IsOffer(rows[i]);
    }
    table->resizeColumnsToContents();
    Find<QLabel>(AlignWindow(program), u"AlignText"_s)
        ->setText(any
                ? u"Setzen Sie ein Häkchen vor alles, was in der Liste von %1 geändert werden "
                  "soll. Zählerstände von %1 lassen sich in die Zeile schreiben."_s.arg(before)
                : u"Die Listen von %1 und %2 passen zueinander."_s.arg(before, year));
    Find<QPushButton>(AlignWindow(program), u"AlignApply"_s)->setEnabled(any);
}

// --- carrying out -----------------------------------------------------------------------------

std::vector<AlignChoice> Ticked(const QTableWidget* table)
{
    std::vector<AlignChoice> choices;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem* offer = table->item(row, OfferColumn);
        if (offer->checkState() != Qt::Checked || !(offer->flags() & Qt::ItemIsUserCheckable))
            continue;
        AlignChoice choice { static_cast<std::size_t>(row) };
        for (int reading = 0; reading < reading_count; ++reading)
            choice.readings[reading]
                = table->item(row, FirstReading + reading)->text().remove(u';').trimmed();
        choices.push_back(choice);
    }
    return choices;
}

QString LinesText(qsizetype count) { return CountOf(count, u"Zeile"_s, u"Zeilen"_s); }

bool Confirmed(Program& program, const QString& file, const AlignedYear& aligned)
{
    MessageBox box;
    box.text = u"Die Datei %1 wird geändert: %2 dazu, %3 weg."_s.arg(
        file, LinesText(aligned.added), LinesText(aligned.removed));
    box.title = title;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    if (!CheckSourceOf(program).Unsaved.empty())
        box.detail = u"Danach wird das Jahr neu geladen; was nicht gespeichert ist, geht dabei "
                     "verloren."_s;
    return program.Ask(box) == BoxAnswer::Yes;
}

void Apply(Program& program) // AlignApply
{
    const std::vector<AlignChoice> choices = Ticked(Table(program));
    if (choices.empty())
        return Say(program, u"Es ist kein Häkchen gesetzt."_s);
    const MemberLists& lists = program.Members;
    const QString name = MembersFileName(PreviousYear(program.Year.LoadedYear));
    const QString file = FileNameOf(name);
    const bool current = program.Year.LoadedYear == program.Year.YearText
        && ReadLines(program.Files, name) == lists.PreviousYearList;
    if (!current)
        return Say(program,
            u"Gezeigt wird nicht, was in der Datei %1 steht. Drücken Sie zuerst „Laden“."_s.arg(
                file));
    const AlignedYear aligned = CarryOut(AlignLists(lists.RecordList, lists.PreviousYearList),
        choices, lists.RecordList, lists.PreviousYearList);
    if (!Confirmed(program, file, aligned))
        return;
    RewriteLines(program.Files, name, aligned.lines);
    LoadYear(program);
    ShowLists(program);
}

// --- building ---------------------------------------------------------------------------------

QTableWidget* BuildTable(QWidget* window)
{
    auto* table = Named(new QTableWidget(0, ColumnCount, window), u"AlignList"_s);
    table->setAccessibleName(u"Beide Jahre nebeneinander"_s);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    MakeRowsRoomy(table);
    return table;
}

void BuildWindow(Program& program)
{
    auto* window = Named(new QWidget(program.Window.Window, Qt::Window), u"AlignWindow"_s);
    window->setWindowTitle(title + u" – "_s + WindowCaption);
    auto* text = Named(new QLabel(window), u"AlignText"_s);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* apply = Named(MakeButton(window, u"Ausführen"_s,
                            u"Führt die angehakten Angebote aus; vorher wird gefragt"_s),
        u"AlignApply"_s);
    auto* close = Named(
        MakeButton(window, u"Schließen"_s, u"Schließt das Fenster (Esc)"_s), u"AlignClose"_s);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(FrameSpacing);
    buttons->addStretch();
    buttons->addWidget(apply);
    buttons->addWidget(close);
    auto* column = new QVBoxLayout(window);
    column->setSpacing(FrameSpacing);
    column->addWidget(text);
    column->addWidget(BuildTable(window), 1);
    column->addLayout(buttons);
    window->resize(SizeOnScreen(window, QSize(first_width, first_height)));
    On(program, apply, &QPushButton::clicked, Apply);
    const auto hide = [window](Program&) { window->hide(); };
    On(program, close, &QPushButton::clicked, hide);
    On(program, new QShortcut(QKeySequence(Qt::Key_Escape), window), &QShortcut::activated, hide);
}

} // namespace

void ShowAlignWindow(Program& program)
{
    if (!program.Members.PreviousYearRead)
        return Say(program, u"Es gibt keine Liste des Vorjahres, die abgeglichen werden könnte."_s);
    if (AlignWindow(program) == nullptr)
        BuildWindow(program);
    ShowLists(program);
    QWidget* window = AlignWindow(program);
    window->show();
    window->raise();
    window->activateWindow();
    Table(program)->setFocus();
}
