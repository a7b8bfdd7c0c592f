// The money reports in their window: the menu, the example clubs' texts, the links into the cash
// book, paper.
#include "money/money_form.h"

#include "report/report_text.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAccessible>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QUrl>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct MoneyClub : TestClub {
    explicit MoneyClub(const QString& example = u"ordinary-year"_s, bool starts = true)
    {
        CopyExample(example);
        if (starts)
            StartAsExample(example);
    }

    void StartAsExample(const QString& example)
    {
        Start(example == u"large-club"_s ? QDate(2018, 12, 20) : QDate(2017, 11, 20));
        program.Window.Window->show();
        Boxes.clear();
    }

    /// The entry of the menu "Mehr".
    void Choose(const char* entry) const
    {
        auto* action = Window()->findChild<QAction*>(QString::fromLatin1(entry));
        QVERIFY(action != nullptr);
        action->trigger();
    }

    OpenedReport& Opened(const char* kind)
    {
        return *OpenedReportOf(program, QString::fromLatin1(kind));
    }

    QString TextOf(const char* kind)
    {
        OpenedReport& opened = Opened(kind);
        return TextOfReport(opened.Kind.Make(program, opened.Choices));
    }

    void Follow(const char* kind, const LinkTarget& target)
    {
        QUrl url;
        url.setPath(LinkAddress(target));
        Q_EMIT Opened(kind).Text->anchorClicked(url);
    }

    /// The link on the name of that member.
    void FollowName(int member)
    {
        Follow("OpenItems", { LinkKind::Action, u"pay:%1"_s.arg(member), -1 });
    }

    QStringList Entry() const
    {
        QStringList texts;
        for (const QLineEdit* field : program.CashBookTab.Text10)
            texts += field->text();
        return texts << program.CashBookTab.Text11->text();
    }

    /// Every file of the data directory with its bytes.
    QMap<QString, QByteArray> Files() const
    {
        QMap<QString, QByteArray> files;
        for (const QString& name : QDir(program.Files.DataDirectory).entryList(QDir::Files))
            files[name] = Read(name);
        return files;
    }

    QString Pdf(const char* kind)
    {
        const QString path = Folder.filePath(u"bericht.pdf"_s);
        program.Reports.AskPdfPath = [path](const QString&) { return path; };
        Opened(kind).Window->findChild<QPushButton*>(u"ReportPdf"_s)->click();
        QProcess process;
        process.start(u"pdftotext"_s, { u"-layout"_s, path, u"-"_s });
        process.waitForFinished();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
};

QString Expected(const QString& club, const char* report)
{
    QFile file(QStringLiteral(PARZELLO_FIXTURES "/money/%1/%2.txt")
                   .arg(club, QString::fromLatin1(report)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no expected text");
    return QString::fromUtf8(file.readAll());
}

struct Entry {
    const char* action;
    const char* kind;
};
const Entry entries[] { { "MoreOpenItems", "OpenItems" }, { "MoreCashReport", "CashReport" },
    { "MoreCashBook", "CashBook" }, { "MoreYears", "Years" } };

} // namespace

class TestMoneyForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_menu_opens_each_report_with_its_title_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("title");
        const auto row = [](const char* action, const QString& caption, const QString& title) {
            QTest::addRow("%s", action) << QString::fromLatin1(action) << caption << title;
        };
        row("MoreOpenItems", u"&Offene Posten …"_s, u"Offene Posten 2017 – Kleingarten Parzello"_s);
        row("MoreCashReport", u"&Kassenbericht …"_s,
            u"Kassenbericht 2017 – Kleingarten Parzello"_s);
        row("MoreCashBook", u"Kassen&buch …"_s, u"Kassenbuch 2017 – Kleingarten Parzello"_s);
        row("MoreYears", u"&Jahre im Vergleich …"_s,
            u"Jahre im Vergleich – Kleingarten Parzello"_s);
    }
    void the_menu_opens_each_report_with_its_title()
    {
        QFETCH(QString, action);
        MoneyClub club;
        auto* entry = club.Window()->findChild<QAction*>(action);
        QVERIFY(entry != nullptr);
        QTEST(entry->text(), "caption");
        entry->trigger();
        const auto* window = club.Window()->findChild<QWidget*>(u"ReportWindow"_s);
        QVERIFY(window->isVisible());
        QTEST(window->windowTitle(), "title");
        QVERIFY(club.Boxes.isEmpty());
    }

    void the_example_clubs_have_the_reports_that_were_reckoned_twice_data()
    {
        QTest::addColumn<QString>("club");
        QTest::addRow("ordinary-year") << u"ordinary-year"_s;
        QTest::addRow("large-club") << u"large-club"_s;
    }
    void the_example_clubs_have_the_reports_that_were_reckoned_twice()
    {
        QFETCH(QString, club);
        MoneyClub money(club);
        for (const Entry& entry : entries) {
            money.Choose(entry.action);
            QCOMPARE(money.TextOf(entry.kind), Expected(club, entry.kind));
        }
    }

    void looking_at_all_of_them_changes_no_file_and_no_booking()
    {
        MoneyClub club(u"large-club"_s);
        const QMap<QString, QByteArray> files = club.Files();
        const QStringList bank = club.program.CashBook.Bank.Lines;
        for (const Entry& entry : entries) {
            club.Choose(entry.action);
            club.Pdf(entry.kind);
        }
        QCOMPARE(club.Files(), files);
        QCOMPARE(club.program.CashBook.Bank.Lines, bank);
        QVERIFY(!club.program.CashBook.LedgerChanged);
    }

    void the_link_on_a_name_fills_the_fields_and_books_nothing()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        const QStringList before = club.program.CashBook.Bank.Lines;
        const QString date = club.Entry().first();
        club.program.CashBookTab.Text10[3]->setText(u"7,00"_s);
        club.FollowName(1);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 2);
        QCOMPARE(club.Entry(),
            (QStringList { date, u"Abrechnung 2017 Garten 2 Sommer Käthe"_s, u"25,99"_s, u"0,00"_s,
                u"3 Raten"_s }));
        QCOMPARE(club.program.CashBook.Bank.Lines, before);
        QVERIFY(!club.program.CashBook.Bank.Unsaved);
    }

    void the_booked_rest_makes_the_bill_paid()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        club.FollowName(1);
        club.program.CashBookTab.Text10[0]->setText(u"25.11.2017"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command12(0)"), Qt::LeftButton);
        const QString text = club.TextOf("OpenItems");
        QVERIFY(text.contains(u"Sommer,Käthe\t119,04 €\t119,04 €\t0,00 €\t3 × 39,68 €, 3 von 3 "
                              "bezahlt\t25.11.2017\tbezahlt"_s));
        QVERIFY(text.contains(u"Enthält 1 noch nicht gespeicherte Buchung."_s));
        QTest::mouseClick(club.Control<QPushButton>("CommandSaveLedger"), Qt::LeftButton);
        QVERIFY(!club.TextOf("OpenItems").contains(u"Enthält"_s));
        QCOMPARE(
            PaidTip(club.program, 1), u"bezahlt 119,04 € von 119,04 €, Rest 0,00 €, 3 Raten"_s);
    }

    void from_the_cash_box_the_link_switches_to_the_bank_account()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        club.program.Window.SSTab1->setCurrentIndex(2);
        QTest::mouseClick(club.Control<QPushButton>("Command15"), Qt::LeftButton);
        club.FollowName(0);
        QVERIFY(club.program.CashBookTab.Label21->text().startsWith(u"Konto "_s));
        QCOMPARE(club.Entry()[1], u"Abrechnung 2017 Garten 1 Krüger Heinz"_s);
    }

    void the_guard_asks_before_the_link_leaves_the_settings()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        club.program.Window.SSTab1->setCurrentIndex(3);
        auto* price = club.Control<QLineEdit>("Text4(0)");
        price->setFocus();
        price->selectAll();
        QTest::keyClicks(price, u"0,99"_s);
        club.Answers = { BoxAnswer::No };
        club.FollowName(0);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 2);
    }

    void a_name_that_is_there_no_more_does_nothing()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        const QStringList before = club.Entry();
        club.FollowName(99);
        club.Follow("OpenItems", { LinkKind::Action, u"pay:x"_s, -1 });
        QCOMPARE(club.Entry(), before);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 0);
        QVERIFY(PaidTip(club.program, 99).isEmpty());
    }

    void a_click_on_a_heading_sorts()
    {
        MoneyClub club;
        club.Choose("MoreOpenItems");
        const auto order = [&club] {
            const QString text = club.Opened("OpenItems").Text->toPlainText();
            return text.indexOf(u"Größle,Änne"_s) < text.indexOf(u"Krüger,Heinz"_s);
        };
        QVERIFY(!order());
        club.Follow("OpenItems", SortLink(u"open_items"_s, 2));
        QVERIFY(order()); // 132,83 € before 173,66 €
        club.Follow("OpenItems", SortLink(u"open_items"_s, 2));
        QVERIFY(!order());
    }

    void a_ledger_that_cannot_be_read_is_named()
    {
        MoneyClub club(u"ordinary-year"_s, false);
        QFile::remove(club.Path(u"Konto2016.pz"_s));
        QVERIFY(QDir(club.program.Files.DataDirectory).mkdir(u"Konto2016.pz"_s));
        club.StartAsExample(u"ordinary-year"_s);
        for (const Entry& entry : entries)
            club.Choose(entry.action);
        const QString named = u"Konto2016.pz ist nicht lesbar und fehlt in diesem Bericht."_s;
        for (const char* kind : { "OpenItems", "CashReport", "CashBook" })
            QVERIFY2(club.TextOf(kind).contains(named), kind);
    }

    void without_any_file_each_report_has_its_sentence()
    {
        MoneyClub club(u"no-ledger-yet"_s, false);
        for (const QString& name : QDir(club.program.Files.DataDirectory).entryList(QDir::Files))
            QFile::remove(club.Path(name));
        club.StartAsExample({});
        for (const Entry& entry : entries)
            club.Choose(entry.action);
        QVERIFY(club.TextOf("OpenItems").contains(u"Für 2017 sind keine Mitglieder geladen."_s));
        QVERIFY(club.TextOf("CashReport").contains(u"Für 2017 ist nichts gebucht."_s));
        QVERIFY(club.TextOf("CashBook").contains(u"Für 2017 ist nichts gebucht."_s));
        QVERIFY(club.TextOf("Years").contains(u"Bis 2017 gibt es kein Mitgliederverzeichnis."_s));
    }

    void a_screen_reader_reads_each_report()
    {
        MoneyClub club;
        for (const Entry& entry : entries) {
            club.Choose(entry.action);
            const OpenedReport& opened = club.Opened(entry.kind);
            QAccessibleInterface* text = QAccessible::queryAccessibleInterface(opened.Text);
            QVERIFY(text != nullptr && text->textInterface() != nullptr);
            QCOMPARE(text->text(QAccessible::Name), opened.Kind.Caption);
            const int length = text->textInterface()->characterCount();
            QVERIFY(text->textInterface()->text(0, length).startsWith(opened.Kind.Caption));
        }
    }

    void the_auditors_page_is_a_page_of_its_own()
    {
        MoneyClub club;
        club.Choose("MoreCashReport");
        const QStringList pages = club.Pdf("CashReport").split(u'\f', Qt::SkipEmptyParts);
        QCOMPARE(pages.size(), 2);
        QVERIFY(pages[0].contains(u"Kassenbericht 2017"_s));
        QVERIFY(pages[0].contains(u"Seite 1 von 2"_s));
        QVERIFY(pages[0].contains(u"Stand 20.11.2017"_s));
        QVERIFY(!pages[0].contains(u"Kassenprüfung"_s));
        QVERIFY(pages[1].contains(u"Kassenprüfung 2017"_s));
        QVERIFY(pages[1].contains(u"Kassenwart: Renate Noack"_s));
        QVERIFY(pages[1].contains(u"Seite 2 von 2"_s));
    }

    void each_page_of_the_cash_book_begins_with_what_is_carried_over()
    {
        MoneyClub club(u"large-club"_s);
        club.Choose("MoreCashBook");
        const QStringList pages = club.Pdf("CashBook").split(u'\f', Qt::SkipEmptyParts);
        QCOMPARE(pages.size(), 4);
        QCOMPARE(pages[0].count(u"Übertrag  "_s), 1);
        QCOMPARE(pages[1].count(u"Übertrag  "_s), 2);
        QCOMPARE(pages[2].count(u"Übertrag  "_s), 1);
        QVERIFY(pages[2].contains(u"10.107,10 €"_s));
        QVERIFY(pages[3].contains(u"Handkasse"_s));
    }
};

const TestFile<TestMoneyForm> test_file(__FILE__);
#include "test_money_form.moc"
