// The window "Ablesung": the end readings of all members by keys alone, stored as by their "OK".
#include "members/readings_form.h"

#include "controls/fields.h"
#include "tests/support/member_club.h"
#include "tests/support/test_file.h"

#include <QLabel>
#include <QScreen>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

QString Reader(int number, const QString& readings)
{
    return u"Name%1;V;;;;%1;300;1;0,00;0,00;0,00;0,00;%2\r\n"_s.arg(number).arg(readings);
}

QString Readers(int count)
{
    QString members;
    for (int number = 1; number <= count; ++number)
        members += Reader(number, u"100;;20;"_s);
    return members;
}

/// A member club whose tests of keys count the presses.
struct ReadingsClub : MemberClub {
    int Presses = 0;

    explicit ReadingsClub(const QString& members)
        : MemberClub(members)
    {
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        ++Presses;
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : program.Window.Window, key, modifiers);
    }

    static void TypeNumber(int number)
    {
        const QString digits = QString::number(number);
        for (const QChar digit : digits)
            QTest::keyClick(QApplication::focusWidget(), digit.toLatin1());
    }

    void Open()
    {
        Press(Qt::Key_F8);
        QTRY_COMPARE(QApplication::activeWindow(), program.Readings.ReadingsWindow);
    }

    QTableWidget* Table() const
    {
        return program.Readings.ReadingsWindow->findChild<QTableWidget*>(u"ReadingsTable"_s);
    }

    QTableWidgetItem* Cell(int row, const QString& caption) const
    {
        for (int column = 0; column < Table()->columnCount(); ++column) {
            if (Table()->horizontalHeaderItem(column)->text() == caption)
                return Table()->item(row, column);
        }
        return nullptr;
    }

    QString Sum(int meter) const
    {
        return program.Readings.ReadingsWindow
            ->findChild<QLabel*>(ControlName(u"ReadingsSum"_s, meter))
            ->text();
    }
};

/// What the form's own fields and "OK" make of the same numbers.
struct ByForms : MemberClub {
    explicit ByForms(int count)
        : MemberClub(Readers(count))
    {
        for (int k = 0; k < count; ++k) {
            ClickName(k);
            Type(Reading(1), QString::number(150 + k));
            Type(Reading(4), QString::number(25 + k));
            Click("Command2");
        }
    }
};

} // namespace

class TestReadingsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sixty_members_take_a_key_for_each_number_and_one_to_open()
    {
        constexpr int count = 60;
        ReadingsClub club(Readers(count));
        int redraws = 0;
        club.program.Reports.AfterRedraw = [&redraws](Program&) { ++redraws; };
        club.Open();
        for (const int first : { 150, 25 }) {
            for (int k = 0; k < count; ++k) {
                ReadingsClub::TypeNumber(first + k);
                club.Press(Qt::Key_Return);
            }
        }
        QCOMPARE(club.Presses, 2 * count + 1);
        QCOMPARE(redraws, 0);
        club.program.Readings.ReadingsWindow->close();
        QCOMPARE(redraws, 1);
        const ByForms forms(count);
        QCOMPARE(club.File(), forms.File());
        QCOMPARE(club.program.Statement.StatementTotals, forms.program.Statement.StatementTotals);
        QCOMPARE(club.Errors(), QStringList());
    }

    void it_lies_on_the_screen_with_its_frame()
    {
        ReadingsClub club(Readers(60));
        club.Open();
        const QWidget* window = club.program.Readings.ReadingsWindow;
        const QSize screen = window->screen()->availableGeometry().size();
        QVERIFY2(screen.width() < 900, "the screen is too large to show anything");
        QVERIFY(window->width() + 8 <= screen.width());
        QVERIFY(window->height() + 40 <= screen.height()); // the title bar
    }

    void each_value_is_in_the_file_when_its_cell_is_left()
    {
        ReadingsClub club(Readers(3));
        club.Open();
        ReadingsClub::TypeNumber(150);
        club.Press(Qt::Key_Down);
        QCOMPARE(club.File(),
            (Reader(1, u"100;150;20;"_s) + Reader(2, u"100;;20;"_s) + Reader(3, u"100;;20;"_s))
                .toLatin1());
        ReadingsClub::TypeNumber(180);
        club.Press(Qt::Key_Up);
        QCOMPARE(club.Table()->currentRow(), 0);
        QCOMPARE(club.Record(1)[ElectricityEnd], u"180"_s);
        QCOMPARE(club.Cell(1, u"KWh"_s)->text(), u"80"_s);
        QCOMPARE(club.Sum(0), u"Strom: 2 von 3 abgelesen, zusammen 130 KWh"_s);
        QCOMPARE(club.Sum(1), u"Wasser: 0 von 3 abgelesen, zusammen 0 m³"_s);
    }

    void what_looks_wrong_is_tinted_and_holds_nothing_up()
    {
        ReadingsClub club(Readers(3));
        club.Open();
        ReadingsClub::TypeNumber(99);
        club.Press(Qt::Key_Return);
        QVERIFY(club.Cell(0, u"Strom Ende"_s)->toolTip().contains(u"unter dem Anfangsstand"_s));
        QCOMPARE(club.Cell(0, u"Strom Ende"_s)->data(Qt::AccessibleDescriptionRole).toString(),
            club.Cell(0, u"Strom Ende"_s)->toolTip()); // for a screen reader
        QTest::keyClick(QApplication::focusWidget(), 'x');
        club.Press(Qt::Key_Return);
        QCOMPARE(club.Table()->currentRow(), 2);
        QCOMPARE(club.Cell(1, u"Strom Ende"_s)->text(), u"x"_s);
        QVERIFY(club.Cell(1, u"Strom Ende"_s)->toolTip().contains(u"Zahl erwartet"_s));
        QCOMPARE(club.Record(1)[ElectricityEnd], QString());
        QCOMPARE(club.Record(0)[ElectricityEnd], u"99"_s);
        QCOMPARE(club.Errors(), QStringList());
    }

    void control_tab_shows_one_meter_alone()
    {
        ReadingsClub club(Readers(2));
        club.Open();
        club.Press(Qt::Key_Tab, Qt::ControlModifier); // electricity
        QVERIFY(club.Table()->isColumnHidden(club.Cell(0, u"Wasser Ende"_s)->column()));
        club.Press(Qt::Key_Tab, Qt::ControlModifier); // water
        QVERIFY(club.Table()->isColumnHidden(club.Cell(0, u"Strom Ende"_s)->column()));
        ReadingsClub::TypeNumber(25);
        club.Press(Qt::Key_Return);
        QCOMPARE(club.Record(0)[WaterEnd], u"25"_s);
        club.Press(Qt::Key_Tab, Qt::ControlModifier); // both
        QVERIFY(!club.Table()->isColumnHidden(club.Cell(0, u"Strom Ende"_s)->column()));
    }

    void names_are_whole_and_the_tab_key_leads_to_the_buttons()
    {
        ReadingsClub club(Readers(2));
        club.Open();
        const int name = club.Cell(0, u"Name"_s)->column();
        QVERIFY(club.Table()->columnWidth(name)
            >= club.Table()->fontMetrics().horizontalAdvance(club.Cell(0, u"Name"_s)->text()));
        const QTableWidgetItem* last = club.Cell(0, u"Vorjahr m³"_s);
        QVERIFY(club.Table()->viewport()->rect().contains(
            club.Table()->visualItemRect(last))); // nobody scrolls sideways
        club.Press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"ReadingsSheet"_s);
    }

    void a_member_typed_in_the_form_is_not_lost_without_a_question()
    {
        ReadingsClub club(Readers(2));
        MemberClub::Type(club.Field(2), u"Weg 9"_s);
        club.Open();
        club.Press(Qt::Key_Down);
        club.Boxes.clear();
        club.Answers = { BoxAnswer::No };
        ReadingsClub::TypeNumber(150);
        club.Press(Qt::Key_Return);
        QCOMPARE(club.BoxTexts().size(), 1);
        QCOMPARE(club.Field(2)->text(), u"Weg 9"_s);
        QCOMPARE(club.Record(1)[ElectricityEnd], QString());
        QCOMPARE(club.Cell(1, u"Strom Ende"_s)->text(), QString()); // shown as it is stored
    }

    void bookings_are_asked_about_before_the_year_is_read_anew()
    {
        ReadingsClub club(Readers(2));
        club.program.Window.SSTab1->setCurrentIndex(CashBookTab);
        club.program.CashBookTab.Text10[0]->setText(u"01.02.2017"_s);
        club.program.CashBookTab.Text10[1]->setText(u"Pacht"_s);
        club.Click("Command12(0)");
        club.Boxes.clear();
        club.Open();
        ReadingsClub::TypeNumber(150);
        club.Press(Qt::Key_Return);
        QVERIFY(club.BoxTexts().value(0).contains(u"Kontostand geändert"_s));
        club.program.Readings.ReadingsWindow->close();
        QVERIFY(club.Read(u"Konto2017.pz"_s).contains("Pacht"));
    }

    void the_sheet_for_the_walk_is_by_garden_number()
    {
        ReadingsClub club(Reader(10, u"100;;20;"_s) + Reader(9, u"7;;8;"_s));
        club.Open();
        club.program.Readings.ReadingsWindow->findChild<QPushButton*>(u"ReadingsSheet"_s)->click();
        OpenedReport* sheet = OpenedReportOf(club.program, u"ReadingsSheet"_s);
        QVERIFY(sheet != nullptr);
        QVERIFY(sheet->Shown.indexOf(u"Name9,V"_s) < sheet->Shown.indexOf(u"Name10,V"_s));
        QVERIFY(sheet->Shown.contains(u"Strom neu"_s));
        sheet->Window->hide();
    }
};

const TestFile<TestReadingsForm> test_file(__FILE__);
#include "test_readings_form.moc"
