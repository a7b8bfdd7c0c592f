// Bank, treasurer and contacts in "\Config1.ini": keys, their order, what a missing file means.
#include "settings/bank_settings.h"

#include "data/file_names.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray stored("[Daten]\r\n"
                        "Bankname=Sparkasse S\xfc"
                        "d\r\n"
                        "BLZ=DE00 1234 5678\r\n"
                        "Kontonummer=GENODEF1XXX\r\n"
                        "Name1=Kr\xfcger,Heinz\r\n"
                        "Name2=Sommer,K\xe4the\r\n"
                        "Name=Renate Noack\r\n"
                        "Anrede=Herr\r\n");

BankSettings Typed()
{
    BankSettings bank;
    bank.BankName = QStringLiteral("Sparkasse Süd");
    bank.Iban = QStringLiteral("DE00 1234 5678");
    bank.Bic = QStringLiteral("GENODEF1XXX");
    bank.FirstContact = QStringLiteral("Krüger,Heinz");
    bank.SecondContact = QStringLiteral("Sommer,Käthe");
    bank.TreasurerName = QStringLiteral("Renate Noack");
    bank.TreasurerSalutation = QStringLiteral("Herr");
    return bank;
}

QStringList Texts(const BankSettings& bank)
{
    QStringList texts;
    for (std::size_t i = 0; i < BankFieldCount; ++i)
        texts += BankText(bank, i);
    return texts + QStringList { bank.TreasurerSalutation };
}

} // namespace

class TestBankSettings : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    DataFiles m_files;

    QString Path() const { return m_files.DataDirectory + QStringLiteral("/Config1.ini"); }

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

    void a_save_writes_seven_keys_iban_as_blz_and_bic_as_kontonummer()
    {
        WriteBank(m_files, Typed());
        QCOMPARE(ReadBytes(m_files, BankSettingsFile), stored);
    }

    void a_save_keeps_foreign_lines_and_other_sections()
    {
        RewriteFile(m_files, BankSettingsFile,
            "; Bank\r\n[Daten]\r\nFax=1\r\nBLZ=alt\r\n[Mehr]\r\nBLZ=2\r\n");
        WriteBank(m_files, Typed());
        QCOMPARE(ReadBytes(m_files, BankSettingsFile),
            QByteArray("; Bank\r\n[Daten]\r\nFax=1\r\nBLZ=DE00 1234 5678\r\n"
                       "Bankname=Sparkasse S\xfc"
                       "d\r\nKontonummer=GENODEF1XXX\r\n"
                       "Name1=Kr\xfcger,Heinz\r\nName2=Sommer,K\xe4the\r\n"
                       "Name=Renate Noack\r\nAnrede=Herr\r\n[Mehr]\r\nBLZ=2\r\n"));
    }

    void saved_values_are_loaded_into_their_fields()
    {
        RewriteFile(m_files, BankSettingsFile, stored);
        QCOMPARE(Texts(ReadBank(m_files, {})), Texts(Typed()));
        QCOMPARE(ReadBytes(m_files, BankSettingsFile), stored);
    }

    void without_the_file_all_is_empty_except_the_salutation_shown()
    {
        const QStringList texts = Texts(ReadBank(m_files, Typed()));
        const QStringList expected { QString(), QString(), QString(), QString(), QString(),
            QString(), QStringLiteral("Herr") };
        QCOMPARE(texts, expected);
        QVERIFY(!FileExists(m_files, BankSettingsFile)); // written only by a save
    }

    void a_missing_key_empties_its_field_the_salutation_too()
    {
        RewriteFile(m_files, BankSettingsFile, "[Daten]\r\nName=Renate Noack\r\n");
        const BankSettings bank = ReadBank(m_files, Typed());
        QCOMPARE(bank.TreasurerName, QStringLiteral("Renate Noack"));
        QCOMPARE(bank.BankName, QString());
        QCOMPARE(bank.TreasurerSalutation, QString());
    }

    void a_salutation_is_any_text_and_can_be_written_alone()
    {
        RewriteFile(m_files, BankSettingsFile, stored);
        WriteSalutation(m_files, QStringLiteral("Frau Dr."));
        QByteArray expected = stored;
        expected.replace("Anrede=Herr", "Anrede=Frau Dr.");
        QCOMPARE(ReadBytes(m_files, BankSettingsFile), expected);
        QCOMPARE(ReadBank(m_files, {}).TreasurerSalutation, QStringLiteral("Frau Dr."));
    }

    void a_file_that_cannot_be_read_is_reported()
    {
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), Path())); // reading it fails
        QVERIFY_THROWS_EXCEPTION(RuntimeError, ReadBank(m_files, {}));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, WriteBank(m_files, {}));
        QFile::remove(Path());
    }
};

const TestFile<TestBankSettings> test_file(__FILE__);
#include "test_bank_settings.moc"
