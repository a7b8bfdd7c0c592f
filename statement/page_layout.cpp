#include "statement/page_layout.h"

#include "data/dates.h"
#include "statement/contacts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int first_contact_left = 250;
constexpr int second_contact_left = 400;
constexpr int contact_top = 744;
constexpr int contact_line_height = 12;

// One line per element, in drawing order. The blanks inside the texts are part of the layout: they
// carry the units and the table head into their columns.
// clang-format off

void DrawHead(PageItems& page, const BillSource& source)
{
    AddText(page, u"club_name"_s, 35, 60, source.ClubName, ClubNameStyle);
    AddText(page, u"salutation"_s, 35, 150, u"Gartenfreund"_s);
    AddBox(page, 30, 170, 350, 250);
    AddText(page, u"title"_s, 60, 260, u"Abrechnung Kleingarten "_s + source.YearText, BoldStyle);
    AddText(page, u"head_1"_s, 35, 280, u"lfd Nr. Leistung                                                                       Verbrauch   Umrechnungs-   Betrag in"_s);
    AddText(page, u"head_2"_s, 35, 292, u"                                                                                                                    faktor                 Euro "_s);
}

void DrawElectricityRows(PageItems& page, const BillSource& source, const QString& next_year)
{
    AddText(page, u"row_1_label"_s, 35, Row1, u"     1 Strom                                                                     KWh "_s);
    AddBox(page, 320, Row1, 540, 318);
    AddBox(page, 380, Row1, 460, 318);
    AddRightAligned(page, u"row_1_factor"_s, FactorEdge, Row1, source.Prices.ElectricityPrice);
    AddText(page, u"row_2_label"_s, 35, Row2, u"     2 Vorauszahlung "_s + source.YearText);
    AddBox(page, 460, Row2, 540, 330);
    AddText(page, u"row_3_label"_s, 35, Row3, u"     3 Vorauszahlung "_s + next_year);
    AddBox(page, 460, Row3, 540, 342);
    AddText(page, u"row_4_label"_s, 35, Row4, u"     4 E.Pauschale                                                                                             "_s);
    AddBox(page, 460, Row4, 540, 354);
    AddText(page, u"row_5_label"_s, 35, Row5, u"     5 Zwischensumme Strom                                                                                              "_s, BoldStyle);
    AddBox(page, 540, Row5, 620, 366);
}

void DrawWaterRows(PageItems& page, const BillSource& source, const QString& next_year)
{
    AddText(page, u"row_6_label"_s, 35, Row6, u"     6 Wasser                                                                      m³ "_s);
    AddBox(page, 320, Row6, 540, 390);
    AddBox(page, 380, Row6, 460, 390);
    AddRightAligned(page, u"row_6_factor"_s, FactorEdge, Row6, source.Prices.WaterPrice);
    AddText(page, u"row_7_label"_s, 35, Row7, u"     7 Vorauszahlung "_s + source.YearText);
    AddBox(page, 460, Row7, 540, 402);
    AddText(page, u"row_8_label"_s, 35, Row8, u"     8 Vorauszahlung "_s + next_year);
    AddBox(page, 460, Row8, 540, 414);
    AddText(page, u"row_9_label"_s, 35, Row9, u"     9 Zwischwnsumme Wasser "_s, BoldStyle); // sic: misspelt
    AddBox(page, 540, Row9, 620, 428); // two pixels higher than the other cells
}

void DrawPlotRows(PageItems& page, const BillSource& source, const QString& next_year)
{
    AddText(page, u"row_10_label"_s, 35, Row10, u"    10 Mitgliedsbeitrag "_s + u"1"_s, BoldStyle); // sic: the number 1 in every year
    AddBox(page, 540, Row10, 620, 452);
    AddText(page, u"row_11_label"_s, 35, Row11, u"    11 Pacht "_s + next_year + u"                                                              m²          "_s, BoldStyle);
    AddBox(page, 320, Row11, 620, 476);
    AddBox(page, 380, Row11, 460, 476);
    AddLine(page, 540, Row11, 540, 476);
    AddRightAligned(page, u"row_11_factor"_s, FactorEdge, Row11, source.Prices.Lease);
    AddText(page, u"row_12_label"_s, 35, Row12, u"   12 Grundsteuer(GS)A "_s + next_year + u"                                       m²          "_s, BoldStyle); // sic: three blanks in front
    AddBox(page, 320, Row12, 620, 500);
    AddBox(page, 380, Row12, 460, 500);
    AddLine(page, 540, Row12, 540, 500);
    AddRightAligned(page, u"row_12_factor"_s, FactorEdge, Row12, source.Prices.PropertyTax);
    AddText(page, u"row_13_label"_s, 35, Row13, u"    13 Flächenbeitrag                                                      m²                               "_s, BoldStyle);
    AddBox(page, 320, Row13, 620, 524);
    AddBox(page, 380, Row13, 460, 524);
    AddLine(page, 540, Row13, 540, 524);
    AddRightAligned(page, u"row_13_factor"_s, FactorEdge, Row13, source.Prices.AreaContribution);
}

void DrawInsuranceRowsAndTotal(PageItems& page)
{
    AddText(page, u"row_14_label"_s, 35, Row14, u"    14 Haftpflicht "_s);
    AddBox(page, 460, Row14, 540, 548);
    AddText(page, u"row_15_label"_s, 35, Row15, u"    15 Rechtschutz "_s);
    AddBox(page, 460, Row15, 540, 560);
    AddText(page, u"row_16_label"_s, 35, Row16, u"    16 Unfall "_s);
    AddBox(page, 460, Row16, 540, 572);
    AddText(page, u"row_16b_label"_s, 35, Row16b, u"    16 Gebäude "_s); // sic: 16 a second time
    AddBox(page, 460, Row16b, 540, 584);
    AddText(page, u"row_17_label"_s, 35, Row17, u"    17 Zwischensumme Versicherungen "_s, BoldStyle);
    AddBox(page, 540, Row17, 620, 596);
    AddText(page, u"row_18_label"_s, 35, Row18, u"    18 Gesamtsumme "_s, BoldStyle);
    AddBox(page, 540, Row18, 620, 620);
}

void DrawPayment(PageItems& page, const BillSource& source)
{
    AddText(page, u"transfer"_s, 35, 632, u"Wir bitten um Überweisung der Gesamtsumme auf das Konto der "_s + source.Bank.BankName);
    AddText(page, u"iban"_s, 35, 644, u"IBAN "_s + source.Bank.Iban, BoldStyle);
    AddText(page, u"iban_red"_s, 35, 644, u"IBAN"_s, RedStyle);
    AddText(page, u"bic"_s, 220, 644, u"BIC "_s + source.Bank.Bic + u"    Termin "_s + source.Prices.PaymentDeadline, BoldStyle);
    AddText(page, u"bic_red"_s, 220, 644, u"BIC"_s, RedStyle);
    AddText(page, u"hardship_1"_s, 35, 672, u"Sollten Sie aus finanziellen Gründen nicht in der Lage sein diesen Betrag zu begleichen,"_s);
    AddText(page, u"hardship_2"_s, 35, 684, u"besteht nach Rücksprache mit "_s + source.Bank.TreasurerSalutation + u" "_s + source.Bank.TreasurerName + u" , die Möglichkeit einer 3 Monatsratenzahlung."_s); // sic: blank before the comma
    AddText(page, u"questions_1"_s, 35, 716, u"Bei Rückfragen zur Abrechnung"_s);
    AddText(page, u"questions_2"_s, 35, 744, u"wenden Sie sich bitte an"_s);
}

// clang-format on

void DrawContact(PageItems& page, const QString& number, int left, const ContactPerson& person,
    const QString& behind_name)
{
    if (!person.found) {
        AddText(
            page, u"contact_%1_name"_s.arg(number), left, contact_top, u"Datensatz fehlt     "_s);
        return;
    }
    const QString lines[] { person.name + behind_name, person.street, person.town,
        person.second_town, person.telephone };
    const QString names[] { u"name"_s, u"street"_s, u"town"_s, u"town2"_s, u"phone"_s };
    for (int i = 0; i < 5; ++i)
        AddText(page, u"contact_%1_%2"_s.arg(number, names[i]), left,
            contact_top + i * contact_line_height, lines[i]);
}

void DrawContactsAndClosing(PageItems& page, const BillSource& source)
{
    const auto [first, second] = FindContacts(source);
    DrawContact(page, u"1"_s, first_contact_left, first, u"   oder    "_s);
    DrawContact(page, u"2"_s, second_contact_left, second, {});

    const QString closing = ClosingTown(first) + u", den "_s + ShortDate(source.Today)
        + u"                                "_s + source.Bank.TreasurerName
        + u"                                    Vielen Dank "_s;
    AddText(page, u"closing"_s, 25, 840, closing);
}

} // namespace

void DrawFixedContents(PageItems& page, const BillSource& source)
{
    const QString next_year = NextYear(source.YearText);
    DrawHead(page, source);
    DrawElectricityRows(page, source, next_year);
    DrawWaterRows(page, source, next_year);
    DrawPlotRows(page, source, next_year);
    DrawInsuranceRowsAndTotal(page);
    DrawPayment(page, source);
    DrawContactsAndClosing(page, source);
}
