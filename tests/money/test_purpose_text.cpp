// The purpose of a payment: which signs a transfer carries, and what becomes of the others.
#include "money/purpose_text.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QStringList Member(const QString& surname, const QString& first_name, const QString& garden)
{
    return { surname, first_name, {}, {}, {}, garden };
}

QString Carried(const QString& text) { return TransferText(text, 140); }

} // namespace

class TestPurposeText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void year_garden_and_name_are_said_data()
    {
        QTest::addColumn<QStringList>("member");
        QTest::addColumn<QString>("purpose");
        QTest::newRow("all") << Member(u"Meier"_s, u"Anna"_s, u"7"_s)
                             << u"Abrechnung 2026 Garten 7 Meier Anna"_s;
        QTest::newRow("no garden")
            << Member(u"Meier"_s, u"Anna"_s, u"  "_s) << u"Abrechnung 2026 Meier Anna"_s;
        QTest::newRow("blanks") << Member(u" Meier  Groß "_s, {}, u" 7 a "_s)
                                << u"Abrechnung 2026 Garten 7 a Meier Groß"_s;
        QTest::newRow("short record") << QStringList { u"Meier"_s } << u"Abrechnung 2026 Meier"_s;
        QTest::newRow("empty record") << QStringList {} << u"Abrechnung 2026"_s;
    }
    void year_garden_and_name_are_said()
    {
        QFETCH(QStringList, member);
        QTEST(PurposeText(u"2026"_s, member), "purpose");
    }

    void a_purpose_ends_after_140_signs()
    {
        const QString purpose
            = PurposeText(u"2026"_s, Member(QString(200, u'M'), u"Anna"_s, u"7"_s));
        QCOMPARE(purpose, u"Abrechnung 2026 Garten 7 "_s + QString(115, u'M'));
    }

    void the_signs_of_a_transfer_stay()
    {
        const QString signs = u"AZaz09ÄÖÜäöüß/-?:().,'+&*$%"_s;
        QCOMPARE(Carried(signs), signs);
    }

    void other_letters_are_written_with_those_of_a_transfer_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("carried");
        const auto row = [](const QString& text, const QString& carried) {
            QTest::newRow(qPrintable(text)) << text << carried;
        };
        row(u"Læssøe"_s, u"Laessoe"_s);
        row(u"ÆØÐÞŒ"_s, u"AeODThOe"_s);
        row(u"œuvre"_s, u"oeuvre"_s);
        row(u"Guðni Þór, Hafþór"_s, u"Gudni Thor, Hafthor"_s);
        row(u"Čapek García Zoë Åse"_s, u"Capek Garcia Zoe Ase"_s);
        row(u"D’Angelo ‘x` y´"_s, u"D'Angelo 'x' y'"_s);
        row(u"Nord–Süd—Weg"_s, u"Nord-Süd-Weg"_s);
    }
    void other_letters_are_written_with_those_of_a_transfer()
    {
        QFETCH(QString, text);
        QTEST(Carried(text), "carried");
    }

    void what_has_no_letter_of_a_transfer_is_a_blank()
    {
        QCOMPARE(Carried(u"§21 „Aue“ #5"_s), u"21 Aue 5"_s);
        QCOMPARE(Carried(u"Ł Ж 中"_s), QString()); // no mark that could go, or another alphabet
        QCOMPARE(Carried(u"a½²b"_s), u"a b"_s); // no letters, though they have digits in them
        QCOMPARE(Carried(u"a\t\n b"_s + QChar(0)), u"a b"_s);
    }

    void a_letter_with_its_mark_behind_it_is_one_letter()
    {
        QCOMPARE(Carried(u"Mu"_s + QChar(0x0308) + u"ller"_s), u"Müller"_s);
        QCOMPARE(Carried(u"Zoe"_s + QChar(0x0308)), u"Zoe"_s);
    }

    void it_is_cut_after_so_many_signs_and_ends_in_no_blank()
    {
        QCOMPARE(TransferText(u"Verein Birkenried"_s, 8), u"Verein B"_s);
        QCOMPARE(TransferText(u"Verein Birkenried"_s, 7), u"Verein"_s);
        QCOMPARE(TransferText(u"æ"_s, 1), u"a"_s);
        QCOMPARE(TransferText({}, 5), QString());
    }
};

const TestFile<TestPurposeText> test_file(__FILE__);
#include "test_purpose_text.moc"
