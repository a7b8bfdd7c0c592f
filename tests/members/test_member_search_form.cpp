// The search in the member list: what is found, where the hits go, and what Enter does.
#include "app/main_window.h"
#include "controls/fields.h"
#include "members/member_search.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct SearchClub : TestClub {
    SearchClub()
    {
        Write(u"Mitgliedsdaten2016.pz"_s,
            "Meier;Anna;Rosenweg 1;;;7;;3;0,00;0,00;0,00;0,00;;;;\r\n"
            "van Dijk;Jan;Am Meierhof 2;;;12;;;0,00;0,00;0,00;0,00;;;;\r\n"
            "Lang;Otto;Tulpenweg 3;;;7a;;1;0,00;0,00;0,00;0,00;;;;\r\n");
        Start({ 2016, 3, 3 });
        program.Window.Window->show();
        program.Window.Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.Window.Window));
    }

    QListWidget* Names() const { return Control<QListWidget>("List1"); }
    QLineEdit* Words() const { return Control<QLineEdit>("MemberSearch"); }
    QString Shown() const { return Control<QLineEdit>("Text3(0)")->text(); }

    static void Press(Qt::Key key, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }

    void Search(const QString& words) const
    {
        Press(Qt::Key_F, Qt::ControlModifier);
        Words()->setText(words);
    }

    QList<int> Tinted() const
    {
        QList<int> rows;
        for (int row = 0; row < Names()->count(); ++row) {
            if (Names()->item(row)->background().style() != Qt::NoBrush)
                rows += row;
        }
        return rows;
    }
};

} // namespace

class TestMemberSearchForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_line_takes_no_room_until_it_is_called()
    {
        const SearchClub club;
        QVERIFY(!club.Words()->isVisible());
        SearchClub::Press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(club.Words()->isVisible());
        QVERIFY(club.Words()->hasFocus());
        QCoreApplication::processEvents();
        QVERIFY(club.Names()->y() - club.Words()->mapTo(club.Names()->parentWidget(), QPoint()).y()
            < 2 * club.Words()->height()); // the list keeps its room
    }

    void name_street_and_garden_are_found_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QList<int>>("rows");
        QTest::newRow("name and street, any case") << u"meier"_s << QList<int> { 0, 1 };
        QTest::newRow("as the list shows it") << u"Lang,Otto"_s << QList<int> { 2 };
        QTest::newRow("garden") << u"7"_s << QList<int> { 0, 2 };
        QTest::newRow("nothing") << u"Schulze"_s << QList<int> {};
    }
    void name_street_and_garden_are_found()
    {
        QFETCH(const QString, words);
        QFETCH(const QList<int>, rows);
        const SearchClub club;
        const QString shown = club.Shown();
        club.Search(words);
        QCOMPARE(club.Tinted(), rows);
        QCOMPARE(
            club.Control<QLabel>("MemberSearchHits")->text(), u"%1 Treffer"_s.arg(rows.size()));
        QCOMPARE(club.Names()->count(), 3);
        QCOMPARE(club.Shown(), shown); // searching picks nobody
    }

    void f3_steps_through_the_hits_and_enter_shows_the_member()
    {
        const SearchClub club;
        club.Search(u"meier"_s);
        SearchClub::Press(Qt::Key_F3);
        SearchClub::Press(Qt::Key_Return);
        QCOMPARE(club.Shown(), u"van Dijk"_s);
        QVERIFY(club.Names()->hasFocus());
        SearchClub::Press(Qt::Key_F3, Qt::ShiftModifier);
        const auto ground = [&](int row) { return club.Names()->item(row)->background().color(); };
        QVERIFY(ground(0) != ground(1)); // the current hit stands out
        QCOMPARE(club.Shown(), u"van Dijk"_s);
    }

    void escape_ends_the_search_and_its_marks()
    {
        const SearchClub club;
        club.Search(u"meier"_s);
        SearchClub::Press(Qt::Key_Escape);
        QVERIFY(!club.Words()->isVisible());
        QVERIFY(club.Tinted().isEmpty());
        QVERIFY(club.Names()->hasFocus());
    }
};

const TestFile<TestMemberSearchForm> test_file(__FILE__);
#include "test_member_search_form.moc"
