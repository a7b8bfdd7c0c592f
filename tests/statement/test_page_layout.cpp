#include "statement/page_layout.h"

#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString record = u"Meier;Anna;Gartenweg 3;01234 Musterdorf/OT Nord;030 1;4;300;;;;;;;;;"_s;

QStringList Described(const BillSource& source)
{
    PageItems page;
    DrawFixedContents(page, source);
    return DescribePage(page);
}

/// The cells of the text of that name; empty when the page has none.
QStringList TextNamed(const QStringList& page, const QString& element)
{
    for (const QString& line : page) {
        if (line.startsWith(u"text\t"_s + element + u'\t'))
            return line.split(u'\t');
    }
    return {};
}

} // namespace

class TestPageLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void boxes_and_lines_follow_their_rows_label();
    void the_year_and_the_year_after_stand_in_their_rows();
    void row_ten_ends_in_one_in_every_year();
    void a_price_is_printed_exactly_as_typed();
    void an_empty_price_keeps_its_place();
    void a_long_club_name_stays_one_line();
    void nothing_but_the_club_name_is_large_and_two_words_are_red();
    void bank_and_treasurer_are_woven_into_their_sentences();
    void contacts_stand_in_two_columns();
    void a_contact_that_is_not_found_is_reported_on_the_page_only();
    void without_first_contact_the_closing_line_begins_with_the_comma();
    void the_closing_line_is_exact();
    void a_short_record_stops_the_first_page_before_its_contacts();
    void an_empty_list_draws_no_page_and_no_total();
    void the_fixed_contents_are_recorded_once_for_all_pages();
};

void TestPageLayout::boxes_and_lines_follow_their_rows_label()
{
    const QStringList page = Described(OneMember(record));
    QString label;
    QStringList drawn;
    for (const QString& line : page) {
        const QStringList cells = line.split(u'\t');
        if (cells[0] == u"text")
            label = cells[1];
        else
            drawn += label + u'\t' + line;
    }
    QStringList expected;
    for (const TableRow& row : ReadTable(QStringLiteral(PARZELLO_FIXTURES "/page_grid.tsv")))
        expected += QStringList { row[u"after"_s], row[u"kind"_s], row[u"x1"_s], row[u"y1"_s],
            row[u"x2"_s], row[u"y2"_s] }
                        .join(u'\t');
    QCOMPARE(expected.size(), 28);
    QCOMPARE(drawn, expected);
}

void TestPageLayout::the_year_and_the_year_after_stand_in_their_rows()
{
    const QStringList page = Described(OneMember(record));
    QCOMPARE(TextNamed(page, u"title"_s)[2], u"Abrechnung Kleingarten 2016"_s);
    QCOMPARE(TextNamed(page, u"row_2_label"_s)[2], u"     2 Vorauszahlung 2016"_s);
    QCOMPARE(TextNamed(page, u"row_3_label"_s)[2], u"     3 Vorauszahlung 2017"_s);
    QCOMPARE(TextNamed(page, u"row_7_label"_s)[2], u"     7 Vorauszahlung 2016"_s);
    QCOMPARE(TextNamed(page, u"row_8_label"_s)[2], u"     8 Vorauszahlung 2017"_s);
    QVERIFY(TextNamed(page, u"row_11_label"_s)[2].startsWith(u"    11 Pacht 2017 "_s));
    QVERIFY(TextNamed(page, u"row_12_label"_s)[2].startsWith(u"   12 Grundsteuer(GS)A 2017 "_s));
}

void TestPageLayout::row_ten_ends_in_one_in_every_year()
{
    for (const QString& year : { u"1999"_s, u"2016"_s, u"2031"_s }) {
        BillSource source = OneMember(record);
        source.YearText = year;
        QCOMPARE(
            TextNamed(Described(source), u"row_10_label"_s)[2], u"    10 Mitgliedsbeitrag 1"_s);
    }
}

void TestPageLayout::a_price_is_printed_exactly_as_typed()
{
    BillSource source = OneMember(record);
    source.Prices.ElectricityPrice = u"0,2850"_s;
    source.Prices.WaterPrice = u" 2 Euro"_s;
    const QStringList page = Described(source);
    QCOMPARE(
        TextNamed(page, u"row_1_factor"_s).mid(2).join(u'|'), u"0,2850|right|458|306|8|0|0,0,0"_s);
    QCOMPARE(
        TextNamed(page, u"row_6_factor"_s).mid(2).join(u'|'), u" 2 Euro|right|458|378|8|0|0,0,0"_s);
    QCOMPARE(TextNamed(page, u"row_11_factor"_s).mid(2, 4).join(u'|'), u"0,08|right|458|464"_s);
    QCOMPARE(TextNamed(page, u"row_12_factor"_s).mid(2, 4).join(u'|'), u"0,02|right|458|488"_s);
    QCOMPARE(TextNamed(page, u"row_13_factor"_s).mid(2, 4).join(u'|'), u"0,03|right|458|512"_s);
}

void TestPageLayout::an_empty_price_keeps_its_place()
{
    BillSource source = OneMember(record);
    source.Prices.Lease.clear();
    QCOMPARE(
        TextNamed(Described(source), u"row_11_factor"_s).mid(2, 4).join(u'|'), u"|right|458|464"_s);
}

void TestPageLayout::a_long_club_name_stays_one_line()
{
    BillSource source = OneMember(record);
    source.ClubName = QString(300, u'W');
    QCOMPARE(TextNamed(Described(source), u"club_name"_s).mid(2).join(u'|'),
        QString(300, u'W') + u"|left|35|60|14|0|0,0,0"_s);
}

void TestPageLayout::nothing_but_the_club_name_is_large_and_two_words_are_red()
{
    QStringList large;
    QStringList red;
    QStringList bold;
    for (const QString& line : Described(OneMember(record))) {
        const QStringList cells = line.split(u'\t');
        if (cells[0] != u"text")
            continue;
        if (cells[6] != u"8")
            large += cells[1];
        if (cells[7] == u"1")
            bold += cells[1];
        if (cells[8] != u"0,0,0")
            red += cells[1];
    }
    QCOMPARE(large, QStringList(u"club_name"_s));
    QCOMPARE(red, (QStringList { u"iban_red"_s, u"bic_red"_s }));
    QCOMPARE(bold,
        (QStringList { u"title"_s, u"row_5_label"_s, u"row_9_label"_s, u"row_10_label"_s,
            u"row_11_label"_s, u"row_12_label"_s, u"row_13_label"_s, u"row_17_label"_s,
            u"row_18_label"_s, u"iban"_s, u"iban_red"_s, u"bic"_s, u"bic_red"_s }));
}

void TestPageLayout::bank_and_treasurer_are_woven_into_their_sentences()
{
    BillSource source = OneMember(record);
    source.Bank = { u"Volksbank"_s, u"DE00"_s, u"ROTF"_s, {}, {}, u"Renate Noack"_s, u"Frau"_s };
    source.Prices.PaymentDeadline = u"20.12.2016"_s;
    const QStringList page = Described(source);
    QCOMPARE(TextNamed(page, u"transfer"_s)[2],
        u"Wir bitten um Überweisung der Gesamtsumme auf das Konto der Volksbank"_s);
    QCOMPARE(TextNamed(page, u"iban"_s)[2], u"IBAN DE00"_s);
    QCOMPARE(TextNamed(page, u"bic"_s)[2], u"BIC ROTF    Termin 20.12.2016"_s);
    QCOMPARE(TextNamed(page, u"hardship_2"_s)[2],
        u"besteht nach Rücksprache mit Frau Renate Noack , die Möglichkeit einer 3"
        " Monatsratenzahlung."_s);
}

void TestPageLayout::contacts_stand_in_two_columns()
{
    BillSource source = OneMember(record);
    source.Bank.FirstContact = u"Meier,Anna"_s;
    source.Bank.SecondContact = u"Meier,Anna"_s;
    const QStringList page = Described(source);
    const QStringList names { u"name"_s, u"street"_s, u"town"_s, u"town2"_s, u"phone"_s };
    for (int i = 0; i < 5; ++i) {
        const QString y = QString::number(744 + 12 * i);
        QCOMPARE(TextNamed(page, u"contact_1_"_s + names[i]).mid(3, 3),
            (QStringList { u"left"_s, u"250"_s, y }));
        QCOMPARE(TextNamed(page, u"contact_2_"_s + names[i]).mid(3, 3),
            (QStringList { u"left"_s, u"400"_s, y }));
    }
    QCOMPARE(TextNamed(page, u"contact_1_name"_s)[2], u"Anna Meier             oder    "_s);
    QCOMPARE(TextNamed(page, u"contact_2_name"_s)[2], u"Anna Meier          "_s);
    QCOMPARE(TextNamed(page, u"contact_2_town2"_s)[2], u"OT Nord             "_s);
}

void TestPageLayout::a_contact_that_is_not_found_is_reported_on_the_page_only()
{
    BillSource source = OneMember(record);
    source.Bank.FirstContact = u"Meier, Anna"_s;
    const QStringList page = Described(source);
    QCOMPARE(TextNamed(page, u"contact_1_name"_s).mid(2, 4).join(u'|'),
        u"Datensatz fehlt     |left|250|744"_s);
    QCOMPARE(TextNamed(page, u"contact_2_name"_s).mid(2, 4).join(u'|'),
        u"Datensatz fehlt     |left|400|744"_s);
    QVERIFY(TextNamed(page, u"contact_1_street"_s).isEmpty());
    QVERIFY(TextNamed(page, u"contact_2_phone"_s).isEmpty());
}

void TestPageLayout::without_first_contact_the_closing_line_begins_with_the_comma()
{
    BillSource source = OneMember(record);
    source.Bank.SecondContact = u"Meier,Anna"_s;
    QVERIFY(TextNamed(Described(source), u"closing"_s)[2].startsWith(u", den 25.11.2016 "_s));
}

void TestPageLayout::the_closing_line_is_exact()
{
    BillSource source = OneMember(record);
    source.Bank.FirstContact = u"Meier,Anna"_s;
    source.Bank.TreasurerName = u"Renate Noack"_s;
    QCOMPARE(TextNamed(Described(source), u"closing"_s).mid(2, 4).join(u'|'),
        u"Musterdorf, den 25.11.2016"_s + QString(32, u' ') + u"Renate Noack"_s + QString(36, u' ')
            + u"Vielen Dank |left|25|840"_s);
}

void TestPageLayout::a_short_record_stops_the_first_page_before_its_contacts()
{
    BillSource source = OneMember(record);
    source.Bank.FirstContact = u"Lang,Ida"_s;
    source.Members.RecordList += u"zu;kurz"_s;
    source.Members.RecordList += record;
    StatementState statement;
    bool stopped = false;
    try {
        DrawAllPages(statement, source);
    } catch (const RuntimeError& error) {
        stopped = error.kind == ErrorKind::SubscriptOutOfRange && error.where.line == 2;
    }
    QVERIFY(stopped);
    QVERIFY(TextRows(statement, 0).last().startsWith(u"questions_2\t"_s));
    QVERIFY(TextRows(statement, 1).isEmpty());
    QVERIFY(TextRows(statement, 2).isEmpty());
    QVERIFY(statement.StatementTotals.isEmpty());
}

void TestPageLayout::an_empty_list_draws_no_page_and_no_total()
{
    BillSource source = OneMember(record);
    source.Members.RecordList.clear();
    StatementState statement;
    statement.PageSelection = u"0;1"_s;
    statement.FixedPages = 3;
    DrawAllPages(statement, source);
    QVERIFY(statement.FixedContents.empty());
    QVERIFY(PageCount(statement) == 0);
    QVERIFY(ContentsOfPage(statement, 0).fixed == nullptr);
    QVERIFY(ContentsOfPage(statement, 0).member.empty());
    QCOMPARE(statement.PageSelection, QString()); // the amounts were drawn all the same
}

void TestPageLayout::the_fixed_contents_are_recorded_once_for_all_pages()
{
    BillSource source = OneMember(record);
    source.Members.RecordList += record;
    StatementState statement;
    DrawAllPages(statement, source);
    QCOMPARE(ContentsOfPage(statement, 0).fixed, ContentsOfPage(statement, 1).fixed);
    QVERIFY(ContentsOfPage(statement, 2).fixed == nullptr);
    QVERIFY(ContentsOfPage(statement, -1).fixed == nullptr);
    const std::size_t items = statement.FixedContents.size();
    DrawAllPages(statement, source);
    QCOMPARE(statement.FixedContents.size(), items);
}

const TestFile<TestPageLayout> test_file(__FILE__);
#include "test_page_layout.moc"
