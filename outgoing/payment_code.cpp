#include "outgoing/payment_code.h"

#include "data/records.h"
#include "money/money_reading.h"
#include "money/purpose_text.h"
#include "statement/page_player.h"
#include "statement/statement_pages.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int text_height = 13; // page pixels of size 8
constexpr int gap = 4; // page pixels between the address and the code's place

/// True when a text of the bill's own part, its address, comes too near.
bool ReachesInto(const PageItems& member, const PageBox& space)
{
    for (const PageItem& item : member) {
        const auto* text = std::get_if<PageText>(&item);
        if (text == nullptr || text->right_aligned)
            continue;
        const bool same_height = text->y < space.y2 && text->y + text_height > space.y1;
        if (same_height && text->x + TextWidth(*text) + gap > space.x1)
            return true;
    }
    return false;
}

/// The transfer that pays the bill, as it was drawn.
BankTransfer TransferOf(const StatementState& statement, const QString& payee, const PageBill& bill)
{
    const BillSource& source = statement.Source;
    const bool drawn = bill.Index < statement.StatementTotals.size();
    return { payee, source.Bank.Iban, drawn ? BillOf(bill.Statement) : std::nullopt,
        PurposeText(source.YearText, SplitRecord(source.Members.RecordList.value(bill.Index))) };
}

} // namespace

PageCode CodeOfBill(const StatementState& statement, const QString& payee, const PageBill& bill)
{
    PageCode code { TransferOf(statement, payee, bill), {}, {} };
    code.Reason = NoCodeReason(code.Transfer);
    if (!code.Reason.isEmpty())
        return code;
    const CodeSquares squares = SquaresOf(TransferPayload(code.Transfer));
    if (ReachesInto(bill.Items, CodeSpace(squares.Side)))
        code.Reason = u"Die Anschrift reicht in den Platz des Codes."_s;
    else
        code.Squares = squares;
    return code;
}

PageCode CodeOfPage(const StatementState& statement, const QString& payee, qsizetype index)
{
    return CodeOfBill(statement, payee, BillOfPage(statement, index));
}

PageItems ItemsOfCode(const PageCode& code)
{
    return code.Reason.isEmpty() ? CodeItems(code.Squares) : PageItems();
}
