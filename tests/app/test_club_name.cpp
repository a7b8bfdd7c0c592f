// Typing the club name at the first start.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QtTest>

class TestClubName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void typing_replaces_the_hint_and_saving_writes_one_line()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        auto* box = club.Control<QLineEdit>("Text5");
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(box, QStringLiteral("KGV M"));
        QTest::sendKeyEvent(
            QTest::Click, box, Qt::Key_Udiaeresis, QStringLiteral("ü"), Qt::NoModifier);
        QTest::keyClicks(box, QStringLiteral("hle"));
        QCOMPARE(box->text(), QStringLiteral("KGV Mühle"));
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Read(QStringLiteral("V.dat")), QByteArray("KGV M\xfchle\r\n"));
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), QStringLiteral("KGV Mühle"));
        QVERIFY(!box->isVisible());
        QVERIFY(!club.Control<QPushButton>("Command22")->isVisible());
    }

    void the_button_that_ends_the_program_never_gets_the_focus_by_itself()
    {
        TestClub first;
        first.Start({ 2017, 11, 20 });
        first.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(first.program.Window.Window));
        const auto* end = first.Control<QPushButton>("Command8");
        auto* box = first.Control<QLineEdit>("Text5");
        QCOMPARE(QApplication::focusWidget(), box);
        QTest::keyClicks(box, QStringLiteral("KGV"));
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(first.Exists(QStringLiteral("V.dat")));
        QVERIFY(QApplication::focusWidget() != nullptr && QApplication::focusWidget() != end);
        QVERIFY(!end->autoDefault()); // Enter does not press it

        TestClub later;
        later.CopyExample(QStringLiteral("ordinary-year"));
        later.Start({ 2017, 11, 20 });
        later.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(later.program.Window.Window));
        QVERIFY(QApplication::focusWidget() != nullptr);
        QVERIFY(QApplication::focusWidget() != later.Control<QPushButton>("Command8"));
    }

    void the_enter_key_does_nothing_while_the_hint_stands_there_and_the_button_stores_it()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        auto* box = club.Control<QLineEdit>("Text5");
        const QString hint = box->text();
        QTest::keyClick(box, Qt::Key_Return);
        QTest::keyClick(box, Qt::Key_Enter);
        QVERIFY(!club.Exists(QStringLiteral("V.dat")));
        QVERIFY(!box->isHidden());
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), hint);
        QVERIFY(club.Exists(QStringLiteral("V.dat")));
    }

    void a_click_selects_the_hint_so_that_typing_replaces_it()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        club.Control<QPushButton>("Command8")->setFocus();
        auto* box = club.Control<QLineEdit>("Text5");
        QTest::mouseClick(box, Qt::LeftButton);
        QCOMPARE(box->selectedText(), box->text());
        QTest::mouseClick(box, Qt::LeftButton); // it has the focus already, as after a first start
        QCOMPARE(box->selectedText(), box->text());
        QTest::keyClicks(box, QStringLiteral("KGV"));
        QTest::mouseClick(box, Qt::LeftButton);
        QCOMPARE(box->selectedText(), QString()); // what was typed is treated as everywhere
    }

    void coming_back_to_the_window_selects_the_hint_and_never_what_was_typed()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        QMainWindow* window = club.program.Window.Window;
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window));
        auto* box = club.Control<QLineEdit>("Text5");
        QWidget other;
        other.show();
        const auto away_and_back = [&] {
            other.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&other));
            QVERIFY(!box->hasFocus());
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window));
            QVERIFY(box->hasFocus());
        };
        box->setFocus();
        box->deselect();
        away_and_back();
        QCOMPARE(box->selectedText(), box->text());
        QTest::keyClicks(box, QStringLiteral("KGV"));
        away_and_back();
        QTest::keyClicks(box, QStringLiteral(" Neu"));
        QCOMPARE(box->text(), QStringLiteral("KGV Neu"));
    }

    void an_empty_name_writes_an_empty_line_and_shows_nothing()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        club.Control<QLineEdit>("Text5")->clear();
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Read(QStringLiteral("V.dat")), QByteArray("\r\n"));
        QCOMPARE(club.Control<QLabel>("Label1(1)")->text(), QString());
    }

    void bills_and_account_title_show_the_new_name_at_once()
    {
        TestClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        QFile::remove(club.Path(QStringLiteral("V.dat")));
        club.Start({ 2017, 11, 20 });
        club.Control<QLineEdit>("Text5")->setText(QStringLiteral("KGV Neu"));
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        const auto* name = std::get_if<PageText>(&club.program.Statement.FixedContents.at(0));
        QVERIFY(name != nullptr);
        QCOMPARE(name->text, QStringLiteral("KGV Neu"));
        QCOMPARE(club.program.Statement.StatementTotals.size(), 8);
        QCOMPARE(club.Control<QLabel>("Label21")->text(),
            QStringLiteral("Konto KGV Neu Volksbank Rotenfeld"));
    }

    void a_name_that_cannot_be_written_is_reported_and_can_be_saved_again()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 });
        QVERIFY(QDir().mkdir(club.Path(QStringLiteral("V.dat")))); // a folder in the file's place
        club.Boxes.clear();
        club.Control<QLineEdit>("Text5")->setText(QStringLiteral("KGV"));
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes.first().icon, BoxIcon::Error);
        QVERIFY(club.Boxes.first().detail.contains(QStringLiteral("V.dat")));
        QVERIFY(club.Control<QLineEdit>("Text5")->isVisibleTo(club.Window()));
        QVERIFY(QDir().rmdir(club.Path(QStringLiteral("V.dat"))));
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Read(QStringLiteral("V.dat")), QByteArray("KGV\r\n"));
    }
};

const TestFile<TestClubName> test_file(__FILE__);
#include "test_club_name.moc"
