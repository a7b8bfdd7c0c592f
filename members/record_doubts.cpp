#include "members/record_doubts.h"

#include "data/german_numbers.h"
#include "members/member_lists.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr double doubtful_times = 5.0; // a comma forgotten makes ten

/// Whether the text is what is usually typed into that field.
bool Suits(int field, const QString& text)
{
    static const QRegularExpression digits(u"\\d"_s);
    static const QRegularExpression town(u"^\\s*\\d{5}\\b"_s);
    static const QRegularExpression telephone(u"^[\\d\\s+()/-]*$"_s);
    switch (field) {
    case Surname:
    case FirstName:
        return !text.contains(digits);
    case Street:
        return text.isEmpty() || (text.contains(digits) && !text.contains(town));
    case Town:
        return text.isEmpty() || text.contains(town);
    case Telephone:
        return text.contains(telephone);
    case PlotNumber:
        return text.isEmpty() || text.contains(digits);
    default:
        return text.isEmpty() || IsNumber(text);
    }
}

/// How many fields hold what suits them when the extra fields begin at that position.
int SuitingFields(const MemberRecord& fields, int first_shifted)
{
    const qsizetype extra = fields.size() - MemberFieldCount;
    int suiting = 0;
    for (int field = 0; field < MemberFieldCount; ++field)
        suiting += Suits(field, fields[field < first_shifted ? field : field + extra]) ? 1 : 0;
    return suiting;
}

} // namespace

int FirstShiftedField(const MemberRecord& fields)
{
    int best = MemberFieldCount;
    if (fields.size() <= MemberFieldCount)
        return best;
    for (int field = MemberFieldCount - 1; field > 0; --field) {
        if (SuitingFields(fields, field) > SuitingFields(fields, best))
            best = field;
    }
    return best;
}

QString ShiftText(const MemberRecord& fields)
{
    const qsizetype extra = fields.size() - MemberFieldCount;
    if (extra <= 0)
        return {};
    const QString count = u"%1 Felder: "_s.arg(fields.size());
    const int first = FirstShiftedField(fields);
    if (first == MemberFieldCount)
        return count + u"Hinter „%1“ steht noch etwas"_s.arg(MemberFieldCaption(WaterEnd));
    const QString places = extra == 1 ? u"eine Stelle"_s : u"%1 Stellen"_s.arg(extra);
    return count + u"Ab „%1“ ist alles um %2 verschoben"_s.arg(MemberFieldCaption(first), places);
}

ReadingDoubt DoubtOf(const QString& consumption, const QString& last_consumption)
{
    if (!IsNumber(consumption))
        return ReadingDoubt::None;
    const double used = ParseDouble(consumption).value;
    if (used < 0)
        return ReadingDoubt::BelowStart;
    const double last = IsNumber(last_consumption) ? ParseDouble(last_consumption).value : 0;
    return last > 0 && used > doubtful_times * last ? ReadingDoubt::FarAboveLastYear
                                                    : ReadingDoubt::None;
}

QString DoubtText(ReadingDoubt doubt, const QString& last_consumption)
{
    switch (doubt) {
    case ReadingDoubt::None:
        break;
    case ReadingDoubt::BelowStart:
        return u"Der Endstand liegt unter dem Anfangsstand: Der Verbrauch wird mit Minus "
               "abgerechnet."_s;
    case ReadingDoubt::FarAboveLastYear:
        return u"Mehr als das Fünffache des Vorjahres (dort %1): Bitte den Zählerstand prüfen."_s
            .arg(last_consumption);
    }
    return {};
}

QString ConsumptionOf(const QString& start, const QString& end)
{
    if (!IsNumber(start) || !IsNumber(end))
        return {};
    try {
        return MeterDifference(start, end, {}, {});
    } catch (const RuntimeError&) {
        return {}; // beyond what a number can hold
    }
}

QString ConsumptionOf(const MemberRecord& fields, MemberField start)
{
    return ConsumptionOf(FieldOrEmpty(fields, start), FieldOrEmpty(fields, start + 1));
}
