// Wrong turns that people really take on the tab "Stammdaten", and what keeps them from losing
// members: years that could not be loaded or rolled forward, foreign line ends, shifted lines.
#include "controls/fields.h"
#include "data/dates.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

const auto this_year = u"Mitgliedsdaten2017.pz"_s;
const auto last_year = u"Mitgliedsdaten2016.pz"_s;

QByteArray Record(const char* surname, const char* readings)
{
    return QByteArray(surname) + ";V;;;;;;;0,00;0,00;0,00;0,00;" + readings + "\r\n";
}

const QByteArray anna = Record("Alt", "100;150;20;25");
const QByteArray berta = Record("Bach", "1;2;3;4");
const QByteArray short_record = "Kurz;Karl;Weg\r\n";
const QByteArray damaged = QByteArray(40000, 'x') + "\r\n"; // a line that no list can hold

void StartIn2017(TestClub& club) { club.Start(QDate(2017, 3, 1)); }

void Click(const TestClub& club, const char* button) { club.Control<QPushButton>(button)->click(); }

void NewMemberCalled(const TestClub& club, const QString& surname)
{
    Click(club, "Command14");
    QTest::keyClicks(club.Control<QLineEdit>("Text3(0)"), surname);
    Click(club, "Command1(0)");
}

QStringList Names(const TestClub& club)
{
    QStringList names;
    const auto* list = club.Control<QListWidget>("List1");
    for (int row = 0; row < list->count(); ++row)
        names += list->item(row)->text();
    return names;
}

/// The club of 2017 with last year's consumption of 50 kWh and 5 m³.
struct TwoYears : MemberClub {
    explicit TwoYears(const char* readings)
        : MemberClub(QString {})
    {
        Write(::this_year, ::Record("Alt", readings));
        Write(last_year, anna);
        Click("Command4");
    }
};

} // namespace

class TestMemberLosses : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- a new year whose members were not taken over -------------------------------------------

    void no_member_is_saved_while_last_years_are_not_taken_over()
    {
        TestClub club;
        club.Write(last_year, anna + short_record + berta);
        StartIn2017(club);
        club.Boxes.clear();
        NewMemberCalled(club, u"Neu"_s);
        QVERIFY(!club.Exists(this_year));
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].text, u"Die Mitglieder von 2016 sind noch nicht übernommen"_s);
        QVERIFY(club.Boxes[0].detail.startsWith(u"Datei „Mitgliedsdaten2016.pz“, Zeile 2, "_s));
        QVERIFY(club.Boxes[0].detail.contains(u"starten"_s));
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), u"Neu"_s); // nothing typed is lost
    }

    void nor_with_a_last_year_that_cannot_be_read()
    {
        TestClub club;
        club.Write(last_year, damaged);
        StartIn2017(club);
        club.Boxes.clear();
        NewMemberCalled(club, u"Neu"_s);
        QVERIFY(!club.Exists(this_year));
        QCOMPARE(club.Boxes[0].text, u"Die Mitglieder von 2016 sind noch nicht übernommen"_s);
    }

    void the_file_of_last_year_taken_away_lets_the_year_begin()
    {
        TestClub club;
        club.Write(last_year, short_record);
        StartIn2017(club);
        QVERIFY(QFile::remove(club.Path(last_year)));
        NewMemberCalled(club, u"Neu"_s);
        QCOMPARE(club.Read(this_year).left(4), QByteArray("Neu;"));
    }

    void last_year_itself_can_be_mended_and_saved_then()
    {
        TestClub club;
        club.Write(last_year, anna + short_record);
        StartIn2017(club);
        Click(club, "Command3(1)");
        Click(club, "Command4");
        club.Control<QListWidget>("List1")->setCurrentRow(1);
        Click(club, "Command1(0)");
        QCOMPARE(club.Read(last_year), anna + "Kurz;Karl;Weg;;;;;;;;;;;;;\r\n");
    }

    void blank_lines_at_the_end_are_passed_over_by_the_roll_forward_data()
    {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("one") << QByteArray("\r\n");
        QTest::newRow("two with blanks") << QByteArray(" \r\n\t");
    }

    void blank_lines_at_the_end_are_passed_over_by_the_roll_forward()
    {
        QFETCH(QByteArray, end);
        TestClub club;
        club.Write(last_year, anna + end);
        StartIn2017(club);
        QCOMPARE(club.Read(this_year), Record("Alt", "150;;25;"));
        QCOMPARE(Names(club), QStringList { u"Alt,V"_s });
    }

    // --- years that could not be loaded
    // -----------------------------------------------------------

    void a_year_that_could_not_be_loaded_stays_whatever_was_loaded_in_between()
    {
        TestClub club;
        club.Write(this_year, anna + damaged);
        club.Write(last_year, berta);
        StartIn2017(club);
        Click(club, "Command3(1)");
        Click(club, "Command4"); // 2016 loads
        Click(club, "Command3(0)");
        club.Boxes.clear();
        Click(club, "Command1(0)");
        QCOMPARE(club.Read(this_year), anna + damaged);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].text, u"Datei ist nicht geladen"_s);
        QVERIFY(club.Boxes[0].detail.contains(this_year));
    }

    void a_year_that_was_not_even_tried_stays_when_it_cannot_be_read()
    {
        TestClub club;
        club.Write(this_year, berta);
        StartIn2017(club);
        club.Write(last_year, damaged);
        Click(club, "Command3(1)");
        Click(club, "Command1(0)");
        QCOMPARE(club.Read(last_year), damaged);
    }

    void the_mended_file_is_loaded_and_can_be_saved()
    {
        TestClub club;
        club.Write(this_year, damaged);
        StartIn2017(club);
        club.Write(this_year, anna);
        Click(club, "Command4");
        NewMemberCalled(club, u"Neu"_s);
        QVERIFY(club.Read(this_year).startsWith(anna + "Neu;"));
    }

    void a_damaged_last_year_keeps_nothing_shut()
    {
        TestClub club;
        club.Write(this_year, anna + berta);
        club.Write(last_year, damaged);
        StartIn2017(club);
        QCOMPARE(Names(club), QStringList({ u"Alt,V"_s, u"Bach,V"_s }));
        QVERIFY(club.Boxes.size() >= 2); // the damaged file, and its list that is too short
        QVERIFY(club.Boxes[0].detail.contains(last_year));
        QCOMPARE(club.program.Statement.StatementTotals.size(), 0); // stopped at the first member
        QCOMPARE(club.program.Year.LoadedYear, u"2017"_s);
        NewMemberCalled(club, u"Neu"_s);
        QVERIFY(club.Read(this_year).startsWith(anna + berta + "Neu;"));
        QCOMPARE(club.Read(last_year), damaged);
    }

    // --- files of other systems, lines with too many fields
    // ---------------------------------------

    void a_file_with_lf_alone_is_loaded_and_saved_with_cr_lf()
    {
        TestClub club;
        club.Write(this_year, QByteArray(anna + berta).replace("\r\n", "\n"));
        StartIn2017(club);
        QCOMPARE(Names(club), QStringList({ u"Alt,V"_s, u"Bach,V"_s }));
        Click(club, "Command2");
        QCOMPARE(club.Read(this_year), anna + berta);
    }

    void a_line_with_a_field_too_many_is_marked()
    {
        const auto shifted = u"Meier;Max;Weg 1; Hinterhaus;38300 Wolfenbüttel;05331;7;300;2;0,00;"
                             "0,00;0,00;0,00;1;2;3;4\r\n"_s;
        const MemberClub club(shifted + QString::fromLatin1(anna));
        const auto text = u"17 Felder: Ab „Plz/Ort“ ist alles um eine Stelle verschoben"_s;
        QCOMPARE(club.Names()->item(0)->toolTip(), text);
        QVERIFY(club.Names()->item(0)->background() != club.Names()->item(1)->background());
        QCOMPARE(club.Names()->item(1)->toolTip(), QString());
        const auto* notice = club.Control<QLabel>("ShiftNotice");
        QCOMPARE(notice->text(), text);
        QVERIFY(notice->isVisible());
        QCOMPARE(TintOf(club.Field(2)), TintKind::None);
        QCOMPARE(club.Field(3)->toolTip(), text);
        QCOMPARE(TintOf(club.Reading(4)), TintKind::Wrong);
        club.ClickName(1);
        QVERIFY(notice->isHidden());
        QCOMPARE(TintOf(club.Field(3)), TintKind::None);
    }

    void no_text_can_be_typed_that_makes_the_line_too_long()
    {
        MemberClub club(QString::fromLatin1(anna));
        QLineEdit* street = club.Field(2);
        street->setFocus();
        QApplication::clipboard()->setText(QString(40000, u'x'));
        QTest::keyClick(street, Qt::Key_V, Qt::ControlModifier);
        club.Field(3)->setFocus();
        QTest::keyClick(club.Field(3), Qt::Key_V, Qt::ControlModifier);
        club.Click("Command1(0)");
        QCOMPARE(club.Errors(), QStringList());
        QCOMPARE(club.File().size(), 32767 + 2);
    }

    // --- readings
    // ---------------------------------------------------------------------------------

    void steps_stay_in_the_meter_they_were_made_in()
    {
        MemberClub club(QString::fromLatin1(anna + berta + anna));
        club.Reading(4)->setFocus();
        for (const char* reading : { "26", "5", "27" }) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(reading));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down, Qt::ControlModifier);
        }
        QCOMPARE(club.File(),
            Record("Alt", "100;150;20;26") + Record("Bach", "1;2;3;5")
                + Record("Alt", "100;150;20;27"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), club.Reading(4));
        club.Reading(0)->setFocus();
        QTest::keyClick(club.Reading(0), Qt::Key_Down, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), club.Reading(1));
    }

    void doubtful_readings_are_tinted_data()
    {
        QTest::addColumn<QByteArray>("readings");
        QTest::addColumn<int>("end");
        QTest::addColumn<TintKind>("tint");
        QTest::newRow("usual") << QByteArray("150;200;25;30") << 1 << TintKind::None;
        QTest::newRow("below the start") << QByteArray("150;140;25;30") << 1 << TintKind::Wrong;
        QTest::newRow("water below the start")
            << QByteArray("150;200;25;24,5") << 4 << TintKind::Wrong;
        QTest::newRow("five times last year") << QByteArray("150;400;25;30") << 1 << TintKind::None;
        QTest::newRow("more than five times")
            << QByteArray("150;400,5;25;30") << 1 << TintKind::Doubtful;
        QTest::newRow("water more than five times")
            << QByteArray("150;200;25;51") << 4 << TintKind::Doubtful;
        QTest::newRow("not read yet") << QByteArray("150;;25;") << 1 << TintKind::None;
    }

    void doubtful_readings_are_tinted()
    {
        QFETCH(QByteArray, readings);
        QFETCH(int, end);
        QFETCH(TintKind, tint);
        const TwoYears club(readings.constData());
        for (const QLineEdit* field : { club.Reading(end), club.Reading(end + 1) }) {
            QCOMPARE(TintOf(field), tint);
            QCOMPARE(field->toolTip().isEmpty(), tint == TintKind::None);
        }
    }

    void a_typed_reading_is_tinted_before_it_is_saved()
    {
        const TwoYears club("150;200;25;30");
        MemberClub::Type(club.Reading(1), u"149"_s);
        QCOMPARE(TintOf(club.Reading(1)), TintKind::Wrong);
        MemberClub::Type(club.Reading(0), u"100"_s); // the start was wrong, not the end
        QCOMPARE(TintOf(club.Reading(1)), TintKind::Unsaved);
    }

    // --- closing, first steps
    // ---------------------------------------------------------------------

    void closing_asks_for_a_member_that_is_not_saved_data()
    {
        QTest::addColumn<BoxAnswer>("answer");
        QTest::addColumn<bool>("closes");
        QTest::newRow("yes") << BoxAnswer::Yes << true;
        QTest::newRow("no") << BoxAnswer::No << false;
    }

    void closing_asks_for_a_member_that_is_not_saved()
    {
        QFETCH(BoxAnswer, answer);
        QFETCH(bool, closes);
        MemberClub club(QString::fromLatin1(anna));
        MemberClub::Type(club.Field(4), u"0123"_s);
        club.Boxes.clear();
        club.Answers = { answer };
        QCOMPARE(club.program.Window.Window->close(), closes);
        QCOMPARE(club.BoxTexts(),
            QStringList { u"Hinweis: Die Angaben im Formular sind nicht gespeichert. Soll das "
                          "Programm trotzdem beendet werden ?"_s });
        QCOMPARE(club.Boxes[0].buttons, BoxButtons::YesNo);
    }

    void closing_asks_for_a_new_member_and_not_for_a_stored_one()
    {
        MemberClub club(QString::fromLatin1(anna));
        club.Click("Command14");
        MemberClub::Type(club.Field(0), u"Neu"_s);
        club.Answers = { BoxAnswer::No };
        QVERIFY(!club.program.Window.Window->close());
        club.ClickName(0);
        club.Boxes.clear();
        QVERIFY(club.program.Window.Window->close());
        QCOMPARE(club.BoxTexts(), QStringList());
    }

    void an_empty_list_says_what_to_do_first()
    {
        MemberClub club { QString() };
        const auto* text = club.Control<QLabel>("FirstSteps");
        QVERIFY(text->isVisible());
        QCOMPARE(text->text(),
            u"Noch keine Mitglieder. Mit „Neu Anlegen“ beginnen; F1 zeigt die Schritte."_s);
        club.Click("Command14");
        MemberClub::Type(club.Field(0), u"Neu"_s);
        club.Click("Command1(0)");
        QVERIFY(text->isHidden());
        club.Click("Command1(2)");
        QVERIFY(text->isVisible());
    }
};

const TestFile<TestMemberLosses> test_file(__FILE__);
#include "test_member_losses_form.moc"
