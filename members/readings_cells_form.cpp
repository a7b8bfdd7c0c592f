// The cells of the readings' table: what they show, how keys lead through them, what becomes of a
// typed reading. The window around them is readings_form.
#include "members/readings_cells_form.h"

#include "app/program.h"
#include "app/texts.h"
#include "controls/fields.h"
#include "data/ansi_text.h"
#include "data/german_numbers.h"
#include "members/readings_table.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

/// Columns of the table: the member, then the same four for each meter.
enum Column { PlotColumn, NameColumn, FirstMeterColumn };
enum MeterColumn { StartColumn, EndColumn, ConsumptionColumn, LastYearColumn, MeterColumns };

constexpr int widest_column = 40; // characters

int ColumnOf(std::size_t meter, MeterColumn column)
{
    return FirstMeterColumn + static_cast<int>(meter) * MeterColumns + column;
}

bool IsEndColumn(int column)
{
    return column >= FirstMeterColumn && (column - FirstMeterColumn) % MeterColumns == EndColumn;
}

/// The meter of a column behind the name.
std::size_t MeterOf(int column)
{
    return static_cast<std::size_t>((column - FirstMeterColumn) / MeterColumns);
}

bool IsShown(ShownMeters shown, std::size_t meter)
{
    return shown == ShownMeters::Both
        || (shown == ShownMeters::Electricity) == (Meters.at(meter) == ElectricityStart);
}

// --- showing ----------------------------------------------------------------------------------

void ShowCell(QTableWidget* table, int row, int column, const QString& text)
{
    QTableWidgetItem* item = table->item(row, column);
    if (item == nullptr) {
        item = new QTableWidgetItem;
        table->setItem(row, column, item);
        item->setFlags(IsEndColumn(column)
                ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable
                : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (column != NameColumn)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    item->setText(text);
}

void TintCell(QTableWidgetItem* item, TintKind kind, const QString& reason)
{
    for (const int role : { Qt::ToolTipRole, Qt::AccessibleDescriptionRole })
        item->setData(role, reason.isEmpty() ? QVariant() : reason);
    item->setBackground(kind == TintKind::None ? QBrush(Qt::NoBrush)
                                               : QBrush(TintedGround(item->tableWidget(), kind)));
}

TintKind TintOfDoubt(ReadingDoubt doubt)
{
    if (doubt == ReadingDoubt::None)
        return TintKind::None;
    return doubt == ReadingDoubt::BelowStart ? TintKind::Wrong : TintKind::Doubtful;
}

/// The member's row as the record has it.
void ShowRow(Program& program, int row)
{
    QTableWidget* table = program.Readings.ReadingsTable;
    const QSignalBlocker not_typed(table);
    const MemberRecord fields = SplitRecord(program.Members.RecordList.value(row));
    ShowCell(table, row, PlotColumn, FieldOrEmpty(fields, PlotNumber));
    ShowCell(table, row, NameColumn, NameEntry(fields));
    for (std::size_t meter = 0; meter < Meters.size(); ++meter) {
        const MeterReading reading = ReadingOf(program.Members, row, Meters.at(meter));
        ShowCell(table, row, ColumnOf(meter, StartColumn), reading.Start);
        ShowCell(table, row, ColumnOf(meter, EndColumn), reading.End);
        ShowCell(table, row, ColumnOf(meter, ConsumptionColumn), reading.Consumption);
        ShowCell(table, row, ColumnOf(meter, LastYearColumn), reading.LastConsumption);
        for (const MeterColumn column : { EndColumn, ConsumptionColumn })
            TintCell(table->item(row, ColumnOf(meter, column)), TintOfDoubt(reading.Doubt),
                DoubtText(reading.Doubt, reading.LastConsumption));
    }
}

// --- walking ----------------------------------------------------------------------------------

std::size_t FirstMeter(const Program& program)
{
    return program.Readings.Shown == ShownMeters::Water ? 1 : 0;
}

void GoTo(const Program& program, int row, std::size_t meter)
{
    program.Readings.ReadingsTable->setCurrentCell(row, ColumnOf(meter, EndColumn));
}

/// One member further in the same meter; behind the last one the next meter begins.
void StepDown(Program& program)
{
    const QTableWidget* table = program.Readings.ReadingsTable;
    const bool end = IsEndColumn(table->currentColumn());
    const std::size_t meter = end ? MeterOf(table->currentColumn()) : FirstMeter(program);
    if (table->currentRow() + 1 < table->rowCount())
        GoTo(program, table->currentRow() + 1, meter);
    else if (meter + 1 < Meters.size() && IsShown(program.Readings.Shown, meter + 1))
        GoTo(program, 0, meter + 1);
}

void StepUp(Program& program)
{
    const QTableWidget* table = program.Readings.ReadingsTable;
    const bool end = IsEndColumn(table->currentColumn());
    if (table->currentRow() > 0)
        GoTo(program, table->currentRow() - 1,
            end ? MeterOf(table->currentColumn()) : FirstMeter(program));
}

/// True for a key that leads from one reading to another; the walk is done then.
bool Walk(Program& program, const QKeyEvent& key)
{
    if (key.modifiers() != Qt::NoModifier && key.modifiers() != Qt::KeypadModifier)
        return false;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        StepDown(program);
        return true;
    case Qt::Key_Up:
        StepUp(program);
        return true;
    default:
        return false;
    }
}

// --- typing -----------------------------------------------------------------------------------

/// A text that is no number stays in its cell, tinted, until it is one.
void CellTyped(Program& program, QTableWidgetItem* item)
{
    const int row = item->row();
    const MemberField start = Meters.at(MeterOf(item->column()));
    const QString text = AsStored(item->text());
    const QString stored = ReadingOf(program.Members, row, start).End;
    if (!text.isEmpty() && !IsNumber(text)) {
        const QSignalBlocker not_typed(program.Readings.ReadingsTable);
        return TintCell(item, TintKind::Wrong,
            u"Hier wird eine Zahl erwartet; gespeichert ist „%1“."_s.arg(stored));
    }
    if (text != stored)
        RunStep(program, [&](Program& p) {
            StoreTypedReading(p, row, static_cast<MemberField>(start + 1), text);
        });
    ShowRow(program, row);
    ShowReadingsSums(program);
}

// --- building ---------------------------------------------------------------------------------

/// The field of a cell is one of the program's own; Enter and the arrow keys leave it.
class ReadingDelegate : public QStyledItemDelegate {
public:
    ReadingDelegate(Program& program, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_program(program)
    {
    }

    QWidget* createEditor(
        QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override
    {
        QLineEdit* field = MakeField(parent, FieldKind::Amount, 1,
            index.model()->headerData(index.column(), Qt::Horizontal).toString());
        field->setFrame(false);
        return field;
    }

    bool eventFilter(QObject* editor, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            const bool leaves = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter
                || key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
            if (leaves) {
                auto* field = static_cast<QWidget*>(editor);
                Q_EMIT commitData(field);
                Q_EMIT closeEditor(field, NoHint);
                return Walk(m_program, key);
            }
        }
        return QStyledItemDelegate::eventFilter(editor, event);
    }

private:
    Program& m_program;
};

/// The first member without an electricity reading, else the first member.
int FirstMissing(const Program& program)
{
    for (int row = 0; row < program.Members.RecordList.size(); ++row) {
        if (ReadingOf(program.Members, row, Meters.at(FirstMeter(program))).End.isEmpty())
            return row;
    }
    return 0;
}

} // namespace

QTableWidget* BuildReadingsTable(Program& program, QWidget* window)
{
    auto* table = Named(
        new QTableWidget(0, ColumnOf(Meters.size(), StartColumn), window), u"ReadingsTable"_s);
    table->setAccessibleName(u"Zählerstände aller Mitglieder"_s);
    table->setHorizontalHeaderLabels(
        { u"Garten"_s, u"Name"_s, u"Strom Anfang"_s, u"Strom Ende"_s, u"KWh"_s, u"Vorjahr KWh"_s,
            u"Wasser Anfang"_s, u"Wasser Ende"_s, u"m³"_s, u"Vorjahr m³"_s });
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setMaximumSectionSize(
        table->fontMetrics().averageCharWidth() * widest_column);
    table->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked
        | QAbstractItemView::EditKeyPressed);
    table->setTabKeyNavigation(false); // Tab goes on to the buttons
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setItemDelegate(new ReadingDelegate(program, table));
    OnEvent(program, table, QEvent::KeyPress,
        [](Program& p, QEvent& event) { return Walk(p, static_cast<const QKeyEvent&>(event)); });
    On(program, table, &QTableWidget::itemChanged, CellTyped);
    return table;
}

void ShowReadingsTable(Program& program)
{
    QTableWidget* table = program.Readings.ReadingsTable;
    table->setRowCount(static_cast<int>(program.Members.RecordList.size()));
    for (int row = 0; row < table->rowCount(); ++row)
        ShowRow(program, row);
    ShowReadingsSums(program);
}

void ShowMeters(Program& program, ShownMeters shown)
{
    ReadingsForm& form = program.Readings;
    form.Shown = shown;
    for (std::size_t meter = 0; meter < Meters.size(); ++meter) {
        const bool hidden = !IsShown(shown, meter);
        for (int column = 0; column < MeterColumns; ++column)
            form.ReadingsTable->setColumnHidden(
                ColumnOf(meter, static_cast<MeterColumn>(column)), hidden);
        form.Sums.at(meter)->setHidden(hidden);
    }
}

void GoToFirstMissing(Program& program)
{
    GoTo(program, FirstMissing(program), FirstMeter(program));
}

void NextMeters(Program& program)
{
    const int row = qMax(0, program.Readings.ReadingsTable->currentRow());
    const auto next = (static_cast<int>(program.Readings.Shown) + 1) % 3;
    ShowMeters(program, static_cast<ShownMeters>(next));
    GoTo(program, row, FirstMeter(program));
}
