// The tour on the tab "Kontoführung": both accounts of the year.
#include "tests/tour/tour.h"

#include <QTest>

using namespace Qt::StringLiterals;

static const QString Bank = u"Konto2026.pz"_s;
static const QString CashBox = u"HandKasse2026.pz"_s;

void Tour::Book(
    const QString& date, const QString& text, const QString& deposit, const QString& withdrawal)
{
    User->Type(u"Text10(0)"_s, date);
    for (const QString& field : { text, deposit, withdrawal }) {
        User->Press(u"Return"_s); // to the next field; amounts are selected then
        User->Keys(field);
    }
    User->Press(u"Return"_s); // to "OK"
    User->Press(u"Return"_s);
}

void Tour::the_bank_account_shows_the_years_bookings()
{
    User->Tab(u"Kontoführung"_s);
    QCOMPARE(Text(u"Label21"_s), u"Konto KGV \"Sonnenhang\" e.V. Birkenried Sparbank Birkenried"_s);
    QCOMPARE(Text(u"Command15"_s), u"Kasse Kassenwart"_s);
    QCOMPARE(Rows(u"ListView1"_s),
        (QStringList { u"02.01.2026 | Übertrag Saldo 2025 | 1290,24 € | 0,00 € | 1290,24 €"_s,
            u"12.01.2026 | BV Pacht 2026 | 0,00 € | 201,30 € | 1088,94 €"_s,
            u"03.02.2026 | Gartenzeitung 2026 | 0,00 € | 24,00 € | 1064,94 €"_s,
            u"16.03.2026 | Eon Avacon | 0,00 € | 325,40 € | 739,54 €"_s,
            u"16.03.2026 | Steuern (Stadt) | 0,00 € | 58,20 € | 681,34 €"_s,
            u"04.05.2026 | Spende Gartenfest | 65,00 € | 0,00 € | 746,34 €"_s,
            u"15.06.2026 | Eon Avacon Wasser | 0,00 € | 151,70 € | 594,64 €"_s,
            u"30.09.2026 | BV Mitglieds/Vers.Beiträge 2026 | 0,00 € | 180,00 € | 414,64 €"_s }));
    QCOMPARE(Text(u"BalanceLabel"_s), u"414,64 €"_s);
    QCOMPARE(SelectedRows(u"List4"_s), QStringList());
}

void Tour::every_members_payment_is_booked()
{
    const QStringList names { u"Albers"_s, u"Bielfeldt"_s, u"Czerny"_s, u"Dörfler"_s,
        u"Eichhorst"_s, u"Fährmann"_s, u"Gräßlin"_s, u"Hollerbusch"_s, u"Hollerbusch2"_s,
        u"Imhülsen"_s, u"Jessen"_s };
    const QStringList totals { u"193,53"_s, u"129,98"_s, u"285,74"_s, u"130,46"_s, u"225,93"_s,
        u"145,74"_s, u"346,14"_s, u"139,52"_s, u"161,31"_s, u"188,76"_s, u"165,24"_s };
    for (int member = 0; member < names.size(); ++member) {
        User->ClickRow(u"List4"_s, member);
        QCOMPARE(Text(u"Text10(1)"_s), u"Abrechnung "_s + names[member]);
        QCOMPARE(Text(u"Text10(2)"_s), totals[member]);
        QString paid = totals[member];
        if (names[member] == u"Bielfeldt"_s) { // the first of his three instalments
            QCOMPARE(Text(u"Text11"_s), u"3 Raten"_s);
            paid = u"43,33"_s;
            User->Type(u"Text10(2)"_s, paid);
            User->Picture(OutPath(u"zahlung.png"_s));
        }
        const QString date = QDate(2026, 11, 21).addDays(member).toString(u"dd.MM.yyyy"_s);
        User->Type(u"Text10(0)"_s, date);
        User->Click(u"Command12(0)"_s);
        Club.Append(Bank, date + u";Abrechnung "_s + names[member] + u';' + paid + u";0,00"_s);
    }
    QCOMPARE(Text(u"BalanceLabel"_s), u"2440,34 €"_s);
    QCOMPARE(SelectedRows(u"List4"_s), Rows(u"List4"_s));
    User->Press(u"Ctrl+S"_s);
    User->Picture(OutPath(u"kontofuehrung.png"_s));
}

void Tour::a_wrong_amount_is_corrected()
{
    User->ClickRow(u"ListView1"_s, 2, 1);
    QCOMPARE(Text(u"Text10(0)"_s), u"03.02.2026"_s);
    QCOMPARE(Text(u"Text10(1)"_s), u"Gartenzeitung 2026"_s);
    QCOMPARE(Text(u"Text10(3)"_s), u"24,00"_s);
    User->Type(u"Text10(3)"_s, u"26,50"_s);
    User->Picture(OutPath(u"buchung-berichtigen.png"_s));
    User->Click(u"Command12(0)"_s);
    QCOMPARE(Rows(u"ListView1"_s).value(2),
        u"03.02.2026 | Gartenzeitung 2026 | 0,00 € | 26,50 € | 1062,44 €"_s);
    User->Click(u"CommandSaveLedger"_s);
    Club.Replace(Bank, u"03.02.2026;Gartenzeitung 2026;0,00;24,00"_s,
        u"03.02.2026;Gartenzeitung 2026;0,00;26,50"_s);
}

void Tour::a_wrong_booking_is_deleted()
{
    const QStringList before = Rows(u"ListView1"_s);
    User->PickDay(u"Cal3"_s, QDate(2026, 10, 1));
    QCOMPARE(Text(u"Text10(0)"_s), u"01.10.2026"_s);
    User->ClickRow(u"List9"_s, 3);
    QCOMPARE(Text(u"Text10(1)"_s), u"Gartenzeitung 2026"_s);
    User->Type(u"Text10(3)"_s, u"24,00"_s);
    User->Click(u"Command12(0)"_s);
    QCOMPARE(Rows(u"ListView1"_s).value(8),
        u"01.10.2026 | Gartenzeitung 2026 | 0,00 € | 24,00 € | 388,14 €"_s);
    User->ClickRow(u"ListView1"_s, 8);
    User->Click(u"Command12(1)"_s);
    QCOMPARE(Rows(u"ListView1"_s), before);
    User->Click(u"CommandSaveLedger"_s);
}

void Tour::the_cash_box_has_its_own_bookings()
{
    User->Click(u"Command15"_s);
    QCOMPARE(Text(u"Command15"_s), u"Konto Sparkasse"_s);
    QCOMPARE(Text(u"Label21"_s), u"Handkasse Kassenwart  KGV \"Sonnenhang\" e.V. Birkenried"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"108,30 €"_s);
    QCOMPARE(SelectedRows(u"List4"_s), QStringList());
    Book(u"01.12.2026"_s, u"Nikolaus für die Kinder"_s, u"0,00"_s, u"18,75"_s);
    QCOMPARE(Rows(u"ListView1"_s).last(),
        u"01.12.2026 | Nikolaus für die Kinder | 0,00 € | 18,75 € | 89,55 €"_s);
    User->Picture(OutPath(u"handkasse.png"_s));
}

void Tour::leaving_the_tab_saves_both_accounts_on_yes()
{
    User->Click(u"Command15"_s);
    Book(u"12.12.2026"_s, u"Abrechnung Bielfeldt 2. Rate"_s, u"43,33"_s, u"0,00"_s);
    QCOMPARE(Text(u"BalanceLabel"_s), u"2481,17 €"_s);
    User->Expect(u"Hinweis"_s,
        u"Sie haben den Kontostand geändert. Sollen die Änderungen gespeichert werden ?"_s,
        u"Ja"_s);
    User->Tab(u"Stammdaten"_s);
    Club.Append(Bank, u"12.12.2026;Abrechnung Bielfeldt 2. Rate;43,33;0,00"_s);
    Club.Append(CashBox, u"01.12.2026;Nikolaus für die Kinder;0,00;18,75"_s);
}
