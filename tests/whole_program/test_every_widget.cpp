// Rules that hold for every control of the window: names for screen readers, captions without
// shortcuts, reading order of the Tab key, German calendars, and room for every text.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QToolTip>
#include <QtTest>

namespace {

struct Shown : TestClub {
    Shown()
    {
        CopyExample(QStringLiteral("ordinary-year"));
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
    }
    QTabWidget* Tabs() const { return program.Window.SSTab1; }
};

/// Part of a bigger control that stands for it: the arrows of a calendar, the field inside a combo
/// box, a header.
bool IsInside(const QWidget* widget)
{
    for (const QWidget* parent = widget->parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (qobject_cast<const QCalendarWidget*>(parent) != nullptr
            || qobject_cast<const QComboBox*>(parent) != nullptr
            || qobject_cast<const QAbstractItemView*>(parent) != nullptr
            || qobject_cast<const QScrollBar*>(parent) != nullptr)
            return true;
    }
    return false;
}

bool TakesInput(const QWidget* widget)
{
    if (IsInside(widget))
        return false;
    return qobject_cast<const QLineEdit*>(widget) != nullptr
        || qobject_cast<const QAbstractButton*>(widget) != nullptr
        || qobject_cast<const QAbstractItemView*>(widget) != nullptr
        || qobject_cast<const QComboBox*>(widget) != nullptr
        || qobject_cast<const QCalendarWidget*>(widget) != nullptr;
}

/// What a screen reader says: the explicit name, the caption of the button, or the text of the
/// label that has it as buddy.
QString SpokenName(const QWidget* widget)
{
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    const auto labels = widget->window()->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->buddy() == widget)
            return label->text();
    }
    return {};
}

} // namespace

class TestEveryWidget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_first_window_lies_on_the_screen_with_its_frame()
    {
        const Shown club;
        const QMainWindow* window = club.program.Window.Window;
        const QSize screen = window->screen()->availableGeometry().size();
        QVERIFY(window->width() + 8 <= screen.width());
        QVERIFY(window->height() + 40 <= screen.height()); // the title bar
    }

    void every_input_has_a_name_that_is_unique_within_its_tab()
    {
        Shown club;
        int inputs = 0;
        for (int tab = 0; tab < 4; ++tab) {
            QStringList names;
            const auto widgets = club.Tabs()->widget(tab)->findChildren<QWidget*>();
            for (const QWidget* widget : widgets) {
                if (!TakesInput(widget))
                    continue;
                const QString name = SpokenName(widget);
                QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
                QVERIFY2(!names.contains(name),
                    qPrintable(name + QStringLiteral(" twice on tab ") + QString::number(tab)));
                names += name;
                ++inputs;
            }
        }
        QVERIFY(inputs > 60);
    }

    void units_stand_in_the_descriptions()
    {
        Shown club;
        const auto unit = [&](const char* name) {
            return club.Control<QLineEdit>(name)->accessibleDescription();
        };
        QVERIFY(unit("Text1(1)").contains(QStringLiteral("KWh")));
        QVERIFY(unit("Text1(4)").contains(QStringLiteral("m³")));
        QVERIFY(unit("Text3(6)").contains(QStringLiteral("m²")));
        QVERIFY(unit("Text3(8)").contains(QStringLiteral("€")));
        QVERIFY(unit("Text10(2)").contains(QStringLiteral("€")));
        QVERIFY(unit("Text4(0)").contains(QStringLiteral("Euro")));
    }

    void captions_are_not_set_in_a_typewriter_font()
    {
        Shown club;
        QVERIFY(!QFontInfo(club.program.Window.ClubNameLabel->font()).fixedPitch());
        QVERIFY(!QFontInfo(club.Control<QPushButton>("Command8")->font()).fixedPitch());
    }

    void no_caption_holds_a_shortcut_mark()
    {
        Shown club;
        for (const QAbstractButton* button :
            club.program.Window.Window->findChildren<QAbstractButton*>())
            QVERIFY2(!button->text().contains(QLatin1Char('&')), qPrintable(button->text()));
        for (const QLabel* label : club.program.Window.Window->findChildren<QLabel*>())
            QVERIFY2(!label->text().contains(QLatin1Char('&')), qPrintable(label->text()));
        for (const QGroupBox* box : club.program.Window.Window->findChildren<QGroupBox*>())
            QVERIFY2(!box->title().contains(QLatin1Char('&')), qPrintable(box->title()));
    }

    void calendars_begin_on_monday_in_german()
    {
        Shown club;
        const auto calendars = club.program.Window.Window->findChildren<QCalendarWidget*>();
        QCOMPARE(calendars.size(), 3);
        for (const QCalendarWidget* calendar : calendars) {
            QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
            QCOMPARE(calendar->locale().monthName(10), QStringLiteral("Oktober"));
        }
    }

    void every_text_has_room_data()
    {
        QTest::addColumn<int>("points");
        for (int points : { 8, 9, 10, 12, 14, 16, 18, 20 })
            QTest::newRow(qPrintable(QStringLiteral("%1 pt").arg(points))) << points;
    }

    void every_text_has_room()
    {
        QFETCH(int, points);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        {
            Shown club;
            club.program.Window.Window->resize(1024, 700);
            int measured = 0;
            for (int tab = 0; tab < 4; ++tab) {
                club.Tabs()->setCurrentIndex(tab);
                for (int i = 0; i < 5; ++i) // layouts settle in several rounds
                    QCoreApplication::processEvents();
                for (const QWidget* widget : club.program.Window.Window->findChildren<QWidget*>()) {
                    if (widget->isVisible())
                        measured += Measure(widget);
                }
            }
            QVERIFY(measured > 100);
        }
        QApplication::setFont(before);
    }

    void every_money_report_has_a_name_and_room_for_its_buttons_data()
    {
        every_text_has_room_data();
    }

    void every_money_report_has_a_name_and_room_for_its_buttons()
    {
        QFETCH(int, points);
        const QFont before = QApplication::font();
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        {
            Shown club;
            QStringList names;
            for (const char* entry :
                { "MoreOpenItems", "MoreCashReport", "MoreCashBook", "MoreYears" })
                club.program.Window.Window->findChild<QAction*>(QLatin1String(entry))->trigger();
            QCOMPARE(club.program.Reports.Opened.size(), std::size_t(4));
            for (auto& [kind, opened] : club.program.Reports.Opened) {
                opened.Window->resize(640, 480);
                QCoreApplication::processEvents();
                names += opened.Text->accessibleName();
                int measured = 0;
                for (const QWidget* widget : opened.Window->findChildren<QWidget*>()) {
                    if (widget->isVisible() && TakesInput(widget))
                        QVERIFY2(!SpokenName(widget).isEmpty(), qPrintable(widget->objectName()));
                    if (widget->isVisible())
                        measured += Measure(widget);
                }
                QVERIFY(measured >= 3);
            }
            names.removeDuplicates();
            QCOMPARE(names.size(), 4);
            QVERIFY(!names.contains(QString()));
        }
        QApplication::setFont(before);
    }

    void the_head_and_the_tabs_stay_in_sight_in_a_small_window()
    {
        Shown club;
        QMainWindow* window = club.program.Window.Window;
        window->resize(640, 400);
        QCoreApplication::processEvents();
        const auto* exit = club.Control<QPushButton>("Command8");
        QCOMPARE(exit->visibleRegion().boundingRect(), exit->rect());
        QCOMPARE(club.Tabs()->tabBar()->visibleRegion().boundingRect().height(),
            club.Tabs()->tabBar()->height());
        for (int tab : { 0, 2 }) {
            club.Tabs()->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            const auto* scroll = qobject_cast<QScrollArea*>(club.Tabs()->widget(tab));
            QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
        }
    }

    void nobody_scrolls_sideways_with_large_letters_in_a_small_window()
    {
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSize(16);
        QApplication::setFont(large);
        {
            Shown club;
            club.program.Window.Window->resize(1024, 700);
            for (int tab = 0; tab < 4; ++tab) {
                club.Tabs()->setCurrentIndex(tab);
                for (int i = 0; i < 5; ++i) // layouts settle in several rounds
                    QCoreApplication::processEvents();
                const auto* scroll = qobject_cast<QScrollArea*>(club.Tabs()->widget(tab));
                QVERIFY2(scroll->horizontalScrollBar()->maximum() == 0,
                    qPrintable(club.Tabs()->tabText(tab)));
            }
            // what stands below the other here stands beside it in a wide window
            const auto left_of = [&](const char* one, const char* other) {
                const QWidget* window = club.program.Window.Window;
                const auto x = [&](const char* name) {
                    const auto* control = club.Control<QWidget>(name);
                    return control->mapTo(window, QPoint()).x();
                };
                return x(one) + club.Control<QWidget>(one)->width() < x(other);
            };
            QVERIFY(!left_of("Text3(0)", "Text1(1)"));
            QVERIFY(!left_of("Text10(1)", "List4"));
            club.program.Window.Window->resize(2500, 1000);
            for (int tab : { 0, 2 }) {
                club.Tabs()->setCurrentIndex(tab);
                for (int i = 0; i < 5; ++i)
                    QCoreApplication::processEvents();
            }
            QVERIFY(left_of("Text3(0)", "Text1(1)"));
            QVERIFY(left_of("Text10(1)", "List4"));
        }
        QApplication::setFont(before);
    }

    void one_button_of_a_frame_stands_out_even_without_the_focus()
    {
        Shown club;
        for (const char* name :
            { "Command1(0)", "Command2", "Command6", "Command12(0)", "Command5", "Command7" }) {
            auto* button = club.Control<QPushButton>(name);
            club.Tabs()->setCurrentIndex(TabOf(club, button));
            button->setFocus();
            button->clearFocus();
            QVERIFY2(button->isDefault(), name);
        }
        QVERIFY(!club.Control<QPushButton>("Command1(2)")->isDefault());
        QVERIFY(!club.Control<QPushButton>("Command8")->isDefault());
    }

    void a_name_that_is_cut_off_is_told_whole_by_its_tool_tip()
    {
        Shown club;
        club.program.Window.Window->resize(1280, 800);
        club.Tabs()->setCurrentIndex(0);
        QCoreApplication::processEvents();
        auto* names = club.Control<QListWidget>("List1");
        const auto tip_of_first = [names] {
            const QRect row = names->visualItemRect(names->item(0));
            QHelpEvent asked(
                QEvent::ToolTip, row.center(), names->viewport()->mapToGlobal(row.center()));
            QCoreApplication::sendEvent(names->viewport(), &asked);
            return QToolTip::text();
        };
        QCOMPARE(tip_of_first(), names->toolTip());
        names->item(0)->setText(QString(200, QLatin1Char('n')));
        QCOMPARE(tip_of_first(), QString(200, QLatin1Char('n')));
        QToolTip::hideText();
    }

private:
    static int TabOf(const Shown& club, const QWidget* control)
    {
        int tab = 0;
        while (!club.Tabs()->widget(tab)->isAncestorOf(control))
            ++tab;
        return tab;
    }

    /// 1 when the widget has a text of its own, which must fit; 0 otherwise.
    static int Measure(const QWidget* widget)
    {
        if (const auto* label = qobject_cast<const QLabel*>(widget);
            label && !label->text().isEmpty()) {
            const bool wraps = label->wordWrap();
            const int needed_height
                = wraps ? label->heightForWidth(label->width()) : label->sizeHint().height();
            Fits(label, label->text(), wraps ? 0 : label->sizeHint().width(), label->width());
            Fits(label, label->text(), needed_height, label->height());
            return 1;
        }
        if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
            Fits(button, button->text(),
                button->fontMetrics().horizontalAdvance(button->text()) + 4, button->width());
            Fits(button, button->text(), button->fontMetrics().height(), button->height());
            return 1;
        }
        if (const auto* field = qobject_cast<const QLineEdit*>(widget); field && !IsInside(field)) {
            Fits(field, field->text(), field->fontMetrics().height(), field->height());
            if (field->alignment() & Qt::AlignRight) // amounts and readings as shown
                Fits(field, field->text(),
                    field->fontMetrics().horizontalAdvance(field->text()) + 8, field->width());
            return 1;
        }
        return 0;
    }

    static void Fits(const QWidget* widget, const QString& text, int needed, int there)
    {
        QVERIFY2(needed <= there,
            qPrintable(QStringLiteral("%1 \"%2\" needs %3, has %4")
                           .arg(widget->objectName(), text)
                           .arg(needed)
                           .arg(there)));
    }
};

const TestFile<TestEveryWidget> test_file(__FILE__);
#include "test_every_widget.moc"
