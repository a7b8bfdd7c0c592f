// The contact persons at the foot of every bill: found or not, and cut off.
#include "check/rules.h"
#include "statement/contacts.h"

#include <algorithm>
#include <optional>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype line_width = 20; // characters of a contact's line
constexpr std::size_t first_contact_field = 3; // Text6(3), Text6(4)

/// A contact person as the last drawing found him, and where that member stands.
struct Contact {
    QString setting;
    bool searched = false; ///< false when nothing was drawn, or a short record stopped the search
    bool found = false;
    qsizetype place = -1;
};

QString DrawnText(const CheckData& data, const QString& element)
{
    for (const PageItem& item : data.Source.Statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        if (text != nullptr && text->element == element)
            return text->text;
    }
    return {};
}

qsizetype PlaceOf(const CheckData& data, const QString& setting)
{
    const QString surname = setting.section(u',', 0, 0);
    const QString first = setting.section(u',', 1, 1);
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (FieldOf(data.Members[k], Surname) == surname
            && FieldOf(data.Members[k], FirstName) == first)
            return static_cast<qsizetype>(k);
    }
    return -1;
}

Contact FindIn(const CheckData& data, const QString& setting, int number)
{
    const QString drawn = DrawnText(data, u"contact_%1_name"_s.arg(number));
    Contact contact { setting, !drawn.isEmpty(), false, -1 };
    contact.found = contact.searched && drawn.trimmed() != u"Datensatz fehlt"_s;
    if (contact.found)
        contact.place = PlaceOf(data, setting);
    return contact;
}

std::array<Contact, 2> ContactsOf(const CheckData& data)
{
    const BankSettings& bank = data.Source.Bank;
    return { FindIn(data, bank.FirstContact, 1), FindIn(data, bank.SecondContact, 2) };
}

/// The only member that fits without regard to case and blanks, as it has to be typed.
std::optional<QString> MeantMember(const CheckData& data, const QString& setting)
{
    const QStringList names = setting.split(u',');
    if (names.size() < 2)
        return std::nullopt;
    std::optional<QString> meant;
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        const CheckMember& member = data.Members[k];
        const auto fits = [&](int field, const QString& name) {
            return FieldOf(member, field).trimmed().compare(name.trimmed(), Qt::CaseInsensitive)
                == 0;
        };
        if (!fits(Surname, names[0]) || !fits(FirstName, names[1]))
            continue;
        if (meant)
            return std::nullopt;
        meant = NameEntry(SplitRecord(data.Source.Members.RecordList[static_cast<qsizetype>(k)]));
    }
    return meant;
}

void AddMissing(
    const CheckData& data, Findings& findings, std::size_t index, const Contact& contact)
{
    QString sentence = u"Ansprechpartner %1 steht so nicht in der Mitgliederliste; auf jeder "
                       "Abrechnung steht „Datensatz fehlt“."_s.arg(Quoted(contact.setting));
    if (contact.setting.isEmpty())
        sentence = u"Ansprechpartner %1 ist leer; auf jeder Abrechnung steht dort „Datensatz "
                   "fehlt“."_s.arg(index + 1);
    else if (const auto meant = MeantMember(data, contact.setting))
        sentence += u" Gemeint ist wohl %1."_s.arg(Quoted(*meant));
    Add(findings,
        { u"C36"_s, Level::Error, sentence,
            u"Tragen Sie ein Mitglied als „Nachname,Vorname“ ein, ohne Leerzeichen hinter dem "
            "Komma, und drücken Sie „Speichern“."_s,
            BankTarget(first_contact_field + index) });
}

// --- what is cut off --------------------------------------------------------------------------

const QString shorten = u"Kürzen Sie den Text selbst, damit nichts Wichtiges wegfällt."_s;

bool BeginsWithPostcode(const QString& town)
{
    const auto digit = [](QChar sign) { return sign >= u'0' && sign <= u'9'; };
    return town.size() > 6 && std::all_of(town.begin(), town.begin() + 5, digit) && town[5] == u' '
        && !town[6].isSpace();
}

/// A text and the field that it comes from.
struct Line {
    QString text;
    int field = 0;
};

std::vector<Line> LinesOf(const CheckMember& member)
{
    const QString town = FieldOf(member, Town);
    const qsizetype slash = town.indexOf(u'/');
    return { { FieldOf(member, FirstName) + u' ' + FieldOf(member, Surname), Surname },
        { FieldOf(member, Street), Street }, { slash < 0 ? town : town.left(slash), Town },
        { slash < 0 ? QString() : town.mid(slash + 1), Town } };
}

void CheckLines(Findings& findings, const CheckMember& member, qsizetype place)
{
    for (const Line& line : LinesOf(member)) {
        if (line.text.size() > line_width)
            Add(findings,
                { u"C37c"_s, Level::Hint,
                    u"%1 wird auf 20 Zeichen gekürzt: %2."_s.arg(
                        Quoted(line.text), Quoted(TwentyCharacters(line.text))),
                    shorten, MemberTarget(place, line.field) });
    }
}

void CheckTelephone(Findings& findings, const CheckMember& member, qsizetype place)
{
    const QString telephone = FieldOf(member, Telephone);
    const QString name = DisplayName(member, place);
    const LinkTarget target = MemberTarget(place, Telephone);
    if (telephone.size() > line_width)
        Add(findings,
            { u"C37b"_s, Level::Warning,
                u"Die Telefonnummer von %1 wird auf 20 Zeichen gekürzt: %2."_s.arg(
                    name, Quoted(TwentyCharacters(telephone))),
                shorten, target });
    if (telephone.isEmpty())
        Add(findings,
            { u"C37d"_s, Level::Hint, u"%1 hat keine Telefonnummer."_s.arg(name), {}, target });
}

} // namespace

void CheckContacts(const CheckData& data, Findings& findings)
{
    const std::array<Contact, 2> contacts = ContactsOf(data);
    for (std::size_t index = 0; index < contacts.size(); ++index) {
        const Contact& contact = contacts.at(index);
        if (contact.searched && !contact.found)
            AddMissing(data, findings, index, contact);
    }
}

void CheckContactTexts(const CheckData& data, Findings& findings)
{
    const std::array<Contact, 2> contacts = ContactsOf(data);
    const bool same = contacts[0].place >= 0 && contacts[0].place == contacts[1].place;
    for (std::size_t index = 0; index < contacts.size(); ++index) {
        const qsizetype place = contacts.at(index).place;
        if (place < 0 || (index == 1 && same))
            continue;
        const CheckMember& member = data.Members[static_cast<std::size_t>(place)];
        if (index == 0 && !BeginsWithPostcode(FieldOf(member, Town)))
            Add(findings,
                { u"C37a"_s, Level::Warning,
                    u"Die Schlusszeile beginnt mit „%1, den …“."_s.arg(
                        DrawnText(data, u"closing"_s).section(u", den "_s, 0, 0)),
                    u"Schreiben Sie unter „Plz/Ort“ fünf Ziffern, ein Leerzeichen und den Ort."_s,
                    MemberTarget(place, Town) });
        CheckTelephone(findings, member, place);
        CheckLines(findings, member, place);
    }
    if (same)
        Add(findings,
            { u"C37e"_s, Level::Hint,
                u"Beide Ansprechpartner sind %1."_s.arg(DisplayName(
                    data.Members[static_cast<std::size_t>(contacts[0].place)], contacts[0].place)),
                {}, BankTarget(4) });
}
