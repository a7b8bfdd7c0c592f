#include "money/transfers.h"

#include "money/booking_kinds.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 2> whole_words { u"bar", u"bank" };
constexpr std::array<QStringView, 19> word_beginnings { u"umbuch", u"uebertr", u"handkass",
    u"kasse", u"barkass", u"konto", u"girokonto", u"sparkass", u"bargeld", u"barab", u"barein",
    u"baraus", u"abheb", u"einzahl", u"auszahl", u"geldautomat", u"einlage", u"entnahme",
    u"transfer" };

/// Bookings that may be paired with each other.
struct Group {
    std::vector<std::size_t> withdrawals; ///< positions in the ledger that the money leaves
    std::vector<std::size_t> deposits;
};

/// What both bookings of a pair have in common: payments of bills are compared only with payments
/// of the same text, all others only among themselves.
struct GroupKey {
    QString date;
    Cents amount = 0;
    QString payment_text; ///< folded; empty for what is no payment

    bool operator<(const GroupKey& other) const
    {
        return std::tie(date, amount, payment_text)
            < std::tie(other.date, other.amount, other.payment_text);
    }
};

/// The groups in the order of their first withdrawal.
struct Groups {
    std::map<GroupKey, Group> by_key;
    std::vector<GroupKey> order;
};

GroupKey KeyOf(const Booking& booking, Cents amount)
{
    const bool is_payment = PaymentKindOf(booking.folded) == PaymentKind::Payment;
    return { booking.date, amount, is_payment ? booking.folded : QString() };
}

bool MayBePaired(const Booking& booking)
{
    const bool has_both = DepositOf(booking) != 0 && WithdrawalOf(booking) != 0;
    return !has_both && !IsOpeningText(booking.folded);
}

Groups GroupWithdrawals(const MoneyLedger& from)
{
    Groups groups;
    for (std::size_t i = 0; i < from.bookings.size(); ++i) {
        const Booking& booking = from.bookings[i];
        if (WithdrawalOf(booking) <= 0 || !MayBePaired(booking))
            continue;
        const GroupKey key = KeyOf(booking, WithdrawalOf(booking));
        Group& group = groups.by_key[key];
        if (group.withdrawals.empty())
            groups.order.push_back(key);
        group.withdrawals.push_back(i);
    }
    return groups;
}

void AddDeposits(Groups& groups, const MoneyLedger& to)
{
    for (std::size_t i = 0; i < to.bookings.size(); ++i) {
        const Booking& booking = to.bookings[i];
        if (DepositOf(booking) <= 0 || !MayBePaired(booking))
            continue;
        const auto group = groups.by_key.find(KeyOf(booking, DepositOf(booking)));
        if (group != groups.by_key.end())
            group->second.deposits.push_back(i);
    }
}

bool Fit(const Booking& withdrawal, const Booking& deposit)
{
    const QString& from = withdrawal.folded;
    const QString& to = deposit.folded;
    return from == to || HasTransferWord(from) || HasTransferWord(to);
}

bool AnyPairFits(const Group& group, const MoneyLedger& from, const MoneyLedger& to)
{
    return std::any_of(group.withdrawals.begin(), group.withdrawals.end(), [&](std::size_t out) {
        return std::any_of(group.deposits.begin(), group.deposits.end(),
            [&](std::size_t in) { return Fit(from.bookings[out], to.bookings[in]); });
    });
}

void SearchOneWay(TransferSearch& search, const MoneyLedger& from, const MoneyLedger& to)
{
    Groups groups = GroupWithdrawals(from);
    if (groups.order.empty())
        return;
    AddDeposits(groups, to);
    for (const GroupKey& key : groups.order) {
        const Group& group = groups.by_key[key];
        if (group.deposits.empty() || !AnyPairFits(group, from, to))
            continue;
        if (group.withdrawals.size() == 1 && group.deposits.size() == 1)
            search.found.push_back(
                { from.account, group.withdrawals.front(), group.deposits.front(), key.amount });
        else
            search.unclear.push_back(
                { key.date, key.amount, static_cast<int>(group.withdrawals.size()),
                    static_cast<int>(group.deposits.size()) });
    }
}

} // namespace

bool HasTransferWord(const QString& folded)
{
    for (qsizetype begin = 0; begin < folded.size(); ++begin) {
        const bool begins
            = IsLetterOrDigit(folded[begin]) && (begin == 0 || !IsLetterOrDigit(folded[begin - 1]));
        if (!begins)
            continue;
        const QStringView rest = QStringView(folded).sliced(begin);
        for (const QStringView word : word_beginnings) {
            if (rest.startsWith(word))
                return true;
        }
        for (const QStringView word : whole_words) {
            if (rest.startsWith(word) && IsWholeWord(folded, begin, begin + word.size()))
                return true;
        }
    }
    return false;
}

TransferSearch FindTransfers(const MoneyLedger& bank, const MoneyLedger& cash_box)
{
    TransferSearch search;
    SearchOneWay(search, bank, cash_box);
    SearchOneWay(search, cash_box, bank);
    return search;
}
