#include "statement/contacts.h"

#include "data/records.h"
#include "statement/bill_places.h"

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

} // namespace

QString TwentyCharacters(const QString& text) { return text.leftJustified(line_width, u' ', true); }

ContactPerson FindContact(const QString& setting, const BillSource& source)
{
    const QStringList names = setting.split(u',');
    if (names.size() < 2)
        return {};
    for (qsizetype member = 0; member < source.Members.RecordList.size(); ++member) {
        const QStringList fields = SplitRecord(source.Members.RecordList[member]);
        if (fields.size() <= Telephone) {
            const Place where = ShortContactPlace(source, member, static_cast<int>(fields.size()));
            throw RuntimeError { ErrorKind::SubscriptOutOfRange, where, {} };
        }
        if (fields[Surname] == names[0] && fields[FirstName] == names[1])
            return PersonOf(fields);
    }
    return {};
}

QString ClosingTown(const ContactPerson& person)
{
    return WithoutBlanksAround(person.town.mid(postcode_width));
}
