// The tour on the tabs "Einstellungen" and "Druckvorlagen": prices, dates, bank, preview, printing.
#include "tests/tour/tour.h"

#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

void Tour::prices_and_dates_are_saved()
{
    User->Tab(u"Einstellungen"_s);
    QCOMPARE(Text(u"Label4"_s), u"Preise für das Jahr 2026"_s);
    QCOMPARE(Text(u"Text4(0)"_s), u"0,36"_s);
    User->Type(u"Text4(0)"_s, u"0,37"_s);
    User->Type(u"Text4(7)"_s, u"0,00"_s); // not read from the file, so it is typed again
    User->PickDay(u"Calendar1"_s, QDate(2026, 11, 30));
    User->PickDay(u"Calendar2"_s, QDate(2026, 12, 30));
    QCOMPARE(Text(u"Label7"_s), u"30.11.2026"_s);
    QCOMPARE(Text(u"Text4(8)"_s), u"30.12.2026"_s);
    User->Picture(OutPath(u"einstellungen-geaendert.png"_s));
    User->Expect(u"Hinweis"_s, u"Datenänderung ist gespeichert !"_s, u"OK"_s);
    User->Click(u"Command5"_s);
    Club.Replace(u"Config.ini"_s, u"Stromkosten=0,36"_s, u"Stromkosten=0,37"_s);
    Club.Replace(
        u"Config.ini"_s, u"Abrechnungsdatum=15.11.2026"_s, u"Abrechnungsdatum=30.11.2026"_s);
    Club.Replace(u"Config.ini"_s, u"Überweisdatum=31.12.2026"_s, u"Überweisdatum=30.12.2026"_s);
}

void Tour::the_bank_is_changed()
{
    User->Type(u"Text6(0)"_s, u"Sparbank Birkenried"_s);
    User->Expect(u"Hinweis"_s, u"Datenänderung ist gespeichert !"_s, u"OK"_s);
    User->Click(u"Command7"_s);
    Club.Replace(
        u"Config1.ini"_s, u"Bankname=Volksbank Birkenried"_s, u"Bankname=Sparbank Birkenried"_s);
    User->Picture(OutPath(u"einstellungen.png"_s));
}

void Tour::the_bills_are_paged_through()
{
    User->Tab(u"Druckvorlagen"_s);
    QCOMPARE(Text(u"Text7"_s), u"1"_s);
    QCOMPARE(Text(u"Text9"_s), u"11"_s);
    QCOMPARE(Text(u"Text8(1)"_s), u"11"_s);
    User->Picture(OutPath(u"druckvorlagen.png"_s));
    User->Click(u"Command9(0)"_s);
    User->Click(u"Command9(0)"_s);
    QCOMPARE(Text(u"Text7"_s), u"3"_s);
    User->Click(u"Command9(1)"_s);
    QCOMPARE(Text(u"Text7"_s), u"2"_s);
    User->Press(u"PgDown"_s);
    User->Picture(OutPath(u"druckvorlagen-unten.png"_s));
}

/// The text of the printed pages as pdftotext reads it.
static QString PrintedText(const QString& path)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, { u"-layout"_s, path, u"-"_s });
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput());
}

void Tour::the_bills_are_printed()
{
    const QString pdf = OutPath(u"abrechnungen.pdf"_s);
    QFile::remove(pdf);
    bool range_offered = true;
    User->ExpectDialog([this, pdf, &range_offered](QDialog& dialog) {
        auto* printers = dialog.findChild<QComboBox*>(u"printers"_s);
        printers->setCurrentIndex(printers->count() - 1); // the last one writes a PDF
        auto* file = dialog.findChild<QLineEdit*>(u"filename"_s);
        file->setText(pdf);
        // The page numbers on the tab decide; the dialog's other half must not offer others.
        User->ClickButton(dialog, u"Einstellungen >>"_s);
        const auto* range = dialog.findChild<QWidget*>(u"gbPrintRange"_s);
        range_offered = range == nullptr || (range->isVisible() && range->isEnabled());
        dialog.grab().save(OutPath(u"druckdialog.png"_s));
        User->ClickButton(dialog, u"Drucken"_s);
    });
    User->Press(u"Ctrl+P"_s);
    QVERIFY(!range_offered);
    QVERIFY(QFile::exists(pdf));
    QFile expected(QStringLiteral(PARZELLO_ROOT "/tests/tour/expected/abrechnungen.txt"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    QCOMPARE(PrintedText(pdf), QString::fromUtf8(expected.readAll()));
}
