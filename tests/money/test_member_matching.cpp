// Which bookings pay whose bill of which year.
#include "money/member_matching.h"
#include "money/payment.h"

#include "data/dates.h"
#include "data/records.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// clang-format off
const QStringList members {
    u"Lang;Otto;;;;3"_s,
    u"Langer;Eva;;;;4"_s,
    u"Meier;Anna;;;;7"_s,
    u"Meier;Bernd;;;;12"_s,
    u"Meier-Kunz;Ute;;;;8"_s,
    u"Kunz;Rolf;;;;9"_s,
    u"Hollerbusch;Karl;;;;10"_s,
    u"Hollerbusch2;Erika;;;;11"_s,
    u"Schulze2;Ines;;;;14"_s,
    u"van Dijk;Anna;;;;15"_s,
    u"van Houten;Jan;;;;16"_s,
    u"von der Heide;Ulf;;;;17"_s,
    u"Heide;Ruth;;;;18"_s,
    u"Müller;Hans-Peter;;;;20"_s,
    u"Müller;Hans;;;;21"_s,
    u"Graesslin;Bertold;;;;007"_s,
    u"Weiß;Lea;;;;23"_s,
    u"Otto;Fritz;;;;24"_s,
    u"Lehmann;Karl Heinz;;;;25"_s,
    u"Lehmann;Kurt;;;;26"_s,
    u"D'Angelo;Rita;;;;27"_s,
    u"Muñoz;José;;;;28"_s,
    u"Busch;Ida;;;;12a"_s,
    u"Koch;Nora;;;;30"_s,
};
// clang-format on

/// Members files of 2024 to 2026, the bill of each year out from the 21st of October on.
ClubYears ThreeYears()
{
    ClubYears years;
    years.ReadRecords = [](int) { return members; };
    for (const int year : { 2024, 2025, 2026 }) {
        years.Known.WithMembers += year;
        const QString text = QString::number(year);
        years.Known.BillStarts[year] = *BillStart(u"15.11."_s + text, u"20.12."_s + text);
    }
    return years;
}

QString NamesOf(const QVector<int>& positions)
{
    QStringList names;
    for (const int position : positions)
        names += NameEntry(SplitRecord(members[position]));
    return names.isEmpty() ? u"none"_s : names.join(u" · "_s);
}

/// What the tables say of a booking: its members, or why it is none.
QString Outcome(const Payment& payment)
{
    if (payment.Finding == PaymentFinding::None)
        return u"no payment"_s;
    return payment.Finding == PaymentFinding::OfYear ? NamesOf(payment.Members) : ReasonOf(payment);
}

Payment Assess(const QString& text, const QString& date, int ledger, Cents amount = 1000)
{
    ClubYears years = ThreeYears();
    return AssessPayment(years, text, amount, ledger, ParseDate(date));
}

} // namespace

class TestMemberMatching : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_text_names_year_and_member_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("outcome");
        const auto row = [](int number, const QString& text, int year, const QString& outcome) {
            QTest::addRow("%d %s", number, qPrintable(text)) << text << year << outcome;
        };
        // clang-format off
        row(1, u"Abrechnung Lang"_s, 2026, u"Lang,Otto"_s);
        row(2, u"Abrechnung Langer"_s, 2026, u"Langer,Eva"_s);
        row(3, u"ABRECHNUNG LANG"_s, 2026, u"Lang,Otto"_s);
        row(4, u"Lang, Abrechnung"_s, 2026, u"Lang,Otto"_s);
        row(5, u"Abrechnung-Lang"_s, 2026, u"Lang,Otto"_s);
        row(6, u"Jahresabrechnung Lang"_s, 2026, u"Lang,Otto"_s);
        row(7, u"Abrechnung Langs"_s, 2026, u"none"_s);
        row(8, u"Abrechnung Lang2"_s, 2026, u"none"_s);
        row(9, u"Abrechnung Lang-2025"_s, 2025, u"Lang,Otto"_s);
        row(10, u"Abrechnung Lang2025"_s, 2026, u"none"_s);
        row(11, u"Abrechnung2025 Lang"_s, 2025, u"Lang,Otto"_s);
        row(12, u"Zahlung Lang"_s, 0, u"no payment"_s);
        row(13, u"Abrechnungsgebühr Lang"_s, 0, u"Wort nicht erkannt"_s);
        row(14, u"Sonderabrechnung Lang"_s, 0, u"Sonderabrechnung"_s);
        row(15, u"Abrechnung Lang Langer"_s, 2026, u"Lang,Otto · Langer,Eva"_s);
        row(16, u"Abrechnung Meier"_s, 2026, u"Meier,Anna · Meier,Bernd"_s);
        row(17, u"Abrechnung Meier Anna"_s, 2026, u"Meier,Anna"_s);
        row(18, u"Abrechnung Meier, A."_s, 2026, u"Meier,Anna"_s);
        row(19, u"Abrechnung Meier Garten 12"_s, 2026, u"Meier,Bernd"_s);
        row(20, u"Abrechnung Meier Bernd Garten 7"_s, 2026, u"Meier,Anna · Meier,Bernd"_s);
        row(21, u"Abrechnung Meier Paul"_s, 2026, u"Meier,Anna · Meier,Bernd"_s);
        row(22, u"Abrechnung Meier Anna und Bernd"_s, 2026, u"Meier,Anna · Meier,Bernd"_s);
        row(23, u"Abrechnung Meier-Kunz"_s, 2026, u"Meier-Kunz,Ute"_s);
        row(24, u"Abrechnung Meier Kunz"_s, 2026, u"Meier-Kunz,Ute"_s);
        row(25, u"Abrechnung Kunz"_s, 2026, u"Kunz,Rolf"_s);
        row(26, u"Abrechnung Meier/Kunz"_s, 2026, u"Meier,Anna · Meier,Bernd · Kunz,Rolf"_s);
        row(27, u"Abrechnung Hollerbusch"_s, 2026, u"Hollerbusch,Karl"_s);
        row(28, u"Abrechnung Hollerbusch2"_s, 2026, u"Hollerbusch2,Erika"_s);
        row(29, u"Abrechnung Hollerbusch Erika"_s, 2026, u"Hollerbusch2,Erika"_s);
        row(30, u"Abrechnung HOLLERBUSCH 2. Rate"_s, 2026, u"Hollerbusch,Karl"_s);
        row(31, u"Abrechnung Schulze"_s, 2026, u"Schulze2,Ines"_s);
        row(32, u"Abrechnung Schulze3"_s, 2026, u"none"_s);
        row(33, u"Abrechnung van"_s, 2026, u"van Dijk,Anna · van Houten,Jan"_s);
        row(34, u"Abrechnung Van Dijk"_s, 2026, u"van Dijk,Anna"_s);
        row(35, u"Abrechnung Dijk"_s, 2026, u"none"_s);
        row(36, u"Abrechnung von"_s, 2026, u"von der Heide,Ulf"_s);
        row(37, u"Abrechnung Heide"_s, 2026, u"Heide,Ruth"_s);
        row(38, u"Abrechnung Müller"_s, 2026, u"Müller,Hans-Peter · Müller,Hans"_s);
        row(39, u"Abrechnung MUELLER HANS-PETER"_s, 2026, u"Müller,Hans-Peter"_s);
        row(40, u"Abrechnung Hans Müller"_s, 2026, u"Müller,Hans"_s);
        row(41, u"Abrechnung Müller Peter"_s, 2026, u"Müller,Hans-Peter"_s);
        row(42, u"Abrechnung Muller Hans"_s, 2026, u"none"_s);
        row(43, u"Abrechnung Gräßlin"_s, 2026, u"Graesslin,Bertold"_s);
        row(44, u"ABRECHNUNG WEISS"_s, 2026, u"Weiß,Lea"_s);
        row(45, u"Abrechnung Munoz"_s, 2026, u"Muñoz,José"_s);
        row(46, u"Abrechnung d’angelo"_s, 2026, u"D'Angelo,Rita"_s);
        row(47, u"Abrechnung Angelo"_s, 2026, u"none"_s);
        row(48, u"Abrechnung Otto Lang"_s, 2026, u"Lang,Otto"_s);
        row(49, u"Abrechnung Otto"_s, 2026, u"Otto,Fritz"_s);
        row(50, u"Abrechnung Lehmann K."_s, 2026, u"Lehmann,Karl Heinz · Lehmann,Kurt"_s);
        row(51, u"Abrechnung Garten 9"_s, 2026, u"Kunz,Rolf"_s);
        row(52, u"Abrechnung Garten 9 Lang"_s, 2026, u"Lang,Otto · Kunz,Rolf"_s);
        row(53, u"Abrechnung Garten 99 Lang"_s, 2026, u"Lang,Otto"_s);
        row(54, u"Abrechnung 2026 Garten 7 Graesslin Bertold"_s, 2026, u"Graesslin,Bertold"_s);
        row(55, u"Abrechnung Parzelle Nr. 030"_s, 2026, u"Koch,Nora"_s);
        row(56, u"Abrechnung Lang Rückzahlung"_s, 2026, u"Lang,Otto"_s);
        row(57, u"Abrechnung"_s, 2026, u"none"_s);
        row(58, u"Gartenabrechnungen Lang"_s, 2026, u"Lang,Otto"_s);
        row(59, u"Abrechnung Lang Garten"_s, 2026, u"Lang,Otto"_s);
        row(60, u"Abrechnung Meier Garten 12ab"_s, 2026, u"Meier,Anna · Meier,Bernd"_s);
        row(61, u"Abrechnung Meier Garten 12 Parzelle 9"_s, 2026, u"Meier,Bernd"_s);
        row(62, u"Abrechnung Lang 20.11.2025"_s, 2026, u"Lang,Otto"_s);
        row(63, u"Abrechnung Lang 2025-11-20"_s, 2026, u"Lang,Otto"_s);
        row(64, u"Abrechnung Lang 2025-11"_s, 2025, u"Lang,Otto"_s);
        row(65, u"Abrechnung Lang 2025-1-1"_s, 2025, u"Lang,Otto"_s);
        row(66, u"Abrechnung Lang 2025/6"_s, 2025, u"Lang,Otto"_s);
        row(67, u"Abrechnung Lang 12025"_s, 2026, u"Lang,Otto"_s);
        row(68, u"Abrechnung Lang 2025x"_s, 2026, u"Lang,Otto"_s);
        row(69, u"Abrechnung Lang . 2025"_s, 2025, u"Lang,Otto"_s);
        // clang-format on
    }
    void the_text_names_year_and_member()
    {
        QFETCH(QString, text);
        QFETCH(int, year);
        QFETCH(QString, outcome);
        const Payment payment = Assess(text, u"20.11.2026"_s, 2026);
        QCOMPARE(Outcome(payment), outcome);
        QCOMPARE(payment.Year, year);
    }

    void a_payment_without_a_year_pays_the_bill_that_is_out_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("date");
        QTest::addColumn<int>("ledger");
        QTest::addColumn<QString>("outcome");
        const auto row = [](int number, const QString& text, const QString& date, int ledger,
                             const QString& outcome) {
            QTest::addRow("%d %s", number, qPrintable(text)) << text << date << ledger << outcome;
        };
        // clang-format off
        row(58, u"Abrechnung Lang"_s, u"20.10.2026"_s, 2026, u"2025"_s);
        row(59, u"Abrechnung Lang"_s, u"21.10.2026"_s, 2026, u"2026"_s);
        row(60, u"Abrechnung Lang"_s, u"09.01.2026"_s, 2026, u"2025"_s);
        row(61, u"Abrechnung 2025 Lang"_s, u"09.01.2026"_s, 2026, u"2025"_s);
        row(62, u"Abrechnung Lang 2026"_s, u"09.01.2026"_s, 2026, u"2026"_s);
        row(63, u"Abrechnung Lang vom 03.01.2026"_s, u"20.11.2026"_s, 2026, u"2026"_s);
        row(64, u"Abrechnung Lang 2025 bar am 03.01.2026"_s, u"20.11.2026"_s, 2026, u"2025"_s);
        row(65, u"Abrechnung Lang 2026-01-03"_s, u"20.11.2026"_s, 2026, u"2026"_s);
        row(66, u"Abrechnung 25 Lang"_s, u"20.11.2026"_s, 2026, u"2026"_s);
        row(67, u"Abrechnung Rate 2/2025 Lang"_s, u"20.11.2026"_s, 2026, u"2025"_s);
        row(68, u"Abrechnung 2025/26 Lang"_s, u"20.11.2026"_s, 2026, u"mehrere Jahre"_s);
        row(69, u"Abrechnung 2024 und 2025 Lang"_s, u"20.11.2026"_s, 2026, u"mehrere Jahre"_s);
        row(70, u"Abrechnung 2019 Lang"_s, u"20.11.2026"_s, 2026, u"kein Mitgliederverzeichnis"_s);
        row(71, u"Abrechnung Lang"_s, u"31.02.2026"_s, 2026, u"2026"_s);
        row(72, u"Abrechnung Lang"_s, u"15.01.2024"_s, 2024, u"2024"_s);
        // clang-format on
    }
    void a_payment_without_a_year_pays_the_bill_that_is_out()
    {
        QFETCH(QString, text);
        QFETCH(QString, date);
        QFETCH(int, ledger);
        QFETCH(QString, outcome);
        const Payment payment = Assess(text, date, ledger);
        const bool is_assigned = payment.Finding == PaymentFinding::OfYear;
        QCOMPARE(is_assigned ? QString::number(payment.Year) : ReasonOf(payment), outcome);
        QCOMPARE(NamesOf(payment.Members), is_assigned ? u"Lang,Otto"_s : u"none"_s);
    }

    void an_amount_of_nothing_pays_nothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Cents>("amount");
        QTest::addColumn<QString>("outcome");
        QTest::addRow("0,00") << u"Abrechnung Lang"_s << Cents(0) << u"no payment"_s;
        QTest::addRow("a refund") << u"Abrechnung Lang"_s << Cents(-5) << u"Lang,Otto"_s;
        QTest::addRow("a fee") << u"Abrechnungsgebühr Lang"_s << Cents(-5) << u"no payment"_s;
        QTest::addRow("two words")
            << u"Sonder-Abrechnung Lang"_s << Cents(5) << u"Sonderabrechnung"_s;
        QTest::addRow("special, 0,00") << u"Sonderabrechnung Lang"_s << Cents(0) << u"no payment"_s;
    }
    void an_amount_of_nothing_pays_nothing()
    {
        QFETCH(QString, text);
        QFETCH(Cents, amount);
        QFETCH(QString, outcome);
        QCOMPARE(Outcome(Assess(text, u"20.11.2026"_s, 2026, amount)), outcome);
    }

    void a_bill_without_dates_is_not_out()
    {
        ClubYears years = ThreeYears();
        years.Known.BillStarts.remove(2026);
        const auto year_of = [&years](const char* text, const QDate& date) {
            return AssessPayment(years, QString::fromUtf8(text), 1, 2026, date).Year;
        };
        QCOMPARE(year_of("Abrechnung Lang", QDate(2026, 12, 31)), 2025);
        QCOMPARE(year_of("Abrechnung 2026 Lang", QDate(2026, 12, 31)), 2026);
        QVERIFY(!BillStart(u"Bitte aktualisieren"_s, u"0,00"_s).has_value());
        QCOMPARE(BillStart(u"31.12.2026"_s, u""_s), QDate(2026, 12, 31));
    }

    void a_members_file_that_cannot_be_read_is_named_and_finds_nobody()
    {
        ClubYears years = ThreeYears();
        years.ReadRecords = [](int year) {
            if (year == 2025)
                throw RuntimeError {};
            return members;
        };
        const auto find = [&years](const QString& text) {
            return Outcome(AssessPayment(years, text, 1, 2026, QDate(2026, 11, 20)));
        };
        QCOMPARE(find(u"Abrechnung 2025 Lang"_s), u"none"_s);
        QCOMPARE(find(u"Abrechnung 2025 Langer"_s), u"none"_s);
        QCOMPARE(find(u"Abrechnung Lang"_s), u"Lang,Otto"_s);
        QCOMPARE(years.Unreadable, QVector<int> { 2025 });
    }
};

const TestFile<TestMemberMatching> test_file(__FILE__);
#include "test_member_matching.moc"
