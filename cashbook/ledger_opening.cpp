#include "cashbook/ledger_opening.h"

#include "cashbook/date_ordering.h"
#include "cashbook/ledger_file.h"
#include "cashbook/texts.h"
#include "data/dates.h"
#include "data/file_names.h"

namespace {

QStringList OpenYear(CashBookState& book, const LedgerPlace& place)
{
    const QString& year = place.YearText;
    const QString previous_year = PreviousYear(year);
    const QString previous_file = LedgerFileNameOf(place.Which, previous_year);
    if (!FileExists(place.Files, previous_file)) {
        place.Talk.Hint(NoHistoryWarning);
        book.LedgerWithoutHistory = true;
        return {};
    }
    place.Talk.Hint(NewYearNotice(year));
    const CarryOver carry_over
        = MakeCarryOver(ReadLedgerLines(place.Files, previous_file), previous_year, place.Today);
    WriteLedger(place.Files, LedgerFileNameOf(place.Which, year), { carry_over.line });
    if (const auto error = UncountedError(carry_over, FileNameOf(previous_file), previous_year))
        place.Talk.Error(*error);
    return { carry_over.line };
}

/// Takes over what load answers; a load that throws leaves the list alone, but marked as not being
/// what stands in its file.
template <typename Load> void Fill(Ledger& ledger, const LedgerPlace& place, Load load)
{
    ledger.Unread = true;
    ledger.Lines = load();
    ledger.Year = place.YearText;
    ledger.Unread = false;
    ledger.Unsaved = false;
    ledger.InOrder = KeepsBookingOrder(ledger.Lines); // what is loaded is sorted
}

} // namespace

QString LedgerFileNameOf(Account account, const QString& year_text)
{
    return account == Account::Bank ? BankLedgerFileName(year_text)
                                    : CashBoxLedgerFileName(year_text);
}

void LoadLedger(CashBookState& book, const LedgerPlace& place)
{
    Fill(LedgerOf(book, place.Which), place, [&] {
        const QString name = LedgerFileNameOf(place.Which, place.YearText);
        return FileExists(place.Files, name) ? ReadLedger(place.Files, name)
                                             : OpenYear(book, place);
    });
}

void LoadLedgerWithoutHistory(CashBookState& book, const LedgerPlace& place)
{
    Fill(LedgerOf(book, place.Which), place, [&] {
        const QString name = LedgerFileNameOf(place.Which, place.YearText);
        return FileExists(place.Files, name) ? ReadLedger(place.Files, name) : QStringList();
    });
}

void JoinLedgerWithFile(CashBookState& book, const LedgerPlace& place)
{
    Ledger& ledger = LedgerOf(book, place.Which);
    const QStringList typed = ledger.Lines;
    LoadLedger(book, place);
    ledger.Lines += typed;
    ledger.InOrder = false;
    ledger.Unsaved = true;
}

void ReadLedgerAsItStands(CashBookState& book, const LedgerPlace& place)
{
    Ledger& ledger = LedgerOf(book, place.Which);
    const QString name = LedgerFileNameOf(place.Which, place.YearText);
    ledger.Unread = true;
    if (FileExists(place.Files, name))
        ledger.Lines = ReadLedgerLines(place.Files, name);
    ledger.Year = place.YearText;
    ledger.InOrder = false;
    ledger.Unread = false;
}

void SaveLedgerLines(CashBookState& book, const LedgerPlace& place)
{
    Ledger& ledger = LedgerOf(book, place.Which);
    WriteLedger(place.Files, LedgerFileNameOf(place.Which, place.YearText), ledger.Lines);
    ledger.Unsaved = false;
}
