// The paid marks in the list of names: paler while part of the bill is owed, with a tool tip that
// says how much.
#include "money/money_form.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QToolTip>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// A club of the examples, the tab "Kontoführung" in front, no payment of a bill booked.
struct PaidClub : TestClub {
    PaidClub()
    {
        CopyExample(u"ordinary-year"_s);
        Write(u"Konto2017.pz"_s, "01.01.2017;Guthaben;100,00;0,00\r\n");
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        program.Window.SSTab1->setCurrentIndex(2);
        Names()->setMinimumHeight(500);
        QCoreApplication::processEvents();
    }

    QListWidget* Names() const { return Control<QListWidget>("List4"); }

    /// As a click on the name proposes it; another amount when one is given.
    void Pay(int member, const QString& amount = {}) const
    {
        const QRect row = Names()->visualItemRect(Names()->item(member));
        QTest::mouseClick(Names()->viewport(), Qt::LeftButton, {}, row.center());
        Control<QLineEdit>("Text10(0)")->setText(u"20.11.2017"_s);
        if (!amount.isEmpty())
            Control<QLineEdit>("Text10(2)")->setText(amount);
        QTest::mouseClick(Control<QPushButton>("Command12(0)"), Qt::LeftButton);
    }

    /// The ground of the name at its right end, where no letter stands.
    QColor Ground(int member) const
    {
        const QRect row = Names()->visualItemRect(Names()->item(member));
        const QImage picture = Names()->viewport()->grab().toImage();
        return picture.pixelColor(row.right() - 6, row.center().y());
    }

    QString ToolTip(int member) const
    {
        const QPoint place = Names()->visualItemRect(Names()->item(member)).center();
        QHelpEvent event(QEvent::ToolTip, place, Names()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(Names()->viewport(), &event);
        return QToolTip::text();
    }
};

/// What the tool tip says is owed.
QString RestOf(const PaidClub& club, int member)
{
    static const QRegularExpression rest(u"Rest ([0-9.]+,[0-9]{2}) €"_s);
    return rest.match(PaidTip(club.program, member)).captured(1);
}

} // namespace

class TestPaidMarksForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_mark_is_paler_until_the_bill_is_paid_in_full()
    {
        const PaidClub club;
        club.Pay(0, u"10,00"_s);
        club.Pay(1);
        QVERIFY(club.Names()->item(0)->isSelected());
        QVERIFY(club.Names()->item(1)->isSelected());
        const QColor none = club.Ground(2);
        const QColor part = club.Ground(0);
        const QColor full = club.Ground(1);
        QVERIFY(part != full);
        QVERIFY(part != none);
        QVERIFY(
            qAbs(part.lightness() - none.lightness()) < qAbs(full.lightness() - none.lightness()));
        club.Pay(0, RestOf(club, 0));
        QCOMPARE(club.Ground(0), full);
    }

    void a_mark_follows_the_bills()
    {
        const PaidClub club;
        club.Pay(1);
        const QColor full = club.Ground(1);
        club.program.Window.SSTab1->setCurrentIndex(3);
        auto* fee = club.Control<QLineEdit>("Text4(6)");
        fee->setText(u"999,00"_s);
        QTest::mouseClick(club.Control<QPushButton>("Command5"), Qt::LeftButton);
        club.program.Window.SSTab1->setCurrentIndex(2);
        QVERIFY(club.Ground(1) != full);
    }

    void the_tool_tip_of_a_marked_name_says_what_is_paid()
    {
        const PaidClub club;
        club.Pay(0, u"10,00"_s);
        const QString tip = club.ToolTip(0);
        QVERIFY2(tip.startsWith(club.Names()->item(0)->text()), qPrintable(tip));
        QVERIFY2(tip.endsWith(PaidTip(club.program, 0)), qPrintable(tip));
        QVERIFY2(tip.contains(u"bezahlt 10,00 € von "_s), qPrintable(tip));
        QCOMPARE(club.ToolTip(2), club.Names()->item(2)->text()); // not marked
    }
};

const TestFile<TestPaidMarksForm> test_file(__FILE__);
#include "test_paid_marks_form.moc"
