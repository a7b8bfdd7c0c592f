// The tour at the frame "Datensicherung": the data go to the stick and come back.
#include "tests/tour/tour.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

void Tour::the_data_are_saved_on_the_stick()
{
    User->Tab(u"Einstellungen"_s);
    User->Expect(u"Datensicherung"_s,
        u"Bitte stecken Sie zur Datensicherung einen USB Stick in einen Ihrer USB Anschlüße und "
        "drücken Sie die OK Taste"_s,
        u"OK"_s);
    User->Expect(u"Datensicherug"_s, u"Daten auf "_s + StickPath() + u" gesichert!"_s, u"OK"_s);
    User->Click(u"Command10"_s);

    ClubFolder stick { StickPath() + u"/Parzello"_s, Club.Expected };
    stick.Expected.remove(u"V.dat"_s); // the club name never leaves its folder
    QCOMPARE(stick.Differences(), QStringList());
}

void Tour::a_damaged_file_comes_back_from_the_stick()
{
    QFile members(Club.Path + u"/Mitgliedsdaten2026.pz"_s);
    QVERIFY(members.open(QIODevice::WriteOnly));
    members.write("kaputt\r\n");
    members.close();

    User->Expect(u"Datensicherung"_s,
        u"Bitte stecken Sie den USB Stick mit den gesicherten Daten in Ihren USB Anschluß: und "
        "drücken Sie die OK Taste"_s,
        u"OK"_s);
    User->Expect(u"Daten Wiederherstellung"_s,
        u"Daten von "_s + StickPath() + u" wieder hergestellt!"_s, u"OK"_s);
    User->Click(u"Command11"_s);
    User->Tab(u"Stammdaten"_s);
    QCOMPARE(Rows(u"List1"_s).size(), 11);
}
