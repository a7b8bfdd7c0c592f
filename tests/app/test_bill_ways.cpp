// The ways between a name and its bill, and the size of the picture in the preview.
#include "app/bill_ways.h"

#include "statement/page_places.h"
#include "statement/statement_pages.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QScrollBar>
#include <QTabWidget>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

QString Plots(int count)
{
    QString members;
    for (int number = 1; number <= count; ++number)
        members += u"%1%2;V;Weg 1;12345 Ort;;%2;300;1;1,00;2,00;3,00;4,00;100;150;20;25\r\n"_s
                       .arg(QChar(u'A' + (number - 1) % 26))
                       .arg(number);
    return members;
}

void Press(const MemberClub& club, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : club.program.Window.Window, key, modifiers);
}

QWidget* Viewport(const MemberClub& club) { return club.Control<QWidget>("P1"); }

void TurnWheel(QWidget* over, int delta, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent wheel(QPointF(50, 50), over->mapToGlobal(QPointF(50, 50)), {}, { 0, delta },
        Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &wheel);
}

} // namespace

class TestBillWays : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_bill_of_member_47_takes_two_presses()
    {
        const MemberClub club(Plots(60));
        club.Names()->scrollToItem(club.Names()->item(46));
        club.ClickName(46); // one
        Press(club, Qt::Key_Return, Qt::ControlModifier); // two
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), int(StatementTab));
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"47"_s);
        QCOMPARE(QApplication::focusWidget(), Viewport(club));
        Press(club, Qt::Key_Return, Qt::ControlModifier); // and back
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), int(MembersTab));
        QCOMPARE(club.program.Member.CurrentMember, 46);
    }

    void each_list_of_names_leads_to_the_bill_data()
    {
        QTest::addColumn<QByteArray>("list");
        for (const char* list : { "List1", "ListView2", "List4" })
            QTest::newRow(list) << QByteArray(list);
    }

    void each_list_of_names_leads_to_the_bill()
    {
        QFETCH(QByteArray, list);
        const MemberClub club(Plots(5));
        auto* view = club.Control<QAbstractItemView>(list.constData());
        view->selectionModel()->setCurrentIndex(
            view->model()->index(3, 0), QItemSelectionModel::NoUpdate);
        QCOMPARE(view->actions().size(), 1);
        QCOMPARE(view->actions().first()->text(), u"Abrechnung zeigen"_s);
        view->actions().first()->trigger();
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"4"_s);
    }

    void only_this_page_fills_from_and_to()
    {
        const MemberClub club(Plots(5));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        club.Click("Command9(0)");
        Viewport(club)->actions().last()->trigger();
        QCOMPARE(club.Control<QLineEdit>("Text8(0)")->text(), u"2"_s);
        QCOMPARE(club.Control<QLineEdit>("Text8(1)")->text(), u"2"_s);
    }

    void letters_on_the_page_search_a_name()
    {
        const MemberClub club(Plots(30));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        Viewport(club)->setFocus();
        Press(club, Qt::Key_D);
        auto* names = club.Control<QListWidget>("PageNames");
        QVERIFY(names->isVisible());
        QCOMPARE(names->currentItem()->text(), u"D4,V"_s);
        Press(club, Qt::Key_Return);
        QVERIFY(names->isHidden());
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"4"_s);
        Press(club, Qt::Key_E);
        Press(club, Qt::Key_Escape);
        QVERIFY(names->isHidden());
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), u"4"_s);
    }

    void a_double_click_on_an_amount_goes_to_its_field_data()
    {
        QTest::addColumn<QPoint>("place");
        QTest::addColumn<QByteArray>("control");
        QTest::newRow("kWh") << QPoint(QuantityEdge - 5, Row1 + 5) << QByteArray("Text1(1)");
        QTest::newRow("water") << QPoint(AmountEdge - 5, Row6 + 5) << QByteArray("Text1(4)");
        QTest::newRow("liability") << QPoint(AmountEdge - 5, Row14 + 5) << QByteArray("Text3(8)");
        QTest::newRow("plot size") << QPoint(QuantityEdge - 5, Row11 + 5) << QByteArray("Text3(6)");
        QTest::newRow("street") << QPoint(70, 205) << QByteArray("Text3(2)");
    }

    void a_double_click_on_an_amount_goes_to_its_field()
    {
        QFETCH(QPoint, place);
        QFETCH(QByteArray, control);
        const MemberClub club(Plots(3));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        club.Click("Command9(0)");
        const QPoint origin = club.program.StatementPreview.P2->pos();
        QTest::mouseDClick(Viewport(club), Qt::LeftButton, {}, origin + place);
        QCOMPARE(club.program.Member.CurrentMember, 1);
        QCOMPARE(QApplication::focusWidget(), club.Control<QWidget>(control.constData()));
    }

    void the_picture_alone_grows_and_shrinks()
    {
        const MemberClub club(Plots(3));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        const QWidget* page = club.program.StatementPreview.P2;
        const auto* bar = club.Control<QScrollBar>("VScroll1");
        const int range = bar->maximum();
        const QRect viewport = Viewport(club)->geometry();
        TurnWheel(Viewport(club), 120, Qt::ControlModifier);
        QCOMPARE(page->size(), QSize(PageWidth * 125 / 100, PageHeight * 125 / 100));
        QVERIFY(bar->maximum() > range);
        Viewport(club)->setFocus();
        Press(club, Qt::Key_Minus, Qt::ControlModifier);
        Press(club, Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(page->size(), QSize(PageWidth * 75 / 100, PageHeight * 75 / 100));
        Press(club, Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(page->size(), QSize(PageWidth, PageHeight));
        QCOMPARE(bar->maximum(), range);
        QCOMPARE(Viewport(club)->geometry(), viewport);
        QCOMPARE(page->x(), 0);
    }

    void the_zoom_ends_at_50_and_300_percent()
    {
        const MemberClub club(Plots(1));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        for (int turns = 0; turns < 20; ++turns)
            TurnWheel(Viewport(club), 120, Qt::ControlModifier);
        QCOMPARE(club.program.StatementPreview.P2->width(), 3 * PageWidth);
        Viewport(club)->setFocus();
        Press(club, Qt::Key_Right);
        QVERIFY(club.program.StatementPreview.P2->x() < 0); // moved sideways
        for (int turns = 0; turns < 20; ++turns)
            TurnWheel(Viewport(club), -120, Qt::ControlModifier);
        QCOMPARE(club.program.StatementPreview.P2->width(), PageWidth / 2);
    }

    void the_wheel_alone_scrolls_as_ever()
    {
        const MemberClub club(Plots(1));
        club.program.Window.SSTab1->setCurrentIndex(StatementTab);
        club.program.Window.Window->resize(1000, 500);
        TurnWheel(Viewport(club), -120, Qt::NoModifier);
        QCOMPARE(club.program.StatementPreview.P2->width(), PageWidth);
        QVERIFY(club.Control<QScrollBar>("VScroll1")->value() > 0);
    }
};

const TestFile<TestBillWays> test_file(__FILE__);
#include "test_bill_ways.moc"
