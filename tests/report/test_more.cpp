// The button "Mehr" beside the tabs: its menu, its keys, its words.
#include "app/more.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Shown : TestClub {
    Shown()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        program.Window.Window->activateWindow();
        if (!QTest::qWaitForWindowActive(program.Window.Window))
            qFatal("the window does not come to the front");
    }
    QMenu* Menu() const { return Control<QMenu>("MoreMenu"); }
};

} // namespace

class TestMore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_button_stands_beside_the_tabs()
    {
        const Shown club;
        const auto* tabs = club.program.Window.SSTab1;
        QCOMPARE(tabs->count(), 4);
        QCOMPARE(tabs->cornerWidget(Qt::TopRightCorner), club.Control<QPushButton>("More"));
        QVERIFY(club.Control<QPushButton>("More")->isVisible());
    }

    void it_says_what_it_is_for()
    {
        TestClub club;
        club.Start({ 2017, 11, 20 }); // without members nothing is wrong
        const auto* more = club.Control<QPushButton>("More");
        QCOMPARE(more->text(), u"Mehr"_s);
        QCOMPARE(more->accessibleName(), u"Mehr Werkzeuge"_s);
        QCOMPARE(more->toolTip(), u"Prüfbericht und weitere Werkzeuge (F10)"_s);
    }

    void the_row_of_tabs_is_as_high_as_without_it()
    {
        const Shown club;
        const QTabWidget* tabs = club.program.Window.SSTab1;
        QVERIFY(club.Control<QPushButton>("More")->height() <= tabs->tabBar()->height());
    }

    void it_lies_inside_the_window_whatever_the_size_of_the_letters_data()
    {
        QTest::addColumn<int>("points");
        for (const int points : { 8, 9, 12, 16, 20 })
            QTest::newRow(qPrintable(QString::number(points))) << points;
    }

    void it_lies_inside_the_window_whatever_the_size_of_the_letters()
    {
        QFETCH(int, points);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        {
            const Shown club;
            club.program.Window.Window->resize(1024, 700);
            QCoreApplication::processEvents();
            const auto* more = club.Control<QPushButton>("More");
            QCOMPARE(more->visibleRegion().boundingRect(), more->rect());
        }
        QApplication::setFont(before);
    }

    void a_click_and_f10_open_the_menu()
    {
        const Shown club;
        QTest::mouseClick(club.Control<QPushButton>("More"), Qt::LeftButton);
        QVERIFY(club.Menu()->isVisible());
        club.Menu()->hide();
        QTest::keyClick(club.program.Window.Window, Qt::Key_F10);
        QVERIFY(club.Menu()->isVisible());
        QCOMPARE(club.Menu()->activeAction(), club.Menu()->actions().constFirst());
        club.Menu()->hide();
    }

    /// A letter that stands twice steps from one entry to the other.
    void every_entry_has_a_name_of_its_own_and_an_underlined_letter()
    {
        QSet<QString> names;
        for (const MoreEntry& entry : MoreEntries()) {
            QVERIFY(entry.run != nullptr);
            const qsizetype mark = entry.caption.indexOf(u'&');
            QVERIFY2(mark >= 0, qPrintable(entry.caption));
            names.insert(entry.name);
            QVERIFY(entry.caption[mark + 1].isLetter());
        }
        QCOMPARE(names.size(), qsizetype(MoreEntries().size()));
    }

    void the_check_report_opens_by_its_entry_and_by_f9()
    {
        const Shown club;
        QTest::keyClick(club.program.Window.Window, Qt::Key_F9);
        auto* report = club.Control<QWidget>("ReportWindow");
        QVERIFY(report->isVisible());
        QCOMPARE(report->windowTitle(), u"Prüfbericht 2017 – Kleingarten Parzello"_s);
        report->hide();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        QTest::mouseClick(club.Control<QPushButton>("More"), Qt::LeftButton);
        QTest::keyClick(club.Menu(), Qt::Key_P);
        QVERIFY(report->isVisible());
    }
};

const TestFile<TestMore> test_file(__FILE__);
#include "test_more.moc"
