// When the members file of a year may be written, and what an error says.
#include "members/member_saving.h"

#include "data/file_names.h"
#include "tests/support/error_of.h"
#include "tests/support/sealed_file.h"
#include "tests/support/test_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Club {
    QTemporaryDir root;
    DataFiles files { root.filePath(u"data"_s), root.filePath(u"state"_s) };

    Club()
    {
        QDir().mkpath(files.DataDirectory);
        QDir().mkpath(files.StateDirectory);
    }

    void Put(const BillingYear& year, const QByteArray& content) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get(const BillingYear& year) const
    {
        QFile file(PathOf(files, MembersFileName(year)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
};

const QByteArray damaged = QByteArray(40000, 'x') + "\r\n"; // a line that no list can hold

MemberLists OneMember()
{
    MemberLists lists;
    lists.RecordList = QStringList { u"Alt;Eva"_s };
    return lists;
}

} // namespace

class TestMemberSaving : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_file_that_was_never_loaded_is_not_replaced()
    {
        const Club club;
        club.Put(u"2017"_s, "Berta\r\n");
        const RuntimeError error = ErrorOf(
            [&] { SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, u"Das Ende."_s); });
        QVERIFY(error.where.remedy.contains(u"nicht geladen"_s));
        QCOMPARE(error.where.file, u"Mitgliedsdaten2017.pz"_s);
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Berta\r\n"));
    }

    void a_year_without_a_file_gets_one()
    {
        const Club club;
        QVERIFY(!SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, {}));
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Alt;Eva\r\n"));
    }

    void the_loaded_year_is_saved()
    {
        const Club club;
        club.Put(u"2017"_s, "Berta\r\n");
        QVERIFY(!SaveMembers(OneMember(), club.files, u"2017"_s, u"2017"_s, {}, {}));
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Alt;Eva\r\n"));
    }

    void another_year_is_replaced_only_when_its_file_could_be_loaded()
    {
        const Club club;
        club.Put(u"2016"_s, "Berta\r\n");
        QVERIFY(!SaveMembers(OneMember(), club.files, u"2016"_s, u"2017"_s, {}, {}));
        QCOMPARE(club.Get(u"2016"_s), QByteArray("Alt;Eva\r\n"));
        club.Put(u"2016"_s, damaged);
        const RuntimeError error = ErrorOf([&] {
            SaveMembers(OneMember(), club.files, u"2016"_s, u"2017"_s, {}, u"Das Ende."_s);
        });
        QCOMPARE(error.reason, u"Datei ist nicht geladen"_s);
        QCOMPARE(club.Get(u"2016"_s), damaged);
    }

    void a_year_that_failed_to_load_stays_until_it_is_loaded()
    {
        const Club club;
        club.Put(u"2017"_s, "Berta\r\n");
        MemberTroubles troubles;
        troubles.NotLoaded = { u"2017"_s };
        const RuntimeError error
            = ErrorOf([&] { RequireMayWrite(club.files, u"2017"_s, u"2017"_s, troubles); });
        QCOMPARE(ErrorSentence(error),
            u"Datei „Mitgliedsdaten2017.pz“: Die Mitglieder dieses Jahres sind nicht geladen, "
            "darum wird ihre Datei nicht überschrieben. Bitte beheben Sie, was beim Laden gemeldet "
            "wurde, und drücken Sie „Laden“."_s);
        RequireMayWrite(club.files, u"2018"_s, u"2017"_s, troubles); // that year has no trouble
    }

    void no_year_begins_before_the_members_of_the_last_are_taken_over()
    {
        const Club club;
        club.Put(u"2016"_s, "Kurz;Karl\r\n");
        Place line;
        line.file = u"Mitgliedsdaten2016.pz"_s;
        line.line = 1;
        line.remedy = u"Die Zeile ist zu kurz."_s;
        MemberTroubles troubles;
        troubles.RollForward = RuntimeError { ErrorKind::SubscriptOutOfRange, line, {} };
        troubles.RollForwardYear = u"2017"_s;
        const auto check = [&] { RequireMayWrite(club.files, u"2017"_s, u"2017"_s, troubles); };
        const RuntimeError error = ErrorOf(check);
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.reason, u"Die Mitglieder von 2016 sind noch nicht übernommen"_s);
        QCOMPARE(ErrorSentence(error),
            u"Datei „Mitgliedsdaten2016.pz“, Zeile 1: Die Zeile ist zu kurz. Erst wenn das behoben "
            "und das Programm neu gestartet ist, werden Mitglieder von 2017 gespeichert; sonst "
            "gingen die von 2016 verloren."_s);
        troubles.RollForward->where.file.clear();
        QCOMPARE(ErrorOf(check).where.file, u"Mitgliedsdaten2016.pz"_s);
        club.Put(u"2017"_s, "Berta\r\n");
        check(); // somebody has put this year's file there: nothing is left to be taken over
        RequireMayWrite(club.files, u"2018"_s, u"2017"_s, troubles); // another year than that
    }

    void a_year_whose_predecessor_was_taken_away_may_begin()
    {
        const Club club;
        MemberTroubles troubles;
        troubles.RollForward = RuntimeError { ErrorKind::File, {}, {} };
        troubles.RollForwardYear = u"2017"_s;
        QVERIFY(!SaveMembers(OneMember(), club.files, u"2017"_s, u"2017"_s, troubles, {}));
        QCOMPARE(club.Get(u"2017"_s), QByteArray("Alt;Eva\r\n"));
    }

    void a_file_that_cannot_be_written_names_what_became_of_the_input()
    {
        const Club club;
        QDir(club.files.DataDirectory).mkdir(u"Mitgliedsdaten2017.pz"_s); // a folder in its place
        const RuntimeError error = ErrorOf(
            [&] { SaveMembers(OneMember(), club.files, u"2017"_s, {}, {}, u"Das Ende."_s); });
        QVERIFY2(error.where.remedy.endsWith(u"Das Ende."_s), qPrintable(error.where.remedy));
    }

    void a_save_that_only_the_next_start_can_enter_is_a_save()
    {
        const Club club;
        const SealedFile file(
            PathOf(club.files, MembersFileName(u"2017"_s)), "Berta\r\n", Seals::Length);
        if (!file.Works)
            QSKIP("there are no sealed files here");
        const auto error
            = SaveMembers(OneMember(), club.files, u"2017"_s, u"2017"_s, {}, u"Das Ende."_s);
        QVERIFY(error.has_value());
        QVERIFY(error->where.remedy.contains(u"beim nächsten Start"_s));
        QVERIFY(!error->where.remedy.contains(u"Das Ende."_s));
        QVERIFY(IsInFile(OneMember(), club.files, u"2017"_s)); // the note stands for the file
    }
};

const TestFile<TestMemberSaving> test_file(__FILE__);
#include "test_member_saving.moc"
