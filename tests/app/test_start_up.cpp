// Starting the program and loading a year: what is read, rolled forward, shown and said, in which
// order.
#include "controls/fields.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QCalendarWidget>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>
#include <QtTest>

namespace {

const QByteArray two_members
    = "Meier;Anna;Weg 1;01234 Ort;;1;300;2;0,00;0,00;0,00;0,00;100;150;20;25\r\n"
      "Lang;Ida;;;;2;;;0,00;0,00;0,00;0,00;;;;\r\n";
const QByteArray two_rolled = "Meier;Anna;Weg 1;01234 Ort;;1;300;2;0,00;0,00;0,00;0,00;150;;25;\r\n"
                              "Lang;Ida;;;;2;;;0,00;0,00;0,00;0,00;;;;\r\n";

QStringList Names(const TestClub& club)
{
    QStringList names;
    const auto* list = club.Control<QListWidget>("List1");
    for (int i = 0; i < list->count(); ++i)
        names += list->item(i)->text();
    return names;
}

QStringList BoxesOf(const TestClub& club, const QString& title)
{
    return club.BoxTexts().filter(title + QStringLiteral(": "));
}

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_window_has_its_caption_and_four_tabs()
    {
        TestClub club;
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.program.Window.Window->windowTitle(), QStringLiteral("Kleingarten Parzello"));
        const auto* tabs = club.Control<QTabWidget>("SSTab1");
        QCOMPARE(tabs->count(), 4);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Stammdaten"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("Druckvorlagen"));
        QCOMPARE(tabs->tabText(2), QStringLiteral("Kontoführung"));
        QCOMPARE(tabs->tabText(3), QStringLiteral("Einstellungen"));
        QCOMPARE(club.Control<QPushButton>("Command8")->text(), QStringLiteral("Beenden"));
    }

    void an_empty_directory_offers_the_club_name_and_says_that_there_are_no_data()
    {
        TestClub club;
        club.Start({ 2017, 3, 5 });
        QVERIFY(club.Control<QLineEdit>("Text5")->isVisibleTo(club.Window()));
        QVERIFY(club.Control<QPushButton>("Command22")->isVisibleTo(club.Window()));
        QCOMPARE(club.Control<QLineEdit>("Text5")->text(),
            QStringLiteral("Hier bitte Ihren Vereinsnamen eingeben z.B.: KGV \"Lindenblick\" e.V. "
                           "Wiesenrode"));
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), QStringLiteral("Vereinsname"));
        QCOMPARE(BoxesOf(club, QStringLiteral("Datenfehler")),
            QStringList { QStringLiteral("Datenfehler: Für 2017 sind keine Daten gespeichert.") });
        QCOMPARE(club.Boxes.last().buttons, BoxButtons::Ok);
        QVERIFY(Names(club).isEmpty());
        QVERIFY(!club.Exists(QStringLiteral("Mitgliedsdaten2017.pz")));
    }

    void the_club_name_is_the_first_line_of_its_file()
    {
        TestClub club;
        club.Write(QStringLiteral("V.dat"), "KGV \"M\xfchle\"\r\nzweite Zeile\r\n");
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), QStringLiteral("KGV \"Mühle\""));
        QVERIFY(!club.Control<QLineEdit>("Text5")->isVisibleTo(club.Window()));
        QVERIFY(!club.Control<QPushButton>("Command22")->isVisibleTo(club.Window()));
    }

    void an_empty_club_name_file_shows_the_placeholder()
    {
        TestClub club;
        club.Write(QStringLiteral("V.dat"), "\r\n");
        club.Start({ 2017, 3, 5 });
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), QStringLiteral("Vereinsname"));
        QVERIFY(!club.Control<QLineEdit>("Text5")->isVisibleTo(club.Window()));
    }

    void the_first_start_of_a_new_year_rolls_last_years_readings_forward()
    {
        TestClub club;
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"), two_members);
        club.Start({ 2017, 1, 1 });
        QCOMPARE(club.Read(QStringLiteral("Mitgliedsdaten2017.pz")), two_rolled);
        QCOMPARE(club.Read(QStringLiteral("Mitgliedsdaten2016.pz")), two_members);
        QCOMPARE(Names(club),
            (QStringList { QStringLiteral("Meier,Anna"), QStringLiteral("Lang,Ida") }));
        QCOMPARE(club.Control<QLineEdit>("Text1(0)")->text(), QStringLiteral("150"));
        QCOMPARE(club.Control<QLineEdit>("Text1(1)")->text(), QString());
    }

    void a_year_with_a_file_is_never_rolled_over()
    {
        TestClub club;
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"), two_members);
        club.Write(QStringLiteral("Mitgliedsdaten2017.pz"), "");
        club.Start({ 2017, 1, 1 });
        QCOMPARE(club.Read(QStringLiteral("Mitgliedsdaten2017.pz")), QByteArray());
        QVERIFY(Names(club).isEmpty());
        QCOMPARE(club.program.Member.CurrentMember, qint16(0));
        QVERIFY(BoxesOf(club, QStringLiteral("Datenfehler")).isEmpty());
    }

    void members_rolled_forward_are_kept_only_when_their_file_is_written()
    {
        TestClub club;
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"), two_members);
        QVERIFY(QDir().mkpath(club.Path(QStringLiteral("Mitgliedsdaten2017.pz/im Weg"))));
        club.Start({ 2017, 1, 1 });
        QVERIFY(club.program.Members.RecordList.isEmpty());
        QCOMPARE(club.program.Year.LoadedYear, QString());
        QVERIFY(!BoxesOf(club, QStringLiteral("Kleingarten Parzello")).isEmpty());
    }

    void a_short_record_stops_the_roll_forward_before_anything_is_written()
    {
        TestClub club;
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"), two_members + "Kurz;Max\r\n");
        club.Start({ 2017, 1, 1 });
        QVERIFY(!club.Exists(QStringLiteral("Mitgliedsdaten2017.pz")));
        const QStringList errors = BoxesOf(club, QStringLiteral("Kleingarten Parzello"));
        QVERIFY(errors.contains(QStringLiteral(
            "Kleingarten Parzello: Laufzeitfehler 9: Index außerhalb des gültigen Bereichs")));
        const auto is_error = [](const MessageBox& box) { return box.icon == BoxIcon::Error; };
        const auto box = std::find_if(club.Boxes.cbegin(), club.Boxes.cend(), is_error);
        QVERIFY(box->detail.contains(QStringLiteral("Mitgliedsdaten2016.pz")));
        QVERIFY(box->detail.contains(QStringLiteral("Zeile 3")));
        QVERIFY(box->detail.contains(QStringLiteral("Kurz,Max")));
        // and the start goes on: the rest of the sequence still says that 2017 has no data
        QCOMPARE(BoxesOf(club, QStringLiteral("Datenfehler")).size(), 1);
    }

    void a_missing_previous_year_is_not_reported()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("first-year"));
        club.Start({ 2016, 11, 25 });
        QCOMPARE(club.BoxTexts(), QStringList());
        QVERIFY(club.program.Members.PreviousYearMissing);
        QCOMPARE(club.program.Statement.StatementTotals.size(), 6);
    }

    void the_present_year_and_today_are_taken_from_the_calendar()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        QCOMPARE(club.program.Year.YearText, QStringLiteral("2017"));
        QCOMPARE(club.program.Year.YearNumber, qint16(2017));
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(), QStringLiteral("2017"));
        QCOMPARE(
            club.Control<QLabel>("Label4")->text(), QStringLiteral("Preise für das Jahr 2017"));
        for (const char* name : { "Cal3", "Calendar1", "Calendar2" })
            QCOMPARE(club.Control<QCalendarWidget>(name)->selectedDate(), QDate(2017, 11, 20));
        QCOMPARE(club.Boxes.size(), 0);
        QVERIFY(club.program.Settings.SettingsSaved);
        // "Laden" at the end of the sequence leaves the name with a forward slash
        QCOMPARE(club.program.Year.CurrentLedgerName, QStringLiteral("/Konto2017.pz"));
    }

    void the_cash_book_table_has_its_five_columns()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const auto* model = club.Control<QTableView>("ListView1")->model();
        QStringList columns;
        for (int i = 0; i < model->columnCount(); ++i)
            columns += model->headerData(i, Qt::Horizontal).toString();
        QCOMPARE(columns,
            (QStringList { QStringLiteral("Buchungsdatum"), QStringLiteral("Vorgang"),
                QStringLiteral("Einzahlung"), QStringLiteral("Abheben"),
                QStringLiteral("Kontostand") }));
    }

    void the_year_buttons_step_and_load_nothing()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const QStringList names = Names(club);
        QTest::mouseClick(club.Control<QPushButton>("Command3(0)"), Qt::LeftButton);
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(),
            QStringLiteral("2017")); // never past the present year
        QTest::mouseClick(club.Control<QPushButton>("Command3(1)"), Qt::LeftButton);
        QTest::mouseClick(club.Control<QPushButton>("Command3(1)"), Qt::LeftButton);
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(), QStringLiteral("2015"));
        QCOMPARE(Names(club), names);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text2")), TintKind::OtherYear);
        QTest::mouseClick(club.Control<QPushButton>("Command3(0)"), Qt::LeftButton);
        QCOMPARE(club.Control<QLineEdit>("Text2")->text(), QStringLiteral("2016"));
        QTest::mouseClick(club.Control<QPushButton>("Command3(0)"), Qt::LeftButton);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text2")), TintKind::None);
    }

    void stepping_back_has_no_lower_bound()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        for (int i = 0; i < 2018; ++i)
            StepYear(club.program, 1);
        QCOMPARE(club.program.Year.YearText, QStringLiteral("-1"));
    }

    void loading_a_year_without_file_says_so_and_keeps_the_shown_members()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const QStringList names = Names(club);
        StepYear(club.program, 1);
        StepYear(club.program, 1);
        club.Boxes.clear();
        QTest::mouseClick(club.Control<QPushButton>("Command4"), Qt::LeftButton);
        QCOMPARE(club.BoxTexts(),
            QStringList { QStringLiteral("Datenfehler: Für 2015 sind keine Daten gespeichert.") });
        QCOMPARE(Names(club), names);
        QCOMPARE(club.program.Year.LoadedYear, QStringLiteral("2017"));
        QVERIFY(!club.Exists(QStringLiteral("Mitgliedsdaten2015.pz")));
    }

    void loading_an_older_year_shows_it_and_writes_no_members_file()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        const QByteArray before = club.Read(QStringLiteral("Mitgliedsdaten2016.pz"));
        club.Start({ 2017, 11, 20 });
        StepYear(club.program, 1);
        LoadYear(club.program);
        QCOMPARE(club.Control<QLineEdit>("Text1(1)")->text(), QStringLiteral("1980"));
        QCOMPARE(
            club.Control<QLabel>("Label4")->text(), QStringLiteral("Preise für das Jahr 2016"));
        QCOMPARE(club.Control<QCalendarWidget>("Calendar1")->selectedDate().year(), 2016);
        QCOMPARE(club.Control<QCalendarWidget>("Calendar2")->selectedDate().year(), 2016);
        QCOMPARE(club.Read(QStringLiteral("Mitgliedsdaten2016.pz")), before);
        QVERIFY(club.program.Members.PreviousYearMissing);
    }

    void the_current_member_stays_when_it_is_still_there()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        SelectMember(club.program, 7);
        LoadYear(club.program);
        QCOMPARE(club.program.Member.CurrentMember, qint16(7));
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), QStringLiteral("Noack"));
        club.Write(QStringLiteral("Mitgliedsdaten2017.pz"), two_members);
        LoadYear(club.program);
        QCOMPARE(club.program.Member.CurrentMember, qint16(0));
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), QStringLiteral("Meier"));
    }

    void an_unreadable_members_file_leaves_what_was_loaded()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const QStringList names = Names(club);
        QByteArray many;
        for (int i = 0; i < 32768; ++i)
            many += "a;b\r\n";
        club.Write(QStringLiteral("Mitgliedsdaten2017.pz"), many);
        WithErrorBox(club.program.Errors, club.program.Ask, [&] { LoadYear(club.program); });
        QCOMPARE(club.BoxTexts(),
            QStringList { QStringLiteral("Kleingarten Parzello: Laufzeitfehler 6: Überlauf") });
        QCOMPARE(Names(club), names);
        QCOMPARE(club.program.Members.RecordList.size(), 8);
    }

    void calendars_survive_a_leap_day()
    {
        TestClub club;
        club.Write(QStringLiteral("Mitgliedsdaten2015.pz"), two_members);
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"), two_members);
        club.Start({ 2016, 2, 29 });
        StepYear(club.program, 1);
        LoadYear(club.program);
        QCOMPARE(club.Control<QCalendarWidget>("Calendar1")->selectedDate(), QDate(2015, 2, 28));
    }
};

const TestFile<TestStartUp> test_file(__FILE__);
#include "test_start_up.moc"
