// The files of the accounts as they lie there, and what is carried over from year to year.
#include "cashbook/ledger_file.h"
#include "cashbook/texts.h"
#include "check/rules.h"
#include "data/file_names.h"
#include "data/german_numbers.h"
#include "data/line_file.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto cash_box = static_cast<std::size_t>(Account::CashBox);
constexpr int years_looked_back = 9;
constexpr qsizetype old_field_count = 5;
constexpr Cents rounding = 100; // the program's own carry-over may be a euro off

QString LedgerName(std::size_t account, const QString& year)
{
    return account == cash_box ? CashBoxLedgerFileName(year) : BankLedgerFileName(year);
}

// --- the lines of the file --------------------------------------------------------------------

/// Old files store a balance behind the amounts.
bool HasOldForm(const QStringList& fields)
{
    return fields.size() == old_field_count && IsNumber(fields[Deposit])
        && IsNumber(fields[Withdrawal]) && IsNumber(fields[LedgerFieldCount]);
}

/// The row of the ledger with the same first four fields, -1: none.
qsizetype RowOfLine(const CheckData& data, std::size_t account, const QString& line)
{
    const QString wanted = FirstFourFields(SplitRecord(line));
    const QStringList& lines = data.Source.Accounts.at(account).Lines;
    for (qsizetype row = 0; row < lines.size(); ++row) {
        if (FirstFourFields(SplitRecord(lines[row])) == wanted)
            return row;
    }
    return -1;
}

void AddOddLine(const CheckData& data, Findings& findings, std::size_t account,
    const LedgerFileLine& line, bool first_is_old)
{
    const QStringList fields = SplitRecord(line.text);
    if (fields.size() > LedgerFieldCount && first_is_old && HasOldForm(fields))
        return;
    const bool more = fields.size() > LedgerFieldCount;
    const QString number = QString::number(line.number);
    const Finding finding { more ? u"C43b"_s : u"C43c"_s, Level::Error,
        more ? u"Zeile %1 hat %2 statt 4 Felder, meist durch einen Strichpunkt im Vorgang; alles "
               "hinter dem vierten geht beim Speichern verloren."_s.arg(
                   number, QString::number(fields.size()))
             : u"Zeile %1 hat nur %2; der Betrag fehlt."_s.arg(
                 number, CountOf(fields.size(), u"Feld"_s, u"Felder"_s)),
        u"Klicken Sie die Buchung an, berichtigen Sie Vorgang und Betrag, „OK“, „Speichern“."_s };
    const QString name = AccountNameOf(account);
    AddTo(findings, finding,
        { more ? name + u": "_s + Quoted(line.text) : name,
            BookingTarget(account, RowOfLine(data, account, line.text)) });
}

void CheckGap(const LedgerFileLines& lines, Findings& findings, std::size_t account)
{
    if (lines.FilledBehindEmpty == 0)
        return;
    AddTo(findings,
        { u"C43a"_s, Level::Error,
            u"Zeile %1 ist leer; %2 dahinter werden nicht gelesen und gehen beim Speichern "
            "verloren."_s.arg(QString::number(lines.FirstEmpty),
                CountOf(lines.FilledBehindEmpty, u"Buchung"_s, u"Buchungen"_s)),
            u"Speichern Sie nichts. Löschen Sie die leere Zeile in einem Textprogramm, und drücken "
            "Sie „Laden“."_s },
        { AccountNameOf(account), LoadTarget() });
}

/// The old form counts in the bank account alone.
void CheckOldOpening(const CheckData& data, Findings& findings, const QStringList& fields)
{
    const double balance = ParseDouble(fields[LedgerFieldCount]).value;
    const double moved = ParseDouble(fields[Deposit]).value - ParseDouble(fields[Withdrawal]).value;
    if (EuroAmount(balance) == EuroAmount(moved))
        return;
    AddTo(findings,
        { u"C43d"_s, Level::Error,
            u"Der Anfangsbestand %1 steht in Zeile 1 im fünften Feld; in der Handkasse zählt er "
            "nicht und geht beim Speichern verloren."_s.arg(fields[LedgerFieldCount]),
            u"Tragen Sie den Betrag in Zeile 1 unter „Einzahlen“ ein, „OK“, „Speichern“."_s },
        { AccountNameOf(cash_box),
            BookingTarget(cash_box, RowOfLine(data, cash_box, JoinRecord(fields))) });
}

// --- carrying over ----------------------------------------------------------------------------

/// Last year's lines as the account shows them.
QStringList LastYearLines(const CheckData& data, std::size_t account, const QString& year)
{
    const QStringList lines = ReadLedgerLines(data.Source.Files, LedgerName(account, year));
    return account == cash_box ? lines : WithoutStoredBalances(lines);
}

struct CarriedRows {
    std::vector<std::size_t> named; ///< rows with the text of the carry-over
    bool amount_there = false; ///< a row of exactly last year's balance
};

std::optional<Cents> AmountOf(const CheckBooking& booking)
{
    if (!booking.deposit.is_exact || !booking.withdrawal.is_exact)
        return std::nullopt;
    return booking.deposit.cents - booking.withdrawal.cents;
}

CarriedRows FindCarried(const CheckData& data, const CheckBookings& bookings, Cents closing)
{
    const QString text = CarryOverText + data.LastYear;
    CarriedRows rows;
    for (std::size_t row = 0; row < bookings.Rows.size(); ++row) {
        const CheckBooking& booking = bookings.Rows[row];
        if (booking.carried_over && booking.text == text)
            rows.named.push_back(row);
        rows.amount_there = rows.amount_there || AmountOf(booking) == closing;
    }
    return rows;
}

/// What the program itself would carry over, a little off by its single precision.
bool IsOwnRounding(
    const CheckData& data, std::size_t account, const QString& amount, Cents carried, Cents closing)
{
    if (std::abs(carried - closing) > rounding)
        return false;
    const QStringList lines
        = ReadLedgerLines(data.Source.Files, LedgerName(account, data.LastYear));
    const CarryOver own = MakeCarryOver(lines, data.LastYear, data.Source.Today);
    return FieldOrEmpty(SplitRecord(own.line), Deposit) == amount;
}

void CheckOneCarryOver(const CheckData& data, Findings& findings, std::size_t account)
{
    const QStringList before = LastYearLines(data, account, data.LastYear);
    const std::optional<Cents> closing = TakeBookingsApart(before).Balance;
    const CheckBookings& bookings = data.Bookings.at(account);
    if (!closing)
        return; // amounts beyond every account
    const CarriedRows rows = FindCarried(data, bookings, *closing);
    const QString name = AccountNameOf(account);
    if (rows.named.size() > 1)
        return AddTo(findings,
            { u"C47a"_s, Level::Error,
                u"Der Übertrag aus %1 steht zweimal im Konto."_s.arg(data.LastYear),
                u"Löschen Sie einen."_s },
            { name, BookingTarget(account, static_cast<qsizetype>(rows.named.back())) });
    if (rows.named.empty()) {
        if (*closing != 0 && !rows.amount_there)
            AddTo(findings,
                { u"C47b"_s, Level::Error,
                    u"Der Übertrag aus %1 fehlt; es wären %2 €."_s.arg(
                        data.LastYear, AmountText(*closing)),
                    u"Buchen Sie ihn als Einzahlung mit dem Vorgang „Übertrag Saldo %1“."_s.arg(
                        data.LastYear) },
                { name, BookingTarget(account, -1) });
        return;
    }
    const CheckBooking& booking = bookings.Rows[rows.named.front()];
    const Cents carried = AmountOf(booking).value_or(0);
    if (carried == *closing
        || IsOwnRounding(
            data, account, AmountText(booking, booking.deposit).toString(), carried, *closing))
        return;
    AddTo(findings,
        { u"C47c"_s, Level::Error,
            u"Der Übertrag ist %1 €, %2 endet aber mit %3 €."_s.arg(
                AmountText(carried), data.LastYear, AmountText(*closing)),
            u"Klicken Sie den Übertrag an, berichtigen Sie den Betrag, „OK“, „Speichern“; wurde %1 "
            "nachträglich gebucht, ist das der Grund."_s.arg(data.LastYear) },
        { name, BookingTarget(account, static_cast<qsizetype>(rows.named.front())) });
}

// --- missing years ----------------------------------------------------------------------------

void CheckUnopenedCashBox(const CheckData& data, Findings& findings)
{
    if (data.Ledgers.at(cash_box).There || !data.LastYearLedgers.at(cash_box).There
        || !data.Source.Accounts.at(cash_box).Lines.isEmpty())
        return;
    Add(findings,
        { u"C48a"_s, data.BillingTime ? Level::Warning : Level::Hint,
            u"Die Handkasse %1 ist noch nicht eröffnet; ihr Übertrag aus %2 fehlt, und %3 begänne "
            "sie mit 0,00 €."_s.arg(data.Year, data.LastYear, data.FollowingYear),
            u"Drücken Sie unter „Kontoführung“ einmal „Kasse Kassenwart“."_s,
            ControlTarget(u"Command15"_s) });
}

void CheckGapOfYears(const CheckData& data, Findings& findings, std::size_t account)
{
    if (data.Ledgers.at(account).There || data.LastYearLedgers.at(account).There)
        return;
    const int year = data.LastYear.toInt();
    for (int old = year - 1; old >= year - years_looked_back; --old) {
        const QString old_year = QString::number(old);
        if (!FileExists(data.Source.Files, LedgerName(account, old_year)))
            continue;
        const CheckBookings bookings = TakeBookingsApart(LastYearLines(data, account, old_year));
        Add(findings,
            { u"C48b"_s, Level::Warning,
                u"%1: Das Jahr %2 fehlt; der Bestand von %3 (%4 €) ist nicht weitergeführt."_s.arg(
                    AccountNameOf(account), data.LastYear, old_year,
                    AmountText(bookings.Balance.value_or(0))),
                u"%1 (bei mehreren das älteste fehlende Jahr zuerst) laden und das Konto einmal "
                "ansehen; wenn das nicht geht, buchen Sie den Bestand als Einzahlung."_s.arg(
                    data.LastYear),
                ControlTarget(u"Command15"_s) });
        return;
    }
}

} // namespace

void CheckLedgerLines(const CheckData& data, Findings& findings)
{
    for (std::size_t account = 0; account < 2; ++account) {
        const LedgerFileLines& lines = data.LedgerLines.at(account);
        if (data.LedgerUnsafe.at(account))
            continue;
        CheckGap(lines, findings, account);
        const bool odd_first = !lines.Odd.empty() && lines.Odd.front().number == 1;
        const QStringList first = odd_first ? SplitRecord(lines.Odd.front().text) : QStringList();
        const bool first_is_old = HasOldForm(first);
        for (const LedgerFileLine& line : lines.Odd)
            AddOddLine(data, findings, account, line, first_is_old);
        if (first_is_old && account == cash_box)
            CheckOldOpening(data, findings, first);
    }
}

void CheckCarryOver(const CheckData& data, Findings& findings)
{
    for (std::size_t account = 0; account < 2; ++account) {
        const bool opened
            = data.Ledgers.at(account).There || !data.Source.Accounts.at(account).Lines.isEmpty();
        if (opened && !data.LedgerUnsafe.at(account) && data.LastYearLedgers.at(account).There)
            CheckOneCarryOver(data, findings, account);
    }
}

void CheckMissingYears(const CheckData& data, Findings& findings)
{
    CheckUnopenedCashBox(data, findings);
    for (std::size_t account = 0; account < 2; ++account)
        CheckGapOfYears(data, findings, account);
}
