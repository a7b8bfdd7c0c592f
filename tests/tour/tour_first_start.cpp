// The tour in an empty folder: a club begins.
#include "tests/tour/tour.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

static const ExpectedBox NoHistory { u"Hinweis"_s,
    u"Achtung ! Es ist am besten erst einen aktuelles Guthaben unter Ein & Ausgaben einzutragen da "
    "sonst das Konto mit Minus anfängt."_s,
    u"OK"_s };
static const ExpectedBox Saved { u"Hinweis"_s, u"Datenänderung ist gespeichert !"_s, u"OK"_s };

void Tour::a_club_begins_in_an_empty_folder()
{
    QVERIFY(QDir(Folder.path()).mkdir(u"Neuer Verein"_s));
    Club = ClubFolder { Folder.filePath(u"Neuer Verein"_s), {} };
    Start(QDate(2026, 3, 2),
        { NoHistory, { u"Datenfehler"_s, u"Für 2026 sind keine Daten gespeichert."_s, u"OK"_s } });
    QCOMPARE(Text(u"Label1(1)"_s), u"Vereinsname"_s);
    QCOMPARE(Text(u"Text5"_s),
        u"Hier bitte Ihren Vereinsnamen eingeben z.B.: KGV \"Lindenblick\" e.V. Wiesenrode"_s);
    QCOMPARE(Rows(u"List1"_s), QStringList());
    User->Picture(OutPath(u"erster-start.png"_s));
    User->Click(u"Text5"_s);
    User->Keys(u"Gärten am Hang"_s); // the hint is selected, so typing replaces it
    User->Click(u"Command22"_s);
    QVERIFY(!Shown(u"Text5"_s));
    QCOMPARE(Text(u"Label1(1)"_s), u"Gärten am Hang"_s);
    Club.Set(u"V.dat"_s, { u"Gärten am Hang"_s });
}

void Tour::its_prices_and_its_bank_are_typed()
{
    User->Tab(u"Einstellungen"_s);
    QCOMPARE(Text(u"Text4(0)"_s), u"0,00"_s);
    User->Type(u"Text4(0)"_s, u"0,35"_s);
    for (const QString& price :
        { u"2,10"_s, u"8,00"_s, u"30,00"_s, u"0,10"_s, u"0,02"_s, u"0,03"_s }) {
        User->Press(u"Tab"_s);
        User->Keys(price);
    }
    User->PickDay(u"Calendar1"_s, QDate(2026, 11, 16));
    User->PickDay(u"Calendar2"_s, QDate(2026, 12, 18));
    User->Expect(Saved.title, Saved.text, Saved.button);
    User->Click(u"Command5"_s);
    Club.Set(u"Config.ini"_s,
        { u"[2026]"_s, u"RepUmlage=0,00"_s, u"Stromkosten=0,35"_s, u"Wasserkosten=2,10"_s,
            u"Energiepauschale=8,00"_s, u"Beitrag=30,00"_s, u"Pacht=0,10"_s, u"Steuer=0,02"_s,
            u"Fläche=0,03"_s, u"Abrechnungsdatum=16.11.2026"_s, u"Überweisdatum=18.12.2026"_s,
            u"Vorauszahlung Strom=0"_s, u"Vorauszahlung Wasser=0"_s });

    const QStringList bank { u"Hangbank"_s, u"DE00 8765 4321 0000 1234 00"_s, u"HANGDE00XXX"_s };
    for (int field = 0; field < bank.size(); ++field)
        User->Type(u"Text6(%1)"_s.arg(field), bank[field]);
    User->Expect(Saved.title, Saved.text, Saved.button);
    User->Click(u"Command7"_s);
    Club.Set(u"Config1.ini"_s,
        { u"[Daten]"_s, u"Bankname=Hangbank"_s, u"BLZ=DE00 8765 4321 0000 1234 00"_s,
            u"Kontonummer=HANGDE00XXX"_s, u"Name1="_s, u"Name2="_s, u"Name="_s, u"Anrede=Frau"_s });
}

void Tour::its_first_member_gets_a_bill()
{
    User->Press(u"Ctrl+N"_s);
    for (const QString& field : { u"Quandt"_s, u"Öle"_s, u"Hangweg 1"_s, u"00421 Birkenried"_s,
             u""_s, u"1"_s, u"250"_s, u"1"_s }) {
        User->Keys(field);
        User->Press(u"Tab"_s);
    }
    User->Type(u"Text1(0)"_s, u"0"_s);
    User->Type(u"Text1(1)"_s, u"120"_s);
    User->Type(u"Text1(3)"_s, u"0"_s);
    User->Type(u"Text1(4)"_s, u"10"_s);
    User->Expect(NoHistory.title, NoHistory.text, NoHistory.button);
    User->Press(u"Ctrl+S"_s);
    Club.Set(u"Mitgliedsdaten2026.pz"_s,
        { u"Quandt;Öle;Hangweg 1;00421 Birkenried;;1;250;1;;;;;0;120;0;10"_s });
    QCOMPARE(Rows(u"List1"_s), QStringList { u"Quandt,Öle"_s });
    User->Press(u"Ctrl+2"_s);
    QCOMPARE(Text(u"Text9"_s), u"1"_s);
    User->Picture(OutPath(u"erste-abrechnung.png"_s));
}

void Tour::its_first_booking_opens_the_account()
{
    User->Press(u"Ctrl+3"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"0,00 €"_s);
    Book(u"02.03.2026"_s, u"Anfangsbestand"_s, u"812,40"_s, u"0,00"_s);
    User->ClickRow(u"List4"_s, 0);
    QCOMPARE(Text(u"Text10(2)"_s), u"138,50"_s); // 42 + 8 + 21 + 30 + 25 + 5 + 7,50
    User->Press(u"Ctrl+S"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"812,40 €"_s);
    Club.Set(u"Konto2026.pz"_s, { u"02.03.2026;Anfangsbestand;812,40;0,00"_s });
    Close(); // all is saved: nothing is asked
}
