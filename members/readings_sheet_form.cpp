#include "members/readings_sheet_form.h"

#include "app/program.h"
#include "app/texts.h"
#include "members/readings_table.h"

using namespace Qt::StringLiterals;

namespace {

ReportRow SheetRow(const MemberRecord& fields)
{
    ReportRow row;
    row.cells = { TextCell(FieldOrEmpty(fields, PlotNumber)), TextCell(NameEntry(fields)),
        TextCell(FieldOrEmpty(fields, ElectricityStart)), TextCell({}),
        TextCell(FieldOrEmpty(fields, WaterStart)), TextCell({}) };
    return row;
}

Report MakeSheet(Program& program, const ReportChoices&)
{
    const MemberLists& lists = program.Members;
    Report report;
    const QString caption = u"Ableseliste %1"_s.arg(program.Year.LoadedYear);
    report.title = caption + u" – "_s + WindowCaption;
    AddHeading(report, 1, caption);
    ReportTable table;
    table.look = TableLook::Sheet;
    table.columns
        = { { u"Garten"_s, ColumnKind::Text, false, 9 }, { u"Name"_s, ColumnKind::Text, false, 31 },
              { u"Strom zuletzt"_s, ColumnKind::Number, false, 14 },
              { u"Strom neu"_s, ColumnKind::Text, false, 16 },
              { u"Wasser zuletzt"_s, ColumnKind::Number, false, 14 },
              { u"Wasser neu"_s, ColumnKind::Text, false, 16 } };
    for (const int position : PositionsByPlot(lists))
        table.rows.push_back(SheetRow(SplitRecord(lists.RecordList[position])));
    report.items.emplace_back(table);
    return report;
}

} // namespace

void ShowReadingsSheet(Program& program)
{
    ShowReport(program, { u"ReadingsSheet"_s, u"Ableseliste"_s, MakeSheet, {} });
}
