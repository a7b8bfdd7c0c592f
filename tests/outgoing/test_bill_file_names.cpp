// Names of the PDFs.
#include "outgoing/bill_file_names.h"

#include "tests/support/test_file.h"

#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QStringList NamesOf(const QList<BillNameParts>& members)
{
    return BillFileNames(u"2026"_s, members);
}

} // namespace

class TestBillFileNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_name_says_year_garden_and_member()
    {
        const QStringList names = NamesOf(
            { { u"Krüger"_s, u"Uwe"_s, u"7"_s }, { u"Hollerbusch"_s, u"Erika"_s, u"12"_s },
                { u"Hollerbusch"_s, u"Karl"_s, u"12a"_s }, { u"van Dijk"_s, u"Anna"_s, u"A/3"_s },
                { u"Meier"_s, u"Anna"_s, u"007"_s }, { u"Meier"_s, u"Anna"_s, u"7"_s },
                { u"MEIER"_s, u"ANNA"_s, u"0007"_s }, { u"Lenz: Erben"_s, u"Dr. Ole."_s, {} },
                { u"  Groß  "_s, {}, u"104"_s }, { u"?*"_s, u"\"X\""_s, u"5"_s } });
        QCOMPARE(names,
            QStringList({ u"Abrechnung 2026 Garten 0007 Krüger Uwe.pdf"_s,
                u"Abrechnung 2026 Garten 0012 Hollerbusch Erika.pdf"_s,
                u"Abrechnung 2026 Garten 12a Hollerbusch Karl.pdf"_s,
                u"Abrechnung 2026 Garten A_3 van Dijk Anna.pdf"_s,
                u"Abrechnung 2026 Garten 0007 Meier Anna.pdf"_s,
                u"Abrechnung 2026 Garten 0007 Meier Anna (2).pdf"_s,
                u"Abrechnung 2026 Garten 0007 MEIER ANNA (3).pdf"_s,
                u"Abrechnung 2026 Lenz_ Erben Dr. Ole.pdf"_s,
                u"Abrechnung 2026 Garten 0104 Groß.pdf"_s,
                u"Abrechnung 2026 Garten 0005 __ _X_.pdf"_s }));
    }

    void a_bill_that_was_not_drawn_gets_no_name_and_takes_none()
    {
        const QStringList names = NamesOf(
            { { u"Lang"_s, u"Otto"_s, u"100"_s, false }, { u"Lang"_s, u"Otto"_s, u"3"_s } });
        QCOMPARE(names, QStringList({ {}, u"Abrechnung 2026 Garten 003 Lang Otto.pdf"_s }));
    }

    void a_number_that_a_real_name_has_already_is_passed_over()
    {
        const QStringList names = NamesOf({ { u"Ott"_s, u"Ida (2)"_s, {} },
            { u"Ott"_s, u"Ida"_s, {} }, { u"Ott"_s, u"Ida"_s, {} } });
        QCOMPARE(names,
            QStringList({ u"Abrechnung 2026 Ott Ida (2).pdf"_s, u"Abrechnung 2026 Ott Ida.pdf"_s,
                u"Abrechnung 2026 Ott Ida (3).pdf"_s }));
    }

    void controls_and_runs_of_blanks_do_not_stay()
    {
        const QStringList names = NamesOf({ { u"A\u00A0 \u00A0B\x01"_s, u"C\x7F\u009F"_s, {} } });
        QCOMPARE(names, QStringList(u"Abrechnung 2026 A B_ C__.pdf"_s));
    }

    void a_long_name_is_cut_to_what_file_systems_take()
    {
        const QStringList names = NamesOf({ { QString(300, u'x'), u"A"_s, u"1"_s },
            { QString(300, u'x'), u"A"_s, u"1"_s }, { QString(300, u'ü'), u"A"_s, u"1"_s },
            { u"\U0001F33B"_s.repeated(150), u"A"_s, u"1"_s },
            { QString(88, u'x') + u"... "_s + QString(9, u'y'), u"A"_s, u"1"_s } });
        QCOMPARE(names[0].size(), 120);
        QVERIFY(names[1].endsWith(u"xx (2).pdf"_s));
        QCOMPARE(names[1].size(), 120);
        QCOMPARE(names[2].size(), 120);
        QVERIFY(names[2].toUtf8().size() <= 240);
        QVERIFY(names[3].toUtf8().size() <= 240);
        QVERIFY(names[3].toUtf8().contains("\xF0\x9F\x8C\xBB.pdf")); // no half of a sign
        QVERIFY2(names[4].endsWith(u"xx.pdf"_s), qPrintable(names[4])); // no points at the end
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
    }

    void all_bills_in_one_file_have_a_name_of_their_own()
    {
        QCOMPARE(AllBillsFileName(u"2026"_s), u"Abrechnungen 2026.pdf"_s);
    }
};

const TestFile<TestBillFileNames> test_file(__FILE__);
#include "test_bill_file_names.moc"
