#include "check/persons.h"

#include "check/check_member.h"
#include "check/text_numbers.h"

#include <QHash>
#include <QStringView>

#include <map>
#include <utility>

namespace {

constexpr int farthest_shift = 20; // places
constexpr int fewest_matches = 3; // fewer are chance

std::size_t At(qsizetype place) { return static_cast<std::size_t>(place); }

/// The texts of both lists by number: equal texts, equal numbers; -1 for the empty text.
struct Numbered {
    std::vector<int> here; ///< by place of this year
    std::vector<int> there; ///< by line of last year
    int count = 0;
};

QStringView Trimmed(const CheckMember& member, int field)
{
    return QStringView(FieldOf(member, field)).trimmed();
}

/// The field without blanks around.
Numbered NumberTexts(const std::vector<CheckMember>& members,
    const std::vector<CheckMember>& last_year, MemberField field)
{
    Numbered numbered;
    numbered.here.reserve(members.size());
    numbered.there.reserve(last_year.size());
    TextNumbers known(members.size() + last_year.size());
    const auto number = [&](const CheckMember& member) {
        const QStringView text = Trimmed(member, field);
        return text.isEmpty() ? -1 : known.NumberOf(text);
    };
    for (const CheckMember& member : members)
        numbered.here.push_back(number(member));
    for (std::size_t line = 0; line < last_year.size(); ++line) {
        const bool same = line < members.size() // most stand where they stood
            && FieldOf(members[line], field) == FieldOf(last_year[line], field);
        numbered.there.push_back(same ? numbered.here[line] : number(last_year[line]));
    }
    numbered.count = known.Count();
    return numbered;
}

/// Names of both parts, numbered from the numbers of their parts; -1 where both are empty: that is
/// nobody.
Numbered Pair(const Numbered& surnames, const Numbered& first_names)
{
    Numbered pairs;
    QHash<qint64, int> known;
    known.reserve(static_cast<qsizetype>(surnames.here.size()));
    const auto number = [&](int surname, int first_name) {
        if (surname < 0 && first_name < 0)
            return -1;
        const qint64 key = (qint64 { surname } << 32) + first_name;
        int& found = known[key];
        if (found == 0)
            found = ++pairs.count;
        return found - 1;
    };
    for (std::size_t place = 0; place < surnames.here.size(); ++place)
        pairs.here.push_back(number(surnames.here[place], first_names.here[place]));
    for (std::size_t line = 0; line < surnames.there.size(); ++line) {
        const int surname = surnames.there[line];
        const int first_name = first_names.there[line];
        const bool same = line < surnames.here.size() // most stand where they stood
            && surnames.here[line] == surname && first_names.here[line] == first_name;
        pairs.there.push_back(same ? pairs.here[line] : number(surname, first_name));
    }
    return pairs;
}

std::vector<int> CountNumbers(const std::vector<int>& numbers, int count)
{
    std::vector<int> counts(static_cast<std::size_t>(count));
    for (const int number : numbers) {
        if (number >= 0)
            ++counts[static_cast<std::size_t>(number)];
    }
    return counts;
}

std::vector<bool> StandTwice(const std::vector<int>& numbers, const std::vector<int>& counts)
{
    std::vector<bool> twice;
    twice.reserve(numbers.size());
    for (const int number : numbers)
        twice.push_back(number >= 0 && counts[static_cast<std::size_t>(number)] > 1);
    return twice;
}

/// A name that stands more than once in one of the lists is told by its garden too.
void NumberPersons(Persons& persons, const Numbered& names, const Numbered& gardens)
{
    const std::vector<int> here = CountNumbers(names.here, names.count);
    const std::vector<int> there = CountNumbers(names.there, names.count);
    std::map<std::pair<int, int>, int> shared; // few
    const auto person = [&](int name, int garden) {
        const auto index = static_cast<std::size_t>(name);
        if (name < 0 || (here[index] < 2 && there[index] < 2))
            return name;
        return shared.try_emplace({ name, garden }, names.count + static_cast<int>(shared.size()))
            .first->second;
    };
    for (std::size_t place = 0; place < names.here.size(); ++place)
        persons.Ids.push_back(person(names.here[place], gardens.here[place]));
    for (std::size_t line = 0; line < names.there.size(); ++line)
        persons.LastYearIds.push_back(person(names.there[line], gardens.there[line]));
    persons.NameTwice = StandTwice(names.here, here);
}

/// By number the place where it stands first, -1: nowhere.
std::vector<qsizetype> PlacesOf(const std::vector<int>& numbers, std::size_t count)
{
    std::vector<qsizetype> places(count, -1);
    for (std::size_t place = numbers.size(); place-- > 0;) {
        if (numbers[place] >= 0)
            places[static_cast<std::size_t>(numbers[place])] = static_cast<qsizetype>(place);
    }
    return places;
}

/// The line of the garden, where it stands once in either list; else that of the person.
void FindGardenLines(Persons& persons, const Numbered& gardens, std::size_t persons_at_most)
{
    const std::vector<int> here = CountNumbers(gardens.here, gardens.count);
    const std::vector<int> there = CountNumbers(gardens.there, gardens.count);
    const auto lines = PlacesOf(gardens.there, static_cast<std::size_t>(gardens.count));
    const auto lines_of_persons = PlacesOf(persons.LastYearIds, persons_at_most);
    persons.GardenLines.reserve(persons.Ids.size());
    for (std::size_t place = 0; place < persons.Ids.size(); ++place) {
        const int garden = gardens.here[place];
        const auto index = static_cast<std::size_t>(garden);
        qsizetype line = -1;
        if (garden >= 0 && here[index] == 1 && there[index] == 1)
            line = lines[index];
        if (line < 0 && persons.Ids[place] >= 0)
            line = lines_of_persons[static_cast<std::size_t>(persons.Ids[place])];
        persons.GardenLines.push_back(line);
    }
    persons.GardenTwice = StandTwice(gardens.here, here);
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
        const ParsedDouble& a = NumberIn(member, start);
        const ParsedDouble& b = NumberIn(before, end);
        const bool numbers = a.outcome == NumberOutcome::Ok && b.outcome == NumberOutcome::Ok;
        if (numbers ? a.value != b.value : begin != last)
            return false;
        goes_on = true;
    }
    return goes_on;
}

bool IsTenantChange(const CheckMember& member, const CheckMember& before)
{
    const QStringView garden = Trimmed(member, PlotNumber);
    const QStringView garden_before = Trimmed(before, PlotNumber);
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
    const Numbered names = Pair(
        NumberTexts(members, last_year, Surname), NumberTexts(members, last_year, FirstName));
    const Numbered gardens = NumberTexts(members, last_year, PlotNumber);
    NumberPersons(persons, names, gardens);
    FindGardenLines(persons, gardens,
        static_cast<std::size_t>(names.count) + members.size() + last_year.size());
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
