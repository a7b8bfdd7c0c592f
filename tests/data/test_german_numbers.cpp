// Numbers to text and back: the recorded answers, the rules in which we are narrower than the
// platform, and properties that hold for every number.
#include "data/german_numbers.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QtTest>

#include <bit>
#include <clocale>
#include <cmath>
#include <functional>
#include <limits>
#include <locale>
#include <random>

namespace {

using namespace Qt::StringLiterals;

QVector<TableRow> Facts(const char* name)
{
    return ReadTable(QStringLiteral(PARZELLO_FIXTURES "/facts/%1.tsv").arg(QLatin1String(name)));
}

// What a number is, written a second time and in another way than in the program.
bool IsNumberByRule(const QString& text)
{
    static const QRegularExpression number(QStringLiteral(
        "\\A[+-]?((?:[0-9]+|[1-9][0-9]{0,2}(?:\\.[0-9]{3})+)(?:,[0-9]*)?|,[0-9]+)\\z"));
    QString rest = text.trimmed();
    if (rest.startsWith(u'€'))
        rest = rest.mid(1).trimmed();
    else if (rest.endsWith(u'€'))
        rest = rest.chopped(1).trimmed();
    return number.match(rest).hasMatch();
}

QString NameOf(NumberOutcome outcome)
{
    switch (outcome) {
    case NumberOutcome::Ok:
        return QStringLiteral("ok");
    case NumberOutcome::TypeMismatch:
        return QStringLiteral("type-mismatch");
    case NumberOutcome::Overflow:
        break;
    }
    return QStringLiteral("overflow");
}

double DoubleOfBits(const QString& bits)
{
    return std::bit_cast<double>(static_cast<quint64>(bits.toULongLong(nullptr, 16)));
}

float SingleOfBits(const QString& bits)
{
    return std::bit_cast<float>(static_cast<quint32>(bits.toULong(nullptr, 16)));
}

bool IsZeroText(const QString& text)
{
    return !text.contains(QRegularExpression(QStringLiteral("[1-9]")));
}

QString WithoutMinus(QString text)
{
    while (text.startsWith(u'-'))
        text.remove(0, 1);
    return text;
}

// The recorded answer for a number in a format, turned where we deliberately answer otherwise.
QString FormatByRule(double value, bool is_single, const QString& format, const QString& recorded)
{
    if (is_single && std::abs(value) >= 100000.0) {
        const QString exact = QString::number(std::abs(value), 'f', 2).replace(u'.', u',');
        return (value < 0 ? QStringLiteral("-") : QString()) + exact
            + (format.endsWith(u'€') ? QStringLiteral(" €") : QString());
    }
    if (value < 0 && (format.startsWith(u'-') || IsZeroText(recorded)))
        return WithoutMinus(recorded);
    return recorded;
}

// A number that prints with a comma and groups, whatever locales the system has.
struct CommaEverywhere : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

ErrorKind KindThrownBy(const std::function<void()>& deed, Place& where)
{
    try {
        deed();
    } catch (const RuntimeError& error) {
        where = error.where;
        return error.kind;
    }
    return ErrorKind::File; // nothing thrown
}

} // namespace

class TestGermanNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recorded_texts_are_read()
    {
        QStringList wrong;
        int numbers = 0;
        int refused_by_rule = 0;
        for (const TableRow& row : Facts("parse")) {
            const QString text = CellText(row[u"text"_s]);
            const ParsedDouble as_double = ParseDouble(text);
            const ParsedSingle as_single = ParseSingle(text);
            QString double_outcome = row[u"double_outcome"_s];
            QString single_outcome = row[u"single_outcome"_s];
            if (!IsNumberByRule(text)) {
                refused_by_rule += double_outcome == u"ok"_s ? 1 : 0;
                double_outcome = single_outcome = u"type-mismatch"_s;
            }
            bool right = NameOf(as_double.outcome) == double_outcome
                && NameOf(as_single.outcome) == single_outcome;
            if (right && as_double.outcome == NumberOutcome::Ok) {
                ++numbers;
                const QStringList accepted = AcceptedCells(row, u"double"_s);
                right = std::any_of(accepted.begin(), accepted.end(),
                    [&](const QString& cell) { return cell.toDouble() == as_double.value; });
                right = right && row[u"single"_s].toFloat() == as_single.value;
            }
            if (!right)
                wrong += row[u"id"_s] + u' ' + text;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(numbers >= 30, qPrintable(QString::number(numbers)));
        QVERIFY2(refused_by_rule >= 20, qPrintable(QString::number(refused_by_rule)));
    }

    void default_texts_of_doubles_are_as_recorded()
    {
        QStringList wrong;
        int compared = 0;
        for (const TableRow& row : Facts("text_of_double")) {
            const QString text = TextOfDouble(DoubleOfBits(row[u"bits"_s]));
            ++compared;
            if (text != AcceptedCells(row, u"text"_s).constFirst())
                wrong += row[u"id"_s] + u' ' + text;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY(compared >= 70);
    }

    void default_texts_of_singles_are_as_recorded()
    {
        QStringList wrong;
        int compared = 0;
        for (const TableRow& row : Facts("text_of_single")) {
            const QString text = TextOfSingle(SingleOfBits(row[u"bits"_s]));
            ++compared;
            if (text != AcceptedCells(row, u"text"_s).constFirst())
                wrong += row[u"id"_s] + u' ' + text;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY(compared >= 70);
    }

    void recorded_roundings_are_met()
    {
        QStringList wrong;
        int compared = 0;
        for (const TableRow& row : Facts("round")) {
            const int digits = row[u"digits"_s].toInt();
            if (digits < 0)
                continue; // refused by the platform, never asked for by the program
            const bool is_single = row[u"kind"_s] == u"single"_s;
            const QString cell = row[u"value"_s];
            const double value = is_single ? static_cast<double>(cell.toFloat()) : cell.toDouble();
            const double result = RoundTo(value, digits);
            const QStringList accepted = AcceptedCells(row, u"result"_s);
            ++compared;
            const bool right
                = std::any_of(accepted.begin(), accepted.end(), [&](const QString& answer) {
                      return is_single ? answer.toFloat() == static_cast<float>(result)
                                       : answer.toDouble() == result;
                  });
            if (!right)
                wrong += row[u"id"_s] + u' ' + QString::number(result, 'g', 17);
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY(compared >= 110);
    }

    void recorded_numbers_in_formats_are_met()
    {
        QStringList wrong;
        int compared = 0;
        int turned_by_rule = 0;
        for (const TableRow& row : Facts("format")) {
            const QString format = CellText(row[u"format"_s]);
            const bool is_single = row[u"kind"_s] == u"single"_s;
            if (row[u"kind"_s] == u"text"_s || !format.contains(u'0'))
                continue; // texts: below; day numbers are never formatted as numbers
            const QString input = row[u"input"_s];
            const double value
                = is_single ? static_cast<double>(input.toFloat()) : input.toDouble();
            QStringList accepted;
            for (const QString& cell : AcceptedCells(row, u"result"_s)) {
                accepted += FormatByRule(value, is_single, format, CellText(cell));
                turned_by_rule += accepted.constLast() != CellText(cell) ? 1 : 0;
            }
            const QString shown
                = is_single ? FormatNumber(input.toFloat(), format) : FormatNumber(value, format);
            ++compared;
            if (!accepted.contains(shown))
                wrong += row[u"id"_s] + u' ' + shown;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(compared >= 120, qPrintable(QString::number(compared)));
        QVERIFY2(turned_by_rule >= 12, qPrintable(QString::number(turned_by_rule)));
    }

    void recorded_texts_in_number_formats_are_met()
    {
        QStringList wrong;
        int compared = 0;
        int numbers = 0;
        for (const TableRow& row : Facts("format")) {
            const QString format = CellText(row[u"format"_s]);
            if (row[u"kind"_s] != u"text"_s || !format.contains(u'0'))
                continue;
            const QString text = CellText(row[u"input"_s]);
            const bool is_number = IsNumberByRule(text);
            const QString expected
                = is_number ? CellText(AcceptedCells(row, u"result"_s).constFirst()) : text;
            ++compared;
            numbers += is_number ? 1 : 0;
            if (FormatText(text, format) != expected)
                wrong += row[u"id"_s] + u' ' + FormatText(text, format);
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(compared >= 40, qPrintable(QString::number(compared)));
        QVERIFY2(numbers >= 15, qPrintable(QString::number(numbers)));
    }

    void a_number_is_blanks_sign_groups_comma_and_euro_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("whole") << u"24"_s << 24.0;
        QTest::newRow("comma") << u"24,5"_s << 24.5;
        QTest::newRow("comma at the end") << u"12,"_s << 12.0;
        QTest::newRow("comma in front") << u",5"_s << 0.5;
        QTest::newRow("minus before the comma") << u"-,5"_s << -0.5;
        QTest::newRow("plus") << u"+7"_s << 7.0;
        QTest::newRow("blanks around") << u"  12,5\t\r\n"_s << 12.5;
        QTest::newRow("no-break space before the euro") << u"5,00\u00A0€"_s << 5.0;
        QTest::newRow("groups") << u"1.250,00"_s << 1250.0;
        QTest::newRow("two groups") << u"-1.234.567,89"_s << -1234567.89;
        QTest::newRow("leading zeros without point") << u"007"_s << 7.0;
        QTest::newRow("euro behind") << u"5,00 €"_s << 5.0;
        QTest::newRow("euro in front of the sign") << u"€ -5"_s << -5.0;
        QTest::newRow("correctly rounded") << u"0,1234567890123456789"_s << 0.1234567890123456789;
        QTest::newRow("half a unit in the last place")
            << u"9007199254740993,0000000000000000000000000000000001"_s << 9007199254740994.0;
        QTest::newRow("too small for a double") << u"0,"_s + QString(400, u'0') + u'1' << 0.0;
        QTest::newRow("many zeros in front") << QString(400, u'0') + u"12"_s << 12.0;
    }

    void a_number_is_blanks_sign_groups_comma_and_euro()
    {
        QFETCH(const QString, text);
        QFETCH(const double, value);
        const ParsedDouble number = ParseDouble(text);
        QCOMPARE(NameOf(number.outcome), u"ok"_s);
        QVERIFY2(number.value == value, qPrintable(QString::number(number.value, 'g', 17)));
        QVERIFY(IsNumber(text));
        QVERIFY(NumberOf(text, {}) == value);
        QVERIFY(AmountOf(text, {}) == value);
        QVERIFY(SingleOf(text, {}) == static_cast<float>(value));
    }

    void everything_else_is_a_type_mismatch_data()
    {
        QTest::addColumn<QString>("text");
        const QStringList texts = { u""_s, u" "_s, u","_s, u"."_s, u"-"_s, u"+"_s, u"-,"_s, u"€"_s,
            u"€,"_s, u"0.25"_s, u"12.50"_s, u"12.5"_s, u"0.285"_s, u"0.00"_s, u"007.123"_s,
            u"1.2.3.4"_s, u"1.25"_s, u"1.2500"_s, u"1234.567"_s, u"1..234"_s, u".234"_s, u"5."_s,
            u"1.,5"_s, u"1.234."_s, u"1.2x4"_s, u"1x.234"_s, u"1,234.5"_s, u"1,2,3"_s, u"1,,2"_s,
            u"1e3"_s, u"1E+07"_s, u"2,5E-02"_s, u"1D3"_s, u"&H10"_s, u"&O7"_s, u"0x10"_s, u"(3)"_s,
            u"3-"_s, u"- 7"_s, u"--3"_s, u"+-3"_s, u"–5"_s, u"−5"_s, u"1 234,56"_s, u"1\u00A0234"_s,
            u"1\u202F234"_s, u"€ €5"_s, u"€5€"_s, u"-€5"_s, u"5 $"_s, u"EUR 5"_s, u"24,00 EUR"_s,
            u"12kWh"_s, u"5 m²"_s, u"50%"_s, u"inf"_s, u"nan"_s, u"INF"_s, u"Wahr"_s, u"１２,５"_s,
            u"²"_s, u"٣"_s, u"03.02.2016"_s, u"12:30"_s, u"5;6"_s, u"1'234"_s,
            u"Bitte aktualisieren"_s, QString(QChar(0)), u"5"_s + QChar(0), u"\uFEFF5"_s };
        for (const QString& text : texts)
            QTest::newRow(qPrintable(u'"' + text + u'"')) << text;
    }

    void everything_else_is_a_type_mismatch()
    {
        QFETCH(const QString, text);
        QCOMPARE(NameOf(ParseDouble(text).outcome), u"type-mismatch"_s);
        QCOMPARE(NameOf(ParseSingle(text).outcome), u"type-mismatch"_s);
        QVERIFY(!IsNumber(text));
        QCOMPARE(FormatText(text, u"0.00"_s), text);
    }

    void a_number_out_of_range_is_an_overflow()
    {
        const QString huge = u'1' + QString(309, u'0');
        QCOMPARE(NameOf(ParseDouble(huge).outcome), u"overflow"_s);
        QCOMPARE(NameOf(ParseDouble(u'-' + huge).outcome), u"overflow"_s);
        QCOMPARE(NameOf(ParseSingle(huge).outcome), u"overflow"_s);
        QVERIFY(!IsNumber(huge));
        QCOMPARE(FormatText(huge, u"0.00"_s), huge);
    }

    void the_range_of_singles_ends_half_a_step_beyond_the_largest()
    {
        const QString last = u"340282356779733661637539395458142568447"_s;
        const QString first_beyond = u"340282356779733661637539395458142568448"_s;
        // the double between both, and so the outcome, is that of the tie
        QCOMPARE(NameOf(ParseSingle(first_beyond).outcome), u"overflow"_s);
        QCOMPARE(NameOf(ParseSingle(u'-' + first_beyond).outcome), u"overflow"_s);
        QCOMPARE(NameOf(ParseDouble(first_beyond).outcome), u"ok"_s);
        const QString below = u"340282356779733600000000000000000000000"_s;
        QVERIFY(ParseSingle(below).value == std::numeric_limits<float>::max());
        QVERIFY(ParseSingle(u'-' + below).value == std::numeric_limits<float>::lowest());
        QCOMPARE(NameOf(ParseSingle(last).outcome), u"overflow"_s);
    }

    void what_is_no_number_is_thrown_with_place_and_content()
    {
        const Place field { u"Mitgliedsdaten2016.pz"_s, 3, u"Meier,Anna"_s, u"Endstand Strom"_s, {},
            u"Bitte eine Zahl eintragen."_s };
        Place told;
        QVERIFY(KindThrownBy([&] { NumberOf(u"12.5"_s, field); }, told) == ErrorKind::TypeMismatch);
        QCOMPARE(told.file, field.file);
        QCOMPARE(told.line, field.line);
        QCOMPARE(told.member, field.member);
        QCOMPARE(told.field, field.field);
        QCOMPARE(told.remedy, field.remedy);
        QCOMPARE(told.content, u"12.5"_s);
    }

    void what_is_thrown_names_the_kind_of_error()
    {
        Place told;
        QVERIFY(KindThrownBy([] { SingleOf(u""_s, {}); }, told) == ErrorKind::TypeMismatch);
        QVERIFY(KindThrownBy([] { AmountOf(u" "_s, {}); }, told) == ErrorKind::TypeMismatch);
        const QString large = u'1' + QString(39, u'0');
        QVERIFY(KindThrownBy([&] { SingleOf(large, {}); }, told) == ErrorKind::Overflow);
        QVERIFY(NumberOf(large, {}) == 1e39);
    }

    void a_place_that_knows_its_content_keeps_it()
    {
        Place field;
        field.content = u"Zeile mit Fehler"_s;
        Place told;
        QVERIFY(KindThrownBy([&] { NumberOf(u"abc"_s, field); }, told) == ErrorKind::TypeMismatch);
        QCOMPARE(told.content, field.content);
    }

    void an_empty_amount_counts_as_nothing() { QVERIFY(AmountOf(QString(), {}) == 0.0); }

    void negative_zero_has_no_sign()
    {
        QCOMPARE(TextOfDouble(-0.0), u"0"_s);
        QCOMPARE(TextOfSingle(-0.0F), u"0"_s);
        QCOMPARE(FormatNumber(-0.0, u"0.00"_s), u"0,00"_s);
        QCOMPARE(FormatNumber(-0.0F, u"#0.00 €"_s), u"0,00 €"_s);
    }

    void the_exponent_form_begins_where_the_digits_do_not_suffice_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("75/999") << 75.0 / 999.0 << u"7,50750750750751E-02"_s;
        QTest::newRow("75/1000") << 75.0 / 1000.0 << u"0,075"_s;
        QTest::newRow("fifteen decimals") << 0.012345678901234 << u"0,012345678901234"_s;
        QTest::newRow("sixteen decimals") << 0.0123456789012345 << u"1,23456789012345E-02"_s;
        QTest::newRow("one digit at place 15") << 1e-15 << u"0,000000000000001"_s;
        QTest::newRow("one digit at place 16") << 1e-16 << u"1E-16"_s;
        QTest::newRow("fifteen places") << 999999999999999.0 << u"999999999999999"_s;
        QTest::newRow("rounds up to sixteen places") << 999999999999999.5 << u"1E+15"_s;
        QTest::newRow("sixteen places") << 1e15 << u"1E+15"_s;
        QTest::newRow("largest") << std::numeric_limits<double>::max()
                                 << u"1,79769313486232E+308"_s;
        QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min()
                                  << u"4,94065645841247E-324"_s;
    }

    void the_exponent_form_begins_where_the_digits_do_not_suffice()
    {
        QFETCH(const double, value);
        QFETCH(const QString, text);
        QCOMPARE(TextOfDouble(value), text);
        QCOMPARE(TextOfDouble(-value), u'-' + text);
    }

    void ten_hundredths_in_singles_show_what_is_missing()
    {
        float sum = 0.0F;
        for (int i = 0; i < 10; ++i)
            sum += 0.01F;
        QCOMPARE(TextOfSingle(sum), u"9,999999E-02"_s);
    }

    void what_left_the_range_is_no_number()
    {
        const double infinite = std::numeric_limits<double>::infinity();
        for (const double value : { infinite, -infinite, std::nan("") }) {
            const QString text = TextOfDouble(value);
            QVERIFY(!text.isEmpty());
            QVERIFY(!IsNumber(text));
            QCOMPARE(FormatNumber(value, u"#0.00 €"_s), text);
            QCOMPARE(TextOfSingle(static_cast<float>(value)), text);
            QCOMPARE(NameOf(ParseTextOfSingle(text).outcome), u"type-mismatch"_s);
        }
    }

    void every_text_of_a_single_reads_back_as_the_same_text()
    {
        std::mt19937 random(20160301);
        int checked = 0;
        for (int i = 0; i < 200000; ++i) {
            const float value = std::bit_cast<float>(static_cast<quint32>(random()));
            if (!std::isfinite(value))
                continue;
            const QString text = TextOfSingle(value);
            const ParsedSingle back = ParseTextOfSingle(text);
            ++checked;
            if (back.outcome == NumberOutcome::Overflow) { // 3,402824E+38 lies beyond the last one
                QVERIFY2(std::abs(value) > 3.402823e38F, qPrintable(text));
                continue;
            }
            QVERIFY2(back.outcome == NumberOutcome::Ok, qPrintable(text));
            QVERIFY2(TextOfSingle(back.value) == text, qPrintable(text));
        }
        QVERIFY(checked > 190000);
    }

    void recorded_texts_of_singles_read_back()
    {
        int compared = 0;
        for (const TableRow& row : Facts("text_of_single")) {
            const QString text = AcceptedCells(row, u"text"_s).constFirst();
            const ParsedSingle back = ParseTextOfSingle(text);
            QVERIFY2(back.outcome == NumberOutcome::Ok, qPrintable(text));
            const float value = SingleOfBits(row[u"bits"_s]);
            QVERIFY2(std::abs(back.value - value) <= std::abs(value) * 1e-6F, qPrintable(text));
            ++compared;
        }
        QVERIFY(compared >= 70);
    }

    void only_texts_of_singles_read_back()
    {
        for (const QString& text : { u""_s, u" 1"_s, u"+1"_s, u"1.250"_s, u"5 €"_s, u"1E5"_s,
                 u"1E+"_s, u"E+05"_s, u"1e+05"_s, u"1E+0,5"_s, u"1E++5"_s, u"1E+5E+5"_s, u"abc"_s,
                 QString(17, u'1'), u"1.5E+07"_s })
            QVERIFY2(
                ParseTextOfSingle(text).outcome == NumberOutcome::TypeMismatch, qPrintable(text));
        QCOMPARE(NameOf(ParseTextOfSingle(u"1E+39"_s).outcome), u"overflow"_s);
        QCOMPARE(NameOf(ParseTextOfSingle(u"1E+999999999"_s).outcome), u"overflow"_s);
        QVERIFY(ParseTextOfSingle(u"-1,5E+07"_s).value == -1.5e7F);
        QVERIFY(ParseTextOfSingle(u"7,5E-03"_s).value == 7.5e-3F);
    }

    void rounding_takes_ties_to_the_even_digit_of_the_scaled_value()
    {
        QVERIFY(RoundTo(2.5, 0) == 2.0);
        QVERIFY(RoundTo(3.5, 0) == 4.0);
        QVERIFY(RoundTo(-2.5, 0) == -2.0);
        QVERIFY(RoundTo(0.125, 2) == 0.12);
        QVERIFY(RoundTo(1e22, 22) == 1e22);
        QVERIFY(RoundTo(1.7e308, 2) == 1.7e308); // scaled it would leave the range
        QVERIFY(std::isnan(RoundTo(std::nan(""), 2)));
    }

    void formats_round_every_third_decimal_away_from_zero()
    {
        std::mt19937_64 random(31122016);
        std::uniform_int_distribution<qint64> thousandths(-999999999999, 999999999999);
        for (int i = 0; i < 100000; ++i) {
            const qint64 n = thousandths(random) >> (i % 40);
            const qint64 cents = (std::abs(n) + 5) / 10;
            const QString amount = QString::number(cents / 100) + u','
                + QString::number(cents % 100).rightJustified(2, u'0');
            const QString sign = n < 0 && cents != 0 ? u"-"_s : QString();
            const double value = static_cast<double>(n) / 1000.0;
            QCOMPARE(FormatNumber(value, u"#0.00 €"_s), sign + amount + u" €"_s);
            const QString deduction = n < 0 ? amount : u'-' + amount;
            QCOMPARE(FormatNumber(value, u"-0.00"_s), deduction);
        }
    }

    void a_written_minus_turns_a_negative_amount_into_a_plain_one()
    {
        QCOMPARE(FormatNumber(48.0, u"-0.00"_s), u"-48,00"_s);
        QCOMPARE(FormatNumber(-12.5, u"-0.00"_s), u"12,50"_s);
        QCOMPARE(FormatNumber(0.0, u"-0.00"_s), u"-0,00"_s);
        QCOMPARE(FormatNumber(-0.001, u"-0.00"_s), u"0,00"_s);
        QCOMPARE(FormatNumber(-0.001, u"0.00"_s), u"0,00"_s);
        QCOMPARE(FormatNumber(0.001, u"-0.00"_s), u"-0,00"_s);
        QCOMPARE(FormatText(u"-3"_s, u"-0.00"_s), u"3,00"_s);
    }

    void a_format_is_prefix_places_and_suffix()
    {
        QCOMPARE(FormatNumber(208.2, u"0.00  €"_s), u"208,20  €"_s);
        QCOMPARE(FormatNumber(7.0, u"000"_s), u"007"_s);
        QCOMPARE(FormatNumber(0.5, u"#.00"_s), u",50"_s);
        QCOMPARE(FormatNumber(0.05, u"#.0"_s), u",1"_s);
        QCOMPARE(FormatNumber(1234.5, u"0"_s), u"1235"_s);
        QCOMPARE(FormatNumber(1234.5, u"0 €"_s), u"1235 €"_s);
        QCOMPARE(FormatNumber(-1.5, u"Saldo 0.0!"_s), u"-Saldo 1,5!"_s);
        QCOMPARE(FormatNumber(12.0, u"####0.00"_s), u"12,00"_s);
    }

    void a_large_single_keeps_its_cents()
    {
        QCOMPARE(FormatNumber(123456.78F, u"#0.00 €"_s), u"123456,78 €"_s);
        QCOMPARE(FormatNumber(1.005F, u"0.00"_s), u"1,00"_s); // the single lies below the tie
    }

    void no_locale_changes_a_number()
    {
        const QLocale before;
        const std::locale before_streams;
        const auto check = [] {
            QCOMPARE(TextOfDouble(1234567.25), u"1234567,25"_s);
            QCOMPARE(TextOfSingle(1.5e-10F), u"1,5E-10"_s);
            QCOMPARE(FormatNumber(-1234.565, u"#0.00 €"_s), u"-1234,57 €"_s);
            QVERIFY(ParseDouble(u"1.234,5"_s).value == 1234.5);
            QCOMPARE(NameOf(ParseDouble(u"1,234.5"_s).outcome), u"type-mismatch"_s);
            QVERIFY(ParseTextOfSingle(u"1,5E-10"_s).value == 1.5e-10F);
        };
        for (const char* name : { "C", "de_DE.UTF-8", "de_DE", "tr_TR.UTF-8", "tr_TR", "ar_EG" }) {
            std::setlocale(LC_ALL, name); // without effect where the system lacks it
            QLocale::setDefault(QLocale(QString::fromLatin1(name)));
            std::locale::global(std::locale(std::locale(), new CommaEverywhere));
            check();
        }
        std::setlocale(LC_ALL, "C.UTF-8");
        std::locale::global(before_streams);
        QLocale::setDefault(before);
    }
};

const TestFile<TestGermanNumbers> test_file(__FILE__);
#include "test_german_numbers.moc"
