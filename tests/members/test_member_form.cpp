// The tab "Stammdaten": selecting, showing, saving and deleting members.
#include "controls/fields.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString eva
    = u"Alt;Eva;Weg 1;12345 Ort;0123;7;300;2;1,00;2,00;3,00;4,00;100;150,5;20;25\r\n"_s;
const QString max = u"Böhm;Max;;;;;;;0,00;0,00;0,00;0,00;;;;\r\n"_s;
const QString ida = u"Öhler;Ida;Gasse;Dorf;;3;250,5;4;0,00;0,00;0,00;0,00;1;2;3;4\r\n"_s;

/// A folder stands where the file was: it can no longer be written, not even by the administrator.
void BlockFile(const MemberClub& club)
{
    const QString path = club.Path(QString::fromLatin1(MemberClub::this_year));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + u"/in the way"_s));
}

void UnblockFile(const MemberClub& club)
{
    QVERIFY(QDir(club.Path(QString::fromLatin1(MemberClub::this_year))).removeRecursively());
}

void TypeNewMember(const MemberClub& club, const QString& surname)
{
    club.Click("Command14");
    MemberClub::Type(club.Field(0), surname);
    MemberClub::Type(club.Field(1), u"Neu"_s);
}

} // namespace

class TestMemberForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_record_is_shown_field_by_field()
    {
        const MemberClub club(eva + max);
        QCOMPARE(club.FieldTexts(), club.Record(0).mid(0, 12));
        QCOMPARE(club.ReadingTexts(),
            QStringList({ u"100"_s, u"150,5"_s, u"50,5"_s, u"20"_s, u"25"_s, u"5"_s }));
        QCOMPARE(club.program.Member.MemberFields, club.Record(0));
        QCOMPARE(club.program.Member.ElectricityDifference, u"50,5"_s);
        QCOMPARE(club.program.Member.WaterDifference, u"5"_s);
    }

    void names_are_surname_comma_first_name_in_the_order_of_the_file()
    {
        const MemberClub club(ida + eva + max);
        QCOMPARE(club.ShownNames(), QStringList({ u"Öhler,Ida"_s, u"Alt,Eva"_s, u"Böhm,Max"_s }));
        QCOMPARE(club.Names()->currentRow(), 0);
    }

    void a_click_on_a_name_shows_the_member()
    {
        MemberClub club(eva + max + ida);
        club.ClickName(2);
        QCOMPARE(club.program.Member.CurrentMember, 2);
        QCOMPARE(club.FieldTexts(), club.Record(2).mid(0, 12));
        QCOMPARE(club.Names()->currentRow(), 2);
        club.ClickName(1);
        QCOMPARE(club.FieldTexts(), club.Record(1).mid(0, 12));
        QCOMPARE(club.ReadingTexts(), QStringList({ {}, {}, {}, {}, {}, {} }));
    }

    void a_click_on_the_shown_name_shows_the_stored_texts_again()
    {
        MemberClub club(eva + max);
        MemberClub::Type(club.Field(0), u"typed"_s);
        club.ClickName(0);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
    }

    void arrow_keys_and_typing_in_the_names_act_as_clicks()
    {
        MemberClub club(eva + max + ida);
        QTest::keyClick(club.Names(), Qt::Key_Down);
        QCOMPARE(club.Field(0)->text(), u"Böhm"_s);
        QTest::keyClick(club.Names(), Qt::Key_End);
        QCOMPARE(club.program.Member.CurrentMember, 2);
        QTest::keyClick(club.Names(), Qt::Key_A);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
    }

    void a_click_on_the_overview_shows_the_member()
    {
        MemberClub club(eva + max + ida);
        ShowMemberOverview(club.program, { u"Alt,Eva"_s, u"Böhm,Max"_s, u"Öhler,Ida"_s });
        const auto* overview = club.Control<QTreeWidget>("ListView2");
        const QRect place = overview->visualItemRect(overview->topLevelItem(1));
        QTest::mouseClick(overview->viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(club.Field(0)->text(), u"Böhm"_s);
        QCOMPARE(club.Names()->currentRow(), 1);
        MemberClub::Type(club.Field(0), u"typed"_s);
        QTest::mouseClick(overview->viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(club.Field(0)->text(), u"Böhm"_s);
    }

    void the_overview_has_one_column_and_numbered_rows()
    {
        MemberClub club(eva + max);
        ShowMemberOverview(club.program, { u"old"_s, u"old"_s, u"old"_s });
        ShowMemberOverview(club.program, { u"Alt,Eva SonderAbrechnung"_s, u"Böhm,Max"_s });
        const auto* overview = club.Control<QTreeWidget>("ListView2");
        QCOMPARE(overview->columnCount(), 1);
        QCOMPARE(overview->headerItem()->text(0), u"Namen"_s);
        QCOMPARE(overview->topLevelItemCount(), 2);
        QCOMPARE(overview->topLevelItem(0)->text(0), u"Alt,Eva SonderAbrechnung"_s);
        QCOMPARE(overview->topLevelItem(1)->text(0), u"Böhm,Max"_s);
        QCOMPARE(overview->topLevelItem(0)->data(0, Qt::UserRole).toString(), u"Zeile 1"_s);
        QCOMPARE(overview->topLevelItem(1)->data(0, Qt::UserRole).toString(), u"Zeile 2"_s);
        QCOMPARE(overview->currentItem(), overview->topLevelItem(0)); // the shown member
    }

    void showing_a_member_does_not_redraw_the_bills()
    {
        MemberClub club(eva + max);
        club.program.Statement.StatementTotals = QStringList({ u"untouched"_s });
        club.ClickName(1);
        QCOMPARE(club.program.Statement.StatementTotals, QStringList({ u"untouched"_s }));
    }

    void a_record_with_missing_fields_shows_what_is_there()
    {
        MemberClub club(eva + u"Kurz;Karl;Weg;;;;;3;1\r\n"_s);
        club.Boxes.clear();
        club.ClickName(1);
        QCOMPARE(club.FieldTexts(),
            QStringList(
                { u"Kurz"_s, u"Karl"_s, u"Weg"_s, {}, {}, {}, {}, u"3"_s, u"1"_s, {}, {}, {} }));
        QCOMPARE(club.ReadingTexts(), QStringList({ {}, {}, {}, {}, {}, {} }));
        QCOMPARE(club.Errors(),
            QStringList({ u"Laufzeitfehler 9: Index außerhalb des gültigen Bereichs\nDatei "
                          u"„Mitgliedsdaten2017.pz“, Zeile 2, Mitglied „Kurz,Karl“, Feld "
                          u"„Rechtschutz“: Die Zeile hat weniger als 16 Felder. Wählen Sie das "
                          u"Mitglied unter „Stammdaten“, "
                          u"ergänzen Sie die Angaben und drücken Sie „Speichern“."_s }));
    }

    void drawing_and_showing_the_same_short_record_give_one_box()
    {
        const MemberClub club(u"Kurz;Karl;Weg;Ort;;;3;1;0,00\r\n"_s);
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).contains(u"Feld „Rechtschutz“: Die Zeile hat"_s));
    }

    void saving_a_record_with_missing_fields_completes_it()
    {
        MemberClub club(eva + u"Kurz;Karl;;;;;;;;;;;7\r\n"_s);
        club.ClickName(1);
        QCOMPARE(club.Reading(0)->text(), u"7"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + "Kurz;Karl;;;;;;;;;;;7;;;\r\n");
    }

    void a_stored_reading_of_letters_shows_everything_but_the_differences()
    {
        MemberClub club(u"A;;;;;;;;;;;;1;2;;\r\nB;;;;;;;;;;;;1;x;3;5\r\n"_s);
        club.Boxes.clear();
        club.ClickName(1);
        QCOMPARE(club.ReadingTexts(), QStringList({ u"1"_s, u"x"_s, {}, u"3"_s, u"5"_s, {} }));
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).startsWith(
            u"Laufzeitfehler 13: Typen unverträglich\nDatei „Mitgliedsdaten2017.pz“, Zeile 2, "
            u"Mitglied „B,“, Feld „Endstand Strom“ (dort steht „x“): "_s));
    }

    void new_empties_the_form_and_waits_in_the_first_field()
    {
        MemberClub club(eva + max);
        club.program.Member.ClickedFieldText = u"old"_s;
        club.Click("Command14");
        QCOMPARE(club.program.Member.CurrentMember, -1);
        QVERIFY(club.program.Member.ClickedFieldText.isEmpty());
        QCOMPARE(club.FieldTexts().join(QString()), QString());
        QCOMPARE(club.ReadingTexts().join(QString()), QString());
        QCOMPARE(club.Window()->focusWidget(), club.Field(0));
        QCOMPARE(club.Names()->currentRow(), -1);
        QVERIFY(club.Names()->selectedItems().isEmpty());
        QCOMPARE(club.File(), (eva + max).toLatin1());
    }

    void saving_changes_the_shown_member_alone()
    {
        MemberClub club(eva + max + ida);
        club.ClickName(1);
        MemberClub::Type(club.Field(0), u"Meier2"_s);
        MemberClub::Type(club.Field(5), u"12"_s);
        MemberClub::Type(club.Reading(3), u"9,5"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.File(),
            (eva + u"Meier2;Max;;;;12;;;0,00;0,00;0,00;0,00;;;9,5;\r\n"_s + ida).toLatin1());
        QCOMPARE(club.ShownNames(), QStringList({ u"Alt,Eva"_s, u"Meier2,Max"_s, u"Öhler,Ida"_s }));
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
        QVERIFY(club.program.Member.ClickedFieldText.isEmpty());
        QVERIFY(club.Errors().isEmpty());
    }

    void saving_after_new_appends()
    {
        MemberClub club(eva);
        TypeNewMember(club, u"Zack"_s);
        MemberClub::Type(club.Reading(0), u"17"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + "Zack;Neu;;;;;;;;;;;17;;;\r\n");
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(
            club.program.Members.CashBookNameList, QStringList({ u"Alt,Eva"_s, u"Zack,Neu"_s }));
    }

    void saving_the_same_new_member_twice_appends_two_lines()
    {
        MemberClub club(eva);
        TypeNewMember(club, u"Zack"_s);
        club.Click("Command1(0)");
        TypeNewMember(club, u"Zack"_s);
        club.Click("Command1(0)");
        const QByteArray line = "Zack;Neu;;;;;;;;;;;;;;\r\n";
        QCOMPARE(club.File(), eva.toLatin1() + line + line);
    }

    void the_first_member_creates_the_file_data()
    {
        QTest::addColumn<bool>("press_new");
        QTest::addColumn<bool>("click_filled_field");
        QTest::newRow("after Neu Anlegen") << true << false;
        QTest::newRow("at once") << false << false;
        QTest::newRow("at once, after a click into a filled field") << false << true;
    }

    void the_first_member_creates_the_file()
    {
        QFETCH(bool, press_new);
        QFETCH(bool, click_filled_field);
        MemberClub club { QString() };
        QVERIFY(!club.Exists(QString::fromLatin1(MemberClub::this_year)));
        if (press_new)
            club.Click("Command14");
        MemberClub::Type(club.Field(0), u"Erste"_s);
        if (click_filled_field)
            QTest::mouseClick(club.Field(0), Qt::LeftButton);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), QByteArray("Erste;;;;;;;;;;;;;;;\r\n"));
        QCOMPARE(club.ShownNames(), QStringList({ u"Erste,"_s }));
        QVERIFY(club.Errors().isEmpty());
    }

    void an_empty_file_shows_an_empty_form()
    {
        MemberClub club(u""_s);
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(club.FieldTexts().join(QString()), QString());
        QVERIFY(club.Errors().isEmpty());
        MemberClub::Type(club.Field(0), u"Erste"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), QByteArray("Erste;;;;;;;;;;;;;;;\r\n"));
    }

    void a_click_into_a_filled_field_of_a_new_member_fails_at_position_minus_one()
    {
        MemberClub club(eva);
        TypeNewMember(club, u"Zack"_s);
        QTest::mouseClick(club.Field(0), Qt::LeftButton);
        QCOMPARE(club.program.Member.ClickedFieldText, u"Zack"_s);
        club.Click("Command1(0)");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).startsWith(u"Laufzeitfehler 381: Ungültiger Index\n"_s));
        QCOMPARE(club.File(), eva.toLatin1());
        QCOMPARE(club.Field(0)->text(), u"Zack"_s);

        QTest::mouseClick(club.Field(4), Qt::LeftButton); // what the box advises
        QVERIFY(club.program.Member.ClickedFieldText.isEmpty());
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + "Zack;Neu;;;;;;;;;;;;;;\r\n");
    }

    void the_keyboard_reaches_filled_fields_without_a_click()
    {
        MemberClub club(eva);
        TypeNewMember(club, u"Zack"_s);
        QTest::keyClick(club.Field(1), Qt::Key_Backtab);
        QVERIFY(club.program.Member.ClickedFieldText.isEmpty());
    }

    void deleting_loses_exactly_that_line()
    {
        MemberClub club(eva + max + ida);
        club.ClickName(1);
        club.Click("Command1(2)");
        QCOMPARE(club.File(), (eva + ida).toLatin1());
        QCOMPARE(club.ShownNames(), QStringList({ u"Alt,Eva"_s, u"Öhler,Ida"_s }));
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QVERIFY(club.Errors().isEmpty());
        for (const MessageBox& box : club.Boxes)
            QVERIFY(box.buttons == BoxButtons::Ok); // no question before a delete
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
    }

    void deleting_the_only_member_leaves_a_file_of_zero_bytes()
    {
        MemberClub club(eva);
        club.Click("Command1(2)");
        QVERIFY(club.Exists(QString::fromLatin1(MemberClub::this_year)));
        QCOMPARE(club.File(), QByteArray());
        QCOMPARE(club.ShownNames(), QStringList());
        QCOMPARE(club.FieldTexts().join(QString()), QString());
        QVERIFY(club.Errors().isEmpty());
    }

    void deleting_without_a_member_writes_nothing()
    {
        MemberClub club(eva);
        club.Click("Command14");
        club.Click("Command1(2)");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).startsWith(u"Laufzeitfehler 381: Ungültiger Index\n"_s));
        QCOMPARE(club.File(), eva.toLatin1());
        QCOMPARE(club.program.Members.RecordList.size(), 1);
    }

    void nothing_is_checked_when_a_member_is_saved()
    {
        MemberClub club(eva);
        TypeNewMember(club, u" "_s);
        MemberClub::Type(club.Field(1), QString());
        MemberClub::Type(club.Field(6), u"gross"_s);
        MemberClub::Type(club.Field(8), u"viel "_s);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + " ;;;;;;gross;;viel ;;;;;;;\r\n");
    }

    void every_byte_survives_showing_and_saving()
    {
        QByteArray line;
        for (int field = 0; field < 12; ++field) {
            for (int byte = field * 22; byte < 256 && byte < (field + 1) * 22; ++byte) {
                if (byte != ';')
                    line += static_cast<char>(byte);
            }
            line += ';';
        }
        line += ";;;\r\n";
        MemberClub club { QString() };
        club.Write(QString::fromLatin1(MemberClub::this_year), line);
        club.Click("Command4");
        QCOMPARE(club.program.Members.RecordList.size(), 1);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), line);
    }

    void a_separator_is_stored_as_typed_and_shifts_the_later_fields()
    {
        MemberClub club(eva);
        MemberClub::Type(club.Field(2), u"Weg 1;links"_s);
        QCOMPARE(TintOf(club.Field(2)), TintKind::Wrong);
        QVERIFY(club.Field(2)->toolTip().startsWith(u"Der Strichpunkt trennt"_s));
        club.Click("Command1(0)");
        QCOMPARE(club.File(),
            QByteArray("Alt;Eva;Weg 1;links;12345 Ort;0123;7;300;2;1,00;2,00;3,00;4,00;100;150,5;"
                       "20;25\r\n"));
        QCOMPARE(club.Field(3)->text(), u"links"_s);
        QCOMPARE(TintOf(club.Field(2)), TintKind::None);
    }

    void a_save_that_cannot_be_written_loses_nothing()
    {
        MemberClub club(eva + max);
        club.ClickName(1);
        MemberClub::Type(club.Field(0), u"Getippt"_s);
        const QStringList typed = club.FieldTexts();
        BlockFile(club);
        club.Click("Command1(0)");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).contains(u"Datei „Mitgliedsdaten2017.pz“"_s));
        QVERIFY(club.Errors().value(0).endsWith(
            u"Ihre Eingaben stehen noch im Formular: Drücken Sie, sobald das behoben ist, noch "
            u"einmal „Speichern“."_s));
        QCOMPARE(club.FieldTexts(), typed);
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(club.ShownNames(), QStringList({ u"Alt,Eva"_s, u"Böhm,Max"_s }));
        QCOMPARE(club.Record(1).value(0), u"Böhm"_s);

        UnblockFile(club);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + "Getippt;Max;;;;;;;0,00;0,00;0,00;0,00;;;;\r\n");
    }

    void a_new_member_that_cannot_be_written_is_added_once()
    {
        MemberClub club(eva);
        TypeNewMember(club, u"Zack"_s);
        BlockFile(club);
        club.Click("Command1(0)");
        club.Click("Command1(0)");
        QCOMPARE(club.Field(0)->text(), u"Zack"_s);
        QCOMPARE(club.program.Members.RecordList.size(), 1);
        UnblockFile(club);
        club.Click("Command1(0)");
        QCOMPARE(club.File(), eva.toLatin1() + "Zack;Neu;;;;;;;;;;;;;;\r\n");
    }

    void a_delete_that_cannot_be_written_deletes_nothing()
    {
        MemberClub club(eva + max);
        BlockFile(club);
        club.Click("Command1(2)");
        QCOMPARE(club.Errors().size(), 1);
        QVERIFY(club.Errors().value(0).contains(u"Das Mitglied steht noch in der Liste"_s));
        QCOMPARE(club.program.Members.RecordList.size(), 2);
        QCOMPARE(club.program.Member.CurrentMember, 0);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
        UnblockFile(club);
        club.Click("Command1(2)");
        QCOMPARE(club.File(), max.toLatin1());
    }

    void fields_that_differ_from_the_file_are_tinted()
    {
        MemberClub club(eva + max);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
        MemberClub::Type(club.Field(0), u"Neu"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::Unsaved);
        QCOMPARE(club.Field(0)->toolTip(), u"Noch nicht gespeichert. Gespeichert ist „Alt“."_s);
        QCOMPARE(TintOf(club.Field(1)), TintKind::None);
        MemberClub::Type(club.Field(0), u"Alt"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
        MemberClub::Type(club.Field(6), u"breit"_s);
        QCOMPARE(TintOf(club.Field(6)), TintKind::Wrong);
        MemberClub::Type(club.Field(6), u"301"_s);
        QCOMPARE(TintOf(club.Field(6)), TintKind::Unsaved);
        MemberClub::Type(club.Field(6), u"3;1"_s);
        QVERIFY(club.Field(6)->toolTip().startsWith(u"Der Strichpunkt"_s));
        MemberClub::Type(club.Field(6), u"300"_s);
        QCOMPARE(TintOf(club.Field(6)), TintKind::None);
    }

    void nothing_is_tinted_after_a_save_a_selection_or_new()
    {
        MemberClub club(eva + max + u";;;;;;;;;;;;;;;\r\n"_s);
        const auto any_tint = [&club] {
            for (int field = 0; field < MemberFieldCount; ++field) {
                if (TintOf(ControlOfField(club.program.MembersTab, field)) != TintKind::None)
                    return true;
            }
            return false;
        };
        MemberClub::Type(club.Field(3), QString());
        MemberClub::Type(club.Reading(1), u"200"_s);
        QVERIFY(any_tint());
        club.ClickName(2);
        QVERIFY(!any_tint());
        MemberClub::Type(club.Field(3), u"x"_s);
        club.Click("Command1(0)");
        QVERIFY(!any_tint());
        club.Click("Command14");
        QVERIFY(!any_tint());
        MemberClub::Type(club.Field(3), u"x"_s);
        QCOMPARE(TintOf(club.Field(3)), TintKind::Unsaved);
    }

    void a_save_after_a_step_of_the_year_goes_to_that_year()
    {
        MemberClub club(eva + max);
        club.Click("Command3(1)");
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(), u"2016"_s);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s); // nothing is loaded yet
        club.Click("Command1(0)");
        QCOMPARE(club.File(), (eva + max).toLatin1());
        QCOMPARE(club.Read(u"Mitgliedsdaten2016.pz"_s), (eva + max).toLatin1());
        club.Click("Command3(0)");
        club.Click("Command3(0)");
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(), u"2017"_s);
        QVERIFY(club.Control<QLineEdit>("Text2")->isReadOnly());
    }

    void groups_of_fields_are_cleared_apart()
    {
        MemberClub club(eva);
        ClearFields(club.program, 3);
        ClearFields(club.program, -1);
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
        ClearFields(club.program, 1);
        QCOMPARE(club.ReadingTexts().join(QString()), QString());
        QCOMPARE(club.Field(0)->text(), u"Alt"_s);
        ClearFields(club.program, 0);
        QCOMPARE(club.FieldTexts().join(QString()), QString());

        const auto& prices = club.program.SettingsTab.Text4;
        for (QLineEdit* price : prices)
            price->setText(u"1,00"_s);
        ClearFields(club.program, 1);
        QCOMPARE(prices[8]->text(), u"1,00"_s);
        ClearFields(club.program, 2);
        for (const QLineEdit* price : prices)
            QCOMPARE(price->text(), QString());
    }
};

const TestFile<TestMemberForm> test_file(__FILE__);
#include "test_member_form.moc"
