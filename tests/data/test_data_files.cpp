// Where a name leads, and what is said about a file that a call of the system refused.
#include "data/data_files.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const DataFiles files { u"/verein"_s, u"/zustand"_s };

QString RemedyFor(Fault fault, FileDeed deed)
{
    return FileError(files, u"\\Konto2016.pz"_s, fault, deed).where.remedy;
}

} // namespace

class TestDataFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_name_leads_into_the_data_directory()
    {
        for (const QString& name : { u"\\Konto2016.pz"_s, u"/Konto2016.pz"_s, u"Konto2016.pz"_s }) {
            QCOMPARE(NameWithin(name), u"Konto2016.pz"_s);
            QCOMPARE(PathOf(files, name), u"/verein/Konto2016.pz"_s);
        }
        QCOMPARE(NameWithin({}), QString());
        QCOMPARE(NameWithin(u"\\\\x"_s), u"\\x"_s);
    }

    void messages_name_the_last_part_of_a_path()
    {
        QCOMPARE(FileNameOf(u"/media/stick\\Konto2016.pz"_s), u"Konto2016.pz"_s);
        QCOMPARE(FileNameOf(u"Konto2016.pz"_s), u"Konto2016.pz"_s);
        QCOMPARE(FileNameOf(u"/media/"_s), QString());
        QCOMPARE(FileNameOf({}), QString());
    }

    void a_data_directory_that_is_not_there_has_a_state_directory_of_its_own()
    {
        qputenv("XDG_STATE_HOME", "/state");
        const QString missing = StateDirectoryFor(u"/no/such/folder"_s);
        QVERIFY(missing.startsWith(u"/state/parzello/"_s));
        QCOMPARE(StateDirectoryFor(u"/no/such/folder/"_s), missing);
        QVERIFY(StateDirectoryFor(u"/no/such/other"_s) != missing);
    }

    void an_error_names_file_reason_and_remedy()
    {
        const RuntimeError error = FileError(files, u"\\Konto2016.pz"_s, Fault::NoSpace,
            FileDeed::Write, u"Es wurde nicht gespeichert."_s);
        QCOMPARE(error.kind, ErrorKind::File);
        QCOMPARE(error.reason, u"Auf dem Gerät ist kein Speicherplatz mehr verfügbar"_s);
        QCOMPARE(ErrorSentence(error),
            u"Datei „Konto2016.pz“: Es wurde nicht gespeichert. Bitte auf dem Datenträger Platz "
            "schaffen und noch einmal speichern."_s);
    }

    void the_remedy_fits_what_the_system_said_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<int>("deed");
        QTest::addColumn<QString>("remedy");
        const auto row = [](Fault fault, FileDeed deed, const QString& remedy) {
            QTest::addRow("fault %d, deed %d", static_cast<int>(fault), static_cast<int>(deed))
                << static_cast<int>(fault) << static_cast<int>(deed) << remedy;
        };
        const QString rights
            = u"Bitte die Leserechte der Datei und des Ordners „/verein“ prüfen."_s;
        row(Fault::NoAccess, FileDeed::Read, rights);
        row(Fault::NotPermitted, FileDeed::Read, rights);
        const QString medium
            = u"Bitte prüfen, ob die Datei im Ordner „/verein“ liegt und der Datenträger in "
              "Ordnung ist."_s;
        row(Fault::Missing, FileDeed::Read, medium);
        row(Fault::BrokenMedium, FileDeed::Read, medium);
        const QString too_large
            = u"So groß ist keine Datei dieses Programms. Bitte prüfen, ob sie beschädigt ist."_s;
        row(Fault::TooLarge, FileDeed::Read, too_large);
        row(Fault::TooLarge, FileDeed::Write, too_large);
        const QString in_its_place
            = u"Im Ordner „/verein“ liegt an der Stelle der Datei etwas anderes. Bitte dieses "
              "umbenennen oder verschieben."_s;
        row(Fault::IsAFolder, FileDeed::Read, in_its_place);
        row(Fault::NotARegularFile, FileDeed::Restore, in_its_place);
        const QString space = u"Bitte auf dem Datenträger Platz schaffen und %1."_s;
        row(Fault::NoSpace, FileDeed::Write, space.arg(u"noch einmal speichern"_s));
        row(Fault::NoQuota, FileDeed::Finish, space.arg(u"das Programm neu starten"_s));
        const QString may_write
            = u"Bitte die Schreibrechte der Datei und des Ordners „/verein“ prüfen und noch einmal "
              "speichern."_s;
        row(Fault::NoAccess, FileDeed::Write, may_write);
        row(Fault::NotPermitted, FileDeed::Write, may_write);
        row(Fault::ReadOnlyMedium, FileDeed::Restore,
            u"Bitte den Schreibschutz des Datenträgers aufheben und noch einmal "
            "wiederherstellen."_s);
        const QString folder
            = u"Bitte prüfen, ob der Ordner „/verein“ noch da ist, und noch einmal speichern."_s;
        row(Fault::Missing, FileDeed::Write, folder);
        row(Fault::NotAFolder, FileDeed::Write, folder);
        row(Fault::NotAFileName, FileDeed::Write, u"Bitte die Datei umbenennen."_s);
        row(Fault::BrokenMedium, FileDeed::Finish,
            u"Bitte prüfen, ob der Datenträger mit dem Ordner „/verein“ in Ordnung ist, und das "
            "Programm neu starten."_s);
    }
    void the_remedy_fits_what_the_system_said()
    {
        QFETCH(int, fault);
        QFETCH(int, deed);
        QTEST(RemedyFor(static_cast<Fault>(fault), static_cast<FileDeed>(deed)), "remedy");
    }
};

const TestFile<TestDataFiles> test_file(__FILE__);
#include "test_data_files.moc"
