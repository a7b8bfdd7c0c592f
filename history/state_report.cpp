#include "history/state_report.h"

#include "data/records.h"
#include "history/file_kinds.h"
#include "history/ini_difference.h"
#include "history/kept_actions.h"
#include "history/sent_out.h"
#include "history/state_lines.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How often each line stands in the file now; each line of the state uses up one.
using LinesLeft = QHash<QString, int>;

LinesLeft CountLines(const std::optional<QByteArray>& now)
{
    LinesLeft left;
    const QStringList lines = LinesOfState(now.value_or(QByteArray()));
    for (const QString& line : lines)
        ++left[line];
    return left;
}

RowTint TintOf(LinesLeft& left, const QString& line)
{
    return left[line]-- > 0 ? RowTint::None : RowTint::Attention;
}

ReportTable TableWith(const QStringList& captions)
{
    ReportTable table;
    table.name = u"state"_s;
    table.columns.push_back({ u"Zeile"_s, ColumnKind::Number });
    for (const QString& caption : captions)
        table.columns.push_back({ caption });
    return table;
}

ReportRow RowOf(qsizetype number, const QStringList& texts, std::size_t columns, RowTint tint)
{
    ReportRow row;
    row.tint = tint;
    row.cells.push_back(NumberCell(QString::number(number), static_cast<double>(number)));
    for (std::size_t i = 1; i < columns; ++i)
        row.cells.push_back(TextCell(texts.value(static_cast<qsizetype>(i) - 1)));
    return row;
}

/// Fields beyond the last caption stand with the last one, as the line has them.
QStringList FieldsFor(const QString& line, qsizetype captions)
{
    QStringList fields = SplitRecord(line);
    if (fields.size() > captions)
        fields = fields.mid(0, captions - 1) << JoinRecord(fields.mid(captions - 1));
    return fields;
}

ReportTable TableOfLines(
    const QStringList& lines, const QStringList& captions, const std::optional<QByteArray>& now)
{
    ReportTable table = TableWith(captions);
    LinesLeft left = CountLines(now);
    for (qsizetype i = 0; i < lines.size(); ++i)
        table.rows.push_back(RowOf(i + 1, FieldsFor(lines[i], captions.size()),
            table.columns.size(), TintOf(left, lines[i])));
    return table;
}

ReportTable TableOfValues(
    FileKind kind, const QByteArray& content, const std::optional<QByteArray>& now)
{
    ReportTable table = TableWith({ u"Angabe"_s, u"Wert"_s });
    const QList<IniPlace> places = PlacesOfIni(content);
    for (const IniPlace& place : places) {
        const QString value = ValueOfIni(content, place);
        const bool is_now = now && ValueOfIni(*now, place) == value;
        table.rows.push_back(
            RowOf(static_cast<qsizetype>(table.rows.size()) + 1, { IniCaption(kind, place), value },
                table.columns.size(), is_now ? RowTint::None : RowTint::Attention));
    }
    return table;
}

ReportTable TableOfBills(const QByteArray& content)
{
    ReportTable table;
    table.columns = { { u"Seite"_s, ColumnKind::Number }, { u"Name"_s },
        { u"Betrag"_s, ColumnKind::Number } };
    const QList<SentBill> bills = BillsOfSentOut(content);
    for (const SentBill& bill : bills)
        table.rows.push_back({ { TextCell(QString::number(bill.Page)), TextCell(bill.Name),
            TextCell(bill.Total) } });
    return table;
}

QStringList MemberCaptions()
{
    QStringList captions;
    for (int field = 0; field < MemberFieldCount; ++field)
        captions += MemberFieldCaption(field);
    return captions;
}

ReportTable TableOf(const RedoRecord& state, const std::optional<QByteArray>& now)
{
    const QStringList lines = LinesOfState(state.content);
    const FileKind kind = KindOf(state.target).Kind;
    switch (kind) {
    case FileKind::Members:
        return TableOfLines(lines, MemberCaptions(), now);
    case FileKind::BankLedger:
    case FileKind::CashBoxLedger:
        return TableOfLines(
            lines, { u"Buchungsdatum"_s, u"Vorgang"_s, u"Einzahlung"_s, u"Abheben"_s }, now);
    case FileKind::Prices:
    case FileKind::Bank:
        return TableOfValues(kind, state.content, now);
    case FileKind::ClubName:
        return TableOfLines(lines, { u"Vereinsname"_s }, now);
    case FileKind::Other:
        break;
    }
    return TableOfLines({}, { u"Inhalt"_s }, now);
}

QString SumOf(const ReportTable& table)
{
    const auto marked = std::count_if(table.rows.cbegin(), table.rows.cend(),
        [](const ReportRow& row) { return row.tint == RowTint::Attention; });
    if (marked == 0)
        return u"Alles davon steht auch jetzt so in der Datei."_s;
    return marked == 1
        ? u"Farbig: 1 Zeile, die jetzt nicht mehr so in der Datei steht."_s
        : u"Farbig: %1 Zeilen, die jetzt nicht mehr so in der Datei stehen."_s.arg(marked);
}

} // namespace

Report StateReport(const RedoRecord& state, const std::optional<QByteArray>& now)
{
    const QString time = TimeOfState(state.Mark.Time);
    Report report;
    report.paper = PaperSide::Landscape;
    report.title = u"Verlauf: %1 – Kleingarten Parzello"_s.arg(FileCaption(state.target));
    if (state.Mark.How == Deed::SentOut) {
        AddHeading(report, 1, WordsOfSentOut(state.target, state.content) + u", "_s + time);
        report.items.emplace_back(TableOfBills(state.content));
        return report;
    }
    AddHeading(report, 1, u"%1, Stand vom %2"_s.arg(FileCaption(state.target), time));
    const ReportTable table = TableOf(state, now);
    if (KindOf(state.target).Kind == FileKind::Other) {
        AddSentence(report,
            u"Eine Datei von %1 Bytes, die nicht als Tabelle gezeigt werden kann."_s.arg(
                state.content.size()));
        return report;
    }
    AddSentence(report, SumOf(table));
    report.items.emplace_back(table);
    return report;
}
