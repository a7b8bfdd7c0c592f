// The dialog "Zähler gewechselt": fields, sentences, what reaches the form, the bill and next year.
#include "members/member_lists.h"
#include "outgoing/meter_change_form.h"
#include "statement/annual_statement.h"
#include "tests/support/club.h"
#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include "controls/fields.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct ChangedMeter : TestClub {
    ChangedMeter()
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
    }

    void Open() { Control<QAction>("MoreMeter")->trigger(); }
    QLineEdit* Field(const char* name) { return Control<QLineEdit>(name); }
    QString LabelText(const char* name) { return Control<QLabel>(name)->text(); }
    QPushButton* Enter() { return Control<QPushButton>("MeterEnter"); }
};

QString ChargedQuantity(const QString& start, const QString& end)
{
    QStringList fields(MemberFieldCount);
    fields[ElectricityStart] = start;
    fields[ElectricityEnd] = end;
    BillSource source = OneMember(JoinRecord(fields));
    source.Prices.ElectricityPrice = u"0,25"_s;
    return ComputeStatement(source, 0).rows[ElectricityRow].quantity.value_or(QString());
}

} // namespace

class TestMeterChangeForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_start_is_shown_and_the_new_meter_begins_at_0()
    {
        ChangedMeter club;
        club.Field("Text1(0)")->setText(u"1200"_s);
        club.Open();
        QCOMPARE(club.Field("MeterStart")->text(), u"1200"_s);
        QVERIFY(club.Field("MeterStart")->isReadOnly());
        QCOMPARE(club.Field("MeterNewIn")->text(), u"0"_s);
        QVERIFY(!club.Enter()->isEnabled());
        QCOMPARE(club.LabelText("MeterSentence"),
            u"Bitte eine Zahl mit Dezimalkomma eintragen, zum Beispiel 1450."_s);
    }

    void both_results_are_shown_while_typing()
    {
        ChangedMeter club;
        club.Field("Text1(0)")->setText(u"1200"_s);
        club.Open();
        QTest::keyClicks(club.Field("MeterOldOut"), u"1450"_s);
        QCOMPARE(club.LabelText("MeterConsumption"), u"Verbrauch mit dem alten Zähler: 250 KWh"_s);
        QCOMPARE(club.LabelText("MeterNewStart"), u"Neuer Anfangsstand: -250"_s);
        QVERIFY(club.Enter()->isEnabled());
    }

    void the_start_is_entered_and_nothing_saved_before_ok_data()
    {
        QTest::addColumn<bool>("water");
        QTest::addColumn<QByteArray>("field");
        QTest::newRow("electricity") << false << QByteArray("Text1(0)");
        QTest::newRow("water") << true << QByteArray("Text1(3)");
    }

    void the_start_is_entered_and_nothing_saved_before_ok()
    {
        QFETCH(bool, water);
        QFETCH(QByteArray, field);
        ChangedMeter club;
        const QByteArray before = club.Read(u"Mitgliedsdaten2017.pz"_s);
        club.Field(field.constData())->setText(u"12,4"_s);
        club.Open();
        Find<QRadioButton>(club.Window(), water ? u"MeterWater"_s : u"MeterElectricity"_s)->click();
        club.Field("MeterOldOut")->setText(u"15,5"_s);
        QVERIFY(club.LabelText("MeterConsumption").endsWith(water ? u"3,1 m³"_s : u"3,1 KWh"_s));
        club.Enter()->click();
        QCOMPARE(club.Field(field.constData())->text(), u"-3,1"_s);
        QCOMPARE(TintOf(club.Field(field.constData())), TintKind::Unsaved);
        QCOMPARE(club.Field(field.constData())->toolTip(), u"Zählerwechsel eingerechnet"_s);
        QCOMPARE(club.Read(u"Mitgliedsdaten2017.pz"_s), before);
        QVERIFY(!Find<QDialog>(club.Window(), u"MeterChange"_s)->isVisible());
    }

    void what_is_wrong_is_tinted_and_the_button_grey_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("old_out");
        QTest::addColumn<QString>("new_in");
        QTest::addColumn<QByteArray>("field");
        QTest::newRow("no start") << QString() << u"5"_s << u"0"_s << QByteArray("MeterStart");
        QTest::newRow("no number") << u"1"_s << u"5x"_s << u"0"_s << QByteArray("MeterOldOut");
        QTest::newRow("below start") << u"10"_s << u"5"_s << u"0"_s << QByteArray("MeterOldOut");
        QTest::newRow("new empty") << u"1"_s << u"5"_s << QString() << QByteArray("MeterNewIn");
    }

    void what_is_wrong_is_tinted_and_the_button_grey()
    {
        QFETCH(QString, start);
        QFETCH(QString, old_out);
        QFETCH(QString, new_in);
        QFETCH(QByteArray, field);
        ChangedMeter club;
        club.Field("Text1(0)")->setText(start);
        club.Open();
        club.Field("MeterOldOut")->setText(old_out);
        club.Field("MeterNewIn")->setText(new_in);
        QVERIFY(!club.Enter()->isEnabled());
        QCOMPARE(TintOf(club.Field(field.constData())), TintKind::Wrong);
        QVERIFY(!club.LabelText("MeterSentence").isEmpty());
    }

    void keys_alone_are_enough()
    {
        ChangedMeter club;
        club.Field("Text1(0)")->setText(u"1200"_s);
        QVERIFY(QTest::qWaitForWindowActive(club.program.Window.Window));
        club.Open();
        auto* dialog = Find<QDialog>(club.Window(), u"MeterChange"_s);
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QCOMPARE(dialog->focusWidget(), club.Field("MeterOldOut"));
        QTest::keyClicks(dialog->focusWidget(), u"1450"_s);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        QCOMPARE(club.Field("Text1(0)")->text(), u"-250"_s);
    }

    void bill_and_next_year_contain_both_meters_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("row_1");
        QTest::addColumn<QString>("next_start");
        QTest::newRow("1") << u"-250"_s << u"100"_s << u"350"_s << u"100"_s;
        QTest::newRow("4") << u"-104,6"_s << u"31"_s << u"136"_s << u"31"_s;
        QTest::newRow("5") << u"-3,1"_s << u"13"_s << u"16"_s << u"13"_s;
        QTest::newRow("9") << u"-16,75"_s << u"2"_s << u"19"_s << u"2"_s;
        QTest::newRow("11") << u"-0,2"_s << u"0,6"_s << u"1"_s << u"0,6"_s;
    }

    void bill_and_next_year_contain_both_meters()
    {
        QFETCH(QString, start);
        QFETCH(QString, end);
        QTEST(ChargedQuantity(start, end), "row_1");
        QStringList fields(MemberFieldCount);
        fields[ElectricityStart] = start;
        fields[ElectricityEnd] = end;
        const QStringList rolled = RollReadingsForward({ JoinRecord(fields) }, u"x"_s);
        QTEST(SplitRecord(rolled.front())[ElectricityStart], "next_start");
    }
};

const TestFile<TestMeterChangeForm> test_file(__FILE__);
#include "test_meter_change_form.moc"
