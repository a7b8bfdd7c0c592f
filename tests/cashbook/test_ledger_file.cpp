// The file of an account: reading, old lines with a stored balance, the new year's first booking.
#include "cashbook/ledger_file.h"

#include "data/records.h"
#include "tests/support/error_of.h"
#include "tests/support/test_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString name = u"\\Konto2016.pz"_s;

struct Folder {
    QTemporaryDir root;
    DataFiles files { root.filePath(u"data"_s), root.filePath(u"state"_s) };

    Folder()
    {
        QDir().mkpath(files.DataDirectory);
        QDir().mkpath(files.StateDirectory);
    }

    void Put(const QByteArray& content) const
    {
        QFile file(PathOf(files, name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QByteArray Get() const
    {
        QFile file(PathOf(files, name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
};

CarryOver Carried(const QStringList& lines)
{
    return MakeCarryOver(lines, u"2016"_s, QDate(2017, 3, 5));
}

} // namespace

class TestLedgerFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reading_ends_at_the_first_empty_line()
    {
        const Folder folder;
        folder.Put("a;1\r\nb;2\r\n\r\nc;3\r\n");
        QCOMPARE(ReadLedgerLines(folder.files, name), QStringList({ u"a;1"_s, u"b;2"_s }));
    }

    void a_line_of_blanks_is_no_empty_line()
    {
        const Folder folder;
        folder.Put("a;1\r\n \r\nc;3\r\n");
        QCOMPARE(ReadLedgerLines(folder.files, name).size(), 3);
    }

    void a_file_without_bytes_or_with_an_empty_first_line_is_an_empty_ledger()
    {
        const Folder folder;
        folder.Put("");
        QVERIFY(ReadLedger(folder.files, name).isEmpty());
        folder.Put("\r\na;1\r\n");
        QVERIFY(ReadLedger(folder.files, name).isEmpty());
    }

    void the_last_line_may_lack_its_end()
    {
        const Folder folder;
        folder.Put("01.01.2016;a;1,00;0,00");
        QCOMPARE(ReadLedger(folder.files, name), QStringList { u"01.01.2016;a;1,00;0,00"_s });
    }

    void stored_balances_are_taken_out_data()
    {
        QTest::addColumn<QStringList>("read");
        QTest::addColumn<QStringList>("expected");
        const QString four = u"02.01.2016;b;1,00;2,00"_s;
        const QString five = four + u";9,99"_s;
        const QString first = u"01.01.2016;a;1,00;2,00;1533,80"_s;
        QTest::newRow("the first line's balance takes the deposit's place") << QStringList { first,
            five, four } << QStringList { u"01.01.2016;a;1533,80;2,00"_s, four, four };
        QTest::newRow("the only line")
            << QStringList { first } << QStringList { u"01.01.2016;a;1533,80;2,00"_s };
        QTest::newRow("a sixth field goes too") << QStringList { first + u";x"_s,
            five + u";x"_s } << QStringList { u"01.01.2016;a;1533,80;2,00"_s, four };
        QTest::newRow("a first line of four fields stays")
            << QStringList { four, five } << QStringList { four, four };
        QTest::newRow("a line that is too short stays")
            << QStringList { first, u"02.01.2016;b;1,00"_s, u"x"_s, four }
            << QStringList { u"01.01.2016;a;1533,80;2,00"_s, u"02.01.2016;b;1,00"_s, u"x"_s, four };
        QTest::newRow("the last line's date has its point elsewhere")
            << QStringList { first, u"2.1.2016;b;1,00;2,00;9,99"_s }
            << QStringList { first, u"2.1.2016;b;1,00;2,00;9,99"_s };
        QTest::newRow("the last line's date has no point") << QStringList { first,
            u"2016-01-02;b;1,00;2,00"_s } << QStringList { first, u"2016-01-02;b;1,00;2,00"_s };
        QTest::newRow("the last line is too short but has its point") << QStringList { first,
            u"02.1"_s } << QStringList { u"01.01.2016;a;1533,80;2,00"_s, u"02.1"_s };
        QTest::newRow("empty") << QStringList {} << QStringList {};
    }
    void stored_balances_are_taken_out()
    {
        QFETCH(const QStringList, read);
        QFETCH(const QStringList, expected);
        QCOMPARE(WithoutStoredBalances(read), expected);
    }

    void the_rewrite_goes_by_the_last_line_of_the_file_and_comes_before_sorting()
    {
        const Folder folder;
        folder.Put("05.01.2016;a;0,00;0,00;10,00\r\n02.01.2016;b;1,00;0,00;11,00\r\n");
        QCOMPARE(ReadLedger(folder.files, name),
            QStringList({ u"02.01.2016;b;1,00;0,00"_s, u"05.01.2016;a;10,00;0,00"_s }));
    }

    void writing_puts_crlf_behind_every_line_and_keeps_umlauts()
    {
        const Folder folder;
        WriteLedger(folder.files, name, { u"02.01.2016;Übertrag Saldo 2015;1,00;0,00"_s, u"x"_s });
        QCOMPARE(folder.Get(),
            QByteArray("02.01.2016;\xDC"
                       "bertrag Saldo 2015;1,00;0,00\r\nx\r\n"));
    }

    void every_byte_survives_reading_and_writing()
    {
        QByteArray bytes("01.01.2016;");
        for (int byte = 0; byte < 256; ++byte) {
            if (byte != '\r' && byte != '\n' && byte != ';')
                bytes += static_cast<char>(byte);
        }
        bytes += ";1,00;0,00\r\n";
        const Folder folder;
        folder.Put(bytes);
        WriteLedger(folder.files, name, ReadLedger(folder.files, name));
        QCOMPARE(folder.Get(), bytes);
    }

    void a_ledger_may_be_longer_than_the_member_lists()
    {
        const Folder folder;
        folder.Put(QByteArray("01.01.2016;a;1,00;0,00\r\n").repeated(100'000));
        const QStringList lines = ReadLedger(folder.files, name);
        QCOMPARE(lines.size(), 100'000);
        WriteLedger(folder.files, name, lines);
        QCOMPARE(folder.Get(), QByteArray("01.01.2016;a;1,00;0,00\r\n").repeated(100'000));
    }

    void a_file_beyond_all_bounds_is_refused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a million lines") << QByteArray("1;2\r\n").repeated(1'000'000);
        QTest::newRow("a million fields in a line") << QByteArray(1'000'000, ';') + "\r\n";
    }
    void a_file_beyond_all_bounds_is_refused()
    {
        QFETCH(const QByteArray, content);
        const Folder folder;
        folder.Put(content);
        const RuntimeError error = ErrorOf([&] { ReadLedger(folder.files, name); });
        QCOMPARE(error.kind, ErrorKind::Overflow);
        QCOMPARE(error.where.file, u"Konto2016.pz"_s);
        QVERIFY(error.where.line > 0);
        QVERIFY(!error.where.remedy.isEmpty());
    }

    void damage_behind_the_first_empty_line_hides_no_booking_data()
    {
        QTest::addColumn<QByteArray>("behind");
        QTest::newRow("a line that is too long") << QByteArray(40'000, 'x') + "\r\n";
        QTest::newRow("200,001 lines in all") << QByteArray("1;2\r\n").repeated(199'999);
    }
    void damage_behind_the_first_empty_line_hides_no_booking()
    {
        QFETCH(const QByteArray, behind);
        const Folder folder;
        folder.Put("01.01.2016;a;1,00;0,00\r\n\r\n" + behind);
        QCOMPARE(ReadLedger(folder.files, name), QStringList { u"01.01.2016;a;1,00;0,00"_s });
    }

    void what_could_not_be_read_again_is_not_written()
    {
        const Folder folder;
        folder.Put("old\r\n");
        QCOMPARE(ErrorOf([&] { WriteLedger(folder.files, name, { QString(32'768, u'x') }); }).kind,
            ErrorKind::Overflow);
        QCOMPARE(folder.Get(), QByteArray("old\r\n"));
    }

    void the_carry_over_is_dated_today_and_named_after_the_previous_year()
    {
        const CarryOver carried
            = Carried({ u"01.01.2016;a;100,00;0,00"_s, u"02.01.2016;b;0,00;112,5"_s });
        QCOMPARE(carried.line, u"05.03.2017;Übertrag Saldo 2016;-12,50;0,00"_s);
        QVERIFY(carried.uncounted.isEmpty());
    }

    void the_carried_balance_has_two_decimals_and_no_groups_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("amount");
        QTest::newRow("nothing") << QStringList {} << u"0,00"_s;
        QTest::newRow("large") << QStringList { u"d;t;12345,5;0"_s } << u"12345,50"_s;
        QTest::newRow("shows as zero, so it is zero")
            << QStringList { u"d;t;0,00;0,001"_s } << u"0,00"_s;
        QTest::newRow("single precision")
            << QStringList { u"d;t;16777216;0"_s, u"d;t;1;0"_s } << u"16777216,00"_s;
        QTest::newRow("a stored balance does not count")
            << QStringList { u"d;t;1,00;0,50;99"_s } << u"0,50"_s;
    }
    void the_carried_balance_has_two_decimals_and_no_groups()
    {
        QFETCH(const QStringList, lines);
        QFETCH(const QString, amount);
        QCOMPARE(SplitRecord(Carried(lines).line)[Deposit], amount);
    }

    void amounts_that_are_no_numbers_count_as_zero_and_are_named()
    {
        const CarryOver carried = Carried({ u"d;t;5,00;0,00"_s, u"d;t;abc;1,00"_s, u"d;t"_s });
        QCOMPARE(SplitRecord(carried.line)[Deposit], u"4,00"_s);
        QCOMPARE(carried.uncounted.size(), 3);
        const std::optional<RuntimeError> error
            = UncountedError(carried, u"Konto2016.pz"_s, u"2016"_s);
        QVERIFY(error.has_value());
        QCOMPARE(error->kind, ErrorKind::TypeMismatch);
        QCOMPARE(error->where.file, u"Konto2016.pz"_s);
        QCOMPARE(error->where.line, 2);
        QCOMPARE(error->where.field, u"Einzahlen"_s);
        QCOMPARE(error->where.content, u"abc"_s);
        QVERIFY(error->where.remedy.contains(u"Ebenso 2 weitere"_s));
        QVERIFY(error->where.remedy.contains(u"„Übertrag Saldo 2016“"_s));
    }

    void a_withdrawal_that_is_no_number_is_named_alone()
    {
        const CarryOver carried = Carried({ u"d;t;5,00;abc"_s });
        const std::optional<RuntimeError> error
            = UncountedError(carried, u"Konto2016.pz"_s, u"2016"_s);
        QVERIFY(error.has_value());
        QCOMPARE(error->where.field, u"Abheben"_s);
        QVERIFY(!error->where.remedy.contains(u"Ebenso"_s));
    }

    void good_amounts_need_no_box()
    {
        QVERIFY(!UncountedError(Carried({ u"d;t;1;0"_s }), u"Konto2016.pz"_s, u"2016"_s));
    }
};

const TestFile<TestLedgerFile> test_file(__FILE__);
#include "test_ledger_file.moc"
