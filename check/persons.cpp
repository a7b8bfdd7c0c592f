#include "check/persons.h"

#include "check/check_member.h"
#include "data/german_numbers.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int farthest_shift = 20; // places
constexpr int fewest_matches = 3; // fewer are chance

std::size_t At(qsizetype place) { return static_cast<std::size_t>(place); }

QString Trimmed(const CheckMember& member, int field) { return FieldOf(member, field).trimmed(); }

/// Empty for a record without a name: it is nobody.
QString NameKey(const CheckMember& member)
{
    const QString surname = Trimmed(member, Surname);
    const QString first = Trimmed(member, FirstName);
    return surname.isEmpty() && first.isEmpty() ? QString() : surname + u';' + first;
}

using Counts = QHash<QString, int>;

Counts CountNames(const std::vector<CheckMember>& list)
{
    Counts counts;
    counts.reserve(static_cast<qsizetype>(list.size()));
    for (const CheckMember& member : list)
        ++counts[NameKey(member)];
    return counts;
}

/// Names that stand more than once in one of the lists.
QSet<QString> SharedNames(
    const std::vector<CheckMember>& members, const std::vector<CheckMember>& last_year)
{
    QSet<QString> shared;
    for (const std::vector<CheckMember>* list : { &members, &last_year }) {
        const Counts counts = CountNames(*list);
        if (counts.size() == static_cast<qsizetype>(list->size()))
            continue; // every name stands once
        for (auto name = counts.cbegin(); name != counts.cend(); ++name) {
            if (name.value() > 1)
                shared.insert(name.key());
        }
    }
    return shared;
}

void NumberPersons(std::vector<int>& ids, const std::vector<CheckMember>& list, Counts& known,
    const QSet<QString>& shared)
{
    ids.reserve(list.size());
    for (const CheckMember& member : list) {
        QString key = NameKey(member);
        if (key.isEmpty()) {
            ids.push_back(-1);
            continue;
        }
        if (shared.contains(key))
            key += u';' + Trimmed(member, PlotNumber);
        const auto number = known.constFind(key);
        ids.push_back(number != known.cend() ? *number : static_cast<int>(known.size()));
        if (number == known.cend())
            known.insert(key, ids.back());
    }
}

/// The places of the gardens that stand once in the list; -1 for those that stand more often.
QHash<QString, qsizetype> PlacesOfGardens(const std::vector<CheckMember>& list)
{
    QHash<QString, qsizetype> places;
    places.reserve(static_cast<qsizetype>(list.size()));
    for (std::size_t place = 0; place < list.size(); ++place) {
        const QString garden = Trimmed(list[place], PlotNumber);
        if (garden.isEmpty())
            continue;
        const auto known = places.find(garden);
        if (known == places.end())
            places.insert(garden, static_cast<qsizetype>(place));
        else
            *known = -1;
    }
    return places;
}

void FindGardenLines(Persons& persons, const std::vector<CheckMember>& members,
    const std::vector<CheckMember>& last_year)
{
    const QHash<QString, qsizetype> here = PlacesOfGardens(members);
    const QHash<QString, qsizetype> there = PlacesOfGardens(last_year);
    QHash<int, qsizetype> lines;
    for (std::size_t line = last_year.size(); line-- > 0;)
        lines.insert(persons.LastYearIds[line], static_cast<qsizetype>(line));
    persons.GardenLines.reserve(members.size());
    for (std::size_t place = 0; place < members.size(); ++place) {
        const QString garden = Trimmed(members[place], PlotNumber);
        qsizetype line = -1;
        if (!garden.isEmpty() && here.value(garden, -1) >= 0)
            line = there.value(garden, -1);
        if (line < 0 && persons.Ids[place] >= 0)
            line = lines.value(persons.Ids[place], -1);
        persons.GardenLines.push_back(line);
    }
}

/// The meters go on: at least one start is last year's end at that place, and none is another.
bool MetersGoOn(const CheckMember& member, const CheckMember& before)
{
    bool goes_on = false;
    for (const auto& [start, end] :
        { std::pair { ElectricityStart, ElectricityEnd }, std::pair { WaterStart, WaterEnd } }) {
        const QString begin = FieldOf(member, start);
        const QString last = FieldOf(before, end);
        if (begin.isEmpty() || last.isEmpty())
            continue;
        const ParsedDouble a = ParseDouble(begin);
        const ParsedDouble b = ParseDouble(last);
        const bool numbers = a.outcome == NumberOutcome::Ok && b.outcome == NumberOutcome::Ok;
        if (numbers ? a.value != b.value : begin != last)
            return false;
        goes_on = true;
    }
    return goes_on;
}

bool IsTenantChange(const CheckMember& member, const CheckMember& before)
{
    const QString garden = Trimmed(member, PlotNumber);
    const QString garden_before = Trimmed(before, PlotNumber);
    if (garden == garden_before && !garden.isEmpty())
        return true;
    return (garden.isEmpty() || garden_before.isEmpty()) && MetersGoOn(member, before);
}

/// So many members from that place on are last year's persons at that distance.
int Matches(const Persons& persons, qsizetype place, int distance)
{
    int matches = 0;
    const auto lines = static_cast<qsizetype>(persons.LastYearIds.size());
    for (qsizetype k = place; k < static_cast<qsizetype>(persons.Ids.size()); ++k) {
        const qsizetype line = k + distance;
        if (line >= 0 && line < lines && persons.Ids[At(k)] >= 0
            && persons.Ids[At(k)] == persons.LastYearIds[At(line)])
            ++matches;
    }
    return matches;
}

std::optional<Shift> FindShift(const Persons& persons, qsizetype place)
{
    Shift best { place, 0 };
    int most = fewest_matches - 1;
    for (int size = 1; size <= farthest_shift; ++size) {
        for (const int distance : { -size, size }) {
            const int matches = Matches(persons, place, distance);
            if (matches > most) {
                most = matches;
                best.distance = distance;
            }
        }
    }
    return best.distance == 0 ? std::nullopt : std::optional(best);
}

void Explain(Persons& persons, const Shift& shift)
{
    const auto lines = static_cast<qsizetype>(persons.LastYearIds.size());
    for (qsizetype k = shift.place; k < static_cast<qsizetype>(persons.Ids.size()); ++k) {
        const qsizetype line = k + shift.distance;
        const bool match = line >= 0 && line < lines && persons.Ids[At(k)] >= 0
            && persons.Ids[At(k)] == persons.LastYearIds[At(line)];
        const bool missing = shift.distance < 0 && k < shift.place - shift.distance;
        persons.Explained[At(k)] = match || missing;
    }
}

} // namespace

Persons ComparePersons(
    const std::vector<CheckMember>& members, const std::vector<CheckMember>& last_year)
{
    Persons persons;
    const QSet<QString> shared = SharedNames(members, last_year);
    Counts known;
    known.reserve(static_cast<qsizetype>(members.size()));
    NumberPersons(persons.Ids, members, known, shared);
    NumberPersons(persons.LastYearIds, last_year, known, shared);
    FindGardenLines(persons, members, last_year);
    persons.TenantChanges.assign(members.size(), false);
    persons.Explained.assign(members.size(), false);
    std::optional<qsizetype> first_other;
    for (std::size_t k = 0; k < members.size(); ++k) {
        const auto place = static_cast<qsizetype>(k);
        if (!OtherPersonAt(persons, place))
            continue;
        persons.TenantChanges[k] = IsTenantChange(members[k], last_year[k]);
        if (!persons.TenantChanges[k] && !first_other)
            first_other = place;
    }
    if (first_other)
        persons.Shifted = FindShift(persons, *first_other);
    if (persons.Shifted)
        Explain(persons, *persons.Shifted);
    return persons;
}

bool SamePersonAt(const Persons& persons, qsizetype place)
{
    return At(place) < persons.Ids.size() && At(place) < persons.LastYearIds.size()
        && persons.Ids[At(place)] >= 0 && persons.Ids[At(place)] == persons.LastYearIds[At(place)];
}

bool OtherPersonAt(const Persons& persons, qsizetype place)
{
    return At(place) < persons.Ids.size() && At(place) < persons.LastYearIds.size()
        && !SamePersonAt(persons, place);
}
