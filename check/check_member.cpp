#include "check/check_member.h"

namespace {

/// QString::fromRawData, in line: two years have tens of thousands of fields.
QString PartOf(const char16_t* begin, const char16_t* end)
{
    return QString(QString::DataPointer::fromRawData(begin, end - begin));
}

void TakeFields(CheckMember& member, QStringView line)
{
    const char16_t* end = line.utf16() + line.size();
    const char16_t* begin = line.utf16();
    std::size_t count = 0;
    for (const char16_t* at = begin;; ++at) {
        if (at != end && *at != u';')
            continue;
        if (count < member.Fields.size())
            member.Fields[count] = PartOf(begin, at);
        ++count;
        if (at == end)
            break;
        begin = at + 1;
    }
    member.FieldCount = static_cast<qsizetype>(count);
    member.Whole = member.FieldCount == MemberFieldCount;
}

void ReadNumbers(CheckMember& member, MemberField first)
{
    for (auto field = static_cast<std::size_t>(first); field < MemberFieldCount; ++field) {
        const QString& text = member.Fields[field];
        if (text.isEmpty())
            continue;
        const std::optional<ShortDecimal> number = ShortDecimalOf(text);
        const bool plain = number && number->decimals <= 2;
        member.PlainNumbers = member.PlainNumbers && plain;
        member.Numbers[field - PlotSize]
            = plain ? ParsedDouble { NumberOutcome::Ok, ValueOf(*number) } : ParseDouble(text);
    }
}

} // namespace

std::vector<CheckMember> TakeMembersApart(const QStringList& lines, MemberField first_number)
{
    std::vector<CheckMember> members;
    members.reserve(static_cast<std::size_t>(lines.size()));
    for (const QString& line : lines) {
        CheckMember& member = members.emplace_back();
        TakeFields(member, line);
        ReadNumbers(member, first_number);
    }
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
