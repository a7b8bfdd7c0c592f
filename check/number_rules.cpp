// Records and texts that have to be numbers: what stops the bills, and what counts otherwise than
// it looks.
#include "check/rules.h"
#include "data/german_numbers.h"

#include <algorithm>
#include <cmath>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t charged_prices = 7;
constexpr double exact_up_to = 1e13; // beyond, a double has no cents

bool IsReading(int field) { return field >= ElectricityStart; }

/// The fields that a bill reckons with.
std::span<const int> NumberFields()
{
    static const int fields[] { PlotSize, LiabilityPremium, LegalPremium, AccidentPremium,
        BuildingPremium, ElectricityStart, ElectricityEnd, WaterStart, WaterEnd };
    return fields;
}

QString ExampleOf(int field)
{
    if (IsReading(field))
        return u"1450"_s;
    return field == PlotSize ? u"321,5"_s : u"12,50"_s;
}

/// What is done in last year and then this year is loaded again.
QString InLastYear(const CheckData& data, const QString& deed)
{
    return u"Mit dem linken Pfeil %1 wählen, „Laden“, %2, wieder vor, „Laden“."_s.arg(
        data.LastYear, deed);
}

// --- records ----------------------------------------------------------------------------------

struct FieldCountRule {
    QString short_id;
    QString long_id;
    QString list; ///< " in der Liste von 2025", empty for this year
    QString remedy;
    bool this_year = true;
};

/// "16 statt 16 Felder, unter „Größe“ steht „x“": where a semicolon too many shows first.
QString SurplusText(const CheckMember& member)
{
    const auto shifted = std::find_if(NumberFields().begin(), NumberFields().end(),
        [&](int field) { return IsNoNumber(FieldOf(member, field)); });
    const int field
        = shifted == NumberFields().end() ? static_cast<int>(MemberFieldCount) : *shifted;
    const QString caption
        = field < MemberFieldCount ? FieldCaption(field) : u"Feld %1"_s.arg(field + 1);
    return u"%1 statt 16 Felder, unter %2 steht %3"_s.arg(
        QString::number(member.FieldCount), Quoted(caption), Quoted(FieldOf(member, field)));
}

FindingRow RowOf(
    const CheckMember& member, qsizetype place, const FieldCountRule& rule, const QString& text)
{
    const QString number = u"Platz %1"_s.arg(place + 1);
    const QString name = DisplayName(member, place);
    return { (name == number ? number : number + u", "_s + name) + u": "_s + text,
        rule.this_year ? MemberTarget(place, Surname) : YearBackTarget() };
}

void CheckList(Findings& findings, const std::vector<CheckMember>& list, qsizetype pages,
    const FieldCountRule& rule)
{
    Finding few { rule.short_id, Level::Error, {}, rule.remedy };
    Finding many { rule.long_id, Level::Error,
        u"Diese Zeilen%1 haben zu viele Felder, meist durch einen getippten Strichpunkt. Alles "
        "dahinter steht ein Feld zu weit."_s.arg(rule.list),
        rule.remedy };
    for (std::size_t k = 0; k < list.size(); ++k) {
        const auto place = static_cast<qsizetype>(k);
        const CheckMember& member = list[k];
        if (member.Whole)
            continue;
        if (member.FieldCount > MemberFieldCount) {
            many.rows.push_back(RowOf(member, place, rule, SurplusText(member)));
            continue;
        }
        if (few.rows.empty())
            few.sentence = place < pages
                ? u"In diesen Zeilen%1 fehlen Felder; ab Seite %2 bleiben alle Abrechnungen ohne "
                  "Beträge."_s.arg(rule.list)
                      .arg(place + 1)
                : u"In diesen Zeilen%1 fehlen Felder."_s.arg(rule.list);
        few.rows.push_back(
            RowOf(member, place, rule, u"%1 statt 16 Felder"_s.arg(member.FieldCount)));
    }
    for (Finding* finding : { &few, &many }) {
        if (!finding->rows.empty())
            Add(findings, *finding);
    }
}

// --- odd numbers ------------------------------------------------------------------------------

/// Digits, and two behind the comma at most: nothing is odd about it.
bool IsOrdinary(const QString& text)
{
    qsizetype comma = text.size();
    for (qsizetype i = text.size() - 1; i >= 0; --i) {
        const QChar sign = text[i];
        if (sign == u',')
            comma = i;
        else if (sign < u'0' || sign > u'9')
            return false;
    }
    return text.size() - comma <= 3;
}

bool OnlyThousands(const QString& text) { return text.contains(u'.') && !text.contains(u','); }

enum class Rounding { Rounded, AsTyped };

/// What is odd about a number; row is null for a price, which the sentence itself leads to.
void CheckOddNumber(Findings& findings, const QString& text, const QString& caption,
    Rounding rounding, const LinkTarget& target, const FindingRow* row)
{
    const ParsedDouble number = ParseDouble(text);
    if (number.outcome != NumberOutcome::Ok)
        return;
    const auto add = [&](const QString& id, const QString& sentence, const QString& remedy) {
        const Finding finding { id, Level::Warning,
            Quoted(text) + u" bei "_s + Quoted(caption) + sentence, remedy, target };
        row == nullptr ? Add(findings, finding) : AddTo(findings, finding, *row);
    };
    if (OnlyThousands(text))
        add(u"C09a"_s,
            u" zählt als %1, der Punkt trennt nur Tausender."_s.arg(TextOfDouble(number.value)),
            u"Schreiben Sie ein Komma, wenn Cent oder Bruchteile gemeint sind."_s);
    const bool rounds = rounding == Rounding::Rounded && std::abs(number.value) < exact_up_to
        && RoundTo(number.value, 2) != number.value;
    if (rounds)
        add(u"C09b"_s, u" wird auf %1 gerundet."_s.arg(EuroAmount(RoundTo(number.value, 2))),
            u"Tragen Sie den Betrag mit zwei Stellen hinter dem Komma ein."_s);
    if (number.value < 0.0)
        add(u"C09c"_s, u" ist negativ und wird abgezogen."_s,
            u"Nehmen Sie das Minus weg, wenn kein Abzug gewollt ist."_s);
}

// --- texts that are no numbers ----------------------------------------------------------------

void CheckMemberNumbers(const CheckData& data, Findings& findings)
{
    Finding finding { u"C08a"_s, Level::Error,
        u"Hier steht keine Zahl; ab der ersten dieser Seiten bleiben die Abrechnungen ohne "
        "Beträge."_s };
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (!data.Members[k].Whole || data.Members[k].PlainNumbers)
            continue;
        for (const int field : NumberFields()) {
            if (!IsNoNumber(data.Members[k], field))
                continue;
            const QString text = FieldOf(data.Members[k], field);
            if (finding.rows.empty())
                finding.remedy
                    = u"Schreiben Sie Zahlen mit Komma, zum Beispiel %1."_s.arg(ExampleOf(field));
            finding.rows.push_back(MemberRow(
                data, static_cast<qsizetype>(k), field, FieldCaption(field) + u' ' + Quoted(text)));
        }
    }
    if (!finding.rows.empty())
        Add(findings, finding);
}

void CheckPriceNumbers(const CheckData& data, Findings& findings)
{
    for (std::size_t field = 0; field < charged_prices; ++field) {
        const QString& text = PriceText(data.Source.Prices, field);
        if (!IsNoNumber(text))
            continue;
        Add(findings,
            { u"C08b"_s, Level::Error,
                u"Unter %1 steht %2, das ist keine Zahl. Keine Abrechnung wird fertig."_s.arg(
                    Quoted(PriceCaption(field)), Quoted(text)),
                u"Schreiben Sie Zahlen mit Komma, zum Beispiel 0,36."_s, PriceTarget(field) });
    }
}

void CheckLastYearReadings(const CheckData& data, Findings& findings)
{
    const std::size_t places = std::min(data.Members.size(), data.LastYearMembers.size());
    for (std::size_t k = 0; k < places; ++k) {
        const CheckMember& member = data.LastYearMembers[k];
        if (member.PlainNumbers)
            continue;
        for (int field = ElectricityStart; member.Whole && field <= WaterEnd; ++field) {
            if (!IsNoNumber(member, field))
                continue;
            const QString text = FieldOf(member, field);
            const Finding finding { u"C08c"_s, Level::Error,
                u"Im Jahr %1 steht bei einem Zählerstand keine Zahl."_s.arg(data.LastYear),
                InLastYear(data, u"Zahlen mit Komma schreiben, zum Beispiel 1450, „OK“"_s) };
            const auto place = static_cast<qsizetype>(k);
            AddTo(findings, finding,
                { u"Platz %1, %2: %3 %4"_s.arg(place + 1).arg(
                      DisplayName(member, place), FieldCaption(field), Quoted(text)),
                    YearBackTarget() });
        }
    }
}

void CheckLastYearPrices(const CheckData& data, Findings& findings)
{
    const PriceSettings& prices = data.Source.Prices;
    const QString texts[] { prices.PreviousElectricityPrice, prices.PreviousWaterPrice };
    for (std::size_t meter = 0; meter < 2; ++meter) {
        if (!IsNoNumber(texts[meter]))
            continue;
        Add(findings,
            { u"C08d"_s, Level::Error,
                u"Der Preis %1 von %2 ist keine Zahl: %3."_s.arg(
                    Quoted(PriceCaption(MeterKinds().at(meter).Price)), data.LastYear,
                    Quoted(texts[meter])),
                InLastYear(
                    data, u"den Preis mit Komma schreiben, zum Beispiel 0,36, „Speichern“"_s),
                YearBackTarget() });
    }
}

} // namespace

void CheckFieldCount(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    const auto pages = static_cast<qsizetype>(data.Members.size());
    CheckList(findings, data.Members, pages,
        { u"C05a"_s, u"C05b"_s, {},
            u"Wählen Sie das Mitglied, berichtigen Sie alle Felder von links oben bis zu den "
            "Zählerständen und drücken Sie „Speichern“. Ein leerer Eintrag lässt sich löschen; im "
            "Vorjahr dann dieselbe Stelle nur, wenn sie auch dort leer ist."_s });
    CheckList(findings, data.LastYearMembers, pages,
        { u"C05c"_s, u"C05d"_s, u" in der Liste von "_s + data.LastYear,
            u"Mit dem linken Pfeil %1 wählen, „Laden“, das Mitglied berichtigen, „Speichern“, "
            "wieder vor, „Laden“."_s.arg(data.LastYear),
            false });
}

void CheckNumbers(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    CheckMemberNumbers(data, findings);
    CheckPriceNumbers(data, findings);
    CheckLastYearReadings(data, findings);
    CheckLastYearPrices(data, findings);
}

void CheckOddNumbers(const CheckData& data, Findings& findings)
{
    if (data.MembersUnsafe)
        return;
    for (std::size_t price = 0; price < charged_prices; ++price) {
        const bool rounded = price == FlatEnergyChargeField || price == MembershipFeeField;
        CheckOddNumber(findings, PriceText(data.Source.Prices, price), PriceCaption(price),
            rounded ? Rounding::Rounded : Rounding::AsTyped, PriceTarget(price), nullptr);
    }
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (!data.Members[k].Whole || data.Members[k].PlainNumbers)
            continue;
        for (const int field : NumberFields()) {
            const QString text = FieldOf(data.Members[k], field);
            if (IsReading(field) || IsOrdinary(text))
                continue;
            const auto rounding = field == PlotSize ? Rounding::AsTyped : Rounding::Rounded;
            const FindingRow row = MemberRow(data, static_cast<qsizetype>(k), field);
            CheckOddNumber(findings, text, FieldCaption(field), rounding, row.target, &row);
        }
    }
}
