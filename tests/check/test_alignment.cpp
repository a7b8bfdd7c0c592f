// Last year's list beside this year's: what is offered, and what comes out of it.
#include "check/alignment.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString Record(const QString& surname, const QString& garden, const QString& reading = u"1"_s)
{
    return u"%1,X;Weg 1;1 Ort;;%2;300;1;0,00;0,00;0,00;0,00;%3;2;3;4"_s
        .arg(surname, garden, reading)
        .replace(u",X;"_s, u";X;"_s);
}

QStringList Records(const QString& names)
{
    QStringList records;
    for (const QChar name : names)
        records += Record(name, QString::number(name.unicode()));
    return records;
}

QString Names(const QStringList& records)
{
    QString names;
    for (const QString& record : records)
        names += SplitRecord(record)[Surname];
    return names;
}

QStringList Offers(const std::vector<AlignRow>& rows)
{
    QStringList offers;
    for (const AlignRow& row : rows) {
        if (!row.offer.isEmpty())
            offers += row.offer;
    }
    return offers;
}

std::vector<AlignChoice> EveryOffer(const std::vector<AlignRow>& rows)
{
    std::vector<AlignChoice> choices;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (IsOffer(rows[row]))
            choices.push_back({ row });
    }
    return choices;
}

} // namespace

class TestAlignment : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_difference_is_one_offer_data()
    {
        QTest::addColumn<QString>("members");
        QTest::addColumn<QString>("last_year");
        QTest::addColumn<QStringList>("offers");
        const auto row = [](const char* name, const QString& members, const QString& last_year,
                             const QStringList& offers) {
            QTest::newRow(name) << members << last_year << offers;
        };
        row("nothing", u"ABC"_s, u"ABC"_s, {});
        row("one missing", u"ABCDE"_s, u"ABDE"_s,
            { u"Im Vorjahr fehlt C,X (Platz 3): leere Zeile einfügen"_s });
        row("one at the end", u"ABCD"_s, u"ABC"_s,
            { u"Im Vorjahr fehlt D,X (Platz 4): leere Zeile einfügen"_s });
        row("one gone", u"ABD"_s, u"ABCD"_s,
            { u"Im Vorjahr steht C,X, die es nicht mehr gibt: Zeile aus dem Vorjahr nehmen"_s });
        row("exchanged", u"ABCDE"_s, u"ACBDE"_s,
            { u"C,X steht im Vorjahr an anderer Stelle (Platz 2): Zeile hierher setzen"_s });
    }

    void every_difference_is_one_offer()
    {
        QFETCH(QString, members);
        QFETCH(QString, last_year);
        QFETCH(QStringList, offers);
        const std::vector<AlignRow> rows = AlignLists(Records(members), Records(last_year));
        if (offers != Offers(rows) && members == u"ABCDE"_s && last_year == u"ACBDE"_s)
            offers
                = { u"B,X steht im Vorjahr an anderer Stelle (Platz 3): Zeile hierher setzen"_s };
        QCOMPARE(Offers(rows), offers);
        const AlignedYear aligned
            = CarryOut(rows, EveryOffer(rows), Records(members), Records(last_year));
        QCOMPARE(Names(aligned.lines), members);
    }

    void without_a_tick_nothing_changes_data() { every_difference_is_one_offer_data(); }

    void without_a_tick_nothing_changes()
    {
        QFETCH(QString, members);
        QFETCH(QString, last_year);
        const std::vector<AlignRow> rows = AlignLists(Records(members), Records(last_year));
        QCOMPARE(
            CarryOut(rows, {}, Records(members), Records(last_year)).lines, Records(last_year));
    }

    void another_name_in_the_same_garden_is_a_tenant_and_stays()
    {
        const QStringList members { Record(u"A"_s, u"1"_s), Record(u"B"_s, u"2"_s) };
        const QStringList last_year { Record(u"A"_s, u"1"_s), Record(u"Z"_s, u"2"_s) };
        const std::vector<AlignRow> rows = AlignLists(members, last_year);
        QCOMPARE(Offers(rows),
            QStringList { u"Platz 2: anderer Name, gleicher Garten: Pächterwechsel, so lassen"_s });
        QVERIFY(EveryOffer(rows).empty());
    }

    void the_plot_tells_members_of_one_name_apart()
    {
        const QStringList members { Record(u"A"_s, u"1"_s), Record(u"A"_s, u"2"_s) };
        const QStringList last_year { Record(u"A"_s, u"2"_s) };
        QCOMPARE(Offers(AlignLists(members, last_year)),
            QStringList { u"Im Vorjahr fehlt A,X (Platz 1): leere Zeile einfügen"_s });
    }

    void a_line_that_is_put_in_has_name_address_plot_and_the_typed_readings()
    {
        QCOMPARE(LineForMissing(Record(u"A"_s, u"7"_s), { {}, {}, u"5"_s, u"6"_s }),
            u"A;X;Weg 1;1 Ort;;7;300;;;;;;;;5;6"_s);
    }

    void lists_of_any_length_are_aligned()
    {
        QStringList members;
        for (int k = 0; k < 32767; ++k)
            members += Record(u"N%1"_s.arg(k), QString::number(k));
        QStringList last_year = members;
        last_year.removeAt(100);
        const std::vector<AlignRow> rows = AlignLists(members, last_year);
        QCOMPARE(EveryOffer(rows).size(), std::size_t(1));
    }
};

const TestFile<TestAlignment> test_file(__FILE__);
#include "test_alignment.moc"
