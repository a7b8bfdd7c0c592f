#include "money/cash_report_hints.h"

#include "money/report_parts.h"

using namespace Qt::StringLiterals;

namespace {

/// One account and what the sentences about it compare.
struct AccountView {
    Account account;
    const AccountReport& report;
    const QString& shown_balance;
};

/// Sentences about an account begin with its name.
QString About(Account account, const QString& sentence)
{
    return AccountName(account) + u": "_s + sentence;
}

void AddOpening(QStringList& hints, const MoneySource& source, const AccountView& view)
{
    if (view.report.openings == 0)
        hints += About(
            view.account, u"Kein Übertrag gebucht: Der Anfangsbestand ist mit 0,00 € gerechnet."_s);
    if (view.report.openings > 1)
        hints += About(view.account,
            u"Der Anfangsbestand besteht aus %1 Buchungen."_s.arg(view.report.openings));
    const MoneyLedger* before = LedgerOfYear(source, view.account, source.Year - 1);
    if (before != nullptr && BalanceOf(*before) != view.report.opening)
        hints += About(view.account,
            u"Das Vorjahr endet mit %1, der Anfangsbestand ist %2."_s.arg(
                EuroText(BalanceOf(*before)), EuroText(view.report.opening)));
}

QString NoCashBox(const MoneySource& source)
{
    const MoneyLedger* before = LedgerOfYear(source, Account::CashBox, source.Year - 1);
    if (before == nullptr)
        return u"Keine Handkasse geführt."_s;
    return u"Für %1 ist noch keine Handkasse angelegt; %2 endete sie mit %3."_s.arg(source.Year)
        .arg(source.Year - 1)
        .arg(EuroText(BalanceOf(*before)));
}

QString Unclear(const UnclearTransfers& transfers)
{
    return u"Am %1 stehen sich %2 und %3 über %4 gegenüber: nicht als Umbuchung gerechnet."_s.arg(
        transfers.date, Counted(transfers.withdrawals, u"Abhebung"_s, u"Abhebungen"_s),
        Counted(transfers.deposits, u"Einzahlung"_s, u"Einzahlungen"_s),
        EuroText(transfers.amount));
}

QString OddDates(int count)
{
    return count == 1
        ? u"1 Buchung trägt ein Datum aus einem anderen Jahr oder kein gültiges Datum."_s
        : u"%1 Buchungen tragen ein Datum aus einem anderen Jahr oder kein gültiges Datum."_s.arg(
            count);
}

QString NoNumbers(std::size_t count)
{
    return count == 1 ? u"1 Betrag ist keine Zahl und zählt 0,00 €."_s
                      : u"%1 Beträge sind keine Zahl und zählen 0,00 €."_s.arg(count);
}

/// The shown balance is summed in single precision, step by step; from some thousands on it may be
/// cents off.
void AddBalance(QStringList& hints, const AccountView& view)
{
    const Cents shown = CentsOrZero(view.shown_balance);
    if (shown == view.report.closing)
        return;
    hints += About(view.account,
        u"Unter „Kontoführung“ steht %1; genau gerechnet sind es %2. Der Kassenbericht rechnet "
        "auf den Cent genau."_s.arg(EuroText(shown), EuroText(view.report.closing)));
}

} // namespace

bool HasCashBox(const MoneySource& source)
{
    const MoneyLedger* cash_box = LedgerOfYear(source, Account::CashBox, source.Year);
    return source.CashBoxHasFile || (cash_box != nullptr && !cash_box->bookings.empty());
}

QStringList CashReportHints(
    const MoneySource& source, const CashReport& report, const CashReportContext& context)
{
    const AccountView bank { Account::Bank, report.Bank, context.ShownBankBalance };
    const AccountView cash_box { Account::CashBox, report.CashBox, context.ShownCashBoxBalance };
    QStringList hints;
    AddOpening(hints, source, bank);
    if (HasCashBox(source))
        AddOpening(hints, source, cash_box);
    else
        hints += NoCashBox(source);
    for (const UnclearTransfers& transfers : report.Transfers.unclear)
        hints += Unclear(transfers);
    if (report.OddDates > 0)
        hints += OddDates(report.OddDates);
    if (!report.NoAmounts.empty())
        hints += NoNumbers(report.NoAmounts.size());
    if (const QString unsaved = UnsavedSentence(source.Unsaved); !unsaved.isEmpty())
        hints += unsaved;
    AddBalance(hints, bank);
    AddBalance(hints, cash_box);
    return hints + UnreadableSentences(source);
}
