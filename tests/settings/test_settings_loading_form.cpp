// What the tab "Einstellungen" shows after a load, and what counts as an edit.
#include "tests/support/settings_club.h"
#include "tests/support/test_file.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace {

/// A click on a day of the shown month.
void ClickDay(QCalendarWidget* calendar, int day)
{
    auto* days = Find<QTableView>(calendar, QStringLiteral("qt_calendar_calendarview"));
    const QAbstractItemModel* model = days->model();
    bool month_began = false;
    for (int row = 1; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex cell = model->index(row, column);
            const int number = model->data(cell).toInt();
            month_began = month_began || number == 1;
            if (!month_began || number != day)
                continue;
            QTest::mouseClick(
                days->viewport(), Qt::LeftButton, {}, days->visualRect(cell).center());
            return;
        }
    }
    QFAIL("no such day");
}

} // namespace

class TestSettingsLoadingForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Loading

    void loading_fills_fields_and_memory_and_counts_as_no_edit()
    {
        SettingsClub club;
        club.OpenWithData();
        const QStringList prices { QStringLiteral("0,30"), QStringLiteral("2,20"),
            QStringLiteral("10,00"), QStringLiteral("36,00"), QStringLiteral("0,08"),
            QStringLiteral("0,02"), QStringLiteral("0,03"), QString(),
            QStringLiteral("20.12.2017") };
        QCOMPARE(club.PriceTexts(), prices);
        QCOMPARE(club.Control<QLabel>("Label7")->text(), QStringLiteral("15.11.2017"));
        QVERIFY(club.Control<QCheckBox>("Check1")->isChecked());
        QVERIFY(!club.Control<QCheckBox>("Check2")->isChecked());
        const QStringList bank { QStringLiteral("Volksbank Rotenfeld"), QStringLiteral("DE00 1234"),
            QStringLiteral("ROTFDE00XXX"), QStringLiteral("Meier,Anna"),
            QStringLiteral("Sommer,Käthe"), QStringLiteral("Renate Noack") };
        QCOMPARE(club.BankTexts(), bank);
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau"));

        const Program& program = club.program;
        for (std::size_t i = 0; i < 8; ++i) {
            QCOMPARE(PriceText(program.Prices, i), prices[static_cast<int>(i)]);
            QCOMPARE(PriceText(program.Settings.SavedPrices, i), prices[static_cast<int>(i)]);
        }
        QCOMPARE(program.Prices.BillingDate, QStringLiteral("15.11.2017"));
        QCOMPARE(program.Prices.PaymentDeadline, QStringLiteral("20.12.2017"));
        QCOMPARE(program.Prices.ElectricityPrepayment, qint16(1));
        for (std::size_t i = 0; i < 6; ++i) {
            QCOMPARE(BankText(program.Bank, i), bank[static_cast<int>(i)]);
            QCOMPARE(BankText(program.Settings.SavedBank, i), bank[static_cast<int>(i)]);
        }
        QCOMPARE(program.Bank.TreasurerSalutation, QStringLiteral("Frau"));
        QVERIFY(program.Settings.SettingsSaved);
        QVERIFY(!program.Settings.PricesEdited);
        QCOMPARE(club.Read(PriceFile), Prices2017);
        QCOMPARE(club.Boxes.size(), 0);
    }

    void loading_leaves_the_mark_of_unsaved_settings_alone()
    {
        SettingsClub club;
        club.OpenWithData();
        club.program.Settings.SettingsSaved = false;
        LoadSettings(club.program);
        QVERIFY(!club.program.Settings.SettingsSaved);
    }

    void without_files_prices_read_zero_bank_fields_are_empty_and_nothing_is_written()
    {
        SettingsClub club;
        club.Open();
        QCOMPARE(club.PriceTexts(), QStringList(9, QStringLiteral("0,00")));
        QCOMPARE(club.BankTexts(), QStringList(6, QString()));
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau"));
        QVERIFY(!club.Control<QCheckBox>("Check1")->isChecked());
        QVERIFY(!club.Control<QCheckBox>("Check2")->isChecked());
        QCOMPARE(club.program.Prices.PaymentDeadline, QStringLiteral("0,00"));
        QCOMPARE(club.program.Prices.PreviousElectricityPrice, QString());
        QCOMPARE(club.program.Bank.TreasurerSalutation, QStringLiteral("Frau"));
        QVERIFY(!club.Exists(PriceFile));
        QVERIFY(!club.Exists(BankFile));
        QCOMPARE(club.Boxes.size(), 0);
    }

    void another_salutation_stays_when_the_file_is_missing_and_follows_it_when_it_is_there()
    {
        SettingsClub club;
        club.Write(BankFile, QByteArray(BankData).replace("Anrede=Frau", "Anrede=Frau Dr."));
        club.Open();
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau Dr."));
        QFile::remove(club.Path(BankFile));
        LoadSettings(club.program);
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau Dr."));
        QCOMPARE(club.BankTexts(), QStringList(6, QString()));
        club.Write(BankFile, "[Daten]\r\n");
        LoadSettings(club.program);
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QString());
    }

    void a_new_year_takes_over_last_years_prices_and_writes_them_at_once()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("year-change"));
        club.Open();
        const QString update = QStringLiteral("Bitte aktualisieren");
        const QStringList prices { QStringLiteral("0,29"), QStringLiteral("2,15"),
            QStringLiteral("9,00"), QStringLiteral("36,00"), QStringLiteral("0,08"),
            QStringLiteral("0,01"), QStringLiteral("0,02"), QStringLiteral("5,00"), update };
        QCOMPARE(club.PriceTexts(), prices);
        QCOMPARE(club.Control<QLabel>("Label7")->text(), update);
        QCOMPARE(club.program.Prices.BillingDate, update);
        QCOMPARE(club.program.Prices.PaymentDeadline, update);
        QVERIFY(!club.Control<QCheckBox>("Check1")->isChecked());
        QFile expected(
            QStringLiteral(PARZELLO_FIXTURES "/examples/year-change/expected/files/Config.ini"));
        QVERIFY(expected.open(QIODevice::ReadOnly));
        const QByteArray bytes = expected.readAll();
        QCOMPARE(club.Read(PriceFile), bytes);

        LoadSettings(club.program); // the section has prices now: the levy is not read, it stays
        QCOMPARE(club.PriceTexts(), prices);
        QCOMPARE(club.Read(PriceFile), bytes);
        QVERIFY(club.program.Settings.SettingsSaved);
    }

    void another_year_without_prices_stays_empty_and_nothing_is_written()
    {
        SettingsClub club;
        club.Write(PriceFile, Prices2017);
        club.Open(2018, 2017);
        QCOMPARE(club.PriceTexts(), QStringList(9, QString()));
        QCOMPARE(club.Control<QLabel>("Label7")->text(), QString());
        QCOMPARE(club.Read(PriceFile), Prices2017);
        QCOMPARE(club.program.Prices.PreviousElectricityPrice, QStringLiteral("0,30"));
        QCOMPARE(club.program.Prices.PreviousWaterPrice, QStringLiteral("2,20"));
    }

    void the_repair_levy_of_a_year_is_shown_again_only_by_the_carry_over()
    {
        SettingsClub club;
        club.OpenWithData(); // the file holds 5,00
        QCOMPARE(club.Price(7)->text(), QString());
        Type(club.Price(7), QStringLiteral("7,50"));
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(PriceFile).contains("RepUmlage=7,50\r\n"));
        club.program.Year.YearText = QStringLiteral("2018");
        club.program.Year.YearNumber = 2018;
        club.Price(7)->clear();
        LoadSettings(club.program);
        QCOMPARE(club.Price(7)->text(), QStringLiteral("7,50"));
    }

    void an_unreadable_price_file_is_reported_and_leaves_the_prices_as_they_are()
    {
        SettingsClub club;
        club.OpenWithData();
        QFile::remove(club.Path(PriceFile));
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), club.Path(PriceFile)));
        club.Write(BankFile, QByteArray(BankData).replace("Volksbank", "Sparkasse"));
        LoadSettings(club.program);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QCOMPARE(club.Boxes[0].title, QStringLiteral("Kleingarten Parzello"));
        QVERIFY(club.Boxes[0].detail.startsWith(QStringLiteral("Datei „Config.ini“: Es gelten")));
        QCOMPARE(club.Price(0)->text(), QStringLiteral("0,30"));
        QCOMPARE(club.program.Prices.ElectricityPrice, QStringLiteral("0,30"));
        QCOMPARE(club.Bank(0)->text(), QStringLiteral("Sparkasse Rotenfeld")); // the other half
        QFile::remove(club.Path(PriceFile));
    }

    void a_carry_over_that_cannot_be_written_is_reported_and_its_prices_are_in_force()
    {
        SettingsClub club;
        // Can be read, cannot be written, by nobody.
        QVERIFY(QFile::link(QStringLiteral("/proc/version"), club.Path(PriceFile)));
        club.Open();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[0].detail.contains(QStringLiteral("Die Preise des Vorjahres gelten")));
        QCOMPARE(club.Price(8)->text(), QStringLiteral("Bitte aktualisieren"));
        QCOMPARE(club.program.Prices.BillingDate, QStringLiteral("Bitte aktualisieren"));
        QFile::remove(club.Path(PriceFile));
    }

    // Editing

    void every_edit_of_a_price_clears_the_mark()
    {
        SettingsClub club;
        club.OpenWithData();
        for (int i = 0; i < 8; ++i) {
            club.program.Settings.SettingsSaved = true;
            club.program.Settings.PricesEdited = false;
            QTest::keyClick(club.Price(i), Qt::Key_1);
            QVERIFY(!club.program.Settings.SettingsSaved);
            QVERIFY(club.program.Settings.PricesEdited);
        }
        QVERIFY(club.Price(8)->isReadOnly());
        QCOMPARE(club.program.Prices.ElectricityPrice, QStringLiteral("0,30")); // until it is saved
    }

    void a_price_typed_back_still_counts_as_edited()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Price(0), QStringLiteral("0,30"));
        QVERIFY(!club.program.Settings.SettingsSaved);
    }

    void an_edit_of_a_bank_field_clears_the_mark_and_is_no_edit_of_a_price()
    {
        SettingsClub club;
        club.OpenWithData();
        for (int i = 0; i < 6; ++i) {
            club.program.Settings.SettingsSaved = true;
            QTest::keyClick(club.Bank(i), Qt::Key_X);
            QVERIFY(!club.program.Settings.SettingsSaved);
        }
        QVERIFY(!club.program.Settings.PricesEdited);
    }

    void typing_or_choosing_a_salutation_clears_the_mark()
    {
        SettingsClub club;
        club.OpenWithData();
        auto* salutation = club.Control<QComboBox>("C1");
        QTest::keyClicks(salutation->lineEdit(), QStringLiteral("x"));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QVERIFY(club.program.Settings.PricesEdited);
        club.program.Settings.SettingsSaved = true;
        club.program.Settings.PricesEdited = false;
        QTest::keyClick(salutation, Qt::Key_Down);
        QCOMPARE(salutation->currentText(), QStringLiteral("Herr"));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QVERIFY(club.program.Settings.PricesEdited);
    }

    void ticking_a_prepayment_counts_as_an_edit()
    {
        SettingsClub club;
        club.OpenWithData();
        for (const char* name : { "Check1", "Check2" }) {
            club.program.Settings.SettingsSaved = true;
            club.program.Settings.PricesEdited = false;
            club.Control<QCheckBox>(name)->click();
            QVERIFY(!club.program.Settings.SettingsSaved);
            QVERIFY(club.program.Settings.PricesEdited);
        }
        QCOMPARE(club.program.Prices.ElectricityPrepayment, qint16(1)); // until it is saved
    }

    void a_click_in_a_calendar_sets_its_date_in_field_and_memory_and_writes_nothing()
    {
        SettingsClub club;
        club.OpenWithData();
        club.ShowTab();
        ClickDay(club.Control<QCalendarWidget>("Calendar1"), 3);
        QCOMPARE(club.Control<QLabel>("Label7")->text(), QStringLiteral("03.11.2017"));
        QCOMPARE(club.program.Prices.BillingDate, QStringLiteral("03.11.2017"));
        QCOMPARE(club.program.Prices.PaymentDeadline, QStringLiteral("20.12.2017"));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QVERIFY(club.program.Settings.PricesEdited);

        club.program.Settings.SettingsSaved = true;
        ClickDay(club.Control<QCalendarWidget>("Calendar2"), 30);
        QCOMPARE(club.Price(8)->text(), QStringLiteral("30.11.2017"));
        QCOMPARE(club.program.Prices.PaymentDeadline, QStringLiteral("30.11.2017"));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QCOMPARE(club.Read(PriceFile), Prices2017);
    }

    void the_enter_key_picks_a_date_too()
    {
        SettingsClub club;
        club.OpenWithData();
        club.ShowTab();
        auto* calendar = club.Control<QCalendarWidget>("Calendar1");
        auto* days = Find<QTableView>(calendar, QStringLiteral("qt_calendar_calendarview"));
        QTest::keyClick(days, Qt::Key_Right); // moving alone picks nothing
        QVERIFY(club.program.Settings.SettingsSaved);
        QTest::keyClick(days, Qt::Key_Return);
        QCOMPARE(club.program.Prices.BillingDate, QStringLiteral("21.11.2017"));
    }

    void setting_calendars_and_years_by_code_is_no_edit()
    {
        SettingsClub club;
        club.OpenWithData();
        SetSettingsCalendarsToToday(club.program);
        club.program.Year.YearText = QStringLiteral("2015");
        ShowSettingsYear(club.program);
        QCOMPARE(club.Control<QCalendarWidget>("Calendar1")->selectedDate(), QDate(2015, 11, 20));
        QCOMPARE(club.Control<QCalendarWidget>("Calendar2")->selectedDate(), QDate(2015, 11, 20));
        QVERIFY(club.program.Settings.SettingsSaved);
        QCOMPARE(club.program.Prices.BillingDate, QStringLiteral("15.11.2017"));
    }

    void the_29th_of_february_becomes_the_28th_in_another_year()
    {
        SettingsClub club;
        club.Open(2016);
        auto* calendar = club.Control<QCalendarWidget>("Calendar1");
        calendar->setSelectedDate(QDate(2016, 2, 29));
        club.program.Year.YearText = QStringLiteral("2017");
        ShowSettingsYear(club.program);
        QCOMPARE(calendar->selectedDate(), QDate(2017, 2, 28));
    }

    void typed_characters_are_shown_as_they_will_be_stored()
    {
        SettingsClub club;
        club.Open();
        auto* salutation = club.Control<QComboBox>("C1")->lineEdit();
        salutation->selectAll();
        salutation->insert(QStringLiteral("Łucja"));
        QCOMPARE(salutation->text(), QStringLiteral("Lucja"));
    }
};

const TestFile<TestSettingsLoadingForm> test_file(__FILE__);
#include "test_settings_loading_form.moc"
