// Members file: loaded, rolled forward and saved through real files, against a second, naive
// splitting of its bytes. The input is this year's file, then a line "====", then last year's.
#include "data/ansi_text.h"
#include "data/german_numbers.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch.h"
#include "members/member_lists.h"

#include <QStringList>

namespace {

using namespace Qt::StringLiterals;

QString Part(const QString& record, int position) { return record.split(u';').value(position); }

void CheckLists(const MemberLists& lists, const QStringList& lines)
{
    Require(lists.RecordList == lines && lists.StoredList == lines, "every line is a record");
    Require(lists.NameList.size() == lines.size() && lists.CashBookNameList == lists.NameList
            && lists.InstalmentList.size() == lines.size(),
        "the lists are parallel");
    for (qsizetype k = 0; k < lines.size(); ++k) {
        Require(
            lists.NameList[k] == Part(lines[k], 0) + u',' + Part(lines[k], 1), "name", lines[k]);
        Require(lists.InstalmentList[k] == Part(lines[k], 7), "instalments", lines[k]);
    }
}

// Field by field; an error exactly when a record is short.
void CheckRollForward(const QStringList& lines)
{
    bool short_record = false;
    QStringList expected;
    for (const QString& line : lines) {
        QStringList fields = line.split(u';');
        short_record = short_record || fields.size() < 16;
        fields.resize(16);
        expected += fields.mid(0, 12).join(u';') + u';' + fields[13] + u";;"_s + fields[15] + u';';
    }
    try {
        const QStringList rolled = RollReadingsForward(lines, u"Mitgliedsdaten2015.pz"_s);
        Require(!short_record, "a short record is an error", lines.join(u'\n'));
        Require(rolled == expected, "end readings become start readings", rolled.join(u'\n'));
    } catch (const RuntimeError& error) {
        Require(short_record && error.kind == ErrorKind::SubscriptOutOfRange, "only a short one",
            lines.join(u'\n'));
        Require(
            error.where.line > 0 && !error.where.remedy.isEmpty(), "says where", lines.join(u'\n'));
    }
}

void CheckDifferences(const QStringList& lines)
{
    for (const QString& line : lines) {
        const QString start = Part(line, 12);
        const QString end = Part(line, 13);
        try {
            const QString difference = MeterDifference(start, end, {}, {});
            Require(difference.isEmpty() == (start.isEmpty() || end.isEmpty()), "empty", line);
            if (!difference.isEmpty())
                Require(
                    difference == TextOfDouble(ParseDouble(end).value - ParseDouble(start).value),
                    "end minus start", line);
        } catch (const RuntimeError&) {
            Require(!IsNumber(start) || !IsNumber(end), "an error only without two numbers", line);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    const qsizetype mark = input.indexOf("====\n");
    const QByteArray this_year = mark < 0 ? input : input.left(mark);
    const QStringList lines = NaiveLines(this_year);

    const DataFiles files = EmptyScratchFiles();
    PutFile(files, "Mitgliedsdaten2016.pz", this_year);
    if (mark >= 0)
        PutFile(files, "Mitgliedsdaten2015.pz", input.mid(mark + 5));

    MemberLists lists;
    ReadPreviousYear(lists, files, u"2016"_s);
    ReadMembersFile(lists, files, u"2016"_s);
    CheckLists(lists, lines);
    Require(lists.PreviousYearMissing == (mark < 0), "last year's file is seen");
    if (mark >= 0)
        Require(lists.PreviousYearList == NaiveLines(input.mid(mark + 5)), "and read");
    CheckRollForward(lines);
    CheckDifferences(lines);

    WriteMembersFile(lists, files, u"2016"_s);
    const QByteArray saved = FileBytes(files, "Mitgliedsdaten2016.pz");
    QByteArray expected = this_year;
    if (!this_year.contains('\r'))
        expected.replace("\n", "\r\n"); // as the program writes it
    const bool closed = expected.isEmpty() || expected.endsWith("\r\n");
    Require(saved == (closed ? expected : expected + "\r\n"), "every byte survives",
        QString::fromLatin1(this_year.toPercentEncoding()));
    return 0;
}
