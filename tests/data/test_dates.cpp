// Dates to text and back: the recorded answers, and the rule in which we are narrower.
#include "data/dates.h"

#include "data/runtime_error.h"
#include "tests/support/tables.h"
#include "tests/support/test_file.h"

#include <QtTest>

#include <clocale>

namespace {

using namespace Qt::StringLiterals;

const QDate day_zero(1899, 12, 30);

QVector<TableRow> Facts(const char* name)
{
    return ReadTable(QStringLiteral(PARZELLO_FIXTURES "/facts/%1.tsv").arg(QLatin1String(name)));
}

// What a date is, written a second time and in another way than in the program.
bool IsDateByRule(const QString& text)
{
    static const QRegularExpression form(u"\\A([0-9]{1,2})\\.([0-9]{1,2})\\.([0-9]{1,4})\\z"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return false;
    const int days[] = { 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    const int day = match.captured(1).toInt();
    const int month = match.captured(2).toInt();
    int year = match.captured(3).toInt();
    year += year < 50 ? 2000 : (year < 100 ? 1900 : 0);
    if (month < 1 || month > 12 || day < 1 || day > days[month - 1])
        return false;
    return month != 2 || day < 29 || QDate::isLeapYear(year);
}

} // namespace

class TestDates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void recorded_dates_are_read()
    {
        QStringList wrong;
        int dates = 0;
        int refused_by_rule = 0;
        for (const TableRow& row : Facts("dates")) {
            const QString text = CellText(row[u"text"_s]);
            const std::optional<QDate> date = ParseDate(text);
            const bool recorded_date = row[u"outcome"_s] == u"ok"_s;
            bool right = date.has_value() == (recorded_date && IsDateByRule(text));
            refused_by_rule += recorded_date && !IsDateByRule(text) ? 1 : 0;
            if (right && date) {
                ++dates;
                right = row[u"date_time"_s] == date->toString(Qt::ISODate) + u" 00:00:00"_s
                    && row[u"serial"_s].toLongLong() == day_zero.daysTo(*date);
                if (*date != day_zero) // as default text day zero is only its time
                    right = right && row[u"short_text"_s] == ShortDate(*date);
            }
            if (!right)
                wrong += row[u"id"_s] + u' ' + text;
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(dates >= 10, qPrintable(QString::number(dates)));
        QVERIFY2(refused_by_rule >= 20, qPrintable(QString::number(refused_by_rule)));
    }

    void recorded_days_are_written()
    {
        int compared = 0;
        for (const TableRow& row : Facts("date_text")) {
            const double serial = row[u"serial"_s].toDouble();
            const QDate date = day_zero.addDays(static_cast<qint64>(serial));
            if (serial != std::floor(serial) || date.year() < 1000)
                continue; // times do not occur; a year has four digits here
            QCOMPARE(ShortDate(date), row[u"text"_s]);
            ++compared;
        }
        QVERIFY(compared >= 8);
    }

    void recorded_texts_in_date_formats_are_met()
    {
        QStringList wrong;
        int dates = 0;
        int left_alone = 0;
        for (const TableRow& row : Facts("format")) {
            if (row[u"kind"_s] != u"text"_s || !row[u"format"_s].startsWith(u"dd."_s))
                continue;
            const QString text = CellText(row[u"input"_s]);
            const bool is_date = IsDateByRule(text);
            const QString expected
                = is_date ? CellText(AcceptedCells(row, u"result"_s).constFirst()) : text;
            (is_date ? dates : left_alone) += 1;
            if (FormatDateText(text) != expected)
                wrong += row[u"id"_s] + u' ' + FormatDateText(text);
        }
        QCOMPARE(wrong, QStringList());
        QVERIFY2(dates >= 9, qPrintable(QString::number(dates)));
        QVERIFY2(left_alone >= 25, qPrintable(QString::number(left_alone)));
    }

    void recorded_day_numbers_in_date_formats_are_met()
    {
        int compared = 0;
        for (const TableRow& row : Facts("format")) {
            const double serial = row[u"input"_s].toDouble();
            if (row[u"kind"_s] != u"double"_s || !row[u"format"_s].startsWith(u"dd."_s))
                continue;
            const QDate date = day_zero.addDays(static_cast<qint64>(std::floor(serial)));
            if (date.year() < 1000)
                continue; // a year has four digits here
            QCOMPARE(ShortDate(date), row[u"result"_s]);
            ++compared;
        }
        QVERIFY(compared >= 5);
    }

    void a_date_is_day_month_year_with_points_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("full") << u"03.02.2016"_s << QDate(2016, 2, 3);
        QTest::newRow("short parts") << u"3.2.16"_s << QDate(2016, 2, 3);
        QTest::newRow("last of this century") << u"1.1.49"_s << QDate(2049, 1, 1);
        QTest::newRow("first of the last century") << u"1.1.50"_s << QDate(1950, 1, 1);
        QTest::newRow("year zero") << u"1.1.00"_s << QDate(2000, 1, 1);
        QTest::newRow("leap day") << u"29.02.2016"_s << QDate(2016, 2, 29);
        QTest::newRow("last day") << u"31.12.9999"_s << QDate(9999, 12, 31);
    }

    void a_date_is_day_month_year_with_points()
    {
        QFETCH(const QString, text);
        QFETCH(const QDate, date);
        QVERIFY(ParseDate(text).has_value());
        QCOMPARE(*ParseDate(text), date);
        QCOMPARE(FormatDateText(text), ShortDate(date));
    }

    void everything_else_is_no_date_and_stays_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString& text : { u""_s, u" "_s, u"."_s, u".."_s, u"..."_s, u"3.2"_s, u"3.2."_s,
                 u".3.2.2016"_s, u"3.2.2016."_s, u" 3.2.2016"_s, u"3.2.2016 "_s, u"3.2.2016\n"_s,
                 u"3. 2.2016"_s, u"02/03/2016"_s, u"03-02-2016"_s, u"03,02,2016"_s, u"2016-02-03"_s,
                 u"2016.02.03"_s, u"31.4.16"_s, u"12.31.2016"_s, u"29.02.2015"_s, u"29.02.1900"_s,
                 u"00.01.2016"_s, u"01.00.2016"_s, u"32.01.2016"_s, u"003.2.2016"_s,
                 u"3.002.2016"_s, u"01.01.10000"_s, u"-3.2.2016"_s, u"+3.2.2016"_s, u"3.-2.2016"_s,
                 u"3.2.+16"_s, u"1.1.-1"_s, u"３.2.2016"_s, u"3.2.2O16"_s, u"3.2.2016;"_s,
                 u"03.02.2016 12:30"_s, u"heute"_s, u"42403"_s, u"3. Februar 2016"_s,
                 u"Bitte aktualisieren"_s, u"20160203"_s, u"3\u00002.16"_s })
            QTest::newRow(qPrintable(u'"' + QString(text).replace(u'\n', u'~') + u'"')) << text;
    }

    void everything_else_is_no_date_and_stays()
    {
        QFETCH(const QString, text);
        QVERIFY(!ParseDate(text).has_value());
        QCOMPARE(FormatDateText(text), text);
        QVERIFY(!IsWellFormedDate(text));
    }

    void every_day_of_four_centuries_reads_back()
    {
        for (QDate day(1700, 1, 1); day < QDate(2101, 1, 1); day = day.addDays(1)) {
            const QString text = ShortDate(day);
            QVERIFY2(text.size() == 10 && ParseDate(text) == day, qPrintable(text));
            QVERIFY2(IsWellFormedDate(text), qPrintable(text));
        }
    }

    void well_formed_is_two_two_and_four_digits()
    {
        QVERIFY(IsWellFormedDate(u"03.02.2016"_s));
        for (const QString& text : { u"3.02.2016"_s, u"03.2.2016"_s, u"03.02.16"_s, u"03.02.0016"_s,
                 u"31.02.2016"_s, u"03/02/2016"_s, u"03.02.2016 "_s })
            QVERIFY2(!IsWellFormedDate(text), qPrintable(text));
    }

    void a_year_with_zeros_in_front_is_a_two_digit_year()
    {
        QCOMPARE(FormatDateText(u"01.01.0016"_s), u"01.01.2016"_s);
    }

    void the_year_before_and_after_are_texts()
    {
        QCOMPARE(PreviousYear(u"2017"_s), u"2016"_s);
        QCOMPARE(PreviousYear(u"2000"_s), u"1999"_s);
        QCOMPARE(NextYear(u"2017"_s), u"2018"_s);
        QCOMPARE(NextYear(u"1999"_s), u"2000"_s);
    }

    void a_year_that_is_no_number_is_thrown_with_a_remedy()
    {
        for (const QString& text : { u""_s, u"abc"_s, u"20.17"_s }) {
            try {
                PreviousYear(text);
                QFAIL("nothing was thrown");
            } catch (const RuntimeError& error) {
                QVERIFY(error.kind == ErrorKind::TypeMismatch);
                QCOMPARE(error.where.field, u"Jahr"_s);
                QCOMPARE(error.where.content, text);
                QVERIFY(!error.where.remedy.isEmpty());
            }
        }
    }

    void no_locale_changes_a_date()
    {
        const QLocale before;
        for (const char* name : { "C", "de_DE", "en_US", "tr_TR", "ar_EG", "fa_IR" }) {
            std::setlocale(LC_ALL, name); // without effect where the system lacks it
            QLocale::setDefault(QLocale(QString::fromLatin1(name)));
            QCOMPARE(ShortDate(QDate(2016, 2, 3)), u"03.02.2016"_s);
            QVERIFY(ParseDate(u"3.2.16"_s) == QDate(2016, 2, 3));
        }
        std::setlocale(LC_ALL, "C.UTF-8");
        QLocale::setDefault(before);
    }
};

const TestFile<TestDates> test_file(__FILE__);
#include "test_dates.moc"
