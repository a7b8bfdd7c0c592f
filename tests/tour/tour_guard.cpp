// The tour at the door of every tab: what is unsaved is asked about, and ending the program.
#include "tests/tour/tour.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

static const QString AskPrices = u"Sie haben die Werte in den Einstellungen geändert. Sollen die "
                                 "Änderungen gespeichert werden ?"_s;
static const QString AskBank = u"Sie haben die Bankverbindung oder Namen in den Einstellungen "
                               "geändert. Sollen die Änderungen gespeichert werden ?"_s;
static const QString Saved = u"Datenänderung ist gespeichert !"_s;

void Tour::a_changed_price_is_put_back_on_no()
{
    User->Tab(u"Einstellungen"_s);
    User->Type(u"Text4(1)"_s, u"9,99"_s);
    User->Expect(u"Hinweis"_s, AskPrices, u"Nein"_s);
    User->Tab(u"Stammdaten"_s);
    QCOMPARE(Text(u"Text4(1)"_s), u"2,20"_s);
    User->Tab(u"Druckvorlagen"_s); // and nothing more is asked
}

void Tour::a_changed_price_is_saved_on_yes()
{
    User->Tab(u"Einstellungen"_s);
    User->Type(u"Text4(1)"_s, u"2,25"_s);
    User->Type(u"Text4(7)"_s, u"0,00"_s);
    User->Expect(u"Hinweis"_s, AskPrices, u"Ja"_s);
    User->Expect(u"Hinweis"_s, Saved, u"OK"_s);
    User->Press(u"Ctrl+2"_s);
    Club.Replace(u"Config.ini"_s, u"Wasserkosten=2,20"_s, u"Wasserkosten=2,25"_s);
}

void Tour::a_changed_bank_is_asked_about_once()
{
    User->Tab(u"Einstellungen"_s);
    User->Type(u"Text6(2)"_s, u"BIRKDE11XXX"_s);
    User->Expect(u"Hinweis"_s, AskBank, u"Ja"_s);
    User->Expect(u"Hinweis"_s, Saved, u"OK"_s);
    User->Tab(u"Stammdaten"_s);
    Club.Replace(u"Config1.ini"_s, u"Kontonummer=BIRKDE00XXX"_s, u"Kontonummer=BIRKDE11XXX"_s);
}

void Tour::closing_the_window_asks_for_what_is_unsaved()
{
    User->Tab(u"Einstellungen"_s);
    User->Type(u"Text6(5)"_s, u"Theda Hollerbusch-Ems"_s);
    User->Expect(u"Hinweis"_s, AskBank, u"Ja"_s);
    User->Expect(u"Hinweis"_s, Saved, u"OK"_s);
    Close();
    Club.Replace(u"Config1.ini"_s, u"Name=Theda Hollerbusch"_s, u"Name=Theda Hollerbusch-Ems"_s);
}

void Tour::the_button_to_end_asks_nothing()
{
    Start(QDate(2026, 11, 20));
    User->Tab(u"Einstellungen"_s);
    User->Type(u"Text4(0)"_s, u"0,99"_s);
    QTimer::singleShot(0, User.get(), [this] { User->Click(u"Command8"_s); });
    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(User->Faults(), QStringList());
    DestroyMainWindow(*program);
    User.reset();
    program.reset();
}
