// The tab "Einstellungen" in the real window: captions, loading, editing, saving, putting back.
#include "tests/support/club.h"

#include "controls/fields.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

namespace {

const QString config = QStringLiteral("Config.ini");
const QString config1 = QStringLiteral("Config1.ini");
const QString saved_box = QStringLiteral("Hinweis: Datenänderung ist gespeichert !");
const QString price_question
    = QStringLiteral("Hinweis: Sie haben die Werte in den Einstellungen geändert. Sollen die "
                     "Änderungen gespeichert werden ?");
const QString bank_question
    = QStringLiteral("Hinweis: Sie haben die Bankverbindung oder Namen in den Einstellungen "
                     "geändert. Sollen die Änderungen gespeichert werden ?");
constexpr int members_tab = 0;
constexpr int settings_tab = 3;

const QByteArray prices_2017("[2017]\r\n"
                             "RepUmlage=5,00\r\n"
                             "Stromkosten=0,30\r\n"
                             "Wasserkosten=2,20\r\n"
                             "Energiepauschale=10,00\r\n"
                             "Beitrag=36,00\r\n"
                             "Pacht=0,08\r\n"
                             "Steuer=0,02\r\n"
                             "Fl\xe4"
                             "che=0,03\r\n"
                             "Abrechnungsdatum=15.11.2017\r\n"
                             "\xdc"
                             "berweisdatum=20.12.2017\r\n"
                             "Vorauszahlung Strom=1\r\n"
                             "Vorauszahlung Wasser=0\r\n");

const QByteArray bank_data("[Daten]\r\n"
                           "Bankname=Volksbank Rotenfeld\r\n"
                           "BLZ=DE00 1234\r\n"
                           "Kontonummer=ROTFDE00XXX\r\n"
                           "Name1=Meier,Anna\r\n"
                           "Name2=Sommer,K\xe4the\r\n"
                           "Name=Renate Noack\r\n"
                           "Anrede=Frau\r\n");

/// The window with the settings of 2017 loaded; members and ledgers are not needed here.
struct SettingsClub : TestClub {
    void Open(int year = 2017, int start_up_year = 2017)
    {
        program.Today = [] { return QDate(2017, 11, 20); };
        BuildMainWindow(program);
        program.Year.YearText = QString::number(year);
        program.Year.YearNumber = static_cast<qint16>(start_up_year);
        SetSettingsCalendarsToToday(program);
        ShowSettingsYear(program);
        LoadSettings(program);
    }

    void OpenWithData()
    {
        Write(config, prices_2017);
        Write(config1, bank_data);
        Open();
    }

    /// Shows the tab; needed where the mouse or the focus is.
    void ShowTab() const
    {
        program.Window.SSTab1->setCurrentIndex(settings_tab);
        program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowExposed(program.Window.Window));
    }

    QLineEdit* Price(int index) const
    {
        return Find<QLineEdit>(Window(), ControlName(QStringLiteral("Text4"), index));
    }

    QLineEdit* Bank(int index) const
    {
        return Find<QLineEdit>(Window(), ControlName(QStringLiteral("Text6"), index));
    }

    QStringList PriceTexts() const
    {
        QStringList texts;
        for (int i = 0; i <= 8; ++i)
            texts += Price(i)->text();
        return texts;
    }

    QStringList BankTexts() const
    {
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts += Bank(i)->text();
        return texts;
    }
};

/// Replaces a field's text by the keyboard.
void Type(QLineEdit* field, const QString& text)
{
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    field->insert(text); // as an input method does it; keyClicks knows no umlauts
}

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

QString CaptionOf(const QWidget* field)
{
    const auto captions = field->parentWidget()->findChildren<QLabel*>();
    for (const QLabel* caption : captions) {
        if (caption->buddy() == field)
            return caption->text();
    }
    return {};
}

QString FrameOf(const QWidget* control)
{
    for (const QWidget* widget = control; widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* frame = qobject_cast<const QGroupBox*>(widget))
            return frame->title();
    }
    return {};
}

/// Puts a folder where the file should be: writing it must fail.
void BlockFile(const SettingsClub& club, const QString& name)
{
    QFile::remove(club.Path(name));
    QVERIFY(QDir().mkdir(club.Path(name)));
}

} // namespace

class TestSettingsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // What stands on the tab

    void captions_and_frames_are_the_programs()
    {
        SettingsClub club;
        club.Open();
        const QStringList prices { QStringLiteral("Stromkosten pro KWh Mitglieder"),
            QStringLiteral("Wasserkosten pro m³"), QStringLiteral("Energiepauschale"),
            QStringLiteral("Mitgliedsbeitrag"), QStringLiteral("Pacht pro m²"),
            QStringLiteral("Grundsteuern (GS)A "), QStringLiteral("Flächenbeitrag"),
            QStringLiteral("Reparaturumlage"), QStringLiteral("Einzuzahlen bis Spätestens") };
        for (int i = 0; i <= 8; ++i) {
            QCOMPARE(CaptionOf(club.Price(i)), prices[i]);
            QCOMPARE(FrameOf(club.Price(i)), QStringLiteral("Kosten"));
        }
        QCOMPARE(CaptionOf(club.Control<QLabel>("Label7")), QStringLiteral("Abrechnungsdatum"));
        QCOMPARE(club.Control<QCheckBox>("Check1")->text(), QStringLiteral("Vorauszahlung Strom"));
        QCOMPARE(club.Control<QCheckBox>("Check2")->text(), QStringLiteral("Vorauszahlung Wasser"));

        const QStringList bank { QStringLiteral("Bankname"), QStringLiteral("IBAN"),
            QStringLiteral("BIC"), QStringLiteral("Name1"), QStringLiteral("Name2"),
            QStringLiteral("Name") };
        const QString connection = QStringLiteral("Bankverbindung");
        const QString contacts = QStringLiteral("Ansprechpartner");
        const QString treasurer = QStringLiteral("Kassenwart");
        const QStringList frames { connection, connection, connection, contacts, contacts,
            treasurer };
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(CaptionOf(club.Bank(i)), bank[i]);
            QCOMPARE(FrameOf(club.Bank(i)), frames[i]);
        }
        QCOMPARE(CaptionOf(club.Control<QComboBox>("C1")), QStringLiteral("Anrede"));
        QCOMPARE(FrameOf(club.Control<QComboBox>("C1")), treasurer);

        QCOMPARE(club.Control<QPushButton>("Command5")->text(), QStringLiteral("Speichern"));
        QCOMPARE(FrameOf(club.Control<QPushButton>("Command5")), QStringLiteral("Kosten"));
        QCOMPARE(club.Control<QPushButton>("Command7")->text(), QStringLiteral("Speichern"));
    }

    void the_salutation_offers_two_texts_and_takes_any()
    {
        SettingsClub club;
        club.Open();
        auto* salutation = club.Control<QComboBox>("C1");
        QCOMPARE(salutation->count(), 2);
        QCOMPARE(salutation->itemText(0), QStringLiteral("Frau"));
        QCOMPARE(salutation->itemText(1), QStringLiteral("Herr"));
        QCOMPARE(salutation->currentText(), QStringLiteral("Frau"));
        Type(salutation->lineEdit(), QStringLiteral("Her"));
        QCOMPARE(salutation->currentText(), QStringLiteral("Her")); // nothing completes it
        QTest::keyClick(salutation->lineEdit(), Qt::Key_Return);
        QCOMPARE(salutation->count(), 2); // and nothing is added to the list
    }

    void the_heading_names_the_year()
    {
        SettingsClub club;
        club.Open(2016);
        QCOMPARE(
            club.Control<QLabel>("Label4")->text(), QStringLiteral("Preise für das Jahr 2016"));
    }

    void the_calendars_speak_german_and_begin_with_monday()
    {
        SettingsClub club;
        club.Open();
        for (const char* name : { "Calendar1", "Calendar2" }) {
            const auto* calendar = club.Control<QCalendarWidget>(name);
            QCOMPARE(calendar->locale().language(), QLocale::German);
            QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
            QCOMPARE(calendar->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
        }
    }

    void every_input_has_a_name_of_its_own_for_screen_readers()
    {
        SettingsClub club;
        club.Open();
        const QWidget* tab = club.program.Window.SSTab1->widget(settings_tab);
        QStringList names;
        const auto widgets = tab->findChildren<QWidget*>();
        for (const QWidget* widget : widgets) {
            const bool is_input = qobject_cast<const QLineEdit*>(widget) != nullptr
                || qobject_cast<const QComboBox*>(widget) != nullptr
                || qobject_cast<const QAbstractButton*>(widget) != nullptr
                || qobject_cast<const QCalendarWidget*>(widget) != nullptr;
            const bool is_part_of_an_input = qobject_cast<const QSpinBox*>(widget->parent())
                || qobject_cast<const QTableView*>(widget->parent());
            if (!is_input || is_part_of_an_input)
                continue;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const QString says = widget->accessibleName().isEmpty() && button != nullptr
                ? button->text()
                : widget->accessibleName();
            QVERIFY2(!says.isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(!names.contains(says), qPrintable(says));
            names += says;
        }
        QVERIFY(names.size() >= 22);
    }

    void the_tab_key_goes_through_the_fields_in_reading_order()
    {
        SettingsClub club;
        club.Open();
        const QStringList expected { QStringLiteral("Text4(0)"), QStringLiteral("Text4(1)"),
            QStringLiteral("Text4(2)"), QStringLiteral("Text4(3)"), QStringLiteral("Text4(4)"),
            QStringLiteral("Text4(5)"), QStringLiteral("Text4(6)"), QStringLiteral("Text4(7)"),
            QStringLiteral("Check1"), QStringLiteral("Check2"), QStringLiteral("Calendar1"),
            QStringLiteral("Calendar2"), QStringLiteral("Command5"), QStringLiteral("Text6(0)"),
            QStringLiteral("Text6(1)"), QStringLiteral("Text6(2)"), QStringLiteral("C1"),
            QStringLiteral("Text6(5)"), QStringLiteral("Text6(3)"), QStringLiteral("Text6(4)"),
            QStringLiteral("Command7") };
        QStringList met;
        const QWidget* first = club.Price(0);
        const QWidget* widget = first;
        do {
            if (expected.contains(widget->objectName()))
                met += widget->objectName();
            widget = widget->nextInFocusChain();
        } while (widget != first);
        QCOMPARE(met, expected);
        QCOMPARE(club.Price(8)->focusPolicy(), Qt::NoFocus);
    }

    void nobody_scrolls_sideways_in_a_small_window_with_large_letters()
    {
        const QFont normal = QApplication::font();
        QFont large = normal;
        large.setPointSize(16);
        QApplication::setFont(large);
        Program program; // the tab alone: the other tabs have widths of their own
        QWidget tab;
        BuildSettingsTab(program, &tab);
        tab.resize(1000, 560);
        tab.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tab));
        const auto* scroll = tab.findChild<QScrollArea*>();
        QCOMPARE(scroll->horizontalScrollBar()->maximum(), 0);
        QVERIFY(scroll->verticalScrollBar()->maximum() > 0);
        const SettingsForm& form = program.SettingsTab;
        const auto top = [scroll](const QWidget* control) {
            return control->mapTo(scroll->widget(), QPoint()).y();
        };
        QVERIFY(top(form.Text6[0]) > top(form.Command5));
        QVERIFY(top(form.Label7) > top(form.Check2));
        tab.resize(2500, 560);
        QVERIFY(top(form.Text6[0]) < top(form.Text4[1]));
        QVERIFY(top(form.Label7) < top(form.Text4[1]));
        QApplication::setFont(normal);
    }

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
            QCOMPARE(program.Settings.SavedPrices[i], prices[static_cast<int>(i)]);
        }
        QCOMPARE(program.Settings.SavedPrices[8], QString()); // the snapshot ends before the date
        QCOMPARE(program.Prices.BillingDate, QStringLiteral("15.11.2017"));
        QCOMPARE(program.Prices.PaymentDeadline, QStringLiteral("20.12.2017"));
        QCOMPARE(program.Prices.ElectricityPrepayment, qint16(1));
        for (std::size_t i = 0; i < 6; ++i) {
            QCOMPARE(BankText(program.Bank, i), bank[static_cast<int>(i)]);
            QCOMPARE(program.Settings.SavedBank[i], bank[static_cast<int>(i)]);
        }
        QCOMPARE(program.Bank.TreasurerSalutation, QStringLiteral("Frau"));
        QVERIFY(program.Settings.SettingsSaved);
        QVERIFY(!program.Settings.PricesEdited);
        QCOMPARE(club.Read(config), prices_2017);
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
        QVERIFY(!club.Exists(config));
        QVERIFY(!club.Exists(config1));
        QCOMPARE(club.Boxes.size(), 0);
    }

    void another_salutation_stays_when_the_file_is_missing_and_follows_it_when_it_is_there()
    {
        SettingsClub club;
        club.Write(config1, QByteArray(bank_data).replace("Anrede=Frau", "Anrede=Frau Dr."));
        club.Open();
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau Dr."));
        QFile::remove(club.Path(config1));
        LoadSettings(club.program);
        QCOMPARE(club.Control<QComboBox>("C1")->currentText(), QStringLiteral("Frau Dr."));
        QCOMPARE(club.BankTexts(), QStringList(6, QString()));
        club.Write(config1, "[Daten]\r\n");
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
        QCOMPARE(club.Read(config), bytes);

        LoadSettings(club.program); // the section has prices now: the levy is not read, it stays
        QCOMPARE(club.PriceTexts(), prices);
        QCOMPARE(club.Read(config), bytes);
        QVERIFY(club.program.Settings.SettingsSaved);
    }

    void another_year_without_prices_stays_empty_and_nothing_is_written()
    {
        SettingsClub club;
        club.Write(config, prices_2017);
        club.Open(2018, 2017);
        QCOMPARE(club.PriceTexts(), QStringList(9, QString()));
        QCOMPARE(club.Control<QLabel>("Label7")->text(), QString());
        QCOMPARE(club.Read(config), prices_2017);
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
        QVERIFY(club.Read(config).contains("RepUmlage=7,50\r\n"));
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
        QFile::remove(club.Path(config));
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), club.Path(config)));
        club.Write(config1, QByteArray(bank_data).replace("Volksbank", "Sparkasse"));
        LoadSettings(club.program);
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QCOMPARE(club.Boxes[0].title, QStringLiteral("Kleingarten Parzello"));
        QVERIFY(club.Boxes[0].detail.startsWith(QStringLiteral("Datei „Config.ini“: Es gelten")));
        QCOMPARE(club.Price(0)->text(), QStringLiteral("0,30"));
        QCOMPARE(club.program.Prices.ElectricityPrice, QStringLiteral("0,30"));
        QCOMPARE(club.Bank(0)->text(), QStringLiteral("Sparkasse Rotenfeld")); // the other half
        QFile::remove(club.Path(config));
    }

    void a_carry_over_that_cannot_be_written_is_reported_and_its_prices_are_in_force()
    {
        SettingsClub club;
        // Can be read, cannot be written, by nobody.
        QVERIFY(QFile::link(QStringLiteral("/proc/version"), club.Path(config)));
        club.Open();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[0].detail.contains(QStringLiteral("Die Preise des Vorjahres gelten")));
        QCOMPARE(club.Price(8)->text(), QStringLiteral("Bitte aktualisieren"));
        QCOMPARE(club.program.Prices.BillingDate, QStringLiteral("Bitte aktualisieren"));
        QFile::remove(club.Path(config));
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
        QCOMPARE(club.Read(config), prices_2017);
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

    // Saving

    void saving_prices_writes_redraws_and_tells()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Price(0), QStringLiteral("0,35"));
        Type(club.Price(7), QStringLiteral("5,00"));
        club.Control<QCheckBox>("Check2")->click();
        club.Control<QPushButton>("Command5")->click();
        QByteArray expected = prices_2017;
        expected.replace("Stromkosten=0,30", "Stromkosten=0,35");
        expected.replace("Wasser=0\r\n", "Wasser=1\r\n");
        QCOMPARE(club.Read(config), expected);
        const Program& program = club.program;
        QCOMPARE(program.Prices.ElectricityPrice, QStringLiteral("0,35"));
        QCOMPARE(program.Prices.RepairLevy, QStringLiteral("5,00"));
        QCOMPARE(program.Prices.WaterPrepayment, qint16(1));
        QCOMPARE(program.Settings.SavedPrices[0], QStringLiteral("0,35"));
        QCOMPARE(program.Settings.SavedPrices[7], QStringLiteral("5,00"));
        QVERIFY(program.Settings.SettingsSaved);
        QVERIFY(!program.Settings.PricesEdited);
        QCOMPARE(club.BoxTexts(), QStringList { saved_box });
        QCOMPARE(club.Boxes[0].buttons, BoxButtons::Ok);
        QCOMPARE(club.Read(config1), bank_data);
    }

    void a_first_save_creates_the_file_with_the_repair_levy_in_front()
    {
        SettingsClub club;
        club.Open();
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(config).startsWith(
            "[2017]\r\nRepUmlage=0,00\r\nStromkosten=0,00\r\nWasserkosten=0,00\r\n"));
        QVERIFY(club.Read(config).endsWith("Abrechnungsdatum=\r\n\xdc"
                                           "berweisdatum=0,00\r\nVorauszahlung Strom=0\r\n"
                                           "Vorauszahlung Wasser=0\r\n"));
    }

    void saving_without_picking_writes_the_dates_in_memory()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("year-change"));
        club.Open();
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(config).contains("Abrechnungsdatum=Bitte aktualisieren\r\n\xdc"
                                           "berweisdatum=Bitte aktualisieren\r\n"));
        PickBillingDate(club.program, QDate(2017, 11, 15));
        PickPaymentDeadline(club.program, QDate(2017, 12, 20));
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(config).contains("Abrechnungsdatum=15.11.2017\r\n\xdc"
                                           "berweisdatum=20.12.2017\r\n"));
    }

    void a_save_keeps_last_years_prices_in_memory()
    {
        SettingsClub club;
        club.Write(config, prices_2017);
        club.Open(2018, 2018);
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(club.program.Prices.PreviousElectricityPrice, QStringLiteral("0,30"));
        QCOMPARE(club.program.Prices.PreviousWaterPrice, QStringLiteral("2,20"));
    }

    void saving_bank_data_writes_seven_keys_and_tells()
    {
        SettingsClub club;
        club.Open();
        const QStringList typed { QStringLiteral("Volksbank Rotenfeld"),
            QStringLiteral("DE00 1234"), QStringLiteral("ROTFDE00XXX"),
            QStringLiteral("Meier,Anna"), QStringLiteral("Sommer,Käthe"),
            QStringLiteral("Renate Noack") };
        for (int i = 0; i < 6; ++i)
            Type(club.Bank(i), typed[i]);
        club.Control<QPushButton>("Command7")->click();
        QCOMPARE(club.Read(config1), bank_data);
        for (std::size_t i = 0; i < 6; ++i) {
            QCOMPARE(BankText(club.program.Bank, i), typed[static_cast<int>(i)]);
            QCOMPARE(club.program.Settings.SavedBank[i], typed[static_cast<int>(i)]);
        }
        QCOMPARE(club.program.Bank.TreasurerSalutation, QStringLiteral("Frau"));
        QVERIFY(club.program.Settings.SettingsSaved);
        QCOMPARE(club.BoxTexts(), QStringList { saved_box });
        QVERIFY(!club.Exists(config));
    }

    void bank_data_are_the_same_in_every_year()
    {
        SettingsClub club;
        club.OpenWithData();
        const QStringList before = club.BankTexts();
        club.program.Year.YearText = QStringLiteral("2016");
        LoadSettings(club.program);
        QCOMPARE(club.BankTexts(), before);
    }

    void a_save_that_fails_is_reported_and_everything_stays_unsaved()
    {
        SettingsClub club;
        club.Open();
        BlockFile(club, config);
        BlockFile(club, config1);
        Type(club.Price(0), QStringLiteral("0,35"));
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[0].detail.startsWith(QStringLiteral("Datei „Config.ini“: ")));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QVERIFY(club.program.Settings.PricesEdited);
        QCOMPARE(club.program.Prices.ElectricityPrice, QStringLiteral("0,00"));
        QCOMPARE(club.program.Settings.SavedPrices[0], QStringLiteral("0,00"));
        QCOMPARE(club.Price(0)->text(), QStringLiteral("0,35"));

        Type(club.Bank(0), QStringLiteral("Sparkasse"));
        club.Control<QPushButton>("Command7")->click();
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[1].detail.startsWith(QStringLiteral("Datei „Config1.ini“: ")));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QCOMPARE(club.program.Bank.BankName, QString());
        QCOMPARE(club.program.Settings.SavedBank[0], QString());
    }

    void the_salutation_alone_is_written_only_when_it_differs()
    {
        SettingsClub club;
        club.OpenWithData();
        QFile::remove(club.Path(config1));
        SaveSalutation(club.program);
        QVERIFY(!club.Exists(config1));
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        SaveSalutation(club.program);
        QCOMPARE(club.Read(config1), QByteArray("[Daten]\r\nAnrede=Herr\r\n"));
        QCOMPARE(club.program.Bank.TreasurerSalutation, QStringLiteral("Herr"));
        QCOMPARE(club.Boxes.size(), 0);
    }

    // Putting back, and the questions on leaving the tab

    void putting_back_restores_texts_and_boxes_but_no_empty_texts_and_no_dates()
    {
        SettingsClub club;
        club.OpenWithData();
        for (int i = 0; i < 8; ++i)
            Type(club.Price(i), QStringLiteral("9"));
        for (int i = 0; i < 6; ++i)
            Type(club.Bank(i), QStringLiteral("x"));
        club.Control<QCheckBox>("Check1")->click();
        club.Control<QCheckBox>("Check2")->click();
        PickPaymentDeadline(club.program, QDate(2017, 12, 24));
        club.program.CashBook.LedgerChanged = true;
        RestoreSettingsFields(club.program);
        const QStringList prices { QStringLiteral("0,30"), QStringLiteral("2,20"),
            QStringLiteral("10,00"), QStringLiteral("36,00"), QStringLiteral("0,08"),
            QStringLiteral("0,02"), QStringLiteral("0,03"),
            QStringLiteral("9"), // its saved text is empty
            QStringLiteral("24.12.2017") };
        QCOMPARE(club.PriceTexts(), prices);
        QCOMPARE(club.Bank(0)->text(), QStringLiteral("Volksbank Rotenfeld"));
        QCOMPARE(club.Bank(5)->text(), QStringLiteral("Renate Noack"));
        QVERIFY(club.Control<QCheckBox>("Check1")->isChecked());
        QVERIFY(!club.Control<QCheckBox>("Check2")->isChecked());
        QVERIFY(!club.program.CashBook.LedgerChanged);
        QVERIFY(!club.program.Settings.PricesEdited);
    }

    void leaving_after_picking_a_date_asks_and_yes_saves_it()
    {
        SettingsClub club;
        club.OpenWithData();
        PickBillingDate(club.program, QDate(2017, 11, 3));
        TabChanged(club.program, members_tab);
        const QStringList expected { price_question, saved_box };
        QCOMPARE(club.BoxTexts(), expected);
        QVERIFY(club.Read(config).contains("Abrechnungsdatum=03.11.2017\r\n"));
    }

    void leaving_after_a_new_salutation_asks_and_yes_writes_it()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        TabChanged(club.program, members_tab);
        const QStringList expected { price_question, saved_box };
        QCOMPARE(club.BoxTexts(), expected);
        QCOMPARE(club.Read(config1), QByteArray(bank_data).replace("Frau", "Herr"));
    }

    void leaving_after_a_bank_edit_asks_the_bank_question_only()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Bank(1), QStringLiteral("DE99"));
        club.Answers = { BoxAnswer::No };
        TabChanged(club.program, members_tab);
        QCOMPARE(club.BoxTexts(), QStringList { bank_question });
        QCOMPARE(club.Bank(1)->text(), QStringLiteral("DE00 1234"));
        QCOMPARE(club.Read(config1), bank_data);
    }

    void a_saved_salutation_does_not_turn_a_later_bank_edit_into_a_price_edit()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        club.Control<QPushButton>("Command7")->click();
        Type(club.Bank(1), QStringLiteral("DE99"));
        TabChanged(club.program, members_tab);
        const QStringList expected { saved_box, bank_question, saved_box };
        QCOMPARE(club.BoxTexts(), expected);
    }

    // Marks

    void what_differs_from_the_saved_texts_is_tinted_and_marked()
    {
        SettingsClub club;
        club.OpenWithData();
        const auto* prices_mark = club.Control<QLabel>("PricesMark");
        const auto* bank_mark = club.Control<QLabel>("BankMark");
        QVERIFY(prices_mark->isHidden());
        QVERIFY(bank_mark->isHidden());
        QCOMPARE(prices_mark->text(), QStringLiteral("Nicht gespeichert"));

        Type(club.Price(1), QStringLiteral("2,50"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::Unsaved);
        QCOMPARE(TintOf(club.Price(0)), TintKind::None);
        QVERIFY(!prices_mark->isHidden());
        QVERIFY(bank_mark->isHidden());
        Type(club.Price(1), QStringLiteral("zwei"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::Wrong);
        Type(club.Price(1), QStringLiteral("2,20"));
        QCOMPARE(TintOf(club.Price(1)), TintKind::None);
        QVERIFY(prices_mark->isHidden());

        Type(club.Bank(2), QStringLiteral("X"));
        QCOMPARE(TintOf(club.Bank(2)), TintKind::Unsaved);
        QVERIFY(!bank_mark->isHidden());
        club.Control<QPushButton>("Command7")->click();
        QCOMPARE(TintOf(club.Bank(2)), TintKind::None);
        QVERIFY(bank_mark->isHidden());
    }

    void boxes_dates_and_salutation_are_marked_too_until_they_are_saved()
    {
        SettingsClub club;
        club.OpenWithData();
        const auto* prices_mark = club.Control<QLabel>("PricesMark");
        club.Control<QCheckBox>("Check2")->click();
        QCOMPARE(TintOf(club.Control<QCheckBox>("Check2")), TintKind::Unsaved);
        club.Control<QCheckBox>("Check2")->click();
        QVERIFY(prices_mark->isHidden());
        PickPaymentDeadline(club.program, QDate(2017, 12, 24));
        PickBillingDate(club.program, QDate(2017, 12, 1));
        QCOMPARE(TintOf(club.Price(8)), TintKind::Unsaved);
        QCOMPARE(TintOf(club.Control<QLabel>("Label7")), TintKind::Unsaved);
        QVERIFY(!prices_mark->isHidden());
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(TintOf(club.Price(8)), TintKind::None);
        QVERIFY(prices_mark->isHidden());

        auto* salutation = club.Control<QComboBox>("C1");
        QTest::keyClick(salutation, Qt::Key_Down);
        QCOMPARE(TintOf(salutation->lineEdit()), TintKind::Unsaved);
        QVERIFY(!club.Control<QLabel>("BankMark")->isHidden());
    }

    void a_date_that_is_to_be_updated_is_tinted()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("year-change"));
        club.Open();
        QCOMPARE(TintOf(club.Price(8)), TintKind::Wrong);
        QCOMPARE(TintOf(club.Control<QLabel>("Label7")), TintKind::Wrong);
        PickPaymentDeadline(club.program, QDate(2017, 12, 20));
        QCOMPARE(TintOf(club.Price(8)), TintKind::Unsaved);
    }

    // Contacts

    void contacts_complete_from_the_name_list()
    {
        SettingsClub club;
        club.OpenWithData();
        const QStringList names { QStringLiteral("Meier,Anna"), QStringLiteral("Sommer,Käthe") };
        club.program.Members.NameList = names;
        OfferContactNames(club.program);
        for (int i = 3; i <= 4; ++i) {
            QCompleter* completer = club.Bank(i)->completer();
            QVERIFY(completer != nullptr);
            completer->setCompletionPrefix(QStringLiteral("somm"));
            QCOMPARE(completer->completionCount(), 1);
            QCOMPARE(completer->currentCompletion(), names[1]);
        }
        QCOMPARE(club.Bank(5)->completer(), nullptr);
        QVERIFY(club.program.Settings.SettingsSaved);
        Q_EMIT club.Bank(3)->completer()->activated(names[0]); // chosen from the list
        QVERIFY(!club.program.Settings.SettingsSaved);
    }

    void a_contact_whom_the_bill_would_not_find_is_tinted()
    {
        SettingsClub club;
        club.OpenWithData();
        QCOMPARE(TintOf(club.Bank(3)), TintKind::None); // no members yet: nobody is unknown
        club.program.Members.NameList = { QStringLiteral("Meier,Anna") };
        OfferContactNames(club.program);
        QCOMPARE(TintOf(club.Bank(3)), TintKind::None);
        QCOMPARE(TintOf(club.Bank(4)), TintKind::Wrong);
        Type(club.Bank(3), QStringLiteral("Meier, Anna")); // the blank makes it another name
        QCOMPARE(TintOf(club.Bank(3)), TintKind::Wrong);
        Type(club.Bank(4), QString());
        QCOMPARE(TintOf(club.Bank(4)), TintKind::Unsaved); // nobody at all is no mistake
    }
};

QTEST_MAIN(TestSettingsForm)
#include "test_settings_form.moc"
