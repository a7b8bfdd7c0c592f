// A whole club year without a mouse: every key goes to the control that has the focus.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

namespace {

/// The keyboard in front of the window. Keys go where the focus is, shortcuts to the window.
struct Keyboard {
    TestClub& club;

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QWidget* target = QApplication::focusWidget();
        QTest::keyClick(target != nullptr ? target : club.program.Window.Window, key, modifiers);
        QCoreApplication::processEvents();
    }

    void Type(const QString& text) const
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown,
                QString(letter), Qt::NoModifier);
    }

    /// Types over what stands in the focused field.
    void TypeOver(const QString& text) const
    {
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_Delete);
        Type(text);
    }

    QString Focused() const
    {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? QString() : widget->objectName();
    }

    /// Presses Tab until the control of that name has the focus.
    void TabTo(const char* name) const
    {
        for (int i = 0; i < 80 && Focused() != QLatin1String(name); ++i)
            Key(Qt::Key_Tab);
        QCOMPARE(Focused(), QString::fromLatin1(name));
    }

    void GoTo(int tab) const
    {
        Key(static_cast<Qt::Key>(Qt::Key_1 + tab), Qt::ControlModifier);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), tab);
    }
};

} // namespace

class TestKeyboardYear : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_club_year_needs_no_mouse()
    {
        TestClub club;
        club.Start({ 2017, 1, 10 });
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        club.Boxes.clear();
        const Keyboard keyboard { club };

        EnterClubName(club, keyboard);
        EnterMembers(club, keyboard);
        EnterPrices(club, keyboard);
        EnterReadings(club, keyboard);
        PageThroughBills(club, keyboard);
        Book(club, keyboard);
        CorrectAndDelete(club, keyboard);
        Search(club, keyboard);
    }

private:
    static void EnterClubName(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.TabTo("Text5");
        keyboard.Type(QStringLiteral("KGV Mühle"));
        keyboard.Key(Qt::Key_Return);
        QCOMPARE(club.Read(QStringLiteral("V.dat")), QByteArray("KGV M\xfchle\r\n"));
    }

    static void EnterMember(const Keyboard& keyboard, const QStringList& fields)
    {
        keyboard.Key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(keyboard.Focused(),
            QStringLiteral("Text3(0)")); // "Neu Anlegen" puts the focus on the name
        for (int i = 0; i < fields.size(); ++i) {
            QCOMPARE(keyboard.Focused(), ControlName(QStringLiteral("Text3"), i)); // reading order
            keyboard.TypeOver(fields[i]);
            keyboard.Key(Qt::Key_Tab);
        }
        keyboard.Key(Qt::Key_S, Qt::ControlModifier);
    }

    static void EnterMembers(TestClub& club, const Keyboard& keyboard)
    {
        EnterMember(keyboard,
            { QStringLiteral("Müller"), QStringLiteral("Eva"), QStringLiteral("Weg 1"),
                QStringLiteral("01234 Ort"), QStringLiteral("123"), QStringLiteral("1"),
                QStringLiteral("300"), QStringLiteral("3"), QStringLiteral("12,50"),
                QStringLiteral("4,20"), QStringLiteral("0,00"), QStringLiteral("18,00") });
        EnterMember(keyboard, { QStringLiteral("Lang"), QStringLiteral("Ida") });
        QCOMPARE(club.Read(QStringLiteral("Mitgliedsdaten2017.pz")),
            QByteArray("M\xfcller;Eva;Weg 1;01234 Ort;123;1;300;3;12,50;4,20;0,00;18,00;;;;\r\n"
                       "Lang;Ida;;;;;;;;;;;;;;\r\n"));
    }

    static void EnterPrices(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.GoTo(3);
        const char* fields[] = { "Text4(0)", "Text4(1)", "Text4(2)", "Text4(3)", "Text4(4)",
            "Text4(5)", "Text4(6)" };
        const char* prices[] = { "0,30", "2,20", "10,00", "36,00", "0,08", "0,02", "0,03" };
        for (int i = 0; i < 7; ++i) {
            keyboard.TabTo(fields[i]);
            keyboard.TypeOver(QString::fromLatin1(prices[i]));
        }
        keyboard.TabTo("Check1");
        keyboard.Key(Qt::Key_Space);
        keyboard.Key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(
            club.BoxTexts().contains(QStringLiteral("Hinweis: Datenänderung ist gespeichert !")));
        const QByteArray saved = club.Read(QStringLiteral("Config.ini"));
        QVERIFY(saved.contains("Stromkosten=0,30\r\n"));
        QVERIFY(saved.contains("Vorauszahlung Strom=1\r\n"));
    }

    static void EnterReadings(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.GoTo(0);
        keyboard.TabTo("Text1(0)");
        keyboard.TypeOver(QStringLiteral("100"));
        keyboard.Key(Qt::Key_Tab);
        QCOMPARE(keyboard.Focused(), QStringLiteral("Text1(1)"));
        keyboard.TypeOver(QStringLiteral("250"));
        keyboard.Key(Qt::Key_Return); // the frame's "OK"
        QCOMPARE(club.Control<QLineEdit>("Text1(2)")->text(), QStringLiteral("150"));
        keyboard.Key(Qt::Key_Down, Qt::ControlModifier); // the next member, end reading focused
        QCOMPARE(club.program.Member.CurrentMember, qint16(1));
        QCOMPARE(keyboard.Focused(), QStringLiteral("Text1(1)"));
        keyboard.TypeOver(QStringLiteral("77"));
        keyboard.Key(Qt::Key_Return);
        keyboard.Key(Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(club.program.Member.CurrentMember, qint16(0));
        QVERIFY(
            club.Read(QStringLiteral("Mitgliedsdaten2017.pz")).contains(";18,00;100;250;;\r\n"));
        QVERIFY(club.Read(QStringLiteral("Mitgliedsdaten2017.pz")).endsWith(";;77;;\r\n"));
    }

    static void PageThroughBills(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.GoTo(1);
        keyboard.TabTo("Command9(0)");
        keyboard.Key(Qt::Key_Space);
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), QStringLiteral("2"));
        keyboard.TabTo("Command9(1)");
        keyboard.Key(Qt::Key_Space);
        QCOMPARE(club.Control<QLineEdit>("Text7")->text(), QStringLiteral("1"));
        keyboard.Key(Qt::Key_PageDown);
        QVERIFY(club.program.Statement.ScrollOffset < 0);
        keyboard.Key(Qt::Key_PageUp);
        QCOMPARE(club.program.Statement.ScrollOffset, 0);
        // 150 kWh at 0,30, prepaid again, flat charge, fee, 300 m² and insurances
        QCOMPARE(club.program.Statement.StatementTotals.value(0), QStringLiteral("209,7"));
    }

    static void EnterBooking(const Keyboard& keyboard, const QStringList& fields)
    {
        keyboard.TabTo("Text10(0)");
        for (int i = 0; i < fields.size(); ++i) {
            QCOMPARE(keyboard.Focused(), ControlName(QStringLiteral("Text10"), i));
            if (i >= 2)
                keyboard.Type(fields[i]); // amounts are selected when they get the focus
            else
                keyboard.TypeOver(fields[i]);
            keyboard.Key(Qt::Key_Return); // on to the next field
        }
        QCOMPARE(keyboard.Focused(), QStringLiteral("Command12(0)")); // behind the last field: "OK"
        keyboard.Key(Qt::Key_Return);
    }

    static void Book(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.GoTo(2);
        EnterBooking(keyboard,
            { QStringLiteral("10.01.2017"), QStringLiteral("Startgeld"), QStringLiteral("500,00"),
                QStringLiteral("0,00") });
        EnterBooking(keyboard,
            { QStringLiteral("05.01.2017"), QStringLiteral("Porto"), QStringLiteral("0,00"),
                QStringLiteral("7,80") });
        keyboard.TabTo("List4");
        keyboard.Key(Qt::Key_Home);
        keyboard.Key(Qt::Key_Space); // proposes the member's payment
        QCOMPARE(club.Control<QLineEdit>("Text10(1)")->text(), QStringLiteral("Abrechnung Müller"));
        QCOMPARE(club.Control<QLineEdit>("Text10(2)")->text(), QStringLiteral("209,70"));
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), QStringLiteral("3 Raten"));
        keyboard.TabTo("Text10(0)");
        keyboard.TypeOver(QStringLiteral("12.01.2017"));
        keyboard.TabTo("Command12(0)");
        keyboard.Key(Qt::Key_Space);
        keyboard.Key(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(club.Read(QStringLiteral("Konto2017.pz")),
            QByteArray("05.01.2017;Porto;0,00;7,80\r\n10.01.2017;Startgeld;500,00;0,00\r\n"
                       "12.01.2017;Abrechnung M\xfcller;209,70;0,00\r\n"));
    }

    static void CorrectAndDelete(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.TabTo("ListView1");
        keyboard.Key(Qt::Key_Home, Qt::ControlModifier);
        keyboard.Key(Qt::Key_Down); // arrows do what a click does
        QCOMPARE(club.Control<QLineEdit>("Text10(1)")->text(), QStringLiteral("Startgeld"));
        keyboard.TabTo("Text10(2)");
        keyboard.Type(QStringLiteral("600,00"));
        keyboard.TabTo("Command12(0)");
        keyboard.Key(Qt::Key_Space);
        QCOMPARE(club.program.CashBook.Bank.Lines.value(1),
            QStringLiteral("10.01.2017;Startgeld;600,00;0,00"));
        keyboard.TabTo("ListView1");
        keyboard.Key(Qt::Key_Home, Qt::ControlModifier);
        keyboard.Key(Qt::Key_Down);
        keyboard.Key(Qt::Key_Up);
        QCOMPARE(club.Control<QLineEdit>("Text10(1)")->text(), QStringLiteral("Porto"));
        keyboard.TabTo("Command12(1)");
        keyboard.Key(Qt::Key_Space);
        QCOMPARE(club.program.CashBook.Bank.Lines.size(), 2);
        keyboard.GoTo(0); // the guard asks, the answer is Yes
        QVERIFY(club.Read(QStringLiteral("Konto2017.pz"))
                    .startsWith("10.01.2017;Startgeld;600,00;0,00\r\n"));
    }

    static void Search(TestClub& club, const Keyboard& keyboard)
    {
        keyboard.TabTo("List1");
        keyboard.Type(QStringLiteral("La")); // search as you type
        QCOMPARE(club.program.Member.CurrentMember, qint16(1));
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), QStringLiteral("Lang"));
    }
};

const TestFile<TestKeyboardYear> test_file(__FILE__);
#include "test_keyboard_year.moc"
