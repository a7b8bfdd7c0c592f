// The entry form of the tab "Kontoführung": fields, lists, calendar, "OK" and "Löschen".
#include "controls/fields.h"
#include "tests/support/cash_book_club.h"
#include "tests/support/test_file.h"

#include <QCalendarWidget>
#include <QContextMenuEvent>

using namespace Qt::StringLiterals;

namespace {

const QString four_lines = u"01.02.2016;Anfang;100,00;0,00\r\n"
                           "02.02.2016;Porto;0,00;7,80\r\n"
                           "03.02.2016;Gartenzeitung 2016;0,00;24,00\r\n"
                           "04.02.2016;Spende;5,5;0,00\r\n"_s;

const QStringList empty_fields { u""_s, u""_s, u"0,00"_s, u"0,00"_s };

void ClickDay(QCalendarWidget* calendar, const QDate& day)
{
    // the day's cell is Qt's own business; a press of Enter picks the selected day as a click does
    const QSignalBlocker silent(calendar);
    calendar->setSelectedDate(day);
    calendar->blockSignals(false);
    QTest::keyClick(Find<QWidget>(calendar, u"qt_calendar_calendarview"_s), Qt::Key_Return);
}

} // namespace

class TestCashBookForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_captions_stand_as_they_are_known()
    {
        const CashBookClub club(four_lines);
        const QWidget* tab = club.program.Window.SSTab1->widget(2);
        QStringList captions;
        for (const auto* label : tab->findChildren<QLabel*>())
            captions += label->text();
        for (const QString& caption :
            { u"Datum"_s, u"Vorgang"_s, u"Einzahlen"_s, u"Abheben"_s, u"Raten Vereinbarung"_s,
                u"aktueller Kontostand"_s, u"Namen"_s, u"sich wiederholende Vorgänge"_s })
            QCOMPARE(captions.count(caption), 1);
        QCOMPARE(club.Control<QPushButton>("Command12(0)")->text(), u"OK"_s);
        QCOMPARE(club.Control<QPushButton>("Command12(1)")->text(), u"Löschen"_s);
        QCOMPARE(club.Control<QPushButton>("CommandSaveLedger")->text(), u"Speichern"_s);
    }

    void the_lists_have_their_captions_above_them_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QString>("caption");
        QTest::newRow("names") << QByteArray("List4") << u"Namen"_s;
        QTest::newRow("payees") << QByteArray("List9") << u"sich wiederholende Vorgänge"_s;
    }
    void the_lists_have_their_captions_above_them()
    {
        QFETCH(const QByteArray, list);
        QFETCH(const QString, caption);
        const CashBookClub club(four_lines);
        const auto* below = club.Control<QListWidget>(list.constData());
        const auto labels = below->parentWidget()->findChildren<QLabel*>();
        const auto label = std::find_if(labels.cbegin(), labels.cend(),
            [&](const QLabel* candidate) { return candidate->text() == caption; });
        QVERIFY(label != labels.cend());
        QCOMPARE((*label)->geometry().left(), below->geometry().left());
        QVERIFY((*label)->geometry().bottom() < below->geometry().top());
        QCOMPARE(below->accessibleName(), caption);
    }

    void the_form_starts_empty_with_today_in_the_calendar()
    {
        const CashBookClub club(four_lines);
        QCOMPARE(club.FieldTexts(), empty_fields);
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), u""_s);
        QVERIFY(club.Control<QLineEdit>("Text11")->isReadOnly());
        QCOMPARE(club.program.CashBookTab.Cal3->selectedDate(), QDate(2016, 3, 3));
        QCOMPARE(club.MarkedRow(), -1);
    }

    // "OK" and "Löschen"

    void ok_books_what_was_typed_and_empties_the_fields()
    {
        const CashBookClub club(four_lines);
        club.TypeBooking(u"02.02.2016"_s, u"Kaffee"_s, u"1,5"_s, u"0,25"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Row(1),
            QStringList({ u"02.02.2016"_s, u"Kaffee"_s, u"1,50 €"_s, u"0,25 €"_s, u"101,25 €"_s }));
        QCOMPARE(club.Balance(), u"74,95 €"_s);
        QCOMPARE(club.Book().Bank.Lines[1], u"02.02.2016;Kaffee;1,5;0,25"_s);
        QCOMPARE(club.FieldTexts(), empty_fields);
        QVERIFY(club.Book().LedgerChanged);
        QCOMPARE(club.File(CashBookClub::bank), four_lines); // the file waits for "Speichern"
        QVERIFY(club.Boxes.isEmpty());
    }

    void ok_and_delete_do_nothing_without_date_or_text_data()
    {
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("text");
        QTest::newRow("no date") << u""_s << u"Porto"_s;
        QTest::newRow("no text") << u"01.03.2016"_s << u""_s;
        QTest::newRow("neither") << u""_s << u""_s;
    }
    void ok_and_delete_do_nothing_without_date_or_text()
    {
        QFETCH(const QString, date);
        QFETCH(const QString, text);
        const CashBookClub club(four_lines);
        club.ClickRow(1);
        club.TypeBooking(date, text, u"1,00"_s, u"2,00"_s);
        for (const char* button : { "Command12(0)", "Command12(1)" }) {
            club.Click(button);
            QCOMPARE(club.FieldTexts(), QStringList({ date, text, u"1,00"_s, u"2,00"_s }));
            QCOMPARE(club.Texts().size(), 4);
            QVERIFY(!club.Book().LedgerChanged);
            QVERIFY(club.Book().LedgerEditMode);
            QVERIFY(club.Boxes.isEmpty());
        }
    }

    void a_click_on_a_row_brings_its_stored_texts_and_marks_it()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(3);
        QCOMPARE(
            club.FieldTexts(), QStringList({ u"04.02.2016"_s, u"Spende"_s, u"5,5"_s, u"0,00"_s }));
        QVERIFY(club.Book().LedgerEditMode);
        QCOMPARE(club.Book().SelectedLedgerRow, 4);
        QCOMPARE(club.MarkedRow(), 3);
        QCOMPARE(
            club.Control<QLabel>("ReplaceMark")->text(), u"OK ersetzt: 04.02.2016 Spende 5,50 €"_s);
    }

    void ok_replaces_the_marked_row_and_ends_the_mark()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(1);
        CashBookClub::Type(club.Field(3), u"8,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Texts().size(), 4);
        QCOMPARE(club.Row(1)[3], u"8,00 €"_s);
        QVERIFY(!club.Book().LedgerEditMode);
        QCOMPARE(club.Book().SelectedLedgerRow, 0);
        QCOMPARE(club.MarkedRow(), -1);
        QCOMPARE(club.Control<QLabel>("ReplaceMark")->text(), u""_s);
    }

    void a_replaced_row_moves_to_its_new_day()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(0);
        CashBookClub::Type(club.Field(0), u"31.12.2016"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Texts(),
            QStringList({ u"Porto"_s, u"Gartenzeitung 2016"_s, u"Spende"_s, u"Anfang"_s }));
    }

    void after_delete_the_row_that_moved_up_is_marked_and_replaced()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(2);
        club.Click("Command12(1)");
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s, u"Spende"_s }));
        QCOMPARE(club.FieldTexts(), empty_fields);
        QVERIFY(club.Book().LedgerEditMode);
        QCOMPARE(club.Book().SelectedLedgerRow, 3);
        QCOMPARE(club.MarkedRow(), 2);
        club.TypeBooking(u"05.02.2016"_s, u"Neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s, u"Neu"_s }));
    }

    void after_delete_of_the_last_row_nothing_is_marked_and_ok_appends()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(3);
        club.Click("Command12(1)");
        QCOMPARE(club.MarkedRow(), -1);
        QCOMPARE(club.Control<QLabel>("ReplaceMark")->text(), u""_s);
        club.TypeBooking(u"05.02.2016"_s, u"Neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Texts(),
            QStringList({ u"Anfang"_s, u"Porto"_s, u"Gartenzeitung 2016"_s, u"Neu"_s }));
    }

    void delete_without_a_row_says_what_to_do_and_changes_nothing()
    {
        CashBookClub club(four_lines);
        club.TypeBooking(u"05.02.2016"_s, u"Neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(1)");
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].title, u"Kleingarten Parzello"_s);
        QCOMPARE(club.Boxes[0].text, u"Laufzeitfehler 381: Ungültiger Index"_s);
        QVERIFY(!club.Boxes[0].detail.isEmpty());
        QCOMPARE(club.FieldTexts()[1], u"Neu"_s);
        QCOMPARE(club.Texts().size(), 4);
        QVERIFY(!club.Book().LedgerChanged);
    }

    void delete_again_past_the_end_says_so_until_the_marked_row_is_clicked()
    {
        CashBookClub club(u"01.02.2016;Anfang;100,00;0,00\r\n02.02.2016;Porto;0,00;7,80\r\n"_s);
        club.ClickRow(1);
        club.Click("Command12(1)");
        QCOMPARE(club.MarkedRow(), 0); // what "OK" would replace
        club.TypeBooking(u"05.02.2016"_s, u"Neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(1)");
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY2(club.Boxes[0].detail.contains(u"Zeile 2"_s), qPrintable(club.Boxes[0].detail));
        QVERIFY(!club.Boxes[0].detail.contains(u"keine Buchung ausgewählt"_s));
        club.ClickRow(0); // marked already
        club.Click("Command12(1)");
        QVERIFY(club.Texts().isEmpty());
    }

    void the_carry_over_line_can_be_picked()
    {
        const CashBookClub club(u"05.01.2016;Übertrag Saldo 2015;-12,50;0,00\r\n"_s);
        club.ClickRow(0);
        QCOMPARE(club.FieldTexts(),
            QStringList({ u"05.01.2016"_s, u"Übertrag Saldo 2015"_s, u"-12,50"_s, u"0,00"_s }));
    }

    // the lists beside the form

    void a_recurring_payee_fills_the_text_alone_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("text");
        QTest::newRow("without year") << 2 << u"Eon Avacon Wasser"_s;
        QTest::newRow("with year") << 5 << u"BV Pacht 2016"_s;
    }
    void a_recurring_payee_fills_the_text_alone()
    {
        QFETCH(const int, row);
        QFETCH(const QString, text);
        const CashBookClub club(four_lines);
        club.TypeBooking(u"05.02.2016"_s, u"x"_s, u"1,00"_s, u"2,00"_s);
        CashBookClub::ClickEntry(club.program.CashBookTab.List9, row);
        QCOMPARE(club.FieldTexts(), QStringList({ u"05.02.2016"_s, text, u"1,00"_s, u"2,00"_s }));
    }

    void the_payees_carry_the_chosen_year()
    {
        CashBookClub club(four_lines);
        club.program.Year.YearText = u"2015"_s;
        CashBookClub::ClickEntry(club.program.CashBookTab.List9, 3);
        QCOMPARE(club.Field(1)->text(), u"Gartenzeitung 2015"_s);
    }

    void arrow_keys_and_enter_pick_payees_too()
    {
        const CashBookClub club(four_lines);
        QListWidget* payees = club.program.CashBookTab.List9;
        CashBookClub::ClickEntry(payees, 0);
        QTest::keyClick(payees, Qt::Key_Down);
        QCOMPARE(club.Field(1)->text(), u"Steuern (Stadt)"_s);
        CashBookClub::Type(club.Field(1), u"x"_s);
        QTest::keyClick(payees, Qt::Key_Return);
        QCOMPARE(club.Field(1)->text(), u"Steuern (Stadt)"_s);
        CashBookClub::Type(club.Field(1), u"x"_s);
        CashBookClub::ClickEntry(payees, 1); // selected already
        QCOMPARE(club.Field(1)->text(), u"Steuern (Stadt)"_s);
    }

    void a_member_proposes_his_payment()
    {
        CashBookClub club(four_lines);
        club.program.Statement.StatementTotals = { u"208,2"_s, u""_s, u"36"_s };
        club.TypeBooking(u"05.02.2016"_s, u"x"_s, u"1,00"_s, u"2,00"_s);
        CashBookClub::ClickEntry(club.Names(), 0);
        QCOMPARE(club.FieldTexts(),
            QStringList({ u"05.02.2016"_s, u"Abrechnung Meier"_s, u"208,20"_s, u"2,00"_s }));
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), u"3 Raten"_s);
        CashBookClub::ClickEntry(club.Names(), 1);
        QCOMPARE(club.FieldTexts(),
            QStringList({ u"05.02.2016"_s, u"Abrechnung van"_s, u"0,00"_s, u"2,00"_s }));
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), u" Raten"_s);
    }

    void a_missing_total_counts_as_none()
    {
        CashBookClub club(four_lines);
        club.program.Statement.StatementTotals.clear();
        CashBookClub::ClickEntry(club.Names(), 2);
        QCOMPARE(club.Field(2)->text(), u"0,00"_s);
        QVERIFY(club.Boxes.isEmpty());
    }

    void with_the_cash_box_shown_a_member_proposes_nothing()
    {
        const CashBookClub club(four_lines, u"01.01.2016;Kasse;1,00;0,00\r\n"_s);
        club.Click("Command15");
        CashBookClub::ClickEntry(club.Names(), 0);
        QCOMPARE(club.FieldTexts(), empty_fields);
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), u""_s);
    }

    void clicks_and_keys_on_names_never_change_the_paid_marks()
    {
        const CashBookClub club(u"01.02.2016;Abrechnung Lang;10,00;0,00\r\n"_s);
        QCOMPARE(club.PaidNames(), QStringList { u"Lang,Otto"_s });
        CashBookClub::ClickEntry(club.Names(), 0);
        CashBookClub::ClickEntry(club.Names(), 2);
        QTest::keyClick(club.Names(), Qt::Key_Up);
        QTest::keyClick(club.Names(), Qt::Key_Space);
        QTest::keyClick(club.Names(), Qt::Key_Return);
        QTest::keyClick(club.Names(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(club.Names(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::mousePress(club.Names()->viewport(), Qt::LeftButton, Qt::ControlModifier,
            club.Names()->visualItemRect(club.Names()->item(0)).center());
        QTest::mouseMove(
            club.Names()->viewport(), club.Names()->visualItemRect(club.Names()->item(2)).center());
        QTest::mouseRelease(club.Names()->viewport(), Qt::LeftButton, Qt::ControlModifier,
            club.Names()->visualItemRect(club.Names()->item(2)).center());
        QCOMPARE(club.PaidNames(), QStringList { u"Lang,Otto"_s });
    }

    void arrow_keys_on_names_propose_nothing_until_space_or_enter_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("space") << int(Qt::Key_Space);
        QTest::newRow("return") << int(Qt::Key_Return);
        QTest::newRow("enter") << int(Qt::Key_Enter);
    }
    void arrow_keys_on_names_propose_nothing_until_space_or_enter()
    {
        QFETCH(const int, key);
        const CashBookClub club(four_lines);
        club.Names()->setFocus();
        club.Names()->setCurrentRow(0);
        QTest::keyClick(club.Names(), Qt::Key_Down);
        QTest::keyClick(club.Names(), Qt::Key_Down);
        QCOMPARE(club.Field(1)->text(), u""_s);
        QTest::keyClick(club.Names(), Qt::Key(key));
        QCOMPARE(club.Field(1)->text(), u"Abrechnung Lang"_s);
    }

    void a_day_of_the_calendar_goes_into_the_date_field()
    {
        const CashBookClub club(four_lines);
        ClickDay(club.program.CashBookTab.Cal3, QDate(2016, 3, 7));
        QCOMPARE(club.FieldTexts(), QStringList({ u"07.03.2016"_s, u""_s, u"0,00"_s, u"0,00"_s }));
    }

    void the_week_begins_on_monday_in_german()
    {
        const CashBookClub club(four_lines);
        const QCalendarWidget* calendar = club.program.CashBookTab.Cal3;
        QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
        QCOMPARE(calendar->locale().language(), QLocale::German);
    }

    // keys and focus

    void an_amount_is_selected_when_it_gets_the_focus_by_key()
    {
        const CashBookClub club(four_lines);
        CashBookClub::Type(club.Field(1), u"Text"_s);
        QTest::keyClick(club.Field(1), Qt::Key_Tab);
        QVERIFY(club.Field(2)->hasFocus());
        QCOMPARE(club.Field(2)->selectedText(), u"0,00"_s);
        QTest::sendKeyEvent(QTest::Click, club.Field(2), Qt::Key_7, u"7"_s, {});
        QCOMPARE(club.Field(2)->text(), u"7"_s);
    }

    void an_amount_is_selected_when_it_gets_the_focus_by_mouse()
    {
        const CashBookClub club(four_lines);
        club.Field(0)->setFocus();
        for (const int amount : { 2, 3 }) {
            QTest::mouseClick(club.Field(amount), Qt::LeftButton, {}, QPoint(4, 8));
            QVERIFY(club.Field(amount)->hasFocus());
            QCOMPARE(club.Field(amount)->selectedText(), u"0,00"_s);
        }
        // the next click sets the caret, as everywhere
        QTest::mouseClick(club.Field(3), Qt::LeftButton, {}, QPoint(4, 8));
        QVERIFY(!club.Field(3)->hasSelectedText());
    }

    void an_amount_goes_on_where_it_was_after_another_window()
    {
        const CashBookClub club(four_lines);
        club.Field(2)->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(club.Field(2), u"12"_s);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!club.Field(2)->hasFocus());
        club.program.Window.Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        QVERIFY(club.Field(2)->hasFocus());
        QTest::keyClicks(club.Field(2), u","_s);
        QCOMPARE(club.Field(2)->text(), u"12,"_s);
    }

    void the_context_menu_of_an_amount_leaves_its_selection_alone()
    {
        const CashBookClub club(four_lines);
        CashBookClub::Type(club.Field(3), u"123,45"_s);
        club.Field(3)->setSelection(0, 1);
        const QPoint place(4, 8);
        QContextMenuEvent asks(
            QContextMenuEvent::Keyboard, place, club.Field(3)->mapToGlobal(place));
        QApplication::sendEvent(club.Field(3), &asks);
        QWidget* menu = QApplication::activePopupWidget();
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(club.Field(3)->hasFocus());
        QCOMPARE(club.Field(3)->selectedText(), u"1"_s);
    }

    void date_and_text_keep_their_caret()
    {
        const CashBookClub club(four_lines);
        club.ClickRow(0);
        QTest::mouseClick(club.Field(1), Qt::LeftButton);
        QVERIFY(!club.Field(1)->hasSelectedText());
    }

    void enter_goes_on_to_the_next_field_and_at_last_to_ok()
    {
        const CashBookClub club(four_lines);
        CashBookClub::Type(club.Field(0), u"05.02.2016"_s);
        QTest::keyClick(club.Field(0), Qt::Key_Return);
        QVERIFY(club.Field(1)->hasFocus());
        CashBookClub::Type(club.Field(1), u"Neu"_s);
        QTest::keyClick(club.Field(1), Qt::Key_Enter);
        QVERIFY(club.Field(2)->hasFocus());
        QCOMPARE(club.Field(2)->selectedText(), u"0,00"_s);
        QTest::keyClick(club.Field(2), Qt::Key_Return);
        QVERIFY(club.Field(3)->hasFocus());
        QTest::keyClick(club.Field(3), Qt::Key_Return);
        QVERIFY(club.Control<QPushButton>("Command12(0)")->hasFocus());
        QCOMPARE(club.Texts().size(), 4);
        QTest::keyClick(club.Control<QPushButton>("Command12(0)"), Qt::Key_Return);
        QCOMPARE(club.Texts().last(), u"Neu"_s);
        QVERIFY(club.Field(0)->hasFocus()); // the next booking begins
    }

    void arrow_keys_in_the_ledger_pick_rows_and_tab_does_not()
    {
        const CashBookClub club(four_lines);
        QTest::keyClick(club.Control<QPushButton>("Command15"), Qt::Key_Tab);
        club.View()->setFocus(Qt::TabFocusReason);
        QVERIFY(!club.Book().LedgerEditMode);
        QCOMPARE(club.FieldTexts(), empty_fields);
        QTest::keyClick(club.View(), Qt::Key_Space);
        QCOMPARE(club.Field(1)->text(), u"Anfang"_s);
        QTest::keyClick(club.View(), Qt::Key_Down);
        QCOMPARE(club.Field(1)->text(), u"Porto"_s);
        QTest::keyClick(club.View(), Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(club.Field(1)->text(), u"Spende"_s);
        QCOMPARE(club.Book().SelectedLedgerRow, 4);
        QTest::keyClick(club.View(), Qt::Key_Tab);
        QVERIFY(!club.View()->hasFocus());
    }

    void the_tab_key_follows_the_reading_order()
    {
        const CashBookClub club(four_lines);
        const QStringList expected { u"Command15"_s, u"ListView1"_s, u"Cal3"_s, u"Text10(0)"_s,
            u"Text10(1)"_s, u"Text10(2)"_s, u"Text10(3)"_s, u"Command12(0)"_s, u"Command12(1)"_s,
            u"CommandSaveLedger"_s, u"List9"_s, u"List4"_s };
        QStringList order;
        const auto* tab = club.program.Window.SSTab1->widget(2);
        const QWidget* first = club.Control<QPushButton>("Command15");
        const QWidget* widget = first;
        do {
            if (tab->isAncestorOf(widget) && expected.contains(widget->objectName()))
                order += widget->objectName();
            widget = widget->nextInFocusChain();
        } while (widget != first);
        QCOMPARE(order, expected);
    }

    // what fields say

    void the_date_field_says_what_form_it_expects_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("tinted");
        QTest::newRow("empty") << u""_s << false;
        QTest::newRow("full") << u"07.03.2016"_s << false;
        QTest::newRow("no leading zeros") << u"7.3.2016"_s << true;
        QTest::newRow("two-digit year") << u"07.03.16"_s << true;
        QTest::newRow("no such day") << u"31.02.2016"_s << true;
        QTest::newRow("a word") << u"heute"_s << true;
    }
    void the_date_field_says_what_form_it_expects()
    {
        QFETCH(const QString, text);
        QFETCH(const bool, tinted);
        const CashBookClub club(four_lines);
        CashBookClub::Type(club.Field(0), text);
        QCOMPARE(TintOf(club.Field(0)), tinted ? TintKind::Wrong : TintKind::None);
        if (tinted)
            QCOMPARE(club.Field(0)->toolTip(), u"TT.MM.JJJJ"_s);
        CashBookClub::Type(club.Field(0), u"01.01.2016"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
    }

    void a_date_of_another_form_is_booked_as_typed()
    {
        const CashBookClub club(u""_s);
        club.TypeBooking(u"1.3.2016"_s, u"Neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Row(0)[0], u"1...2.2016"_s); // the sort takes fixed positions
    }

    void a_semicolon_is_tinted_and_stored_as_typed()
    {
        const CashBookClub club(u""_s);
        club.TypeBooking(u"01.03.2016"_s, u"Kies; Sand"_s, u"1,00"_s, u"2,00"_s);
        QCOMPARE(TintOf(club.Field(1)), TintKind::Wrong);
        QVERIFY(club.Field(1)->toolTip().contains(u";"_s));
        QCOMPARE(club.Field(1)->text(), u"Kies; Sand"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Row(0).mid(1, 3), QStringList({ u"Kies"_s, u" Sand"_s, u"1,00 €"_s }));
        QCOMPARE(TintOf(club.Field(1)), TintKind::None);
    }

    void a_semicolon_in_an_amount_or_date_is_tinted_too()
    {
        const CashBookClub club(u""_s);
        for (const int field : { 0, 2, 3 }) {
            CashBookClub::Type(club.Field(field), u"1;2"_s);
            QCOMPARE(TintOf(club.Field(field)), TintKind::Wrong);
            QVERIFY(club.Field(field)->toolTip().contains(u"„;“"_s));
            CashBookClub::Type(club.Field(field), field == 0 ? u"01.01.2016"_s : u"1,00"_s);
            QCOMPARE(TintOf(club.Field(field)), TintKind::None);
        }
    }

    void an_amount_that_is_no_number_is_tinted_and_booked_as_typed()
    {
        const CashBookClub club(u""_s);
        club.TypeBooking(u"01.03.2016"_s, u"Neu"_s, u"12.50"_s, u"abc"_s);
        QCOMPARE(TintOf(club.Field(2)), TintKind::Wrong);
        QCOMPARE(TintOf(club.Field(3)), TintKind::Wrong);
        club.Click("Command12(0)");
        QCOMPARE(club.Book().Bank.Lines, QStringList { u"01.03.2016;Neu;12.50;abc"_s });
        QCOMPARE(club.Row(0).mid(2), QStringList({ u"12.50"_s, u"abc"_s, u"0,00 €"_s }));
        QVERIFY(club.Boxes.isEmpty());
    }

    void every_input_has_a_name_of_its_own()
    {
        const CashBookClub club(four_lines);
        QStringList names;
        const auto* tab = club.program.Window.SSTab1->widget(2);
        for (const auto* field : tab->findChildren<QLineEdit*>(QRegularExpression(u"^Text"_s)))
            names += field->accessibleName();
        for (const char* name : { "ListView1", "Cal3", "List9", "List4" })
            names += club.Control<QWidget>(name)->accessibleName();
        QVERIFY(!names.contains(QString()));
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
        QCOMPARE(club.Field(2)->accessibleDescription(), u"€"_s);
    }
};

const TestFile<TestCashBookForm> test_file(__FILE__);
#include "test_cashbook_form.moc"
