// Where the caret stands: what is selected with the focus, the order of the Tab key, the keys that
// go to a tab, and what a field says about a character that it cannot keep.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QToolTip>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Shown : TestClub {
    Shown()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->resize(1400, 1000);
        program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(program.Window.Window));
        Boxes.clear();
    }

    void GoTo(int tab) const { program.Window.SSTab1->setCurrentIndex(tab); }
};

QString FocusName()
{
    return QApplication::focusWidget() == nullptr ? QString()
                                                  : QApplication::focusWidget()->objectName();
}

} // namespace

class TestFocusForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_number_is_selected_whole_when_the_focus_comes_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("name");
        QTest::newRow("reading") << 0 << u"Text1(1)"_s;
        QTest::newRow("premium") << 0 << u"Text3(8)"_s;
        QTest::newRow("amount") << 2 << u"Text10(2)"_s;
        QTest::newRow("price") << 3 << u"Text4(0)"_s;
    }

    void a_number_is_selected_whole_when_the_focus_comes()
    {
        QFETCH(int, tab);
        QFETCH(QString, name);
        const Shown club;
        club.GoTo(tab);
        auto* field = club.Control<QLineEdit>(qPrintable(name));
        QVERIFY(!field->text().isEmpty());
        field->deselect();
        QTest::mouseClick(field, Qt::LeftButton);
        QCOMPARE(field->selectedText(), field->text());
        QTest::mouseClick(field, Qt::LeftButton); // the second one sets the caret
        QCOMPARE(field->selectedText(), QString());
        club.program.Window.SSTab1->setFocus();
        field->setFocus(Qt::OtherFocusReason); // by the program
        QCOMPARE(field->selectedText(), field->text());
    }

    void a_reading_is_selected_after_ok_so_that_the_next_one_replaces_it()
    {
        Shown club;
        auto* end = club.Control<QLineEdit>("Text1(1)");
        end->setFocus();
        QTest::keyClicks(end, u"4711"_s);
        QTest::keyClick(end, Qt::Key_Return);
        QCOMPARE(club.BoxTexts(), QStringList());
        QCOMPARE(QApplication::focusWidget(), end);
        QCOMPARE(end->selectedText(), u"4711"_s);
    }

    void the_tab_key_goes_from_the_last_member_field_to_the_buttons()
    {
        const Shown club;
        club.Control<QLineEdit>("Text3(11)")->setFocus();
        QStringList names;
        for (int press = 0; press < 3; ++press) {
            QTest::keyClick(club.program.Window.Window, Qt::Key_Tab);
            names += FocusName();
        }
        QCOMPARE(names, (QStringList { u"Command1(0)"_s, u"Command1(2)"_s, u"Command14"_s }));
    }

    void the_key_of_a_tab_goes_to_its_first_field_of_work_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("name");
        QTest::newRow("members") << int(Qt::Key_1) << u"List1"_s;
        QTest::newRow("page") << int(Qt::Key_2) << u"P1"_s;
        QTest::newRow("date") << int(Qt::Key_3) << u"Text10(0)"_s;
        QTest::newRow("price") << int(Qt::Key_4) << u"Text4(0)"_s;
    }

    void the_key_of_a_tab_goes_to_its_first_field_of_work()
    {
        QFETCH(int, key);
        QFETCH(QString, name);
        const Shown club;
        QTest::keyClick(club.program.Window.Window, static_cast<Qt::Key>(key), Qt::ControlModifier);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), key - Qt::Key_1);
        QCOMPARE(FocusName(), name);
        QTest::keyClick( // also when the tab is in front already
            club.program.Window.Window, static_cast<Qt::Key>(key), Qt::ControlModifier);
        QCOMPARE(FocusName(), name);
    }

    void a_character_that_cannot_be_kept_is_told_at_the_field()
    {
        const Shown club;
        auto* name = club.Control<QLineEdit>("Text3(0)");
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, u"M"_s);
        QVERIFY(!QToolTip::isVisible());
        QTest::sendKeyEvent(QTest::Click, name, Qt::Key_Udiaeresis, u"ü"_s, Qt::NoModifier);
        QVERIFY(!QToolTip::isVisible());
        QTest::sendKeyEvent(QTest::Click, name, Qt::Key_L, u"Ł"_s, Qt::NoModifier);
        QCOMPARE(name->text(), u"MüL"_s);
        QVERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), u"„Ł“ kann nicht gespeichert werden, dafür steht hier „L“."_s);
        QToolTip::hideText();
    }

    void what_cannot_be_typed_into_looks_so_on_every_tab()
    {
        const Shown club;
        int read_only = 0;
        for (const QLineEdit* field : club.Window()->findChildren<QLineEdit*>()) {
            if (field->property("tint").toInt() != 0)
                continue;
            const QPalette palette = field->palette();
            const QColor ground = palette.color(QPalette::Base);
            QVERIFY2((ground == palette.color(QPalette::Window)) == field->isReadOnly(),
                qPrintable(field->objectName()));
            read_only += field->isReadOnly() ? 1 : 0;
        }
        QVERIFY(read_only >= 6);
        const QPalette date = club.Control<QLabel>("Label7")->palette();
        QCOMPARE(date.color(QPalette::Base), date.color(QPalette::Window));
    }
};

const TestFile<TestFocusForm> test_file(__FILE__);
#include "test_focus_form.moc"
