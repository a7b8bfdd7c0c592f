#include "money/cash_report_text.h"

#include "data/dates.h"
#include "money/cash_report.h"
#include "money/cash_report_hints.h"
#include "money/open_items.h"
#include "money/report_parts.h"

using namespace Qt::StringLiterals;

namespace {

// Percent of the page's width.
constexpr int text_share = 60;
constexpr int amount_share = 20;
constexpr int half = 50;

const QString line_to_fill_in = u"____________"_s;

/// Everything at hand while the report is made.
struct Work {
    const MoneySource& source;
    const CashReport& numbers;
    const CashReportContext& context;
    const ReportChoices& choices;
    Report& report;
};

/// The words of one account.
struct AccountWords {
    Account account;
    QString heading;
    QString transferred_in;
    QString transferred_out;
};

// --- one account -------------------------------------------------------------------------------

/// Text, inner amount, outer amount.
ReportTable AmountTable()
{
    ReportTable table;
    table.columns = { TextColumn({}), NumberColumn({}), NumberColumn({}) };
    table.columns[0].share = text_share;
    table.columns[1].share = amount_share;
    table.columns[2].share = amount_share;
    return table;
}

ReportCell IndentedCell(Indent indent, const QString& text, const LinkTarget& target = {})
{
    ReportCell cell = TextCell(text, target);
    cell.indent = indent;
    return cell;
}

void AddOuter(ReportTable& table, Indent indent, const QString& text, Cents amount)
{
    table.rows.push_back({ { IndentedCell(indent, text), {}, EuroCell(amount) } });
}

/// "Income/3": the kind whose bookings are shown.
QString KindKey(const AccountWords& words, const QString& side, std::size_t position)
{
    return u"%1/%2/%3"_s.arg(AccountName(words.account), side).arg(position);
}

void AddKinds(ReportTable& table, const AccountWords& words, const QString& side,
    const std::vector<KindSum>& kinds, Cents sum)
{
    table.rows.push_back(
        { { TextCell(side), kinds.empty() ? TextCell(u"keine"_s) : ReportCell {}, {} } });
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const LinkTarget bookings = FilterLink(KindKey(words, side, i));
        table.rows.push_back(
            { { IndentedCell(Indent::One, kinds[i].name, bookings), EuroCell(kinds[i].sum), {} } });
    }
    if (!kinds.empty())
        AddOuter(table, Indent::One, u"Summe der %1"_s.arg(side), sum);
}

void AddTransferred(ReportTable& table, const QString& text, Cents amount)
{
    if (amount != 0)
        AddOuter(table, Indent::One, text, amount);
}

/// The bookings of the kind that was clicked.
void AddBookings(
    Work& work, const QString& kind_name, const MoneyLedger& ledger, const KindSum& kind)
{
    AddHeading(work.report, 3, u"Buchungen: %1"_s.arg(kind_name));
    AddLinkLine(work.report, u"wieder schließen"_s, FilterLink({}));
    ReportTable table { u"bookings"_s };
    table.columns
        = { TextColumn(u"Datum"_s, true), TextColumn(u"Konto"_s), TextColumn(u"Vorgang"_s, true),
              NumberColumn(u"Einzahlung"_s, true), NumberColumn(u"Auszahlung"_s, true) };
    for (const std::size_t position : kind.bookings) {
        const Booking& booking = ledger.bookings[position];
        table.rows.push_back({ { DateCell(booking, work.source.Year),
            TextCell(AccountName(booking.account)), TextCell(booking.text),
            EuroCell(DepositOf(booking)), EuroCell(WithdrawalOf(booking)) } });
    }
    work.report.items.emplace_back(table);
}

void AddChosenBookings(
    Work& work, const AccountWords& words, const QString& side, const std::vector<KindSum>& kinds)
{
    const MoneyLedger& ledger = *LedgerOfYear(work.source, words.account, work.source.Year);
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (work.choices.Filter == KindKey(words, side, i))
            AddBookings(work, kinds[i].name, ledger, kinds[i]);
    }
}

void AddAccount(Work& work, const AccountWords& words, const AccountReport& account)
{
    const QString income = u"Einnahmen"_s;
    const QString expenses = u"Ausgaben"_s;
    AddHeading(work.report, 2, words.heading);
    ReportTable table = AmountTable();
    AddOuter(table, Indent::None, u"Anfangsbestand"_s, account.opening);
    AddKinds(table, words, income, account.income, account.income_sum);
    AddTransferred(table, words.transferred_in, account.transferred_in);
    AddKinds(table, words, expenses, account.expenses, account.expense_sum);
    AddTransferred(table, words.transferred_out, account.transferred_out);
    AddOuter(table, Indent::None, u"Endbestand"_s, account.closing);
    table.rows.back().total = true;
    work.report.items.emplace_back(table);
    AddChosenBookings(work, words, income, account.income);
    AddChosenBookings(work, words, expenses, account.expenses);
}

// --- both accounts -----------------------------------------------------------------------------

void AddBoth(Work& work)
{
    const AccountReport& bank = work.numbers.Bank;
    const AccountReport& cash_box = work.numbers.CashBox;
    AddHeading(work.report, 2, u"Konto und Handkasse zusammen"_s);
    ReportTable table = AmountTable();
    const auto add = [&table](const QString& text, Cents amount) {
        AddOuter(table, Indent::None, text, amount);
    };
    add(u"Anfangsbestand"_s, bank.opening + cash_box.opening);
    add(u"+ Einnahmen"_s, bank.income_sum + cash_box.income_sum);
    add(u"− Ausgaben"_s, bank.expense_sum + cash_box.expense_sum);
    add(u"= Endbestand"_s, bank.closing + cash_box.closing);
    table.rows.back().total = true;
    work.report.items.emplace_back(table);
    AddSentence(work.report,
        u"Umbuchungen zwischen Konto und Handkasse sind hier weder Einnahme noch Ausgabe."_s);
}

void AddTransfers(Work& work)
{
    if (work.numbers.Transfers.found.empty())
        return;
    AddHeading(work.report, 2, u"Umbuchungen"_s);
    ReportTable table { u"transfers"_s };
    table.columns
        = { TextColumn(u"Datum"_s, true), NumberColumn(u"Betrag"_s, true), TextColumn(u"von"_s),
              TextColumn(u"nach"_s), TextColumn(u"Vorgang"_s), TextColumn(u"Vorgang"_s) };
    for (const Transfer& transfer : work.numbers.Transfers.found) {
        const Account to = transfer.from == Account::Bank ? Account::CashBox : Account::Bank;
        const auto booking_of = [&work](Account account, std::size_t position) {
            return LedgerOfYear(work.source, account, work.source.Year)->bookings[position];
        };
        const Booking out = booking_of(transfer.from, transfer.withdrawal);
        const Booking in = booking_of(to, transfer.deposit);
        table.rows.push_back({ { DateCell(out, work.source.Year), EuroCell(transfer.amount),
            TextCell(AccountName(transfer.from)), TextCell(AccountName(to)), TextCell(out.text),
            TextCell(in.text) } });
    }
    work.report.items.emplace_back(table);
}

void AddClaims(Work& work, const OpenTotals& totals)
{
    AddHeading(work.report, 2, u"Offene Forderungen"_s);
    AddSentence(work.report,
        u"Abrechnungen %1, noch nicht bezahlt: %2 (%3)"_s.arg(work.source.Year)
            .arg(EuroText(totals.Claims), Counted(totals.Debtors, u"Mitglied"_s, u"Mitglieder"_s)));
    AddSentence(work.report, u"Guthaben der Mitglieder: %1"_s.arg(EuroText(totals.Credits)));
}

void AddHints(Work& work)
{
    const QStringList hints = CashReportHints(work.source, work.numbers, work.context);
    if (!hints.isEmpty())
        AddHeading(work.report, 2, u"Hinweise"_s);
    for (const QString& hint : hints)
        AddSentence(work.report, hint);
    AddNoAmounts(work.report, work.numbers.NoAmounts, work.source.Year);
}

// --- the auditors' page ------------------------------------------------------------------------

void AddBalances(Work& work)
{
    const Cents bank = work.numbers.Bank.closing;
    const Cents cash_box = work.numbers.CashBox.closing;
    ReportTable table;
    table.columns = { TextColumn({}), TextColumn({}) };
    table.columns[0].share = half;
    table.columns[1].share = half;
    const auto add = [&table](const QString& balance, const QString& checked) {
        table.rows.push_back({ { TextCell(balance), TextCell(checked) } });
    };
    add(u"Bestand Konto: %1"_s.arg(EuroText(bank)),
        u"laut Kontoauszug: %1 €"_s.arg(line_to_fill_in));
    add(u"Bestand Handkasse: %1"_s.arg(EuroText(cash_box)),
        u"gezählt: %1 €"_s.arg(line_to_fill_in));
    add(u"Bestand zusammen: %1"_s.arg(EuroText(bank + cash_box)), {});
    work.report.items.emplace_back(table);
}

void AddAuditorsPage(Work& work)
{
    Report& report = work.report;
    report.items.emplace_back(ReportPageBreak {});
    AddHeading(report, 1, u"Kassenprüfung %1"_s.arg(work.source.Year));
    AddSentence(
        report, u"Die Kasse und die Belege des Jahres %1 wurden geprüft."_s.arg(work.source.Year));
    AddBalances(work);
    AddSentence(report, u"Beanstandungen:"_s);
    report.items.emplace_back(ReportSignatures { { {} } });
    report.items.emplace_back(ReportSignatures { { {} } });
    report.items.emplace_back(ReportSignatures { { {} } });
    AddSentence(
        report, u"Die Entlastung des Kassenwarts wird empfohlen:   ja \u2610   nein \u2610"_s);
    report.items.emplace_back(
        ReportSignatures { { u"Ort, Datum"_s, u"Kassenwart: %1"_s.arg(work.context.Treasurer) } });
    report.items.emplace_back(ReportSignatures { { u"Kassenprüfer"_s, u"Kassenprüfer"_s } });
}

// --- all of it ---------------------------------------------------------------------------------

QString PeriodOf(int year, const QDate& today)
{
    const QDate begin(year, 1, 1);
    const QDate end(year, 12, 31);
    if (today > end)
        return u"Zeitraum %1 bis %2"_s.arg(ShortDate(begin), ShortDate(end));
    return u"Zeitraum %1 bis %2 (Jahr nicht abgeschlossen)"_s.arg(
        ShortDate(begin), ShortDate(today));
}

void AddHead(Work& work)
{
    AddHeading(work.report, 1, u"Kassenbericht %1"_s.arg(work.source.Year));
    if (!work.context.ClubName.isEmpty())
        AddSentence(work.report, work.context.ClubName);
    AddSentence(work.report, PeriodOf(work.source.Year, work.context.Today));
}

void AddAccounts(Work& work, const OpenTotals& totals)
{
    const QString bank = u"Konto %1"_s.arg(work.context.BankName).trimmed();
    AddAccount(work,
        { Account::Bank, bank, u"Umbuchungen von der Handkasse"_s, u"Umbuchungen zur Handkasse"_s },
        work.numbers.Bank);
    AddAccount(work,
        { Account::CashBox, u"Handkasse"_s, u"Umbuchungen vom Konto"_s,
            u"Umbuchungen zum Konto"_s },
        work.numbers.CashBox);
    AddBoth(work);
    AddTransfers(work);
    AddClaims(work, totals);
    AddHints(work);
}

} // namespace

Report MakeCashReportText(
    MoneySource& source, const CashReportContext& context, const ReportChoices& choices)
{
    const CashReport numbers = MakeCashReport(source);
    const OpenTotals totals = TotalsOf(FindOpenItems(source));
    Report report { u"Kassenbericht %1"_s.arg(source.Year) };
    report.edge = PaperEdge::Above;
    Work work { source, numbers, context, choices, report };
    AddHead(work);
    const bool empty = LedgerOfYear(source, Account::Bank, source.Year)->bookings.empty()
        && LedgerOfYear(source, Account::CashBox, source.Year)->bookings.empty();
    if (empty)
        AddSentence(report, u"Für %1 ist nichts gebucht."_s.arg(source.Year));
    else
        AddAccounts(work, totals);
    AddAuditorsPage(work);
    return report;
}
