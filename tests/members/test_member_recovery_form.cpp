// The tab "Stammdaten" after something went wrong: what is stored stays, what was typed stays.
#include "controls/fields.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTabWidget>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

const QString eva
    = u"Alt;Eva;Weg 1;12345 Ort;0123;7;300;2;1,00;2,00;3,00;4,00;100;150,5;20;25\r\n"_s;
const QString max = u"Böhm;Max;;;;;;;0,00;0,00;0,00;0,00;100;;20;\r\n"_s;
const QString last_year = u"Mitgliedsdaten2016.pz"_s;
const QString this_year = u"Mitgliedsdaten2017.pz"_s;

/// A file that is there and cannot be read, not even by the administrator.
void MakeUnreadable(const TestClub& club, const QString& name)
{
    QFile::remove(club.Path(name));
    QVERIFY(QFile::link(u"/proc/self/mem"_s, club.Path(name)));
}

} // namespace

class TestMemberRecoveryForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_year_that_could_not_be_loaded_is_not_overwritten()
    {
        const QByteArray content = eva.toLatin1() + QByteArray(40'000, 'x') + "\r\n";
        TestClub club;
        club.Write(this_year, content);
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.program.Year.LoadedYear, QString());
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text2")), TintKind::OtherYear);
        club.Boxes.clear();
        club.Control<QLineEdit>("Text3(0)")->setText(u"Neu"_s);
        for (const char* button : { "Command1(0)", "Command1(2)", "Command2" }) {
            club.Control<QPushButton>(button)->click();
            QCOMPARE(club.Read(this_year), content);
        }
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), u"Neu"_s);
        QVERIFY(club.Boxes.value(0).detail.contains(
            u"Die Mitglieder dieses Jahres sind nicht geladen, darum wird ihre Datei nicht "
            "überschrieben."_s));

        club.Write(this_year, eva.toLatin1());
        club.Control<QPushButton>("Command4")->click();
        QCOMPARE(club.program.Members.RecordList.value(0) + u"\r\n"_s, eva);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text2")), TintKind::None);
        club.Control<QPushButton>("Command1(0)")->click();
        QVERIFY(club.Read(this_year).startsWith(eva.toLatin1()));
    }

    void the_first_member_of_an_empty_folder_is_saved()
    {
        TestClub club;
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.program.Year.CurrentLedgerName, u"\\Konto2017.pz"_s);
        QVERIFY(!club.program.Members.PreviousYearMissing);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text2")), TintKind::None);
        club.Control<QLineEdit>("Text3(0)")->setText(u"Neu"_s);
        club.Control<QPushButton>("Command1(0)")->click();
        QCOMPARE(club.Read(this_year).left(4), QByteArray("Neu;"));
    }

    void the_way_back_by_keys_keeps_the_new_member_that_is_typed()
    {
        const MemberClub club(eva + max);
        club.ClickName(1);
        club.Click("Command14");
        MemberClub::Type(club.Field(0), u"Neu"_s);
        QTest::keyClick(club.Field(0), Qt::Key_Backtab);
        QCOMPARE(club.Window()->focusWidget(), club.Names());
        QCOMPARE(club.program.Member.CurrentMember, -1);
        QCOMPARE(club.Field(0)->text(), u"Neu"_s);
        QCOMPARE(club.Names()->currentRow(), -1);
    }

    void a_reading_of_letters_that_was_corrected_back_does_not_reach_the_file()
    {
        MemberClub club(eva + max);
        club.ClickName(1);
        MemberClub::Type(club.Reading(1), u"1o0"_s);
        QTest::keyClick(club.Reading(1), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(club.Errors().size(), 1);
        QCOMPARE(club.File(), (eva + max).toLatin1());
        MemberClub::Type(club.Reading(1), {});
        QTest::keyClick(club.Reading(1), Qt::Key_Up, Qt::ControlModifier);
        MemberClub::Type(club.Reading(1), u"250"_s);
        club.Click("Command2");
        QCOMPARE(club.File(), (QString(eva).replace(u"150,5"_s, u"250"_s) + max).toLatin1());
    }

    void a_save_while_last_year_cannot_be_read_adds_nobody_later()
    {
        MemberClub club(eva + max);
        club.ClickName(1);
        MemberClub::Type(club.Field(2), u"Gasse 2"_s);
        MakeUnreadable(club, last_year);
        club.Click("Command1(0)");
        QCOMPARE(club.Errors().size(), 2); // unreadable, and so too short for the first member
        const QByteArray saved = club.File();
        QVERIFY(saved.contains("Max;Gasse 2;"));
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
        QCOMPARE(club.Reading(1)->text(), u"150,5"_s);
        QCOMPARE(club.ShownNames(), QStringList({ u"Alt,Eva"_s, u"Böhm,Max"_s }));
        club.Click("Command1(0)");
        QCOMPARE(club.File(), saved);
    }

    void a_member_saved_into_another_year_is_reported_with_that_years_file()
    {
        MemberClub club(eva);
        club.Click("Command3(1)");
        MemberClub::Type(club.Field(6), u"gross"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).contains(last_year));
        QVERIFY(!club.Errors().value(0).contains(this_year));
    }

    void a_difference_that_no_number_holds_is_an_overflow()
    {
        const QString nines = QString(308, u'9');
        MemberClub club(eva);
        MemberClub::Type(club.Reading(0), u"-"_s + nines);
        MemberClub::Type(club.Reading(1), nines);
        club.Click("Command2");
        QVERIFY(club.Errors().value(0).startsWith(u"Laufzeitfehler 6: Überlauf"_s));
    }

    void the_right_button_is_no_click_into_a_filled_field()
    {
        MemberClub club(eva);
        club.Click("Command14");
        MemberClub::Type(club.Field(0), u"Zack"_s);
        QTest::mousePress(club.Field(0), Qt::RightButton);
        QCOMPARE(club.program.Member.ClickedFieldText, QString());
        club.Click("Command1(0)");
        QVERIFY(club.Errors().isEmpty());
        QVERIFY(club.File().endsWith("\r\nZack;;;;;;;;;;;;;;;\r\n"));
    }

    void what_was_clicked_is_forgotten_by_a_save_and_kept_by_a_delete()
    {
        MemberClub club(eva + max);
        QTest::mouseClick(club.Field(0), Qt::LeftButton);
        QCOMPARE(club.program.Member.ClickedFieldText, u"Alt"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.program.Member.ClickedFieldText, QString());
        QTest::mouseClick(club.Field(0), Qt::LeftButton);
        club.Click("Command1(2)");
        QCOMPARE(club.program.Member.ClickedFieldText, u"Alt"_s);
    }

    void without_members_there_are_no_differences()
    {
        MemberClub club(eva);
        QCOMPARE(club.program.Member.ElectricityDifference, u"50,5"_s);
        club.Click("Command1(2)");
        QCOMPARE(club.program.Member.ElectricityDifference, QString());
        QCOMPARE(club.program.Member.WaterDifference, QString());
    }

    void the_save_key_saves_a_new_salutation()
    {
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        club.program.Window.Window->show();
        club.program.Window.Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        club.program.Window.SSTab1->setCurrentIndex(3);
        club.Boxes.clear();
        auto* salutation = club.Control<QComboBox>("C1");
        salutation->setFocus();
        salutation->lineEdit()->selectAll();
        QTest::keyClicks(salutation->lineEdit(), u"Dr."_s);
        QTest::keyClick(salutation->lineEdit(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(club.Read(u"Config1.ini"_s).contains("Anrede=Dr.\r\n"));
    }

    void a_cash_box_that_cannot_be_read_does_not_hold_up_the_year()
    {
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        club.Boxes.clear();
        MakeUnreadable(club, u"HandKasse2017.pz"_s);
        club.Write(
            u"Config1.ini"_s, club.Read(u"Config1.ini"_s).replace("Bankname=", "Bankname=X"));
        club.Control<QPushButton>("Command4")->click();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Control<QTableView>("ListView1")->model()->rowCount() > 0);
        QVERIFY(!club.Control<QLineEdit>("Text3(0)")->text().isEmpty());
        QVERIFY(club.program.CashBookTab.Label21->text().contains(u" X"_s)); // names the bank
    }
};

const TestFile<TestMemberRecoveryForm> test_file(__FILE__);
#include "test_member_recovery_form.moc"
