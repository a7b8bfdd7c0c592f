#include "check/check_member.h"

namespace {

void TakeApart(CheckMember& member, QStringView line, MemberField first_number)
{
    qsizetype begin = 0;
    for (qsizetype end = 0; end <= line.size(); ++end) {
        if (end < line.size() && line[end] != u';')
            continue;
        if (member.FieldCount <= MemberFieldCount)
            member.Fields[static_cast<std::size_t>(member.FieldCount)]
                = QString::fromRawData(line.data() + begin, end - begin);
        ++member.FieldCount;
        begin = end + 1;
    }
    member.Whole = member.FieldCount == MemberFieldCount;
    for (auto field = static_cast<std::size_t>(first_number); field < MemberFieldCount; ++field)
        member.Numbers[field - PlotSize] = ParseDouble(member.Fields[field]);
}

} // namespace

std::vector<CheckMember> TakeMembersApart(const QStringList& lines, MemberField first_number)
{
    std::vector<CheckMember> members;
    members.reserve(static_cast<std::size_t>(lines.size()));
    for (const QString& line : lines)
        TakeApart(members.emplace_back(), line, first_number);
    return members;
}

bool IsEmptyOrZero(const CheckMember& member, int field)
{
    const ParsedDouble& number = NumberIn(member, field);
    return FieldOf(member, field).isEmpty()
        || (number.outcome == NumberOutcome::Ok && number.value == 0.0);
}

bool IsNoNumber(const CheckMember& member, int field)
{
    return !FieldOf(member, field).isEmpty()
        && NumberIn(member, field).outcome != NumberOutcome::Ok;
}

bool AreFilledAndDifferent(const CheckMember& member, int start, int end)
{
    return !FieldOf(member, start).isEmpty() && !FieldOf(member, end).isEmpty()
        && FieldOf(member, start) != FieldOf(member, end);
}
