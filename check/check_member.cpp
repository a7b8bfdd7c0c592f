#include "check/check_member.h"

#include <bit>
#include <cstring>

namespace {

constexpr qsizetype stride = 4; // characters in 64 bits

/// The highest bit of each ";" among the four.
quint64 MarksIn(quint64 four)
{
    constexpr quint64 marks = 0x003B'003B'003B'003B;
    constexpr quint64 rest = 0x7FFF'7FFF'7FFF'7FFF; // all but the highest bits
    const quint64 others = four ^ marks;
    return ~(((others & rest) + rest) | others | rest);
}

/// Takes the fields of one line as they end.
class FieldTaker {
public:
    FieldTaker(CheckMember& member, const char16_t* begin)
        : m_member(member)
        , m_begin(begin)
    {
    }

    void TakeUpTo(const char16_t* end)
    {
        if (m_count < m_member.Fields.size())
            m_member.Fields[m_count] = QStringView(m_begin, end);
        m_begin = end + 1;
        ++m_count;
    }

    std::size_t Count() const { return m_count; }

private:
    CheckMember& m_member;
    const char16_t* m_begin;
    std::size_t m_count = 0;
};

/// Four characters at a time: two years have tens of thousands of fields.
void TakeFields(CheckMember& member, QStringView line)
{
    const char16_t* at = line.utf16();
    const char16_t* end = at + line.size();
    FieldTaker fields(member, at);
    for (; end - at >= stride; at += stride) {
        quint64 four = 0;
        std::memcpy(&four, at, sizeof four);
        for (quint64 marks = MarksIn(four); marks != 0; marks &= marks - 1)
            fields.TakeUpTo(at + std::countr_zero(marks) / 16);
    }
    for (; at != end; ++at) {
        if (*at == u';')
            fields.TakeUpTo(at);
    }
    fields.TakeUpTo(end);
    member.FieldCount = static_cast<qsizetype>(fields.Count());
    member.Whole = member.FieldCount == MemberFieldCount;
}

void ReadNumbers(CheckMember& member, MemberField first)
{
    for (auto field = static_cast<std::size_t>(first); field < MemberFieldCount; ++field) {
        const QStringView text = member.Fields[field];
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
