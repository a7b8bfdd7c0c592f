// The rules about members, their meters and the lists of both years.
#include "tests/check/rule_case.h"
#include "tests/support/test_file.h"

using namespace Qt::StringLiterals;

namespace {

void Nothing(CheckClub&) { }

/// Nobody has read anything yet.
void ClearAllEnds(CheckClub& club)
{
    for (MemberRecord& member : club.Members) {
        member[ElectricityEnd].clear();
        member[WaterEnd].clear();
    }
}

// clang-format off
const RuleCase cases[] {
    { "C10a", [](CheckClub& c) { c.Members[9] = c.Members[4]; c.Members[9][Surname] += u' '; },
        [](CheckClub& c) { c.Members[9] = c.Members[4]; c.Members[9][PlotNumber] = u"10"_s; },
        u"Doppelt eingetragen, es gibt zwei Abrechnungen:"_s, u"Plätze 5 und 10, Thiele, Anna, Garten 5"_s },
    { "C10b", [](CheckClub& c) { c.Members[9][PlotNumber] = u" 5"_s; }, [](CheckClub& c) { c.Members[9][PlotNumber].clear(); c.Members[4][PlotNumber].clear(); },
        u"Garten 5 steht bei mehreren Mitgliedern und wird mehrfach abgerechnet:"_s, u"Plätze 5 und 10, Thiele, Anna und Noack, Anna"_s },
    { "C11a", [](CheckClub& c) { c.Members[4][Surname] = u"Thiele3"_s; }, [](CheckClub& c) { c.Members[4][Surname] = u"Thiele2"_s; },
        u"Gedruckt wird „Anna Thiele3“ mit der Ziffer; nur eine 2 am Ende wird weggelassen."_s, u"Platz 5, Thiele3, Anna"_s },
    { "C11b", [](CheckClub& c) { c.Members[4][Surname] = u"Thiele,geb. Vogt"_s; }, [](CheckClub& c) { c.Members[4][Surname] = u"Thiele-Vogt"_s; },
        u"Ein Komma im Namen: Als Ansprechpartner und in der Kontoführung wird das Mitglied nicht gefunden."_s, u"Platz 5, Thiele,geb. Vogt, Anna"_s },
    { "C11c", [](CheckClub& c) { c.Members[4][FirstName] = u"Anna "_s; }, [](CheckClub& c) { c.Members[4][FirstName] = u"Anna Maria"_s; },
        u"Leerzeichen vor oder hinter dem Namen."_s, u"Platz 5, Thiele, Anna "_s },
    { "C11c", [](CheckClub& c) { c.Members[4][Surname].clear(); c.Members[4][FirstName].clear(); }, [](CheckClub& c) { c.Members[4][FirstName].clear(); },
        u"Der Name fehlt."_s, u"Platz 5"_s },
    { "C11d", [](CheckClub& c) { c.Members[4][Surname] = u"Kranz2"_s; }, [](CheckClub& c) { c.Members[4][Surname] = u"Vogt2"_s; },
        u"Gedruckt wird „Anna Kranz“, ein Mitglied „Kranz“ gibt es aber nicht."_s, u"Platz 5, Kranz2, Anna"_s },
    { "C12a", [](CheckClub& c) { c.Members[4][PlotSize] = u"0"_s; },
        [](CheckClub& c) { c.Members[4][PlotSize].clear(); c.Prices.Lease = c.Prices.PropertyTax = c.Prices.AreaContribution = u"0,00"_s; },
        u"Garten 5 hat keine Größe und zahlt weder Pacht noch Steuer noch Flächenbeitrag."_s, u"Platz 5, Thiele, Anna"_s },
    { "C12b", [](CheckClub& c) { c.Members[4][PlotNumber].clear(); }, [](CheckClub& c) { c.Members[4][PlotNumber].clear(); c.Members[4][PlotSize] = u"0"_s; },
        u"Die Gartennummer fehlt."_s, u"Platz 5, Thiele, Anna"_s },
    { "C12c", [](CheckClub& c) { c.Members[4][Street] = u" "_s; }, [](CheckClub& c) { c.Members[4][Telephone].clear(); },
        u"Straße fehlt im Anschriftenfeld der Abrechnung."_s, u"Platz 5, Thiele, Anna"_s },
    { "C12d", [](CheckClub& c) { c.Members[4][Instalments] = u"4"_s; }, [](CheckClub& c) { c.Members[4][Instalments] = u"3"_s; c.Members[5][Instalments].clear(); },
        u"Ratenzahlung „4“; auf der Abrechnung steht immer „3 Monatsratenzahlung“."_s, u"Platz 5, Thiele, Anna"_s },
    { "C13a", [](CheckClub& c) { c.Members[4][PlotSize] = u"3080"_s; }, [](CheckClub& c) { c.Members[4][PlotSize] = u"20"_s; c.LastYear[4][PlotSize] = u"69"_s; },
        u"Größe 3080, 2025 308: Das ist weit auseinander."_s, u"Platz 5, Thiele, Anna"_s },
    { "C13b", [](CheckClub& c) { c.Members[4][BuildingPremium] = u"120,00"_s; }, [](CheckClub& c) { c.Members[4][BuildingPremium] = u"31,90"_s; c.Members[5][BuildingPremium] = u"36,00"_s; },
        u"Gebäude 120,00, 2025 12,00: Das ist weit auseinander."_s, u"Platz 5, Thiele, Anna"_s },

    { "C14a", [](CheckClub& c) { c.Members[4][ElectricityEnd].clear(); }, [](CheckClub& c) { c.Members[4][ElectricityEnd].clear(); c.Members[4][ElectricityStart].clear(); c.LastYear[4][ElectricityStart].clear(); c.LastYear[4][ElectricityEnd].clear(); },
        u"Endstand Strom fehlt; abgerechnet werden 0 kWh."_s, u"Platz 5, Thiele, Anna"_s },
    { "C14b", ClearAllEnds, Nothing,
        u"Endstände Strom fehlen noch bei 30 von 30 Zählern."_s, {} },
    { "C15", [](CheckClub& c) { c.Members[4][WaterStart].clear(); }, [](CheckClub& c) { c.Members[4][WaterStart].clear(); c.Prices.WaterPrice = u"0"_s; },
        u"Anfangsstand Wasser fehlt; abgerechnet werden 0 m³."_s, u"Platz 5, Thiele, Anna: Endstand 2025 war 110"_s },
    { "C15", [](CheckClub& c) { c.Members[4][WaterStart].clear(); c.LastYear[4][WaterEnd].clear(); }, Nothing,
        u"Anfangsstand Wasser fehlt; abgerechnet werden 0 m³."_s, u"Platz 5, Thiele, Anna: Endstand 2025 fehlt auch"_s },
    { "C16", [](CheckClub& c) { c.Members[4][ElectricityEnd] = u"1039"_s; }, [](CheckClub& c) { c.Members[4][ElectricityEnd] = c.Members[4][ElectricityStart]; },
        u"Endstand Strom liegt unter dem Anfangsstand; gutgeschrieben werden 101 kWh."_s, u"Platz 5, Thiele, Anna: 1140 bis 1039"_s },
    { "C17a", [](CheckClub& c) { c.Members[4][ElectricityEnd] = u"1541"_s; }, [](CheckClub& c) { c.Members[4][ElectricityEnd] = u"1440"_s; },
        u"Verbrauch Strom 401 kWh, 2025 waren es 100."_s, u"Platz 5, Thiele, Anna"_s },
    { "C17b", [](CheckClub& c) { c.LastYear[4][ElectricityStart].clear(); c.Members[4][ElectricityEnd] = u"4141"_s; },
        [](CheckClub& c) { c.LastYear[4][ElectricityStart].clear(); c.Members[4][ElectricityEnd] = u"4140"_s; },
        u"Verbrauch Strom 3001 kWh, das ist sehr viel."_s, u"Platz 5, Thiele, Anna"_s },
    { "C17c", [](CheckClub& c) { c.Members[4][WaterEnd] = c.Members[4][WaterStart] = c.LastYear[4][WaterEnd] = c.LastYear[4][WaterStart]; },
        [](CheckClub& c) { c.Members[4][WaterEnd] = c.Members[4][WaterStart]; },
        u"Verbrauch Wasser zwei Jahre lang 0; vielleicht steht der Zähler."_s, u"Platz 5, Thiele, Anna"_s },
    { "C18a", [](CheckClub& c) { c.Members[4][ElectricityStart] = u"1130"_s; }, [](CheckClub& c) { c.Members[4][ElectricityStart] = u"1.140,0"_s; },
        u"Anfangsstand Strom 1130, Endstand 2025 war 1140. Der Unterschied wird nicht oder doppelt abgerechnet."_s, u"Platz 5, Thiele, Anna"_s },
    { "C18b", [](CheckClub& c) { c.Members[4][ElectricityStart] = u"-40"_s; }, [](CheckClub& c) { c.Members[4][ElectricityStart] = u"1"_s; },
        u"Anfangsstand Strom -40: So steht es nach einem Zählerwechsel. Endstand 2025 war 1140."_s, u"Platz 5, Thiele, Anna"_s },

    { "C19a", [](CheckClub& c) { c.LastYear.removeAt(8); }, [](CheckClub& c) { c.LastYear.removeAt(27); },
        u"In der Liste von 2025 fehlt eine Zeile: Ab Platz 9 (Krüger, Anna) bekommt jedes Mitglied den Abzug eines anderen."_s,
        u"Platz 9: 2026 Krüger, Anna, 2025 Noack, Anna"_s },
    { "C19a", [](CheckClub& c) { c.LastYear.remove(8, 3); }, Nothing,
        u"In der Liste von 2025 fehlen 3 Zeilen: Ab Platz 9 (Krüger, Anna) bekommt jedes Mitglied den Abzug eines anderen."_s, {} },
    { "C19b", [](CheckClub& c) { c.Members.removeAt(8); }, [](CheckClub& c) { c.Members.removeAt(28); },
        u"In der Liste von 2026 fehlt eine Zeile: Ab Platz 9 (Noack, Anna) bekommt jedes Mitglied den Abzug eines anderen."_s, {} },
    { "C20", [](CheckClub& c) { c.LastYear.swapItemsAt(8, 9); }, [](CheckClub& c) { c.LastYear.swapItemsAt(8, 9); c.Members.swapItemsAt(8, 9); },
        u"Der Abzug der Vorauszahlung gehört zu jemand anderem."_s, u"Platz 9, Krüger, Anna: bekommt den Abzug von Noack, Anna (82,00 €)"_s },
    { "C21", [](CheckClub& c) { c.LastYear.removeLast(); }, [](CheckClub& c) { c.LastYear.removeAt(8); },
        u"In der Liste von 2025 fehlt am Ende eine Zeile; ab Seite 30 bleiben die Abrechnungen ohne Beträge."_s, u"Platz 30, Noack, Ida"_s },
    { "C21", [](CheckClub& c) { c.LastYear.removeLast(); c.LastYear.removeLast(); }, Nothing,
        u"In der Liste von 2025 fehlen am Ende 2 Zeilen; ab Seite 29 bleiben die Abrechnungen ohne Beträge."_s, u"Platz 29, Krüger, Ida"_s },
    { "C22a", [](CheckClub& c) { c.LastYear[2][FirstName] = u"Otto"_s; c.LastYear[7] = c.Members[7]; }, [](CheckClub& c) { c.LastYear[7] = c.Members[7]; },
        u"Anderer Pächter: 2025 Lang, Otto, jetzt Lang, Anna. Die Vorauszahlung des Vorgängers (82,00 €) wird dem Nachfolger abgezogen."_s, u"Platz 3, Lang, Anna"_s },
    { "C22b", [](CheckClub& c) { c.LastYear += c.LastYear[2]; c.LastYear.last()[FirstName] = u"Otto"_s; c.LastYear.last()[PlotNumber] = u"99"_s; },
        [](CheckClub& c) { c.LastYear += c.LastYear[2]; c.LastYear.last()[FirstName] = u"Otto"_s; },
        u"2025 noch dabei, jetzt nicht mehr: Lang, Otto."_s, {} },
    { "C23a", [](CheckClub& c) { c.Raw[u"Mitgliedsdaten2025.pz"_s] = std::nullopt; },
        [](CheckClub& c) { for (const char* name : { "Mitgliedsdaten2025.pz", "Konto2025.pz", "HandKasse2025.pz" }) c.Raw[QString::fromLatin1(name)] = std::nullopt; c.Raw[u"Config.ini"_s] = QByteArray("[2026]\r\n"); },
        u"Die Mitglieder von 2025 fehlen, obwohl andere Dateien dieses Jahres da sind. Keine Vorauszahlung wird abgezogen."_s, {} },
    { "C23b", [](CheckClub& c) { for (const char* name : { "Mitgliedsdaten2025.pz", "Konto2025.pz", "HandKasse2025.pz" }) c.Raw[QString::fromLatin1(name)] = std::nullopt; c.Raw[u"Config.ini"_s] = QByteArray("[2026]\r\n"); },
        [](CheckClub& c) { c.Raw[u"Mitgliedsdaten2025.pz"_s] = std::nullopt; },
        u"Es gibt kein Vorjahr; keine Vorauszahlung wird abgezogen."_s, {} },
    { "C24", [](CheckClub& c) { c.LastYearTicks[1] = u"0"_s; }, [](CheckClub& c) { c.LastYearTicks[1] = u"0"_s; c.LastYearPrices.WaterPrice.clear(); },
        u"Zeile 7 zieht bei 28 Mitgliedern zusammen 1344,00 € ab; 2025 war aber keine Vorauszahlung Wasser gewählt."_s, {} },
    { "C25a", [](CheckClub& c) { c.LastYearPrices.WaterPrice = u"0,00"_s; }, [](CheckClub& c) { c.LastYearPrices.WaterPrice = u"0,00"_s; c.LastYearTicks[1] = u"0"_s; },
        u"2025 wurde Wasser vorausgezahlt, aber der Preis von 2025 fehlt. Bei niemandem wird etwas abgezogen."_s, {} },
    { "C25b", [](CheckClub& c) { c.LastYear[4][WaterStart].clear(); }, [](CheckClub& c) { c.LastYear[4][WaterStart].clear(); c.LastYear[4][WaterEnd].clear(); },
        u"2025 wurde vorausgezahlt, abgezogen wird nichts, weil ein Zählerstand von 2025 fehlt."_s, u"Platz 5, Thiele, Anna"_s },
    { "C26a", [](CheckClub& c) { c.Ticks[0] = u"0"_s; }, [](CheckClub& c) { c.Ticks[0] = c.LastYearTicks[0] = u"0"_s; },
        u"2025 war Vorauszahlung Strom gewählt, 2026 ist sie es nicht. Zeile 3 bleibt 0,00."_s, {} },
    { "C26b", [](CheckClub& c) { c.LastYearTicks[1] = u"-1"_s; }, [](CheckClub& c) { c.LastYearTicks[1].clear(); },
        u"Das Häkchen „Vorauszahlung Wasser“ von 2025 steht als „-1“ in der Datei und gilt als nicht gesetzt."_s, {} },
};
// clang-format on

} // namespace

class TestCheckMembers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_rule_finds_its_case_and_leaves_the_next_best_alone_data() { AddRuleRows(cases); }

    void each_rule_finds_its_case_and_leaves_the_next_best_alone()
    {
        QFETCH(const RuleCase*, rule);
        VerifyRule(*rule);
    }

    void a_shift_explains_what_follows_from_it()
    {
        CheckClub club;
        club.LastYear.removeAt(8);
        const CheckResult result = club.Check();
        QVERIFY(!FindingOf(result, u"C20"_s));
        QVERIFY(!FindingOf(result, u"C21"_s));
    }

    void members_far_behind_the_end_of_last_years_list_are_checked()
    {
        CheckClub club;
        club.LastYear.remove(20, 10);
        club.LastYearTicks = { u"0"_s, u"0"_s };
        const CheckResult result = club.Check();
        QVERIFY(FindingOf(result, u"C38"_s));
        QVERIFY(FindingOf(result, u"C24"_s));
    }

    void before_billing_time_missing_ends_are_a_hint()
    {
        CheckClub club(Season::January);
        const CheckResult result = club.Check();
        QVERIFY(FindingOf(result, u"C14b"_s));
        QVERIFY(!FindingOf(result, u"C14a"_s));
    }

    void a_tick_that_was_not_set_again_is_a_hint_before_billing_time()
    {
        CheckClub club(Season::January);
        club.Ticks[0] = u"0"_s;
        QCOMPARE(FindingOf(club.Check(), u"C26a"_s)->level, Level::Hint);
        CheckClub later;
        later.Ticks[0] = u"0"_s;
        QCOMPARE(FindingOf(later.Check(), u"C26a"_s)->level, Level::Warning);
    }

    void the_two_meters_never_share_an_entry()
    {
        CheckClub club;
        club.Members[4][ElectricityEnd].clear();
        club.Members[4][WaterEnd].clear();
        QCOMPARE(club.Check().Errors, 2);
    }
};

const TestFile<TestCheckMembers> test_file(__FILE__);
#include "test_check_members.moc"
