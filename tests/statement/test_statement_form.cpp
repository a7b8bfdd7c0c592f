// The tab "Druckvorlagen": fields, paging, scrolling, keys, drawing with errors.
#include "tests/support/page_picture.h"
#include "tests/support/statement_tab.h"

#include "controls/fields.h"
#include "statement/preview_paging.h"
#include "statement/statement_pages.h"
#include "tests/support/test_file.h"

#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

/// The page as it has to look on this screen.
QImage PageOnScreen(const LoneStatementTab& tab, qsizetype page)
{
    return PagePicture(tab.program.Statement, page, tab.Tab.devicePixelRatioF());
}

QImage Shown(const LoneStatementTab& tab)
{
    QImage shown
        = tab.program.StatementPreview.P2->grab().toImage().convertToFormat(QImage::Format_RGB32);
    shown.setDevicePixelRatio(1.0); // pixel by pixel
    return shown;
}

void Wheel(QWidget* widget, int delta)
{
    const QPointF middle(widget->rect().center());
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, delta), Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class TestStatementForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_tab_has_its_frames_captions_and_fields();
    void every_input_has_a_name_of_its_own();
    void after_the_rebuild_page_one_of_n_is_shown();
    void next_and_previous_step_through_the_pages();
    void the_shown_page_is_the_recorded_one();
    void only_one_page_surface_exists_whatever_the_club();
    void scrolling_moves_the_shown_page_and_carries_over();
    void a_rebuild_shows_page_one_at_the_current_scroll_position();
    void a_redraw_keeps_the_shown_page_and_the_typed_pages();
    void the_viewport_keeps_its_width_and_grows_with_the_window();
    void a_larger_window_moves_the_page_back_into_the_range();
    void wheel_and_keys_scroll();
    void the_wheel_over_the_desk_moves_the_page_too();
    void page_keys_move_by_the_large_step_data();
    void page_keys_move_by_the_large_step();
    void alt_and_page_keys_step();
    void choosing_pages_only_sets_the_flag();
    void fields_that_print_nothing_are_tinted();
    void all_with_single_pages_is_pointed_out();
    void an_empty_club_shows_a_blank_page();
    void page_fields_follow_the_list();
    void totals_are_those_of_the_last_drawing();
    void a_bad_member_is_reported_once_and_the_caller_goes_on();
    void an_error_names_the_files_of_the_loaded_year();
    void a_new_member_leaves_the_earlier_bills_complete();
    void a_failed_save_leaves_no_page_to_step_to();
    void the_page_is_black_on_white_on_a_dark_desktop();
};

void TestStatementForm::the_tab_has_its_frames_captions_and_fields()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    QCOMPARE(tab.Control<QGroupBox>("Frame11(1)")->title(), u"Seiten"_s);
    QCOMPARE(tab.Control<QGroupBox>("Frame11(0)")->title(), u"Drucken"_s);
    QCOMPARE(tab.Control<QRadioButton>("Option1")->text(), u"Alles"_s);
    QCOMPARE(tab.Control<QRadioButton>("Option2")->text(), u"Seiten"_s);
    QCOMPARE(tab.Control<QPushButton>("Command6")->text(), u"Drucken"_s);
    QVERIFY(tab.Control<QLineEdit>("Text7")->isReadOnly());
    QVERIFY(tab.Control<QLineEdit>("Text9")->isReadOnly());
    QStringList captions;
    for (const QLabel* label : tab.Tab.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr)
            captions += label->text() + u": "_s + label->buddy()->objectName();
    }
    captions.sort();
    QCOMPARE(captions,
        (QStringList {
            u"Angezeigte Seite: Text7"_s, u"Gesamtseitenzahl: Text9"_s, u"Seite: Text8(0)"_s }));
    QCOMPARE(tab.TextOf("Text8(0)"), u"1"_s);
    QCOMPARE(tab.Control<QWidget>("P1")->width(), 649);
    QCOMPARE(tab.Control<QWidget>("P2(0)")->size(), QSize(649, 918));
}

void TestStatementForm::every_input_has_a_name_of_its_own()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    QSet<QString> names;
    for (const QWidget* widget : tab.Tab.findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus)
            continue;
        const QString name = widget->accessibleName().isEmpty()
            ? widget->property("text").toString()
            : widget->accessibleName();
        QVERIFY2(!name.isEmpty(), qPrintable(widget->objectName()));
        QVERIFY2(!names.contains(name), qPrintable(name));
        names += name;
    }
    QVERIFY(names.contains(u"Seitenvorschau"_s));
    QVERIFY(names.contains(u"Drucken von Seite"_s));
    QVERIFY(names.contains(u"Drucken bis Seite"_s));
}

void TestStatementForm::after_the_rebuild_page_one_of_n_is_shown()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    QCOMPARE(tab.TextOf("Text7"), u"1"_s);
    QCOMPARE(tab.TextOf("Text9"), u"3"_s);
    QCOMPARE(tab.TextOf("Text8(0)"), u"1"_s);
    QCOMPARE(tab.TextOf("Text8(1)"), u"3"_s);
}

void TestStatementForm::next_and_previous_step_through_the_pages()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    for (const QString& page : { u"2"_s, u"3"_s, u"3"_s }) {
        tab.Click("Command9(0)");
        QCOMPARE(tab.TextOf("Text7"), page);
        QVERIFY(tab.Control<QWidget>(qPrintable(u"P2(%1)"_s.arg(page.toInt() - 1))) != nullptr);
    }
    for (const QString& page : { u"2"_s, u"1"_s, u"1"_s }) {
        tab.Click("Command9(1)");
        QCOMPARE(tab.TextOf("Text7"), page);
    }
    QCOMPARE(tab.Boxes, QStringList());
}

void TestStatementForm::the_shown_page_is_the_recorded_one()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.Show(1024, 700);
    for (qsizetype page = 0; page < 8; ++page) {
        QCOMPARE(Shown(tab), PageOnScreen(tab, page));
        QVERIFY(tab.program.StatementPreview.P2->accessibleName().endsWith(
            u"Seite %1 von 8"_s.arg(page + 1)));
        tab.Click("Command9(0)");
    }
    tab.Click("Command9(1)");
    QVERIFY(PageOnScreen(tab, 6) != PageOnScreen(tab, 7));
    QCOMPARE(Shown(tab), PageOnScreen(tab, 6));
}

void TestStatementForm::only_one_page_surface_exists_whatever_the_club()
{
    LoneStatementTab tab(YearOf(u"large-club"_s));
    QCOMPARE(tab.TextOf("Text9"), u"120"_s);
    QCOMPARE(tab.program.StatementPreview.P1->findChildren<QWidget*>().size(), 1);
}

void TestStatementForm::scrolling_moves_the_shown_page_and_carries_over()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 700);
    tab.Control<QScrollBar>("VScroll1")->setValue(12);
    QCOMPARE(tab.program.Statement.ScrollOffset, -120);
    QCOMPARE(tab.program.StatementPreview.P2->y(), -120);
    tab.Click("Command9(0)");
    QCOMPARE(tab.program.StatementPreview.P2->y(), -120);
    QCOMPARE(tab.program.Statement.PageTops, (std::vector<qint32> { -120, -120, 0 }));
}

void TestStatementForm::a_rebuild_shows_page_one_at_the_current_scroll_position()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 700);
    tab.Control<QScrollBar>("VScroll1")->setValue(5);
    tab.Click("Command9(0)");
    tab.Type("Text8(0)", u"2"_s);
    RebuildStatementPages(tab.program);
    QCOMPARE(tab.TextOf("Text7"), u"1"_s);
    QCOMPARE(tab.TextOf("Text8(0)"), u"2"_s); // not touched
    QCOMPARE(tab.program.StatementPreview.P2->objectName(), u"P2(0)"_s);
    QCOMPARE(tab.program.StatementPreview.P2->y(), -50);
    QVERIFY(tab.program.StatementPreview.P2->isVisible());
    QCOMPARE(Shown(tab), PageOnScreen(tab, 0));
}

void TestStatementForm::a_redraw_keeps_the_shown_page_and_the_typed_pages()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 700);
    tab.Click("Command9(0)");
    tab.Type("Text8(1)", u"2"_s);
    tab.program.Prices.MembershipFee = u"77,00"_s;
    DrawStatementPages(tab.program);
    QCOMPARE(tab.TextOf("Text7"), u"2"_s);
    QCOMPARE(tab.TextOf("Text8(1)"), u"2"_s);
    QVERIFY(TextRows(tab.program.Statement, 1)
                .contains(u"row_10_subtotal\t77,00\tright\t618\t440\t8\t0\t0,0,0"_s));
    QCOMPARE(Shown(tab), PageOnScreen(tab, 1));
}

void TestStatementForm::the_viewport_keeps_its_width_and_grows_with_the_window()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    auto* bar = tab.Control<QScrollBar>("VScroll1");
    tab.Show(1024, 600);
    const QWidget* viewport = tab.Control<QWidget>("P1");
    const int height = viewport->height();
    QCOMPARE(viewport->width(), 649);
    QCOMPARE(bar->maximum(), qRound((918 - height) / 10.0));
    QCOMPARE(bar->minimum(), 0);
    tab.Show(1600, 800);
    QCOMPARE(viewport->width(), 649);
    QCOMPARE(viewport->height(), height + 200);
    QCOMPARE(bar->maximum(), qRound((918 - height - 200) / 10.0));
    tab.Show(1600, 1400);
    QCOMPARE(bar->maximum(), 0);
    QVERIFY(bar->pageStep() >= 1);
}

void TestStatementForm::a_larger_window_moves_the_page_back_into_the_range()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    auto* bar = tab.Control<QScrollBar>("VScroll1");
    tab.Show(1024, 600);
    bar->setValue(bar->maximum());
    QCOMPARE(tab.program.StatementPreview.P2->y(), -10 * bar->maximum());
    tab.Show(1024, 1400);
    QCOMPARE(tab.program.StatementPreview.P2->y(), 0);
    QCOMPARE(tab.program.Statement.ScrollOffset, 0);
}

void TestStatementForm::wheel_and_keys_scroll()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 600);
    auto* bar = tab.Control<QScrollBar>("VScroll1");
    QWidget* viewport = tab.program.StatementPreview.P1;
    Wheel(viewport, -120);
    QCOMPARE(bar->value(), 6);
    QCOMPARE(tab.program.StatementPreview.P2->y(), -60);
    QCOMPARE(viewport->childAt(20, 20), nullptr); // the page lets the viewport have it
    Wheel(viewport, 120);
    QCOMPARE(bar->value(), 0);
    for (int i = 0; i < 15; ++i)
        Wheel(viewport, -8); // a touchpad: fifteen small moves are one notch
    QCOMPARE(bar->value(), 6);
    viewport->setFocus();
    QTest::keyClick(viewport, Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    QTest::keyClick(viewport, Qt::Key_Down);
    QCOMPARE(bar->value(), 1);
    QTest::keyClick(viewport, Qt::Key_PageDown);
    QCOMPARE(bar->value(), 1 + bar->pageStep());
    QTest::keyClick(viewport, Qt::Key_PageUp);
    QTest::keyClick(viewport, Qt::Key_Up);
    QCOMPARE(bar->value(), 0);
    QTest::keyClick(viewport, Qt::Key_End);
    QCOMPARE(bar->value(), bar->maximum());
    auto* button = tab.Control<QPushButton>("Command6");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_PageUp);
    QCOMPARE(bar->value(), bar->maximum() - bar->pageStep());
}

void TestStatementForm::the_wheel_over_the_desk_moves_the_page_too()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1200, 600);
    QWidget* desk = tab.program.StatementPreview.Desk;
    QCOMPARE(desk->childAt(20, 20), nullptr); // beside the page
    Wheel(desk, -120);
    QCOMPARE(tab.Control<QScrollBar>("VScroll1")->value(), 6);
    QCOMPARE(tab.program.StatementPreview.P2->y(), -60);
    Wheel(desk, 240);
    QCOMPARE(tab.program.StatementPreview.P2->y(), 0);
}

void TestStatementForm::page_keys_move_by_the_large_step_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("low") << 400;
    QTest::newRow("middle") << 600;
    QTest::newRow("high") << 750;
}

void TestStatementForm::page_keys_move_by_the_large_step()
{
    QFETCH(int, height);
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, height);
    QWidget* viewport = tab.program.StatementPreview.P1;
    const ScrollRange range = ScrollRangeFor(PageHeight, viewport->height());
    QVERIFY(range.large_step > 1);
    const auto* bar = tab.Control<QScrollBar>("VScroll1");
    QTest::keyClick(viewport, Qt::Key_PageDown);
    QCOMPARE(bar->value(), range.large_step);
    QTest::keyClick(viewport, Qt::Key_PageDown);
    QCOMPARE(tab.program.StatementPreview.P2->y(), -20 * range.large_step);
    QTest::keyClick(viewport, Qt::Key_PageUp);
    QCOMPARE(bar->value(), range.large_step);
}

void TestStatementForm::alt_and_page_keys_step()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 600);
    auto* field = tab.Control<QLineEdit>("Text8(0)");
    field->setFocus();
    QTest::keyClick(field, Qt::Key_PageDown, Qt::AltModifier);
    QCOMPARE(tab.TextOf("Text7"), u"2"_s);
    QTest::keyClick(field, Qt::Key_PageUp, Qt::AltModifier);
    QCOMPARE(tab.TextOf("Text7"), u"1"_s);
}

void TestStatementForm::choosing_pages_only_sets_the_flag()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    QVERIFY(!tab.program.Statement.PrintAllPages);
    tab.Click("Option1");
    QVERIFY(tab.program.Statement.PrintAllPages);
    QCOMPARE(tab.TextOf("Text8(0)") + u'-' + tab.TextOf("Text8(1)"), u"1-3"_s);
    tab.Click("Option2");
    QVERIFY(!tab.program.Statement.PrintAllPages);
}

void TestStatementForm::fields_that_print_nothing_are_tinted()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    const auto* from = tab.Control<QLineEdit>("Text8(0)");
    const auto* to = tab.Control<QLineEdit>("Text8(1)");
    QCOMPARE(TintOf(from), TintKind::None);
    const QString own_tool_tip = to->toolTip();
    for (const QString& wrong : { u"4"_s, u"0"_s, u"x"_s, u"1,5"_s }) {
        tab.Type("Text8(1)", wrong);
        QCOMPARE(TintOf(from), TintKind::Wrong);
        QCOMPARE(TintOf(to), TintKind::Wrong);
        QVERIFY(to->toolTip().contains(u"1 bis 3"_s));
    }
    tab.Type("Text8(1)", u"2"_s);
    QCOMPARE(TintOf(to), TintKind::None);
    QCOMPARE(to->toolTip(), own_tool_tip);
}

void TestStatementForm::all_with_single_pages_is_pointed_out()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    const auto* from = tab.Control<QLineEdit>("Text8(0)");
    tab.Click("Option1");
    QCOMPARE(TintOf(from), TintKind::None);
    tab.Type("Text8(0)", u"2"_s);
    QCOMPARE(TintOf(from), TintKind::Unsaved);
    QVERIFY(from->toolTip().contains(u"2 bis 3"_s));
    tab.Click("Option2");
    QCOMPARE(TintOf(from), TintKind::None);
}

void TestStatementForm::an_empty_club_shows_a_blank_page()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 700);
    tab.program.Members = {};
    RebuildStatementPages(tab.program);
    QCOMPARE(tab.TextOf("Text7"), u"1"_s);
    QCOMPARE(tab.TextOf("Text9"), u"0"_s);
    QCOMPARE(tab.TextOf("Text8(1)"), u"0"_s);
    tab.Click("Command9(0)");
    tab.Click("Command9(1)");
    QCOMPARE(tab.TextOf("Text7"), u"1"_s);
    QVERIFY(tab.program.StatementPreview.P2->isVisible());
    QImage blank = Shown(tab);
    blank.fill(Qt::white);
    QCOMPARE(Shown(tab), blank);
    QCOMPARE(tab.program.Statement.StatementTotals, QStringList());
    QCOMPARE(TintOf(tab.Control<QLineEdit>("Text8(0)")), TintKind::None);
}

void TestStatementForm::page_fields_follow_the_list()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.program.Members.RecordList.removeLast();
    SetPageFields(tab.program);
    QCOMPARE(tab.TextOf("Text9"), u"2"_s);
    QCOMPARE(tab.TextOf("Text8(1)"), u"2"_s);
    QCOMPARE(tab.TextOf("Text8(0)"), u"1"_s);
}

void TestStatementForm::totals_are_those_of_the_last_drawing()
{
    const ExampleYear example = YearOf(u"ordinary-year"_s);
    LoneStatementTab tab(example);
    DrawStatementPages(tab.program);
    DrawStatementPages(tab.program);
    QCOMPARE(tab.program.Statement.StatementTotals, ExpectedTotals(example));
}

void TestStatementForm::a_bad_member_is_reported_once_and_the_caller_goes_on()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Boxes.clear();
    tab.program.Prices.Lease = u"0.08"_s;
    bool went_on = false;
    WithErrorBox(tab.program.Errors, tab.program.Ask, [&] {
        RebuildStatementPages(tab.program);
        DrawStatementPages(tab.program); // as when a year is loaded: twice in one action
        went_on = true;
    });
    QVERIFY(went_on);
    QCOMPARE(tab.Boxes.size(), 1);
    QVERIFY2(tab.Boxes[0].startsWith(
                 u"Laufzeitfehler 13: Typen unverträglich | Datei „Config.ini“, Feld „Pacht“"
                 " (dort steht „0.08“): "_s),
        qPrintable(tab.Boxes[0]));
    QCOMPARE(tab.program.Statement.StatementTotals, QStringList());
    WithErrorBox(tab.program.Errors, tab.program.Ask, [&] { DrawStatementPages(tab.program); });
    QCOMPARE(tab.Boxes.size(), 2); // a new action
}

void TestStatementForm::an_error_names_the_files_of_the_loaded_year()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.program.Year.YearText = u"2016"_s; // the year box went back, nothing was loaded
    tab.program.Members.RecordList[1] = u"kurz;Carl"_s;
    WithErrorBox(tab.program.Errors, tab.program.Ask, [&] { DrawStatementPages(tab.program); });
    QCOMPARE(tab.Boxes.size(), 1);
    QVERIFY2(tab.Boxes[0].contains(u"Datei „Mitgliedsdaten2017.pz“, Zeile 2"_s),
        qPrintable(tab.Boxes[0]));
    tab.program.Members.RecordList[1] = tab.program.Members.RecordList[0];
    tab.program.Members.PreviousYearList.resize(1);
    WithErrorBox(tab.program.Errors, tab.program.Ask, [&] { DrawStatementPages(tab.program); });
    QCOMPARE(tab.Boxes.size(), 2);
    QVERIFY2(tab.Boxes[1].contains(u"Datei „Mitgliedsdaten2016.pz“, Zeile 2"_s),
        qPrintable(tab.Boxes[1]));
    QVERIFY2(tab.Boxes[1].contains(u"„Vorjahr abgleichen …“"_s), qPrintable(tab.Boxes[1]));
}

void TestStatementForm::a_new_member_leaves_the_earlier_bills_complete()
{
    LoneStatementTab tab(YearOf(u"new-member"_s));
    tab.Show(1024, 700);
    QCOMPARE(tab.Boxes.size(), 1);
    QVERIFY2(tab.Boxes[0].startsWith(u"Laufzeitfehler 9: Index außerhalb des gültigen Bereichs | "
                                     "Datei „Mitgliedsdaten2017.pz“, Zeile 7, Mitglied "
                                     "„Vogt,Bernd“: "_s),
        qPrintable(tab.Boxes[0]));
    QCOMPARE(tab.TextOf("Text9"), u"7"_s);
    QCOMPARE(tab.program.Statement.StatementTotals.size(), 6);
    for (int i = 0; i < 6; ++i)
        tab.Click("Command9(0)");
    QCOMPARE(tab.TextOf("Text7"), u"7"_s);
    QCOMPARE(Shown(tab), PageOnScreen(tab, 6)); // the fixed contents alone
}

void TestStatementForm::a_failed_save_leaves_no_page_to_step_to()
{
    LoneStatementTab tab(YearOf(u"ledger-minus"_s));
    tab.Show(1024, 700);
    tab.program.Members.RecordList += u"nicht;gespeichert"_s; // no rebuild followed
    for (int i = 0; i < 4; ++i)
        tab.Click("Command9(0)");
    QCOMPARE(tab.TextOf("Text7"), u"3"_s);
    tab.program.Members.RecordList.clear();
    tab.Click("Command9(0)");
    tab.Click("Command9(1)");
    QCOMPARE(tab.TextOf("Text7"), u"2"_s);
}

void TestStatementForm::the_page_is_black_on_white_on_a_dark_desktop()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    tab.Tab.setPalette(dark);
    tab.Show(1024, 700);
    QCOMPARE(Shown(tab), PageOnScreen(tab, 0));
    const QImage desk = tab.program.StatementPreview.Desk->grab().toImage();
    QVERIFY(qGray(desk.pixel(1, desk.height() / 2)) < 80);
}

const TestFile<TestStatementForm> test_file(__FILE__);
#include "test_statement_form.moc"
