// A members line taken apart for the rules.
#include "check/check_member.h"

#include "tests/support/test_file.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QStringList FieldsOf(const CheckMember& member)
{
    QStringList fields;
    for (int field = 0; field <= MemberFieldCount; ++field)
        fields += FieldOf(member, field);
    return fields;
}

} // namespace

class TestCheckMember : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fields_are_those_of_the_split_line()
    {
        QRandomGenerator dice(20261122);
        const QString signs = u";;;:<aż€\u3b3b"_s; // neighbours of the ";", and one made of two
        for (int round = 0; round < 2000; ++round) {
            QString line;
            for (quint32 left = dice.bounded(40U); left > 0; --left)
                line += signs[dice.bounded(static_cast<quint32>(signs.size()))];
            const QStringList lines { line };
            const CheckMember member = TakeMembersApart(lines, PlotSize).front();
            QStringList fields = SplitRecord(line);
            QCOMPARE(member.FieldCount, fields.size());
            QCOMPARE(member.Whole, fields.size() == MemberFieldCount);
            fields.resize(MemberFieldCount + 1);
            QCOMPARE(FieldsOf(member), fields);
        }
    }

    void numbers_are_read_from_the_given_field_on()
    {
        const QStringList lines { u";;;;;;300;x;1,5;2,345;;0;10;20;30;1000"_s };
        const CheckMember member = TakeMembersApart(lines, PlotSize).front();
        QCOMPARE(NumberIn(member, PlotSize).value, 300.0);
        QVERIFY(IsNoNumber(member, Instalments));
        QVERIFY(!member.PlainNumbers);
        QCOMPARE(NumberIn(member, WaterEnd).value, 1000.0);
        QVERIFY(IsEmptyOrZero(member, AccidentPremium));
        QVERIFY(IsEmptyOrZero(member, BuildingPremium));
        QVERIFY(!IsEmptyOrZero(member, LegalPremium));
        QVERIFY(AreFilledAndDifferent(member, ElectricityStart, ElectricityEnd));
        const CheckMember before = TakeMembersApart(lines, ElectricityStart).front();
        QCOMPARE(NumberIn(before, PlotSize).value, 0.0); // not read
        QCOMPARE(NumberIn(before, ElectricityEnd).value, NumberIn(member, ElectricityEnd).value);
    }
};

const TestFile<TestCheckMember> test_file(__FILE__);
#include "test_check_member.moc"
