// The tour in the first days of the next year: readings, prices and both accounts are carried over.
#include "tests/tour/tour.h"

#include <QTest>

using namespace Qt::StringLiterals;

static const QString NewYearNotice = u"Achtung ! Es beginnt ein Neues Jahr 2027 und Ihr Konto wird "
                                     "mit Übertrag neu Weitwrgeführt !"_s;

/// This year's members as next year's: the end readings have become the start readings.
static QByteArray RolledForward(const QByteArray& members)
{
    QByteArray rolled;
    for (const QByteArray& line : members.split('\n')) {
        QList<QByteArray> fields = line.chopped(line.endsWith('\r') ? 1 : 0).split(';');
        if (fields.size() < 16)
            continue;
        fields[12] = fields[13];
        fields[13].clear();
        fields[14] = fields[15];
        fields[15].clear();
        rolled += fields.join(';') + "\r\n";
    }
    return rolled;
}

void Tour::a_new_year_carries_everything_over()
{
    Club.Expected[u"Mitgliedsdaten2027.pz"_s]
        = RolledForward(Club.Expected[u"Mitgliedsdaten2026.pz"_s]);
    Club.Append(u"Konto2027.pz"_s, u"04.01.2027;Übertrag Saldo 2026;2481,17;0,00"_s);
    for (const QString& line :
        { u"[2027]"_s, u"Stromkosten=0,37"_s, u"Wasserkosten=2,25"_s, u"Energiepauschale=10,00"_s,
            u"Beitrag=36,00"_s, u"Pacht=0,08"_s, u"Steuer=0,02"_s, u"Fläche=0,03"_s,
            u"Abrechnungsdatum=Bitte aktualisieren"_s, u"Überweisdatum=Bitte aktualisieren"_s })
        Club.Append(u"Config.ini"_s, line);

    Start(QDate(2027, 1, 4), { { u"Hinweis"_s, NewYearNotice, u"OK"_s } });
    QCOMPARE(Text(u"Text2"_s), u"2027"_s);
    QCOMPARE(Text(u"Text1(0)"_s), u"2171"_s);
    QCOMPARE(Text(u"Text1(1)"_s), QString());
    QCOMPARE(Text(u"Text1(2)"_s), QString());
    User->Tab(u"Einstellungen"_s);
    QCOMPARE(Text(u"Label4"_s), u"Preise für das Jahr 2027"_s);
    QCOMPARE(Text(u"Text4(0)"_s), u"0,37"_s);
    QCOMPARE(Text(u"Label7"_s), u"Bitte aktualisieren"_s);
    User->Picture(OutPath(u"neues-jahr.png"_s));
}

void Tour::the_bank_is_booked_for_a_whole_year()
{
    const QString bank = u"Konto2027.pz"_s;
    struct Booking {
        QString date;
        QString text;
        QString deposit;
        QString withdrawal;
    };
    const QList<Booking> year {
        { u"31.12.2027"_s, u"Kontoführung"_s, u"0,00"_s, u"38,40"_s },
        { u"11.01.2027"_s, u"BV Pacht 2027"_s, u"0,00"_s, u"205,00"_s },
        { u"02.02.2027"_s, u"Gartenzeitung 2027"_s, u"0,00"_s, u"26,50"_s },
        { u"15.03.2027"_s, u"Eon Avacon"_s, u"0,00"_s, u"1330,15"_s },
        { u"15.03.2027"_s, u"Abrechnung Bielfeldt 3. Rate"_s, u"43,32"_s, u"0,00"_s },
        { u"03.05.2027"_s, u"Reparatur Zaun"_s, u"0,00"_s, u"1210,80"_s },
        { u"15.06.2027"_s, u"Eon Avacon Wasser"_s, u"0,00"_s, u"149,90"_s },
        { u"04.07.2027"_s, u"Spende Gartenfest"_s, u"1.050,00"_s, u"0,00"_s },
        { u"30.09.2027"_s, u"BV Mitglieds/Vers.Beiträge 2027"_s, u"0,00"_s, u"180,00"_s },
        { u"22.11.2027"_s, u"Abrechnung Albers"_s, u"201,05"_s, u"0,00"_s },
        { u"18.08.2027"_s, u"Wasseruhr Garten 7"_s, u"0,00"_s, u"64,25"_s },
        { u"05.10.2027"_s, u"Pacht Wiese"_s, u"12"_s, u"0,00"_s },
    };
    User->Tab(u"Kontoführung"_s);
    for (const Booking& booking : year)
        Book(booking.date, booking.text, booking.deposit, booking.withdrawal);
    QCOMPARE(Rows(u"ListView1"_s),
        (QStringList { u"04.01.2027 | Übertrag Saldo 2026 | 2481,17 € | 0,00 € | 2481,17 €"_s,
            u"11.01.2027 | BV Pacht 2027 | 0,00 € | 205,00 € | 2276,17 €"_s,
            u"02.02.2027 | Gartenzeitung 2027 | 0,00 € | 26,50 € | 2249,67 €"_s,
            u"15.03.2027 | Abrechnung Bielfeldt 3. Rate | 43,32 € | 0,00 € | 2292,99 €"_s,
            u"15.03.2027 | Eon Avacon | 0,00 € | 1330,15 € | 962,84 €"_s,
            u"03.05.2027 | Reparatur Zaun | 0,00 € | 1210,80 € | -247,96 €"_s,
            u"15.06.2027 | Eon Avacon Wasser | 0,00 € | 149,90 € | -397,86 €"_s,
            u"04.07.2027 | Spende Gartenfest | 1050,00 € | 0,00 € | 652,14 €"_s,
            u"18.08.2027 | Wasseruhr Garten 7 | 0,00 € | 64,25 € | 587,89 €"_s,
            u"30.09.2027 | BV Mitglieds/Vers.Beiträge 2027 | 0,00 € | 180,00 € | 407,89 €"_s,
            u"05.10.2027 | Pacht Wiese | 12,00 € | 0,00 € | 419,89 €"_s,
            u"22.11.2027 | Abrechnung Albers | 201,05 € | 0,00 € | 620,94 €"_s,
            u"31.12.2027 | Kontoführung | 0,00 € | 38,40 € | 582,54 €"_s }));
    QCOMPARE(Text(u"BalanceLabel"_s), u"582,54 €"_s);
    User->Picture(OutPath(u"kontofuehrung-jahr.png"_s));
    User->Press(u"Ctrl+S"_s);
    Club.Set(bank,
        { u"04.01.2027;Übertrag Saldo 2026;2481,17;0,00"_s,
            u"11.01.2027;BV Pacht 2027;0,00;205,00"_s,
            u"02.02.2027;Gartenzeitung 2027;0,00;26,50"_s,
            u"15.03.2027;Abrechnung Bielfeldt 3. Rate;43,32;0,00"_s,
            u"15.03.2027;Eon Avacon;0,00;1330,15"_s, u"03.05.2027;Reparatur Zaun;0,00;1210,80"_s,
            u"15.06.2027;Eon Avacon Wasser;0,00;149,90"_s,
            u"04.07.2027;Spende Gartenfest;1.050,00;0,00"_s,
            u"18.08.2027;Wasseruhr Garten 7;0,00;64,25"_s,
            u"30.09.2027;BV Mitglieds/Vers.Beiträge 2027;0,00;180,00"_s,
            u"05.10.2027;Pacht Wiese;12;0,00"_s, u"22.11.2027;Abrechnung Albers;201,05;0,00"_s,
            u"31.12.2027;Kontoführung;0,00;38,40"_s });
}

void Tour::the_cash_box_is_carried_over_when_it_is_shown()
{
    User->Expect(u"Hinweis"_s, NewYearNotice, u"OK"_s);
    User->Click(u"Command15"_s);
    Club.Append(u"HandKasse2027.pz"_s, u"04.01.2027;Übertrag Saldo 2026;89,55;0,00"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"89,55 €"_s);
}

void Tour::the_old_year_can_still_be_seen()
{
    User->Expect(u"Hinweis"_s, // saving the bookings does not take the question back
        u"Sie haben den Kontostand geändert. Sollen die Änderungen gespeichert werden ?"_s,
        u"Ja"_s);
    User->Tab(u"Stammdaten"_s);
    User->Click(u"Command3(1)"_s);
    User->Click(u"Command4"_s);
    User->ClickRow(u"List1"_s, 0);
    QCOMPARE(Text(u"Text1(1)"_s), u"2171"_s);
    User->Tab(u"Kontoführung"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"2481,17 €"_s);
    Close();
}
