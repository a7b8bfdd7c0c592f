#include "money/name_finding.h"

using namespace Qt::StringLiterals;

namespace {

/// Behind blanks, a hyphen or both; the place itself when nothing of it stands there.
qsizetype BehindSeparator(QStringView text, qsizetype place)
{
    const auto skip_blanks = [&text](qsizetype from) {
        while (from < text.size() && text[from] == u' ')
            ++from;
        return from;
    };
    const qsizetype behind_blanks = skip_blanks(place);
    if (behind_blanks < text.size() && text[behind_blanks] == u'-')
        return skip_blanks(behind_blanks + 1);
    return behind_blanks;
}

} // namespace

FoldedName FoldName(const QString& name)
{
    FoldedName folded;
    folded.Parts = Folded(name).replace(u'-', u' ').split(u' ', Qt::SkipEmptyParts);
    if (folded.Parts.isEmpty())
        return folded;
    const QString& first = folded.Parts.front();
    while (folded.FirstRun < first.size() && !IsLetterOrDigit(first[folded.FirstRun]))
        ++folded.FirstRun;
    return folded;
}

qsizetype EndOfNameAt(QStringView text, const FoldedName& name, qsizetype place)
{
    if (place < 0 || name.Parts.isEmpty() || !BeginsWord(text, place))
        return -1;
    qsizetype end = place;
    for (const QString& part : name.Parts) {
        const qsizetype begin = end == place ? place : BehindSeparator(text, end);
        const bool is_apart = end == place || begin > end;
        if (!is_apart || !text.sliced(begin).startsWith(part))
            return -1;
        end = begin + part.size();
    }
    return EndsWord(text, end) ? end : -1;
}

QVector<NameFind> FindName(QStringView text, const FoldedName& name)
{
    QVector<NameFind> finds;
    if (name.Parts.isEmpty())
        return finds;
    const QString& first = name.Parts.front();
    for (qsizetype place = text.indexOf(first); place >= 0;
         place = text.indexOf(first, place + 1)) {
        const qsizetype end = EndOfNameAt(text, name, place);
        if (end >= 0)
            finds += NameFind { place, end };
    }
    return finds;
}

bool Overlap(const NameFind& a, const NameFind& b) { return a.begin < b.end && b.begin < a.end; }

bool IsInsideLonger(const NameFind& find, const NameFind& longer)
{
    return longer.begin <= find.begin && find.end <= longer.end
        && longer.end - longer.begin > find.end - find.begin;
}
