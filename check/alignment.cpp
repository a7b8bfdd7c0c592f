#include "check/alignment.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t largest_grid = 25'000'000; // beyond that only equal ends are aligned

/// What is compared of a record.
struct Key {
    QString name; ///< empty: nobody
    QString garden;
};

struct Keys {
    std::vector<Key> members;
    std::vector<Key> lines;
};

Key KeyOf(const QString& record)
{
    const MemberRecord fields = SplitRecord(record);
    const QString surname = fields.value(Surname).trimmed();
    const QString first = fields.value(FirstName).trimmed();
    return { surname.isEmpty() && first.isEmpty() ? QString() : surname + u';' + first,
        fields.value(PlotNumber).trimmed() };
}

std::vector<Key> KeysOf(const QStringList& records)
{
    std::vector<Key> keys;
    keys.reserve(static_cast<std::size_t>(records.size()));
    for (const QString& record : records)
        keys.push_back(KeyOf(record));
    return keys;
}

/// What it is worth to stand the two side by side; 0: they have nothing in common. The name counts
/// more than any number of gardens beside it.
int Worth(const Key& member, const Key& line)
{
    const bool garden = member.garden == line.garden && !member.garden.isEmpty();
    if (member.name.isEmpty() ? line.name.isEmpty() && garden : member.name == line.name)
        return garden ? 6 : 5;
    return garden ? 2 : 0;
}

/// A pair of positions that stand side by side.
struct Pair {
    std::size_t member;
    std::size_t line;
};

/// The pairs of the middle part, by the longest common sequence.
void PairMiddle(std::vector<Pair>& pairs, const Keys& keys, const Pair& begin, const Pair& end)
{
    const std::size_t rows = end.member - begin.member;
    const std::size_t columns = end.line - begin.line;
    if (rows * columns > largest_grid)
        return;
    std::vector<int> best((rows + 1) * (columns + 1), 0);
    const auto at = [&](std::size_t row, std::size_t column) -> int& {
        return best[row * (columns + 1) + column];
    };
    const auto worth = [&](std::size_t row, std::size_t column) {
        return Worth(keys.members[begin.member + row], keys.lines[begin.line + column]);
    };
    for (std::size_t row = rows; row-- > 0;) {
        for (std::size_t column = columns; column-- > 0;)
            at(row, column) = std::max({ at(row + 1, column), at(row, column + 1),
                at(row + 1, column + 1) + worth(row, column) });
    }
    for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
        const int here = worth(row, column);
        if (here > 0 && at(row, column) == at(row + 1, column + 1) + here)
            pairs.push_back({ begin.member + row++, begin.line + column++ });
        else if (at(row, column) == at(row + 1, column))
            ++row;
        else
            ++column;
    }
}

std::vector<Pair> PairsOf(const Keys& keys)
{
    std::vector<Pair> pairs;
    Pair begin { 0, 0 };
    Pair end { keys.members.size(), keys.lines.size() };
    const auto same = [&](std::size_t member, std::size_t line) {
        const Key& a = keys.members[member];
        const Key& b = keys.lines[line];
        return a.name == b.name && a.garden == b.garden;
    };
    while (begin.member < end.member && begin.line < end.line && same(begin.member, begin.line))
        pairs.push_back({ begin.member++, begin.line++ });
    std::vector<Pair> tail;
    while (begin.member < end.member && begin.line < end.line && same(end.member - 1, end.line - 1))
        tail.push_back({ --end.member, --end.line });
    PairMiddle(pairs, keys, begin, end);
    pairs.insert(pairs.end(), tail.rbegin(), tail.rend());
    return pairs;
}

// --- rows -------------------------------------------------------------------------------------

AlignRow RowOf(
    const QStringList& members, qsizetype member, const QStringList& last_year, qsizetype line)
{
    AlignRow row;
    row.member = member;
    row.line = line;
    if (member >= 0)
        row.member_name = NameEntry(SplitRecord(members[member]));
    if (line >= 0)
        row.line_name = NameEntry(SplitRecord(last_year[line]));
    return row;
}

void Describe(AlignRow& row)
{
    switch (row.kind) {
    case AlignKind::Same:
    case AlignKind::MovedAway:
        break;
    case AlignKind::Tenant:
        row.offer = u"Platz %1: anderer Name, gleicher Garten: Pächterwechsel, so lassen"_s.arg(
            row.member + 1);
        break;
    case AlignKind::Missing:
        row.offer = u"Im Vorjahr fehlt %1 (Platz %2): leere Zeile einfügen"_s.arg(
            row.member_name, QString::number(row.member + 1));
        break;
    case AlignKind::Moved:
        row.offer = u"%1 steht im Vorjahr an anderer Stelle (Platz %2): Zeile hierher setzen"_s.arg(
            row.member_name, QString::number(row.line + 1));
        break;
    case AlignKind::Gone:
        row.offer
            = u"Im Vorjahr steht %1, die es nicht mehr gibt: Zeile aus dem Vorjahr nehmen"_s.arg(
                row.line_name);
        break;
    }
}

/// A member without a line whose line stands elsewhere takes it from there.
void JoinMoved(std::vector<AlignRow>& rows, const Keys& keys)
{
    QMultiHash<QString, std::size_t> gone;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].kind == AlignKind::Gone)
            gone.insert(keys.lines[static_cast<std::size_t>(rows[i].line)].name, i);
    }
    for (AlignRow& row : rows) {
        const QString name = row.kind == AlignKind::Missing
            ? keys.members[static_cast<std::size_t>(row.member)].name
            : QString();
        const auto found = name.isEmpty() ? gone.end() : gone.find(name);
        if (found == gone.end())
            continue;
        row.kind = AlignKind::Moved;
        row.line = rows[*found].line;
        row.line_name = rows[*found].line_name;
        rows[*found].kind = AlignKind::MovedAway;
        gone.erase(found);
    }
}

} // namespace

std::vector<AlignRow> AlignLists(const QStringList& members, const QStringList& last_year)
{
    const Keys keys { KeysOf(members), KeysOf(last_year) };
    std::vector<AlignRow> rows;
    qsizetype member = 0;
    qsizetype line = 0;
    const auto leave_out = [&](qsizetype next_member, qsizetype next_line) {
        for (; member < next_member; ++member) {
            rows.push_back(RowOf(members, member, last_year, -1));
            rows.back().kind = AlignKind::Missing;
        }
        for (; line < next_line; ++line) {
            rows.push_back(RowOf(members, -1, last_year, line));
            rows.back().kind = AlignKind::Gone;
        }
    };
    for (const Pair& pair : PairsOf(keys)) {
        leave_out(static_cast<qsizetype>(pair.member), static_cast<qsizetype>(pair.line));
        rows.push_back(RowOf(members, member, last_year, line));
        if (Worth(keys.members[pair.member], keys.lines[pair.line]) < 5)
            rows.back().kind = AlignKind::Tenant;
        ++member;
        ++line;
    }
    leave_out(members.size(), last_year.size());
    JoinMoved(rows, keys);
    for (AlignRow& row : rows)
        Describe(row);
    return rows;
}

bool IsOffer(const AlignRow& row)
{
    return row.kind == AlignKind::Missing || row.kind == AlignKind::Moved
        || row.kind == AlignKind::Gone;
}

QString LineForMissing(const QString& member_record, const QStringList& readings)
{
    MemberRecord fields = SplitRecord(member_record).mid(0, PlotSize + 1);
    fields.resize(ElectricityStart);
    return JoinRecord(fields + readings);
}

AlignedYear CarryOut(const std::vector<AlignRow>& rows, const std::vector<AlignChoice>& choices,
    const QStringList& members, const QStringList& last_year)
{
    QHash<std::size_t, QStringList> ticked;
    for (const AlignChoice& choice : choices)
        ticked.insert(choice.row, choice.readings);
    AlignedYear year;
    std::vector<bool> moved(static_cast<std::size_t>(last_year.size()), false);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].kind == AlignKind::Moved && ticked.contains(i))
            moved[static_cast<std::size_t>(rows[i].line)] = true;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const AlignRow& row = rows[i];
        const bool chosen = ticked.contains(i);
        const bool put_in = chosen && row.kind == AlignKind::Missing;
        const bool put_here = chosen && row.kind == AlignKind::Moved;
        const bool goes = (chosen && row.kind == AlignKind::Gone)
            || (row.kind == AlignKind::MovedAway && moved[static_cast<std::size_t>(row.line)]);
        const bool stays = row.line >= 0 && !goes && row.kind != AlignKind::Moved;
        if (put_in)
            year.lines += LineForMissing(members[row.member], ticked.value(i));
        else if (put_here || stays)
            year.lines += last_year[row.line];
        year.added += put_in || put_here ? 1 : 0;
        year.removed += goes ? 1 : 0;
    }
    return year;
}
