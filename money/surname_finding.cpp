#include "money/surname_finding.h"

#include <algorithm>

namespace {

/// A surname found in the text.
struct SurnameFind {
    NameFind find;
    int surname = 0; ///< position in MemberIndex::Sharers
    int rank = 0;
};

int RankOf(const SurnameEntry& entry, const FoldedText& text, const NameFind& find)
{
    if (entry.Form == SurnameForm::WithoutTwo)
        return WithoutItsTwo;
    return SourceOf(text, find.begin, find.end) == entry.Exact ? LetterForLetter : EqualWhenFolded;
}

/// The proposed text has the first part directly behind the payment word, and nowhere else does it
/// stand for the surname.
bool MayStandAt(const SurnameEntry& entry, const PaymentText& payment, qsizetype place)
{
    if (entry.Form != SurnameForm::FirstPart)
        return true;
    if (payment.BehindWord < 0 || place < payment.BehindWord)
        return false;
    const QStringView between
        = QStringView(payment.Rest.Text).sliced(payment.BehindWord, place - payment.BehindWord);
    return between.trimmed().isEmpty();
}

void FindSurnamesAt(QVector<SurnameFind>& finds, const MemberIndex& index,
    const PaymentText& payment, const NameFind& word)
{
    const QString& text = payment.Rest.Text;
    const auto entries
        = index.EntriesByWord.constFind(text.sliced(word.begin, word.end - word.begin));
    if (entries == index.EntriesByWord.constEnd())
        return;
    for (const int position : *entries) {
        const SurnameEntry& entry = index.Entries[position];
        const qsizetype place = word.begin - entry.Name.FirstRun;
        const qsizetype end = EndOfNameAt(text, entry.Name, place);
        if (end < 0 || !MayStandAt(entry, payment, place))
            continue;
        const NameFind find { place, end };
        finds += SurnameFind { find, entry.Surname, RankOf(entry, payment.Rest, find) };
    }
}

QVector<SurnameFind> FindSurnames(const MemberIndex& index, const PaymentText& payment)
{
    QVector<SurnameFind> finds;
    const QString& text = payment.Rest.Text;
    qsizetype begin = 0;
    while (begin < text.size()) {
        if (!IsLetterOrDigit(text[begin])) {
            ++begin;
            continue;
        }
        qsizetype end = begin;
        while (end < text.size() && IsLetterOrDigit(text[end]))
            ++end;
        FindSurnamesAt(finds, index, payment, { begin, end });
        begin = end;
    }
    return finds;
}

/// "Kunz" inside a found "Meier-Kunz" is no Kunz.
void DropFindsInsideLonger(QVector<SurnameFind>& finds)
{
    const QVector<SurnameFind> all = finds;
    finds.removeIf([&all](const SurnameFind& find) {
        return std::any_of(all.begin(), all.end(),
            [&find](const SurnameFind& other) { return IsInsideLonger(find.find, other.find); });
    });
}

} // namespace

QVector<Candidate> CandidatesOf(const MemberIndex& index, const PaymentText& payment)
{
    QVector<SurnameFind> finds = FindSurnames(index, payment);
    DropFindsInsideLonger(finds);
    QHash<int, Candidate> by_surname;
    for (const SurnameFind& found : finds) {
        Candidate& candidate = by_surname[found.surname];
        candidate.rank = std::max(candidate.rank, found.rank);
        candidate.places += found.find;
    }
    QVector<Candidate> candidates;
    for (auto found = by_surname.cbegin(); found != by_surname.cend(); ++found) {
        for (const int member : index.Sharers[found.key()]) {
            candidates += found.value();
            candidates.last().member = member;
        }
    }
    std::sort(candidates.begin(), candidates.end(),
        [](const Candidate& a, const Candidate& b) { return a.member < b.member; });
    return candidates;
}
