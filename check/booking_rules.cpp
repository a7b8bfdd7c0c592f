// The bookings in memory, each account for itself: days, amounts, texts, balances.
#include "cashbook/ledger_rows.h"
#include "check/rules.h"
#include "data/dates.h"
#include "data/german_numbers.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int days_ahead = 31; // later than that is a slip

/// Calls the routine for both accounts whose files are what the program holds.
template <typename Routine> void ForEachAccount(const CheckData& data, Routine routine)
{
    for (std::size_t account = 0; account < 2; ++account) {
        if (!data.LedgerUnsafe.at(account))
            routine(account, data.Bookings.at(account));
    }
}

FindingRow BookingRow(
    std::size_t account, std::size_t row, const CheckBooking& booking, const QString& control = {})
{
    return { AccountNameOf(account) + u": "_s + BookingWords(booking),
        BookingTarget(account, static_cast<qsizetype>(row), control) };
}

// --- days -------------------------------------------------------------------------------------

enum class DayVerdict { Good, NoDay, OtherYear, Ahead };

DayVerdict JudgeDay(const CheckData& data, QStringView text)
{
    if (!IsWellFormedDate(text))
        return DayVerdict::NoDay;
    const QDate day = *ParseDate(text);
    if (day > data.Source.Today.addDays(days_ahead))
        return DayVerdict::Ahead;
    return QString::number(day.year()) == data.Year ? DayVerdict::Good : DayVerdict::OtherYear;
}

const QString pick_day
    = u"Klicken Sie die Buchung an, wählen Sie den Tag im Kalender, „OK“, „Speichern“."_s;

void AddOddDay(const CheckData& data, Findings& findings, DayVerdict verdict,
    const CheckBooking& booking, const FindingRow& row)
{
    const QString date = booking.date.toString();
    if (verdict == DayVerdict::NoDay)
        return AddTo(findings,
            { u"C44a"_s, Level::Error,
                u"%1 ist kein Tag; die Buchung wird falsch eingeordnet."_s.arg(Quoted(date)),
                pick_day },
            row);
    if (booking.carried_over)
        return;
    const QString where = verdict == DayVerdict::Ahead ? u"liegt in der Zukunft"_s
                                                       : u"liegt nicht im Jahr %1"_s.arg(data.Year);
    AddTo(findings,
        { u"C44b"_s, Level::Warning, u"Die Buchung vom %1 %2."_s.arg(date, where), pick_day }, row);
}

// --- amounts and texts ------------------------------------------------------------------------

void AddNoNumber(Findings& findings, std::size_t account, std::size_t row,
    const CheckBooking& booking, const BookedAmount& amount)
{
    const bool deposit = &amount == &booking.deposit;
    AddTo(findings,
        { u"C45"_s, Level::Error,
            u"%1 ist keine Zahl und zählt als 0,00."_s.arg(
                Quoted(AmountText(booking, amount).toString())),
            u"Klicken Sie die Buchung an, schreiben Sie den Betrag mit Komma (12,50), „OK“, "
            "„Speichern“."_s },
        { AccountNameOf(account) + u": "_s + u"%1 %2"_s.arg(booking.date, booking.text).trimmed(),
            BookingTarget(
                account, static_cast<qsizetype>(row), deposit ? u"Text10(2)"_s : u"Text10(3)"_s) });
}

void CheckOneOdd(
    Findings& findings, std::size_t account, std::size_t row, const CheckBooking& booking)
{
    const BookedAmount& in = booking.deposit;
    const BookedAmount& out = booking.withdrawal;
    const auto add = [&](const QString& id, const QString& sentence) {
        AddTo(findings,
            { id, Level::Warning, sentence,
                u"Klicken Sie die Buchung an und berichtigen Sie sie."_s },
            BookingRow(account, row, booking));
    };
    for (const BookedAmount* amount : { &in, &out }) {
        if (amount->is_number && amount->sign < 0)
            add(u"C46a"_s, u"Negativer Betrag %1."_s.arg(AmountText(booking, *amount)));
    }
    const bool numbers = in.is_number && out.is_number;
    if (numbers && in.sign != 0 && out.sign != 0)
        add(u"C46b"_s, u"Einzahlung und Abhebung in einer Buchung."_s);
    if (numbers && in.sign == 0 && out.sign == 0)
        add(u"C46c"_s, u"Buchung ohne Betrag."_s);
    if (booking.text.isEmpty())
        add(u"C46d"_s, u"Buchung ohne Vorgang."_s);
}

/// Lines stand in the order of their days; those typed since stand behind, so all are compared.
void CheckTwice(Findings& findings, std::size_t account, const CheckBookings& bookings)
{
    for (const std::size_t row : RowsBookedTwice(bookings))
        AddTo(findings,
            { u"C46e"_s, Level::Warning, u"Zweimal gleich gebucht."_s,
                u"Löschen Sie eine davon, wenn sie nur einmal vorkam."_s },
            BookingRow(account, row, bookings.Rows[row]));
}

} // namespace

void CheckCashBoxBalance(const CheckData& data, Findings& findings)
{
    const auto account = static_cast<std::size_t>(Account::CashBox);
    const CheckAccount& cash_box = data.Source.Accounts.at(account);
    if (cash_box.Lines.isEmpty() || !ShowsBelowZero(CurrentBalanceText(cash_box.ShownBalance)))
        return;
    Add(findings,
        { u"C42"_s, Level::Warning,
            u"Die Handkasse steht bei %1 €; eine Kasse kann nicht im Minus sein."_s.arg(
                EuroAmount(static_cast<double>(cash_box.ShownBalance))),
            u"Prüfen Sie den Übertrag und die Buchungen."_s, BookingTarget(account, -1) });
}

void CheckBookingDates(const CheckData& data, Findings& findings)
{
    ForEachAccount(data, [&](std::size_t account, const CheckBookings& bookings) {
        for (std::size_t day = 0; day < bookings.Days.size(); ++day) {
            const DayVerdict verdict = JudgeDay(data, bookings.Days[day].date);
            if (verdict == DayVerdict::Good)
                continue;
            const bool last = day + 1 == bookings.Days.size();
            const std::size_t end = last ? bookings.Rows.size() : bookings.Days[day + 1].first;
            for (std::size_t row = bookings.Days[day].first; row < end; ++row)
                AddOddDay(data, findings, verdict, bookings.Rows[row],
                    BookingRow(account, row, bookings.Rows[row], u"Text10(0)"_s));
        }
    });
}

void CheckBookingAmounts(const CheckData& data, Findings& findings)
{
    ForEachAccount(data, [&](std::size_t account, const CheckBookings& bookings) {
        QSet<QString> short_lines; // told as such
        for (const LedgerFileLine& line : data.LedgerLines.at(account).Odd) {
            if (SplitRecord(line.text).size() < LedgerFieldCount)
                short_lines.insert(FirstFourFields(SplitRecord(line.text)));
        }
        for (const std::size_t row : bookings.Unusual) {
            const CheckBooking& booking = bookings.Rows[row];
            if (booking.deposit.is_number && booking.withdrawal.is_number)
                continue;
            const QString& line
                = data.Source.Accounts.at(account).Lines.at(static_cast<qsizetype>(row));
            if (short_lines.contains(FirstFourFields(SplitRecord(line))))
                continue;
            for (const BookedAmount* amount : { &booking.deposit, &booking.withdrawal }) {
                if (!amount->is_number)
                    AddNoNumber(findings, account, row, booking, *amount);
            }
        }
    });
}

void CheckOddBookings(const CheckData& data, Findings& findings)
{
    ForEachAccount(data, [&](std::size_t account, const CheckBookings& bookings) {
        for (const std::size_t row : bookings.Unusual) {
            if (!bookings.Rows[row].carried_over)
                CheckOneOdd(findings, account, row, bookings.Rows[row]);
        }
        CheckTwice(findings, account, bookings);
    });
}

void CheckExactBalance(const CheckData& data, Findings& findings)
{
    ForEachAccount(data, [&](std::size_t account, const CheckBookings& bookings) {
        if (!bookings.Balance)
            return;
        const QString exact = AmountText(*bookings.Balance);
        const QString shown
            = EuroAmount(static_cast<double>(data.Source.Accounts.at(account).ShownBalance));
        if (shown == exact)
            return;
        AddTo(findings,
            { u"C49"_s, Level::Hint,
                u"Unter „Kontoführung“ steht %1 €, genau gerechnet sind es %2 €. Bei größeren "
                "Beträgen rundet das Programm."_s.arg(shown, exact),
                u"Verlassen Sie sich auf den Kontoauszug; es ist keine Buchung falsch."_s },
            { AccountNameOf(account), BookingTarget(account, -1, u"ListView1"_s) });
    });
}
