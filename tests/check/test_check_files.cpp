// The rules about the year, its files and the numbers in them.
#include "data/ansi_text.h"
#include "data/line_file.h"
#include "tests/check/rule_case.h"
#include "tests/support/test_file.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray MembersBytes(const CheckClub& club)
{
    QStringList lines;
    for (const MemberRecord& record : club.Members)
        lines += JoinRecord(record);
    return BytesOfLines(lines);
}

void Nothing(CheckClub&) { }

// clang-format off
const RuleCase cases[] {
    { "C01", [](CheckClub& c) { c.Spoil = [](CheckSource& s) { s.YearText = u"2025"_s; }; }, Nothing,
        u"Das Jahresfeld zeigt 2025, geladen ist 2026. Abrechnungen trügen das Jahr 2025, und alles, was Sie jetzt speichern, käme in die Dateien von 2025."_s, {} },
    { "C02a", [](CheckClub& c) { c.Spoil = [](CheckSource& s) { s.LoadedYear.clear(); s.Members = {}; }; },
        [](CheckClub& c) { c.Raw[u"Mitgliedsdaten2026.pz"_s] = std::nullopt; c.Spoil = [](CheckSource& s) { s.LoadedYear.clear(); s.Members = {}; }; },
        u"Die Mitglieder von 2026 sind nicht geladen."_s, {} },
    { "C02b", [](CheckClub& c) { c.Raw[u"Konto2026.pz"_s] = QByteArray(40000, 'x'); },
        [](CheckClub& c) { c.Raw[u"Konto2026.pz"_s] = "04.01.2026;" + QByteArray(30000, 'x') + ";1,00;0,00\r\n"; },
        u"Die Datei „Konto2026.pz“ lässt sich nicht lesen: Laufzeitfehler 6: Überlauf."_s, {} },
    { "C03", [](CheckClub& c) { c.Raw[u"HandKasse2026.pz"_s] = "04.01.2026;Guthaben;1,00;0,00\r\n02.02.2026;Kaffee;2,00;0,00\n"; },
        [](CheckClub& c) { c.Raw[u"V.dat"_s] = "KGV am Bach\n"; },
        u"Zeilen der Datei „HandKasse2026.pz“ sind nicht richtig getrennt; das Programm liest mehrere als eine. Beim Speichern geht davon etwas verloren."_s, {} },
    { "C03", [](CheckClub& c) { c.Raw[u"V.dat"_s] = "KGV\ram Bach\r\n"; }, Nothing,
        u"Zeilen der Datei „V.dat“ sind nicht richtig getrennt; das Programm liest mehrere als eine. Beim Speichern geht davon etwas verloren."_s, {} },
    { "C04", [](CheckClub& c) { c.Raw[u"V.dat"_s] = QByteArray("KGV Am M\xC3\xBChlgraben\r\n"); },
        [](CheckClub& c) { c.Raw[u"V.dat"_s] = QByteArray("KGV Am M\xFChlgraben\r\n"); },
        u"In der Datei „V.dat“ sind Umlaute anders gespeichert, als das Programm sie liest. Gedruckt würde zum Beispiel „MÃ¼hlgraben“."_s, {} },
    { "C04", [](CheckClub& c) { c.Raw[u"Config.ini"_s] = QByteArray("[2026]\r\nFl\xC3\xA4""che=0,05\r\n"); },
        [](CheckClub& c) { c.Raw[u"Config.ini"_s] = QByteArray("[2026]\r\nPacht=0,05\r\n"); },
        u"In der Datei „Config.ini“ sind Umlaute anders gespeichert, als das Programm sie liest. Gedruckt würde zum Beispiel „FlÃ¤che“. Preise und Termine mit Umlaut im Namen, „Fläche“ und „Überweisdatum“, werden gar nicht gefunden."_s, {} },
    { "C05a", [](CheckClub& c) { c.Members[4] = c.Members[4].mid(0, 12); }, Nothing,
        u"In diesen Zeilen fehlen Felder; ab Seite 5 bleiben alle Abrechnungen ohne Beträge."_s, u"Platz 5, Thiele, Anna: 12 statt 16 Felder"_s },
    { "C05b", [](CheckClub& c) { c.Members[4].insert(Street, u"Haus 2"_s); },
        [](CheckClub& c) { c.Members[4][Street] = u"Haus 2, hinten"_s; },
        u"Diese Zeilen haben zu viele Felder, meist durch einen getippten Strichpunkt. Alles dahinter steht ein Feld zu weit."_s,
        u"Platz 5, Thiele, Anna: 17 statt 16 Felder, unter „Feld 17“ steht „130“"_s },
    { "C05b", [](CheckClub& c) { c.Members[4].insert(PlotSize, u"hinten"_s); }, Nothing,
        u"Diese Zeilen haben zu viele Felder, meist durch einen getippten Strichpunkt. Alles dahinter steht ein Feld zu weit."_s,
        u"Platz 5, Thiele, Anna: 17 statt 16 Felder, unter „Größe“ steht „hinten“"_s },
    { "C05c", [](CheckClub& c) { c.LastYear[4] = c.LastYear[4].mid(0, 15); }, Nothing,
        u"In diesen Zeilen in der Liste von 2025 fehlen Felder; ab Seite 5 bleiben alle Abrechnungen ohne Beträge."_s, u"Platz 5, Thiele, Anna: 15 statt 16 Felder"_s },
    { "C05d", [](CheckClub& c) { c.LastYear[4] += u""_s; }, Nothing,
        u"Diese Zeilen in der Liste von 2025 haben zu viele Felder, meist durch einen getippten Strichpunkt. Alles dahinter steht ein Feld zu weit."_s,
        u"Platz 5, Thiele, Anna: 17 statt 16 Felder, unter „Feld 17“ steht „“"_s },
    { "C06", [](CheckClub& c) { c.Spoil = [](CheckSource& s) { s.Unsaved = { { u"Preise und Termine"_s, {} } }; }; }, Nothing,
        u"Noch nicht gespeichert: Preise und Termine. Abrechnungen und Dateien zeigen noch den alten Stand."_s, {} },
    { "C07", [](CheckClub& c) { c.Raw[u"sonderabrechnung Meier 2026.XLS"_s] = QByteArray("x"); },
        [](CheckClub& c) { c.Raw[u"SonderAbrechnungMeier2026.xls"_s] = QByteArray("x"); c.Raw[u"SonderAbrechnungNiemand2025.xls"_s] = QByteArray("x"); },
        u"„sonderabrechnung Meier 2026.XLS“ wird keinem Mitglied zugeordnet."_s, {} },
    { "C07", [](CheckClub& c) { c.Raw[u"SonderAbrechnungMeier2026.ods"_s] = QByteArray("x"); },
        [](CheckClub& c) { c.Raw[u"SonderAbrechnungNiemand2026.txt"_s] = QByteArray("x"); },
        u"„SonderAbrechnungMeier2026.ods“ wird keinem Mitglied zugeordnet. Sie wird auch nicht mitgesichert."_s, {} },
    { "C08a", [](CheckClub& c) { c.Members[2][LegalPremium] = u"frei"_s; }, [](CheckClub& c) { c.Members[2][LegalPremium] = u" 1.250,00 € "_s; },
        u"Hier steht keine Zahl; ab der ersten dieser Seiten bleiben die Abrechnungen ohne Beträge."_s, u"Platz 3, Lang, Anna: Rechtschutz „frei“"_s },
    { "C08a", [](CheckClub& c) { c.Members[2][WaterEnd] = u"120.5"_s; }, [](CheckClub& c) { c.Members[2][Instalments] = u"drei"_s; },
        u"Hier steht keine Zahl; ab der ersten dieser Seiten bleiben die Abrechnungen ohne Beträge."_s, u"Platz 3, Lang, Anna: Wasser Endstand „120.5“"_s },
    { "C08b", [](CheckClub& c) { c.Prices.Lease = u"0.1"_s; }, [](CheckClub& c) { c.Prices.Lease = u"-0,1"_s; },
        u"Unter „Pacht pro m²“ steht „0.1“, das ist keine Zahl. Keine Abrechnung wird fertig."_s, {} },
    { "C08c", [](CheckClub& c) { c.LastYear[2][ElectricityEnd] = u"?"_s; }, [](CheckClub& c) { c.LastYear[2][PlotSize] = u"?"_s; c.LastYear += c.LastYear[2]; c.LastYear.last()[WaterEnd] = u"?"_s; },
        u"Im Jahr 2025 steht bei einem Zählerstand keine Zahl."_s, u"Platz 3, Lang, Anna: Strom Endstand „?“"_s },
    { "C08d", [](CheckClub& c) { c.LastYearPrices.WaterPrice = u"2,4o"_s; }, [](CheckClub& c) { c.LastYearPrices.Lease = u"2,4o"_s; },
        u"Der Preis „Wasserkosten pro m³“ von 2025 ist keine Zahl: „2,4o“."_s, {} },
    { "C09a", [](CheckClub& c) { c.Members[2][BuildingPremium] = u"1.250"_s; }, [](CheckClub& c) { c.Members[2][BuildingPremium] = u"1.250,00"_s; },
        u"„1.250“ bei „Gebäude“ zählt als 1250, der Punkt trennt nur Tausender."_s, u"Platz 3, Lang, Anna"_s },
    { "C09a", [](CheckClub& c) { c.Prices.Lease = u"1.000"_s; }, [](CheckClub& c) { c.Members[2][ElectricityEnd] = u"1.220"_s; },
        u"„1.000“ bei „Pacht pro m²“ zählt als 1000, der Punkt trennt nur Tausender."_s, {} },
    { "C09b", [](CheckClub& c) { c.Prices.FlatEnergyCharge = u"8,005"_s; }, [](CheckClub& c) { c.Prices.Lease = u"0,125"_s; },
        u"„8,005“ bei „Energiepauschale“ wird auf 8,01 gerundet."_s, {} },
    { "C09b", [](CheckClub& c) { c.Members[2][AccidentPremium] = u"3,255"_s; }, [](CheckClub& c) { c.Members[2][PlotSize] = u"304,125"_s; },
        u"„3,255“ bei „Unfall“ wird auf 3,26 gerundet."_s, u"Platz 3, Lang, Anna"_s },
    { "C09c", [](CheckClub& c) { c.Members[2][LiabilityPremium] = u"-7,50"_s; }, [](CheckClub& c) { c.Members[2][WaterStart] = u"-7"_s; },
        u"„-7,50“ bei „Haftpflicht“ ist negativ und wird abgezogen."_s, u"Platz 3, Lang, Anna"_s },
};
// clang-format on

} // namespace

class TestCheckFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void each_rule_finds_its_case_and_leaves_the_next_best_alone_data() { AddRuleRows(cases); }

    void each_rule_finds_its_case_and_leaves_the_next_best_alone()
    {
        QFETCH(const RuleCase*, rule);
        VerifyRule(*rule);
    }

    void a_healthy_club_has_no_errors_and_no_warnings_all_year_data()
    {
        QTest::addColumn<Season>("season");
        QTest::newRow("January") << Season::January;
        QTest::newRow("half read") << Season::HalfRead;
        QTest::newRow("ready to print") << Season::ReadyToPrint;
    }

    void a_healthy_club_has_no_errors_and_no_warnings_all_year()
    {
        QFETCH(Season, season);
        CheckClub club(season);
        const CheckResult result = club.Check();
        for (const Finding& finding : result.All)
            QVERIFY2(
                finding.level == Level::Hint, qPrintable(finding.id + u' ' + finding.sentence));
        QCOMPARE(result.Members, 30);
        QCOMPARE(result.Bills, 30);
    }

    void a_file_that_is_torn_leaves_the_rules_about_its_lines_out()
    {
        CheckClub club;
        club.Raw[u"Mitgliedsdaten2026.pz"_s] = MembersBytes(club).replace("\r\n", "\r") + "\n";
        const CheckResult result = club.Check();
        QVERIFY(FindingOf(result, u"C03"_s));
        QVERIFY(!FindingOf(result, u"C05b"_s));
        QVERIFY(!FindingOf(result, u"C38"_s));
    }

    void hostile_data_are_findings_and_never_end_the_report_data()
    {
        QTest::addColumn<Change>("spoil");
        const std::pair<const char*, Change> ways[] {
            { "short records", [](CheckClub& c) { c.Members.fill({ u"x"_s }); } },
            { "empty records", [](CheckClub& c) { c.Members.fill({ QString() }); } },
            { "NUL bytes",
                [](CheckClub& c) { c.Raw[u"Konto2026.pz"_s] = QByteArray(3000, '\0'); } },
            { "NUL names", [](CheckClub& c) { c.Members[0][Surname] = QString(20, QChar(0)); } },
            { "huge amounts",
                [](CheckClub& c) {
                    const QString huge(300, u'9');
                    c.Members[0][BuildingPremium] = c.Members[0][ElectricityEnd] = huge;
                    c.Prices.Lease = huge;
                    c.BankLines += u"01.01.0000;x;%1;%1"_s.arg(huge);
                    c.LastYearBankLines += u"01.01.0000;x;%1;0,00"_s.arg(huge);
                } },
            { "year 0", [](CheckClub& c) { c.Prices.PaymentDeadline = u"01.01.0000"_s; } },
            { "no files at all",
                [](CheckClub& c) {
                    for (const char* name : { "Mitgliedsdaten2026.pz", "Mitgliedsdaten2025.pz",
                             "Konto2026.pz", "Konto2025.pz", "HandKasse2026.pz", "HandKasse2025.pz",
                             "V.dat", "Config.ini" })
                        c.Raw[QString::fromLatin1(name)] = std::nullopt;
                } },
        };
        for (const auto& [name, spoil] : ways)
            QTest::newRow(name) << spoil;
    }

    void hostile_data_are_findings_and_never_end_the_report()
    {
        QFETCH(Change, spoil);
        CheckClub club;
        spoil(club);
        const CheckResult result = club.Check();
        QVERIFY(!result.All.empty());
        for (const Finding& finding : result.All)
            QVERIFY2(!finding.sentence.contains(u"konnte nicht geprüft werden"_s),
                qPrintable(finding.sentence));
    }

    void as_many_members_as_a_list_can_hold_are_checked()
    {
        CheckClub club;
        while (club.Members.size() < 32767) {
            club.Members += club.Members[club.Members.size() % 30];
            club.LastYear += club.LastYear[club.LastYear.size() % 30];
        }
        club.LastYear.removeAt(3);
        const CheckResult result = club.Check();
        QCOMPARE(result.Members, 32767);
        QVERIFY(FindingOf(result, u"C10a"_s));
    }

    void a_rule_that_fails_says_so()
    {
        CheckClub club;
        const std::vector<CheckRule> rules { { u"C17"_s,
            [](const CheckData&, Findings& findings) {
                Add(findings, { u"C17a"_s, Level::Error, u"half"_s });
                throw std::length_error("too long");
            } } };
        const CheckResult result = RunCheck(club.Load(), rules);
        QCOMPARE(result.All.size(), std::size_t(1));
        QCOMPARE(result.All[0].sentence, u"Regel C17 konnte nicht geprüft werden."_s);
    }
};

const TestFile<TestCheckFiles> test_file(__FILE__);
#include "test_check_files.moc"
