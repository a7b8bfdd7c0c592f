// The questions on leaving a tab and on closing the window, and what each answer does.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace {

const QString ask_balance = QStringLiteral(
    "Hinweis: Sie haben den Kontostand geändert. Sollen die Änderungen gespeichert werden ?");
const QString ask_prices = QStringLiteral("Hinweis: Sie haben die Werte in den Einstellungen "
                                          "geändert. Sollen die Änderungen gespeichert werden ?");
const QString ask_bank = QStringLiteral(
    "Hinweis: Sie haben die Bankverbindung oder Namen in den Einstellungen geändert. "
    "Sollen die Änderungen gespeichert werden ?");
const QString saved = QStringLiteral("Hinweis: Datenänderung ist gespeichert !");

/// The ordinary club, started, with the settings tab in front and no boxes so far.
struct Club : TestClub {
    Club()
    {
        CopyExample(QStringLiteral("ordinary-year"));
        Start({ 2017, 11, 20 });
        GoTo(3);
        Boxes.clear();
    }

    void GoTo(int tab) { Control<QTabWidget>("SSTab1")->setCurrentIndex(tab); }

    /// Types over the text of a field, key by key.
    void Type(const char* name, const QString& text)
    {
        auto* field = Control<QLineEdit>(name);
        field->selectAll();
        QTest::keyClicks(field, text);
    }

    /// A folder in place of the file: it can no longer be written.
    void BlockFile(const QString& name) const
    {
        const QString path = program.Files.DataDirectory + QLatin1Char('/') + name;
        QVERIFY(QFile::rename(path, path + QStringLiteral(".weg")));
        QVERIFY(QDir().mkdir(path));
    }

    void Book(const QString& date, const QString& text, const QString& deposit)
    {
        GoTo(2);
        Type("Text10(0)", date);
        Type("Text10(1)", text);
        Type("Text10(2)", deposit);
        QTest::mouseClick(Control<QPushButton>("Command12(0)"), Qt::LeftButton);
    }
};

} // namespace

class TestTabGuard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void switching_without_edits_asks_nothing()
    {
        Club club;
        for (int tab : { 0, 1, 0, 2, 3, 1, 2, 0 })
            club.GoTo(tab);
        QCOMPARE(club.BoxTexts(), QStringList());
    }

    void no_to_the_price_question_puts_the_saved_prices_back()
    {
        Club club;
        club.Type("Text4(0)", QStringLiteral("9,99"));
        QVERIFY(!club.program.Settings.SettingsSaved);
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_prices });
        QCOMPARE(club.Boxes.first().buttons, BoxButtons::YesNo);
        QCOMPARE(club.Control<QLineEdit>("Text4(0)")->text(), QStringLiteral("0,30"));
        QVERIFY(club.program.Settings.SettingsSaved);
        club.GoTo(1);
        QCOMPARE(club.Boxes.size(), 1);
    }

    void yes_to_the_price_question_saves_the_prices()
    {
        Club club;
        club.Type("Text4(0)", QStringLiteral("9,99"));
        club.Answers = { BoxAnswer::Yes };
        club.GoTo(2);
        QCOMPARE(club.BoxTexts(), (QStringList { ask_prices, saved }));
        QVERIFY(club.Read(QStringLiteral("Config.ini"))
                    .contains("[2017]\r\nRepUmlage=\r\nStromkosten=9,99\r\n"));
        QVERIFY(club.program.Settings.SettingsSaved);
    }

    void a_price_typed_back_to_its_old_value_still_asks()
    {
        Club club;
        club.Type("Text4(0)", QStringLiteral("0,30"));
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_prices });
    }

    void editing_only_a_bank_field_asks_the_bank_question_once()
    {
        Club club;
        club.Type("Text6(1)", QStringLiteral("DE99"));
        club.Type("Text6(2)", QStringLiteral("BIC"));
        club.Answers = { BoxAnswer::No };
        club.GoTo(1);
        QCOMPARE(club.BoxTexts(), QStringList { ask_bank });
        QCOMPARE(club.Control<QLineEdit>("Text6(1)")->text(),
            QStringLiteral("DE00 1234 5678 0000 4711 00"));
        QVERIFY(club.program.Settings.SettingsSaved);
        club.GoTo(0);
        QCOMPARE(club.Boxes.size(), 1);
    }

    void yes_to_the_bank_question_saves_every_bank_field()
    {
        Club club;
        club.Type("Text6(1)", QStringLiteral("DE99"));
        club.Type("Text6(2)", QStringLiteral("BIC"));
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), (QStringList { ask_bank, saved }));
        QVERIFY(
            club.Read(QStringLiteral("Config1.ini")).contains("BLZ=DE99\r\nKontonummer=BIC\r\n"));
        club.GoTo(1);
        QCOMPARE(club.Boxes.size(), 2);
    }

    void the_price_question_ends_the_guard()
    {
        Club club;
        club.Type("Text6(0)", QStringLiteral("Bank"));
        club.Type("Text4(3)", QStringLiteral("40,00"));
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), (QStringList { ask_prices, saved }));
        club.GoTo(1);
        QCOMPARE(club.BoxTexts().mid(2), (QStringList { ask_bank, saved }));
    }

    void a_price_edited_before_the_banks_save_is_asked_for()
    {
        Club club;
        club.Type("Text4(3)", QStringLiteral("40,00"));
        QTest::mouseClick(club.Control<QPushButton>("Command7"), Qt::LeftButton);
        QVERIFY(club.program.Settings.SettingsSaved);
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), (QStringList { saved, ask_prices }));
    }

    void a_prepayment_box_counts_as_an_edit_and_no_puts_it_back()
    {
        Club club;
        auto* water = club.Control<QCheckBox>("Check2");
        QVERIFY(!water->isChecked());
        QTest::keyClick(water, Qt::Key_Space);
        QVERIFY(water->isChecked());
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_prices });
        QVERIFY(!water->isChecked());
    }

    void a_salutation_answered_with_yes_is_written()
    {
        Club club;
        auto* salutation = club.Control<QComboBox>("C1");
        salutation->lineEdit()->selectAll();
        QTest::keyClicks(salutation->lineEdit(), QStringLiteral("Herr"));
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), (QStringList { ask_prices, saved }));
        QVERIFY(club.Read(QStringLiteral("Config1.ini")).contains("Anrede=Herr\r\n"));
        QCOMPARE(club.program.Bank.TreasurerSalutation, QStringLiteral("Herr"));
    }

    void arriving_at_the_settings_asks_only_for_the_balance()
    {
        Club club;
        club.Type("Text4(0)", QStringLiteral("9,99"));
        club.program.CashBook.LedgerChanged = true;
        TabChanged(club.program, 3);
        QCOMPARE(club.BoxTexts(), QStringList { ask_balance });
        QVERIFY(!club.program.CashBook.LedgerChanged);
    }

    void staying_in_the_cash_book_does_not_ask_for_the_balance()
    {
        Club club;
        club.Book(QStringLiteral("01.12.2017"), QStringLiteral("Porto"), QStringLiteral("1,00"));
        club.Boxes.clear();
        TabChanged(club.program, 2);
        QCOMPARE(club.BoxTexts(), QStringList());
        QVERIFY(club.program.CashBook.LedgerChanged);
    }

    void yes_to_the_balance_question_saves_both_accounts()
    {
        Club club;
        club.Book(QStringLiteral("01.12.2017"), QStringLiteral("Porto"), QStringLiteral("1,00"));
        QTest::mouseClick(club.Control<QPushButton>("Command15"), Qt::LeftButton);
        club.Book(QStringLiteral("02.12.2017"), QStringLiteral("Kasse"), QStringLiteral("2,00"));
        club.Boxes.clear();
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_balance });
        QVERIFY(
            club.Read(QStringLiteral("Konto2017.pz")).endsWith("01.12.2017;Porto;1,00;0,00\r\n"));
        QVERIFY(club.Read(QStringLiteral("HandKasse2017.pz"))
                    .endsWith("02.12.2017;Kasse;2,00;0,00\r\n"));
        QVERIFY(!club.program.CashBook.LedgerChanged);
        QVERIFY(!club.program.CashBook.Bank.Unsaved);
        QVERIFY(!club.program.CashBook.CashBox.Unsaved);
    }

    void no_to_the_balance_question_keeps_the_bookings_in_memory_and_the_files_as_they_are()
    {
        Club club;
        const QByteArray before = club.Read(QStringLiteral("Konto2017.pz"));
        club.Book(QStringLiteral("01.12.2017"), QStringLiteral("Porto"), QStringLiteral("1,00"));
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.Read(QStringLiteral("Konto2017.pz")), before);
        QCOMPARE(club.program.CashBook.Bank.Lines.size(), 10);
        QVERIFY(club.program.CashBook.Bank.Unsaved);
        QVERIFY(!club.program.CashBook.LedgerChanged);
        club.GoTo(2);
        club.GoTo(1);
        QCOMPARE(club.Boxes.size(), 1);
    }

    void closing_the_window_asks_for_everything_unsaved()
    {
        Club club;
        club.Type("Text6(0)", QStringLiteral("Bank"));
        club.Type("Text4(3)", QStringLiteral("40,00"));
        club.program.CashBook.Bank.Unsaved = true; // answered with "Nein" earlier
        QCloseEvent close;
        QApplication::sendEvent(club.program.Window.Window, &close);
        QVERIFY(close.isAccepted());
        QCOMPARE(
            club.BoxTexts(), (QStringList { ask_balance, ask_prices, saved, ask_bank, saved }));
    }

    void a_price_that_was_declined_is_not_asked_about_again()
    {
        Club club;
        club.Type("Text4(7)", QStringLiteral("5")); // the saved text is empty: "Nein" leaves it
        QCOMPARE(club.program.Settings.SavedPrices.RepairLevy, QString());
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_prices });
        QCOMPARE(club.Control<QLineEdit>("Text4(7)")->text(), QStringLiteral("5"));
        for (int tab : { 3, 0, 1, 3, 2 })
            club.GoTo(tab);
        QCOMPARE(club.Boxes.size(), 1);
        club.Type("Text4(7)", QStringLiteral("6"));
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.Boxes.size(), 2);
    }

    void a_declined_price_is_not_asked_about_after_the_banks_save()
    {
        Club club;
        club.Type("Text4(7)", QStringLiteral("5")); // the saved text is empty: "Nein" leaves it
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        club.GoTo(3);
        club.Type("Text6(0)", QStringLiteral("Bank"));
        QTest::mouseClick(club.Control<QPushButton>("Command7"), Qt::LeftButton);
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), (QStringList { ask_prices, saved }));
        club.GoTo(3);
        club.Type("Text4(7)", QStringLiteral("6"));
        QTest::mouseClick(club.Control<QPushButton>("Command7"), Qt::LeftButton);
        club.GoTo(0);
        QCOMPARE(club.BoxTexts().mid(2), (QStringList { saved, ask_prices, saved }));
    }

    void settings_that_cannot_be_saved_come_back_with_what_was_typed_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("question");
        QTest::newRow("price") << QStringLiteral("Config.ini") << QStringLiteral("Text4(0)")
                               << ask_prices;
        QTest::newRow("bank") << QStringLiteral("Config1.ini") << QStringLiteral("Text6(0)")
                              << ask_bank;
    }

    void settings_that_cannot_be_saved_come_back_with_what_was_typed()
    {
        QFETCH(QString, file);
        QFETCH(QString, field);
        QFETCH(QString, question);
        Club club;
        club.Type(qPrintable(field), QStringLiteral("9,99"));
        club.BlockFile(file);
        for (int again = 0; again < 2; ++again) { // the question comes until it is settled
            club.Boxes.clear();
            club.GoTo(0);
            QCOMPARE(club.BoxTexts().first(), question);
            QCOMPARE(club.Boxes.last().icon, BoxIcon::Error);
            QCOMPARE(club.Control<QTabWidget>("SSTab1")->currentIndex(), 3);
            QCOMPARE(club.Control<QLineEdit>(qPrintable(field))->text(), QStringLiteral("9,99"));
        }
    }

    void a_salutation_that_cannot_be_saved_comes_back_too()
    {
        Club club;
        auto* salutation = club.Control<QComboBox>("C1");
        salutation->lineEdit()->selectAll();
        QTest::keyClicks(salutation->lineEdit(), QStringLiteral("Herr"));
        club.BlockFile(QStringLiteral("Config1.ini"));
        for (int again = 0; again < 2; ++again) {
            club.Boxes.clear();
            club.GoTo(0);
            QCOMPARE(club.BoxTexts().first(), ask_prices);
            QCOMPARE(club.Boxes.last().icon, BoxIcon::Error);
            QCOMPARE(club.Control<QTabWidget>("SSTab1")->currentIndex(), 3);
            QCOMPARE(salutation->currentText(), QStringLiteral("Herr"));
        }
    }

    void a_new_member_is_not_begun_behind_settings_that_cannot_be_saved()
    {
        Club club;
        club.program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        club.Type("Text4(0)", QStringLiteral("9,99"));
        club.BlockFile(QStringLiteral("Config.ini"));
        const QString name = club.Control<QLineEdit>("Text3(0)")->text();
        QVERIFY(!name.isEmpty());
        QTest::keyClick(club.program.Window.Window, Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(club.Boxes.last().icon, BoxIcon::Error);
        QCOMPARE(club.Control<QLineEdit>("Text3(0)")->text(), name);
    }

    void a_ticked_box_beside_a_saved_bank_is_asked_about()
    {
        Club club;
        club.GoTo(3);
        auto* water = club.Control<QCheckBox>("Check2");
        const bool before = water->isChecked();
        QTest::keyClick(water, Qt::Key_Space);
        QTest::mouseClick(club.Control<QPushButton>("Command7"), Qt::LeftButton);
        club.Boxes.clear();
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_prices });
        QCOMPARE(water->isChecked(), before);
        club.GoTo(1);
        QCOMPARE(club.Boxes.size(), 1);
    }

    void bookings_that_cannot_be_saved_keep_the_cash_book_in_front()
    {
        Club club;
        club.Book(QStringLiteral("01.12.2017"), QStringLiteral("Porto"), QStringLiteral("1,00"));
        club.BlockFile(QStringLiteral("Konto2017.pz"));
        club.GoTo(0);
        QCOMPARE(club.Boxes.size(), 2);
        QCOMPARE(club.BoxTexts().first(), ask_balance);
        QCOMPARE(club.Boxes[1].icon, BoxIcon::Error);
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 2);
        QCOMPARE(club.program.CashBook.Bank.Lines.size(), 10);
        club.Boxes.clear();
        club.Answers = { BoxAnswer::No };
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { ask_balance });
        QCOMPARE(club.program.Window.SSTab1->currentIndex(), 0);
    }

    void the_window_stays_when_something_could_not_be_saved()
    {
        Club club;
        club.Type("Text4(3)", QStringLiteral("40,00"));
        club.program.CashBook.Bank.Unsaved = true;
        club.BlockFile(QStringLiteral("Konto2017.pz"));
        QCloseEvent close;
        QApplication::sendEvent(club.program.Window.Window, &close);
        QVERIFY(!close.isAccepted());
        QVERIFY(club.BoxTexts().contains(ask_prices)); // the others are asked all the same
        QVERIFY(club.Read(QStringLiteral("Config.ini")).contains("Beitrag=40,00\r\n"));
        club.Boxes.clear();
        club.Answers = { BoxAnswer::No };
        QCloseEvent again;
        QApplication::sendEvent(club.program.Window.Window, &again);
        QVERIFY(again.isAccepted());
        QCOMPARE(club.BoxTexts(), QStringList { ask_balance });
    }

    void closing_the_window_after_saving_the_bookings_asks_nothing()
    {
        Club club;
        club.program.CashBook.LedgerChanged = true; // stays so after "Speichern"
        QCloseEvent close;
        QApplication::sendEvent(club.program.Window.Window, &close);
        QVERIFY(close.isAccepted());
        QCOMPARE(club.BoxTexts(), QStringList());
    }

    void the_end_of_the_desktop_session_asks_and_saves_nothing()
    {
        Club club;
        const QByteArray before = club.Read(QStringLiteral("Config.ini"));
        club.program.Window.Window->show();
        club.Type("Text4(0)", QStringLiteral("9,99"));
        club.program.CashBook.Bank.Unsaved = true;
        QTimer::singleShot(0, qApp, [] {
            QEvent quit(QEvent::Quit); // what the session sends
            QCoreApplication::sendEvent(qApp, &quit);
        });
        QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(99); });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(club.BoxTexts(), QStringList());
        QCOMPARE(club.Read(QStringLiteral("Config.ini")), before);
    }

    void closing_the_window_asks_for_a_salutation_that_the_prices_left_behind()
    {
        Club club;
        auto* salutation = club.Control<QComboBox>("C1");
        salutation->lineEdit()->selectAll();
        QTest::keyClicks(salutation->lineEdit(), QStringLiteral("Herr"));
        QTest::mouseClick(club.Control<QPushButton>("Command5"), Qt::LeftButton);
        club.GoTo(0);
        QCOMPARE(club.BoxTexts(), QStringList { saved });
        QCloseEvent close;
        QApplication::sendEvent(club.program.Window.Window, &close);
        QCOMPARE(club.BoxTexts(), (QStringList { saved, ask_bank, saved }));
        QVERIFY(club.Read(QStringLiteral("Config1.ini")).contains("Anrede=Herr\r\n"));
    }

    void beenden_saves_nothing_and_asks_nothing()
    {
        Club club;
        const QByteArray before = club.Read(QStringLiteral("Config.ini"));
        club.Type("Text4(0)", QStringLiteral("9,99"));
        QTimer::singleShot(0, club.Control<QPushButton>("Command8"), &QPushButton::click);
        QTimer::singleShot(5000, qApp, [] { QCoreApplication::exit(99); });
        QCOMPARE(QApplication::exec(), 0);
        QCOMPARE(club.BoxTexts(), QStringList());
        QCOMPARE(club.Read(QStringLiteral("Config.ini")), before);
    }
};

const TestFile<TestTabGuard> test_file(__FILE__);
#include "test_tab_guard.moc"
