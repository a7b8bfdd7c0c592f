// The frame "Zählerstände": entering readings and going through the members by keys.
#include "controls/fields.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString Member(const QString& surname, const QString& readings)
{
    return surname + u";V;;;;;;;0,00;0,00;0,00;0,00;"_s + readings + u"\r\n"_s;
}

const QString a = Member(u"A"_s, u"100;;20;"_s);
const QString b = Member(u"B"_s, u"200;;30;"_s);
const QString c = Member(u"C"_s, u"300;;40;"_s);

} // namespace

class TestMeterReadingsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ok_stores_the_readings_of_the_shown_member_alone()
    {
        MemberClub club(a + b + c);
        club.ClickName(1);
        MemberClub::Type(club.Reading(1), u"552"_s);
        MemberClub::Type(club.Reading(4), u"31,5"_s);
        club.Click("Command2");
        QCOMPARE(club.File(), (a + Member(u"B"_s, u"200;552;30;31,5"_s) + c).toLatin1());
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(club.ReadingTexts(),
            QStringList({ u"200"_s, u"552"_s, u"352"_s, u"30"_s, u"31,5"_s, u"1,5"_s }));
        QCOMPARE(club.program.Member.ElectricityDifference, u"352"_s);
        QCOMPARE(club.program.Member.WaterDifference, u"1,5"_s);
        QVERIFY(club.Errors().isEmpty());
    }

    void ok_stores_the_member_fields_too()
    {
        MemberClub club(a + b);
        MemberClub::Type(club.Field(2), u"Weg 2"_s);
        MemberClub::Type(club.Field(0), u"Z"_s);
        club.Click("Command2");
        QCOMPARE(club.File(),
            QByteArray("Z;V;Weg 2;;;;;;0,00;0,00;0,00;0,00;100;;20;\r\n") + b.toLatin1());
        QCOMPARE(club.ShownNames(), QStringList({ u"Z,V"_s, u"B,V"_s }));
    }

    void an_empty_end_reading_is_stored_empty_and_has_no_difference()
    {
        MemberClub club(Member(u"A"_s, u"100;150;20;25"_s));
        QCOMPARE(club.Reading(2)->text(), u"50"_s);
        MemberClub::Type(club.Reading(1), QString());
        club.Click("Command2");
        QCOMPARE(club.File(), Member(u"A"_s, u"100;;20;25"_s).toLatin1());
        QCOMPARE(club.Reading(2)->text(), QString());
        QCOMPARE(club.Reading(5)->text(), u"5"_s);
    }

    void a_difference_below_zero_is_taken_as_it_is()
    {
        MemberClub club(a);
        MemberClub::Type(club.Reading(1), u"12"_s);
        club.Click("Command2");
        QCOMPARE(club.Reading(2)->text(), u"-88"_s);
        QCOMPARE(club.File(), Member(u"A"_s, u"100;12;20;"_s).toLatin1());
    }

    void letters_stop_after_the_list_and_before_the_file()
    {
        MemberClub club(a + b);
        MemberClub::Type(club.Field(0), u"Z"_s);
        MemberClub::Type(club.Reading(1), u"12a"_s);
        club.Click("Command2");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).startsWith(
            u"Laufzeitfehler 13: Typen unverträglich\nDatei „Mitgliedsdaten2017.pz“, Zeile 1, "
            u"Mitglied „Z,V“, Feld „Endstand Strom“ (dort steht „12a“): "_s));
        QCOMPARE(club.File(), (a + b).toLatin1());
        QCOMPARE(club.Record(0).value(ElectricityEnd), u"12a"_s);
        QCOMPARE(club.program.Members.NameList.value(0), u"A,V"_s); // names are not touched
        QCOMPARE(club.Reading(1)->text(), u"12a"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::Unsaved); // the file has the old name

        MemberClub::Type(club.Reading(1), u"120"_s);
        club.Click("Command2");
        QCOMPARE(club.File(), (Member(u"Z"_s, u"100;120;20;"_s) + b).toLatin1());
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
    }

    void letters_in_the_water_readings_leave_the_electricity_difference()
    {
        MemberClub club(a);
        MemberClub::Type(club.Reading(1), u"150"_s);
        MemberClub::Type(club.Reading(4), u"x"_s);
        club.Click("Command2");
        QVERIFY(club.Errors().value(0).contains(u"Feld „Endstand Wasser“ (dort steht „x“)"_s));
        QCOMPARE(club.Reading(2)->text(), u"50"_s);
        QCOMPARE(club.program.Member.ElectricityDifference, QString()); // taken over at the end
        QCOMPARE(club.File(), a.toLatin1());
    }

    void ok_without_a_member_writes_nothing()
    {
        MemberClub club(a);
        club.Click("Command14");
        MemberClub::Type(club.Reading(0), u"5"_s);
        club.Click("Command2");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).startsWith(u"Laufzeitfehler 381: Ungültiger Index\n"_s));
        QCOMPARE(club.File(), a.toLatin1());
        QCOMPARE(club.program.Members.RecordList.size(), 1);
        QCOMPARE(club.Reading(0)->text(), u"5"_s);
    }

    void readings_that_cannot_be_written_stay_in_the_form()
    {
        MemberClub club(a + b);
        MemberClub::Type(club.Reading(1), u"150"_s);
        const QString path = club.Path(QString::fromLatin1(MemberClub::this_year));
        QVERIFY(QFile::remove(path));
        QVERIFY(QDir().mkpath(path));
        club.Click("Command2");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).contains(u"Datei „Mitgliedsdaten2017.pz“"_s));
        QVERIFY(club.Errors().value(0).contains(u"Die Zählerstände stehen noch im Formular"_s));
        QCOMPARE(club.Reading(1)->text(), u"150"_s);
        QCOMPARE(TintOf(club.Reading(1)), TintKind::Unsaved);
        QVERIFY(QDir().rmdir(path));
        club.Click("Command2");
        QCOMPARE(club.File(), (Member(u"A"_s, u"100;150;20;"_s) + b).toLatin1());
    }

    void enter_in_a_reading_is_ok_data()
    {
        QTest::addColumn<int>("reading");
        for (const int reading : { 0, 1, 3, 4 })
            QTest::addRow("Text1(%d)", reading) << reading;
    }

    void enter_in_a_reading_is_ok()
    {
        QFETCH(int, reading);
        MemberClub club(a);
        MemberClub::Type(club.Reading(reading), u"77"_s);
        QTest::keyClick(club.Reading(reading), Qt::Key_Return);
        QVERIFY(club.File().contains("77"));
        QCOMPARE(club.Window()->focusWidget(), club.Reading(reading));
    }

    void the_members_are_gone_through_by_number_and_key()
    {
        MemberClub club(a + b + c);
        club.Reading(1)->setFocus();
        for (const QString& end : { u"110"_s, u"220"_s, u"330"_s }) {
            auto* field = qobject_cast<QLineEdit*>(club.Window()->focusWidget());
            QCOMPARE(field, club.Reading(1));
            field->selectAll();
            QTest::keyClicks(field, end);
            QTest::keyClick(field, Qt::Key_Down, Qt::ControlModifier);
        }
        QCOMPARE(club.File(),
            (Member(u"A"_s, u"100;110;20;"_s) + Member(u"B"_s, u"200;220;30;"_s)
                + Member(u"C"_s, u"300;330;40;"_s))
                .toLatin1());
        QCOMPARE(club.program.Member.CurrentMember, 2); // the last one stays
        QCOMPARE(club.Reading(1)->selectedText(), u"330"_s);
        QTest::keyClick(club.Reading(1), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(club.Names()->currentRow(), 1);
        QCOMPARE(club.Reading(1)->selectedText(), u"220"_s);
    }

    void going_on_without_input_writes_nothing()
    {
        MemberClub club(a + b);
        QVERIFY(QFile::remove(club.Path(QString::fromLatin1(MemberClub::this_year))));
        club.Reading(4)->setFocus();
        QTest::keyClick(club.Reading(4), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(club.Window()->focusWidget(), club.Reading(4)); // water to water
        QVERIFY(!club.Exists(QString::fromLatin1(MemberClub::this_year)));
    }

    void going_on_stops_at_a_reading_of_letters()
    {
        MemberClub club(a + b);
        MemberClub::Type(club.Reading(1), u"1o0"_s);
        QTest::keyClick(club.Reading(1), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(club.Errors().size(), 1);
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(club.Reading(1)->text(), u"1o0"_s);
        QCOMPARE(club.File(), (a + b).toLatin1());
    }

    void going_on_in_an_empty_club_does_nothing()
    {
        MemberClub club(u""_s);
        club.Reading(1)->setFocus();
        QTest::keyClick(club.Reading(1), Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(club.Errors().isEmpty());
        QCOMPARE(club.program.Member.CurrentMember, 0);
    }

    void differences_cannot_be_typed()
    {
        MemberClub club(a);
        for (const int difference : { 2, 5 }) {
            QVERIFY(club.Reading(difference)->isReadOnly());
            QCOMPARE(club.Reading(difference)->focusPolicy(), Qt::NoFocus);
        }
    }
};

const TestFile<TestMeterReadingsForm> test_file(__FILE__);
#include "test_meter_readings_form.moc"
