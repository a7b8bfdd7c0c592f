// Reading and writing values of INI files: the platform's recorded answers row by row, and what the
// program adds (files, code page, several values in one rewrite).
#include "settings/ini_file.h"

#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString ini_name = QStringLiteral("\\Config.ini");

QVector<TableRow> Recorded(const char* table)
{
    return ReadTable(QStringLiteral(PARZELLO_FIXTURES "/facts/") + QString::fromLatin1(table));
}

QString Cell(const TableRow& row, const char* column) { return row[QString::fromLatin1(column)]; }

QByteArray Bytes(const TableRow& row, const char* column) { return ByteCell(Cell(row, column)); }

/// What the platform is believed to answer counts more than what was recorded.
QByteArray Expected(const TableRow& row, const char* recorded)
{
    const QString believed = Cell(row, "believed");
    if (believed == QStringLiteral("(empty)"))
        return {};
    return ByteCell(believed.isEmpty() ? Cell(row, recorded) : believed);
}

/// The recorder dropped a NUL with the rest of its line and the control character at the file's
/// end; this program leaves every other byte of the file alone.
bool DropsBytes(const TableRow& row)
{
    const QByteArray before = Bytes(row, "before");
    return Cell(row, "mark") == QStringLiteral("suspect")
        && (before.contains('\0') || before.contains('\x1a'));
}

} // namespace

class TestIniFile : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    DataFiles m_files;

    QString Path() const { return m_files.DataDirectory + QStringLiteral("/Config.ini"); }

    void Write(const QByteArray& bytes) const
    {
        QFile file(Path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QByteArray Read() const
    {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
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
        QDir(m_files.DataDirectory).rmdir(QStringLiteral("Config.ini"));
    }

    void a_read_gives_the_platforms_answer_data()
    {
        QTest::addColumn<TableRow>("row");
        for (const TableRow& row : Recorded("ini_read.tsv"))
            QTest::newRow(qPrintable(Cell(row, "id"))) << row;
    }

    void a_read_gives_the_platforms_answer()
    {
        QFETCH(TableRow, row);
        const QByteArray value
            = IniValue(Bytes(row, "file"), Bytes(row, "section"), Bytes(row, "key"));
        QCOMPARE(value, Expected(row, "value"));
        if (Cell(row, "believed").isEmpty())
            QCOMPARE(value.size(), Cell(row, "count").toInt());
    }

    void a_write_gives_the_platforms_file_data()
    {
        QTest::addColumn<TableRow>("row");
        for (const TableRow& row : Recorded("ini_write.tsv")) {
            if (!DropsBytes(row))
                QTest::newRow(qPrintable(Cell(row, "id"))) << row;
        }
    }

    void a_write_gives_the_platforms_file()
    {
        QFETCH(TableRow, row);
        const QByteArray before
            = Cell(row, "before") == QStringLiteral("<none>") ? QByteArray() : Bytes(row, "before");
        const QByteArray section = Bytes(row, "section");
        const QByteArray key = Bytes(row, "key");
        const QByteArray after = WithIniValue(before, section, key, Bytes(row, "value"));
        QCOMPARE(after, Expected(row, "after"));
        QCOMPARE(IniValue(after, section, key), Bytes(row, "read_back"));
    }

    void every_other_byte_stays_also_behind_a_nul_or_an_end_of_file_mark()
    {
        const QByteArray with_nul("Data \0 before\r\n", 15);
        QCOMPARE(WithIniValue(with_nul, "S", "k", "2"), with_nul + "[S]\r\nk=2\r\n");
        QCOMPARE(WithIniValue("[S]\r\nk=1\r\n\x1a", "S", "l", "2"),
            QByteArray("[S]\r\nk=1\r\nl=2\r\n\x1a"));
        const char bytes[] = "\xff;x\r\r\n\n[S] rest\n a\t=\t1 \r;c\n\n[T\nk=\0\r\n";
        const QByteArray odd(bytes, sizeof(bytes) - 1);
        const QByteArray changed = WithIniValue(odd, "S", "A", " 2 ");
        QCOMPARE(changed, QByteArray(odd).replace(" a\t=\t1 \r", "a= 2 \r\n"));
    }

    void a_value_of_254_bytes_is_whole_and_a_longer_one_is_cut()
    {
        const QByteArray whole(254, 'x');
        QCOMPARE(IniValue("[S]\r\nk=" + whole, "S", "k"), whole);
        QCOMPARE(IniValue("[S]\r\nk=" + whole + "y", "S", "k"), whole);
    }

    void a_section_that_stands_twice_is_read_and_written_in_its_first_place()
    {
        const QByteArray ini("[S]\r\na=1\r\n[T]\r\n[S]\r\nk=2\r\n");
        QCOMPARE(IniValue(ini, "S", "k"), QByteArray());
        QCOMPARE(WithIniValue(ini, "S", "k", "3"),
            QByteArray("[S]\r\na=1\r\nk=3\r\n[T]\r\n[S]\r\nk=2\r\n"));
    }

    void a_missing_file_section_or_key_reads_as_empty()
    {
        QCOMPARE(
            ReadIni(m_files, QStringLiteral("2016"), QStringLiteral("Pacht"), ini_name), QString());
        QVERIFY(!QFile::exists(Path())); // reading creates nothing
        Write("[2016]\r\nSteuer=1\r\n");
        QCOMPARE(
            ReadIni(m_files, QStringLiteral("2016"), QStringLiteral("Pacht"), ini_name), QString());
        QCOMPARE(ReadIni(m_files, QStringLiteral("2015"), QStringLiteral("Steuer"), ini_name),
            QString());
    }

    void names_and_values_stand_in_code_page_1252()
    {
        WriteIni(m_files, QStringLiteral("2016"), QStringLiteral("Fläche"),
            QStringLiteral("0,05 €"), ini_name);
        QCOMPARE(Read(),
            QByteArray("[2016]\r\nFl\xe4"
                       "che=0,05 \x80\r\n"));
        QCOMPARE(ReadIni(m_files, QStringLiteral("2016"), QStringLiteral("fLÄCHE"), ini_name),
            QStringLiteral("0,05 €"));
    }

    void several_values_are_read_in_the_order_of_the_keys()
    {
        Write("[S]\r\nb=2\r\na=1\r\n");
        const QStringList keys { QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("b") };
        const QStringList values { QStringLiteral("1"), QString(), QStringLiteral("2") };
        QCOMPARE(ReadIniValues(m_files, QStringLiteral("S"), keys, ini_name), values);
    }

    void several_values_are_written_in_their_order()
    {
        Write("[S]\r\nb=0\r\nx=9\r\n[T]\r\n");
        WriteIniValues(m_files, QStringLiteral("S"),
            { { QStringLiteral("c"), QStringLiteral("3") },
                { QStringLiteral("b"), QStringLiteral("2") },
                { QStringLiteral("a"), QStringLiteral("1") } },
            ini_name);
        QCOMPARE(Read(), QByteArray("[S]\r\nb=2\r\nx=9\r\nc=3\r\na=1\r\n[T]\r\n"));
    }

    void a_line_break_in_a_value_becomes_a_blank()
    {
        WriteIni(m_files, QStringLiteral("Daten"), QStringLiteral("Name1"),
            QStringLiteral("Meier\r\nName2=x\ry"), ini_name);
        QCOMPARE(Read(), QByteArray("[Daten]\r\nName1=Meier  Name2=x y\r\n"));
    }

    void a_file_that_holds_the_values_already_is_left_alone()
    {
        Write("[S]\r\nk=1\r\n");
        QFile file(Path());
        QVERIFY(file.setPermissions(QFile::ReadOwner));
        const QDateTime old = QDateTime::fromSecsSinceEpoch(1'000'000'000, Qt::UTC);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.setFileTime(old, QFileDevice::FileModificationTime));
        file.close();
        WriteIni(m_files, QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("1"), ini_name);
        QCOMPARE(QFileInfo(Path()).lastModified(), old);
    }

    void a_write_of_an_empty_value_creates_the_file()
    {
        WriteIni(m_files, QStringLiteral("Daten"), QStringLiteral("BLZ"), QString(), ini_name);
        QCOMPARE(Read(), QByteArray("[Daten]\r\nBLZ=\r\n"));
    }

    void names_match_without_regard_to_case_over_the_whole_code_page_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<bool>("same");
        QTest::newRow("plain letter") << QByteArray("Wasser") << QStringLiteral("wASSER") << true;
        QTest::newRow("umlaut") << QByteArray("Fl\xc4"
                                              "che")
                                << QStringLiteral("Fläche") << true;
        QTest::newRow("Thorn") << QByteArray("\xde") << QStringLiteral("þ") << true;
        QTest::newRow("S caron") << QByteArray("\x8a") << QStringLiteral("š") << true;
        QTest::newRow("OE") << QByteArray("\x8c") << QStringLiteral("œ") << true;
        QTest::newRow("Z caron") << QByteArray("\x9e") << QStringLiteral("Ž") << true;
        QTest::newRow("Y diaeresis") << QByteArray("\x9f") << QStringLiteral("ÿ") << true;
        QTest::newRow("times, divided by") << QByteArray("\xd7") << QStringLiteral("÷") << false;
        QTest::newRow("sharp s") << QByteArray("\xdf") << QStringLiteral("ss") << false;
    }

    void names_match_without_regard_to_case_over_the_whole_code_page()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, asked);
        QFETCH(bool, same);
        Write("[" + stored + "]\r\n" + stored + "=1\r\n");
        QCOMPARE(ReadIni(m_files, asked, asked, ini_name), same ? QStringLiteral("1") : QString());
    }

    void a_tab_and_a_vertical_tab_around_names_and_values_do_not_count()
    {
        Write("\t[S]\v\r\n\v k\t=\t1\v\r\n");
        QCOMPARE(ReadIni(m_files, QStringLiteral("S"), QStringLiteral("k"), ini_name),
            QStringLiteral("1"));
    }

    void a_new_key_behind_a_last_line_that_ends_with_a_lone_return_starts_a_line_of_its_own()
    {
        Write("[S]\r\nk=1\r");
        WriteIni(m_files, QStringLiteral("S"), QStringLiteral("n"), QStringLiteral("2"), ini_name);
        QCOMPARE(ReadIni(m_files, QStringLiteral("S"), QStringLiteral("k"), ini_name),
            QStringLiteral("1"));
        QCOMPARE(ReadIni(m_files, QStringLiteral("S"), QStringLiteral("n"), ini_name),
            QStringLiteral("2"));
        QVERIFY(Read().startsWith("[S]\r\nk=1\r"));
    }

    void a_folder_in_the_files_place_is_an_error_of_the_write()
    {
        QVERIFY(QDir(m_files.DataDirectory).mkdir(QStringLiteral("Config.ini")));
        QCOMPARE(ReadIni(m_files, QStringLiteral("S"), QStringLiteral("k"), ini_name), QString());
        QVERIFY_THROWS_EXCEPTION(RuntimeError,
            WriteIni(
                m_files, QStringLiteral("S"), QStringLiteral("k"), QStringLiteral("1"), ini_name));
    }
};

const TestFile<TestIniFile> test_file(__FILE__);
#include "test_ini_file.moc"
