// The order of the platform's sorted lists: the recorded answers and what makes an order an order.
#include "data/collation.h"

#include "data/ansi_text.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QtTest>

#include <algorithm>
#include <clocale>
#include <random>

namespace {

using namespace Qt::StringLiterals;

QVector<TableRow> Facts(const char* name)
{
    return ReadTable(QStringLiteral(PARZELLO_FIXTURES "/facts/%1.tsv").arg(QLatin1String(name)));
}

bool FitsTheCodePage(const QString& text) { return DecodeAnsi(EncodeAnsi(text)) == text; }

int Sign(int number) { return (number > 0) - (number < 0); }

int Below(std::mt19937& random, int limit)
{
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

// Short texts from few characters, so that ties on every part of the key are frequent.
QString RandomText(std::mt19937& random)
{
    static const QString frequent = u"aAäàbsSßzoe-'–;, 019²"_s;
    QString text;
    for (int length = Below(random, 6); length > 0; --length) {
        const int any_byte = Below(random, 256);
        text += Below(random, 8) == 0
            ? DecodeAnsi(QByteArray(1, static_cast<char>(any_byte)))
            : QString(frequent[Below(random, static_cast<int>(frequent.size()))]);
    }
    return text;
}

} // namespace

class TestCollation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recorded_comparisons_are_met()
    {
        QStringList wrong;
        int compared = 0;
        for (const TableRow& row : Facts("collate")) {
            const QString a = CellText(row[u"a"_s]);
            const QString b = CellText(row[u"b"_s]);
            if (row[u"mark"_s] == u"suspect"_s && !(FitsTheCodePage(a) && FitsTheCodePage(b)))
                continue; // cannot stand in a file of the program
            ++compared;
            const int recorded = row[u"result"_s].toInt();
            if (CompareTexts(a, b) != recorded || CompareTexts(b, a) != -recorded)
                wrong += row[u"id"_s] + u' ' + a + u" / "_s + b;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(compared >= 105, qPrintable(QString::number(compared)));
    }

    void recorded_lists_are_met()
    {
        int compared = 0;
        for (const TableRow& row : Facts("sorted_list")) {
            const QStringList added = CellText(row[u"added_in_order"_s]).split(u" | "_s);
            const QStringList listed = CellText(row[u"listed"_s]).split(u" | "_s);
            const QStringList sorted = SortedTexts(added);
            QCOMPARE(sorted.size(), listed.size());
            for (qsizetype i = 0; i < sorted.size(); ++i) {
                // Entries that compare equal are one as good as the other: we keep their order.
                const QString id = row[u"id"_s] + u' ' + sorted[i];
                QVERIFY2(CompareTexts(sorted[i], listed[i]) == 0, qPrintable(id));
                QVERIFY2(sorted.count(listed[i]) == listed.count(listed[i]), qPrintable(id));
                ++compared;
            }
        }
        QVERIFY(compared >= 30);
    }

    void equal_entries_keep_their_order()
    {
        const QStringList added
            = { u"Strasse"_s, u"b"_s, u"Straße"_s, u"STRASSE"_s, u"a"_s, u"strasse"_s, u"B"_s };
        QCOMPARE(SortedTexts(added),
            QStringList(
                { u"a"_s, u"b"_s, u"B"_s, u"Strasse"_s, u"Straße"_s, u"STRASSE"_s, u"strasse"_s }));
    }

    void the_bookings_of_a_day_are_ordered_by_text_then_amounts()
    {
        QCOMPARE(SortedTexts({ u"20170102;A;0,00;1,00"_s, u"20160301;Pacht;0,00;24,00"_s,
                     u"20160301;Abrechnung Meier;36;0,00"_s, u"20161231;Z;0,00;1,00"_s,
                     u"20160301;Eon Avacon;0,00;5"_s, u"20160301;Eon Avacon Wasser;0,00;5"_s }),
            QStringList(
                { u"20160301;Abrechnung Meier;36;0,00"_s, u"20160301;Eon Avacon Wasser;0,00;5"_s,
                    u"20160301;Eon Avacon;0,00;5"_s, u"20160301;Pacht;0,00;24,00"_s,
                    u"20161231;Z;0,00;1,00"_s, u"20170102;A;0,00;1,00"_s }));
    }

    void letters_with_another_shape_count_as_their_letters()
    {
        QCOMPARE(CompareTexts(u"Œuvre"_s, u"oeuvre"_s), 0);
        QCOMPARE(CompareTexts(u"Æther"_s, u"AETHER"_s), 0);
        QCOMPARE(CompareTexts(u"Þor"_s, u"thor"_s), 0);
        QCOMPARE(CompareTexts(u"™"_s, u"tn"_s), -1);
        QCOMPARE(CompareTexts(u"Ÿ"_s, u"ÿ"_s), 0);
        QCOMPARE(CompareTexts(u"a\u0308"_s, u"Ä"_s), 0); // composed first
    }

    void the_first_different_diacritic_decides()
    {
        QCOMPARE(CompareTexts(u"côte"_s, u"coté"_s), 1);
        QCOMPARE(CompareTexts(u"müllér"_s, u"muller"_s), 1);
        QCOMPARE(CompareTexts(u"muller"_s, u"müller"_s), -1);
    }

    void hyphens_decide_last_and_by_their_place()
    {
        QCOMPARE(CompareTexts(u"co-op"_s, u"coop"_s), 1);
        QCOMPARE(CompareTexts(u"co-op"_s, u"coo-p"_s), -1);
        QCOMPARE(CompareTexts(u"a-ä"_s, u"aä"_s), 1);
        QCOMPARE(CompareTexts(u"a-a"_s, u"aä"_s), -1); // the diacritic decides before the hyphen
        QCOMPARE(CompareTexts(u"a'b"_s, u"a-b"_s), -1);
        QCOMPARE(CompareTexts(u"a-b"_s, u"a–b"_s), -1);
        QCOMPARE(CompareTexts(u"a-b"_s, u"a--b"_s), -1);
    }

    void control_characters_count_only_when_all_else_is_equal()
    {
        QCOMPARE(CompareTexts(u"a\u0001b"_s, u"ab"_s), 1);
        QCOMPARE(CompareTexts(u"a\u0001b"_s, u"ac"_s), -1);
        QCOMPARE(CompareTexts(u"a"_s + QChar(0), u"a"_s), 1);
    }

    void only_case_and_shape_make_two_characters_of_the_code_page_equal()
    {
        QStringList equal;
        for (int a = 0; a < 256; ++a) {
            for (int b = a + 1; b < 256; ++b) {
                const QString one = DecodeAnsi(QByteArray(1, static_cast<char>(a)));
                const QString other = DecodeAnsi(QByteArray(1, static_cast<char>(b)));
                if (CompareTexts(one, other) == 0 && one.toLower() != other.toLower())
                    equal += one + other;
            }
        }
        QCOMPARE(equal, QStringList());
    }

    void characters_beyond_the_code_page_come_last()
    {
        QCOMPARE(CompareTexts(u"Ω"_s, u"z"_s), 1);
        QCOMPARE(CompareTexts(u"Ω"_s, u"ω"_s), 0);
        QCOMPARE(CompareTexts(u"漢"_s, u"字"_s), 1);
        QCOMPARE(CompareTexts(u"😀"_s, u"😁"_s), -1);
    }

    void the_order_is_the_same_from_both_sides()
    {
        std::mt19937 random(1);
        int ties = 0;
        for (int i = 0; i < 60000; ++i) {
            const QString a = RandomText(random);
            const QString b = RandomText(random);
            const int ab = CompareTexts(a, b);
            ties += ab == 0 ? 1 : 0;
            QVERIFY2(CompareTexts(a, a) == 0, qPrintable(a));
            QVERIFY2(CompareTexts(b, a) == -ab, qPrintable(a + u" / "_s + b));
        }
        QVERIFY(ties > 100);
    }

    void the_order_is_transitive()
    {
        std::mt19937 random(4);
        for (int i = 0; i < 60000; ++i) {
            QStringList three = { RandomText(random), RandomText(random), RandomText(random) };
            std::sort(three.begin(), three.end(),
                [](const QString& a, const QString& b) { return CompareTexts(a, b) < 0; });
            const int first_step = CompareTexts(three[0], three[1]);
            const int second_step = CompareTexts(three[1], three[2]);
            const QString names = three.join(u" / "_s);
            QVERIFY2(first_step <= 0 && second_step <= 0, qPrintable(names));
            // Two ties make a tie, every other step carries over.
            const int both = CompareTexts(three[0], three[2]);
            QVERIFY2(both == std::min(first_step, second_step), qPrintable(names));
        }
    }

    void keys_order_as_comparisons_do()
    {
        std::mt19937 random(2);
        for (int i = 0; i < 60000; ++i) {
            const QString a = RandomText(random);
            const QString b = RandomText(random);
            QCOMPARE(Sign(CollationKey(a).compare(CollationKey(b))), CompareTexts(a, b));
            QVERIFY(CompareTexts(a, b) != 0 || CollationKey(a) == CollationKey(b));
        }
    }

    void a_hundred_thousand_entries_are_sorted()
    {
        std::mt19937 random(3);
        QStringList added;
        for (int i = 0; i < 100000; ++i) {
            const int day = 20160101 + Below(random, 12) * 100 + Below(random, 28);
            added += QString::number(day) + u";Abrechnung "_s + RandomText(random) + u';'
                + QString::number(Below(random, 500)) + u",00;0,00"_s;
        }
        const QStringList sorted = SortedTexts(added);
        QCOMPARE(sorted.size(), added.size());
        for (qsizetype i = 1; i < sorted.size(); ++i)
            QVERIFY2(CompareTexts(sorted[i - 1], sorted[i]) <= 0, qPrintable(sorted[i]));
        QStringList by_bytes = sorted;
        by_bytes.sort();
        added.sort();
        QVERIFY(by_bytes == added); // nothing lost, nothing twice
    }

    void no_locale_changes_the_order()
    {
        const QLocale before;
        for (const char* name : { "C", "de_DE.UTF-8", "tr_TR.UTF-8", "sv_SE.UTF-8" }) {
            std::setlocale(LC_ALL, name); // without effect where the system lacks it
            QLocale::setDefault(QLocale(QString::fromLatin1(name)));
            QCOMPARE(CompareTexts(u"ID"_s, u"id"_s), 0);
            QCOMPARE(CompareTexts(u"ä"_s, u"b"_s), -1);
        }
        std::setlocale(LC_ALL, "C.UTF-8");
        QLocale::setDefault(before);
    }
};

const TestFile<TestCollation> test_file(__FILE__);
#include "test_collation.moc"
