#include "money/cash_book_report.h"

#include "money/report_parts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int lines_of_headings = 6; // the title and the account's name on an account's first page

/// The sums down to a row.
struct RunningSums {
    Cents deposits = 0;
    Cents withdrawals = 0;
};

ReportTable EmptyPage()
{
    ReportTable table;
    table.columns = { NumberColumn(u"Nr."_s), TextColumn(u"Datum"_s), TextColumn(u"Vorgang"_s),
        NumberColumn(u"Einzahlung"_s), NumberColumn(u"Auszahlung"_s),
        NumberColumn(u"Kontostand"_s) };
    const int shares[] { 6, 12, 40, 14, 14, 14 };
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        table.columns[i].share = shares[i];
    return table;
}

ReportRow SumsRow(const QString& text, const RunningSums& sums)
{
    ReportRow row { { {}, {}, TextCell(text), EuroCell(sums.deposits), EuroCell(sums.withdrawals),
        EuroCell(sums.deposits - sums.withdrawals) } };
    row.total = true;
    return row;
}

/// The amount, or what is stored when it is no number (it counts 0 then).
ReportCell AmountCell(const std::optional<Cents>& amount, const QString& stored)
{
    if (!amount)
        return TextCell(stored.isEmpty() ? u"leer"_s : stored);
    return *amount == 0 ? ReportCell {} : EuroCell(*amount);
}

ReportRow BookingRow(const Booking& booking, const RunningSums& sums)
{
    const LinkTarget target = LinkToBooking(booking, booking.ledger_year);
    return { { TextCell(QString::number(booking.line), target), TextCell(booking.date),
        TextCell(booking.text), AmountCell(booking.deposit, booking.deposit_text),
        AmountCell(booking.withdrawal, booking.withdrawal_text),
        EuroCell(sums.deposits - sums.withdrawals) } };
}

/// One account while its pages are filled.
struct Pages {
    Report& report;
    const PageRoom& room;
    ReportTable table;
    int lines_left;
};

void TurnPage(Pages& pages, const RunningSums& sums)
{
    pages.table.rows.push_back(SumsRow(u"Übertrag"_s, sums));
    pages.report.items.emplace_back(pages.table);
    pages.report.items.emplace_back(ReportPageBreak {});
    pages.table = EmptyPage();
    pages.table.rows.push_back(SumsRow(u"Übertrag"_s, sums));
    pages.lines_left = pages.room.lines;
}

int LinesOf(const Booking& booking, const PageRoom& room)
{
    return 1 + static_cast<int>(booking.text.size()) / room.characters;
}

void AddAccount(
    Report& report, const MoneyLedger& ledger, const QString& heading, const PageRoom& room)
{
    AddHeading(report, 2, heading);
    if (ledger.bookings.empty()) {
        AddSentence(report, u"Für %1 ist hier nichts gebucht."_s.arg(ledger.year));
        return;
    }
    Pages pages { report, room, EmptyPage(), room.lines - lines_of_headings };
    RunningSums sums;
    for (const Booking& booking : ledger.bookings) {
        const int lines = LinesOf(booking, room);
        if (lines > pages.lines_left)
            TurnPage(pages, sums);
        sums.deposits += DepositOf(booking);
        sums.withdrawals += WithdrawalOf(booking);
        pages.table.rows.push_back(BookingRow(booking, sums));
        pages.lines_left -= lines;
    }
    pages.table.rows.push_back(SumsRow(u"Summe"_s, sums));
    report.items.emplace_back(pages.table);
}

} // namespace

Report MakeCashBookReport(const MoneySource& source, const QString& bank_name, const PageRoom& room)
{
    const MoneyLedger& bank = *LedgerOfYear(source, Account::Bank, source.Year);
    const MoneyLedger& cash_box = *LedgerOfYear(source, Account::CashBox, source.Year);
    const QString title = u"Kassenbuch %1"_s.arg(source.Year);
    Report report { title };
    report.edge = PaperEdge::Above;
    AddHeading(report, 1, title);
    if (const QString unsaved = UnsavedSentence(source.Unsaved); !unsaved.isEmpty())
        AddSentence(report, unsaved);
    for (const QString& sentence : UnreadableSentences(source))
        AddSentence(report, sentence);
    if (bank.bookings.empty() && cash_box.bookings.empty()) {
        AddSentence(report, u"Für %1 ist nichts gebucht."_s.arg(source.Year));
        return report;
    }
    AddAccount(report, bank, u"Konto %1"_s.arg(bank_name).trimmed(), room);
    report.items.emplace_back(ReportPageBreak {});
    AddAccount(report, cash_box, u"Handkasse"_s, room);
    std::vector<NoAmount> no_amounts;
    ListNoAmounts(no_amounts, bank);
    ListNoAmounts(no_amounts, cash_box);
    AddNoAmounts(report, no_amounts, source.Year);
    return report;
}
