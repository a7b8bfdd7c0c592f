// A run of "Abrechnungen als PDF" that ends between two members.
#include "history/history_report.h"
#include "outgoing/bill_files.h"
#include "outgoing/bills_as_pdf_form.h"
#include "report/report_text.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct RunClub : TestClub {
    QString Place; ///< folder for the PDFs, not there yet
    std::vector<BillFile> Wanted; ///< in the order of the members

    RunClub()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        Place = Folder.filePath(u"Abrechnungen"_s);
        Wanted = BillFilesOf(program.Statement, BillSplit::FilePerMember);
        ShowBillsAsPdf(program);
        Control<QLineEdit>("BillsFolder")->setText(Place);
    }

    void Create() { Control<QPushButton>("BillsCreate")->click(); }
    QSet<QString> Files()
    {
        const QStringList names = QDir(Place).entryList(QDir::Files | QDir::Hidden);
        return { names.begin(), names.end() };
    }
    QSet<QString> FirstWanted(std::size_t count)
    {
        QSet<QString> names;
        for (std::size_t file = 0; file < count; ++file)
            names += Wanted[file].Name;
        return names;
    }
    QString History() const { return TextOfReport(HistoryReport(program.Files, {})); }
};

} // namespace

class TestBillsRunForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nobody_behind_the_member_at_whom_it_was_cancelled_gets_a_file()
    {
        RunClub club;
        auto* cancel = club.Control<QPushButton>("BillsCancel");
        connect(club.Control<QProgressBar>("BillsProgress"), &QProgressBar::valueChanged, cancel,
            [cancel](int done) {
                if (done == 3) // bills of others are drawn by now
                    cancel->click();
            });
        club.Create();
        QCOMPARE(club.Files(), club.FirstWanted(3));
        QCOMPARE(club.Control<QLabel>("BillsResult")->text(),
            u"Abgebrochen. 3 Dateien liegen im Ordner „%1“."_s.arg(club.Place));
        QVERIFY2(club.History().contains(u"Abrechnungen 2017: Seiten 1 bis 3 als PDF"_s),
            qPrintable(club.History()));
    }

    void a_file_that_cannot_be_written_leaves_those_before_it()
    {
        RunClub club;
        const QString& third = club.Wanted[2].Name;
        QVERIFY(QDir().mkpath(club.Place + u'/' + third + u"/voll"_s)); // stands in the way
        club.Create();
        QCOMPARE(club.Files(), club.FirstWanted(2));
        QVERIFY(club.Boxes.constLast().text.contains(third));
        QVERIFY(club.Boxes.constLast().detail.contains(u"2 Dateien liegen im Ordner"_s));
        QVERIFY(club.History().contains(u"Abrechnungen 2017: Seiten 1 bis 2 als PDF"_s));
    }

    void a_cancelled_run_can_be_made_whole_by_another()
    {
        RunClub club;
        auto* cancel = club.Control<QPushButton>("BillsCancel");
        const QMetaObject::Connection once = connect(club.Control<QProgressBar>("BillsProgress"),
            &QProgressBar::valueChanged, cancel, [cancel](int done) {
                if (done == 1)
                    cancel->click();
            });
        club.Create();
        disconnect(once);
        QCOMPARE(club.Files(), club.FirstWanted(1));
        club.Create();
        QCOMPARE(club.Files(), club.FirstWanted(club.Wanted.size()));
        QVERIFY2(club.BoxTexts().constLast().contains(u"schon"_s),
            qPrintable(club.BoxTexts().constLast()));
    }
};

const TestFile<TestBillsRunForm> test_file(__FILE__);
#include "test_bills_run_form.moc"
