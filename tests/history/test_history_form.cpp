// The window "Verlauf": what each kind of action leaves there, and taking it back to the byte.
#include "check/check_form.h"
#include "history/history_form.h"
#include "history/kept_actions.h"
#include "history/shown_total.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString members = u"Mitgliedsdaten2017.pz"_s;
const QString ledger = u"Konto2017.pz"_s;
const QString prices = u"Config.ini"_s;

struct HistoryClub : TestClub {
    HistoryClub()
    {
        CopyExample(u"ordinary-year"_s);
        program.Files.History->Now = [] { return QDateTime({ 2017, 11, 20 }, { 14, 3 }); };
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        Boxes.clear();
    }

    QString Text()
    {
        ShowHistory(program);
        return Control<QTextBrowser>("ReportText")->toPlainText();
    }

    /// Follows a link of the shown report by its address.
    void Follow(const QString& action)
    {
        QUrl url;
        url.setPath(LinkAddress({ LinkKind::Action, action, -1 }));
        Q_EMIT program.Reports.Opened[u"History"_s].Text->anchorClicked(url);
    }

    void PressUndo()
    {
        Boxes.clear();
        program.Window.Window->activateWindow();
        if (!QTest::qWaitForWindowActive(program.Window.Window))
            qFatal("the window does not come to the front");
        QTest::keyClick(program.Window.Window, Qt::Key_Z, Qt::ControlModifier);
    }

    void Click(const char* name) { Control<QPushButton>(name)->click(); }

    void ChooseMember(int row) { Control<QListWidget>("List1")->setCurrentRow(row); }

    qint64 LastNumber()
    {
        QList<HistoryEntry> entries;
        if (ReadHistory(program.Files, entries) || entries.isEmpty())
            qFatal("no history");
        return entries.last().Mark.Number;
    }
};

} // namespace

class TestHistoryForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_entry_of_the_menu_opens_the_window()
    {
        HistoryClub club;
        club.Control<QAction>("MoreHistory")->trigger();
        QVERIFY(club.Control<QTextBrowser>("ReportText")
                    ->toPlainText()
                    .startsWith(u"Der Verlauf liegt auf diesem Rechner, nicht auf dem Stick und "
                                "nicht in der Datensicherung."_s));
        QCOMPARE(club.Control<QWidget>("ReportWindow")->windowTitle(),
            u"Verlauf – Kleingarten Parzello"_s);
    }

    void a_deleted_member_comes_back_by_the_key()
    {
        HistoryClub club;
        const QByteArray before = club.Read(members);
        const QString name = club.program.Members.NameList[1];
        club.ChooseMember(1);
        club.Click("Command1(2)");
        QVERIFY(club.Read(members) != before);
        QVERIFY(club.Text().contains(name + u" gelöscht"_s));
        club.PressUndo();
        QCOMPARE(club.Boxes.first().title, u"Verlauf"_s);
        QCOMPARE(club.Boxes.first().text,
            u"Soll „%1 gelöscht“ zurückgenommen werden ? Der jetzige Stand bleibt im Verlauf."_s
                .arg(name));
        QCOMPARE(club.Read(members), before);
        QCOMPARE(club.program.Members.NameList[1], name); // loaded anew
    }

    void taking_back_is_taken_back_by_the_same_key()
    {
        HistoryClub club;
        club.ChooseMember(1);
        club.Click("Command1(2)");
        const QByteArray without = club.Read(members);
        club.PressUndo();
        QVERIFY(club.Text().contains(u"zurückgeholt: "_s));
        club.PressUndo();
        QCOMPARE(club.Read(members), without);
    }

    void no_leaves_everything_as_it_is()
    {
        HistoryClub club;
        club.ChooseMember(1);
        club.Click("Command1(2)");
        const QByteArray without = club.Read(members);
        const qint64 number = club.LastNumber();
        club.Answers = { BoxAnswer::No };
        club.PressUndo();
        QCOMPARE(club.Read(members), without);
        QCOMPARE(club.LastNumber(), number);
    }

    void in_a_text_field_the_key_stays_the_fields()
    {
        HistoryClub club;
        club.ChooseMember(1);
        club.Click("Command1(2)");
        club.Boxes.clear();
        auto* field = club.Control<QLineEdit>("Text3(2)");
        field->setFocus();
        field->setText(u"Weg 1"_s);
        QTest::keyClicks(field, u"2"_s);
        QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field->text(), u"Weg 1"_s);
        QCOMPARE(club.Boxes.size(), 0);
    }

    void a_wrong_reading_is_taken_back()
    {
        HistoryClub club;
        club.ChooseMember(0);
        const QByteArray before = club.Read(members);
        club.Control<QLineEdit>("Text1(1)")->setText(u"999999"_s);
        club.Click("Command2");
        QVERIFY(club.Read(members).contains("999999"));
        QVERIFY(club.Text().contains(u"Endstand Strom "_s));
        QVERIFY(club.Text().contains(u" → 999999"_s));
        club.PressUndo();
        QCOMPARE(club.Read(members), before);
        QVERIFY(club.Control<QLineEdit>("Text1(1)")->text() != u"999999"_s);
    }

    void a_booking_is_taken_back()
    {
        HistoryClub club;
        const QByteArray before = club.Read(ledger);
        club.Control<QLineEdit>("Text10(0)")->setText(u"19.11.2017"_s);
        club.Control<QLineEdit>("Text10(1)")->setText(u"Abrechnung Albers"_s);
        club.Control<QLineEdit>("Text10(2)")->setText(u"193,53"_s);
        club.Click("Command12(0)");
        club.program.CashBookTab.CommandSaveLedger->click();
        const qsizetype bookings = club.program.CashBook.Bank.Lines.size();
        QVERIFY(club.Text().contains(u"Buchung dazu: 19.11.2017 Abrechnung Albers 193,53"_s));
        club.program.CashBookTab.CommandSaveLedger->setFocus();
        club.PressUndo();
        QCOMPARE(club.Read(ledger), before);
        QCOMPARE(club.program.CashBook.Bank.Lines.size(), bookings - 1);
    }

    void prices_are_taken_back()
    {
        HistoryClub club;
        club.Click("Command5"); // a key that the file did not have
        const QByteArray before = club.Read(prices);
        club.Control<QLineEdit>("Text4(0)")->setText(u"0,99"_s);
        club.Click("Command5");
        QVERIFY(club.Text().contains(u"Stromkosten 2017: "_s));
        club.program.SettingsTab.Command5->setFocus();
        club.PressUndo();
        QCOMPARE(club.Read(prices), before);
        QVERIFY(club.Control<QLineEdit>("Text4(0)")->text() != u"0,99"_s);
    }

    void a_save_into_the_wrong_year_is_taken_back()
    {
        HistoryClub club;
        const QString other = u"Mitgliedsdaten2016.pz"_s;
        const QByteArray before = club.Read(other);
        QVERIFY(!before.isEmpty());
        club.ChooseMember(1);
        club.Click("Command3(1)");
        club.Click("Command1(0)");
        QVERIFY(club.Read(other) != before);
        club.Click("Command3(0)");
        club.Control<QPushButton>("Command3(0)")->setFocus();
        club.PressUndo();
        QCOMPARE(club.Read(other), before);
    }

    void a_restore_of_many_files_is_taken_back_as_a_whole()
    {
        HistoryClub club;
        const QString stick = club.Drive + u"/Parzello"_s;
        QVERIFY(QDir().mkpath(stick));
        QMap<QString, QByteArray> before;
        for (const QString& name : { members, ledger, prices }) {
            before[name] = club.Read(name);
            QFile file(stick + u'/' + name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(before[name] + "x;y;1,00;0,00\r\n");
        }
        club.Click("Command11");
        QVERIFY(club.Text().contains(u"vom Stick wiederhergestellt: 3 Dateien"_s));
        QVERIFY(club.Text().contains(u"vorgefunden: 3 Dateien"_s));
        club.Control<QPushButton>("Command11")->setFocus();
        club.PressUndo();
        for (const QString& name : before.keys())
            QCOMPARE(club.Read(name), before.value(name));
    }

    void a_chosen_state_is_asked_for_and_comes_back()
    {
        HistoryClub club;
        const QByteArray found = club.Read(members);
        for (int i = 0; i < 3; ++i) {
            club.ChooseMember(0);
            club.Click("Command1(2)");
        }
        club.Text();
        club.Boxes.clear();
        club.Follow(u"take-1"_s);
        QCOMPARE(club.Boxes.first().text,
            u"Soll der Stand vom 20.11.2017, 14:03 Uhr von „Mitglieder 2017“ zurückgeholt "
            "werden ? Der jetzige Stand bleibt im Verlauf."_s);
        QCOMPARE(club.Read(members), found);
    }

    void a_state_that_does_not_load_comes_back_and_the_load_says_so()
    {
        HistoryClub club;
        const QByteArray damaged
            = club.Read(ledger) + "1.1.2017;a;1,00;0,00\n2.1.2017;b;1,00;0,00\r\n";
        club.Write(ledger, damaged); // somebody else, after the load
        club.program.CashBookTab.CommandSaveLedger->click();
        QVERIFY(club.Read(ledger) != damaged);
        QVERIFY(club.Text().contains(u"vorgefunden"_s));
        club.Boxes.clear();
        club.Follow(u"take-1"_s);
        QCOMPARE(club.Read(ledger), damaged);
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[1].text.contains(u"zwei Buchungen"_s));
        QVERIFY(club.Boxes[1].detail.contains(ledger));
    }

    void a_print_run_is_an_entry_and_the_check_report_reads_it()
    {
        HistoryClub club;
        const QString pdf = club.Folder.filePath(u"bills.pdf"_s);
        club.program.PrintFrame.ShowPrintDialog = [pdf](QPrinter& printer) {
            printer.setOutputFileName(pdf);
            return true;
        };
        club.Click("Command6");
        const qsizetype pages = club.program.Members.NameList.size();
        QVERIFY(club.Text().contains(u"Abrechnungen 2017: Seiten 1 bis %1 als PDF"_s.arg(pages)));
        club.Follow(u"look-1"_s);
        const QString bills = club.program.Reports.Opened[u"HistoryState"_s].Text->toPlainText();
        QVERIFY(bills.contains(club.program.Members.NameList[0]));
        QVERIFY(bills.contains(ShownTotal(club.program.Statement.DrawnTotals[0])));
        ShowCheckReport(club.program);
        const QTextBrowser* report = club.program.Reports.Opened[u"Check"_s].Text;
        QVERIFY(!report->toPlainText().contains(u"(C51)"_s));
        club.Control<QLineEdit>("Text4(3)")->setText(u"77,00"_s);
        club.Click("Command5");
        QVERIFY(report->toPlainText().contains(u"(C51)"_s));
    }

    void a_print_run_that_fails_is_none()
    {
        HistoryClub club;
        club.program.PrintFrame.ShowPrintDialog = [](QPrinter& printer) {
            printer.setOutputFileName(u"/nowhere/bills.pdf"_s);
            return true;
        };
        club.Click("Command6");
        QVERIFY(!club.Text().contains(u"Abrechnungen 2017"_s));
    }

    void unsaved_bookings_are_asked_about_before_a_state_comes_back()
    {
        HistoryClub club;
        club.ChooseMember(1);
        club.Click("Command1(2)");
        club.Control<QLineEdit>("Text10(0)")->setText(u"19.11.2017"_s);
        club.Control<QLineEdit>("Text10(1)")->setText(u"Porto"_s);
        club.Click("Command12(0)");
        club.program.MembersTab.Command1Delete->setFocus();
        club.PressUndo();
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[1].text.contains(u"Kontostand"_s));
        QVERIFY(club.Read(ledger).contains("Porto"));
    }

    void what_is_typed_in_the_member_form_is_not_dropped_unasked()
    {
        HistoryClub club;
        club.ChooseMember(1);
        club.Click("Command1(2)");
        const QByteArray without = club.Read(members);
        club.Control<QLineEdit>("Text3(2)")->setText(u"Neuer Weg 7"_s);
        club.program.MembersTab.Command1Delete->setFocus();
        club.Answers = { BoxAnswer::Yes, BoxAnswer::No };
        club.PressUndo();
        QCOMPARE(club.Boxes.last().text,
            u"Die Angaben im Formular sind nicht gespeichert. Trotzdem zurückholen ?"_s);
        QCOMPARE(club.Read(members), without);
        QCOMPARE(club.Control<QLineEdit>("Text3(2)")->text(), u"Neuer Weg 7"_s);
    }

    void a_state_is_looked_at_in_a_window_of_its_own()
    {
        HistoryClub club;
        club.ChooseMember(0);
        const QString surname = club.program.Members.NameList[0].section(u',', 0, 0);
        club.Click("Command1(2)");
        club.Text();
        club.Follow(u"look-1"_s);
        const OpenedReport& state = club.program.Reports.Opened[u"HistoryState"_s];
        QVERIFY(state.Window->isVisible());
        const QString text = state.Text->toPlainText();
        QVERIFY(text.startsWith(u"Mitglieder 2017, Stand vom 20.11.2017, 14:03 Uhr"_s));
        QVERIFY(text.contains(u"Farbig: 1 Zeile, die jetzt nicht mehr so in der Datei steht."_s));
        QVERIFY(text.contains(surname));
    }

    void emptying_asks_first()
    {
        HistoryClub club;
        club.ChooseMember(0);
        club.Click("Command1(2)");
        club.Text();
        club.Boxes.clear();
        club.Answers = { BoxAnswer::No };
        club.Follow(u"empty-0"_s);
        QCOMPARE(club.LastNumber(), 2);
        club.Follow(u"empty-0"_s);
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[0].text.startsWith(u"Soll der ganze Verlauf gelöscht werden ?"_s));
        QVERIFY(club.Text().contains(u"noch keinen Verlauf"_s));
    }

    void without_a_history_the_key_says_so()
    {
        HistoryClub club;
        club.program.MembersTab.Command1Delete->setFocus();
        club.PressUndo();
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(club.Boxes[0].text.contains(u"keinen Stand"_s));
    }
};

const TestFile<TestHistoryForm> test_file(__FILE__);
#include "test_history_form.moc"
