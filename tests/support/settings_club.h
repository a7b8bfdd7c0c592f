// The tab "Einstellungen" with the settings of one year loaded, without members and ledgers.
#pragma once

#include "settings/bank_frames_form.h"
#include "settings/billing_dates_form.h"
#include "settings/price_frame_form.h"
#include "tests/support/club.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QTabWidget>
#include <QtTest>

inline const QString PriceFile = QStringLiteral("Config.ini");
inline const QString BankFile = QStringLiteral("Config1.ini");
inline const QString SavedBox = QStringLiteral("Hinweis: Datenänderung ist gespeichert !");

inline const QByteArray Prices2017("[2017]\r\n"
                                   "RepUmlage=5,00\r\n"
                                   "Stromkosten=0,30\r\n"
                                   "Wasserkosten=2,20\r\n"
                                   "Energiepauschale=10,00\r\n"
                                   "Beitrag=36,00\r\n"
                                   "Pacht=0,08\r\n"
                                   "Steuer=0,02\r\n"
                                   "Fl\xe4"
                                   "che=0,03\r\n"
                                   "Abrechnungsdatum=15.11.2017\r\n"
                                   "\xdc"
                                   "berweisdatum=20.12.2017\r\n"
                                   "Vorauszahlung Strom=1\r\n"
                                   "Vorauszahlung Wasser=0\r\n");

inline const QByteArray BankData("[Daten]\r\n"
                                 "Bankname=Volksbank Rotenfeld\r\n"
                                 "BLZ=DE00 1234\r\n"
                                 "Kontonummer=ROTFDE00XXX\r\n"
                                 "Name1=Meier,Anna\r\n"
                                 "Name2=Sommer,K\xe4the\r\n"
                                 "Name=Renate Noack\r\n"
                                 "Anrede=Frau\r\n");

/// The window with the settings of 2017 loaded; members and ledgers are not needed here.
struct SettingsClub : TestClub {
    void Open(int year = 2017, int start_up_year = 2017)
    {
        program.Today = [] { return QDate(2017, 11, 20); };
        BuildMainWindow(program);
        program.Year.YearText = QString::number(year);
        program.Year.YearNumber = static_cast<qint16>(start_up_year);
        SetSettingsCalendarsToToday(program);
        ShowSettingsYear(program);
        LoadSettings(program);
    }

    void OpenWithData()
    {
        Write(PriceFile, Prices2017);
        Write(BankFile, BankData);
        Open();
    }

    /// Shows the tab; needed where the mouse or the focus is.
    void ShowTab() const
    {
        program.Window.SSTab1->setCurrentIndex(SettingsTab);
        program.Window.Window->show();
        QVERIFY(QTest::qWaitForWindowExposed(program.Window.Window));
    }

    QLineEdit* Price(int index) const
    {
        return Find<QLineEdit>(Window(), ControlName(QStringLiteral("Text4"), index));
    }

    QLineEdit* Bank(int index) const
    {
        return Find<QLineEdit>(Window(), ControlName(QStringLiteral("Text6"), index));
    }

    QStringList PriceTexts() const
    {
        QStringList texts;
        for (int i = 0; i <= 8; ++i)
            texts += Price(i)->text();
        return texts;
    }

    QStringList BankTexts() const
    {
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts += Bank(i)->text();
        return texts;
    }
};

/// Replaces a field's text by the keyboard.
inline void Type(QLineEdit* field, const QString& text)
{
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    field->insert(text); // as an input method does it; keyClicks knows no umlauts
}
