// The two accounts of the tab "Kontoführung": switching, saving, files that fail.
#include "cashbook/ledger_form.h"
#include "cashbook/ledger_model.h"
#include "cashbook/ledger_view_form.h"
#include "controls/fields.h"
#include "tests/support/cash_book_club.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

/// A folder stands where the file was: nobody can read or write it, not even the administrator.
void BlockFile(const CashBookClub& club, const char* name)
{
    const QString path = club.Path(QString::fromLatin1(name));
    QFile::rename(path, path + u".aside"_s);
    QVERIFY(QDir().mkpath(path + u"/in the way"_s));
}

void UnblockFile(const CashBookClub& club, const char* name)
{
    const QString path = club.Path(QString::fromLatin1(name));
    QVERIFY(QDir(path).removeRecursively());
    QFile::rename(path + u".aside"_s, path);
}

/// A file with a line that is too long: it exists and cannot be loaded.
QString Unloadable() { return bank_line + QString(40'000, u'x') + u"\r\n"_s; }

QString Mark(const CashBookClub& club) { return club.Control<QLabel>("UnsavedMark")->text(); }

QString Caption(const CashBookClub& club) { return club.Control<QPushButton>("Command15")->text(); }

QColor BalanceColour(const CashBookClub& club)
{
    return club.Control<QLabel>("BalanceLabel")->palette().color(QPalette::WindowText);
}

} // namespace

class TestTwoAccountsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // two accounts

    void the_button_names_the_other_account_and_the_title_the_shown_one()
    {
        CashBookClub club(bank_line, cash_line);
        club.program.ClubName = u"KGV"_s;
        club.program.SettingsTab.Text6[0]->setText(u"Volksbank"_s);
        ShowAccountTitle(club.program);
        const auto* title = club.Control<QLabel>("Label21");
        QCOMPARE(Caption(club), u"Kasse Kassenwart"_s);
        QCOMPARE(title->text(), u"Konto KGV Volksbank"_s);
        club.Click("Command15");
        QCOMPARE(Caption(club), u"Konto Sparkasse"_s);
        QCOMPARE(title->text(), u"Handkasse Kassenwart  KGV"_s);
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        QCOMPARE(club.Balance(), u"50,00 €"_s);
        QCOMPARE(club.Book().LedgerFileName, u"\\HandKasse2016.pz"_s);
        club.Click("Command15");
        QCOMPARE(Caption(club), u"Kasse Kassenwart"_s);
        QCOMPARE(title->text(), u"Konto KGV Volksbank"_s);
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QCOMPARE(club.Book().LedgerFileName, u"\\Konto2016.pz"_s);
        QVERIFY(club.Boxes.isEmpty());
    }

    void the_caption_alone_says_which_account_is_current()
    {
        CashBookClub club(bank_line, cash_line);
        club.program.CashBookTab.Command15->setText(u"Konto Sparkasse"_s);
        ShowLedger(club.program);
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        club.ClickRow(0);
        QCOMPARE(club.Field(1)->text(), u"Kasse"_s);
        BookPorto(club);
        QCOMPARE(club.Book().CashBox.Lines, QStringList { u"02.02.2016;Porto;0,00;1,00"_s });
        QCOMPARE(Mark(club), u"Handkasse nicht gespeichert"_s);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::cash_box), u"02.02.2016;Porto;0,00;1,00\r\n"_s);
        QCOMPARE(club.File(CashBookClub::bank), bank_line);
        club.program.CashBookTab.Command15->setText(u"Kasse Kassenwart"_s);
        club.ClickRow(0);
        QCOMPARE(club.Field(1)->text(), u"Anfang"_s);
    }

    void switching_empties_all_fields()
    {
        const CashBookClub club(bank_line, cash_line);
        CashBookClub::ClickEntry(club.Names(), 0);
        club.TypeBooking(u"01.01.2016"_s, u"x"_s, u"1,00"_s, u"2,00"_s);
        club.Click("Command15");
        QCOMPARE(club.FieldTexts(), QStringList({ u""_s, u""_s, u"0,00"_s, u"0,00"_s }));
        QCOMPARE(club.Control<QLineEdit>("Text11")->text(), u""_s);
    }

    void edit_mode_survives_switching_and_the_mark_shows_what_would_be_replaced()
    {
        const CashBookClub club(bank_line + u"02.02.2016;b;1,00;0,00\r\n"_s,
            cash_line + u"02.02.2016;Kuchen;1,00;0,00\r\n03.02.2016;Eis;1,00;0,00\r\n"_s);
        club.ClickRow(1);
        club.Click("Command15");
        QVERIFY(club.Book().LedgerEditMode);
        QCOMPARE(club.MarkedRow(), 1);
        BookPorto(club);
        QCOMPARE(club.Texts(), QStringList({ u"Kasse"_s, u"Porto"_s, u"Eis"_s }));
    }

    void unsaved_bookings_stay_while_the_other_account_is_shown()
    {
        const CashBookClub club(bank_line, cash_line);
        BookPorto(club);
        club.Click("Command15");
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s }));
    }

    void a_cash_box_without_a_file_is_carried_over_at_the_first_switch()
    {
        CashBookClub club(bank_line, {}, false);
        club.Write(u"HandKasse2015.pz"_s, "01.01.2015;a;8,00;0,00\r\n");
        club.StartOnTab();
        QCOMPARE(club.File(CashBookClub::cash_box), u"(none)"_s);
        club.Click("Command15");
        QCOMPARE(club.Hints(), QStringList { NewYear(u"2016"_s) });
        QCOMPARE(
            club.File(CashBookClub::cash_box), u"03.03.2016;Übertrag Saldo 2015;8,00;0,00\r\n"_s);
        QCOMPARE(club.Balance(), u"8,00 €"_s);
        club.Click("Command15");
        club.Click("Command15");
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Texts().size(), 1);
    }

    void a_cash_box_without_history_warns_at_every_switch_and_is_empty()
    {
        CashBookClub club(bank_line);
        club.Click("Command15");
        QCOMPARE(club.Hints(), QStringList { no_history });
        QVERIFY(club.Texts().isEmpty());
        QCOMPARE(club.Balance(), u"0,00 €"_s);
        QCOMPARE(BalanceColour(club), QColor(0, 0, 0));
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        club.Click("Command15");
        QCOMPARE(club.Hints(), QStringList({ no_history, no_history }));
    }

    void bookings_of_a_cash_box_without_a_file_survive_switching()
    {
        CashBookClub club(bank_line);
        club.Click("Command15");
        BookPorto(club);
        club.Boxes.clear();
        club.Click("Command15");
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList { u"Porto"_s });
        QVERIFY(club.Boxes.isEmpty());
    }

    // saving

    void saving_writes_the_shown_account_alone_in_date_order()
    {
        CashBookClub club(bank_line, cash_line);
        BookPorto(club, u"Bank"_s);
        club.Click("Command15");
        club.TypeBooking(u"01.01.2016"_s, u"früher"_s, u"1,00"_s, u"0,00"_s);
        club.Click("Command12(0)");
        club.Click("CommandSaveLedger");
        QCOMPARE(
            club.File(CashBookClub::cash_box), u"01.01.2016;früher;1,00;0,00\r\n"_s + cash_line);
        QCOMPARE(club.File(CashBookClub::bank), bank_line);
        QVERIFY(club.Book().LedgerChanged); // only the guard clears it
        QVERIFY(club.Book().Bank.Unsaved && !club.Book().CashBox.Unsaved);
        QVERIFY(club.Boxes.isEmpty());
    }

    void a_calm_mark_names_the_accounts_that_are_not_saved()
    {
        const CashBookClub club(bank_line, cash_line);
        QCOMPARE(Mark(club), u""_s);
        BookPorto(club);
        QCOMPARE(Mark(club), u"Konto nicht gespeichert"_s);
        QCOMPARE(TintOf(club.Control<QLabel>("UnsavedMark")), TintKind::Unsaved);
        club.Click("Command15");
        QCOMPARE(Mark(club), u"Konto nicht gespeichert"_s);
        BookPorto(club);
        QCOMPARE(Mark(club), u"beide Konten nicht gespeichert"_s);
        club.Click("Command15");
        club.Click("CommandSaveLedger");
        QCOMPARE(Mark(club), u"Handkasse nicht gespeichert"_s);
        club.Click("Command15");
        club.Click("CommandSaveLedger");
        QCOMPARE(Mark(club), u""_s);
        QCOMPARE(TintOf(club.Control<QLabel>("UnsavedMark")), TintKind::None);
    }

    void the_guards_yes_saves_both_accounts()
    {
        CashBookClub club(bank_line, cash_line);
        BookPorto(club, u"Bank"_s);
        club.Click("Command15");
        BookPorto(club, u"Bar"_s);
        club.program.Window.SSTab1->setCurrentIndex(0);
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(club.File(CashBookClub::bank).contains(u"Bank"_s));
        QVERIFY(club.File(CashBookClub::cash_box).contains(u"Bar"_s));
        QVERIFY(!club.Book().LedgerChanged && !club.Book().Bank.Unsaved
            && !club.Book().CashBox.Unsaved);
        QCOMPARE(Mark(club), u""_s);
    }

    void after_the_guards_no_the_bookings_are_still_there_and_marked()
    {
        CashBookClub club(bank_line, cash_line);
        BookPorto(club);
        club.Answers = { BoxAnswer::No };
        club.program.Window.SSTab1->setCurrentIndex(0);
        club.program.Window.SSTab1->setCurrentIndex(2);
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s }));
        QCOMPARE(Mark(club), u"Konto nicht gespeichert"_s);
        QVERIFY(!club.Book().LedgerChanged);
        QCOMPARE(club.File(CashBookClub::bank), bank_line);
    }

    void saving_goes_to_the_file_of_the_chosen_year()
    {
        CashBookClub club(bank_line);
        club.program.Year.YearText = u"2015"_s;
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File("Konto2015.pz"), bank_line);
    }

    // files that cannot be read or written

    void a_file_that_cannot_be_written_keeps_the_bookings_and_their_mark()
    {
        CashBookClub club(bank_line, cash_line);
        BookPorto(club);
        BlockFile(club, CashBookClub::bank);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.Boxes.size(), 1);
        QVERIFY(club.Boxes[0].detail.contains(u"Konto2016.pz"_s));
        QCOMPARE(Mark(club), u"Konto nicht gespeichert"_s);
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s }));
        UnblockFile(club, CashBookClub::bank);
        club.Click("CommandSaveLedger");
        QCOMPARE(Mark(club), u""_s);
        QVERIFY(club.File(CashBookClub::bank).endsWith(u"Porto;0,00;1,00\r\n"_s));
    }

    void the_guard_saves_the_other_account_even_when_one_fails_and_asks_again()
    {
        CashBookClub club(bank_line, cash_line);
        BookPorto(club, u"Bank"_s);
        club.Click("Command15");
        BookPorto(club, u"Bar"_s);
        BlockFile(club, CashBookClub::cash_box);
        club.program.Window.SSTab1->setCurrentIndex(0);
        QCOMPARE(club.Boxes.size(), 2); // the question and the error
        QVERIFY(club.File(CashBookClub::bank).contains(u"Bank"_s));
        QVERIFY(club.Book().LedgerChanged);
        QVERIFY(club.Book().CashBox.Unsaved && !club.Book().Bank.Unsaved);
    }

    void a_file_that_cannot_be_loaded_is_named_and_never_written_over()
    {
        CashBookClub club(Unloadable(), cash_line, false);
        club.StartOnTab();
        QCOMPARE(Mark(club), u"Datei nicht gelesen"_s);
        QVERIFY(club.Texts().isEmpty());
        LoadYear(club.program);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].text, u"Laufzeitfehler 6: Überlauf"_s);
        QVERIFY(club.Boxes[0].detail.contains(u"Konto2016.pz"_s));
        QVERIFY(club.Boxes[0].detail.contains(u"Zeile 2"_s));
        BookPorto(club);
        QCOMPARE(club.Texts(), QStringList { u"Porto"_s });
        club.Boxes.clear();
        club.Click("CommandSaveLedger");
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.File(CashBookClub::bank), Unloadable());
        QCOMPARE(club.Texts(), QStringList { u"Porto"_s });
    }

    void once_the_file_can_be_loaded_saving_joins_it_with_what_was_booked_since()
    {
        CashBookClub club(Unloadable());
        BookPorto(club);
        club.Write(QString::fromLatin1(CashBookClub::bank), bank_line.toLatin1());
        club.Click("CommandSaveLedger");
        QVERIFY(club.Boxes.isEmpty());
        QCOMPARE(club.File(CashBookClub::bank), bank_line + u"02.02.2016;Porto;0,00;1,00\r\n"_s);
        QCOMPARE(club.Texts(), QStringList({ u"Anfang"_s, u"Porto"_s }));
        QCOMPARE(Mark(club), u""_s);
    }

    void the_guard_never_writes_over_an_account_that_was_not_loaded()
    {
        CashBookClub club(bank_line, Unloadable());
        club.Click("Command15");
        QCOMPARE(Mark(club), u"Datei nicht gelesen"_s);
        BookPorto(club, u"Bar"_s);
        club.Click("Command15");
        BookPorto(club, u"Bank"_s);
        club.program.Window.SSTab1->setCurrentIndex(0);
        QCOMPARE(club.File(CashBookClub::cash_box), Unloadable());
        QVERIFY(club.File(CashBookClub::bank).contains(u"Bank"_s));
        QVERIFY(club.Book().LedgerChanged);
        QCOMPARE(club.Book().CashBox.Lines.size(), 1);
    }

    void a_cash_box_that_could_not_be_read_is_tried_again_at_the_switch()
    {
        CashBookClub club(bank_line, Unloadable());
        club.Write(QString::fromLatin1(CashBookClub::cash_box), cash_line.toLatin1());
        club.Click("Command15");
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        QCOMPARE(Mark(club), u""_s);
    }

    void a_carry_over_that_cannot_be_read_opens_no_year()
    {
        CashBookClub club({}, {}, false);
        club.Write(u"Konto2015.pz"_s, Unloadable().toLatin1());
        club.StartOnTab();
        QCOMPARE(club.File(CashBookClub::bank), u"(none)"_s);
        QCOMPARE(Mark(club), u"Datei nicht gelesen"_s);
        BookPorto(club);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank), u"(none)"_s); // else the balance were never carried
        club.Write(u"Konto2015.pz"_s, "01.01.2015;a;8,00;0,00\r\n");
        club.Click("CommandSaveLedger");
        QCOMPARE(club.Texts(), QStringList({ u"Porto"_s, u"Übertrag Saldo 2015"_s }));
        QCOMPARE(club.File(CashBookClub::bank),
            u"02.02.2016;Porto;0,00;1,00\r\n03.03.2016;Übertrag Saldo 2015;8,00;0,00\r\n"_s);
    }

    void the_rest_of_the_year_is_shown_although_a_ledger_cannot_be()
    {
        CashBookClub club(Unloadable());
        QCOMPARE(club.program.Members.NameList.size(), 3);
        QCOMPARE(club.Control<QTreeWidget>("ListView2")->topLevelItemCount(), 3);
        QCOMPARE(club.Names()->count(), 3);
    }

    void a_ledger_of_a_hundred_thousand_lines_can_be_shown_booked_and_saved()
    {
        const QString line = u"01.02.2016;a;1,00;1,00\r\n"_s;
        CashBookClub club(line.repeated(100'000));
        QCOMPARE(club.View()->model()->rowCount(), 100'000);
        club.View()->scrollToBottom();
        club.ClickRow(99'998);
        QCOMPARE(club.Book().SelectedLedgerRow, 99'999);
        BookPorto(club);
        QCOMPARE(club.Row(99'999)[1], u"Porto"_s);
        club.Click("CommandSaveLedger");
        QCOMPARE(club.File(CashBookClub::bank),
            line.repeated(99'999) + u"02.02.2016;Porto;0,00;1,00\r\n"_s);
    }

    // the years

    /// Loaded is 2016, chosen 2015 without "Laden": the cash box of 2015 is opened, there is none.
    void a_cash_box_of_a_year_that_is_neither_chosen_nor_loaded_is_read_anew()
    {
        const CashBookClub club(bank_line, cash_line);
        club.Click("Command3(1)");
        club.Click("Command15");
        QVERIFY(club.Texts().isEmpty());
        club.program.Window.SSTab1->setCurrentIndex(0);
        club.Click("Command3(0)");
        club.program.Window.SSTab1->setCurrentIndex(2);
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        BookPorto(club);
        club.Click("CommandSaveLedger");
        QCOMPARE(
            club.File(CashBookClub::cash_box), cash_line + u"02.02.2016;Porto;0,00;1,00\r\n"_s);
    }

    void saving_alone_reads_such_a_cash_box_first()
    {
        CashBookClub club(bank_line, cash_line);
        const QByteArray older = "01.02.2014;alt;5,00;0,00\r\n";
        club.Click("Command3(1)");
        club.Click("Command15");
        club.Write(u"HandKasse2014.pz"_s, older);
        club.Click("Command3(1)");
        club.Click("CommandSaveLedger");
        QCOMPARE(club.Read(u"HandKasse2014.pz"_s), older);
        QCOMPARE(club.Texts(), QStringList { u"alt"_s });
    }

    void unsaved_bookings_of_such_a_year_go_into_its_file_or_are_dropped_as_answered_data()
    {
        QTest::addColumn<bool>("yes");
        QTest::newRow("Ja") << true;
        QTest::newRow("Nein") << false;
    }
    void unsaved_bookings_of_such_a_year_go_into_its_file_or_are_dropped_as_answered()
    {
        QFETCH(const bool, yes);
        CashBookClub club(bank_line, cash_line);
        club.Click("Command3(1)");
        club.Click("Command15");
        club.TypeBooking(u"02.02.2015"_s, u"Porto"_s, u"0,00"_s, u"1,00"_s);
        club.Click("Command12(0)");
        club.Boxes.clear();
        club.Click("Command3(0)");
        club.Answers = { yes ? BoxAnswer::Yes : BoxAnswer::No };
        club.Click("CommandSaveLedger");
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].title, u"Hinweis"_s);
        QCOMPARE(club.Boxes[0].text,
            u"Die Buchungen der Handkasse von 2015 sind nicht gespeichert. Sollen sie in das Jahr "
            "2015 gespeichert werden ?"_s);
        QCOMPARE(club.File("HandKasse2015.pz"),
            yes ? u"02.02.2015;Porto;0,00;1,00\r\n"_s : QString::fromLatin1(CashBookClub::no_file));
        QCOMPARE(club.File(CashBookClub::cash_box), cash_line);
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
    }

    void the_guards_yes_saves_bookings_of_such_a_year_into_its_file()
    {
        CashBookClub club(bank_line, cash_line);
        club.Click("Command3(1)");
        club.Click("Command15");
        club.TypeBooking(u"02.02.2015"_s, u"Porto"_s, u"0,00"_s, u"1,00"_s);
        club.Click("Command12(0)");
        club.Click("Command3(0)");
        club.program.Window.SSTab1->setCurrentIndex(0);
        QCOMPARE(club.File("HandKasse2015.pz"), u"02.02.2015;Porto;0,00;1,00\r\n"_s);
        QCOMPARE(club.File(CashBookClub::cash_box), cash_line);
    }

    void a_picked_row_of_such_a_year_is_not_booked_into_the_chosen_one()
    {
        const CashBookClub club(bank_line, cash_line);
        club.Click("Command3(1)");
        club.Click("Command15");
        club.TypeBooking(u"02.02.2015"_s, u"Porto"_s, u"0,00"_s, u"1,00"_s);
        club.Click("Command12(0)");
        club.Click("CommandSaveLedger");
        club.ClickRow(0);
        club.Click("Command3(0)");
        club.Click("Command12(0)");
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
        QVERIFY(!club.Book().LedgerEditMode);
        club.Click("Command12(1)");
        QCOMPARE(club.Texts(), QStringList { u"Kasse"_s });
    }

    void a_list_of_the_loaded_year_stays_although_another_is_chosen()
    {
        const CashBookClub club(bank_line, cash_line);
        club.Click("Command3(1)");
        club.program.Window.SSTab1->setCurrentIndex(0);
        club.program.Window.SSTab1->setCurrentIndex(2);
        QCOMPARE(club.Texts(), QStringList { u"Anfang"_s });
        QVERIFY(club.Boxes.isEmpty());
    }
};

const TestFile<TestTwoAccountsForm> test_file(__FILE__);
#include "test_two_accounts_form.moc"
