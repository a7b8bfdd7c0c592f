// The members' plot sizes and premiums against last year's: what is far apart is a slipped comma.
#include "check/rules.h"
#include "data/german_numbers.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double far_apart = 3.0; // times
constexpr double square_metres_apart = 50.0;
constexpr double euros_apart = 20.0;

/// Both above zero, more than three times or less than a third, and that much apart.
bool FarApart(const ParsedDouble& a, const QString& before, double apart)
{
    const ParsedDouble b = ParseDouble(before);
    if (a.outcome != NumberOutcome::Ok || b.outcome != NumberOutcome::Ok || a.value <= 0.0
        || b.value <= 0.0)
        return false;
    return (a.value > far_apart * b.value || far_apart * a.value < b.value)
        && std::abs(a.value - b.value) >= apart;
}

void CheckJump(const CheckData& data, Findings& findings, qsizetype k, const CheckMember& before)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    for (const int field :
        { PlotSize, LiabilityPremium, LegalPremium, AccidentPremium, BuildingPremium }) {
        const QString now = FieldOf(member, field);
        const QString then = FieldOf(before, field);
        const bool is_size = field == PlotSize;
        if (now == then
            || !FarApart(
                NumberIn(member, field), then, is_size ? square_metres_apart : euros_apart))
            continue;
        AddTo(findings,
            { is_size ? u"C13a"_s : u"C13b"_s, Level::Warning,
                u"%1 %2, %3 %4: Das ist weit auseinander."_s.arg(
                    FieldCaption(field), now, data.LastYear, then),
                u"Prüfen Sie das Komma."_s },
            MemberRow(data, k, field));
    }
}

} // namespace

void CheckJumps(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const auto member = static_cast<qsizetype>(k);
        const qsizetype line = GardenLine(data, member);
        if (line < 0 || !data.Members[k].Whole)
            continue;
        const auto there = static_cast<std::size_t>(line);
        const bool same_person
            = data.Pairs.Ids[k] >= 0 && data.Pairs.Ids[k] == data.Pairs.LastYearIds[there];
        if (same_person && data.LastYearMembers[there].Whole)
            CheckJump(data, findings, member, data.LastYearMembers[there]);
    }
}
