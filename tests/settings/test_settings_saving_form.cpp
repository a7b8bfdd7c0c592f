// The two buttons "Speichern" of the tab "Einstellungen", putting back, the questions on leaving
// it.
#include "tests/support/settings_club.h"
#include "tests/support/test_file.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace {

const QString price_question
    = QStringLiteral("Hinweis: Sie haben die Werte in den Einstellungen geändert. Sollen die "
                     "Änderungen gespeichert werden ?");
const QString bank_question
    = QStringLiteral("Hinweis: Sie haben die Bankverbindung oder Namen in den Einstellungen "
                     "geändert. Sollen die Änderungen gespeichert werden ?");

/// True when a text that stands on every bill holds these words.
bool BillShows(const Program& program, const QString& words)
{
    for (const PageItem& item : program.Statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        if (text != nullptr && text->text.contains(words))
            return true;
    }
    return false;
}

/// Puts a folder where the file should be: writing it must fail.
void BlockFile(const SettingsClub& club, const QString& name)
{
    QFile::remove(club.Path(name));
    QVERIFY(QDir().mkdir(club.Path(name)));
}

} // namespace

class TestSettingsSavingForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Saving

    void saving_prices_writes_redraws_and_tells()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Price(0), QStringLiteral("0,35"));
        Type(club.Price(7), QStringLiteral("5,00"));
        club.Control<QCheckBox>("Check2")->click();
        club.Control<QPushButton>("Command5")->click();
        QByteArray expected = Prices2017;
        expected.replace("Stromkosten=0,30", "Stromkosten=0,35");
        expected.replace("Wasser=0\r\n", "Wasser=1\r\n");
        QCOMPARE(club.Read(PriceFile), expected);
        const Program& program = club.program;
        QCOMPARE(program.Prices.ElectricityPrice, QStringLiteral("0,35"));
        QCOMPARE(program.Prices.RepairLevy, QStringLiteral("5,00"));
        QCOMPARE(program.Prices.WaterPrepayment, qint16(1));
        QCOMPARE(program.Settings.SavedPrices.ElectricityPrice, QStringLiteral("0,35"));
        QCOMPARE(program.Settings.SavedPrices.RepairLevy, QStringLiteral("5,00"));
        QVERIFY(program.Settings.SettingsSaved);
        QVERIFY(!program.Settings.PricesEdited);
        QCOMPARE(club.BoxTexts(), QStringList { SavedBox });
        QCOMPARE(club.Boxes[0].buttons, BoxButtons::Ok);
        QCOMPARE(club.Read(BankFile), BankData);
    }

    void a_first_save_creates_the_file_with_the_repair_levy_in_front()
    {
        SettingsClub club;
        club.Open();
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(PriceFile).startsWith(
            "[2017]\r\nRepUmlage=0,00\r\nStromkosten=0,00\r\nWasserkosten=0,00\r\n"));
        QVERIFY(club.Read(PriceFile).endsWith("Abrechnungsdatum=\r\n\xdc"
                                              "berweisdatum=0,00\r\nVorauszahlung Strom=0\r\n"
                                              "Vorauszahlung Wasser=0\r\n"));
    }

    void saving_without_picking_writes_the_dates_in_memory()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("year-change"));
        club.Open();
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(PriceFile).contains("Abrechnungsdatum=Bitte aktualisieren\r\n\xdc"
                                              "berweisdatum=Bitte aktualisieren\r\n"));
        PickBillingDate(club.program, QDate(2017, 11, 15));
        PickPaymentDeadline(club.program, QDate(2017, 12, 20));
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(club.Read(PriceFile).contains("Abrechnungsdatum=15.11.2017\r\n\xdc"
                                              "berweisdatum=20.12.2017\r\n"));
    }

    void a_save_keeps_last_years_prices_in_memory()
    {
        SettingsClub club;
        club.Write(PriceFile, Prices2017);
        club.Open(2018, 2018);
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(club.program.Prices.PreviousElectricityPrice, QStringLiteral("0,30"));
        QCOMPARE(club.program.Prices.PreviousWaterPrice, QStringLiteral("2,20"));
    }

    void saving_BankData_writes_seven_keys_and_tells()
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
        QCOMPARE(club.Read(BankFile), BankData);
        for (std::size_t i = 0; i < 6; ++i) {
            QCOMPARE(BankText(club.program.Bank, i), typed[static_cast<int>(i)]);
            QCOMPARE(BankText(club.program.Settings.SavedBank, i), typed[static_cast<int>(i)]);
        }
        QCOMPARE(club.program.Bank.TreasurerSalutation, QStringLiteral("Frau"));
        QVERIFY(club.program.Settings.SettingsSaved);
        QCOMPARE(club.BoxTexts(), QStringList { SavedBox });
        QVERIFY(!club.Exists(PriceFile));
    }

    void BankData_are_the_same_in_every_year()
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
        BlockFile(club, PriceFile);
        BlockFile(club, BankFile);
        Type(club.Price(0), QStringLiteral("0,35"));
        club.Control<QPushButton>("Command5")->click();
        QCOMPARE(club.Boxes.size(), 1);
        QCOMPARE(club.Boxes[0].icon, BoxIcon::Error);
        QVERIFY(club.Boxes[0].detail.startsWith(QStringLiteral("Datei „Config.ini“: ")));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QVERIFY(club.program.Settings.PricesEdited);
        QCOMPARE(club.program.Prices.ElectricityPrice, QStringLiteral("0,00"));
        QCOMPARE(club.program.Settings.SavedPrices.ElectricityPrice, QStringLiteral("0,00"));
        QCOMPARE(club.Price(0)->text(), QStringLiteral("0,35"));

        Type(club.Bank(0), QStringLiteral("Sparkasse"));
        club.Control<QPushButton>("Command7")->click();
        QCOMPARE(club.Boxes.size(), 2);
        QVERIFY(club.Boxes[1].detail.startsWith(QStringLiteral("Datei „Config1.ini“: ")));
        QVERIFY(!club.program.Settings.SettingsSaved);
        QCOMPARE(club.program.Bank.BankName, QString());
        QCOMPARE(club.program.Settings.SavedBank.BankName, QString());
    }

    void the_salutation_alone_is_written_only_when_it_differs()
    {
        SettingsClub club;
        club.OpenWithData();
        QFile::remove(club.Path(BankFile));
        SaveSalutation(club.program);
        QVERIFY(!club.Exists(BankFile));
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        SaveSalutation(club.program);
        QCOMPARE(club.Read(BankFile), QByteArray("[Daten]\r\nAnrede=Herr\r\n"));
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
        TabChanged(club.program, MembersTab);
        const QStringList expected { price_question, SavedBox };
        QCOMPARE(club.BoxTexts(), expected);
        QVERIFY(club.Read(PriceFile).contains("Abrechnungsdatum=03.11.2017\r\n"));
    }

    void leaving_after_a_new_salutation_asks_and_yes_writes_it()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        TabChanged(club.program, MembersTab);
        const QStringList expected { price_question, SavedBox };
        QCOMPARE(club.BoxTexts(), expected);
        QCOMPARE(club.Read(BankFile), QByteArray(BankData).replace("Frau", "Herr"));
    }

    void leaving_after_a_bank_edit_asks_the_bank_question_only()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Bank(1), QStringLiteral("DE99"));
        club.Answers = { BoxAnswer::No };
        TabChanged(club.program, MembersTab);
        QCOMPARE(club.BoxTexts(), QStringList { bank_question });
        QCOMPARE(club.Bank(1)->text(), QStringLiteral("DE00 1234"));
        QCOMPARE(club.Read(BankFile), BankData);
    }

    void a_saved_salutation_does_not_turn_a_later_bank_edit_into_a_price_edit()
    {
        SettingsClub club;
        club.OpenWithData();
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herr"));
        club.Control<QPushButton>("Command7")->click();
        Type(club.Bank(1), QStringLiteral("DE99"));
        TabChanged(club.program, MembersTab);
        const QStringList expected { SavedBox, bank_question, SavedBox };
        QCOMPARE(club.BoxTexts(), expected);
    }

    // The whole program

    void saved_prices_show_on_the_bills_at_once()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const QStringList totals = club.program.Statement.StatementTotals;
        QVERIFY(BillShows(club.program, QStringLiteral("0,30")));
        Type(club.Price(0), QStringLiteral("0,3555"));
        QCOMPARE(club.program.Statement.StatementTotals, totals); // not before they are saved
        club.Control<QPushButton>("Command5")->click();
        QVERIFY(BillShows(club.program, QStringLiteral("0,3555")));
        QCOMPARE(club.program.Statement.StatementTotals.size(), totals.size());
        QVERIFY(club.program.Statement.StatementTotals != totals);
    }

    void saved_bank_data_show_on_the_bills_and_above_the_ledger_at_once()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        const QString title = club.Control<QLabel>("Label21")->text();
        QVERIFY(title.endsWith(QStringLiteral(" Volksbank Rotenfeld")));
        Type(club.Bank(0), QStringLiteral("Sparkasse Wiesenrode"));
        QCOMPARE(club.Control<QLabel>("Label21")->text(), title);
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herrn"));
        club.Control<QPushButton>("Command7")->click();
        QVERIFY(club.Control<QLabel>("Label21")->text().endsWith(
            QStringLiteral(" Sparkasse Wiesenrode")));
        QVERIFY(BillShows(club.program, QStringLiteral("Sparkasse Wiesenrode")));
        QVERIFY(BillShows(club.program, QStringLiteral("Herrn Renate Noack")));
    }

    void a_salutation_saved_by_the_question_shows_on_the_bills()
    {
        SettingsClub club;
        club.CopyExample(QStringLiteral("ordinary-year"));
        club.Start({ 2017, 11, 20 });
        Type(club.Control<QComboBox>("C1")->lineEdit(), QStringLiteral("Herrn"));
        TabChanged(club.program, MembersTab);
        QVERIFY(BillShows(club.program, QStringLiteral("Herrn Renate Noack")));
    }
};

const TestFile<TestSettingsSavingForm> test_file(__FILE__);
#include "test_settings_saving_form.moc"
