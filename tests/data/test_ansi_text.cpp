// Code page 1252: bytes to text and back, similar letters, what a typed text becomes.
#include "data/ansi_text.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString fixtures = QStringLiteral(PARZELLO_FIXTURES "/facts/");

QByteArray AllBytes()
{
    QByteArray bytes;
    for (int number = 0; number < 256; ++number)
        bytes += static_cast<char>(number);
    return bytes;
}

} // namespace

class TestAnsiText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_byte_means_the_recorded_character_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        for (const TableRow& row : ReadTable(fixtures + u"ansi_decode.tsv"_s)) {
            QTest::newRow(qPrintable(row[u"byte"_s]))
                << QByteArray::fromHex(row[u"byte"_s].toLatin1()) << CellText(row[u"text"_s]);
        }
    }

    void a_byte_means_the_recorded_character()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(DecodeAnsi(bytes), text);
        QCOMPARE(EncodeAnsi(text), bytes);
    }

    void a_text_becomes_the_recorded_bytes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        for (const TableRow& row : ReadTable(fixtures + u"ansi_encode.tsv"_s)) {
            const QString text = CellText(row[u"text"_s]);
            // Decomposed letters are composed first: the platform leaves "u¨" of "ü".
            if (text != text.normalized(QString::NormalizationForm_C) && text.size() > 1)
                continue;
            QTest::newRow(qPrintable(row[u"id"_s])) << text << ByteCell(row[u"bytes"_s]);
        }
    }

    void a_text_becomes_the_recorded_bytes()
    {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(EncodeAnsi(text), bytes);
    }

    void all_256_bytes_survive()
    {
        QCOMPARE(DecodeAnsi(AllBytes()).size(), 256);
        QCOMPARE(EncodeAnsi(DecodeAnsi(AllBytes())), AllBytes());
    }

    void every_two_bytes_in_a_row_survive()
    {
        for (int first = 0; first < 256; ++first) {
            for (int second = 0; second < 256; ++second) {
                const QByteArray pair { QByteArray(1, static_cast<char>(first))
                    + QByteArray(1, static_cast<char>(second)) };
                QCOMPARE(EncodeAnsi(DecodeAnsi(pair)), pair);
            }
        }
    }

    void unassigned_bytes_are_the_control_characters_of_the_same_number()
    {
        for (const ushort number : std::initializer_list<ushort> { 0x81, 0x8D, 0x8F, 0x90, 0x9D })
            QCOMPARE(DecodeAnsi(QByteArray(1, static_cast<char>(number))), QString(QChar(number)));
    }

    void control_characters_of_assigned_bytes_have_no_likeness()
    {
        QCOMPARE(EncodeAnsi(QString(QChar(0x80))), QByteArray("?"));
        QCOMPARE(EncodeAnsi(QString(QChar(0x85))), QByteArray("?"));
    }

    void decomposed_letters_are_composed_first()
    {
        QCOMPARE(EncodeAnsi(u"Mu\u0308ller"_s), QByteArray("M\xFCller"));
        QCOMPARE(EncodeAnsi(u"A\u030Ase"_s), QByteArray("\xC5se"));
        QCOMPARE(EncodeAnsi(u"S\u030Cvejk"_s), QByteArray("\x8Avejk"));
        QCOMPARE(EncodeAnsi(u"c\u0301"_s), QByteArray("c")); // composed, then its best fit
    }

    void similar_letters_stand_in()
    {
        QCOMPARE(EncodeAnsi(u"Łódź"_s),
            QByteArray("L\xF3"
                       "dz"));
        QCOMPARE(EncodeAnsi(u"Çağlar Şahin"_s),
            QByteArray("\xC7"
                       "aglar Sahin"));
        QCOMPARE(EncodeAnsi(u"ＡＺ～"_s), QByteArray("AZ~"));
        QCOMPARE(EncodeAnsi(u"中"_s), QByteArray("?"));
        QCOMPARE(EncodeAnsi(u"🌻"_s), QByteArray("??"));
    }

    void what_is_stored_of_a_character_is_stored_as_it_is()
    {
        for (int number = 0; number <= 0xFFFF; ++number) {
            const QString stored = AsStored(QString(QChar(number)));
            QVERIFY(!stored.isEmpty());
            QCOMPARE(AsStored(stored), stored);
        }
    }

    void typed_text_shows_what_will_be_stored_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("plain") << u"Meier; \"Garten\" 5 €"_s << u"Meier; \"Garten\" 5 €"_s;
        QTest::newRow("best fit") << u"Łukasz"_s << u"Lukasz"_s;
        QTest::newRow("decomposed") << u"Ba\u0308r"_s << u"Bär"_s;
        QTest::newRow("line break of two") << u"a\r\nb"_s << u"a b"_s;
        QTest::newRow("single line breaks") << u"a\rb\nc"_s << u"a b c"_s;
        QTest::newRow("other line breaks") << u"a\u2028b\u2029c\u0085d"_s << u"a b c d"_s;
        QTest::newRow("tab and bell") << u"a\tb\u0007c\u007Fd"_s << u"a b c d"_s;
        QTest::newRow("null") << QString(u"a"_s + QChar(0) + u"b"_s) << u"a b"_s;
        QTest::newRow("unassigned") << u"a\u0081b"_s << u"a b"_s;
        QTest::newRow("no likeness") << u"→"_s << u"?"_s;
        QTest::newRow("empty") << u""_s << u""_s;
    }

    void typed_text_shows_what_will_be_stored()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        QCOMPARE(AsStored(typed), stored);
        QCOMPARE(AsStored(stored), stored);
        QCOMPARE(DecodeAnsi(EncodeAnsi(stored)), stored);
    }
};

const TestFile<TestAnsiText> test_file(__FILE__);
#include "test_ansi_text.moc"
