#include "outgoing/payment_code.h"

#include "data/records.h"
#include "money/money_reading.h"
#include "money/purpose_text.h"
#include "statement/bill_amounts.h"
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

} // namespace

BankTransfer TransferOfPage(const StatementState& statement, const QString& payee, qsizetype index)
{
    const BillSource& source = statement.Source;
    const bool drawn = index < statement.StatementTotals.size();
    return { payee, source.Bank.Iban,
        drawn ? BillOf(StatementOfPage(statement, index)) : std::nullopt,
        PurposeText(source.YearText, SplitRecord(source.Members.RecordList.value(index))) };
}

QString NoCodeOnPage(const StatementState& statement, const QString& payee, qsizetype index)
{
    const BankTransfer transfer = TransferOfPage(statement, payee, index);
    const QString reason = NoCodeReason(transfer);
    if (!reason.isEmpty())
        return reason;
    PageItems member;
    DrawStatement(member, StatementOfPage(statement, index));
    if (ReachesInto(member, CodeSpace(SquaresOf(TransferPayload(transfer)).Side)))
        return u"Die Anschrift reicht in den Platz des Codes."_s;
    return {};
}

PageItems CodeOfPage(const StatementState& statement, const QString& payee, qsizetype index)
{
    if (!NoCodeOnPage(statement, payee, index).isEmpty())
        return {};
    return CodeItems(SquaresOf(TransferPayload(TransferOfPage(statement, payee, index))));
}
