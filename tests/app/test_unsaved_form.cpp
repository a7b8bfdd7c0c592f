// What is not saved is seen at "Beenden" and at the tabs, and where a save would write another
// year.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include "controls/fields.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Started : TestClub {
    explicit Started(const QString& example = u"ordinary-year"_s)
    {
        if (!example.isEmpty())
            CopyExample(example);
        Start({ 2017, 11, 20 });
        Boxes.clear();
    }

    void Type(const char* name, const QString& text) const
    {
        auto* field = Control<QLineEdit>(name);
        field->selectAll();
        QTest::keyClicks(field, text);
    }

    const QPushButton* End() const { return Control<QPushButton>("Command8"); }

    /// What "Beenden" lists, empty when it is not tinted.
    QString Listed() const
    {
        return TintOf(End()) == TintKind::None ? QString() : End()->toolTip().section(u'\n', 1);
    }

    QString TabSays(int tab) const
    {
        return program.Window.SSTab1->tabToolTip(tab).section(u'\n', 1);
    }

    bool TabHasDot(int tab) const
    {
        return program.Window.SSTab1->tabBar()->accessibleTabName(tab).contains(u'●');
    }
};

} // namespace

class TestUnsavedForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing_is_said_while_everything_is_saved()
    {
        const Started club;
        QCOMPARE(club.Listed(), QString());
        for (int tab = 0; tab < 4; ++tab) {
            QCOMPARE(club.program.Window.SSTab1->tabToolTip(tab), u"Strg+%1"_s.arg(tab + 1));
            QVERIFY(!club.TabHasDot(tab));
        }
        QVERIFY(club.End()->toolTip().startsWith(u"Beendet das Programm sofort"_s));
    }

    void what_is_not_saved_is_listed_and_its_tab_carries_a_dot_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("listed");
        QTest::newRow("member") << u"Text3(4)"_s << 0 << u"Angaben des Mitglieds"_s;
        QTest::newRow("reading") << u"Text1(1)"_s << 0 << u"Angaben des Mitglieds"_s;
        QTest::newRow("price") << u"Text4(3)"_s << 3 << u"Preise"_s;
        QTest::newRow("bank") << u"Text6(0)"_s << 3 << u"Bank und Namen"_s;
    }

    void what_is_not_saved_is_listed_and_its_tab_carries_a_dot()
    {
        QFETCH(QString, field);
        QFETCH(int, tab);
        QFETCH(QString, listed);
        const Started club;
        const QString before = club.Control<QLineEdit>(qPrintable(field))->text();
        const QString caption = club.program.Window.SSTab1->tabText(tab);
        club.Type(qPrintable(field), u"4711"_s);
        QCOMPARE(club.Listed(), u"Nicht gespeichert: "_s + listed);
        QVERIFY(club.End()->toolTip().startsWith(u"Beendet das Programm sofort"_s));
        QCOMPARE(club.TabSays(tab), u"● Nicht gespeichert: "_s + listed);
        QCOMPARE(club.program.Window.SSTab1->tabText(tab), caption);
        for (int other = 0; other < 4; ++other)
            QCOMPARE(club.TabHasDot(other), other == tab);
        club.Control<QLineEdit>(qPrintable(field))->selectAll();
        club.Type(qPrintable(field), before); // typed back
        QCOMPARE(club.Listed(), QString());
        QVERIFY(!club.TabHasDot(tab));
    }

    void a_booking_is_listed_until_its_account_is_saved()
    {
        const Started club;
        club.program.Window.SSTab1->setCurrentIndex(2);
        club.Type("Text10(0)", u"01.12.2017"_s);
        club.Type("Text10(1)", u"Porto"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command12(0)"), Qt::LeftButton);
        QCOMPARE(club.Listed(), u"Nicht gespeichert: Buchungen des Bankkontos"_s);
        QVERIFY(club.TabHasDot(2));
        club.program.CashBookTab.CommandSaveLedger->click();
        QCOMPARE(club.Listed(), QString());
        QVERIFY(!club.TabHasDot(2));
    }

    void everything_unsaved_is_listed_together()
    {
        const Started club;
        club.Type("Text6(0)", u"Bank"_s);
        club.Type("Text4(3)", u"1,00"_s);
        club.Type("Text3(4)", u"1"_s);
        QCOMPARE(
            club.Listed(), u"Nicht gespeichert: Angaben des Mitglieds, Preise, Bank und Namen"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command5"), Qt::LeftButton);
        QCOMPARE(club.Listed(), u"Nicht gespeichert: Angaben des Mitglieds, Bank und Namen"_s);
    }

    void a_club_name_that_was_typed_is_listed_until_it_is_saved()
    {
        const Started club { QString() };
        QCOMPARE(club.Listed(), QString()); // the hint is no name
        club.Type("Text5", u"KGV"_s);
        QCOMPARE(club.Listed(), u"Nicht gespeichert: Vereinsname"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command22"), Qt::LeftButton);
        QCOMPARE(club.Listed(), QString());
    }

    void the_prices_say_which_year_a_save_would_write()
    {
        const Started club;
        const auto* line = club.Control<QLabel>("YearNotePrices");
        QVERIFY(line->isHidden());
        QTest::mouseClick(club.Control<QPushButton>("Command3(1)"), Qt::LeftButton);
        QVERIFY(!line->isHidden());
        QCOMPARE(TintOf(line), TintKind::OtherYear);
        QCOMPARE(line->text(),
            u"Gewählt ist 2016, gezeigt ist 2017: Speichern schreibt in das Jahr 2016."_s);
        QTest::mouseClick(club.Control<QPushButton>("Command4"), Qt::LeftButton); // "Laden"
        QVERIFY(line->isHidden());
    }
};

const TestFile<TestUnsavedForm> test_file(__FILE__);
#include "test_unsaved_form.moc"
