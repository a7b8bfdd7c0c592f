// What the member form's buttons do to the lists.
#include "members/member_editing.h"
#include "tests/support/error_of.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QStringList Fields(const QString& surname, const QString& instalments = u"2"_s)
{
    return { surname, u"Eva"_s, u"Weg 1"_s, u"12345 Ort"_s, u"0123"_s, u"7"_s, u"300"_s,
        instalments, u"1,00"_s, u"2,00"_s, u"3,00"_s, u"4,00"_s, u"100"_s, u"150"_s, u"20"_s,
        u"25"_s };
}

QString Line(const QString& surname)
{
    return surname + u";Eva;Weg 1;12345 Ort;0123;7;300;2;1,00;2,00;3,00;4,00;100;150;20;25"_s;
}

MemberLists Three()
{
    MemberLists lists;
    for (const QString& surname : { u"A"_s, u"B"_s, u"C"_s })
        AddMember(lists, Fields(surname));
    return lists;
}

} // namespace

class TestMemberEditing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_save_updates_or_adds_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<QString>("clicked");
        QTest::addColumn<bool>("any_member");
        QTest::addColumn<bool>("adds");
        QTest::newRow("a member is shown") << 1 << QString() << true << false;
        QTest::newRow("a member is shown, a field was clicked") << 1 << u"A"_s << true << false;
        QTest::newRow("a new member is typed") << -1 << QString() << true << true;
        QTest::newRow("a new member, a filled field was clicked") << -1 << u"A"_s << true << false;
        QTest::newRow("no member yet") << 0 << QString() << false << true;
        QTest::newRow("no member yet, a filled field was clicked") << 0 << u"A"_s << false << true;
        QTest::newRow("no member yet, after Neu Anlegen") << -1 << QString() << false << true;
        QTest::newRow("no member yet, after Neu Anlegen and a click")
            << -1 << u"A"_s << false << false;
    }

    void a_save_updates_or_adds()
    {
        QFETCH(int, current);
        QFETCH(QString, clicked);
        QFETCH(bool, any_member);
        QFETCH(bool, adds);
        MemberState member;
        member.CurrentMember = static_cast<qint16>(current);
        member.ClickedFieldText = clicked;
        const SaveWay way = DecideSave(member, any_member ? Three() : MemberLists());
        QCOMPARE(way == SaveWay::Add, adds);
    }

    void adding_appends_to_every_list()
    {
        MemberLists lists = Three();
        AddMember(lists, Fields(u"Öhm"_s, u"12"_s));
        QCOMPARE(lists.RecordList.value(3),
            u"Öhm;Eva;Weg 1;12345 Ort;0123;7;300;12;1,00;2,00;3,00;4,00;100;150;20;25"_s);
        QCOMPARE(lists.RecordList.value(2), Line(u"C"_s));
        QCOMPARE(lists.NameList, QStringList({ u"A,Eva"_s, u"B,Eva"_s, u"C,Eva"_s, u"Öhm,Eva"_s }));
        QCOMPARE(lists.CashBookNameList, lists.NameList);
        QCOMPARE(lists.InstalmentList, QStringList({ u"2"_s, u"2"_s, u"2"_s, u"12"_s }));
    }

    void the_last_position_is_32766()
    {
        MemberLists lists;
        for (int k = 0; k < 32766; ++k)
            lists.RecordList += u"a;b"_s;
        AddMember(lists, Fields(u"last"_s));
        QCOMPARE(lists.RecordList.size(), 32767);
        const RuntimeError error = ErrorOf([&] { AddMember(lists, Fields(u"Zuviel"_s)); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.member, u"Zuviel,Eva"_s);
        QCOMPARE(lists.RecordList.size(), 32767);
        QCOMPARE(lists.NameList.size(), 1);
    }

    void replacing_changes_one_position_of_every_list()
    {
        MemberLists lists = Three();
        ReplaceMember(lists, 1, Fields(u"X"_s, u"5"_s));
        QCOMPARE(lists.NameList, QStringList({ u"A,Eva"_s, u"X,Eva"_s, u"C,Eva"_s }));
        QCOMPARE(lists.CashBookNameList, lists.NameList);
        QCOMPARE(lists.InstalmentList, QStringList({ u"2"_s, u"5"_s, u"2"_s }));
        QCOMPARE(lists.RecordList.value(0), Line(u"A"_s));
        QVERIFY(lists.RecordList.value(1).startsWith(u"X;Eva;"_s));
        QCOMPARE(lists.RecordList.value(2), Line(u"C"_s));
    }

    void replacing_a_record_leaves_the_names()
    {
        MemberLists lists = Three();
        ReplaceRecord(lists, 2, Fields(u"X"_s, u"5"_s));
        QVERIFY(lists.RecordList.value(2).startsWith(u"X;"_s));
        QCOMPARE(lists.NameList, QStringList({ u"A,Eva"_s, u"B,Eva"_s, u"C,Eva"_s }));
        QCOMPARE(lists.InstalmentList.value(2), u"2"_s);
    }

    void removing_moves_later_members_up()
    {
        MemberLists lists = Three();
        RemoveMember(lists, 1);
        QCOMPARE(lists.RecordList, QStringList({ Line(u"A"_s), Line(u"C"_s) }));
        QCOMPARE(lists.NameList, QStringList({ u"A,Eva"_s, u"C,Eva"_s }));
        QCOMPARE(lists.CashBookNameList, lists.NameList);
        QCOMPARE(lists.InstalmentList.size(), 2);
    }

    void a_position_that_is_not_there_changes_nothing_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("no member selected") << -1;
        QTest::newRow("behind the last") << 3;
    }

    void a_position_that_is_not_there_changes_nothing()
    {
        QFETCH(int, position);
        MemberLists lists = Three();
        const QStringList before = lists.RecordList;
        const RuntimeError replaced
            = ErrorOf([&] { ReplaceMember(lists, position, Fields(u"X"_s)); });
        const RuntimeError entered
            = ErrorOf([&] { ReplaceRecord(lists, position, Fields(u"X"_s)); });
        const RuntimeError removed = ErrorOf([&] { RemoveMember(lists, position); });
        for (const RuntimeError& error : { replaced, entered, removed })
            QCOMPARE(ErrorHeadline(error), u"Laufzeitfehler 381: Ungültiger Index"_s);
        QVERIFY(ErrorSentence(replaced).contains(u"in ein leeres Feld"_s));
        QVERIFY(ErrorSentence(entered).contains(u"Es ist kein Mitglied ausgewählt."_s));
        QVERIFY(ErrorSentence(removed).contains(u"deshalb wurde nichts gelöscht"_s));
        QCOMPARE(lists.RecordList, before);
        QCOMPARE(lists.NameList.size(), 3);
    }

    void a_reading_that_is_no_number_is_named_with_file_line_and_field()
    {
        QStringList fields = Fields(u"Lang"_s);
        fields[ElectricityEnd] = u"12a"_s;
        const Place end = ReadingPlace(u"2016"_s, 4, fields, ElectricityEnd);
        const Place start = ReadingPlace(u"2016"_s, 4, fields, ElectricityStart);
        const RuntimeError error
            = ErrorOf([&] { MeterDifference(u"100"_s, u"12a"_s, start, end); });
        QCOMPARE(ErrorHeadline(error), u"Laufzeitfehler 13: Typen unverträglich"_s);
        QCOMPARE(ErrorSentence(error),
            u"Datei „Mitgliedsdaten2016.pz“, Zeile 5, Mitglied „Lang,Eva“, Feld „Endstand Strom“ "
            u"(dort steht „12a“): Tragen Sie unter „Stammdaten“ eine Zahl mit Dezimalkomma ein, "
            u"zum Beispiel 1234,5, und speichern Sie das Mitglied."_s);
    }

    void neighbours_stay_between_first_and_last_data()
    {
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("next");
        QTest::newRow("down") << 1 << 1 << 3 << 2;
        QTest::newRow("up") << 1 << -1 << 3 << 0;
        QTest::newRow("last stays") << 2 << 1 << 3 << 2;
        QTest::newRow("first stays") << 0 << -1 << 3 << 0;
        QTest::newRow("none selected, down") << -1 << 1 << 3 << 0;
        QTest::newRow("none selected, up") << -1 << -1 << 3 << 0;
        QTest::newRow("no member") << 0 << 1 << 0 << -1;
    }

    void neighbours_stay_between_first_and_last()
    {
        QFETCH(int, current);
        QFETCH(int, step);
        QFETCH(int, count);
        QFETCH(int, next);
        QCOMPARE(NeighbourOf(current, step, count), next);
    }

    void what_the_file_holds_is_asked_by_field()
    {
        MemberLists lists = Three();
        lists.StoredList = { Line(u"A"_s), u"Kurz"_s };
        MemberState member;
        QCOMPARE(StoredText(lists, member, Surname), QString()); // a new one is typed
        member.CurrentMember = 0;
        QCOMPARE(StoredText(lists, member, Surname), u"A"_s);
        QCOMPARE(StoredText(lists, member, WaterEnd), u"25"_s);
        member.CurrentMember = 1;
        QCOMPARE(StoredText(lists, member, WaterEnd), QString());
        member.CurrentMember = 2; // not in the file yet
        QCOMPARE(StoredText(lists, member, Surname), QString());
    }

    void a_field_tells_how_it_stands_to_the_file_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("state");
        const auto row = [](const char* name, int field, const QString& text, const QString& stored,
                             FieldState state) {
            QTest::newRow(name) << field << text << stored << static_cast<int>(state);
        };
        row("same", Surname, u"a"_s, u"a"_s, FieldState::Stored);
        row("other", Surname, u"a"_s, u"b"_s, FieldState::Unsaved);
        row("emptied", WaterEnd, QString(), u"5"_s, FieldState::Unsaved);
        row("letters in a text", PlotNumber, u"7a"_s, u"7a"_s, FieldState::Stored);
        row("letters in a size", PlotSize, u"7a"_s, u"7a"_s, FieldState::NoNumber);
        row("letters in a reading", WaterEnd, u"x"_s, QString(), FieldState::NoNumber);
        row("an empty number", BuildingPremium, QString(), QString(), FieldState::Stored);
        row("separator in a text", Street, u"a;b"_s, u"a"_s, FieldState::Separator);
        row("separator in a number", PlotSize, u"1;2"_s, QString(), FieldState::Separator);
    }

    void a_field_tells_how_it_stands_to_the_file()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(QString, stored);
        QFETCH(int, state);
        QCOMPARE(static_cast<int>(StateOf(field, text, stored)), state);
    }
};

const TestFile<TestMemberEditing> test_file(__FILE__);
#include "test_member_editing.moc"
