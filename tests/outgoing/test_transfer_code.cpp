// What a payment code says, byte by byte, and where its squares stand.
#include "outgoing/transfer_code.h"

#include "data/runtime_error.h"
#include "money/purpose_text.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString iban = u"DE27 1002 0030 0012 3456 78"_s;

QStringList Member(const QString& surname, const QString& first_name, const QString& garden)
{
    return { surname, first_name, {}, {}, {}, garden };
}

BankTransfer Example()
{
    return { u"Gartenverein Birkenried e.V."_s, iban, 19353,
        PurposeText(u"2026"_s, Member(u"Krüger"_s, u"Uwe"_s, u"7"_s)) };
}

QString Payload(const BankTransfer& transfer)
{
    return QString::fromUtf8(TransferPayload(transfer));
}

QString Lines(
    const QString& payee, const QString& account, const QString& amount, const QString& purpose)
{
    return u"BCD\n002\n1\nSCT\n\n"_s + payee + u'\n' + account + u'\n' + amount + u"\n\n\n"_s
        + purpose;
}

int VersionOf(const BankTransfer& transfer)
{
    return (SquaresOf(TransferPayload(transfer)).Side - 17) / 4;
}

} // namespace

class TestTransferCode : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_bytes_are_those_that_banks_read()
    {
        const QByteArray payload = TransferPayload(Example());
        QCOMPARE(payload.toHex(' '),
            QByteArray("42 43 44 0a 30 30 32 0a 31 0a 53 43 54 0a 0a 47 61 72 74 65 6e 76 65 72 65 "
                       "69 6e 20 "
                       "42 69 72 6b 65 6e 72 69 65 64 20 65 2e 56 2e 0a 44 45 32 37 31 30 30 32 30 "
                       "30 33 30 "
                       "30 30 31 32 33 34 35 36 37 38 0a 45 55 52 31 39 33 2e 35 33 0a 0a 0a 41 62 "
                       "72 65 63 "
                       "68 6e 75 6e 67 20 32 30 32 36 20 47 61 72 74 65 6e 20 37 20 4b 72 c3 bc 67 "
                       "65 72 20 "
                       "55 77 65"));
        QCOMPARE(QString::fromUtf8(payload).size(), 114);
        QCOMPARE(VersionOf(Example()), 7);
    }

    void payee_amount_and_purpose_stand_in_their_lines_data()
    {
        QTest::addColumn<QString>("payee");
        QTest::addColumn<QString>("account");
        QTest::addColumn<qint64>("cents");
        QTest::addColumn<QString>("purpose");
        QTest::addColumn<QString>("payload");
        QTest::addColumn<int>("bytes");
        QTest::addColumn<int>("version");
        QTest::newRow("2") << u"Kleingärtner Süd-West & Söhne"_s << u"de52 5006 0070 0000 0000 42"_s
                           << qint64(8167)
                           << PurposeText(u"2026"_s, Member(u"Weißhaupt"_s, u"Jörg"_s, u"012"_s))
                           << Lines(u"Kleingärtner Süd-West & Söhne"_s, u"DE52500600700000000042"_s,
                                  u"EUR81.67"_s, u"Abrechnung 2026 Garten 012 Weißhaupt Jörg"_s)
                           << 125 << 8;
        QTest::newRow("3") << u"Gartenverein Birkenried e.V."_s << iban << qint64(119353)
                           << PurposeText(u"2026"_s, Member(u"Sommer"_s, u"Eva"_s, {}))
                           << Lines(u"Gartenverein Birkenried e.V."_s, u"DE27100200300012345678"_s,
                                  u"EUR1193.53"_s, u"Abrechnung 2026 Sommer Eva"_s)
                           << 106 << 6;
        QTest::newRow("4") << u"Gartenverein Birkenried e.V."_s << iban << qint64(50)
                           << PurposeText(u"2026"_s, Member(u"Lorenz2"_s, u"Ida"_s, u"12a"_s))
                           << Lines(u"Gartenverein Birkenried e.V."_s, u"DE27100200300012345678"_s,
                                  u"EUR0.50"_s, u"Abrechnung 2026 Garten 12a Lorenz2 Ida"_s)
                           << 115 << 7;
        QTest::newRow("5") << u"„Grüne Aue“ e. V. – Verein §21"_s
                           << u"DE93 9999 9999 0000 0000 01"_s << qint64(6700)
                           << PurposeText(
                                  u"2027"_s, Member(u"Capek/García"_s, u"Zoë #1"_s, u"A 3"_s))
                           << Lines(u"Grüne Aue e. V. - Verein 21"_s, u"DE93999999990000000001"_s,
                                  u"EUR67.00"_s, u"Abrechnung 2027 Garten A 3 Capek/Garcia Zoe 1"_s)
                           << 123 << 8;
        QTest::newRow("6") << QString(80, u'Ä') << iban << qint64(9999999)
                           << PurposeText(u"2026"_s,
                                  Member(QString(100, u'Ö'), QString(100, u'Ü'), u"100"_s))
                           << Lines(QString(70, u'Ä'), u"DE27100200300012345678"_s,
                                  u"EUR99999.99"_s,
                                  u"Abrechnung 2026 Garten 100 "_s + QString(55, u'Ö'))
                           << 330 << 13;
    }

    void payee_amount_and_purpose_stand_in_their_lines()
    {
        QFETCH(QString, payee);
        QFETCH(QString, account);
        QFETCH(qint64, cents);
        QFETCH(QString, purpose);
        const BankTransfer transfer { payee, account, cents, purpose };
        QTEST(Payload(transfer), "payload");
        QTEST(int(TransferPayload(transfer).size()), "bytes");
        QTEST(VersionOf(transfer), "version");
        QCOMPARE(NoCodeReason(transfer), QString());
    }

    void a_purpose_that_is_cut_ends_in_no_blank()
    {
        BankTransfer transfer = Example();
        transfer.Payee = QString(70, u'Ä'); // leaves 140 of 331 bytes for the purpose
        const QString as_long_as_it_may_be(140, u'x');
        const auto purpose = [&transfer](const QString& text) {
            transfer.Purpose = text;
            return Payload(transfer).section(u'\n', -1);
        };
        QCOMPARE(purpose(as_long_as_it_may_be), as_long_as_it_may_be);
        QCOMPARE(TransferPayload(transfer).size(), 331);
        QCOMPARE(purpose(as_long_as_it_may_be + u'y'), as_long_as_it_may_be);
        QCOMPARE(
            purpose(as_long_as_it_may_be.chopped(1) + u" yy"_s), as_long_as_it_may_be.chopped(1));
        QCOMPARE(purpose(QString(200, u'ö')), QString(70, u'ö'));
    }

    void the_first_reason_against_a_code_is_said_data()
    {
        QTest::addColumn<BankTransfer>("transfer");
        QTest::addColumn<QString>("reason");
        BankTransfer transfer = Example();
        QTest::newRow("a code") << transfer << QString();
        transfer.Amount = 99'999'999'999;
        QTest::newRow("the largest amount") << transfer << QString();
        transfer.Amount = 100'000'000'000;
        QTest::newRow("one cent more") << transfer << u"Der Betrag ist zu groß für einen Code."_s;
        transfer.Amount = 0;
        QTest::newRow("nothing to pay") << transfer << u"Es ist nichts zu zahlen."_s;
        transfer.Amount = 1;
        QTest::newRow("one cent") << transfer << QString();
        transfer.Amount.reset();
        QTest::newRow("no bill") << transfer << u"Für dieses Mitglied ist keine Rechnung da."_s;
        transfer.Payee = u" §§ "_s;
        QTest::newRow("no payee") << transfer << u"Der Kontoinhaber fehlt."_s;
        transfer.Iban = u"DE28 1002 0030 0012 3456 78"_s;
        QTest::newRow("no account") << transfer << u"Die IBAN besteht ihre Prüfung nicht."_s;
    }

    void the_first_reason_against_a_code_is_said()
    {
        QFETCH(BankTransfer, transfer);
        QTEST(NoCodeReason(transfer), "reason");
    }

    void the_smallest_version_that_holds_the_bytes_is_taken_data()
    {
        QTest::addColumn<int>("most");
        QTest::addColumn<int>("version");
        const int most[] = { 14, 26, 42, 62, 84, 106, 122, 152, 180, 213, 251, 287, 331 };
        for (int version = 1; version <= 13; ++version)
            QTest::addRow("version %d", version) << most[version - 1] << version;
    }

    void the_smallest_version_that_holds_the_bytes_is_taken()
    {
        QFETCH(int, most);
        QFETCH(int, version);
        QCOMPARE(SquaresOf(QByteArray(most, 'a')).Side, 17 + 4 * version);
        if (version < 13)
            QCOMPARE(SquaresOf(QByteArray(most + 1, 'a')).Side, 17 + 4 * (version + 1));
        else
            QVERIFY_THROWS_EXCEPTION(RuntimeError, SquaresOf(QByteArray(most + 1, 'a')));
    }

    void the_code_stands_between_address_and_table_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("top");
        QTest::addColumn<int>("text_top");
        const int places[][3]
            = { { 538, 168, 146 }, { 530, 160, 138 }, { 522, 152, 130 }, { 514, 144, 122 },
                  { 506, 136, 114 }, { 498, 128, 106 }, { 490, 120, 98 }, { 482, 112, 90 } };
        for (int version = 6; version <= 13; ++version) {
            const int* place = places[version - 6];
            QTest::addRow("version %d", version) << version << place[0] << place[1] << place[2];
        }
    }

    void the_code_stands_between_address_and_table()
    {
        QFETCH(int, version);
        QFETCH(int, left);
        QFETCH(int, top);
        QFETCH(int, text_top);
        const int most[] = { 106, 122, 152, 180, 213, 251, 287, 331 };
        const CodeSquares squares = SquaresOf(QByteArray(most[version - 6], 'a'));
        const PageItems items = CodeItems(squares);
        const auto& caption = std::get<PageText>(items.front());
        QCOMPARE(caption.text, u"Zahlen mit Code"_s);
        QVERIFY(caption.right_aligned);
        QCOMPARE(caption.x, 620);
        QCOMPARE(caption.y, text_top);
        QRect covered;
        for (std::size_t i = 1; i < items.size(); ++i) {
            const auto& fill = std::get<PageFill>(items[i]);
            covered |= QRect(fill.x, fill.y, fill.width, fill.height);
        }
        QCOMPARE(covered, QRect(QPoint(left, top), QPoint(619, 249)));
        const PageBox space = CodeSpace(squares.Side);
        QCOMPARE(space.x1, left - 8);
        QCOMPARE(space.y1, text_top);
        QCOMPARE(space.x2, 628);
        QCOMPARE(space.y2, 258);
    }

    void each_black_square_is_filled_once()
    {
        const CodeSquares squares = SquaresOf(TransferPayload(Example()));
        const PageItems items = CodeItems(squares);
        std::vector<bool> filled(squares.Black.size());
        for (std::size_t i = 1; i < items.size(); ++i) {
            const auto& fill = std::get<PageFill>(items[i]);
            QCOMPARE(fill.height, 2);
            for (int x = fill.x; x < fill.x + fill.width; x += 2) {
                const int column = (x - (620 - 2 * squares.Side)) / 2;
                const int row = (fill.y - (250 - 2 * squares.Side)) / 2;
                const auto place = static_cast<std::size_t>(row * squares.Side + column);
                QVERIFY(!filled[place]);
                filled[place] = true;
            }
        }
        QCOMPARE(filled, squares.Black);
    }
};

const TestFile<TestTransferCode> test_file(__FILE__);
#include "test_transfer_code.moc"
