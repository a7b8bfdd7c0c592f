// The sentences that tell what happened to a file.
#include "data/ansi_text.h"
#include "history/difference.h"
#include "history/file_kinds.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString members = u"Mitgliedsdaten2026.pz"_s;
const QString bank = u"Konto2026.pz"_s;
const QString cash = u"HandKasse2026.pz"_s;
const QString prices = u"Config.ini"_s;
const QString names = u"Config1.ini"_s;
const QString club = u"V.dat"_s;

const QString anna = u"Meier;Anna;Weg 1;0 O;;7;300;4;0,00;0,00;0,00;0,00;1;2171;20;25\r\n"_s;
const QString bernd = u"Müller;Bernd;;;;8;250;1;0,00;0,00;0,00;0,00;50;60;7;8\r\n"_s;
const QString clara = u"Schulz;Clara;;;;9;250;1;0,00;0,00;0,00;0,00;50;60;7;8\r\n"_s;
const QString payment = u"21.11.2026;Abrechnung Albers;193,53;0,00\r\n"_s;
const QString stamps = u"02.01.2026;Briefmarken;0,00;7,00\r\n"_s;

QString Replaced(QString text, const QString& before, const QString& after)
{
    return text.replace(before, after);
}

} // namespace

class TestDifference : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_change_is_told_in_one_sentence_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("words");
        const auto row = [](const char* name, const QString& target, const QString& before,
                             const QString& after, const QString& words) {
            QTest::newRow(name) << target << before << after << words;
        };
        row("reading", members, anna + bernd, Replaced(anna, u"2171"_s, u"2181"_s) + bernd,
            u"Meier,Anna: Endstand Strom 2171 → 2181"_s);
        row("first reading", members, Replaced(anna, u"2171"_s, {}), anna,
            u"Meier,Anna: Endstand Strom (leer) → 2171"_s);
        row("two fields", members, anna, Replaced(anna, u"20;25"_s, u"21;26"_s),
            u"Meier,Anna: Anfangsstand Wasser 20 → 21, Endstand Wasser 25 → 26"_s);
        row("other name", members, bernd + anna, bernd + Replaced(anna, u"Meier"_s, u"Lang"_s),
            u"Meier,Anna: Name Meier → Lang"_s);
        row("too many fields", members, anna, Replaced(anna, u"25"_s, u"25;x"_s),
            u"Meier,Anna: Feld 17 (leer) → x"_s);
        row("empty fields at the end", members, anna, Replaced(anna, u"25"_s, u"25;"_s),
            u"Meier,Anna: Trennzeichen am Ende"_s);
        row("new", members, bernd, bernd + anna, u"Meier,Anna dazu"_s);
        row("deleted", members, anna + bernd, bernd, u"Meier,Anna gelöscht"_s);
        row("first member", members, {}, anna, u"Meier,Anna dazu"_s);
        row("one namesake of two", members, anna + anna, anna, u"Meier,Anna gelöscht"_s);
        row("last line end", members, anna.chopped(2), anna, u"nur Zeilenenden geändert"_s);
        row("other line ends", members, Replaced(anna, u"\r"_s, {}), anna,
            u"nur Zeilenenden geändert"_s);
        row("other order", members, anna + bernd, bernd + anna, u"andere Reihenfolge"_s);
        row("unchanged", members, anna, anna, u"unverändert gespeichert"_s);
        row("deposit", bank, stamps, stamps + payment,
            u"Buchung dazu: 21.11.2026 Abrechnung Albers 193,53"_s);
        row("withdrawal", cash, {}, stamps, u"Buchung dazu: 02.01.2026 Briefmarken -7,00"_s);
        row("deposit and withdrawal", cash, {}, Replaced(stamps, u"0,00;"_s, u"1,00;"_s),
            u"Buchung dazu: 02.01.2026 Briefmarken 1,00 -7,00"_s);
        row("deleted booking", bank, payment + stamps, payment,
            u"Buchung gelöscht: 02.01.2026 Briefmarken -7,00"_s);
        row("changed booking", bank, payment, Replaced(payment, u"193,53"_s, u"198,53"_s),
            u"Buchung geändert: 21.11.2026 Abrechnung Albers 193,53 → "
            "21.11.2026 Abrechnung Albers 198,53"_s);
        row("price", prices, u"[2026]\r\nStromkosten=0,35\r\n"_s,
            u"[2026]\r\nStromkosten=0,37\r\n"_s, u"Stromkosten 2026: 0,35 → 0,37"_s);
        row("new price", prices, u"[2025]\r\nStromkosten=0,35\r\n"_s,
            u"[2025]\r\nStromkosten=0,35\r\n[2026]\r\nStromkosten=0,37\r\n"_s,
            u"Stromkosten 2026: (leer) → 0,37"_s);
        row("bank", names, u"[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE1\r\n"_s,
            u"[Daten]\r\nBankname=Sparkasse\r\nBLZ=DE2\r\n"_s, u"IBAN: DE1 → DE2"_s);
        row("same values", prices, u"[2026]\r\nPacht=1\r\n"_s, u"[2026]\r\nPacht= 1\r\n"_s,
            u"nur die Schreibweise der Datei geändert"_s);
        row("club", club, u"Alt\r\n"_s, u"Neu\r\n"_s, u"Vereinsname: Alt → Neu"_s);
        row("other file", u"SonderAbrechnungMeier2026.xls"_s, u"1"_s, u"2"_s, u"geändert"_s);
    }

    void a_change_is_told_in_one_sentence()
    {
        QFETCH(QString, target);
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, words);
        const DifferenceWords found
            = WordsOfDifference(target, EncodeAnsi(before), EncodeAnsi(after));
        QCOMPARE(found.Short, words);
        QCOMPARE(found.Single, QStringList {});
    }

    void several_changes_are_counted_and_listed_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QStringList>("single");
        QTest::newRow("members changed")
            << members << anna + bernd << Replaced(anna + bernd, u";0,00;0,00"_s, u";1,00;0,00"_s)
            << u"2 Mitglieder geändert"_s
            << QStringList { u"Meier,Anna: Haftpflicht 0,00 → 1,00, Unfall 0,00 → 1,00"_s,
                   u"Müller,Bernd: Haftpflicht 0,00 → 1,00, Unfall 0,00 → 1,00"_s };
        QTest::newRow("new and changed")
            << members << anna << Replaced(anna, u"2171"_s, u"1"_s) + bernd + clara
            << u"2 Mitglieder dazu, 1 Mitglied geändert"_s
            << QStringList { u"Müller,Bernd dazu"_s, u"Schulz,Clara dazu"_s,
                   u"Meier,Anna: Endstand Strom 2171 → 1"_s };
        QTest::newRow("bookings") << bank << payment + payment + stamps << payment
                                  << u"2 Buchungen gelöscht"_s
                                  << QStringList {
                                         u"Buchung gelöscht: 21.11.2026 Abrechnung Albers 193,53"_s,
                                         u"Buchung gelöscht: 02.01.2026 Briefmarken -7,00"_s
                                     };
        QTest::newRow("prices") << prices << u"[2026]\r\nPacht=1\r\nBeitrag=2\r\n"_s
                                << u"[2026]\r\nPacht=3\r\nBeitrag=4\r\n"_s
                                << u"2 Angaben geändert"_s
                                << QStringList { u"Pacht 2026: 1 → 3"_s, u"Beitrag 2026: 2 → 4"_s };
    }

    void several_changes_are_counted_and_listed()
    {
        QFETCH(QString, target);
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, words);
        QFETCH(QStringList, single);
        const DifferenceWords found
            = WordsOfDifference(target, EncodeAnsi(before), EncodeAnsi(after));
        QCOMPARE(found.Short, words);
        QCOMPARE(found.Single, single);
    }

    void a_new_file_is_told_by_what_is_in_it()
    {
        QCOMPARE(
            WordsOfDifference(members, std::nullopt, EncodeAnsi(anna)).Short, u"Meier,Anna dazu"_s);
        QCOMPARE(WordsOfDifference(members, std::nullopt, {}).Short, u"leer angelegt"_s);
        QCOMPARE(WordsOfDifference(u"x.xls"_s, std::nullopt, "1").Short, u"neu"_s);
        QCOMPARE(
            WordsOfDifference(club, std::nullopt, "KGV\r\n").Short, u"Vereinsname: (leer) → KGV"_s);
    }

    void bytes_that_are_no_text_are_told_all_the_same()
    {
        const QByteArray bytes("\0;\xFF;[\r\n=\n\n]", 12);
        for (const QString& target : { members, bank, prices, names, club }) {
            QVERIFY(!WordsOfDifference(target, bytes, {}).Short.isEmpty());
            QVERIFY(!WordsOfDifference(target, {}, bytes).Short.isEmpty());
        }
    }

    void thousands_of_changed_lines_are_told()
    {
        QString before;
        QString after;
        for (int i = 0; i < 30000; ++i) {
            before += u"Name%1;Anna;;;;7;300;4;;;;;1;2;3;4\r\n"_s.arg(i);
            after += u"Name%1;Anna;;;;7;300;4;;;;;1;9;3;4\r\n"_s.arg(i);
        }
        const DifferenceWords words
            = WordsOfDifference(members, EncodeAnsi(before), EncodeAnsi(after));
        QCOMPARE(words.Short, u"30000 Mitglieder geändert"_s);
        QCOMPARE(words.Single.last(), u"Name29999,Anna: Endstand Strom 2 → 9"_s);
    }

    void files_have_captions_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("caption");
        QTest::newRow("members") << members << u"Mitglieder 2026"_s;
        QTest::newRow("bank") << bank << u"Konto 2026"_s;
        QTest::newRow("cash box") << cash << u"Handkasse 2026"_s;
        QTest::newRow("prices") << prices << u"Preise und Termine"_s;
        QTest::newRow("names") << names << u"Bank und Namen"_s;
        QTest::newRow("club") << club << u"Vereinsname"_s;
        QTest::newRow("other") << u"SonderAbrechnungMeier2026.xls"_s
                               << u"SonderAbrechnungMeier2026.xls"_s;
        QTest::newRow("alike") << u"Konto2026.pz.alt"_s << u"Konto2026.pz.alt"_s;
    }

    void files_have_captions()
    {
        QFETCH(QString, target);
        QFETCH(QString, caption);
        QCOMPARE(FileCaption(target), caption);
    }
};

const TestFile<TestDifference> test_file(__FILE__);
#include "test_difference.moc"
