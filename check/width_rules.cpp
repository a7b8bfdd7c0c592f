// Texts that leave their cell or the page, measured in the page's own font.
#include "check/rules.h"
#include "data/german_numbers.h"
#include "statement/statement_pages.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest_character = 12; // page pixels, at the bill's small size
constexpr int address_width = 290; // page pixels
constexpr double widest_sure_amount = 1e8; // "100000000,00" stays in its cell

/// How far a text of the page may reach.
struct Room {
    QString place; ///< what the sentence calls it
    int width = 0; ///< page pixels from the text's left end; 0: no limit
    LinkTarget target;
};

Room CellRoom(const QString& element)
{
    if (element.endsWith(u"_factor"_s))
        return { u"Spalte Umrechnungsfaktor"_s, 78, {} };
    if (element.endsWith(u"_quantity"_s))
        return { u"Spalte Verbrauch"_s, 58, {} };
    if (element.endsWith(u"_amount"_s) || element.endsWith(u"_subtotal"_s)
        || element.endsWith(u"_total"_s))
        return { u"Spalte Betrag in Euro"_s, 78, {} };
    return {};
}

LinkTarget FactorTarget(const QString& element)
{
    static const std::pair<QString, std::size_t> factors[] { { u"row_1_"_s, ElectricityPriceField },
        { u"row_6_"_s, WaterPriceField }, { u"row_11_"_s, LeaseField },
        { u"row_12_"_s, PropertyTaxField }, { u"row_13_"_s, AreaContributionField } };
    for (const auto& [row, field] : factors) {
        if (element.startsWith(row))
            return PriceTarget(field);
    }
    return {};
}

/// The text's left end is its x: none of these is right-aligned.
Room FixedRoom(const PageText& text)
{
    struct Limit {
        QString element;
        QString place;
        int right;
        LinkTarget target;
    };
    static const Limit limits[] {
        { u"club_name"_s, u"Vereinsname"_s, PageWidth, {} },
        { u"transfer"_s, u"Überweisungssatz"_s, PageWidth, BankTarget(0) },
        { u"iban"_s, u"IBAN"_s, 220, BankTarget(1) },
        { u"bic"_s, u"BIC und Termin"_s, PageWidth, BankTarget(2) },
        { u"hardship_2"_s, u"Satz zur Ratenzahlung"_s, PageWidth, BankTarget(5) },
        { u"closing"_s, u"Schlusszeile"_s, PageWidth, BankTarget(5) },
    };
    for (const Limit& limit : limits) {
        if (text.element == limit.element)
            return { limit.place, limit.right - text.x, limit.target };
    }
    if (text.element.startsWith(u"contact_1_"_s))
        return { u"Ansprechpartner 1"_s, 400 - text.x, BankTarget(3) };
    if (text.element.startsWith(u"contact_2_"_s))
        return { u"Ansprechpartner 2"_s, PageWidth - text.x, BankTarget(4) };
    Room room = CellRoom(text.element);
    room.target = FactorTarget(text.element);
    return room;
}

bool Fits(const CheckData& data, PageText text, int width)
{
    // What is behind the second contact's name belongs to the line; blanks at the end do not.
    while (text.text.endsWith(u' '))
        text.text.chop(1);
    if (text.point_size == 8 && text.text.size() * widest_character <= width)
        return true;
    return data.Source.WidthOf(text) <= width;
}

Finding TooWide(const PageText& text, const Room& room)
{
    return { u"C39"_s, Level::Warning,
        u"Passt nicht auf die Abrechnung: %1 (%2)."_s.arg(Quoted(text.text.trimmed()), room.place),
        u"Kürzen Sie den Text."_s, room.target };
}

void CheckFixedTexts(const CheckData& data, Findings& findings)
{
    for (const PageItem& item : data.Source.Statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        const Room room = text == nullptr ? Room {} : FixedRoom(*text);
        if (!room.place.isEmpty() && !Fits(data, *text, room.width))
            Add(findings, TooWide(*text, room));
    }
}

int FieldOfElement(const QString& element)
{
    static const std::pair<QString, int> fields[] { { u"row_1_"_s, ElectricityEnd },
        { u"row_2_"_s, ElectricityStart }, { u"row_3_"_s, ElectricityEnd },
        { u"row_4_"_s, ElectricityEnd }, { u"row_5_"_s, ElectricityEnd }, { u"row_6_"_s, WaterEnd },
        { u"row_7_"_s, WaterStart }, { u"row_8_"_s, WaterEnd }, { u"row_9_"_s, WaterEnd },
        { u"row_14_"_s, LiabilityPremium }, { u"row_15_"_s, LegalPremium },
        { u"row_16_"_s, AccidentPremium }, { u"row_16b_"_s, BuildingPremium },
        { u"row_17_"_s, LiabilityPremium } };
    for (const auto& [row, field] : fields) {
        if (element.startsWith(row))
            return field;
    }
    return PlotSize;
}

/// Amounts of that member may be wider than their cells: only then are they worth measuring.
bool MayBeWide(const CheckData& data, qsizetype k, double largest_price)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    const auto large = [&](int field, double price) {
        const QString text = FieldOf(member, field);
        if (text.size() <= 4 && price <= widest_sure_amount / 1e4)
            return false;
        const ParsedDouble& number = NumberIn(member, field);
        return std::abs(number.value) * price >= widest_sure_amount || text.size() > 8;
    };
    for (int field = PlotSize; field <= WaterEnd; ++field) {
        const bool premium = field >= LiabilityPremium && field <= BuildingPremium;
        if (field != Instalments && large(field, premium ? 1.0 : largest_price))
            return true;
    }
    return false;
}

void CheckAmounts(const CheckData& data, Findings& findings, qsizetype k)
{
    const PageContents page = ContentsOfPage(data.Source.Statement, k);
    for (const PageItem& item : page.member) {
        const auto* text = std::get_if<PageText>(&item);
        const Room room = text == nullptr ? Room {} : CellRoom(text->element);
        if (!room.place.isEmpty() && !Fits(data, *text, room.width))
            AddTo(
                findings, TooWide(*text, room), MemberRow(data, k, FieldOfElement(text->element)));
    }
}

void CheckAddressLine(
    const CheckData& data, Findings& findings, qsizetype k, const QString& line, int field)
{
    PageText text;
    text.text = line;
    if (field == Surname && text.text.endsWith(u'2'))
        text.text.chop(1); // as it is printed
    if (!Fits(data, text, address_width))
        AddTo(findings, TooWide(text, { u"Anschriftenfeld"_s, address_width, {} }),
            MemberRow(data, k, field));
}

void CheckAddressLines(const CheckData& data, Findings& findings, qsizetype k)
{
    const CheckMember& member = data.Members[static_cast<std::size_t>(k)];
    const QString first_name = FieldOf(member, FirstName);
    const QString surname = FieldOf(member, Surname);
    const auto may_be_wide = [](qsizetype size) { return size * widest_character > address_width; };
    if (may_be_wide(first_name.size() + 1 + surname.size()))
        CheckAddressLine(data, findings, k, first_name + u' ' + surname, Surname);
    for (const int field : { Street, Town }) {
        if (may_be_wide(FieldOf(member, field).size()))
            CheckAddressLine(data, findings, k, FieldOf(member, field), field);
    }
}

double LargestPrice(const PriceSettings& prices)
{
    double largest = 1.0;
    for (std::size_t field = 0; field < 7; ++field)
        largest = std::max(largest, std::abs(ParseDouble(PriceText(prices, field)).value));
    for (const QString& text : { prices.PreviousElectricityPrice, prices.PreviousWaterPrice })
        largest = std::max(largest, std::abs(ParseDouble(text).value));
    return largest;
}

} // namespace

void CheckWidths(const CheckData& data, Findings& findings)
{
    if (!data.Source.WidthOf)
        return;
    CheckFixedTexts(data, findings);
    const double largest_price = LargestPrice(data.Source.Prices);
    for (std::size_t k = 0; k < data.Members.size(); ++k) {
        if (!data.Members[k].Whole)
            continue;
        const auto member = static_cast<qsizetype>(k);
        CheckAddressLines(data, findings, member);
        if (MayBeWide(data, member, largest_price))
            CheckAmounts(data, findings, member);
    }
}
