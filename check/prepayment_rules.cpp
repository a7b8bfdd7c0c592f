// The tick "Vorauszahlung" of both years and what it means for rows 2, 3, 7 and 8 of the bills.
#include "check/rules.h"
#include "data/file_names.h"
#include "settings/ini_file.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool LastYearTicked(const CheckData& data, std::size_t kind)
{
    return data.LastYearSettings.Ticks.at(kind) == u"1"_s;
}

QString LastYearPrice(const CheckData& data, std::size_t kind)
{
    const PriceSettings& prices = data.Source.Prices;
    return kind == 0 ? prices.PreviousElectricityPrice : prices.PreviousWaterPrice;
}

bool TickedNow(const CheckData& data, std::size_t kind)
{
    const PriceSettings& prices = data.Source.Prices;
    return (kind == 0 ? prices.ElectricityPrepayment : prices.WaterPrepayment) == 1;
}

/// The members whose drawn bill deducts something for that meter, and the sum.
struct Deducted {
    qsizetype members = 0;
    double sum = 0.0;
};

Deducted DeductedFor(const CheckData& data, std::size_t kind)
{
    Deducted all;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const double deducted = Deductions(data, static_cast<qsizetype>(k)).at(kind);
        if (deducted == 0.0)
            continue;
        ++all.members;
        all.sum += deducted;
    }
    return all;
}

void CheckOneDeductionTick(const CheckData& data, Findings& findings, std::size_t kind)
{
    const MeterKind& meter = MeterKinds().at(kind);
    if (LastYearTicked(data, kind))
        return;
    const Deducted all = DeductedFor(data, kind);
    if (all.members == 0)
        return;
    Finding finding { u"C24"_s, Level::Error,
        u"Zeile %1 zieht bei %2 zusammen %3 € ab; %4 war aber keine Vorauszahlung %5 gewählt."_s
            .arg(kind == 0 ? u"2"_s : u"7"_s, CountOf(all.members, u"Mitglied"_s, u"Mitgliedern"_s),
                EuroAmount(all.sum), data.LastYear, meter.Name),
        u"Wurde %1 wirklich nichts vorausgezahlt: %1 laden, den Preis für %2 aufschreiben und "
        "leeren, „Speichern“, %3 laden und drucken. Danach den Preis wieder eintragen. Wurde "
        "vorausgezahlt: in %1 das Häkchen setzen, „Speichern“."_s.arg(
            data.LastYear, meter.Name, data.Year),
        ControlTarget(meter.TickControl) };
    finding.part = meter.Name;
    Add(findings, finding);
}

// --- deductions that get lost -----------------------------------------------------------------

void AddMissingPrice(const CheckData& data, Findings& findings, const MeterKind& meter)
{
    const std::size_t places = std::min(data.Members.size(), data.LastYearMembers.size());
    const auto end = data.LastYearMembers.begin() + static_cast<std::ptrdiff_t>(places);
    const bool used
        = std::any_of(data.LastYearMembers.begin(), end, [&](const CheckMember& member) {
              return AreFilledAndDifferent(member, meter.Start, meter.End);
          });
    if (!used)
        return;
    Finding finding { u"C25a"_s, Level::Warning,
        u"%1 wurde %2 vorausgezahlt, aber der Preis von %1 fehlt. Bei niemandem wird etwas "
        "abgezogen."_s.arg(data.LastYear, meter.Name),
        u"%1 laden, den Preis eintragen, „Speichern“, %2 laden."_s.arg(data.LastYear, data.Year),
        YearBackTarget() };
    finding.part = meter.Name;
    Add(findings, finding);
}

void AddMissingReadings(const CheckData& data, Findings& findings, const MeterKind& meter)
{
    Finding finding { u"C25b"_s, Level::Warning,
        u"%1 wurde vorausgezahlt, abgezogen wird nichts, weil ein Zählerstand von %1 fehlt."_s.arg(
            data.LastYear),
        u"%1 laden, den Stand eintragen, „OK“, %2 laden."_s.arg(data.LastYear, data.Year) };
    finding.part = meter.Name;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const auto member = static_cast<qsizetype>(k);
        if (!SamePersonAt(data.Pairs, member))
            continue;
        const CheckMember& before = data.LastYearMembers[k];
        if (FieldOf(before, meter.Start).isEmpty() == FieldOf(before, meter.End).isEmpty())
            continue;
        FindingRow row = MemberRow(data, member, meter.Start);
        row.target = YearBackTarget();
        finding.rows.push_back(row);
    }
    if (!finding.rows.empty())
        Add(findings, finding);
}

// --- the tick itself --------------------------------------------------------------------------

const QString set_tick = u"Setzen Sie das Häkchen und drücken Sie „Speichern“, wenn auch für %1 "
                         "vorausgezahlt wird."_s;

bool IsTickText(const QString& text) { return text.isEmpty() || text == u"0"_s || text == u"1"_s; }

void CheckTickTexts(
    const CheckData& data, Findings& findings, std::size_t kind, const QString& this_year)
{
    const MeterKind& meter = MeterKinds().at(kind);
    const std::pair<QString, QString> texts[] { { data.Year, this_year },
        { data.LastYear, data.LastYearSettings.Ticks.at(kind) } };
    for (const auto& [year, text] : texts) {
        if (IsTickText(text))
            continue;
        Finding finding { u"C26b"_s, Level::Warning,
            u"Das Häkchen „Vorauszahlung %1“ von %2 steht als „%3“ in der Datei und gilt als nicht "
            "gesetzt."_s.arg(meter.Name, year, text),
            set_tick.arg(data.FollowingYear), ControlTarget(meter.TickControl) };
        finding.part = meter.Name;
        Add(findings, finding);
    }
}

QStringList TicksOfThisYear(const CheckData& data)
{
    if (!data.PricesFile.There || data.PricesFile.Refused)
        return { {}, {} };
    return ReadIniValues(data.Source.Files, data.Year,
        { MeterKinds()[0].TickKey, MeterKinds()[1].TickKey }, PriceSettingsFile);
}

} // namespace

void CheckDeductionTick(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe || !data.BillingTime)
        return;
    for (std::size_t kind = 0; kind < 2; ++kind)
        CheckOneDeductionTick(data, findings, kind);
}

void CheckLostDeductions(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t kind = 0; kind < 2; ++kind) {
        if (!LastYearTicked(data, kind))
            continue;
        if (IsEmptyOrZero(LastYearPrice(data, kind)))
            AddMissingPrice(data, findings, MeterKinds().at(kind));
        else
            AddMissingReadings(data, findings, MeterKinds().at(kind));
    }
}

void CheckPrepaymentTick(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    const QStringList this_year = TicksOfThisYear(data);
    for (std::size_t kind = 0; kind < 2; ++kind) {
        const MeterKind& meter = MeterKinds().at(kind);
        if (LastYearTicked(data, kind) && !TickedNow(data, kind)) {
            Finding finding { u"C26a"_s, data.BillingTime ? Level::Warning : Level::Hint,
                u"%1 war Vorauszahlung %2 gewählt, %3 ist sie es nicht. Zeile %4 bleibt 0,00."_s
                    .arg(data.LastYear, meter.Name, data.Year, kind == 0 ? u"3"_s : u"8"_s),
                set_tick.arg(data.FollowingYear), ControlTarget(meter.TickControl) };
            finding.part = meter.Name;
            Add(findings, finding);
        }
        CheckTickTexts(data, findings, kind, this_year[static_cast<qsizetype>(kind)]);
    }
}
