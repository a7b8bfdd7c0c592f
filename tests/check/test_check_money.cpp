// The rules about prices, bank and names, the pages and the cash book.
#include "cashbook/ledger_file.h"
#include "history/sent_out.h"
#include "history/shown_total.h"
#include "tests/check/rule_case.h"
#include "tests/support/test_file.h"

using namespace Qt::StringLiterals;

namespace {

/// The first member's bill was printed with that total.
void SendOut(const CheckSource& source, const QString& total)
{
    KeepSentBills(source.Files, source.Statement.Source.YearText, SentHow::Printed,
        { { 1, source.Members.NameList.value(0), total } });
}

void Nothing(CheckClub&) { }

void ClearPrices(CheckClub& club)
{
    for (std::size_t field = 0; field < 7; ++field)
        PriceText(club.Prices, field) = field % 2 == 0 ? u"0,00"_s : QString();
}

void SetPrices(CheckClub& club, const QString& text)
{
    for (std::size_t field = 0; field < 7; ++field)
        PriceText(club.Prices, field) = PriceText(club.LastYearPrices, field);
    club.Prices.Lease = text;
}

/// Too many members with no reading at all, and one of them with a bill of nothing.
void FreeBill(CheckClub& club, int k)
{
    club.Members[k] = club.Members[k].mid(0, PlotNumber) + QStringList(11);
    club.LastYear[k] = club.Members[k];
    club.Prices.FlatEnergyCharge = club.LastYearPrices.FlatEnergyCharge = u"0,00"_s;
}

// clang-format off
const RuleCase cases[] {
    { "C27a", ClearPrices, [](CheckClub& c) { ClearPrices(c); c.Prices.MembershipFee = u"40,00"_s; },
        u"Für 2026 sind keine Preise eingetragen."_s, {} },
    { "C27b", [](CheckClub& c) { c.Prices.WaterPrice.clear(); }, [](CheckClub& c) { c.Prices.WaterPrice.clear(); for (MemberRecord& m : c.Members) m[WaterEnd] = m[WaterStart]; },
        u"Der Preis für Wasser fehlt; 29 Mitglieder zahlen für ihren Verbrauch nichts."_s, {} },
    { "C28a", [](CheckClub& c) { c.Prices.PropertyTax = u"0"_s; }, [](CheckClub& c) { c.Prices.PropertyTax = c.LastYearPrices.PropertyTax = u"0"_s; },
        u"„Grundsteuern (GS)A“ ist leer, 2025 waren es 0,02."_s, {} },
    { "C28b", [](CheckClub& c) { c.Prices.Lease = u"1,0"_s; }, [](CheckClub& c) { c.Prices.Lease = u"0,30"_s; },
        u"„Pacht pro m²“ 1,0, 2025 0,10: Das ist weit auseinander."_s, {} },
    { "C29", [](CheckClub& c) { SetPrices(c, c.LastYearPrices.Lease); }, [](CheckClub& c) { SetPrices(c, u"0,1"_s); },
        u"Alle Preise sind dieselben wie 2025."_s, {} },
    { "C30", [](CheckClub& c) { c.Prices.RepairLevy = u"5,00"_s; }, Nothing,
        u"Die Reparaturumlage (5,00) wird auf keiner Abrechnung berechnet."_s, {} },
    { "C30", [](CheckClub& c) { c.Prices.RepairLevy = u"5,00"_s; c.Spoil = [](CheckSource& s) { s.Prices.RepairLevy.clear(); }; }, Nothing,
        u"Die Reparaturumlage (5,00) wird auf keiner Abrechnung berechnet. Beim nächsten Speichern der Preise geht sie verloren."_s, {} },
    { "C31a", [](CheckClub& c) { c.Prices.PaymentDeadline = u"0,00"_s; }, [](CheckClub& c) { c.Prices.PaymentDeadline = u"1.12.26"_s; },
        u"Der Zahlungstermin fehlt; auf jeder Abrechnung stünde „Termin 0,00“."_s, {} },
    { "C31b", [](CheckClub& c) { c.Prices.PaymentDeadline = u"bald"_s; }, Nothing,
        u"Als Zahlungstermin steht auf jeder Abrechnung „bald“."_s, {} },
    { "C32a", [](CheckClub& c) { c.Prices.PaymentDeadline = u"20.12.2025"_s; }, [](CheckClub& c) { c.Prices.PaymentDeadline = u"20.02.2027"_s; },
        u"Der Zahlungstermin 20.12.2025 passt nicht zum Jahr 2026."_s, {} },
    { "C32a", [](CheckClub& c) { c.Prices.PaymentDeadline = u"19.11.2026"_s; }, [](CheckClub& c) { c.Prices.PaymentDeadline = u"20.11.2026"_s; },
        u"Der Zahlungstermin 19.11.2026 liegt vor dem Abrechnungsdatum 20.11.2026."_s, {} },
    { "C32b", [](CheckClub& c) { c.Today = { 2026, 12, 21 }; }, [](CheckClub& c) { c.Today = { 2026, 12, 20 }; },
        u"Der Zahlungstermin 20.12.2026 ist schon vorbei."_s, {} },
    { "C32c", [](CheckClub& c) { c.Prices.BillingDate = u"Bitte aktualisieren"_s; }, Nothing,
        u"Das Abrechnungsdatum ist noch nicht gewählt. Gedruckt wird es nicht."_s, {} },

    { "C33a", [](CheckClub& c) { c.Raw[u"V.dat"_s] = "Hier bitte Ihren Vereinsnamen eingeben\r\n"; }, [](CheckClub& c) { c.Raw[u"V.dat"_s] = "Hier\r\n"; },
        u"Als Vereinsname ist der Beispieltext gespeichert; so steht er auf jeder Abrechnung."_s, {} },
    { "C33b", [](CheckClub& c) { c.Raw[u"V.dat"_s] = std::nullopt; }, Nothing, u"Der Vereinsname fehlt auf den Abrechnungen."_s, {} },
    { "C34", [](CheckClub& c) { c.Bank.Iban = u"DE06 0000 0000 0000 0047 12"_s; }, [](CheckClub& c) { c.Bank.Iban = u"de06000000000000004711"_s; },
        u"Die IBAN „DE06 0000 0000 0000 0047 12“ kann nicht stimmen: Ihre Prüfziffer oder ihre Länge passt nicht."_s, {} },
    { "C34", [](CheckClub& c) { c.Bank.Iban = u"rotf de 00 xxx"_s; }, [](CheckClub& c) { c.Bank.Iban.clear(); },
        u"Im Feld IBAN steht eine BIC."_s, {} },
    { "C35a", [](CheckClub& c) { c.Bank.TreasurerSalutation.clear(); }, [](CheckClub& c) { c.Bank.Bic.clear(); },
        u"„Anrede“ ist leer; auf der Abrechnung bleibt dort eine Lücke."_s, {} },
    { "C35b", [](CheckClub& c) { c.Bank.Bic = u"ROTFDE0"_s; }, [](CheckClub& c) { c.Bank.Bic = u"rotf de 00"_s; },
        u"Die BIC „ROTFDE0“ hat nicht die übliche Form."_s, {} },
    { "C35c", [](CheckClub& c) { c.Bank.Bic = u"ROTFAT00XXX"_s; }, [](CheckClub& c) { c.Bank.Bic = u"ROTFDE00XXX"_s; },
        u"IBAN und BIC gehören zu verschiedenen Ländern."_s, {} },
    { "C36", [](CheckClub& c) { c.Bank.FirstContact = u"meier, Anna"_s; }, [](CheckClub& c) { c.Bank.FirstContact = u"Meier,Ida"_s; },
        u"Ansprechpartner „meier, Anna“ steht so nicht in der Mitgliederliste; auf jeder Abrechnung steht „Datensatz fehlt“. Gemeint ist wohl „Meier,Anna“."_s, {} },
    { "C36", [](CheckClub& c) { c.Bank.SecondContact.clear(); }, Nothing,
        u"Ansprechpartner 2 ist leer; auf jeder Abrechnung steht dort „Datensatz fehlt“."_s, {} },
    { "C37a", [](CheckClub& c) { c.Members[0][Town] = u"Rotenfeld"_s; }, [](CheckClub& c) { c.Members[11][Town] = u"Rotenfeld"_s; },
        u"Die Schlusszeile beginnt mit „eld, den …“."_s, {} },
    { "C37b", [](CheckClub& c) { c.Members[0][Telephone] = u"030 123456 / 0171 1234"_s; }, [](CheckClub& c) { c.Members[0][Telephone] = u"030 12345 / 0171 123"_s; },
        u"Die Telefonnummer von Meier, Anna wird auf 20 Zeichen gekürzt: „030 123456 / 0171 12“."_s, {} },
    { "C37c", [](CheckClub& c) { c.Members[0][Street] = u"Am Mühlgraben, Haus 3"_s; }, [](CheckClub& c) { c.Members[0][Street] = u"Am Mühlgraben Haus 3"_s; },
        u"„Am Mühlgraben, Haus 3“ wird auf 20 Zeichen gekürzt: „Am Mühlgraben, Haus “."_s, {} },
    { "C37d", [](CheckClub& c) { c.Members[0][Telephone].clear(); }, [](CheckClub& c) { c.Members[1][Telephone].clear(); },
        u"Meier, Anna hat keine Telefonnummer."_s, {} },
    { "C37e", [](CheckClub& c) { c.Bank.SecondContact = c.Bank.FirstContact; }, Nothing, u"Beide Ansprechpartner sind Meier, Anna."_s, {} },

    { "C38", [](CheckClub& c) { c.Members[4][LegalPremium] = u"frei"_s; }, [](CheckClub& c) { c.Members[4][Instalments] = u"frei"_s; },
        u"Ab Seite 5 (Thiele, Anna) fehlen alle Beträge. Gedruckt würden die Seiten trotzdem."_s, u"Platz 5, Thiele, Anna: C08"_s },
    { "C38", [](CheckClub& c) { c.Members[4][ElectricityEnd] = QString(60, u'9'); }, Nothing,
        u"Ab Seite 5 (Thiele, Anna) fehlen alle Beträge. Gedruckt würden die Seiten trotzdem."_s, u"Platz 5, Thiele, Anna: Ein Betrag ist zu groß"_s },
    { "C39", [](CheckClub& c) { c.Members[4][Street] = QString(49, u'W'); }, [](CheckClub& c) { c.Members[4][Street] = QString(48, u'W'); },
        u"Passt nicht auf die Abrechnung: „WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW“ (Anschriftenfeld)."_s, u"Platz 5, Thiele, Anna"_s },
    { "C39", [](CheckClub& c) { c.Members[4][PlotSize] = u"308,000000"_s; }, [](CheckClub& c) { c.Members[4][PlotSize] = u"308,00000"_s; },
        u"Passt nicht auf die Abrechnung: „308,000000“ (Spalte Verbrauch)."_s, u"Platz 5, Thiele, Anna"_s },
    { "C39", [](CheckClub& c) { c.Prices.Lease = u"0,100000000000"_s; }, [](CheckClub& c) { c.Prices.Lease = u"0,10000000000"_s; },
        u"Passt nicht auf die Abrechnung: „0,100000000000“ (Spalte Umrechnungsfaktor)."_s, {} },
    { "C39", [](CheckClub& c) { c.Bank.BankName = QString(60, u'x'); }, [](CheckClub& c) { c.Bank.BankName = QString(40, u'x'); },
        u"Passt nicht auf die Abrechnung: „Wir bitten um Überweisung der Gesamtsumme auf das Konto der xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx“ (Überweisungssatz)."_s, {} },
    { "C40a", [](CheckClub& c) { FreeBill(c, 4); c.Prices.MembershipFee = u"0,00"_s; }, [](CheckClub& c) { FreeBill(c, 4); },
        u"Gesamtsumme 0,00 €; die Abrechnung bittet trotzdem um Überweisung."_s, u"Platz 5, Thiele, Anna"_s },
    { "C40b", [](CheckClub& c) { c.Members[4][BuildingPremium] = u"1000,00"_s; }, [](CheckClub& c) { c.Members[4][BuildingPremium] = u"500,00"_s; },
        u"Gesamtsumme 1197,06 €, mehr als das Fünffache der üblichen."_s, u"Platz 5, Thiele, Anna"_s },
    { "C41", [](CheckClub& c) { c.Spoil = [](CheckSource& s) { s.WidthOf = [](const PageText& t) { return static_cast<int>(t.text.size()) * 5; }; }; }, Nothing,
        u"Die Schrift der Abrechnung fehlt auf diesem Rechner. Zahlen und Wörter stehen nicht an ihrem Platz, „m²“ und „m³“ können fehlen."_s, {} },

    { "C42", [](CheckClub& c) { c.CashBoxLines += u"03.05.2026;Farbe;0,00;90,00"_s; }, [](CheckClub& c) { c.CashBoxLines += u"03.05.2026;Farbe;0,00;75,01"_s; },
        u"Die Handkasse steht bei -14,99 €; eine Kasse kann nicht im Minus sein."_s, {} },
    { "C43a", [](CheckClub& c) { c.BankLines.insert(1, QString()); }, [](CheckClub& c) { c.BankLines += QString(); },
        u"Zeile 2 ist leer; 2 Buchungen dahinter werden nicht gelesen und gehen beim Speichern verloren."_s, u"Konto"_s },
    { "C43b", [](CheckClub& c) { c.BankLines[1] = u"01.03.2026;Zeitung;Garten;0,00;45,90"_s; },
        [](CheckClub& c) { c.BankLines = { u"04.01.2026;Übertrag Saldo 2025;0,00;0,00;650,00"_s, u"01.03.2026;Gartenzeitung;0,00;45,90;604,10"_s }; },
        u"Zeile 2 hat 5 statt 4 Felder, meist durch einen Strichpunkt im Vorgang; alles hinter dem vierten geht beim Speichern verloren."_s,
        u"Konto: „01.03.2026;Zeitung;Garten;0,00;45,90“"_s },
    { "C43c", [](CheckClub& c) { c.BankLines[1] = u"01.03.2026;Gartenzeitung"_s; }, Nothing,
        u"Zeile 2 hat nur 2 Felder; der Betrag fehlt."_s, u"Konto"_s },
    { "C43d", [](CheckClub& c) { c.CashBoxLines[0] = u"04.01.2026;Übertrag Saldo 2025;0,00;0,00;80,00"_s; }, [](CheckClub& c) { c.CashBoxLines[0] = u"04.01.2026;Übertrag Saldo 2025;80,00;0,00;80,00"_s; },
        u"Der Anfangsbestand 80,00 steht in Zeile 1 im fünften Feld; in der Handkasse zählt er nicht und geht beim Speichern verloren."_s, u"Handkasse"_s },
    { "C44a", [](CheckClub& c) { c.BankLines += u"31.02.2026;Spende;5,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"28.02.2026;Spende;5,00;0,00"_s; },
        u"„31.02.2026“ ist kein Tag; die Buchung wird falsch eingeordnet."_s, u"Konto: 31.02.2026 Spende 5,00"_s },
    { "C44b", [](CheckClub& c) { c.BankLines += u"31.12.2025;Spende;5,00;0,00"_s; }, [](CheckClub& c) { c.BankLines[0] = u"31.12.2025;Übertrag Saldo 2025;650,00;0,00"_s; },
        u"Die Buchung vom 31.12.2025 liegt nicht im Jahr 2026."_s, u"Konto: 31.12.2025 Spende 5,00"_s },
    { "C44b", [](CheckClub& c) { c.BankLines += u"23.12.2026;Spende;5,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"22.12.2026;Spende;5,00;0,00"_s; },
        u"Die Buchung vom 23.12.2026 liegt in der Zukunft."_s, u"Konto: 23.12.2026 Spende 5,00"_s },
    { "C45", [](CheckClub& c) { c.BankLines += u"01.06.2026;Spende;fünf;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"01.06.2026;Spende"_s; },
        u"„fünf“ ist keine Zahl und zählt als 0,00."_s, u"Konto: 01.06.2026 Spende"_s },
    { "C46a", [](CheckClub& c) { c.BankLines += u"01.06.2026;Storno;-5,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"01.06.2026;Übertrag Saldo 2024;-5,00;0,00"_s; },
        u"Negativer Betrag -5,00."_s, u"Konto: 01.06.2026 Storno -5,00"_s },
    { "C46b", [](CheckClub& c) { c.BankLines += u"01.06.2026;Tausch;5,00;5,00"_s; }, Nothing,
        u"Einzahlung und Abhebung in einer Buchung."_s, u"Konto: 01.06.2026 Tausch 5,00"_s },
    { "C46c", [](CheckClub& c) { c.BankLines += u"01.06.2026;Nichts;0,00;0"_s; }, [](CheckClub& c) { c.BankLines += u"01.06.2026;Etwas;0,00;0,01"_s; },
        u"Buchung ohne Betrag."_s, u"Konto: 01.06.2026 Nichts 0"_s },
    { "C46d", [](CheckClub& c) { c.BankLines += u"01.06.2026;;5,00;0,00"_s; }, Nothing, u"Buchung ohne Vorgang."_s, u"Konto: 01.06.2026  5,00"_s },
    { "C46e", [](CheckClub& c) { c.BankLines += u"01.03.2026;Gartenzeitung;0;45,9"_s; }, [](CheckClub& c) { c.BankLines += u"02.03.2026;Gartenzeitung;0,00;45,90"_s; },
        u"Zweimal gleich gebucht."_s, {} },
    { "C47a", [](CheckClub& c) { c.BankLines += u"05.01.2026;Übertrag Saldo 2025;650,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"05.01.2026;Übertrag Saldo 2024;650,00;0,00"_s; },
        u"Der Übertrag aus 2025 steht zweimal im Konto."_s, u"Konto"_s },
    { "C47b", [](CheckClub& c) { c.BankLines.removeFirst(); }, [](CheckClub& c) { c.BankLines[0] = u"04.01.2026;Guthaben;650,00;0,00"_s; },
        u"Der Übertrag aus 2025 fehlt; es wären 650,00 €."_s, u"Konto"_s },
    { "C47c", [](CheckClub& c) { c.CashBoxLines[0] = u"04.01.2026;Übertrag Saldo 2025;80,01;0,00"_s; },
        [](CheckClub& c) { c.LastYearBankLines = { u"02.01.2025;Guthaben;123456,79;0,00"_s, u"03.01.2025;Guthaben;123456,70;0,00"_s }; c.BankLines[0] = MakeCarryOver(c.LastYearBankLines, u"2025"_s, { 2026, 1, 4 }).line; },
        u"Der Übertrag ist 80,01 €, 2025 endet aber mit 80,00 €."_s, u"Handkasse"_s },
    { "C48a", [](CheckClub& c) { c.CashBoxLines.clear(); }, [](CheckClub& c) { c.CashBoxLines.clear(); c.Raw[u"HandKasse2025.pz"_s] = std::nullopt; },
        u"Die Handkasse 2026 ist noch nicht eröffnet; ihr Übertrag aus 2025 fehlt, und 2027 begänne sie mit 0,00 €."_s, {} },
    { "C48b", [](CheckClub& c) { c.CashBoxLines.clear(); c.Raw[u"HandKasse2025.pz"_s] = std::nullopt; c.Raw[u"HandKasse2016.pz"_s] = "01.02.2016;Guthaben;80,00;0,00\r\n"; },
        [](CheckClub& c) { c.CashBoxLines.clear(); c.Raw[u"HandKasse2025.pz"_s] = std::nullopt; c.Raw[u"HandKasse2015.pz"_s] = "01.02.2015;Guthaben;80,00;0,00\r\n"; },
        u"Handkasse: Das Jahr 2025 fehlt; der Bestand von 2016 (80,00 €) ist nicht weitergeführt."_s, {} },
    { "C49", [](CheckClub& c) { c.BankLines += u"01.06.2026;Erbschaft;200000,03;0,00"_s; c.BankLines += u"02.06.2026;Zins;0,07;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"01.06.2026;Erbschaft;20000,03;0,00"_s; },
        u"Unter „Kontoführung“ steht 200624,19 €, genau gerechnet sind es 200624,20 €. Bei größeren Beträgen rundet das Programm."_s, u"Konto"_s },
    { "C50a", [](CheckClub& c) { c.BankLines += u"01.12.2026;Abrechnung Maier;120,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"01.12.2026;Abrechnung Meierhof;120,00;0,00"_s; },
        u"Diese Zahlung ist keinem Mitglied zugeordnet."_s, u"Konto: 01.12.2026 Abrechnung Maier 120,00"_s },
    { "C50b", [](CheckClub& c) { c.BankLines += u"01.12.2026;Abrechnung Langer;120,00;0,00"_s; }, [](CheckClub& c) { c.BankLines += u"01.12.2026;Abrechnung (Lang)/2026;120,00;0,00"_s; },
        u"Als bezahlt markiert, aber gebucht ist „Abrechnung Langer“."_s, u"Konto: Lang"_s },
    { "C50c", [](CheckClub& c) { c.BankLines += u"01.12.2026;Abrechnung Lang;120,00;0,00"_s; }, [](CheckClub& c) { for (int i = 1; i < 4; ++i) c.BankLines += u"0%1.12.2026;Abrechnung Lang;120,00;0,00"_s.arg(i); },
        u"3 Mitglieder heißen Lang und sind als bezahlt markiert, gebucht ist aber erst 1 Zahlung."_s, u"Konto"_s },
    { "C51", [](CheckClub& c) { c.Spoil = [](CheckSource& s) { SendOut(s, u"1,00"_s); }; }, [](CheckClub& c) { c.Spoil = [](CheckSource& s) { SendOut(s, ShownTotal(s.Statement.DrawnTotals.value(0))); }; },
        u"Abrechnungen sind anders als die, die hinausgegangen sind."_s, {} },
};
// clang-format on

} // namespace

class TestCheckMoney : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_rule_finds_its_case_and_leaves_the_next_best_alone_data() { AddRuleRows(cases); }

    void each_rule_finds_its_case_and_leaves_the_next_best_alone()
    {
        QFETCH(const RuleCase*, rule);
        VerifyRule(*rule);
    }

    void no_other_text_than_an_iban_passes_as_one_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<bool>("passes");
        const auto row = [](const char* name, const QString& iban, bool passes) {
            QTest::newRow(name) << iban << passes;
        };
        row("Austria", u"AT61 1904 3002 3457 3201"_s, true);
        row("the shortest", u"NO93 8601 1117 947"_s, true);
        row("with letters", u"mt84 malt 0110 0001 2345 mtlc ast0 01s"_s, true);
        row("too short", u"NO93 8601 1117 94"_s, false);
        row("too long", u"MT84"_s + QString(31, u'0'), false);
        row("no country", u"0661 1904 3002 3457 3201"_s, false);
        row("no check digits", u"ATX1 1904 3002 3457 3201"_s, false);
        row("a hyphen", u"AT61 1904-3002 3457 3201"_s, false);
        row("German and a digit short", u"DE2800000000000000047"_s, false);
        row("German and a digit long", u"DE851111111111111111111"_s, false);
        row("a BIC with a hyphen", u"ROTF-DE00XXX"_s, false);
    }
    void no_other_text_than_an_iban_passes_as_one()
    {
        QFETCH(QString, iban);
        QFETCH(bool, passes);
        CheckClub club;
        club.Bank.Iban = iban;
        const auto found = FindingOf(club.Check(), u"C34"_s);
        QCOMPARE(found.has_value(), !passes);
        if (found) {
            QCOMPARE(found->sentence,
                u"Die IBAN „%1“ kann nicht stimmen: Ihre Prüfziffer oder ihre Länge passt nicht."_s
                    .arg(iban));
        }
    }

    void the_countries_of_a_wrong_iban_and_a_bic_are_not_compared()
    {
        CheckClub club;
        club.Bank.Iban = u"DE06 0000 0000 0000 0047 12"_s;
        club.Bank.Bic = u"ROTFAT00XXX"_s;
        QVERIFY(!FindingOf(club.Check(), u"C35c"_s));
    }

    void a_missing_club_name_is_typed_where_its_box_is_shown()
    {
        CheckClub club;
        club.Raw[u"V.dat"_s] = std::nullopt;
        club.Spoil = [](CheckSource& source) { source.ClubNameBoxShown = true; };
        const auto shown = FindingOf(club.Check(), u"C33b"_s);
        QCOMPARE(shown->remedy, u"Tragen Sie ihn oben ein und drücken Sie „Speichern“ daneben."_s);
        QCOMPARE(shown->target.control, u"Text5"_s);
        club.Spoil = [](CheckSource& source) { source.ClubName = u"KGV Rotenfeld"_s; };
        const auto hidden = FindingOf(club.Check(), u"C33b"_s); // the file is gone since the start
        QVERIFY(hidden->remedy.startsWith(u"Beenden Sie das Programm, löschen Sie"_s));
        QVERIFY(hidden->target.kind == LinkKind::None);
    }

    void a_missing_deadline_is_a_hint_before_billing_time()
    {
        CheckClub club(Season::January);
        QCOMPARE(FindingOf(club.Check(), u"C31a"_s)->level, Level::Hint);
        CheckClub later;
        later.Prices.PaymentDeadline.clear();
        QCOMPARE(FindingOf(later.Check(), u"C31a"_s)->level, Level::Error);
    }

    void an_unopened_cash_box_is_a_hint_before_billing_time()
    {
        CheckClub club(Season::January);
        QCOMPARE(FindingOf(club.Check(), u"C48a"_s)->level, Level::Hint);
    }

    void an_account_that_could_not_be_read_is_left_alone()
    {
        CheckClub club;
        club.BankLines += u"31.02.2026;Spende;fünf;0,00"_s;
        club.Spoil = [](CheckSource& source) { source.Accounts[0].Unread = true; };
        const CheckResult result = club.Check();
        QVERIFY(!FindingOf(result, u"C44a"_s));
        QVERIFY(!FindingOf(result, u"C45"_s));
    }

    void many_surnames_are_looked_for_as_few_are_data()
    {
        QTest::addColumn<QString>("surname");
        QTest::addColumn<bool>("marked");
        QTest::newRow("within a word") << u"Lang"_s << true;
        QTest::newRow("at the end") << u"ger"_s << true;
        QTest::newRow("two signs") << u"La"_s << true;
        QTest::newRow("other threes") << u"Lanz"_s << false;
        QTest::newRow("of two texts") << u"gerAb"_s << false;
        QTest::newRow("the threes alone") << u"angerechnung"_s << false;
    }
    void many_surnames_are_looked_for_as_few_are()
    {
        QFETCH(QString, surname);
        QFETCH(bool, marked);
        CheckClub club;
        for (int k = 0; k < club.Members.size(); ++k)
            club.Members[k][Surname] = u"Xx%1"_s.arg(k);
        club.Members[3][Surname] = surname;
        club.BankLines += { u"01.12.2026;Abrechnung Langer;120,00;0,00"_s,
            u"02.12.2026;Abrechnung;1,00;0,00"_s };
        const auto found = FindingOf(club.Check(), u"C50b"_s);
        QCOMPARE(found.has_value(), marked);
        if (marked)
            QCOMPARE(found->rows.front().text, u"Konto: "_s + surname);
    }

    void a_surname_of_several_words_is_looked_for_as_a_whole()
    {
        const auto marks = [](const QString& text) {
            CheckClub club;
            club.Members[0][Surname] = u"van Dyk"_s;
            club.BankLines += u"01.12.2026;"_s + text + u";120,00;0,00"_s;
            return FindingOf(club.Check(), u"C50b"_s);
        };
        QVERIFY(!marks(u"Abrechnung van Dyk"_s));
        QVERIFY(!marks(u"van Dyk, Abrechnung"_s));
        QVERIFY(!marks(u"Abrechnung van Dyken (van Dyk)"_s));
        QCOMPARE(marks(u"Abrechnung van Dyken"_s)->sentence,
            u"Als bezahlt markiert, aber gebucht ist „Abrechnung van Dyken“."_s);
        QCOMPARE(marks(u"Abrechnung Evan Dyk"_s)->rows.front().text, u"Konto: van Dyk"_s);
    }

    void no_surname_marks_nobody()
    {
        CheckClub club;
        club.Members[0][Surname].clear();
        club.BankLines += u"01.12.2026;Abrechnung Schmidt;120,00;0,00"_s;
        const CheckResult result = club.Check();
        QVERIFY(!FindingOf(result, u"C50b"_s));
        QVERIFY(FindingOf(result, u"C50a"_s).has_value());
    }

    void what_is_no_payment_of_a_bill_is_left_alone()
    {
        CheckClub club;
        club.BankLines += { u"01.12.2026;Rechnung Langer;120,00;0,00"_s,
            u"02.12.2026;abrechnung Langer;120,00;0,00"_s,
            u"03.12.2026;Abrechnung Maier;0,00;120,00"_s };
        const CheckResult result = club.Check();
        QVERIFY(!FindingOf(result, u"C50a"_s));
        QVERIFY(!FindingOf(result, u"C50b"_s));
    }

    void each_booking_of_a_wrong_day_is_named()
    {
        CheckClub club;
        club.BankLines += { u"31.12.2025;Saat;5,00;0,00"_s, u"31.12.2025;Erde;6,00;0,00"_s,
            u"01.03.2026;Laub;7,00;0,00"_s, u"31.12.2025;Torf;8,00;0,00"_s };
        QCOMPARE(FindingOf(club.Check(), u"C44b"_s)->rows.size(), std::size_t { 3 });
    }

    void texts_alike_at_one_end_are_not_booked_twice()
    {
        CheckClub club;
        for (const QString& text :
            { u"Saat"_s, u"Saat 1"_s, u"Saat 12"_s, u"Saat 123"_s, u"1 Saat"_s, u"2 Saat"_s })
            club.BankLines += u"01.03.2026;"_s + text + u";5,00"_s;
        QVERIFY(!FindingOf(club.Check(), u"C46e"_s));
        club.BankLines += { u"02.03.2026;Laub;0;3"_s, u"01.03.2026;Saat 123;5"_s };
        QCOMPARE(FindingOf(club.Check(), u"C46e"_s)->rows.size(), std::size_t { 1 });
    }

    void an_amount_is_what_its_field_holds()
    {
        CheckClub club;
        club.BankLines += { u"01.03.2026;Saat;1.234,50;0,00"_s, u"01.03.2026;Erde;0,001;2,00"_s,
            u"01.03.2026;Laub;5,00x;0,00"_s, u"01.03.2026;Torf;0,00;0,000"_s };
        const CheckResult result = club.Check();
        QCOMPARE(FindingOf(result, u"C45"_s)->rows.size(), std::size_t { 1 });
        QCOMPARE(FindingOf(result, u"C46b"_s)->rows.size(), std::size_t { 1 });
        QCOMPARE(FindingOf(result, u"C46c"_s)->rows.size(), std::size_t { 1 });
    }
};

const TestFile<TestCheckMoney> test_file(__FILE__);
#include "test_check_money.moc"
