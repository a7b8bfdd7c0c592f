// The member lists of a year: reading, writing, rolling readings forward.
#include "members/member_lists.h"

#include "data/file_names.h"
#include "tests/support/error_of.h"
#include "tests/support/test_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray anna
    = "Bäcker,Anna;;;;;;;2;0,00;0,00;0,00;0,00;;;;"; // a comma of her own in the surname
const QByteArray berta = "Öhm;Berta;Weg 1;12345 Ort;0123;7;300;4;1,00;2,00;3,00;4,00;100;150;20;25";

struct Club {
    QTemporaryDir root;
    DataFiles files { root.filePath(u"data"_s), root.filePath(u"state"_s) };

    Club()
    {
        QDir().mkpath(files.DataDirectory);
        QDir().mkpath(files.StateDirectory);
    }

    void Put(const QString& year, const QByteArray& content) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get(const QString& year) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
};

QByteArray Ansi(const QByteArray& utf8) { return QString::fromUtf8(utf8).toLatin1(); }

} // namespace

class TestMemberLists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_files_of_a_year_are_named_without_padding()
    {
        QCOMPARE(MembersFileName(u"2016"_s), u"\\Mitgliedsdaten2016.pz"_s);
        QCOMPARE(MembersFileName(u"7"_s), u"\\Mitgliedsdaten7.pz"_s);
    }

    void reading_fills_four_lists_of_the_same_order()
    {
        const Club club;
        club.Put(u"2016"_s, Ansi(anna + "\r\n" + berta + "\r\n"));
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(
            lists.RecordList, QStringList({ QString::fromUtf8(anna), QString::fromUtf8(berta) }));
        QCOMPARE(lists.NameList, QStringList({ u"Bäcker,Anna,"_s, u"Öhm,Berta"_s }));
        QCOMPARE(lists.CashBookNameList, lists.NameList);
        QCOMPARE(lists.InstalmentList, QStringList({ u"2"_s, u"4"_s }));
        QCOMPARE(lists.StoredList, lists.RecordList);
    }

    void reading_again_does_not_append()
    {
        const Club club;
        club.Put(u"2016"_s, Ansi(berta + "\r\n"));
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        ReadMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(lists.RecordList.size(), 1);
        QCOMPARE(lists.InstalmentList.size(), 1);
    }

    void reading_keeps_the_previous_year()
    {
        const Club club;
        club.Put(u"2016"_s, Ansi(berta + "\r\n"));
        MemberLists lists;
        lists.PreviousYearList = QStringList({ u"a"_s });
        lists.PreviousYearRead = true;
        lists.PreviousYearMissing = true;
        ReadMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(lists.PreviousYearList, QStringList({ u"a"_s }));
        QVERIFY(lists.PreviousYearRead);
        QVERIFY(lists.PreviousYearMissing);
    }

    void a_load_and_a_save_give_the_same_bytes_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("runs of separators")
            << QByteArray("Maier;Max;;;;;;;0,00;0,00;0,00;0,00;;;;\r\n");
        QTest::newRow("umlauts") << Ansi(berta + "\r\n" + anna + "\r\n");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("an empty line") << QByteArray("a;b\r\n\r\nc;d\r\n");
        QTest::newRow("short record") << QByteArray("Kurz;Karl;Weg\r\n");
        QTest::newRow("long record") << QByteArray("a;b;c;d;e;f;g;h;i;j;k;l;m;n;o;p;q;r;s\r\n");
        QTest::newRow("blanks") << QByteArray("  a ; b  ;\t\r\n");
        QByteArray every_byte;
        for (int byte = 0; byte < 256; ++byte)
            every_byte += static_cast<char>(byte);
        QTest::newRow("every byte") << every_byte + "\r\n" + every_byte + every_byte + "\r\n";
    }

    void a_load_and_a_save_give_the_same_bytes()
    {
        QFETCH(QByteArray, content);
        const Club club;
        club.Put(u"2016"_s, content);
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        club.Put(u"2016"_s, "something else");
        WriteMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(club.Get(u"2016"_s), content);
    }

    void writing_uses_the_record_list_alone()
    {
        const Club club;
        MemberLists lists;
        lists.RecordList = QStringList({ u"eins"_s, u"Größe"_s });
        lists.NameList = QStringList({ u"x,y"_s });
        WriteMembersFile(lists, club.files, u"1999"_s);
        QCOMPARE(club.Get(u"1999"_s),
            QByteArray("eins\r\nGr\xf6\xdf"
                       "e\r\n"));
    }

    void only_the_very_bytes_of_the_list_count_as_written()
    {
        const Club club;
        MemberLists lists;
        lists.RecordList = QStringList({ u"Größe"_s });
        QVERIFY(!IsInFile(lists, club.files, u"2016"_s));
        WriteMembersFile(lists, club.files, u"2016"_s);
        QVERIFY(IsInFile(lists, club.files, u"2016"_s));
        QVERIFY(!IsInFile({}, club.files, u"2016"_s));
        lists.RecordList += u"more"_s;
        QVERIFY(!IsInFile(lists, club.files, u"2016"_s));
    }

    void an_empty_list_gives_a_file_of_zero_bytes_that_exists()
    {
        const Club club;
        club.Put(u"2016"_s, Ansi(berta + "\r\n"));
        WriteMembersFile({}, club.files, u"2016"_s);
        QCOMPARE(club.Get(u"2016"_s), QByteArray());
        QVERIFY(FileExists(club.files, MembersFileName(u"2016"_s)));
        MemberLists lists;
        lists.RecordList = QStringList({ u"old"_s });
        ReadMembersFile(lists, club.files, u"2016"_s);
        QVERIFY(lists.RecordList.isEmpty());
        QVERIFY(lists.NameList.isEmpty());
    }

    void short_lines_load_without_complaint()
    {
        const Club club;
        club.Put(u"2016"_s, "Nur\r\n\r\na;b;c;d;e;f;g;3\r\n");
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(lists.NameList, QStringList({ u"Nur,"_s, u","_s, u"a,b"_s }));
        QCOMPARE(lists.InstalmentList, QStringList({ QString(), QString(), u"3"_s }));
    }

    void a_file_that_cannot_be_read_leaves_the_lists()
    {
        const Club club;
        MemberLists lists;
        lists.RecordList = QStringList({ u"old"_s });
        const RuntimeError error = ErrorOf([&] { ReadMembersFile(lists, club.files, u"2016"_s); });
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.where.file, u"Mitgliedsdaten2016.pz"_s);
        QCOMPARE(lists.RecordList, QStringList({ u"old"_s }));
    }

    void more_members_than_positions_overflow_and_leave_the_lists()
    {
        const Club club;
        QByteArray content;
        for (int k = 0; k < 32767; ++k)
            content += "a;b\r\n";
        club.Put(u"2016"_s, content);
        club.Put(u"2017"_s, content + "one;more\r\n");
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        QCOMPARE(lists.RecordList.size(), 32767);
        const RuntimeError error = ErrorOf([&] { ReadMembersFile(lists, club.files, u"2017"_s); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.file, u"Mitgliedsdaten2017.pz"_s);
        QCOMPARE(lists.RecordList.size(), 32767);
    }

    void the_previous_year_is_read_unchanged()
    {
        const Club club;
        club.Put(u"2016"_s, Ansi(berta + "\r\nshort\r\n"));
        MemberLists lists;
        ReadPreviousYear(lists, club.files, u"2017"_s);
        QCOMPARE(lists.PreviousYearList, QStringList({ QString::fromUtf8(berta), u"short"_s }));
        QVERIFY(!lists.PreviousYearMissing);
        QVERIFY(lists.PreviousYearRead);
        ReadPreviousYear(lists, club.files, u"2017"_s);
        QCOMPARE(lists.PreviousYearList.size(), 2);
    }

    void a_missing_previous_year_empties_its_list()
    {
        const Club club;
        MemberLists lists;
        lists.PreviousYearList = QStringList({ u"old"_s });
        lists.PreviousYearRead = true;
        ReadPreviousYear(lists, club.files, u"2017"_s);
        QVERIFY(lists.PreviousYearList.isEmpty());
        QVERIFY(lists.PreviousYearMissing);
        QVERIFY(!lists.PreviousYearRead);
    }

    void a_last_year_that_cannot_be_read_keeps_no_year_shut()
    {
        const Club club;
        club.Put(u"2017"_s, "a;b\r\n");
        const QByteArray damaged = QByteArray(40000, 'x') + "\r\n";
        club.Put(u"2016"_s, damaged);
        const BothYears read = ReadBothYears(club.files, u"2017"_s);
        QCOMPARE(read.Lists.RecordList, QStringList { u"a;b"_s });
        QVERIFY(read.Lists.PreviousYearList.isEmpty());
        QVERIFY(read.Lists.PreviousYearRead);
        QCOMPARE(read.PreviousYearError->where.file, u"Mitgliedsdaten2016.pz"_s);
        const RuntimeError error = ErrorOf([&] { ReadBothYears(club.files, u"2016"_s); });
        QCOMPARE(error.where.file, u"Mitgliedsdaten2016.pz"_s);
    }

    void both_years_are_read_together()
    {
        const Club club;
        club.Put(u"2017"_s, "a;b\r\n");
        QVERIFY(ReadBothYears(club.files, u"2017"_s).Lists.PreviousYearMissing);
        club.Put(u"2016"_s, "c;d\r\n");
        const BothYears read = ReadBothYears(club.files, u"2017"_s);
        QCOMPARE(read.Lists.RecordList, QStringList { u"a;b"_s });
        QCOMPARE(read.Lists.PreviousYearList, QStringList { u"c;d"_s });
        QVERIFY(!read.PreviousYearError && !read.Lists.PreviousYearMissing);
    }

    void blank_lines_at_the_end_are_no_members()
    {
        const Club club;
        club.Put(u"2016"_s, "a;b\r\n\r\nc;d;e;f;g;h;i;3\r\n \t\r\n\r\n");
        MemberLists lists;
        ReadMembersFile(lists, club.files, u"2016"_s);
        DropBlankLinesAtEnd(lists);
        QCOMPARE(lists.RecordList, QStringList({ u"a;b"_s, QString(), u"c;d;e;f;g;h;i;3"_s }));
        QCOMPARE(lists.StoredList, lists.RecordList);
        QCOMPARE(lists.NameList, QStringList({ u"a,b"_s, u","_s, u"c,d"_s }));
        QCOMPARE(lists.CashBookNameList, lists.NameList);
        QCOMPARE(lists.InstalmentList, QStringList({ QString(), QString(), u"3"_s }));
        club.Put(u"2016"_s, "\r\n\r\n");
        ReadMembersFile(lists, club.files, u"2016"_s);
        DropBlankLinesAtEnd(lists);
        QVERIFY(lists.RecordList.isEmpty() && lists.NameList.isEmpty());
    }

    void rolling_forward_takes_end_readings_as_start_readings()
    {
        const QStringList rolled
            = RollReadingsForward({ QString::fromUtf8(berta), u"a;b;c;d;e;f;g;h;i;j;k;l;1;;2;"_s,
                                      u"a;b;c;d;e;f;g;h;i;j;k;l;1;2;3;4;behind;the;end"_s },
                u"Mitgliedsdaten2016.pz"_s);
        QCOMPARE(rolled.value(0),
            u"Öhm;Berta;Weg 1;12345 Ort;0123;7;300;4;1,00;2,00;3,00;4,00;150;;25;"_s);
        QCOMPARE(rolled.value(1), u"a;b;c;d;e;f;g;h;i;j;k;l;;;;"_s);
        QCOMPARE(rolled.value(2), u"a;b;c;d;e;f;g;h;i;j;k;l;2;;4;"_s);
        QCOMPARE(rolled.size(), 3);
        QVERIFY(RollReadingsForward({}, u"x"_s).isEmpty());
    }

    void rolling_a_short_record_forward_names_line_member_and_field()
    {
        const QStringList records
            = { QString::fromUtf8(berta), u"Kurz;Karl;c;d;e;f;g;h;i;j;k;l;1;2;3"_s };
        const RuntimeError error
            = ErrorOf([&] { RollReadingsForward(records, u"Mitgliedsdaten2016.pz"_s); });
        QCOMPARE(error.kind, ErrorKind::SubscriptOutOfRange);
        QCOMPARE(ErrorSentence(error),
            u"Datei „Mitgliedsdaten2016.pz“, Zeile 2, Mitglied „Kurz,Karl“, Feld „Endstand "
            u"Wasser“: Die Zeile hat weniger als 16 Felder. "
            u"Bitte mit dem linken Pfeil das Vorjahr wählen, „Laden“ drücken, das Mitglied "
            u"anklicken, seine Angaben prüfen und „Speichern“ drücken. Danach das Programm neu "
            u"starten."_s);
    }

    void a_difference_is_end_minus_start_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("difference");
        QTest::newRow("whole") << u"100"_s << u"452"_s << u"352"_s;
        QTest::newRow("comma") << u"100"_s << u"150,5"_s << u"50,5"_s;
        QTest::newRow("nothing used") << u"7,25"_s << u"7,25"_s << u"0"_s;
        QTest::newRow("a new meter") << u"900"_s << u"12"_s << u"-888"_s;
        QTest::newRow("not rounded") << u"0,1"_s << u"0,3"_s << u"0,2"_s;
        QTest::newRow("no end reading") << u"100"_s << QString() << QString();
        QTest::newRow("no start reading") << QString() << u"100"_s << QString();
        QTest::newRow("letters beside an empty reading") << u"x"_s << QString() << QString();
    }

    void a_difference_is_end_minus_start()
    {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(QString, difference);
        QCOMPARE(MeterDifference(start, end, {}, {}), difference);
    }

    void letters_in_a_reading_are_a_type_mismatch_of_that_field()
    {
        Place start;
        start.field = u"start"_s;
        Place end;
        end.field = u"end"_s;
        const RuntimeError at_start = ErrorOf([&] { MeterDifference(u"a"_s, u"1"_s, start, end); });
        QCOMPARE(at_start.kind, ErrorKind::TypeMismatch);
        QCOMPARE(at_start.where.field, u"start"_s);
        const RuntimeError at_end = ErrorOf([&] { MeterDifference(u"a"_s, u"b"_s, start, end); });
        QCOMPARE(at_end.where.field, u"end"_s);
        QCOMPARE(at_end.where.content, u"b"_s);
    }

    void a_difference_beyond_all_numbers_overflows()
    {
        Place end;
        end.field = u"end"_s;
        const QString largest = u"17"_s + QString(307, u'0');
        const RuntimeError error
            = ErrorOf([&] { MeterDifference(u'-' + largest, largest, {}, end); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.field, u"end"_s);
    }
};

const TestFile<TestMemberLists> test_file(__FILE__);
#include "test_member_lists.moc"
