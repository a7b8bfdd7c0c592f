#include "statement/contacts.h"

#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString anna = u"Meier;Anna;Gartenweg 3;01234 Musterdorf/OT Nord;030 1;4;300;;;;;;;;;"_s;
const QString uwe = u"Meier;Uwe;Feldrain 1;38999 Grünau;030 2;5;300;;;;;;;;;"_s;

BillSource Club(const QStringList& records)
{
    BillSource source = OneMember({});
    source.Members.RecordList = records;
    return source;
}

ErrorKind KindOf(const QString& setting, const BillSource& source, RuntimeError* thrown = nullptr)
{
    try {
        FindContact(setting, source);
    } catch (const RuntimeError& error) {
        if (thrown != nullptr)
            *thrown = error;
        return error.kind;
    }
    return ErrorKind::File;
}

} // namespace

class TestContacts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void surname_and_first_name_decide_exactly_data();
    void surname_and_first_name_decide_exactly();
    void the_five_lines_are_twenty_characters_wide();
    void texts_beyond_twenty_characters_are_cut();
    void the_town_is_divided_at_the_first_slash_only();
    void the_first_of_two_namesakes_is_taken();
    void a_setting_without_comma_does_not_even_search();
    void a_record_with_four_fields_on_the_way_is_named();
    void a_short_record_behind_the_person_does_not_matter();
    void the_closing_town_leaves_the_postcode_out_data();
    void the_closing_town_leaves_the_postcode_out();
};

void TestContacts::surname_and_first_name_decide_exactly_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("found");
    QTest::newRow("as in the list") << u"Meier,Anna"_s << true;
    QTest::newRow("blank behind the comma") << u"Meier, Anna"_s << false;
    QTest::newRow("blank at the end") << u"Meier,Anna "_s << false;
    QTest::newRow("other letter case") << u"meier,Anna"_s << false;
    QTest::newRow("first name alone") << u"Anna"_s << false;
    QTest::newRow("surname and comma") << u"Meier,"_s << false;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("third part is ignored") << u"Meier,Anna,Tante"_s << true;
    QTest::newRow("part of the surname") << u"Mei,Anna"_s << false;
}

void TestContacts::surname_and_first_name_decide_exactly()
{
    QFETCH(QString, setting);
    QFETCH(bool, found);
    QCOMPARE(FindContact(setting, Club({ uwe, anna })).found, found);
}

void TestContacts::the_five_lines_are_twenty_characters_wide()
{
    const ContactPerson person = FindContact(u"Meier,Uwe"_s, Club({ anna, uwe }));
    QCOMPARE(person.name, u"Uwe Meier           "_s);
    QCOMPARE(person.street, u"Feldrain 1          "_s);
    QCOMPARE(person.town, u"38999 Grünau        "_s);
    QCOMPARE(person.second_town, QString(20, u' '));
    QCOMPARE(person.telephone, u"030 2               "_s);
}

void TestContacts::texts_beyond_twenty_characters_are_cut()
{
    QCOMPARE(TwentyCharacters(u"Maximilian Mustermannhausen"_s), u"Maximilian Musterman"_s);
    QCOMPARE(TwentyCharacters(u"12345678901234567890"_s), u"12345678901234567890"_s);
    QCOMPARE(TwentyCharacters({}), QString(20, u' '));
}

void TestContacts::the_town_is_divided_at_the_first_slash_only()
{
    const ContactPerson person
        = FindContact(u"A,B"_s, Club({ u"A;B;;01234 Dorf/OT Nord/Süd;;;;;;;;;;;;"_s }));
    QCOMPARE(person.town, TwentyCharacters(u"01234 Dorf"_s));
    QCOMPARE(person.second_town, TwentyCharacters(u"OT Nord/Süd"_s));
}

void TestContacts::the_first_of_two_namesakes_is_taken()
{
    const BillSource club = Club({ anna, u"Meier;Anna;Zweite Straße 2;;;;;;;;;;;;;"_s });
    QCOMPARE(FindContact(u"Meier,Anna"_s, club).street, TwentyCharacters(u"Gartenweg 3"_s));
}

void TestContacts::a_setting_without_comma_does_not_even_search()
{
    QVERIFY(!FindContact(u"Meier"_s, Club({ u"zu kurz"_s })).found);
    QVERIFY(!FindContact({}, Club({ u"zu kurz"_s })).found);
}

void TestContacts::a_record_with_four_fields_on_the_way_is_named()
{
    RuntimeError error;
    QCOMPARE(KindOf(u"Meier,Anna"_s, Club({ uwe, u"Lang;Ida;Weg 1;01234 Ort"_s, anna }), &error),
        ErrorKind::SubscriptOutOfRange);
    QCOMPARE(error.where.file, u"Mitgliedsdaten2016.pz"_s);
    QCOMPARE(error.where.line, 2);
    QCOMPARE(error.where.member, u"Lang,Ida"_s);
    QCOMPARE(error.where.field, u"Telefon"_s);
    QVERIFY(error.where.remedy.contains(u"„Speichern“"_s));
}

void TestContacts::a_short_record_behind_the_person_does_not_matter()
{
    QVERIFY(FindContact(u"Meier,Anna"_s, Club({ anna, u"kurz"_s })).found);
    QVERIFY(FindContact(u"Lang,Ida"_s, Club({ u"Lang;Ida;Weg 1;01234 Ort;030"_s })).found);
}

void TestContacts::the_closing_town_leaves_the_postcode_out_data()
{
    QTest::addColumn<QString>("town");
    QTest::addColumn<QString>("closing");
    QTest::newRow("plain") << u"01234 Musterdorf"_s << u"Musterdorf"_s;
    QTest::newRow("with part of town") << u"01234 Musterdorf/OT Nord"_s << u"Musterdorf"_s;
    QTest::newRow("two blanks") << u"01234  Musterdorf "_s << u"Musterdorf"_s;
    QTest::newRow("cut at twenty") << u"99998 Hohenwalde am Berge"_s << u"Hohenwalde am"_s;
    QTest::newRow("without postcode") << u"Musterdorf"_s << u"dorf"_s;
    QTest::newRow("shorter than a postcode") << u"Ort"_s << QString();
    QTest::newRow("a tab is no blank") << u"01234 \tOrt"_s << u"\tOrt"_s;
}

void TestContacts::the_closing_town_leaves_the_postcode_out()
{
    QFETCH(QString, town);
    QFETCH(QString, closing);
    const BillSource club = Club({ u"A;B;;"_s + town + u";;;;;;;;;;;;"_s });
    QCOMPARE(ClosingTown(FindContact(u"A,B"_s, club)), closing);
    QCOMPARE(ClosingTown(FindContact(u"X,Y"_s, club)), QString());
}

const TestFile<TestContacts> test_file(__FILE__);
#include "test_contacts.moc"
