#include "statement/bill_amounts.h"

#include "data/records.h"
#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/test_file.h"

#include <QHash>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A record with plot size, four premiums and four readings.
QString Record(const QString& readings, const QString& size = u"300"_s,
    const QString& premiums = u"0,00;0,00;0,00;0,00"_s)
{
    return u"Meier;Anna;Gartenweg 3;01234 Musterdorf;030;4;"_s + size + u";1;"_s + premiums + u';'
        + readings;
}

const QString no_readings = u";;;"_s;
const QString readings = u"1200;1450;30;42"_s;

struct Drawn {
    StatementState statement;
    std::optional<RuntimeError> error;
    QHash<QString, QString> texts; ///< of the first page's member part, by element
    QStringList elements; ///< in drawing order
};

Drawn Draw(const BillSource& source)
{
    Drawn drawn;
    try {
        DrawAllPages(drawn.statement, source);
    } catch (const RuntimeError& error) {
        drawn.error = error;
    }
    for (const QString& line : DescribePage(ContentsOfPage(drawn.statement, 0).member)) {
        const QStringList cells = line.split(u'\t');
        drawn.texts[cells[1]] = cells[2];
        drawn.elements += cells[1];
    }
    return drawn;
}

Drawn DrawRecord(const QString& record, const QString& previous = {})
{
    return Draw(OneMember(record, previous));
}

} // namespace

class TestBillAmounts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_amount_has_its_place_in_drawing_order();
    void consumption_times_price_gives_the_amount();
    void without_readings_or_price_zero_is_drawn_and_the_amount_cell_stays_empty_data();
    void without_readings_or_price_zero_is_drawn_and_the_amount_cell_stays_empty();
    void the_consumption_is_rounded_half_to_even_data();
    void the_consumption_is_rounded_half_to_even();
    void a_meter_change_is_charged_as_it_is();
    void last_years_consumption_is_deducted_whatever_the_flag_data();
    void last_years_consumption_is_deducted_whatever_the_flag();
    void last_years_consumption_is_not_rounded_before_it_is_multiplied();
    void last_years_consumption_keeps_all_its_decimals();
    void a_negative_deduction_is_a_plain_amount();
    void next_years_prepayment_follows_its_flag();
    void next_years_prepayment_is_rounded_from_the_unrounded_cost_data();
    void next_years_prepayment_is_rounded_from_the_unrounded_cost();
    void products_are_double_precision();
    void the_surname_loses_one_trailing_two_data();
    void the_surname_loses_one_trailing_two();
    void empty_money_counts_as_zero();
    void plot_charges_show_the_size_as_typed();
    void premiums_are_rounded_and_summed();
    void the_flat_charge_is_rounded_to_two_decimals();
    void the_membership_fee_is_rounded_to_two_decimals();
    void a_fee_alone_gives_the_total_and_its_text();
    void the_running_total_is_single_and_starts_at_zero_for_each_member();
    void readings_are_single_precision();
    void everything_per_member_is_small_regular_and_black();
    void a_missing_year_before_leaves_its_fields_empty_data();
    void a_missing_year_before_leaves_its_fields_empty();
    void a_member_without_line_last_year_stops_the_drawing();
    void pairing_with_last_year_is_by_position();
    void text_that_is_no_number_is_named_data();
    void text_that_is_no_number_is_named();
    void a_price_that_is_no_number_is_named_data();
    void a_price_that_is_no_number_is_named();
    void a_short_record_names_its_first_missing_field_data();
    void a_short_record_names_its_first_missing_field();
    void a_short_line_of_last_year_is_named();
    void numbers_that_are_too_large_overflow_data();
    void numbers_that_are_too_large_overflow();
    void the_drawing_stops_and_earlier_members_stay_complete();
    void the_page_selection_is_emptied_even_when_the_drawing_stops();
    void totals_are_appended();
};

void TestBillAmounts::every_amount_has_its_place_in_drawing_order()
{
    const Drawn drawn = DrawRecord(Record(readings), Record(readings));
    QVERIFY(!drawn.error);
    const QStringList places { u"address_name left 60 180"_s, u"address_street left 60 200"_s,
        u"address_town left 60 220"_s, u"row_1_quantity right 378 306"_s,
        u"row_1_amount right 538 306"_s, u"row_2_amount right 538 318"_s,
        u"row_3_amount right 538 330"_s, u"row_4_amount right 538 342"_s,
        u"row_5_subtotal right 618 354"_s, u"row_6_quantity right 378 378"_s,
        u"row_6_amount right 538 378"_s, u"row_7_amount right 535 390"_s,
        u"row_8_amount right 538 402"_s, u"row_9_subtotal right 618 414"_s,
        u"row_10_subtotal right 618 440"_s, u"row_11_quantity right 378 464"_s,
        u"row_11_subtotal right 618 464"_s, u"row_12_quantity right 378 488"_s,
        u"row_12_subtotal right 618 488"_s, u"row_13_quantity right 378 512"_s,
        u"row_13_subtotal right 618 512"_s, u"row_14_amount right 538 536"_s,
        u"row_15_amount right 538 548"_s, u"row_16_amount right 538 560"_s,
        u"row_16b_amount right 538 572"_s, u"row_17_subtotal right 618 584"_s,
        u"row_18_total right 618 608"_s };
    QStringList seen;
    for (const QString& line : DescribePage(ContentsOfPage(drawn.statement, 0).member)) {
        const QStringList cells = line.split(u'\t');
        seen += (QStringList { cells[1] } + cells.mid(3, 3)).join(u' ');
    }
    QCOMPARE(seen, places);
}

void TestBillAmounts::consumption_times_price_gives_the_amount()
{
    const Drawn drawn = DrawRecord(Record(readings));
    QCOMPARE(drawn.texts[u"row_1_quantity"_s], u"250"_s);
    QCOMPARE(drawn.texts[u"row_1_amount"_s], u"62,50"_s);
    QCOMPARE(drawn.texts[u"row_6_quantity"_s], u"12"_s);
    QCOMPARE(drawn.texts[u"row_6_amount"_s], u"24,00"_s);
    QCOMPARE(drawn.texts[u"row_5_subtotal"_s], u"72,50"_s);
    QCOMPARE(drawn.texts[u"row_9_subtotal"_s], u"24,00"_s);
}

void TestBillAmounts::without_readings_or_price_zero_is_drawn_and_the_amount_cell_stays_empty_data()
{
    QTest::addColumn<QString>("both");
    QTest::addColumn<QString>("price");
    QTest::newRow("no end reading") << u"1200;;30;"_s << u"0,25"_s;
    QTest::newRow("no start reading") << u";1450;;42"_s << u"0,25"_s;
    QTest::newRow("no reading") << no_readings << u"0,25"_s;
    QTest::newRow("no price") << readings << QString();
}

void TestBillAmounts::without_readings_or_price_zero_is_drawn_and_the_amount_cell_stays_empty()
{
    QFETCH(QString, both);
    QFETCH(QString, price);
    BillSource source = OneMember(Record(both));
    source.Prices.ElectricityPrice = price;
    source.Prices.WaterPrice = price;
    source.Prices.ElectricityPrepayment = 1;
    source.Prices.WaterPrepayment = 1;
    const Drawn drawn = Draw(source);
    QVERIFY(!drawn.error);
    QCOMPARE(drawn.texts[u"row_1_quantity"_s], u"0"_s);
    QCOMPARE(drawn.texts[u"row_6_quantity"_s], u"0"_s);
    QVERIFY(!drawn.elements.contains(u"row_1_amount"_s));
    QVERIFY(!drawn.elements.contains(u"row_6_amount"_s));
    QCOMPARE(drawn.texts[u"row_3_amount"_s], u"0,00"_s);
    QCOMPARE(drawn.texts[u"row_8_amount"_s], u"0,00"_s);
    QCOMPARE(drawn.texts[u"row_5_subtotal"_s], u"10,00"_s);
    QCOMPARE(drawn.texts[u"row_9_subtotal"_s], u"0,00"_s);
}

void TestBillAmounts::the_consumption_is_rounded_half_to_even_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("electricity");
    QTest::addColumn<QString>("water");
    QTest::newRow("down") << u"100,4"_s << u"100"_s << u"25,00"_s << u"200,00"_s;
    QTest::newRow("half to even below") << u"100,5"_s << u"100"_s << u"25,00"_s << u"200,00"_s;
    QTest::newRow("half to even above") << u"101,5"_s << u"102"_s << u"25,50"_s << u"204,00"_s;
    QTest::newRow("up") << u"100,75"_s << u"101"_s << u"25,25"_s << u"202,00"_s;
    QTest::newRow("to zero from below") << u"-0,25"_s << u"0"_s << u"0,00"_s << u"0,00"_s;
    QTest::newRow("equal readings") << u"0"_s << u"0"_s << u"0,00"_s << u"0,00"_s;
}

void TestBillAmounts::the_consumption_is_rounded_half_to_even()
{
    QFETCH(QString, end);
    QFETCH(QString, quantity);
    QFETCH(QString, electricity);
    QFETCH(QString, water);
    const Drawn drawn = DrawRecord(Record(u"0;"_s + end + u";0;"_s + end));
    QCOMPARE(drawn.texts[u"row_1_quantity"_s], quantity);
    QCOMPARE(drawn.texts[u"row_6_quantity"_s], quantity);
    QCOMPARE(drawn.texts[u"row_1_amount"_s], electricity);
    QCOMPARE(drawn.texts[u"row_6_amount"_s], water);
}

void TestBillAmounts::a_meter_change_is_charged_as_it_is()
{
    const Drawn drawn = DrawRecord(Record(u"1450;1200;42;30"_s));
    QCOMPARE(drawn.texts[u"row_1_quantity"_s], u"-250"_s);
    QCOMPARE(drawn.texts[u"row_1_amount"_s], u"-62,50"_s);
    QCOMPARE(drawn.texts[u"row_6_amount"_s], u"-24,00"_s);
    QCOMPARE(drawn.texts[u"row_9_subtotal"_s], u"-24,00"_s);
}

void TestBillAmounts::last_years_consumption_is_deducted_whatever_the_flag_data()
{
    QTest::addColumn<QString>("previous");
    QTest::addColumn<int>("flag");
    QTest::addColumn<QString>("electricity");
    QTest::addColumn<QString>("water");
    for (int flag : { 0, 1 }) {
        const auto row = [&](const char* name) -> QTestData& {
            return QTest::newRow(
                qPrintable(QLatin1String(name) + u" flag "_s + QString::number(flag)));
        };
        row("readings") << u"100;340;10;30"_s << flag << u"-48,00"_s << u"-30,00"_s;
        row("no end") << u"100;;10;"_s << flag << u"-0,00"_s << u"-0,00"_s;
        row("no start") << u";340;;30"_s << flag << u"-0,00"_s << u"-0,00"_s;
        row("none") << no_readings << flag << u"-0,00"_s << u"-0,00"_s;
        row("no consumption") << u"7;7;7;7"_s << flag << u"-0,00"_s << u"-0,00"_s;
        row("one meter only") << u"100;340;;"_s << flag << u"-48,00"_s << u"-0,00"_s;
    }
}

void TestBillAmounts::last_years_consumption_is_deducted_whatever_the_flag()
{
    QFETCH(QString, previous);
    QFETCH(int, flag);
    QFETCH(QString, electricity);
    QFETCH(QString, water);
    BillSource source = OneMember(Record(readings), Record(previous));
    source.Prices.ElectricityPrepayment = static_cast<qint16>(flag);
    source.Prices.WaterPrepayment = static_cast<qint16>(flag);
    const Drawn drawn = Draw(source);
    QVERIFY(!drawn.error);
    QCOMPARE(drawn.texts[u"row_2_amount"_s], electricity);
    QCOMPARE(drawn.texts[u"row_7_amount"_s], water);
}

void TestBillAmounts::last_years_consumption_is_not_rounded_before_it_is_multiplied()
{
    // 2,25 kWh at 0,20 make 0,45; rounded to 2 kWh they would make 0,40: both show 0. At 1,50 the
    // 2,25 cubic metres make 3,375 (3), rounded ones 3,00; 2,4 make 3,6 (4) instead of 3.
    const Drawn drawn = DrawRecord(Record(readings), Record(u"0;12,4;0;2,4"_s));
    QCOMPARE(drawn.texts[u"row_2_amount"_s], u"-2,00"_s);
    QCOMPARE(drawn.texts[u"row_7_amount"_s], u"-4,00"_s);
}

void TestBillAmounts::last_years_consumption_keeps_all_its_decimals()
{
    BillSource source = OneMember(Record(readings), Record(u"0;2,25;0;2,25"_s));
    source.Prices.PreviousElectricityPrice = u"1,56"_s; // 2,25 make 3,51; 2,2 would make 3,43
    source.Prices.PreviousWaterPrice = u"1,56"_s;
    const Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_2_amount"_s], u"-4,00"_s);
    QCOMPARE(drawn.texts[u"row_7_amount"_s], u"-4,00"_s);
}

void TestBillAmounts::a_negative_deduction_is_a_plain_amount()
{
    const Drawn drawn = DrawRecord(Record(readings), Record(u"340;100;30;10"_s));
    QCOMPARE(drawn.texts[u"row_2_amount"_s], u"48,00"_s);
    QCOMPARE(drawn.texts[u"row_7_amount"_s], u"30,00"_s);
    QCOMPARE(drawn.texts[u"row_5_subtotal"_s], u"120,50"_s); // 62,50 + 48 + 0 + 10
    QCOMPARE(drawn.texts[u"row_9_subtotal"_s], u"54,00"_s);
}

void TestBillAmounts::next_years_prepayment_follows_its_flag()
{
    BillSource source = OneMember(Record(readings));
    source.Prices.ElectricityPrepayment = 1;
    Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_3_amount"_s], u"62,00"_s); // 62,50 to the even number
    QCOMPARE(drawn.texts[u"row_8_amount"_s], u"0,00"_s);
    source.Prices.ElectricityPrepayment = 0;
    source.Prices.WaterPrepayment = 1;
    drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_3_amount"_s], u"0,00"_s);
    QCOMPARE(drawn.texts[u"row_8_amount"_s], u"24,00"_s);
    source.Prices.ElectricityPrepayment = -1;
    QCOMPARE(Draw(source).texts[u"row_3_amount"_s], u"0,00"_s);
}

void TestBillAmounts::next_years_prepayment_is_rounded_from_the_unrounded_cost_data()
{
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("prepayment");
    // 250 units; the amount's half cent more or less would round to the even neighbour.
    QTest::newRow("62,504") << u"0,250016"_s << u"62,50"_s << u"63,00"_s;
    QTest::newRow("61,496") << u"0,245984"_s << u"61,50"_s << u"61,00"_s;
    QTest::newRow("62,5") << u"0,25"_s << u"62,50"_s << u"62,00"_s;
    QTest::newRow("63,5") << u"0,254"_s << u"63,50"_s << u"64,00"_s;
}

void TestBillAmounts::next_years_prepayment_is_rounded_from_the_unrounded_cost()
{
    QFETCH(QString, price);
    QFETCH(QString, amount);
    QFETCH(QString, prepayment);
    BillSource source = OneMember(Record(u"1200;1450;0;250"_s));
    source.Prices.ElectricityPrice = price;
    source.Prices.WaterPrice = price;
    source.Prices.ElectricityPrepayment = 1;
    source.Prices.WaterPrepayment = 1;
    const Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_1_amount"_s], amount);
    QCOMPARE(drawn.texts[u"row_6_amount"_s], amount);
    QCOMPARE(drawn.texts[u"row_3_amount"_s], prepayment);
    QCOMPARE(drawn.texts[u"row_8_amount"_s], prepayment);
}

void TestBillAmounts::products_are_double_precision()
{
    // From 131072 on singles lie further apart than a cent: 137001,37 would become 137001,38.
    BillSource source = OneMember(Record(u"0;100001;0;100001"_s, u"100001"_s));
    source.Prices.ElectricityPrice = u"1,37"_s;
    source.Prices.WaterPrice = u"1,37"_s;
    source.Prices.Lease = u"1,37"_s;
    source.Prices.PropertyTax = u"1,37"_s;
    source.Prices.AreaContribution = u"1,37"_s;
    const Drawn drawn = Draw(source);
    for (const char* element : { "row_1_amount", "row_6_amount", "row_9_subtotal",
             "row_11_subtotal", "row_12_subtotal", "row_13_subtotal" })
        QCOMPARE(drawn.texts[QLatin1String(element)], u"137001,37"_s);
    QCOMPARE(drawn.texts[u"row_5_subtotal"_s], u"137011,37"_s);
}

void TestBillAmounts::the_surname_loses_one_trailing_two_data()
{
    QTest::addColumn<QString>("surname");
    QTest::addColumn<QString>("line");
    QTest::newRow("two") << u"Schulze2"_s << u"Anna Schulze"_s;
    QTest::newRow("three") << u"Schulze3"_s << u"Anna Schulze3"_s;
    QTest::newRow("twenty-two") << u"Schulze22"_s << u"Anna Schulze2"_s;
    QTest::newRow("blank behind") << u"Schulze2 "_s << u"Anna Schulze2 "_s;
    QTest::newRow("only the digit") << u"2"_s << u"Anna "_s;
    QTest::newRow("none") << QString() << u"Anna "_s;
}

void TestBillAmounts::the_surname_loses_one_trailing_two()
{
    QFETCH(QString, surname);
    QFETCH(QString, line);
    const Drawn drawn = DrawRecord(surname + Record(no_readings).mid(5));
    QCOMPARE(drawn.texts[u"address_name"_s], line);
}

void TestBillAmounts::empty_money_counts_as_zero()
{
    BillSource source = OneMember(Record(no_readings, {}, u";;;"_s));
    source.Prices = {};
    const Drawn drawn = Draw(source);
    QVERIFY(!drawn.error);
    for (const char* row : { "row_4_amount", "row_5_subtotal", "row_9_subtotal", "row_10_subtotal",
             "row_11_subtotal", "row_12_subtotal", "row_13_subtotal", "row_14_amount",
             "row_15_amount", "row_16_amount", "row_16b_amount", "row_17_subtotal" })
        QCOMPARE(drawn.texts[QLatin1String(row)], u"0,00"_s);
    QCOMPARE(drawn.texts[u"row_11_quantity"_s], QString());
    QVERIFY(drawn.elements.contains(u"row_11_quantity"_s));
    QCOMPARE(drawn.texts[u"row_18_total"_s], u"0,00  €"_s);
    QCOMPARE(drawn.statement.StatementTotals, QStringList(u"0"_s));
}

void TestBillAmounts::plot_charges_show_the_size_as_typed()
{
    const Drawn drawn = DrawRecord(Record(no_readings, u" 312,250"_s));
    for (const char* row : { "row_11_quantity", "row_12_quantity", "row_13_quantity" })
        QCOMPARE(drawn.texts[QLatin1String(row)], u" 312,250"_s);
    QCOMPARE(drawn.texts[u"row_11_subtotal"_s], u"24,98"_s);
    QCOMPARE(drawn.texts[u"row_12_subtotal"_s], u"6,24"_s); // 6,245 to the even cent
    QCOMPARE(drawn.texts[u"row_13_subtotal"_s], u"9,37"_s);
}

void TestBillAmounts::premiums_are_rounded_and_summed()
{
    const Drawn drawn = DrawRecord(Record(no_readings, u"0"_s, u"12,5;4,2;0,125;18"_s));
    QCOMPARE(drawn.texts[u"row_14_amount"_s], u"12,50"_s);
    QCOMPARE(drawn.texts[u"row_15_amount"_s], u"4,20"_s);
    QCOMPARE(drawn.texts[u"row_16_amount"_s], u"0,12"_s);
    QCOMPARE(drawn.texts[u"row_16b_amount"_s], u"18,00"_s);
    QCOMPARE(drawn.texts[u"row_17_subtotal"_s], u"34,82"_s);
}

void TestBillAmounts::the_flat_charge_is_rounded_to_two_decimals()
{
    BillSource source = OneMember(Record(no_readings, u"0"_s));
    source.Prices.FlatEnergyCharge = u"9,996"_s;
    const Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_4_amount"_s], u"10,00"_s);
    QCOMPARE(drawn.texts[u"row_18_total"_s], u"46,00  €"_s);
}

void TestBillAmounts::the_membership_fee_is_rounded_to_two_decimals()
{
    BillSource source = OneMember(Record(no_readings, {}));
    source.Prices = {};
    source.Prices.MembershipFee = u"36,025"_s; // half to even; the format alone would say 36,03
    const Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_10_subtotal"_s], u"36,02"_s);
    QCOMPARE(drawn.texts[u"row_18_total"_s], u"36,02  €"_s);
    QCOMPARE(drawn.statement.StatementTotals, QStringList(u"36,02"_s));
}

void TestBillAmounts::a_fee_alone_gives_the_total_and_its_text()
{
    BillSource source = OneMember(Record(no_readings, {}));
    source.Prices = {};
    source.Prices.MembershipFee = u"36"_s;
    const Drawn drawn = Draw(source);
    QCOMPARE(drawn.texts[u"row_10_subtotal"_s], u"36,00"_s);
    QCOMPARE(drawn.texts[u"row_18_total"_s], u"36,00  €"_s);
    QCOMPARE(drawn.statement.StatementTotals, QStringList(u"36"_s));
    QCOMPARE(drawn.statement.LastGrandTotal, 36.0F);
}

void TestBillAmounts::the_running_total_is_single_and_starts_at_zero_for_each_member()
{
    BillSource source = OneMember(Record(no_readings, u"0"_s, u"208000,27;0;0;0"_s));
    source.Prices = {};
    source.Members.RecordList += Record(no_readings, u"0"_s, u"0,10;0;0;0"_s);
    const Drawn drawn = Draw(source);
    // Seven significant digits in the list; the page shows the exact value of the single.
    QCOMPARE(drawn.texts[u"row_18_total"_s], u"208000,27  €"_s);
    QCOMPARE(drawn.statement.StatementTotals, (QStringList { u"208000,3"_s, u"0,1"_s }));
    QCOMPARE(drawn.statement.LastGrandTotal, 0.1F);
}

void TestBillAmounts::readings_are_single_precision()
{
    // 16777217 is no single: it becomes 16777216, and one unit is lost.
    const Drawn drawn = DrawRecord(Record(u"16777210;16777217;0;0"_s));
    QCOMPARE(drawn.texts[u"row_1_quantity"_s], u"6"_s);
    QCOMPARE(drawn.texts[u"row_1_amount"_s], u"1,50"_s);
}

void TestBillAmounts::everything_per_member_is_small_regular_and_black()
{
    const Drawn drawn = DrawRecord(Record(readings), Record(readings));
    QCOMPARE(drawn.elements.size(), 27);
    for (const QString& line : DescribePage(ContentsOfPage(drawn.statement, 0).member))
        QVERIFY2(line.endsWith(u"\t8\t0\t0,0,0"_s), qPrintable(line));
}

void TestBillAmounts::a_missing_year_before_leaves_its_fields_empty_data()
{
    QTest::addColumn<bool>("missing");
    QTest::addColumn<bool>("read");
    QTest::newRow("no file") << true << false;
    QTest::newRow("rolled forward just now") << true << true;
    QTest::newRow("not read yet") << false << false;
}

void TestBillAmounts::a_missing_year_before_leaves_its_fields_empty()
{
    QFETCH(bool, missing);
    QFETCH(bool, read);
    BillSource source = OneMember(Record(readings));
    source.Members.PreviousYearMissing = missing;
    source.Members.PreviousYearRead = read;
    const Drawn drawn = Draw(source);
    QVERIFY(!drawn.error);
    QCOMPARE(drawn.texts[u"row_2_amount"_s], u"-0,00"_s);
    QCOMPARE(drawn.texts[u"row_7_amount"_s], u"-0,00"_s);
    QCOMPARE(drawn.statement.StatementTotals.size(), 1);
}

void TestBillAmounts::a_member_without_line_last_year_stops_the_drawing()
{
    BillSource source = OneMember(Record(readings), Record(readings));
    source.Members.RecordList += u"Lang;Ida"_s + Record(readings).mid(10);
    source.Members.RecordList += Record(readings);
    const Drawn drawn = Draw(source);
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::SubscriptOutOfRange);
    QCOMPARE(drawn.error->where.file, u"Mitgliedsdaten2015.pz"_s);
    QCOMPARE(drawn.error->where.line, 2);
    QCOMPARE(drawn.error->where.member, u"Lang,Ida"_s);
    for (const QString& words :
        { u"keine Zeile an derselben Stelle"_s, u"„Mehr“"_s, u"„Vorjahr abgleichen …“"_s })
        QVERIFY2(drawn.error->where.remedy.contains(words), qPrintable(words));
    QCOMPARE(drawn.elements.size(), 27);
    QCOMPARE(drawn.statement.StatementTotals.size(), 1);
    for (std::size_t page : { 1U, 2U }) {
        QVERIFY(ContentsOfPage(drawn.statement, qsizetype(page)).member.empty());
        QVERIFY(ContentsOfPage(drawn.statement, qsizetype(page)).fixed != nullptr);
    }
}

void TestBillAmounts::pairing_with_last_year_is_by_position()
{
    BillSource source = OneMember(Record(readings), u"Fremd;Name"_s + Record(u"0;50;;"_s).mid(10));
    QCOMPARE(Draw(source).texts[u"row_2_amount"_s], u"-10,00"_s);
}

void TestBillAmounts::text_that_is_no_number_is_named_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<bool>("last_year");
    QTest::addColumn<QString>("last_element");
    QTest::newRow("electricity end") << int(ElectricityEnd) << false << u"address_town"_s;
    QTest::newRow("electricity start") << int(ElectricityStart) << false << u"address_town"_s;
    QTest::newRow("last electricity end") << int(ElectricityEnd) << true << u"row_1_amount"_s;
    QTest::newRow("last electricity start") << int(ElectricityStart) << true << u"row_1_amount"_s;
    QTest::newRow("water end") << int(WaterEnd) << false << u"row_5_subtotal"_s;
    QTest::newRow("last water start") << int(WaterStart) << true << u"row_6_amount"_s;
    QTest::newRow("plot size") << int(PlotSize) << false << u"row_11_quantity"_s;
    QTest::newRow("liability") << int(LiabilityPremium) << false << u"row_13_subtotal"_s;
    QTest::newRow("building") << int(BuildingPremium) << false << u"row_16_amount"_s;
}

void TestBillAmounts::text_that_is_no_number_is_named()
{
    QFETCH(int, field);
    QFETCH(bool, last_year);
    QFETCH(QString, last_element);
    QStringList now = SplitRecord(Record(readings));
    QStringList before = now;
    (last_year ? before : now)[field] = u"12o"_s;
    const Drawn drawn = DrawRecord(JoinRecord(now), JoinRecord(before));
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::TypeMismatch);
    QCOMPARE(drawn.error->where.file,
        last_year ? u"Mitgliedsdaten2015.pz"_s : u"Mitgliedsdaten2016.pz"_s);
    QCOMPARE(drawn.error->where.line, 1);
    QCOMPARE(drawn.error->where.member, u"Meier,Anna"_s);
    QCOMPARE(drawn.error->where.field, MemberFieldCaption(field));
    QCOMPARE(drawn.error->where.content, u"12o"_s);
    QVERIFY(drawn.error->where.remedy.contains(u"„Stammdaten“"_s));
    QCOMPARE(drawn.elements.last(), last_element);
    QVERIFY(drawn.statement.StatementTotals.isEmpty());
}

void TestBillAmounts::a_price_that_is_no_number_is_named_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("last_element");
    QTest::newRow("electricity") << u"Stromkosten"_s << u"row_1_quantity"_s;
    QTest::newRow("last electricity") << u"Stromkosten, Vorjahr"_s << u"row_1_amount"_s;
    QTest::newRow("flat") << u"Energiepauschale"_s << u"row_3_amount"_s;
    QTest::newRow("water") << u"Wasserkosten"_s << u"row_6_quantity"_s;
    QTest::newRow("last water") << u"Wasserkosten, Vorjahr"_s << u"row_6_amount"_s;
    QTest::newRow("fee") << u"Beitrag"_s << u"row_9_subtotal"_s;
    QTest::newRow("lease") << u"Pacht"_s << u"row_11_quantity"_s;
    QTest::newRow("tax") << u"Steuer"_s << u"row_12_quantity"_s;
    QTest::newRow("area") << u"Fläche"_s << u"row_13_quantity"_s;
}

void TestBillAmounts::a_price_that_is_no_number_is_named()
{
    QFETCH(QString, key);
    QFETCH(QString, last_element);
    BillSource source = OneMember(Record(readings), Record(readings));
    PriceSettings& prices = source.Prices;
    const QHash<QString, QString*> texts { { u"Stromkosten"_s, &prices.ElectricityPrice },
        { u"Stromkosten, Vorjahr"_s, &prices.PreviousElectricityPrice },
        { u"Energiepauschale"_s, &prices.FlatEnergyCharge },
        { u"Wasserkosten"_s, &prices.WaterPrice },
        { u"Wasserkosten, Vorjahr"_s, &prices.PreviousWaterPrice },
        { u"Beitrag"_s, &prices.MembershipFee }, { u"Pacht"_s, &prices.Lease },
        { u"Steuer"_s, &prices.PropertyTax }, { u"Fläche"_s, &prices.AreaContribution } };
    *texts[key] = u"0.25"_s;
    const Drawn drawn = Draw(source);
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::TypeMismatch);
    QCOMPARE(drawn.error->where.file, u"Config.ini"_s);
    QCOMPARE(drawn.error->where.field, key.section(u',', 0, 0));
    QCOMPARE(drawn.error->where.content, u"0.25"_s);
    QVERIFY(drawn.error->where.remedy.contains(u"„Einstellungen“"_s));
    QVERIFY(drawn.error->where.remedy.contains(key.contains(u',') ? u"2015"_s : u"2016"_s));
    QCOMPARE(drawn.elements.last(), last_element);
}

void TestBillAmounts::a_short_record_names_its_first_missing_field_data()
{
    QTest::addColumn<int>("fields");
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QString>("last_element");
    QTest::newRow("one") << 1 << u"Vorname"_s << QString();
    QTest::newRow("two") << 2 << u"Str./HausNr"_s << u"address_name"_s;
    QTest::newRow("twelve") << 12 << u"Anfangsstand Strom"_s << u"address_town"_s;
    QTest::newRow("fifteen") << 15 << u"Endstand Wasser"_s << u"row_5_subtotal"_s;
}

void TestBillAmounts::a_short_record_names_its_first_missing_field()
{
    QFETCH(int, fields);
    QFETCH(QString, missing);
    QFETCH(QString, last_element);
    const Drawn drawn = DrawRecord(JoinRecord(SplitRecord(Record(readings)).mid(0, fields)));
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::SubscriptOutOfRange);
    QCOMPARE(drawn.error->where.file, u"Mitgliedsdaten2016.pz"_s);
    QCOMPARE(drawn.error->where.field, missing);
    QVERIFY(drawn.error->where.remedy.contains(u"weniger als 16 Felder"_s));
    QCOMPARE(drawn.elements.value(drawn.elements.size() - 1), last_element);
}

void TestBillAmounts::a_short_line_of_last_year_is_named()
{
    const Drawn drawn = DrawRecord(Record(readings), u"Meier;Anna"_s);
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::SubscriptOutOfRange);
    QCOMPARE(drawn.error->where.file, u"Mitgliedsdaten2015.pz"_s);
    QCOMPARE(drawn.error->where.field, u"Endstand Strom"_s);
    QVERIFY(drawn.error->where.remedy.contains(u"2015"_s));
    QCOMPARE(drawn.elements.last(), u"row_1_amount"_s);
}

void TestBillAmounts::numbers_that_are_too_large_overflow_data()
{
    QTest::addColumn<QString>("record");
    const QString huge = u"1"_s + QString(39, u'0');
    const QString large = u"3"_s + QString(38, u'0');
    QTest::newRow("reading") << Record(u"0;"_s + huge + u";0;0"_s);
    QTest::newRow("difference") << Record(u"-"_s + large + u';' + large + u";0;0"_s);
    QTest::newRow("premium") << Record(no_readings, u"0"_s, huge + u";0;0;0"_s);
    QTest::newRow("plot charge") << Record(no_readings, u"1"_s + QString(300, u'0'));
}

void TestBillAmounts::numbers_that_are_too_large_overflow()
{
    QFETCH(QString, record);
    const Drawn drawn = DrawRecord(record);
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->kind, ErrorKind::Overflow);
    QCOMPARE(drawn.error->where.member, u"Meier,Anna"_s);
    QVERIFY(!drawn.error->where.remedy.isEmpty());
}

void TestBillAmounts::the_drawing_stops_and_earlier_members_stay_complete()
{
    BillSource source = OneMember(Record(readings));
    source.Members.RecordList += Record(u"viel;1450;30;42"_s);
    source.Members.RecordList += Record(readings);
    const Drawn drawn = Draw(source);
    QVERIFY(drawn.error);
    QCOMPARE(drawn.error->where.line, 2);
    QCOMPARE(drawn.elements.size(), 27);
    QCOMPARE(ContentsOfPage(drawn.statement, 1).member.size(), std::size_t(3)); // the address
    QVERIFY(ContentsOfPage(drawn.statement, 2).member.empty());
    QCOMPARE(drawn.statement.StatementTotals.size(), 1);
}

void TestBillAmounts::the_page_selection_is_emptied_even_when_the_drawing_stops()
{
    StatementState statement;
    statement.PageSelection = u"1;0"_s;
    bool stopped = false;
    try {
        DrawAllPages(statement, OneMember(u"kurz"_s));
    } catch (const RuntimeError&) {
        stopped = true;
    }
    QVERIFY(stopped);
    QCOMPARE(statement.PageSelection, QString());
}

void TestBillAmounts::totals_are_appended()
{
    StatementState statement;
    const BillSource source = OneMember(Record(no_readings, u"0"_s));
    DrawAllPages(statement, source);
    DrawAllPages(statement, source);
    QCOMPARE(statement.StatementTotals, (QStringList { u"46"_s, u"46"_s }));
}

const TestFile<TestBillAmounts> test_file(__FILE__);
#include "test_bill_amounts.moc"
