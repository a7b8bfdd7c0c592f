// What stands on the page "Offene Posten", and where its links lead.
#include "money/open_items_report.h"
#include "report/report_text.h"
#include "tests/support/test_file.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Five members and their bills of 2026: 100,00 in 3 instalments, 60,00, none drawn, -5,00, 20,00.
MoneySource Club(const QStringList& bank, const QStringList& cash_box = {})
{
    MoneySource source;
    source.Year = 2026;
    source.Records = { u"Lang;Otto;;;;3;;3"_s, u"Langer;Eva;;;;4;;"_s, u"Meier;Anna;;;;7;;"_s,
        u"Meier;Bernd;;;;12;;"_s, u"Koch;Nora"_s };
    source.Bills = { 10000, 6000, std::nullopt, -500, 2000 };
    source.Years.Known.WithMembers = { 2026 };
    source.Years.ReadRecords = [records = source.Records](int) { return records; };
    source.Years.Indexes[2026] = MakeMemberIndex(source.Records);
    source.Ledgers = { ReadBookings(Account::Bank, 2026, bank),
        ReadBookings(Account::CashBox, 2026, cash_box) };
    return source;
}

const QString paid_lang = u"20.11.2026;Abrechnung Lang;33,34;0,00"_s;
const QString paid_langer = u"21.11.2026;Abrechnung Langer;60,00;0,00"_s;

/// The table of that name; an empty one when there is none.
ReportTable TableOf(const Report& report, const QString& name)
{
    for (const ReportItem& item : report.items) {
        const auto* table = std::get_if<ReportTable>(&item);
        if (table != nullptr && table->name == name)
            return *table;
    }
    return {};
}

Report ReportOf(MoneySource source) { return MakeOpenItemsReport(source, {}); }

QString TextOf(const MoneySource& source) { return TextOfReport(ReportOf(source)); }

} // namespace

class TestOpenItemsReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_page_lists_every_member_and_the_sums()
    {
        QCOMPARE(TextOf(Club({ paid_lang, paid_langer })),
            u"Offene Posten 2026\n"
            "Gezeigt: alle · nur offene\n"
            "Garten\tName\tRechnung\tGezahlt\tRest\tRaten\tLetzte Zahlung\tStand\n"
            "3\tLang,Otto\t100,00 €\t33,34 €\t66,66 €\t33,34 € + 2 × 33,33 €, 1 von 3 bezahlt\t"
            "20.11.2026\tteilweise bezahlt\n"
            "4\tLanger,Eva\t60,00 €\t60,00 €\t0,00 €\t\t21.11.2026\tbezahlt\n"
            "7\tMeier,Anna\t\t0,00 €\t\t\t\tkeine Rechnung\n"
            "12\tMeier,Bernd\t-5,00 €\t0,00 €\t-5,00 €\t\t\tGuthaben\n"
            "\tKoch,Nora\t20,00 €\t0,00 €\t20,00 €\t\t\toffen\n"
            "\tSumme\t175,00 €\t93,34 €\t81,66 €\t\t\t\n"
            "Offene Forderungen: 86,66 €. Guthaben und zu viel Gezahltes: 5,00 €.\n"
            "Die blauen Namen unter „Kontoführung“ zeigen nur, dass der Name in einer Buchung "
            "vorkommt; hier zählen die Beträge.\n"_s);
    }

    void the_tint_of_a_row_is_what_is_left_to_do()
    {
        const ReportTable table
            = TableOf(ReportOf(Club({ paid_lang, paid_langer })), u"open_items"_s);
        QCOMPARE(table.rows.size(), std::size_t { 6 });
        QVERIFY(table.rows[0].tint == RowTint::Attention);
        QVERIFY(table.rows[1].tint == RowTint::None);
        QVERIFY(table.rows[2].tint == RowTint::Calm);
        QVERIFY(table.rows[3].tint == RowTint::Good);
        QVERIFY(table.rows[5].total);
    }

    void the_name_of_who_has_to_pay_leads_to_the_cash_book()
    {
        const ReportTable table
            = TableOf(ReportOf(Club({ paid_lang, paid_langer })), u"open_items"_s);
        const auto link
            = [&table](std::size_t row) { return table.rows[row].cells[1].text.target; };
        QCOMPARE(link(0), (LinkTarget { LinkKind::Action, u"pay:0"_s, -1 }));
        QCOMPARE(link(1), LinkTarget {});
        QCOMPARE(link(2), LinkTarget {});
        QCOMPARE(link(3), LinkTarget {});
        QCOMPARE(link(4), (LinkTarget { LinkKind::Action, u"pay:4"_s, -1 }));
    }

    void the_member_of_an_action_is_found_again()
    {
        QCOMPARE(MemberOfPayAction(PayAction(0)), 0);
        QCOMPARE(MemberOfPayAction(PayAction(32766)), 32766);
        QCOMPARE(MemberOfPayAction(u"pay:"_s), -1);
        QCOMPARE(MemberOfPayAction(u"pay:x"_s), -1);
        QCOMPARE(MemberOfPayAction(u"filter:3"_s), -1);
        QCOMPARE(MemberOfPayAction({}), -1);
    }

    void last_payments_are_sorted_by_day()
    {
        const ReportTable table
            = TableOf(ReportOf(Club({ paid_lang, u"03.12.2026;Abrechnung Langer;1,00;0,00"_s })),
                u"open_items"_s);
        QVERIFY(*table.rows[0].cells[6].sort_value < *table.rows[1].cells[6].sort_value);
        QVERIFY(!table.rows[4].cells[6].sort_value.has_value());
    }

    void the_filter_that_is_chosen_is_bold_and_no_link()
    {
        MoneySource source = Club({});
        const auto texts = [&source](const ReportChoices& choices) {
            return std::get<ReportSentence>(MakeOpenItemsReport(source, choices).items[1]).texts;
        };
        const auto all = texts({});
        QVERIFY(all[1].look == TextLook::Bold);
        QVERIFY(all[1].target.kind == LinkKind::None);
        QVERIFY(all[3].look == TextLook::Plain);
        QCOMPARE(all[3].target, FilterLink(u"open"_s));
        ReportChoices choices;
        choices.Filter = u"open"_s;
        const auto open = texts(choices);
        QVERIFY(open[3].look == TextLook::Bold);
        QCOMPARE(open[1].target, FilterLink({}));
    }

    void without_members_nothing_is_listed()
    {
        MoneySource source = Club({ paid_lang });
        source.Records.clear();
        source.Bills.clear();
        source.Years.Indexes[2026] = MakeMemberIndex({});
        const Report report = ReportOf(source);
        QVERIFY(TextOfReport(report).startsWith(
            u"Offene Posten 2026\nFür 2026 sind keine Mitglieder geladen.\n"
            "Offene Forderungen: 0,00 €. Guthaben und zu viel Gezahltes: 0,00 €.\n"_s));
        QVERIFY(TableOf(report, u"open_items"_s).columns.empty());
    }

    void a_payment_that_nobody_made_for_certain_is_listed_with_its_reason()
    {
        MoneySource source = Club({ u"20.11.2026;Abrechnung Meier;10,00;0,00"_s },
            { u"21.11.2026;Abrechnung Schulze;11,00;0,00"_s });
        source.Ledgers.push_back(ReadBookings(
            Account::Bank, 2027, { u"05.01.2027;Abrechnung 2026 Meier;18,00;0,00"_s }));
        const Report report = ReportOf(source);
        QVERIFY(TextOfReport(report).endsWith(
            u"Nicht zugeordnete Zahlungen\n"
            "Nennen Sie im Vorgang den Nachnamen und den Vornamen oder „Garten 7“, dann wird die "
            "Zahlung zugeordnet.\n"
            "Datum\tKonto\tVorgang\tBetrag\tGrund\tMögliche Mitglieder\n"
            "20.11.2026\tKonto\tAbrechnung Meier\t10,00 €\tmehrere Mitglieder\t"
            "Meier,Anna · Meier,Bernd\n"
            "21.11.2026\tHandkasse\tAbrechnung Schulze\t11,00 €\tkein Mitglied\t\n"
            "05.01.2027\tKonto 2027\tAbrechnung 2026 Meier\t18,00 €\tmehrere Mitglieder\t"
            "Meier,Anna · Meier,Bernd\n"_s));
        const ReportTable table = TableOf(report, u"unassigned"_s);
        const auto link
            = [&table](std::size_t row) { return table.rows[row].cells[0].text.target; };
        QCOMPARE(link(0), (LinkTarget { LinkKind::BankRow, {}, 0 }));
        QCOMPARE(link(1), (LinkTarget { LinkKind::CashBoxRow, {}, 0 }));
        QCOMPARE(link(2), LinkTarget {}); // that year's ledger is not the one that is shown
    }

    void an_amount_that_is_no_number_is_listed()
    {
        const Report report = ReportOf(Club({ paid_lang, u"31.02.2026;Porto;0,00;1.5"_s }));
        QVERIFY(TextOfReport(report).endsWith(u"Beträge, die keine Zahl sind\n"
                                              "Datum\tKonto\tZeile\tVorgang\tGespeichert ist\n"
                                              "31.02.2026\tKonto\t2\tPorto\t1.5\n"_s));
        const ReportTable table = TableOf(report, u"no_amounts"_s);
        QVERIFY(!table.rows[0].cells[0].sort_value.has_value()); // no such day
        QCOMPARE(table.rows[0].cells[2].sort_value, 2.0);
    }

    void files_that_are_missing_in_it_are_named_once()
    {
        MoneySource source = Club({});
        source.Unreadable = { u"Konto2025.pz"_s, u"Konto2025.pz"_s };
        source.Years.Unreadable = { 2024 };
        QVERIFY(TextOf(source).startsWith(
            u"Offene Posten 2026\n"
            "Konto2025.pz ist nicht lesbar und fehlt in diesem Bericht.\n"
            "Mitgliedsdaten2024.pz ist nicht lesbar und fehlt in diesem Bericht.\n"
            "Gezeigt: "_s));
    }

    void bookings_that_are_not_saved_are_said()
    {
        MoneySource source = Club({});
        source.Unsaved = { true, 0 }; // an order of rows, or a text that was changed
        QVERIFY(TextOf(source).contains(u"\nEnthält noch nicht gespeicherte Buchungen.\n"_s));
        source.Unsaved = { false, 3 };
        QVERIFY(!TextOf(source).contains(u"Enthält"_s));
    }
};

const TestFile<TestOpenItemsReport> test_file(__FILE__);
#include "test_open_items_report.moc"
