#include "money/member_matching.h"

#include "money/surname_finding.h"

#include <algorithm>
#include <iterator>

namespace {

using Positions = QVector<int>;

// --- first names ------------------------------------------------------------------------------

/// True when the first name stands apart from a place of the surname ("Otto" alone is no "Otto
/// Otto").
bool IsApartFromSurname(const NameFind& find, const Candidate& candidate)
{
    return std::any_of(candidate.places.begin(), candidate.places.end(),
        [&find](const NameFind& place) { return !Overlap(find, place); });
}

QVector<NameFind> FindApart(QStringView text, const FoldedName& name, const Candidate& candidate)
{
    QVector<NameFind> finds = FindName(text, name);
    finds.removeIf(
        [&candidate](const NameFind& find) { return !IsApartFromSurname(find, candidate); });
    return finds;
}

/// Positions in candidates whose whole first name stands in the text; "Hans" inside the
/// "Hans-Peter" of another candidate is no Hans.
Positions ByWholeFirstName(
    const MemberIndex& index, QStringView text, const QVector<Candidate>& candidates)
{
    QVector<QVector<NameFind>> finds;
    for (const Candidate& candidate : candidates)
        finds += FindApart(text, index.FirstNames[candidate.member], candidate);
    const auto is_inside_another = [&finds](const NameFind& find) {
        return std::any_of(finds.begin(), finds.end(), [&find](const QVector<NameFind>& others) {
            return std::any_of(others.begin(), others.end(),
                [&find](const NameFind& other) { return IsInsideLonger(find, other); });
        });
    };
    Positions found;
    for (int i = 0; i < static_cast<int>(candidates.size()); ++i) {
        if (!std::all_of(finds[i].begin(), finds[i].end(), is_inside_another))
            found += i;
    }
    return found;
}

bool HasPartOfFirstName(const MemberIndex& index, QStringView text, const Candidate& candidate)
{
    const FoldedName& name = index.FirstNames[candidate.member];
    if (name.Parts.size() < 2)
        return false;
    return std::any_of(name.Parts.begin(), name.Parts.end(),
        [&](const QString& part) { return !FindApart(text, FoldName(part), candidate).isEmpty(); });
}

/// "A." for Anna.
bool HasInitial(const MemberIndex& index, QStringView text, const Candidate& candidate)
{
    const QString& initial = index.Initials[candidate.member];
    if (initial.isEmpty())
        return false;
    for (qsizetype place = text.indexOf(initial); place >= 0;
         place = text.indexOf(initial, place + 1)) {
        if (BeginsWord(text, place)
            && IsApartFromSurname({ place, place + initial.size() }, candidate))
            return true;
    }
    return false;
}

/// Positions in candidates: by whole first name; if that finds none, by a part of a double one; if
/// none, by the initial.
Positions ByFirstName(
    const MemberIndex& index, QStringView text, const QVector<Candidate>& candidates)
{
    Positions found = ByWholeFirstName(index, text, candidates);
    for (const auto has : { HasPartOfFirstName, HasInitial }) {
        if (!found.isEmpty())
            return found;
        for (int i = 0; i < static_cast<int>(candidates.size()); ++i) {
            if (has(index, text, candidates[i]))
                found += i;
        }
    }
    return found;
}

// --- deciding ---------------------------------------------------------------------------------

Positions ByGarden(
    const MemberIndex& index, const QString& garden, const QVector<Candidate>& candidates)
{
    Positions found;
    for (int i = 0; i < static_cast<int>(candidates.size()); ++i) {
        if (!garden.isEmpty() && index.Gardens[candidates[i].member] == garden)
            found += i;
    }
    return found;
}

Positions MembersOf(const QVector<Candidate>& candidates)
{
    Positions members;
    for (const Candidate& candidate : candidates)
        members += candidate.member;
    return members;
}

Positions InBoth(const Positions& a, const Positions& b)
{
    Positions common;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(common));
    return common;
}

/// The members of the best rank among these positions in candidates.
Positions OfBestRank(const QVector<Candidate>& candidates, const Positions& positions)
{
    int best = 0;
    for (const int position : positions)
        best = std::max(best, candidates[position].rank);
    Positions members;
    for (const int position : positions) {
        if (candidates[position].rank == best)
            members += candidates[position].member;
    }
    return members;
}

/// The one whose surname stands there, unless the garden is somebody else's.
Positions OneCandidate(int member, const Positions& with_garden)
{
    if (with_garden.size() != 1 || with_garden.front() == member)
        return { member };
    return { std::min(member, with_garden.front()), std::max(member, with_garden.front()) };
}

Positions OfSeveral(
    const MemberIndex& index, const PaymentText& payment, const QVector<Candidate>& candidates)
{
    const Positions by_garden = ByGarden(index, payment.Garden, candidates);
    const Positions by_first_name = ByFirstName(index, payment.Rest.Text, candidates);
    Positions left = by_garden.isEmpty() ? by_first_name : by_garden;
    if (!by_garden.isEmpty() && !by_first_name.isEmpty())
        left = InBoth(by_garden, by_first_name);
    const bool says_nothing = by_garden.isEmpty() && by_first_name.isEmpty();
    if (left.isEmpty() && !says_nothing)
        return MembersOf(candidates); // garden and first name contradict each other
    for (int i = 0; says_nothing && i < static_cast<int>(candidates.size()); ++i)
        left += i;
    return OfBestRank(candidates, left);
}

} // namespace

QVector<int> MatchMembers(const MemberIndex& index, const PaymentText& payment)
{
    const QVector<Candidate> candidates = CandidatesOf(index, payment);
    const Positions with_garden
        = payment.Garden.isEmpty() ? Positions() : index.MembersByGarden.value(payment.Garden);
    if (candidates.isEmpty())
        return with_garden.size() == 1 ? with_garden : Positions();
    if (candidates.size() == 1)
        return OneCandidate(candidates.front().member, with_garden);
    return OfSeveral(index, payment, candidates);
}
