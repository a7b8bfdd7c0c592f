// The fields of a booking: what they say while something is typed, and the way out of replacing.
#include "app/load_year.h"
#include "controls/fields.h"
#include "tests/support/cash_book_club.h"
#include "tests/support/test_file.h"

using namespace Qt::StringLiterals;

namespace {

const QString two_lines = bank_line + u"03.02.2016;Gartenzeitung 2016;0,00;24,00\r\n"_s;

const QLabel* Mark(const CashBookClub& club) { return club.Control<QLabel>("ReplaceMark"); }

QVariant Foreground(const CashBookClub& club, int row, int column)
{
    return club.View()->model()->index(row, column).data(Qt::ForegroundRole);
}

} // namespace

class TestBookingFieldsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // the row that "OK" replaces

    void the_line_above_ok_names_the_booking_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("text");
        QTest::newRow("a deposit") << 0 << u"OK ersetzt: 01.02.2016 Anfang 100,00 €"_s;
        QTest::newRow("a withdrawal")
            << 1 << u"OK ersetzt: 03.02.2016 Gartenzeitung 2016 Abheben 24,00 €"_s;
    }
    void the_line_above_ok_names_the_booking()
    {
        QFETCH(const int, row);
        QFETCH(const QString, text);
        const CashBookClub club(two_lines);
        QVERIFY(!Mark(club)->isVisible());
        QVERIFY(!club.Control<QPushButton>("KeepRow")->isVisible());
        club.ClickRow(row);
        QVERIFY(Mark(club)->isVisible());
        QCOMPARE(Mark(club)->text(), text);
        QCOMPARE(TintOf(Mark(club)), TintKind::Doubtful);
    }

    void a_long_text_leaves_room_for_the_amount()
    {
        const CashBookClub club(u"01.02.2016;%1;100,00;0,00\r\n"_s.arg(QString(300, u'x')));
        club.ClickRow(0);
        QCOMPARE(
            Mark(club)->text(), u"OK ersetzt: 01.02.2016 %1… 100,00 €"_s.arg(QString(60, u'x')));
    }

    void not_replacing_ends_the_mark_and_keeps_the_fields_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("button") << u"KeepRow"_s;
        QTest::newRow("Escape in a field") << u"Text10(1)"_s;
        QTest::newRow("Escape in the table") << u"ListView1"_s;
    }
    void not_replacing_ends_the_mark_and_keeps_the_fields()
    {
        QFETCH(const QString, way);
        const CashBookClub club(two_lines);
        club.ClickRow(1);
        auto* control = club.program.Window.Window->findChild<QWidget*>(way);
        control->setFocus();
        if (way == u"KeepRow"_s)
            club.Click("KeepRow");
        else
            QTest::keyClick(control, Qt::Key_Escape);
        QVERIFY(!club.Book().LedgerEditMode);
        QCOMPARE(club.Book().SelectedLedgerRow, 0);
        QCOMPARE(club.MarkedRow(), -1);
        QVERIFY(!Mark(club)->isVisible());
        QCOMPARE(club.FieldTexts(),
            QStringList({ u"03.02.2016"_s, u"Gartenzeitung 2016"_s, u"0,00"_s, u"24,00"_s }));
        club.Click("Command12(0)");
        QCOMPARE(club.Texts().size(), 3); // booked anew
    }

    void escape_outside_edit_mode_changes_nothing()
    {
        const CashBookClub club(two_lines);
        CashBookClub::Type(club.Field(1), u"Porto"_s);
        QTest::keyClick(club.Field(1), Qt::Key_Escape);
        QCOMPARE(club.Field(1)->text(), u"Porto"_s);
        QCOMPARE(club.Texts().size(), 2);
    }

    void a_click_into_the_empty_area_keeps_the_mark()
    {
        const CashBookClub club(two_lines);
        club.ClickRow(1);
        const QRect last = club.View()->visualRect(club.View()->model()->index(1, 0));
        const QPoint empty(last.center().x(), last.bottom() + 20);
        QVERIFY(!club.View()->indexAt(empty).isValid());
        QTest::mouseClick(club.View()->viewport(), Qt::LeftButton, {}, empty);
        QCOMPARE(club.MarkedRow(), 1);
        QTest::mouseClick(club.View()->viewport(), Qt::LeftButton, Qt::ControlModifier, empty);
        QCOMPARE(club.MarkedRow(), 1);
        CashBookClub::ClickItem(club.View(), club.View()->model()->index(0, 0));
        QCOMPARE(club.MarkedRow(), 0);
    }

    void a_click_with_the_control_key_on_the_marked_row_keeps_the_mark()
    {
        const CashBookClub club(two_lines);
        club.ClickRow(1);
        const QRect row = club.View()->visualRect(club.View()->model()->index(1, 1));
        QTest::mouseClick(
            club.View()->viewport(), Qt::LeftButton, Qt::ControlModifier, row.center());
        QCOMPARE(club.MarkedRow(), 1);
        QVERIFY(club.Book().LedgerEditMode);
    }

    // tints

    void an_emptied_amount_is_tinted_while_it_is_typed_data()
    {
        QTest::addColumn<int>("field");
        QTest::newRow("Einzahlen") << 2;
        QTest::newRow("Abheben") << 3;
    }
    void an_emptied_amount_is_tinted_while_it_is_typed()
    {
        QFETCH(const int, field);
        const CashBookClub club(bank_line);
        QCOMPARE(TintOf(club.Field(field)), TintKind::None);
        CashBookClub::Type(club.Field(field), {});
        QCOMPARE(TintOf(club.Field(field)), TintKind::Doubtful);
        QCOMPARE(club.Field(field)->toolTip(), u"Leer zählt der Betrag als 0,00"_s);
        CashBookClub::Type(club.Field(field), u"5"_s);
        QCOMPARE(TintOf(club.Field(field)), TintKind::None);
    }

    void a_date_of_another_form_is_red_in_its_row()
    {
        const CashBookClub club(u"1.2.2016;kurz;1,00;0,00\r\n"_s + bank_line);
        const int odd = static_cast<int>(club.Texts().indexOf(u"kurz"_s));
        QVERIFY(Foreground(club, odd, 0).value<QColor>().isValid());
        QVERIFY(!Foreground(club, 1 - odd, 0).value<QColor>().isValid());
        QVERIFY(club.View()
                    ->model()
                    ->index(odd, 0)
                    .data(Qt::ToolTipRole)
                    .toString()
                    .contains(u"TT.MM.JJJJ"_s));
    }

    void a_day_outside_the_loaded_year_is_tinted()
    {
        const CashBookClub club(bank_line);
        CashBookClub::Type(club.Field(0), u"31.12.2015"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::Doubtful);
        QCOMPARE(club.Field(0)->toolTip(), u"Der Tag liegt nicht im Jahr 2016"_s);
        CashBookClub::Type(club.Field(0), u"31.12.2016"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
    }

    void the_same_day_is_looked_at_anew_when_another_year_is_loaded()
    {
        CashBookClub club(bank_line);
        club.Write(u"Mitgliedsdaten2015.pz"_s, club.Read(u"Mitgliedsdaten2016.pz"_s));
        CashBookClub::Type(club.Field(0), u"31.12.2015"_s);
        StepYear(club.program, 1);
        LoadYear(club.program);
        QCOMPARE(club.Field(0)->text(), u"31.12.2015"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
    }

    void ok_tints_what_is_missing_and_books_nothing()
    {
        const CashBookClub club(bank_line);
        club.Click("Command12(0)");
        QCOMPARE(club.Field(0)->toolTip(), u"Hier fehlt das Datum"_s);
        QCOMPARE(club.Field(1)->toolTip(), u"Hier fehlt der Vorgang"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::Wrong);
        QCOMPARE(TintOf(club.Field(1)), TintKind::Wrong);
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QVERIFY(club.Boxes.isEmpty());
        CashBookClub::Type(club.Field(0), u"02.02.2016"_s);
        QCOMPARE(TintOf(club.Field(0)), TintKind::None);
        QCOMPARE(TintOf(club.Field(1)), TintKind::Wrong);
        club.Click("Command15"); // empties the fields; nobody wants to book there yet
        QCOMPARE(TintOf(club.Field(1)), TintKind::None);
    }

    // keys of the date

    void keys_step_through_the_days_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("after");
        QTest::newRow("empty: today") << u""_s << Qt::Key_Up << u"03.03.2016"_s;
        QTest::newRow("empty, down") << u""_s << Qt::Key_Down << u"03.03.2016"_s;
        QTest::newRow("a day on") << u"28.02.2016"_s << Qt::Key_Up << u"29.02.2016"_s;
        QTest::newRow("a day back") << u"01.01.2016"_s << Qt::Key_Down << u"31.12.2015"_s;
        QTest::newRow("a month on") << u"31.01.2016"_s << Qt::Key_PageUp << u"29.02.2016"_s;
        QTest::newRow("a month back") << u"31.03.2016"_s << Qt::Key_PageDown << u"29.02.2016"_s;
        QTest::newRow("a short date") << u"1.2.16"_s << Qt::Key_Up << u"02.02.2016"_s;
        QTest::newRow("no date") << u"heute"_s << Qt::Key_Up << u"heute"_s;
    }
    void keys_step_through_the_days()
    {
        QFETCH(const QString, before);
        QFETCH(const Qt::Key, key);
        QFETCH(const QString, after);
        const CashBookClub club(bank_line);
        CashBookClub::Type(club.Field(0), before);
        QTest::keyClick(club.Field(0), key);
        QCOMPARE(club.Field(0)->text(), after);
    }

    // the note of the instalments

    void the_note_goes_when_the_text_is_changed_away_from_a_payment()
    {
        const CashBookClub club(bank_line);
        const auto* note = club.Control<QLineEdit>("Text11");
        CashBookClub::ClickEntry(club.Names(), 0);
        QCOMPARE(note->text(), u"3 Raten"_s);
        club.Field(1)->setFocus();
        QTest::keyClick(club.Field(1), Qt::Key_End);
        QTest::keyClick(club.Field(1), Qt::Key_1); // still a payment
        QCOMPARE(note->text(), u"3 Raten"_s);
        CashBookClub::Type(club.Field(1), u"Porto"_s);
        QCOMPARE(note->text(), u""_s);
    }
};

const TestFile<TestBookingFieldsForm> test_file(__FILE__);
#include "test_booking_fields_form.moc"
