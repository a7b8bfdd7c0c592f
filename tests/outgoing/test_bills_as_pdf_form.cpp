// The dialog "Abrechnungen als PDF": which files lie where, what is refused, what is said.
#include "history/history_report.h"
#include "outgoing/bills_as_pdf_form.h"
#include "report/report_text.h"
#include "tests/support/club.h"
#include "tests/support/printed.h"
#include "tests/support/privileges.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct BillsClub : TestClub {
    QString Place; ///< folder for the PDFs, not there yet

    BillsClub()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        Place = Folder.filePath(u"Abrechnungen Übung"_s);
        Open();
        Control<QLineEdit>("BillsFolder")->setText(Place);
    }

    void Open() { Control<QAction>("MorePdf")->trigger(); }
    void Create(const char* split = "BillsPerMember")
    {
        Control<QRadioButton>(split)->click();
        Control<QPushButton>("BillsCreate")->click();
    }
    QString Result() { return Control<QLabel>("BillsResult")->text(); }
    QStringList Files() { return QDir(Place).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    qsizetype Members() { return program.Members.RecordList.size(); }
};

QString HistoryWords(const BillsClub& club)
{
    return TextOfReport(HistoryReport(club.program.Files, {}));
}

} // namespace

class TestBillsAsPdfForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_member_gets_a_file_with_the_own_page()
    {
        BillsClub club;
        club.Create();
        QCOMPARE(club.Files().size(), club.Members());
        QVERIFY2(club.Result().contains(
                     u"%1 Dateien liegen im Ordner „%2“."_s.arg(club.Members()).arg(club.Place)),
            qPrintable(club.Result()));
        const QString first = club.Files().constFirst();
        QVERIFY(first.startsWith(u"Abrechnung 2017 Garten "_s));
        QCOMPARE(PagesOfPdf(QDir(club.Place).filePath(first)), 1);
        QCOMPARE(TitleOfPdf(QDir(club.Place).filePath(first)), u"Abrechnung Kleingarten 2017"_s);
        QCOMPARE(DotsPerInchOfPdf(QDir(club.Place).filePath(first)), 300);
        const QString surname = club.program.Members.NameList.constFirst().section(u',', 0, 0);
        QVERIFY(!club.Files().filter(surname).isEmpty());
        QVERIFY(club.Boxes.isEmpty());
        QVERIFY(club.Control<QPushButton>("BillsOpenFolder")
                    ->isVisibleTo(club.Control<QDialog>("BillsAsPdf")));
    }

    void all_in_one_file_has_a_page_for_each()
    {
        BillsClub club;
        club.Create("BillsInOne");
        QCOMPARE(club.Files(), QStringList(u"Abrechnungen 2017.pdf"_s));
        QCOMPARE(PagesOfPdf(QDir(club.Place).filePath(u"Abrechnungen 2017.pdf"_s)), club.Members());
        QVERIFY(club.Result().startsWith(u"1 Datei liegt im Ordner „"_s));
    }

    void the_shown_page_alone_becomes_the_file_of_its_member()
    {
        BillsClub club;
        club.Control<QPushButton>("Command9(0)")->click();
        club.Create("BillsShownPage");
        QCOMPARE(club.Files().size(), 1);
        const QString name = club.program.Members.NameList[1].section(u',', 1, 1);
        QVERIFY(
            TextOfPdfPage(QDir(club.Place).filePath(club.Files().constFirst()), 0).contains(name));
    }

    void files_that_are_there_are_asked_about_once()
    {
        BillsClub club;
        club.Create();
        club.Answers = { BoxAnswer::No };
        QFile old(QDir(club.Place).filePath(club.Files().constFirst()));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
        old.close();
        club.Create();
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(club.Boxes.constLast().text.contains(
            u"%1 Dateien gibt es in diesem Ordner schon."_s.arg(club.Members())));
        QCOMPARE(old.size(), 3);
        club.Create();
        QVERIFY(old.size() > 1000);
        QCOMPARE(club.Boxes.size(), 2);
    }

    void the_folder_of_the_data_is_refused_data()
    {
        QTest::addColumn<QString>("within");
        QTest::newRow("itself") << QString();
        QTest::newRow("a folder in it, not there yet") << u"/Neu/Ordner"_s;
        QTest::newRow("by a detour") << u"/../daten"_s;
    }

    void the_folder_of_the_data_is_refused()
    {
        QFETCH(QString, within);
        BillsClub club;
        const QString data = club.program.Files.DataDirectory;
        const QStringList before = QDir(data).entryList();
        club.Control<QLineEdit>("BillsFolder")->setText(data + within);
        club.Create();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes.constLast().text,
            u"Im Ordner des Programms liegen nur die Daten des Vereins. Bitte einen anderen Ordner "
            "wählen."_s);
        QCOMPARE(QDir(data).entryList(), before);
    }

    void a_link_to_the_folder_of_the_data_is_refused()
    {
        BillsClub club;
        const QString link = club.Folder.filePath(u"Verweis"_s);
        QVERIFY(QFile::link(club.program.Files.DataDirectory, link));
        club.Control<QLineEdit>("BillsFolder")->setText(link);
        club.Create();
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(QDir(link).entryList({ u"*.pdf"_s }).isEmpty());
    }

    void a_folder_that_cannot_be_made_is_named_with_the_reason()
    {
        BillsClub club;
        QFile file(club.Folder.filePath(u"Datei"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        club.Control<QLineEdit>("BillsFolder")->setText(file.fileName() + u"/Ordner"_s);
        club.Create();
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY2(club.Boxes.constLast().text.contains(file.fileName()),
            qPrintable(club.Boxes.constLast().text));
    }

    void a_file_that_cannot_be_written_ends_the_run_and_leaves_no_half()
    {
        BillsClub club;
        club.Create();
        const QString third = QDir(club.Place).filePath(club.Files().at(2));
        QVERIFY(QFile::remove(third));
        QVERIFY(QDir().mkpath(third + u"/voll"_s)); // a folder of that name stands in the way
        club.Create();
        QVERIFY2(club.Boxes.constLast().text.contains(QFileInfo(third).fileName()),
            qPrintable(club.Boxes.constLast().text));
        QVERIFY(club.Boxes.constLast().text.contains(club.Place));
        QVERIFY(club.Boxes.constLast().detail.contains(u"im Ordner"_s));
        QCOMPARE(club.Files().size(), club.Members() - 1);
        QVERIFY(club.Files().filter(u"unfertig"_s).isEmpty());
    }

    void cancelling_keeps_the_whole_files_that_are_there()
    {
        BillsClub club;
        club.Answers = {};
        auto* cancel = club.Control<QPushButton>("BillsCancel");
        QMetaObject::invokeMethod(cancel, &QPushButton::click, Qt::QueuedConnection);
        club.Create(); // the press waits until the first file asks for events
        QVERIFY2(club.Result().startsWith(u"Abgebrochen. "_s), qPrintable(club.Result()));
        QVERIFY(club.Files().size() < club.Members());
        QVERIFY(club.Files().filter(u"unfertig"_s).isEmpty());
        QCOMPARE(cancel->text(), u"Schließen"_s);
    }

    void members_without_a_bill_are_named_and_get_no_file()
    {
        BillsClub club;
        MemberRecord fields = SplitRecord(club.program.Members.RecordList[1]);
        fields[ElectricityEnd] = u"x"_s;
        club.program.Members.RecordList[1] = JoinRecord(fields);
        DrawStatementPages(club.program);
        club.Boxes.clear();
        club.Create();
        QCOMPARE(club.Files().size(), 1);
        QVERIFY2(club.Result().contains(
                     u"%1 Mitglieder haben keine Rechnung: %2; "_s.arg(club.Members() - 1)
                         .arg(NameEntry(fields))),
            qPrintable(club.Result()));
    }

    void progress_is_shown_once_there_is_some()
    {
        BillsClub club;
        const auto* progress = club.Control<QProgressBar>("BillsProgress");
        QVERIFY(!progress->isVisibleTo(club.Control<QDialog>("BillsAsPdf")));
        club.Create("BillsShownPage");
        QVERIFY(progress->isVisibleTo(club.Control<QDialog>("BillsAsPdf")));
        QCOMPARE(progress->value(), 1);
    }

    void a_finished_run_is_an_entry_of_the_history()
    {
        BillsClub club;
        club.Create("BillsInOne");
        QVERIFY(HistoryWords(club).contains(
            u"Abrechnungen 2017: Seiten 1 bis %1 als PDF"_s.arg(club.Members())));
    }

    void a_run_that_was_cancelled_before_its_first_file_is_none()
    {
        BillsClub club;
        auto* cancel = club.Control<QPushButton>("BillsCancel");
        QMetaObject::invokeMethod(cancel, &QPushButton::click, Qt::QueuedConnection);
        club.Create("BillsInOne");
        QVERIFY2(club.Result().startsWith(u"Abgebrochen. "_s), qPrintable(club.Result()));
        QVERIFY(!HistoryWords(club).contains(u"Abrechnungen 2017"_s));
    }

    void the_proposed_folder_names_the_year()
    {
        QVERIFY(ProposedBillsFolder(u"2026"_s).endsWith(u"/Abrechnungen 2026"_s));
    }

    void choosing_and_opening_a_folder_ask_the_desktop()
    {
        BillsClub club;
        QString opened;
        club.program.BillsAsPdf.ChooseFolder
            = [&](QWidget*, const QString&) { return club.Folder.filePath(u"Gewählt"_s); };
        club.program.BillsAsPdf.OpenFolder = [&](const QString& folder) { opened = folder; };
        club.Control<QPushButton>("BillsChooseFolder")->click();
        club.Create();
        club.Control<QPushButton>("BillsOpenFolder")->click();
        QCOMPARE(opened, club.Folder.filePath(u"Gewählt"_s));
    }

    void each_row_of_a_bill_is_read_as_one_line()
    {
        BillsClub club;
        club.Create("BillsInOne");
        QProcess reader;
        reader.start(u"pdftotext"_s,
            { u"-raw"_s, u"-f"_s, u"1"_s, u"-l"_s, u"1"_s,
                QDir(club.Place).filePath(u"Abrechnungen 2017.pdf"_s), u"-"_s });
        QVERIFY(reader.waitForFinished());
        const QStringList lines = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n');
        const auto starts = [&](const QString& beginning) {
            for (const QString& line : lines) {
                if (line.simplified().startsWith(beginning))
                    return line.simplified();
            }
            return QString();
        };
        const QString first = starts(u"1 Strom KWh"_s);
        QVERIFY2(
            QRegularExpression(u"^1 Strom KWh \\d+ [\\d,]+ [\\d,]+$"_s).match(first).hasMatch(),
            qPrintable(lines.join(u'\n')));
        QVERIFY2(starts(u"IBAN "_s).contains(u"Termin"_s), qPrintable(starts(u"IBAN"_s)));
        QVERIFY(starts(u"18 Gesamtsumme"_s).endsWith(u"€"_s));
    }
};

const TestFile<TestBillsAsPdfForm> test_file(__FILE__);
#include "test_bills_as_pdf_form.moc"
