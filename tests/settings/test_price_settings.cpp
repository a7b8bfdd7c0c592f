// The yearly prices in "\Config.ini": keys and their order, what is read and what is not, and the
// carry-over into a new year.
#include "settings/price_settings.h"

#include "data/file_names.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int start_up_year = 2017;

const QByteArray section_2016("[2016]\r\n"
                              "RepUmlage=5,00\r\n"
                              "Stromkosten=0,29\r\n"
                              "Wasserkosten=2,15\r\n"
                              "Energiepauschale=9,00\r\n"
                              "Beitrag=36,00\r\n"
                              "Pacht=0,08\r\n"
                              "Steuer=0,01\r\n"
                              "Fl\xe4"
                              "che=0,02\r\n"
                              "Abrechnungsdatum=15.11.2016\r\n"
                              "\xdc"
                              "berweisdatum=20.12.2016\r\n"
                              "Vorauszahlung Strom=1\r\n"
                              "Vorauszahlung Wasser=0\r\n");

const QByteArray carried_over_2017("[2017]\r\n"
                                   "Stromkosten=0,29\r\n"
                                   "Wasserkosten=2,15\r\n"
                                   "Energiepauschale=9,00\r\n"
                                   "Beitrag=36,00\r\n"
                                   "Pacht=0,08\r\n"
                                   "Steuer=0,01\r\n"
                                   "Fl\xe4"
                                   "che=0,02\r\n"
                                   "Abrechnungsdatum=Bitte aktualisieren\r\n"
                                   "\xdc"
                                   "berweisdatum=Bitte aktualisieren\r\n");

PriceSettings PricesOf2016()
{
    PriceSettings prices;
    prices.ElectricityPrice = QStringLiteral("0,29");
    prices.WaterPrice = QStringLiteral("2,15");
    prices.FlatEnergyCharge = QStringLiteral("9,00");
    prices.MembershipFee = QStringLiteral("36,00");
    prices.Lease = QStringLiteral("0,08");
    prices.PropertyTax = QStringLiteral("0,01");
    prices.AreaContribution = QStringLiteral("0,02");
    prices.RepairLevy = QStringLiteral("5,00");
    prices.BillingDate = QStringLiteral("15.11.2016");
    prices.PaymentDeadline = QStringLiteral("20.12.2016");
    prices.ElectricityPrepayment = 1;
    return prices;
}

QStringList FieldTexts(const PriceSettings& prices)
{
    QStringList texts;
    for (std::size_t i = 0; i <= DeadlineField; ++i)
        texts += PriceText(prices, i);
    return texts;
}

const QString year_2016 = QStringLiteral("2016");
const QString year_2017 = QStringLiteral("2017");

} // namespace

class TestPriceSettings : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    DataFiles m_files;

    QString Path() const { return m_files.DataDirectory + QStringLiteral("/Config.ini"); }

    void Write(const QByteArray& bytes) const { RewriteFile(m_files, PriceSettingsFile, bytes); }

    QByteArray Read() const
    {
        return FileExists(m_files, PriceSettingsFile) ? ReadBytes(m_files, PriceSettingsFile)
                                                      : QByteArray("<none>");
    }

    PriceSettings Load(const QString& year, const PriceSettings& shown = {}) const
    {
        return ReadPrices(m_files, year, start_up_year, shown).Prices;
    }

private Q_SLOTS:
    void init()
    {
        QDir folder(m_folder.path());
        folder.mkdir(QStringLiteral("daten"));
        folder.mkdir(QStringLiteral("state"));
        m_files.DataDirectory = folder.filePath(QStringLiteral("daten"));
        m_files.StateDirectory = folder.filePath(QStringLiteral("state"));
        QFile::remove(Path());
    }

    void a_save_writes_twelve_keys_with_the_repair_levy_first()
    {
        WritePrices(m_files, year_2016, PricesOf2016());
        QCOMPARE(Read(), section_2016);
    }

    void a_save_changes_only_the_section_of_its_year()
    {
        const QByteArray old("; Preise\r\n[2015]\r\nStromkosten=0,25\r\n\r\n[2014]\nPacht=1\n");
        Write(old);
        WritePrices(m_files, year_2016, PricesOf2016());
        QCOMPARE(Read(), old + section_2016);
        PriceSettings changed = PricesOf2016();
        changed.Lease = QStringLiteral("0,09");
        changed.WaterPrepayment = 1;
        WritePrices(m_files, year_2016, changed);
        QByteArray expected = old + section_2016;
        expected.replace("Pacht=0,08", "Pacht=0,09");
        expected.replace("Vorauszahlung Wasser=0", "Vorauszahlung Wasser=1");
        QCOMPARE(Read(), expected);
    }

    void any_text_is_saved_as_it_stands()
    {
        PriceSettings typed;
        typed.ElectricityPrice = QStringLiteral("zwölf; [x]=\"€\"");
        WritePrices(m_files, year_2016, typed);
        QVERIFY(Read().contains("Stromkosten=zw\xf6lf; [x]=\"\x80\"\r\n"));
        QCOMPARE(Load(year_2016).ElectricityPrice, typed.ElectricityPrice);
    }

    void saved_values_are_loaded_into_their_fields()
    {
        Write(section_2016);
        const PriceSettings loaded = Load(year_2016);
        const QStringList expected { QStringLiteral("0,29"), QStringLiteral("2,15"),
            QStringLiteral("9,00"), QStringLiteral("36,00"), QStringLiteral("0,08"),
            QStringLiteral("0,01"), QStringLiteral("0,02"), QString(),
            QStringLiteral("20.12.2016") };
        QCOMPARE(FieldTexts(loaded), expected);
        QCOMPARE(loaded.BillingDate, QStringLiteral("15.11.2016"));
        QCOMPARE(loaded.ElectricityPrepayment, qint16(1));
        QCOMPARE(loaded.WaterPrepayment, qint16(0));
        QCOMPARE(Read(), section_2016); // loading writes nothing
    }

    void the_repair_levy_is_not_read_and_stays_as_shown()
    {
        Write(section_2016);
        PriceSettings shown;
        shown.RepairLevy = QStringLiteral("7,77");
        QCOMPARE(Load(year_2016, shown).RepairLevy, QStringLiteral("7,77"));
    }

    void without_the_file_every_field_reads_zero_and_nothing_is_prepaid()
    {
        const LoadedPrices loaded = ReadPrices(m_files, year_2017, start_up_year, PricesOf2016());
        for (const QString& text : FieldTexts(loaded.Prices))
            QCOMPARE(text, QStringLiteral("0,00"));
        QCOMPARE(FieldTexts(loaded.Prices).size(), 9);
        QCOMPARE(loaded.Prices.BillingDate, QStringLiteral("15.11.2016")); // as shown before
        QCOMPARE(loaded.Prices.ElectricityPrepayment, qint16(0));
        QCOMPARE(loaded.Prices.WaterPrepayment, qint16(0));
        QCOMPARE(loaded.Prices.PreviousElectricityPrice, QString());
        QCOMPARE(loaded.Prices.PreviousWaterPrice, QString());
        QVERIFY(!loaded.CarriedOver);
        QCOMPARE(Read(), QByteArray("<none>"));
    }

    void last_years_prices_of_electricity_and_water_are_read()
    {
        Write(section_2016 + "[2017]\r\nStromkosten=0,31\r\n");
        const PriceSettings loaded = Load(year_2017);
        QCOMPARE(loaded.PreviousElectricityPrice, QStringLiteral("0,29"));
        QCOMPARE(loaded.PreviousWaterPrice, QStringLiteral("2,15"));
        QCOMPARE(loaded.ElectricityPrice, QStringLiteral("0,31"));
        QCOMPARE(loaded.WaterPrice, QString());
    }

    void a_prepayment_counts_only_when_it_is_exactly_1_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<int>("flag");
        QTest::newRow("1") << QByteArray("1") << 1;
        QTest::newRow("0") << QByteArray("0") << 0;
        QTest::newRow("-1") << QByteArray("-1") << 0;
        QTest::newRow("01") << QByteArray("01") << 0;
        QTest::newRow("11") << QByteArray("11") << 0;
        QTest::newRow("Wahr") << QByteArray("Wahr") << 0;
        QTest::newRow("empty") << QByteArray() << 0;
    }

    void a_prepayment_counts_only_when_it_is_exactly_1()
    {
        QFETCH(QByteArray, stored);
        QFETCH(int, flag);
        Write("[2016]\r\nVorauszahlung Strom=" + stored + "\r\nVorauszahlung Wasser=" + stored
            + "\r\n");
        QCOMPARE(int(Load(year_2016).ElectricityPrepayment), flag);
        QCOMPARE(int(Load(year_2016).WaterPrepayment), flag);
    }

    void a_start_up_year_without_electricity_price_takes_over_last_years_prices()
    {
        Write(section_2016);
        const LoadedPrices loaded = ReadPrices(m_files, year_2017, start_up_year, {});
        QVERIFY(loaded.CarriedOver);
        PriceSettings expected = PricesOf2016();
        expected.BillingDate = QStringLiteral("Bitte aktualisieren");
        expected.PaymentDeadline = QStringLiteral("Bitte aktualisieren");
        QCOMPARE(FieldTexts(loaded.Prices), FieldTexts(expected));
        QCOMPARE(loaded.Prices.RepairLevy, QStringLiteral("5,00")); // only here is it read again
        QCOMPARE(loaded.Prices.BillingDate, expected.BillingDate);
        QCOMPARE(loaded.Prices.ElectricityPrepayment, qint16(0)); // the meeting votes every year
    }

    void a_carry_over_writes_seven_prices_and_both_dates()
    {
        Write(section_2016);
        WriteCarriedOver(
            m_files, year_2017, ReadPrices(m_files, year_2017, start_up_year, {}).Prices);
        QCOMPARE(Read(), section_2016 + carried_over_2017);
    }

    void a_carry_over_replaces_what_the_new_section_holds_besides()
    {
        Write(section_2016 + "[2017]\r\nPacht=9\r\nVorauszahlung Wasser=1\r\nx=y\r\n");
        const LoadedPrices loaded = ReadPrices(m_files, year_2017, start_up_year, {});
        QVERIFY(loaded.CarriedOver);
        QCOMPARE(loaded.Prices.Lease, QStringLiteral("0,08"));
        QCOMPARE(loaded.Prices.WaterPrepayment, qint16(1)); // read, and not part of the carry-over
        WriteCarriedOver(m_files, year_2017, loaded.Prices);
        QVERIFY(Read().startsWith(section_2016
            + "[2017]\r\nPacht=0,08\r\nVorauszahlung Wasser=1\r\nx=y\r\nStromkosten=0,29\r\n"));
    }

    void any_other_year_without_prices_stays_empty()
    {
        Write(section_2016);
        const QString other = QStringLiteral("2018");
        const LoadedPrices loaded = ReadPrices(m_files, other, start_up_year, {});
        QVERIFY(!loaded.CarriedOver);
        for (const QString& text : FieldTexts(loaded.Prices))
            QCOMPARE(text, QString());
        QCOMPARE(loaded.Prices.BillingDate, QString());
    }

    void a_start_up_year_with_an_electricity_price_takes_over_nothing()
    {
        Write(section_2016 + "[2017]\r\nStromkosten=0,00\r\n");
        const LoadedPrices loaded = ReadPrices(m_files, year_2017, start_up_year, {});
        QVERIFY(!loaded.CarriedOver);
        QCOMPARE(loaded.Prices.WaterPrice, QString());
    }

    void a_file_that_cannot_be_read_is_reported()
    {
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), Path())); // reading it fails
        QVERIFY_THROWS_EXCEPTION(RuntimeError, Load(year_2016));
        QFile::remove(Path());
    }
};

const TestFile<TestPriceSettings> test_file(__FILE__);
#include "test_price_settings.moc"
