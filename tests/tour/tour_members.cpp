// The tour on the tab "Stammdaten": members, readings, the years.
#include "tests/tour/tour.h"

#include "controls/fields.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>

using namespace Qt::StringLiterals;

/// The error box for a member who has no line in last year's file, which is line `line` of it.
static QString NoLineLastYear(int line, const QString& member)
{
    return u"Laufzeitfehler 9: Index außerhalb des gültigen Bereichs\n"
           "Datei „Mitgliedsdaten2025.pz“, Zeile %1, Mitglied „%2“: Dieses Mitglied hat im Vorjahr "
           "keine Zeile an derselben Stelle, deshalb fehlen seine Abrechnung und alle folgenden. "
           "Drücken Sie „Mehr“ und wählen Sie „Vorjahr abgleichen …“. Dieselbe Meldung für ein "
           "früheres Jahr können Sie übergehen."_s.arg(line)
               .arg(member);
}

void Tour::the_first_start_shows_the_members()
{
    Start(QDate(2026, 11, 20));
    QCOMPARE(program->Window.Window->windowTitle(), u"Kleingarten Parzello"_s);
    QCOMPARE(Text(u"Label1(1)"_s), u"KGV \"Sonnenhang\" e.V. Birkenried"_s);
    QVERIFY(!Shown(u"Text5"_s));
    QCOMPARE(Text(u"Text2"_s), u"2026"_s);
    QCOMPARE(Rows(u"List1"_s),
        (QStringList { u"Albers,Margarete"_s, u"Bielfeldt,Jörn"_s, u"Czerny,Ludmilla"_s,
            u"Dörfler,Ottokar"_s, u"Eichhorst,Sybille"_s, u"Fährmann,Änne"_s, u"Gräßlin,Bertold"_s,
            u"Hollerbusch,Theda"_s, u"Hollerbusch2,Thies"_s, u"Imhülsen,Quirin"_s }));
    QCOMPARE(Rows(u"ListView2"_s), Rows(u"List1"_s));
    QCOMPARE(Text(u"Text3(0)"_s), u"Albers"_s);
    QCOMPARE(Text(u"Text1(0)"_s), u"1980"_s);
    QCOMPARE(Text(u"Text1(1)"_s), u"2171"_s);
    QCOMPARE(Text(u"Text1(2)"_s), u"191"_s);
    QCOMPARE(Text(u"Text1(5)"_s), u"13"_s);
}

void Tour::a_telephone_number_is_corrected()
{
    User->ClickRow(u"List1"_s, 2);
    QCOMPARE(Text(u"Text3(0)"_s), u"Czerny"_s);
    User->Type(u"Text3(4)"_s, u"030 23125 299"_s);
    User->Click(u"Command1(0)"_s);
    Club.Replace(u"Mitgliedsdaten2026.pz"_s,
        u"Czerny;Ludmilla;Schulgasse 2a;00423 Oberheide;030 23125 203;3;340;;12,50;4,20;3,10;24,60;"
        "4540;4922;195;219"_s,
        u"Czerny;Ludmilla;Schulgasse 2a;00423 Oberheide;030 23125 299;3;340;;12,50;4,20;3,10;24,60;"
        "4540;4922;195;219"_s);
    User->ClickRow(u"List1"_s, 2);
    QCOMPARE(Text(u"Text3(4)"_s), u"030 23125 299"_s);
}

/// Every field of the form by the Tab key, then the two start readings.
static void TypeNewMember(Robot& user, const QStringList& fields, const QString& electricity_start,
    const QString& water_start)
{
    user.Press(u"Ctrl+N"_s);
    for (const QString& field : fields) {
        if (!field.isEmpty())
            user.Keys(field);
        user.Press(u"Tab"_s);
    }
    user.Type(u"Text1(0)"_s, electricity_start);
    user.Type(u"Text1(3)"_s, water_start);
}

static const QStringList NewMemberFields { u"Jessen"_s, u"Kai"_s, u"Lerchenstieg 11"_s,
    u"00427 Kleinsiel"_s, u"030 23125 211"_s, u"11"_s, u"300"_s, u"2"_s, u"12,50"_s, u"0,00"_s,
    u"3,10"_s, u"0,00"_s };
static const QString NewMemberLine
    = u"Jessen;Kai;Lerchenstieg 11;00427 Kleinsiel;030 23125 211;11;300;2;12,50;0,00;3,10;0,00;"_s;

void Tour::a_new_member_lacks_last_years_line()
{
    TypeNewMember(*User, NewMemberFields, u"100"_s, u"5"_s);
    User->Picture(OutPath(u"neues-mitglied.png"_s));
    User->Expect(u"Kleingarten Parzello"_s, NoLineLastYear(11, u"Jessen,Kai"_s), u"OK"_s);
    User->Press(u"Ctrl+S"_s);
    Club.Append(u"Mitgliedsdaten2026.pz"_s, NewMemberLine + u"100;;5;"_s);
    QCOMPARE(Rows(u"List1"_s).last(), u"Jessen,Kai"_s);
}

void Tour::last_year_gets_the_new_members_line()
{
    User->Click(u"Command3(1)"_s);
    QCOMPARE(Text(u"Text2"_s), u"2025"_s);
    QCOMPARE(TintOf(User->Control(u"Text2"_s)), TintKind::OtherYear);
    User->Picture(OutPath(u"jahr-gewaehlt.png"_s));
    User->Click(u"Command4"_s);
    QCOMPARE(Text(u"Text1(1)"_s), u"1980"_s);
    QCOMPARE(TintOf(User->Control(u"Text2"_s)), TintKind::None);

    TypeNewMember(*User, NewMemberFields, u"100"_s, u"5"_s);
    User->Type(u"Text1(1)"_s, u"100"_s);
    User->Type(u"Text1(4)"_s, u"5"_s);
    User->Click(u"Command1(0)"_s);
    Club.Append(u"Mitgliedsdaten2025.pz"_s, NewMemberLine + u"100;100;5;5"_s);

    User->Click(u"Command3(0)"_s);
    User->Click(u"Command3(0)"_s); // the present year is the last one
    QCOMPARE(Text(u"Text2"_s), u"2026"_s);
    User->Click(u"Command4"_s); // no box any more
    QCOMPARE(Rows(u"List1"_s).size(), 11);
}

void Tour::a_member_entered_by_mistake_is_deleted()
{
    TypeNewMember(*User, { u"Irrtum"_s, u"Ina"_s }, u""_s, u""_s);
    User->Expect(u"Kleingarten Parzello"_s, NoLineLastYear(12, u"Irrtum,Ina"_s), u"OK"_s);
    User->Click(u"Command1(0)"_s);
    QCOMPARE(Rows(u"List1"_s).last(), u"Irrtum,Ina"_s);
    User->ClickRow(u"List1"_s, 11);
    QCOMPARE(Text(u"Text3(0)"_s), u"Irrtum"_s);
    User->Click(u"Command1(2)"_s);
    QCOMPARE(Rows(u"List1"_s).last(), u"Jessen,Kai"_s);
}

void Tour::the_new_members_readings_are_entered()
{
    User->ClickRow(u"List1"_s, 10);
    User->Type(u"Text1(1)"_s, u"152,5"_s);
    User->Press(u"Return"_s);
    QCOMPARE(Text(u"Text1(2)"_s), u"52,5"_s);
    User->Type(u"Text1(4)"_s, u"17"_s);
    User->Click(u"Command2"_s);
    QCOMPARE(Text(u"Text1(5)"_s), u"12"_s);
    Club.Replace(u"Mitgliedsdaten2026.pz"_s, NewMemberLine + u"100;;5;"_s,
        NewMemberLine + u"100;152,5;5;17"_s);
    User->Picture(OutPath(u"zaehlerstaende.png"_s));
}
