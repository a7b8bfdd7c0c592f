#include "members/member_lists.h"

#include "data/dates.h"
#include "data/file_names.h"
#include "data/german_numbers.h"

#include <cmath>

namespace {

QString RolledForward(const QString& line, const Place& where)
{
    MemberRecord fields = SplitRecord(line);
    RequireWholeRecord(fields, where);
    fields = fields.mid(0, MemberFieldCount); // what stands behind the last field is not carried on
    fields[ElectricityStart] = fields[ElectricityEnd];
    fields[ElectricityEnd].clear();
    fields[WaterStart] = fields[WaterEnd];
    fields[WaterEnd].clear();
    return JoinRecord(fields);
}

} // namespace

void ReadMembersFile(MemberLists& lists, const DataFiles& files, const BillingYear& year_text)
{
    const QStringList lines = ReadLines(files, MembersFileName(year_text));
    MemberLists fresh;
    fresh.RecordList = lines;
    fresh.NameList.reserve(lines.size());
    fresh.InstalmentList.reserve(lines.size());
    for (const QString& line : lines) {
        fresh.NameList += NameEntryOfLine(line);
        fresh.InstalmentList += FieldOfLine(line, Instalments).toString();
    }
    fresh.CashBookNameList = fresh.NameList;
    fresh.StoredList = fresh.RecordList;
    fresh.PreviousYearList = lists.PreviousYearList;
    fresh.PreviousYearMissing = lists.PreviousYearMissing;
    fresh.PreviousYearRead = lists.PreviousYearRead;
    lists = fresh;
}

void ReadPreviousYear(MemberLists& lists, const DataFiles& files, const BillingYear& year_text)
{
    const QString name = MembersFileName(PreviousYear(year_text));
    const bool is_there = FileExists(files, name);
    lists.PreviousYearList = is_there ? ReadLines(files, name) : QStringList();
    lists.PreviousYearMissing = !is_there;
    lists.PreviousYearRead = is_there;
}

BothYears ReadBothYears(const DataFiles& files, const BillingYear& year_text)
{
    BothYears read;
    ReadMembersFile(read.Lists, files, year_text);
    try {
        ReadPreviousYear(read.Lists, files, year_text);
    } catch (const RuntimeError& error) {
        read.PreviousYearError = error;
        read.Lists.PreviousYearRead = true; // it is there, and has no line for anybody
    }
    return read;
}

void DropBlankLinesAtEnd(MemberLists& lists)
{
    while (!lists.RecordList.isEmpty() && lists.RecordList.last().trimmed().isEmpty()) {
        for (QStringList* list : { &lists.RecordList, &lists.StoredList, &lists.NameList,
                 &lists.CashBookNameList, &lists.InstalmentList })
            list->removeLast();
    }
}

QStringList RollReadingsForward(const QStringList& records, const QString& file_name)
{
    QStringList rolled;
    for (qsizetype k = 0; k < records.size(); ++k) {
        Place where;
        where.file = file_name;
        where.line = static_cast<int>(k) + 1;
        where.remedy
            = QStringLiteral("Die Zeile hat weniger als 16 Felder. Bitte mit dem linken Pfeil das "
                             "Vorjahr wählen, „Laden“ drücken, das Mitglied anklicken, seine "
                             "Angaben prüfen und „Speichern“ drücken. Danach das Programm neu "
                             "starten.");
        rolled += RolledForward(records[k], where);
    }
    return rolled;
}

void RequireWholeRecord(const MemberRecord& fields, const Place& where)
{
    const qsizetype count = fields.size();
    if (count >= MemberFieldCount)
        return;
    Place missing = where;
    missing.member = NameEntry(fields);
    missing.field = MemberFieldCaption(static_cast<int>(count));
    throw RuntimeError { ErrorKind::SubscriptOutOfRange, missing, {} };
}

void WriteMembersFile(
    const MemberLists& lists, const DataFiles& files, const BillingYear& year_text)
{
    RewriteLines(files, MembersFileName(year_text), lists.RecordList);
}

bool IsInFile(const MemberLists& lists, const DataFiles& files, const BillingYear& year_text)
{
    try {
        return ReadBytes(files, MembersFileName(year_text)) == BytesOfLines(lists.RecordList);
    } catch (const RuntimeError&) {
        return false; // the question follows an error that is shown
    }
}

QString MeterDifference(
    const QString& start, const QString& end, const Place& start_place, const Place& end_place)
{
    if (end.isEmpty() || start.isEmpty())
        return {};
    const double end_number = NumberOf(end, end_place);
    const double start_number = NumberOf(start, start_place);
    const double difference = end_number - start_number;
    if (!std::isfinite(difference))
        throw RuntimeError { ErrorKind::Overflow, end_place, {} };
    return TextOfDouble(difference);
}
