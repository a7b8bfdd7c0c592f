// The ledger of the tab "Kontoführung": view, loading, the new year, marks.
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_model.h"
#include "controls/fields.h"
#include "tests/support/cash_book_club.h"
#include "tests/support/test_file.h"

#include <QFile>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopeGuard>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

QString Mark(const CashBookClub& club) { return club.Control<QLabel>("UnsavedMark")->text(); }

QString Caption(const CashBookClub& club) { return club.Control<QPushButton>("Command15")->text(); }

QColor BalanceColour(const CashBookClub& club)
{
    return club.Control<QLabel>("BalanceLabel")->palette().color(QPalette::WindowText);
}

} // namespace

class TestLedgerForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // the view

    void the_view_has_five_columns_with_amounts_at_the_right()
    {
        const CashBookClub club(bank_line);
        const QAbstractItemModel* model = club.View()->model();
        QStringList columns;
        for (int column = 0; column < model->columnCount(); ++column)
            columns += model->headerData(column, Qt::Horizontal).toString();
        QCOMPARE(columns,
            QStringList({ u"Buchungsdatum"_s, u"Vorgang"_s, u"Einzahlung"_s, u"Abheben"_s,
                u"Kontostand"_s }));
        for (int column = 0; column < 5; ++column) {
            const int alignment = model->index(0, column).data(Qt::TextAlignmentRole).toInt()
                & Qt::AlignHorizontal_Mask;
            QCOMPARE(alignment, int(column >= 2 ? Qt::AlignRight : Qt::AlignLeft));
        }
        QCOMPARE(model->index(0, 0).data(Qt::UserRole).toString(), u"Zeile 1"_s);
    }

    void the_columns_fill_the_view_whatever_the_font()
    {
        const CashBookClub club(bank_line);
        club.program.Window.Window->resize(1600, 800);
        QCoreApplication::processEvents();
        const QHeaderView* header = club.View()->horizontalHeader();
        QCOMPARE(header->length(), club.View()->viewport()->width());
        const int width = header->sectionSize(4);
        QFont larger = club.View()->font();
        larger.setPointSize(larger.pointSize() * 2);
        club.View()->setFont(larger);
        QVERIFY(header->sectionSize(4) > width);
        QCOMPARE(header->length(), club.View()->viewport()->width());
    }

    void bookings_are_shown_by_date_with_their_running_balance()
    {
        const CashBookClub club(u"03.02.2016;Zeitung;0,00;124,00\r\n"_s + bank_line);
        QCOMPARE(club.Row(0),
            QStringList(
                { u"01.02.2016"_s, u"Anfang"_s, u"100,00 €"_s, u"0,00 €"_s, u"100,00 €"_s }));
        QCOMPARE(club.Row(1),
            QStringList(
                { u"03.02.2016"_s, u"Zeitung"_s, u"0,00 €"_s, u"124,00 €"_s, u"-24,00 €"_s }));
        QCOMPARE(club.Balance(), u"-24,00 €"_s);
        QCOMPARE(BalanceColour(club), QColor(255, 0, 0));
        const auto colour
            = [&](int row) { return club.View()->model()->index(row, 4).data(Qt::ForegroundRole); };
        QVERIFY(!colour(0).isValid());
        QVERIFY(colour(1).value<QColor>().red() > colour(1).value<QColor>().green() + 100);
    }

    void the_zero_beside_an_amount_steps_back_and_is_read_on_every_desktop()
    {
        const CashBookClub club(bank_line);
        const QPalette before = QGuiApplication::palette();
        const auto restore = qScopeGuard([&] { QGuiApplication::setPalette(before); });
        QPalette dark = before;
        dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
        dark.setColor(QPalette::Text, Qt::white);
        dark.setColor(
            QPalette::PlaceholderText, QColor(0x20, 0x20, 0x20)); // as some themes have it
        QGuiApplication::setPalette(dark);
        const QModelIndex zero = club.View()->model()->index(0, 3);
        QCOMPARE(zero.data().toString(), u"0,00 €"_s);
        const auto colour = zero.data(Qt::ForegroundRole).value<QColor>();
        QCOMPARE(colour.rgb(), QColor(Qt::white).rgb());
        QVERIFY2(colour.alpha() > 127 && colour.alpha() < 192, qPrintable(colour.name()));
    }

    void the_balance_is_black_when_it_shows_as_zero_or_more()
    {
        const CashBookClub club(u"01.02.2016;a;0,30;0,10\r\n01.02.2016;b;0,00;0,20\r\n"
                                "01.02.2016;c;0,00;0,001\r\n"_s);
        QCOMPARE(club.Balance(), u"0,00 €"_s);
        QCOMPARE(BalanceColour(club), QColor(0, 0, 0));
    }

    void an_amount_that_is_no_number_stands_out_and_can_be_corrected()
    {
        const CashBookClub club(u"01.02.2016;a;5,00;0,00\r\n02.02.2016;b;12.50;0,00\r\n"
                                "03.02.2016;c\r\n"_s);
        QVERIFY(club.Boxes.isEmpty());
        QCOMPARE(club.Balance(), u"5,00 €"_s);
        QCOMPARE(club.Row(2), QStringList({ u"03.02.2016"_s, u"c"_s, u""_s, u""_s, u"5,00 €"_s }));
        const QModelIndex wrong = club.View()->model()->index(1, 2);
        QCOMPARE(wrong.data().toString(), u"12.50"_s);
        QVERIFY(wrong.data(Qt::ForegroundRole).value<QColor>().red() > 100);
        QVERIFY(wrong.data(Qt::BackgroundRole).isValid());
        QVERIFY(wrong.data(Qt::ToolTipRole).toString().contains(u"keine Zahl"_s));
        QVERIFY(!club.View()->model()->index(1, 3).data(Qt::BackgroundRole).isValid());
        club.ClickRow(1);
        CashBookClub::Type(club.Field(2), u"12,50"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Balance(), u"17,50 €"_s);
    }

    void the_last_bookings_are_seen_after_loading_and_a_new_one_after_ok()
    {
        QString lines;
        for (int day = 0; day < 500; ++day)
            lines
                += QDate(2015, 1, 1).addDays(day).toString(u"dd.MM.yyyy"_s) + u";a;1,00;0,00\r\n"_s;
        const CashBookClub club(lines);
        const auto is_seen = [&](int row) {
            const QRect cell = club.View()->visualRect(club.View()->model()->index(row, 1));
            return club.View()->viewport()->rect().contains(cell.center());
        };
        QVERIFY(is_seen(499));
        club.TypeBooking(u"01.03.2015"_s, u"neu"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Texts().indexOf(u"neu"_s), 60);
        QVERIFY(is_seen(60));
    }

    // loading

    void old_lines_lose_their_stored_balance_and_the_file_keeps_it_until_saved()
    {
        const QString old = u"07.01.2016;Kontostand alt;0,00;0,00;1533,80\r\n"
                            "12.01.2016;BV Pacht 2016;0,00;196,40;1337,40\r\n"_s;
        const CashBookClub club(old);
        QCOMPARE(club.Balance(), u"1337,40 €"_s);
        QCOMPARE(club.File(CashBookClub::bank), old);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank),
            u"07.01.2016;Kontostand alt;1533,80;0,00\r\n"
            "12.01.2016;BV Pacht 2016;0,00;196,40\r\n"_s);
    }

    void lines_behind_an_empty_one_are_not_shown_and_saving_drops_them()
    {
        const CashBookClub club(bank_line + u"02.02.2016;b;1,00;0,00\r\n\r\n"_s + bank_line);
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"b"_s }));
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank), bank_line + u"02.02.2016;b;1,00;0,00\r\n"_s);
    }

    void damage_behind_an_empty_line_is_not_read_and_needs_no_box()
    {
        CashBookClub club({}, {}, false);
        club.Write(QString::fromLatin1(CashBookClub::bank),
            CashBookClub::Ansi(bank_line + u"\r\n"_s) + QByteArray(40'000, 'x'));
        club.Start(QDate(2016, 3, 3));
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QVERIFY(club.Boxes.isEmpty());
    }

    void loading_and_saving_loses_no_line_data()
    {
        QTest::addColumn<QString>("lines");
        QTest::addColumn<QString>("saved");
        QTest::newRow("well-formed") << bank_line << bank_line;
        QTest::newRow("short lines")
            << u"01.02.2016\r\n02.02.2016;b\r\n"_s << u"01.02.2016;;;\r\n02.02.2016;b;;\r\n"_s;
        QTest::newRow("no dates") << u"heute;b;1;2\r\nx;;;\r\n"_s
                                  << u"he.te.eute;b;1;2\r\nxx..xx;;;\r\n"_s;
        QTest::newRow("amounts that are none")
            << u"01.02.2016;b;x;1.5\r\n"_s << u"01.02.2016;b;x;1.5\r\n"_s;
        QTest::newRow("no end of the last line")
            << u"01.02.2016;b;1;2"_s << u"01.02.2016;b;1;2\r\n"_s;
        QTest::newRow("line feeds alone") << u"01.02.2016;b;1;2\n02.02.2016;c;3;4\n"_s
                                          << u"01.02.2016;b;1;2\r\n02.02.2016;c;3;4\r\n"_s;
        QTest::newRow("a NUL") << u"01.02.2016;b"_s + QChar(0) + u"c;1;2\r\n"_s
                               << u"01.02.2016;b"_s + QChar(0) + u"c;1;2\r\n"_s;
        QTest::newRow("equal lines") << bank_line + bank_line << bank_line + bank_line;
    }
    void loading_and_saving_loses_no_line()
    {
        QFETCH(const QString, lines);
        QFETCH(const QString, saved);
        const CashBookClub club(lines);
        club.Click("CommandSaveLedger");
        const QStringList expected = saved.split(u"\r\n"_s);
        QStringList found = club.File(CashBookClub::bank).split(u"\r\n"_s);
        QCOMPARE(found.size(), expected.size());
        for (const QString& line : expected)
            QVERIFY2(found.removeOne(line), qPrintable(line));
    }

    void a_line_that_holds_a_line_feed_is_named_and_its_file_never_written()
    {
        const QString lines = bank_line + u"02.02.2016;b;1,00;0,00\n03.02.2016;c;1,00;0,00\r\n"_s;
        CashBookClub club(lines, {}, false);
        club.Start(QDate(2016, 3, 3));
        club.Show();
        QCOMPARE(club.Boxes.size(), 1);
        const QString text = club.Boxes.first().text + club.Boxes.first().detail;
        QVERIFY2(text.contains(u"LF"_s) && text.contains(u"Konto2016.pz"_s)
                && text.contains(u"Zeile 2"_s),
            qPrintable(text));
        BookPorto(club);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank), lines);
        QCOMPARE(club.Texts(), QStringList { u"Porto"_s }); // still there to be saved
    }

    void a_reload_empties_the_fields_that_a_picked_row_filled()
    {
        CashBookClub club(bank_line);
        club.ClickRow(0);
        LoadYear(club.program);
        QCOMPARE(club.FieldTexts(), QStringList({ u""_s, u""_s, u"0,00"_s, u"0,00"_s }));
        club.Click("Command12(0)");
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s }); // not a second time
    }

    void a_reload_leaves_the_fields_of_a_new_booking_alone()
    {
        CashBookClub club(bank_line);
        club.TypeBooking(u"02.02.2016"_s, u"Porto"_s, u"0,00"_s, u"1,00"_s);
        LoadYear(club.program);
        QCOMPARE(
            club.FieldTexts(), QStringList({ u"02.02.2016"_s, u"Porto"_s, u"0,00"_s, u"1,00"_s }));
    }

    void a_row_that_is_picked_and_booked_again_is_unchanged()
    {
        const QString lines = u"01.02.2016;b\tc;1,5;abc\r\n02.02.2016;d;;\r\n"_s;
        const CashBookClub club(lines);
        club.ClickRow(0);
        club.Click("Command12(0)");
        club.ClickRow(1);
        club.Click("Command12(0)");
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank), lines);
    }

    void loading_a_year_starts_with_the_bank_account_and_no_row()
    {
        CashBookClub club(bank_line, cash_line);
        club.Click("Command15");
        club.ClickRow(0);
        BookPorto(club);
        club.ClickRow(0);
        LoadYear(club.program);
        QCOMPARE(Caption(club), u"Kasse Kassenwart"_s);
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QVERIFY(!club.Book().LedgerEditMode);
        QCOMPARE(club.Book().SelectedLedgerRow, 0);
        QCOMPARE(club.MarkedRow(), -1);
        QVERIFY(!club.Book().LedgerReloadPending);
        QCOMPARE(Mark(club), u""_s); // what was not saved is gone
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
    }

    void a_ledger_known_to_have_no_history_is_read_without_a_word()
    {
        CashBookClub club(bank_line);
        club.program.CashBook.LedgerWithoutHistory = true;
        club.program.CashBook.LedgerReloadPending = true;
        club.Write(QString::fromLatin1(CashBookClub::bank),
            "02.02.2016;neu;1,00;0,00\r\n01.01.2016;alt;0,00;0,00;9,00\r\n");
        ShowLedger(club.program);
        QCOMPARE(club.Texts(), QStringList({ u"alt"_s, u"neu"_s }));
        QVERIFY(QFile::remove(club.Path(QString::fromLatin1(CashBookClub::bank))));
        club.program.CashBook.LedgerReloadPending = true;
        ShowLedger(club.program);
        QVERIFY(club.Texts().isEmpty());
        QVERIFY(club.Boxes.isEmpty());
    }

    void without_members_the_start_itself_reads_both_ledgers()
    {
        CashBookClub club(bank_line, cash_line, false);
        QVERIFY(QFile::remove(club.Path(u"Mitgliedsdaten2016.pz"_s)));
        club.Start(QDate(2016, 3, 3)); // "Laden" ends at its message: there are no data
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].title, u"Datenfehler"_s);
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QCOMPARE(club.Balance(), u"100,00 €"_s);
        QCOMPARE(club.Book().CashBox.Lines, QStringList { cash_line.chopped(2) });
        club.Show();
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        QCOMPARE(club.Balance(), u"50,00 €"_s);
        QCOMPARE(club.Boxes.size(), 1);
    }

    // a year without a file

    void a_new_year_begins_with_the_carried_balance()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;100,00;0,00\r\n02.01.2015;b;0,00;112,5\r\n");
        club.Start(QDate(2016, 3, 5));
        QCOMPARE(
            club.File(CashBookClub::bank), u"05.03.2016;Übertrag Saldo 2015;-12,50;0,00\r\n"_s);
        QCOMPARE(club.Hints(), QStringList { NewYear(u"2016"_s) }); // the file is there then
        QCOMPARE(club.Texts(), QStringList { u"Übertrag Saldo 2015"_s });
        QCOMPARE(club.Balance(), u"-12,50 €"_s);
        QCOMPARE(BalanceColour(club), QColor(255, 0, 0));
        QCOMPARE(Mark(club), u""_s);
        QVERIFY(!club.Book().LedgerChanged);
    }

    void the_notice_comes_first_then_the_file_then_what_was_not_counted()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;5,00;abc\r\n");
        QStringList steps;
        club.program.Ask = [&](const MessageBox& box) {
            steps += box.text + u"|"_s + club.File(CashBookClub::bank);
            return BoxAnswer::Ok;
        };
        club.Start(QDate(2016, 3, 5));
        QCOMPARE(steps,
            QStringList({ NewYear(u"2016"_s).section(u'|', 1) + u"|(none)"_s,
                u"Laufzeitfehler 13: Typen unverträglich|"
                "05.03.2016;Übertrag Saldo 2015;5,00;0,00\r\n"_s }));
    }

    void entries_before_the_carry_over_show_balances_without_it()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;100,00;0,00\r\n");
        club.StartOnTab(QDate(2016, 3, 5));
        club.TypeBooking(u"01.02.2016"_s, u"Porto"_s, u"0,00"_s, u"10,00"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.Row(0)[4], u"-10,00 €"_s);
        QCOMPARE(club.Row(1)[4], u"90,00 €"_s);
        QCOMPARE(club.Balance(), u"90,00 €"_s);
    }

    void lines_behind_an_empty_one_are_not_carried()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;1,00;0,00\r\n\r\n01.01.2015;b;5,00;0,00\r\n");
        club.Start(QDate(2016, 3, 5));
        QCOMPARE(club.Balance(), u"1,00 €"_s);
    }

    void an_older_year_is_opened_in_the_same_way_and_dated_today()
    {
        CashBookClub club(bank_line, {}, false);
        club.Write(u"Mitgliedsdaten2015.pz"_s, "Alt;Eva;;;;;;;0,00;0,00;0,00;0,00;;;;\r\n");
        club.Write(u"Konto2014.pz"_s, "01.01.2014;a;7,00;0,00\r\n");
        club.StartOnTab();
        club.program.Year.YearText = u"2015"_s;
        LoadYear(club.program);
        QCOMPARE(club.Hints(), QStringList { NewYear(u"2015"_s) });
        QCOMPARE(club.File("Konto2015.pz"), u"03.03.2016;Übertrag Saldo 2014;7,00;0,00\r\n"_s);
    }

    void amounts_that_are_no_numbers_are_named_once_after_the_carry_over()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;5,00;0,00\r\n02.01.2015;b;0,00;abc\r\n");
        club.Start(QDate(2016, 3, 5));
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.Boxes[1].text, u"Laufzeitfehler 13: Typen unverträglich"_s);
        for (const QString& part : { u"Konto2015.pz"_s, u"Zeile 2"_s, u"Abheben"_s, u"abc"_s })
            QVERIFY2(club.Boxes[1].detail.contains(part), qPrintable(club.Boxes[1].detail));
        QCOMPARE(club.File(CashBookClub::bank), u"05.03.2016;Übertrag Saldo 2015;5,00;0,00\r\n"_s);
    }

    void without_any_history_a_warning_comes_at_every_load_until_something_is_saved()
    {
        CashBookClub club({}, {}, false);
        club.Start(QDate(2016, 3, 5)); // loads twice: at start and by "Laden"
        QCOMPARE(club.Hints(), QStringList({ no_history, no_history }));
        QCOMPARE(club.File(CashBookClub::bank), u"(none)"_s);
        QCOMPARE(club.Balance(), u"0,00 €"_s);
        QCOMPARE(BalanceColour(club), QColor(0, 0, 0));
        club.Show();
        club.Boxes.clear();
        LoadYear(club.program);
        QCOMPARE(club.Hints(), QStringList { no_history });
        BookPorto(club);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank), u"02.02.2016;Porto;0,00;1,00\r\n"_s);
        club.Boxes.clear();
        LoadYear(club.program);
        QVERIFY(club.Boxes.isEmpty());
        QCOMPARE(club.Balance(), u"-1,00 €"_s);
    }

    // marks

    void paid_members_are_marked_by_the_shown_ledger()
    {
        const CashBookClub club(u"01.02.2016;Abrechnung Meier;1,00;0,00\r\n"_s,
            u"01.02.2016;Abrechnung Lang;1,00;0,00\r\n"_s);
        QCOMPARE(club.PaidNames(), QStringList { u"Meier,Anna"_s });
        club.Click("Command15");
        QCOMPARE(club.PaidNames(), QStringList { u"Lang,Otto"_s });
        club.Click("Command15");
        QCOMPARE(club.PaidNames(), QStringList { u"Meier,Anna"_s });
    }

    void deleting_the_payment_takes_the_mark_away()
    {
        const CashBookClub club(bank_line + u"02.02.2016;Abrechnung Meier;1,00;0,00\r\n"_s);
        club.ClickRow(1);
        club.Click("Command12(1)");
        QVERIFY(club.PaidNames().isEmpty());
    }

    void an_empty_ledger_leaves_the_marks_as_they_were()
    {
        const CashBookClub club(u"02.02.2016;Abrechnung Meier;1,00;0,00\r\n"_s, u""_s);
        club.Click("Command15");
        QVERIFY(club.Texts().isEmpty());
        QCOMPARE(club.PaidNames(), QStringList { u"Meier,Anna"_s });
    }

    void booking_a_proposed_payment_marks_the_member()
    {
        const CashBookClub club(bank_line);
        CashBookClub::ClickEntry(club.Names(), 2);
        CashBookClub::Type(club.Field(0), u"02.02.2016"_s);
        club.Click("Command12(0)");
        QCOMPARE(club.PaidNames(), QStringList { u"Lang,Otto"_s });
    }

    void the_overview_shows_who_has_a_special_billing_file()
    {
        CashBookClub club(bank_line, {}, false);
        club.Write(u"SonderAbrechnungMeier2016.xls"_s, "x");
        club.Write(u"SonderAbrechnungLang2015.xls"_s, "x");
        club.StartOnTab();
        const auto* overview = club.Control<QTreeWidget>("ListView2");
        QCOMPARE(overview->topLevelItemCount(), 3);
        QCOMPARE(overview->topLevelItem(0)->text(0), u"Meier,Anna SonderAbrechnung"_s);
        QCOMPARE(overview->topLevelItem(1)->text(0), u"van Dijk,Jan"_s);
        QCOMPARE(overview->topLevelItem(2)->text(0), u"Lang,Otto"_s);
        QCOMPARE(overview->topLevelItem(2)->data(0, Qt::UserRole).toString(), u"Zeile 3"_s);
        club.Write(u"SonderAbrechnungLang2016.xls"_s, "x");
        ShowLedger(club.program);
        QCOMPARE(overview->topLevelItem(2)->text(0), u"Lang,Otto SonderAbrechnung"_s);
    }
};

const TestFile<TestLedgerForm> test_file(__FILE__);
#include "test_ledger_form.moc"
