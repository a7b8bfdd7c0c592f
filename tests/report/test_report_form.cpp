// The window of the reports: made anew when it is looked at, links by mouse and keys, search,
// paper, PDF.
#include "cashbook/ledger_view_form.h"
#include "report/report_form.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Reading : TestClub {
    int Made = 0;
    QStringList Actions;
    ReportKind Kind;

    Reading()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        Kind = { u"Probe"_s, u"Probebericht"_s,
            [this](Program& p, const ReportChoices& choices) { return Make(p, choices); },
            [this](Program&, const QString& action) { Actions += action; } };
    }

    Report Make(const Program& p, const ReportChoices& choices)
    {
        ++Made;
        Report report { u"Probe %1 – Kleingarten Parzello"_s.arg(p.Year.LoadedYear) };
        AddHeading(report, 1, u"Probe für %1"_s.arg(p.Year.LoadedYear));
        AddLinkLine(report, u"Zum Mitglied"_s, { LinkKind::Member, u"Text3(6)"_s, 2 });
        AddLinkLine(report, u"Zeig alles"_s, ShowAllLink(u"Liste"_s));
        AddLinkLine(report, u"Tu etwas"_s, { LinkKind::Action, u"etwas"_s, -1 });
        for (int i = 0; i < 100; ++i)
            AddSentence(report, u"Zeile %1"_s.arg(i + 1));
        if (choices.ShownWhole.contains(u"Liste"_s))
            AddSentence(report, u"Alles gezeigt"_s);
        return report;
    }

    /// In front, so that its keys work.
    void Open()
    {
        ShowReport(program, Kind);
        if (!QTest::qWaitForWindowActive(ReportWindow()))
            qFatal("the window does not come to the front");
    }

    QTextBrowser* Text() { return Control<QTextBrowser>("ReportText"); }
    QWidget* ReportWindow() { return Control<QWidget>("ReportWindow"); }

    void Follow(const LinkTarget& target)
    {
        QUrl url;
        url.setPath(LinkAddress(target));
        Q_EMIT Text()->anchorClicked(url);
    }
};

QString TextOfPdf(const QString& path)
{
    QProcess process;
    process.start(u"pdftotext"_s, { u"-layout"_s, path, u"-"_s });
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestReportForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_window_shows_the_report_and_its_title()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        QVERIFY(club.ReportWindow()->isVisible());
        QVERIFY(!club.ReportWindow()->isModal());
        QCOMPARE(club.ReportWindow()->parentWidget(), club.program.Window.Window);
        QCOMPARE(club.ReportWindow()->windowTitle(), u"Probe 2017 – Kleingarten Parzello"_s);
        QVERIFY(club.Text()->toPlainText().startsWith(u"Probe für 2017\nZum Mitglied\n"_s));
    }

    void opened_again_it_is_the_same_window()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        const QWidget* window = club.ReportWindow();
        ShowReport(club.program, club.Kind);
        QCOMPARE(club.Window()->findChildren<QWidget*>(u"ReportWindow"_s).size(), 1);
        QCOMPARE(club.ReportWindow(), window);
    }

    void it_is_made_anew_after_each_redraw_while_it_is_visible()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        const int before = club.Made;
        DrawStatementPages(club.program);
        QCOMPARE(club.Made, before + 1);
        LoadYear(club.program); // draws twice, is told once
        QCOMPARE(club.Made, before + 2);
        club.ReportWindow()->hide();
        DrawStatementPages(club.program);
        QCOMPARE(club.Made, before + 2);
    }

    void it_is_made_anew_when_it_comes_to_the_front()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        const int before = club.Made;
        QEvent front(QEvent::WindowActivate);
        QCoreApplication::sendEvent(club.ReportWindow(), &front);
        QCOMPARE(club.Made, before + 1);
    }

    void a_refresh_does_not_scroll()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        QCoreApplication::processEvents();
        club.Text()->verticalScrollBar()->setValue(100);
        club.program.Year.LoadedYear = u"2016"_s;
        RefreshReports(club.program);
        QVERIFY(club.Text()->toPlainText().startsWith(u"Probe für 2016"_s));
        QCOMPARE(club.Text()->verticalScrollBar()->value(), 100);
    }

    void a_link_is_followed_by_tab_and_enter()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.Text()->setFocus();
        QTest::keyClick(club.Text(), Qt::Key_Tab);
        QTest::keyClick(club.Text(), Qt::Key_Return);
        QCOMPARE(club.program.Member.CurrentMember, qint16(2));
        QCOMPARE(club.program.Window.Window->focusWidget(), club.Control<QWidget>("Text3(6)"));
    }

    void a_link_that_shows_all_makes_the_report_anew()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.Follow(ShowAllLink(u"Liste"_s));
        QVERIFY(club.Text()->toPlainText().contains(u"Alles gezeigt"_s));
        QVERIFY(club.Actions.isEmpty());
    }

    void other_actions_are_the_reports_own_business()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.Follow({ LinkKind::Action, u"etwas"_s, -1 });
        QCOMPARE(club.Actions, QStringList { u"etwas"_s });
    }

    void a_link_to_the_bill_presses_the_step_buttons()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.Follow({ LinkKind::BillPage, {}, 4 });
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 1);
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"5"_s);
        club.Follow({ LinkKind::BillPage, {}, 1 });
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"2"_s);
    }

    void a_link_to_a_booking_switches_the_account_and_picks_the_row()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.program.CashBook.CashBox.Lines = { u"01.03.2017;Kuchen;12,00;0,00"_s };
        club.Follow({ LinkKind::BankRow, {}, 0 });
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 2);
        QCOMPARE(club.program.CashBook.SelectedLedgerRow, 1);
        QCOMPARE(ShownAccount(club.program), Account::Bank);
        club.Follow({ LinkKind::CashBoxRow, u"Text10(0)"_s, 0 });
        QCOMPARE(ShownAccount(club.program), Account::CashBox);
        QCOMPARE(club.program.Window.Window->focusWidget(), club.Control<QWidget>("Text10(0)"));
    }

    void a_link_to_a_field_of_the_settings_brings_its_tab_to_the_front()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.Follow({ LinkKind::Control, u"Text6(1)"_s, -1 });
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 3);
        QCOMPARE(club.program.Window.Window->focusWidget(), club.Control<QWidget>("Text6(1)"));
    }

    void a_tab_that_is_left_by_a_link_asks_as_after_a_click()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.program.Window.SSTab1->setCurrentIndex(3);
        club.Boxes.clear();
        auto* iban = club.Control<QLineEdit>("Text6(1)");
        iban->setText(u"DE"_s);
        club.Answers = { BoxAnswer::No };
        club.Follow({ LinkKind::Member, u"Text3(0)"_s, 1 });
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 0);
    }

    void texts_in_the_member_form_are_not_left_without_a_question()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        auto* town = club.Control<QLineEdit>("Text3(3)");
        town->setText(u"Anderswo"_s);
        club.Answers = { BoxAnswer::No };
        club.Follow({ LinkKind::Member, u"Text3(0)"_s, 1 });
        QCOMPARE(club.BoxTexts().last(),
            u"Prüfbericht: Die Angaben im Formular sind nicht gespeichert. Trotzdem zum Mitglied wechseln ?"_s);
        QCOMPARE(club.program.Member.CurrentMember, qint16(0));
        QCOMPARE(town->text(), u"Anderswo"_s);
        club.Follow({ LinkKind::Member, u"Text3(3)"_s, 0 }); // he is shown already: no question
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(town->text(), u"Anderswo"_s);
        club.Answers = { BoxAnswer::Yes };
        club.Follow({ LinkKind::Member, u"Text3(0)"_s, 1 });
        QCOMPARE(club.program.Member.CurrentMember, qint16(1));
    }

    void a_target_that_is_gone_leads_to_its_tab_and_changes_nothing()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        for (const qsizetype gone : { qsizetype(-1), qsizetype(40000) }) {
            club.Follow({ LinkKind::Member, u"Text3(0)"_s, gone });
            QCOMPARE(club.program.Member.CurrentMember, qint16(0));
            club.Follow({ LinkKind::BankRow, {}, gone });
            QCOMPARE(club.program.CashBook.SelectedLedgerRow, 0);
            club.Follow({ LinkKind::BillPage, {}, gone });
        }
        club.Follow({ LinkKind::Control, u"Text99"_s, -1 });
        QVERIFY(club.Boxes.isEmpty());
    }

    void the_search_finds_the_next_place_and_begins_again()
    {
        Reading club;
        club.Open();
        auto* search = club.Control<QLineEdit>("ReportSearch");
        QVERIFY(!search->isVisible());
        QTest::keyClick(club.ReportWindow(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(search->isVisible());
        QTest::keyClicks(search, u"Zeile 10"_s);
        QCOMPARE(club.Text()->textCursor().selectedText(), u"Zeile 10"_s);
        const int first = club.Text()->textCursor().position();
        QTest::keyClick(search, Qt::Key_Return);
        QVERIFY(club.Text()->textCursor().position() > first); // "Zeile 100"
        QTest::keyClick(search, Qt::Key_Return);
        QCOMPARE(club.Text()->textCursor().position(), first);
        QTest::keyClick(search, Qt::Key_Escape);
        QVERIFY(!search->isVisible());
        QVERIFY(club.ReportWindow()->isVisible());
    }

    void escape_and_the_button_close_it()
    {
        Reading club;
        club.Open();
        QTest::keyClick(club.ReportWindow(), Qt::Key_Escape);
        QVERIFY(!club.ReportWindow()->isVisible());
        club.Open();
        QTest::mouseClick(club.Control<QPushButton>("ReportClose"), Qt::LeftButton);
        QVERIFY(!club.ReportWindow()->isVisible());
    }

    void ctrl_and_the_wheel_enlarge_the_text()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        const double before = club.Text()->font().pointSizeF();
        const QPointF middle(50, 50);
        QWheelEvent wheel(middle, club.Text()->mapToGlobal(middle), {}, { 0, 120 }, {},
            Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(club.Text()->viewport(), &wheel);
        QVERIFY(club.Text()->font().pointSizeF() > before);
    }

    void the_pdf_holds_every_line_the_page_numbers_the_club_and_the_day()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        const QString path = club.Folder.filePath(u"bericht.pdf"_s);
        QString suggested;
        club.program.Reports.AskPdfPath = [&](const QString& suggestion) {
            suggested = suggestion;
            return path;
        };
        QTest::mouseClick(club.Control<QPushButton>("ReportPdf"), Qt::LeftButton);
        QCOMPARE(suggested, u"Probe 2017.pdf"_s);
        const QString text = TextOfPdf(path);
        for (const QString& wanted : { u"Probe für 2017"_s, u"Zeile 1\n"_s, u"Zeile 100"_s,
                 u"Seite 1 von 2"_s, u"Seite 2 von 2"_s, club.program.ClubName, u"20.11.2017"_s })
            QVERIFY2(text.contains(wanted), qPrintable(wanted + u" in "_s + text));
        QVERIFY(club.Boxes.isEmpty());
    }

    void printing_asks_for_the_printer_and_prints()
    {
        Reading club;
        club.Open();
        const QString path = club.Folder.filePath(u"druck.pdf"_s);
        club.program.Reports.ShowPrintDialog = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(path);
            return true;
        };
        QTest::keyClick(club.ReportWindow(), Qt::Key_P, Qt::ControlModifier);
        QVERIFY(TextOfPdf(path).contains(u"Zeile 100"_s));
    }

    void a_pdf_that_cannot_be_written_is_told()
    {
        Reading club;
        ShowReport(club.program, club.Kind);
        club.program.Reports.AskPdfPath
            = [&](const QString&) { return club.Folder.filePath(u"nirgends/bericht.pdf"_s); };
        QTest::mouseClick(club.Control<QPushButton>("ReportPdf"), Qt::LeftButton);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes.first().icon, BoxIcon::Error);
    }
};

const TestFile<TestReportForm> test_file(__FILE__);
#include "test_report_form.moc"
