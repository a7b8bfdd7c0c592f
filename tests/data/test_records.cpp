// The two line formats, taken apart and put together again.
#include "data/records.h"

#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void a_record_is_split_at_every_separator_and_joined_without_one_at_the_end()
    {
        QCOMPARE(SplitRecord(u"a;;b;"_s), (QStringList { u"a"_s, {}, u"b"_s, {} }));
        QCOMPARE(SplitRecord({}), QStringList { QString() });
        QCOMPARE(JoinRecord({ u"a"_s, {}, u"b"_s }), u"a;;b"_s);
    }

    void a_field_that_is_not_there_is_an_error_at_its_place()
    {
        const QStringList fields { u"Albers"_s, u"Grete"_s };
        Place where;
        where.file = u"Mitgliedsdaten2017.pz"_s;
        where.line = 3;
        QCOMPARE(FieldAt(fields, FirstName, where), u"Grete"_s);
        for (const int field : { -1, static_cast<int>(Street) }) {
            try {
                FieldAt(fields, field, where);
                QFAIL("no error");
            } catch (const RuntimeError& error) {
                QCOMPARE(error.kind, ErrorKind::SubscriptOutOfRange);
                QCOMPARE(error.where.line, 3);
            }
        }
    }

    void a_field_that_is_not_there_can_also_be_empty()
    {
        QCOMPARE(FieldOrEmpty({ u"Albers"_s }, Surname), u"Albers"_s);
        QCOMPARE(FieldOrEmpty({ u"Albers"_s }, WaterEnd), QString());
        QCOMPARE(NameEntry({ u"Albers"_s }), u"Albers,"_s);
        QCOMPARE(NameEntry({ u"Albers"_s, u"Grete"_s, u"Weg 1"_s }), u"Albers,Grete"_s);
    }

    void only_the_sixteen_fields_have_captions()
    {
        QCOMPARE(MemberFieldCaption(Surname), u"Name"_s);
        QCOMPARE(MemberFieldCaption(WaterEnd), u"Endstand Wasser"_s);
        QCOMPARE(MemberFieldCaption(-1), QString());
        QCOMPARE(MemberFieldCaption(MemberFieldCount), QString());
    }

    void a_booking_has_four_fields()
    {
        QCOMPARE(FirstFourFields({ u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s }), u"1;2;3;4"_s);
        QCOMPARE(FirstFourFields({ u"1"_s }), u"1;;;"_s);
    }
};

const TestFile<TestRecords> test_file(__FILE__);
#include "test_records.moc"
