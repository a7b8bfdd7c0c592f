// Prices and dates of the year, beside those of last year.
#include "check/rules.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "data/german_numbers.h"
#include "settings/ini_file.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t charged_prices = 7;
constexpr double far_apart = 3.0; // times

void CheckMeterPrice(const CheckData& data, Findings& findings, const MeterKind& meter)
{
    if (!IsEmptyOrZero(PriceText(data.Source.Prices, meter.Price)))
        return;
    const auto used
        = std::count_if(data.Members.begin(), data.Members.end(), [&](const CheckMember& member) {
              return AreFilledAndDifferent(member, meter.Start, meter.End);
          });
    if (used == 0)
        return;
    Finding finding { u"C27b"_s, Level::Error,
        u"Der Preis für %1 fehlt; %2 für %3 Verbrauch nichts."_s.arg(meter.Name,
            used == 1 ? u"1 Mitglied zahlt"_s : u"%1 Mitglieder zahlen"_s.arg(used),
            used == 1 ? u"seinen"_s : u"ihren"_s),
        u"Tragen Sie die Preise ein und drücken Sie „Speichern“."_s, PriceTarget(meter.Price) };
    finding.part = meter.Name;
    Add(findings, finding);
}

bool AllEmptyOrZero(const PriceSettings& prices)
{
    for (std::size_t field = 0; field < charged_prices; ++field) {
        if (!IsEmptyOrZero(PriceText(prices, field)))
            return false;
    }
    return true;
}

bool FarApart(const QString& now, const QString& before)
{
    const ParsedDouble a = ParseDouble(now);
    const ParsedDouble b = ParseDouble(before);
    return a.outcome == NumberOutcome::Ok && b.outcome == NumberOutcome::Ok && a.value > 0.0
        && b.value > 0.0 && (a.value > far_apart * b.value || far_apart * a.value < b.value);
}

const QString check_comma = u"Prüfen Sie den Preis und sein Komma."_s;

/// Filled and not zero in the section of that year.
QString StoredRepairLevy(const CheckData& data)
{
    if (!data.PricesFile.There || data.PricesFile.Refused)
        return {};
    const QString text = ReadIni(
        data.Source.Files, data.Year, PriceTable().at(RepairLevyField).Key, PriceSettingsFile);
    return IsEmptyOrZero(text) ? QString() : text;
}

const QString pick_day = u"Wählen Sie den Tag im Kalender und drücken Sie „Speichern“."_s;

/// The reason why the deadline does not fit, with what follows "Der Zahlungstermin"; empty: it
/// fits.
QString WhyDeadlineIsOdd(
    const CheckData& data, const QDate& deadline, const std::optional<QDate>& billing)
{
    if (deadline.year() < data.Year.toInt() || deadline.year() > data.FollowingYear.toInt())
        return u"passt nicht zum Jahr %1."_s.arg(data.Year);
    if (billing && deadline < *billing)
        return u"liegt vor dem Abrechnungsdatum %1."_s.arg(ShortDate(*billing));
    return {};
}

bool IsPresentOrLastYear(const CheckData& data)
{
    const int year = data.Year.toInt();
    const int today = data.Source.Today.year();
    return year == today || year == today - 1;
}

} // namespace

void CheckMissingPrices(const CheckData& data, Findings& findings)
{
    if (data.Members.empty())
        return;
    if (AllEmptyOrZero(data.Source.Prices)) {
        Add(findings,
            { u"C27a"_s, Level::Error, u"Für %1 sind keine Preise eingetragen."_s.arg(data.Year),
                u"Tragen Sie die Preise ein und drücken Sie „Speichern“."_s,
                PriceTarget(ElectricityPriceField) });
        return;
    }
    for (const MeterKind& meter : MeterKinds())
        CheckMeterPrice(data, findings, meter);
}

void CheckPriceJumps(const CheckData& data, Findings& findings)
{
    const bool none = AllEmptyOrZero(data.Source.Prices);
    for (std::size_t field = 0; field < charged_prices; ++field) {
        const QString& now = PriceText(data.Source.Prices, field);
        const QString& before = data.LastYearSettings.Prices.at(field);
        const QString caption = PriceCaption(field);
        const bool may_be_empty = field == ElectricityPriceField || field == WaterPriceField;
        if (!none && !may_be_empty && IsEmptyOrZero(now) && !IsEmptyOrZero(before))
            Add(findings,
                { u"C28a"_s, Level::Warning,
                    u"%1 ist leer, %2 waren es %3."_s.arg(Quoted(caption), data.LastYear, before),
                    check_comma, PriceTarget(field) });
        if (FarApart(now, before))
            Add(findings,
                { u"C28b"_s, Level::Warning,
                    u"%1 %2, %3 %4: Das ist weit auseinander."_s.arg(
                        Quoted(caption), now, data.LastYear, before),
                    check_comma, PriceTarget(field) });
    }
}

void CheckSamePrices(const CheckData& data, Findings& findings)
{
    bool any = false;
    for (std::size_t field = 0; field < charged_prices; ++field) {
        const QString& now = PriceText(data.Source.Prices, field);
        if (now != data.LastYearSettings.Prices.at(field))
            return;
        any = any || !now.isEmpty();
    }
    if (any && data.BillingTime)
        Add(findings,
            { u"C29"_s, Level::Hint, u"Alle Preise sind dieselben wie %1."_s.arg(data.LastYear), {},
                PriceTarget(ElectricityPriceField) });
}

void CheckRepairLevy(const CheckData& data, Findings& findings)
{
    const QString& field = data.Source.Prices.RepairLevy;
    const QString stored = StoredRepairLevy(data);
    const QString text = IsEmptyOrZero(field) ? stored : field;
    if (text.isEmpty())
        return;
    const QString lost = field.isEmpty() && !stored.isEmpty()
        ? u" Beim nächsten Speichern der Preise geht sie verloren."_s
        : QString();
    Add(findings,
        { u"C30"_s, Level::Hint,
            u"Die Reparaturumlage (%1) wird auf keiner Abrechnung berechnet."_s.arg(text) + lost,
            u"Soll sie bezahlt werden, rechnen Sie sie in einen anderen Preis ein."_s,
            PriceTarget(RepairLevyField) });
}

void CheckDeadline(const CheckData& data, Findings& findings)
{
    const QString& text = data.Source.Prices.PaymentDeadline;
    if (data.Members.empty() || ParseDate(text))
        return; // no bill, no deadline
    const QString remedy = u"Wählen Sie unter „Einzuzahlen bis Spätestens“ den Tag im Kalender und "
                           "drücken Sie „Speichern“."_s;
    const LinkTarget target = ControlTarget(u"Calendar2"_s);
    if (text.isEmpty() || text == DateToUpdate || IsNumber(text))
        Add(findings,
            { u"C31a"_s, data.BillingTime ? Level::Error : Level::Hint,
                u"Der Zahlungstermin fehlt; auf jeder Abrechnung stünde „Termin %1“."_s.arg(text),
                remedy, target });
    else
        Add(findings,
            { u"C31b"_s, Level::Warning,
                u"Als Zahlungstermin steht auf jeder Abrechnung %1."_s.arg(Quoted(text)), remedy,
                target });
}

void CheckDates(const CheckData& data, Findings& findings)
{
    const std::optional<QDate> deadline = ParseDate(data.Source.Prices.PaymentDeadline);
    const std::optional<QDate> billing = ParseDate(data.Source.Prices.BillingDate);
    const QString odd = deadline ? WhyDeadlineIsOdd(data, *deadline, billing) : QString();
    const LinkTarget target = ControlTarget(u"Calendar2"_s);
    if (!odd.isEmpty())
        Add(findings,
            { u"C32a"_s, Level::Warning,
                u"Der Zahlungstermin %1 %2"_s.arg(ShortDate(*deadline), odd), pick_day, target });
    else if (deadline && *deadline < data.Source.Today && IsPresentOrLastYear(data))
        Add(findings,
            { u"C32b"_s, Level::Hint,
                u"Der Zahlungstermin %1 ist schon vorbei."_s.arg(ShortDate(*deadline)), pick_day,
                target });
    if (!billing)
        Add(findings,
            { u"C32c"_s, Level::Hint,
                u"Das Abrechnungsdatum ist noch nicht gewählt. Gedruckt wird es nicht."_s, pick_day,
                ControlTarget(u"Calendar1"_s) });
}
