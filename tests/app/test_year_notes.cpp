// What the window says where it bites while the chosen year is not the loaded one.
#include "app/year_notes.h"

#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

const QString members = u"Alt;Eva;;;;1;300;1;0,00;0,00;0,00;0,00;100;150;20;25\r\n"_s;

const QList<const char*> all_notes { "YearNoteMember", "YearNoteReadings", "YearNoteBalance",
    "YearNoteLedger", "YearNotePrices" };

QString Said(const MemberClub& club, const char* name)
{
    const auto* line = club.Control<QLabel>(name);
    return line->isHidden() ? QString() : line->text();
}

} // namespace

class TestYearNotes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_said_while_the_loaded_year_is_chosen()
    {
        const MemberClub club(members);
        for (const char* name : all_notes)
            QCOMPARE(Said(club, name), QString());
    }

    void a_year_stepped_back_is_named_at_every_button_that_writes()
    {
        MemberClub club(members);
        club.Click("Command3(1)");
        const QString shown = u"Gewählt ist 2016, gezeigt ist 2017: "_s;
        QCOMPARE(Said(club, "YearNoteMember"), shown + u"Speichern schreibt in das Jahr 2016."_s);
        QCOMPARE(Said(club, "YearNoteReadings"), shown + u"OK schreibt in das Jahr 2016."_s);
        QCOMPARE(Said(club, "YearNoteLedger"), shown + u"Speichern schreibt in das Jahr 2016."_s);
        QCOMPARE(Said(club, "YearNotePrices"), shown + u"Speichern schreibt in das Jahr 2016."_s);
        ShowReadings(club.program);
        const auto* table
            = club.program.Readings.ReadingsWindow->findChild<QLabel*>(u"YearNoteReadingsTable"_s);
        QVERIFY(table->isVisible());
        QCOMPARE(table->text(), shown + u"Gespeichert wird in das Jahr 2016."_s);
        QCOMPARE(Said(club, "YearNoteBalance"),
            u"Gewählt ist 2016, gezeigt sind die Buchungen von 2017."_s);
    }

    void stepping_forward_again_silences_them()
    {
        const MemberClub club(members);
        club.Click("Command3(1)");
        club.Click("Command3(0)");
        for (const char* name : all_notes)
            QCOMPARE(Said(club, name), QString());
    }

    void loading_the_chosen_year_silences_them()
    {
        MemberClub club(members);
        club.Write(u"Mitgliedsdaten2016.pz"_s, members.toLatin1());
        club.Click("Command3(1)");
        club.Click("Command4");
        for (const char* name : all_notes)
            QCOMPARE(Said(club, name), QString());
    }

    void a_member_saved_into_the_chosen_year_makes_it_the_loaded_one()
    {
        const MemberClub club(members);
        club.Click("Command3(1)");
        club.Click("Command1(0)");
        for (const char* name : all_notes)
            QCOMPARE(Said(club, name), QString());
    }

    void they_take_no_room_while_they_say_nothing()
    {
        const MemberClub club(members);
        auto* frame = club.Control<QLabel>("YearNoteReadings")->parentWidget();
        const int without = frame->sizeHint().height();
        club.Click("Command3(1)");
        QVERIFY(frame->sizeHint().height() > without);
        club.Click("Command3(0)");
        QCOMPARE(frame->sizeHint().height(), without);
    }

    void nothing_loaded_at_all_says_nothing()
    {
        const MemberClub club { QString() };
        club.Click("Command3(1)");
        for (const char* name : all_notes)
            QCOMPARE(Said(club, name), QString());
    }
};

const TestFile<TestYearNotes> test_file(__FILE__);
#include "test_year_notes.moc"
