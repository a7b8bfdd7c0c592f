// Meter readings, electricity and water each for itself: missing, falling, jumping.
#include "check/rules.h"
#include "data/german_numbers.h"

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr float far_apart = 3.0F; // times

/// A meter reading.
struct Reading {
    QStringView text;
    const ParsedDouble& number;
};

/// A member's readings of one meter beside those of the same garden last year.
struct Readings {
    qsizetype member = 0;
    Reading start;
    Reading end;
    Reading last_start; ///< empty without a line of last year
    Reading last_end;
};

Reading ReadingIn(const CheckMember& member, MemberField field)
{
    return { member.Fields[static_cast<std::size_t>(field)], NumberIn(member, field) };
}

Readings ReadingsOf(const CheckData& data, qsizetype member, const MeterKind& meter)
{
    static const CheckMember nobody;
    const CheckMember& here = data.Members[static_cast<std::size_t>(member)];
    const qsizetype line = GardenLine(data, member);
    const CheckMember& before
        = line < 0 ? nobody : data.LastYearMembers[static_cast<std::size_t>(line)];
    return { member, ReadingIn(here, meter.Start), ReadingIn(here, meter.End),
        ReadingIn(before, meter.Start), ReadingIn(before, meter.End) };
}

/// The difference in single precision, rounded as on the bill; nothing when a reading is no number.
std::optional<float> Consumption(const Reading& start, const Reading& end)
{
    const ParsedSingle last = Narrowed(end.number);
    const ParsedSingle first = Narrowed(start.number);
    if (last.outcome != NumberOutcome::Ok || first.outcome != NumberOutcome::Ok)
        return std::nullopt;
    const float difference = last.value - first.value;
    return static_cast<float>(RoundTo(static_cast<double>(difference), 0)) + 0.0F;
}

/// Compared as read: a difference of less than half a unit falls as well.
bool Falls(const Readings& readings)
{
    const ParsedSingle end = Narrowed(readings.end.number);
    const ParsedSingle start = Narrowed(readings.start.number);
    return end.outcome == NumberOutcome::Ok && start.outcome == NumberOutcome::Ok
        && end.value < start.value;
}

/// Calls the routine for both meters and every member whose record counts.
template <typename Routine> void ForEachReading(const CheckData& data, Routine routine)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t kind = 0; kind < 2; ++kind) {
        const MeterKind& meter = MeterKinds().at(kind);
        for (std::size_t k = 0; k < data.Members.size(); ++k) {
            if (data.Members[k].Whole)
                routine(meter, ReadingsOf(data, static_cast<qsizetype>(k), meter));
        }
    }
}

// --- missing ends -----------------------------------------------------------------------------

std::vector<qsizetype> WithoutEnd(
    const CheckData& data, const MeterKind& meter, const MeterEntries& entries)
{
    std::vector<qsizetype> members;
    for (const qsizetype member : entries.Members) {
        const CheckMember& record = data.Members[static_cast<std::size_t>(member)];
        if (record.Whole && FieldOf(record, meter.End).isEmpty()
            && !FieldOf(record, meter.Start).isEmpty())
            members.push_back(member);
    }
    return members;
}

const QString enter_end = u"Tragen Sie den Endstand ein und drücken Sie „OK“."_s;

void AddMissingEnds(const CheckData& data, Findings& findings, const MeterKind& meter,
    const std::vector<qsizetype>& members)
{
    Finding finding { u"C14a"_s, Level::Error,
        u"Endstand %1 fehlt; abgerechnet werden 0 %2."_s.arg(meter.Name, meter.Unit), enter_end };
    finding.part = meter.Name;
    for (const qsizetype member : members)
        finding.rows.push_back(MemberRow(data, member, meter.End));
    Add(findings, finding);
}

void AddEndsToCome(Findings& findings, const MeterKind& meter,
    const std::vector<qsizetype>& members, std::size_t meters)
{
    Finding finding { u"C14b"_s, Level::Hint,
        u"Endstände %1 fehlen noch bei %2 von %3."_s.arg(meter.Name,
            QString::number(members.size()),
            CountOf(static_cast<qsizetype>(meters), u"Zähler"_s, u"Zählern"_s)),
        enter_end, MemberTarget(members.front(), meter.End) };
    finding.part = meter.Name;
    Add(findings, finding);
}

// --- consumption ------------------------------------------------------------------------------

void AddConsumption(const CheckData& data, Findings& findings, const MeterKind& meter,
    const Readings& readings, const QString& id, Level level, const QString& words)
{
    Finding finding { id, level, u"Verbrauch "_s + meter.Name + words,
        u"Prüfen Sie den Endstand (Zahlendreher, Ziffer zu viel oder zu wenig)."_s };
    finding.part = meter.Name;
    AddTo(findings, finding, MemberRow(data, readings.member, meter.End));
}

void CheckOneConsumption(
    const CheckData& data, Findings& findings, const MeterKind& meter, const Readings& readings)
{
    const std::optional<float> used = Consumption(readings.start, readings.end);
    if (!used || Falls(readings))
        return;
    std::optional<float> before = Consumption(readings.last_start, readings.last_end);
    if (before && *before < 0.0F)
        before.reset();
    const auto amount = [&] { return u" %1 %2, "_s.arg(TextOfSingle(*used), meter.Unit); };
    if (!before) {
        if (*used > meter.NormalYear)
            AddConsumption(data, findings, meter, readings, u"C17b"_s, Level::Warning,
                amount() + u"das ist sehr viel."_s);
        return;
    }
    const bool far = *used > far_apart * *before || far_apart * *used < *before;
    if (far && std::abs(*used - *before) >= meter.Apart)
        AddConsumption(data, findings, meter, readings, u"C17a"_s, Level::Warning,
            amount() + u"%1 waren es %2."_s.arg(data.LastYear, TextOfSingle(*before)));
    if (*used == 0.0F && *before == 0.0F)
        AddConsumption(data, findings, meter, readings, u"C17c"_s, Level::Hint,
            u" zwei Jahre lang 0; vielleicht steht der Zähler."_s);
}

// --- starts -----------------------------------------------------------------------------------

void CheckOneStart(
    const CheckData& data, Findings& findings, const MeterKind& meter, const Readings& readings)
{
    const ParsedDouble& start = readings.start.number;
    const ParsedDouble& before = readings.last_end.number;
    if (start.outcome != NumberOutcome::Ok || before.outcome != NumberOutcome::Ok
        || start.value == before.value)
        return;
    Finding finding { u"C18a"_s, Level::Warning,
        u"Anfangsstand %1 %2, Endstand %3 war %4. Der Unterschied wird nicht oder doppelt "
        "abgerechnet."_s.arg(
            meter.Name, readings.start.text, data.LastYear, readings.last_end.text),
        u"Setzen Sie den Anfangsstand auf den Endstand des Vorjahres, außer wenn der Zähler "
        "gewechselt wurde."_s };
    if (start.value <= 0.0) {
        finding = { u"C18b"_s, Level::Hint,
            u"Anfangsstand %1 %2: So steht es nach einem Zählerwechsel. Endstand %3 war %4."_s.arg(
                meter.Name, readings.start.text, data.LastYear, readings.last_end.text) };
    }
    finding.part = meter.Name;
    AddTo(findings, finding, MemberRow(data, readings.member, meter.Start));
}

} // namespace

void CheckMissingEnds(const CheckData& data, Findings& findings)
{
    for (std::size_t kind = 0; kind < 2 && !data.MembersUnsafe; ++kind) {
        const MeterKind& meter = MeterKinds().at(kind);
        const MeterEntries& entries = data.Meters.at(kind);
        const std::vector<qsizetype> members = WithoutEnd(data, meter, entries);
        if (members.empty())
            continue;
        if (data.BillingTime)
            AddMissingEnds(data, findings, meter, members);
        else
            AddEndsToCome(findings, meter, members, entries.Members.size());
    }
}

void CheckMissingStarts(const CheckData& data, Findings& findings)
{
    ForEachReading(data, [&](const MeterKind& meter, const Readings& readings) {
        const bool used = !readings.end.text.isEmpty() || !readings.last_start.text.isEmpty()
            || !readings.last_end.text.isEmpty();
        if (!readings.start.text.isEmpty() || !used
            || IsEmptyOrZero(PriceText(data.Source.Prices, meter.Price)))
            return;
        Finding finding { u"C15"_s, Level::Error,
            u"Anfangsstand %1 fehlt; abgerechnet werden 0 %2."_s.arg(meter.Name, meter.Unit),
            u"Tragen Sie als Anfangsstand den Endstand von %1 ein und drücken Sie „OK“."_s.arg(
                data.LastYear) };
        finding.part = meter.Name;
        const QString before = readings.last_end.text.isEmpty()
            ? u"Endstand %1 fehlt auch"_s.arg(data.LastYear)
            : u"Endstand %1 war %2"_s.arg(data.LastYear, readings.last_end.text);
        AddTo(findings, finding, MemberRow(data, readings.member, meter.Start, before));
    });
}

void CheckFallingReadings(const CheckData& data, Findings& findings)
{
    ForEachReading(data, [&](const MeterKind& meter, const Readings& readings) {
        if (readings.start.text.isEmpty() || readings.end.text.isEmpty() || !Falls(readings))
            return;
        const float used = Consumption(readings.start, readings.end).value_or(0.0F);
        Finding finding { u"C16"_s, Level::Error,
            u"Endstand %1 liegt unter dem Anfangsstand; gutgeschrieben werden %2 %3."_s.arg(
                meter.Name, TextOfSingle(std::abs(used)), meter.Unit),
            u"Prüfen Sie beide Zahlen. Wurde der Zähler gewechselt: Anfangsstand = Stand des neuen "
            "Zählers beim Einbau minus Verbrauch mit dem alten Zähler; er darf unter 0 liegen."_s };
        finding.part = meter.Name;
        AddTo(findings, finding,
            MemberRow(data, readings.member, meter.End,
                u"%1 bis %2"_s.arg(readings.start.text, readings.end.text)));
    });
}

void CheckConsumption(const CheckData& data, Findings& findings)
{
    ForEachReading(data, [&](const MeterKind& meter, const Readings& readings) {
        CheckOneConsumption(data, findings, meter, readings);
    });
}

void CheckStartReadings(const CheckData& data, Findings& findings)
{
    ForEachReading(data, [&](const MeterKind& meter, const Readings& readings) {
        if (!readings.start.text.isEmpty() && !readings.last_end.text.isEmpty())
            CheckOneStart(data, findings, meter, readings);
    });
}
