#include "statement/contacts.h"

#include "data/records.h"
#include "statement/bill_places.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr int line_width = 20; // characters
constexpr int postcode_width = 6; // five digits and a blank

QString WithoutBlanksAround(QString text)
{
    while (text.startsWith(u' '))
        text.remove(0, 1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

ContactPerson PersonOf(const QStringList& fields)
{
    const QString& place = fields[Town];
    const qsizetype slash = place.indexOf(u'/');
    ContactPerson person;
    person.found = true;
    person.name = TwentyCharacters(fields[FirstName] + u' ' + fields[Surname]);
    person.street = TwentyCharacters(fields[Street]);
    person.town = TwentyCharacters(slash < 0 ? place : place.left(slash));
    person.second_town = TwentyCharacters(slash < 0 ? QString() : place.mid(slash + 1));
    person.telephone = TwentyCharacters(fields[Telephone]);
    return person;
}

/// A contact person who is looked for.
struct Search {
    QStringList names {}; ///< surname and first name; what stands behind a second comma is ignored
    bool over = false;
    ContactPerson person {};
};

Search SearchFor(const QString& setting)
{
    Search search { setting.split(u',') };
    search.over = search.names.size() < 2;
    return search;
}

/// The first two fields and where a third begins, without taking the whole line apart: most lines
/// are only passed by.
bool IsNamed(const QString& record, const QStringList& names)
{
    const qsizetype surname_end = record.indexOf(u';');
    const qsizetype first_name_end = record.indexOf(u';', surname_end + 1);
    const QStringView line(record);
    return line.first(surname_end) == names[0]
        && line.sliced(surname_end + 1, first_name_end - surname_end - 1) == names[1];
}

void RequireContactFields(const BillSource& source, qsizetype member)
{
    const qsizetype fields = source.Members.RecordList[member].count(u';') + 1;
    if (fields > Telephone)
        return;
    const Place where = ShortContactPlace(source, member, static_cast<int>(fields));
    throw RuntimeError { ErrorKind::SubscriptOutOfRange, where, {} };
}

void Run(std::span<Search> searches, const BillSource& source)
{
    const auto is_over = [](const Search& search) { return search.over; };
    for (qsizetype member = 0; member < source.Members.RecordList.size(); ++member) {
        if (std::all_of(searches.begin(), searches.end(), is_over))
            return;
        RequireContactFields(source, member);
        const QString& record = source.Members.RecordList[member];
        for (Search& search : searches) {
            if (search.over || !IsNamed(record, search.names))
                continue;
            search.person = PersonOf(SplitRecord(record));
            search.over = true;
        }
    }
}

} // namespace

QString TwentyCharacters(const QString& text) { return text.leftJustified(line_width, u' ', true); }

ContactPerson FindContact(const QString& setting, const BillSource& source)
{
    std::array searches { SearchFor(setting) };
    Run(searches, source);
    return searches[0].person;
}

std::array<ContactPerson, 2> FindContacts(const BillSource& source)
{
    std::array searches { SearchFor(source.Bank.FirstContact),
        SearchFor(source.Bank.SecondContact) };
    Run(searches, source);
    return { searches[0].person, searches[1].person };
}

QString ClosingTown(const ContactPerson& person)
{
    return WithoutBlanksAround(person.town.mid(postcode_width));
}
