// The tour through the windows behind "Mehr" that are no money reports.
#include "tests/tour/tour.h"

#include "controls/fields.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

static const QSize window_size(940, 640); // pixels of a picture in the manual

void Tour::PickMore(const QString& entry)
{
    User->Click(u"More"_s);
    auto* menu = program->Window.More.MoreMenu;
    auto* action = menu->findChild<QAction*>(entry);
    QVERIFY2(action != nullptr && menu->isVisible(), qPrintable(entry));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    QCoreApplication::processEvents();
}

static void SavePicture(QWidget* window, const QString& name)
{
    QCoreApplication::processEvents();
    QVERIFY(window->grab().save(OutPath(name)));
}

/// A dialog on a ground as wide as a picture of the manual: its letters are as large as the
/// manual's.
static void SaveDialog(QDialog& dialog, const QString& name)
{
    constexpr int width = 640; // pixels
    constexpr int above = 24;
    QCoreApplication::processEvents();
    const QSize size = dialog.size();
    QPixmap picture(width, size.height() + 2 * above);
    picture.fill(QColor(0xc8, 0xcd, 0xd4)); // as beside the page in the preview
    QPainter painter(&picture);
    const QPoint place((width - size.width()) / 2, above);
    painter.drawPixmap(place, dialog.grab());
    painter.setPen(QColor(0x80, 0x86, 0x90));
    painter.drawRect(QRect(place, size).adjusted(-1, -1, 0, 0));
    painter.end();
    QVERIFY(picture.save(OutPath(name)));
}

static void Press(QWidget* window, const QString& button)
{
    QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
}

void Tour::the_check_report_finds_what_was_planted()
{
    User->Press(u"F9"_s);
    OpenedReport* opened = OpenedReportOf(*program, u"Check"_s);
    QVERIFY(opened != nullptr);
    opened->Window->resize(window_size);
    QVERIFY(opened->Text->toPlainText().contains(u"1 Fehler, 1 Warnung, 1 Hinweis"_s));
    SavePicture(opened->Window, u"pruefbericht.png"_s);
}

void Tour::the_reports_link_leads_to_the_booking_to_correct()
{
    const OpenedReport* opened = OpenedReportOf(*program, u"Check"_s);
    const QTextCursor link = opened->Text->document()->find(u"Handkasse"_s);
    QTest::mouseClick(opened->Text->viewport(), Qt::LeftButton, {},
        opened->Text->cursorRect(link).center() - QPoint(4, 0));
    QCOMPARE(Text(u"Text10(1)"_s), u"Übertrag Saldo 2025"_s);
    User->Type(u"Text10(2)"_s, u"84,00"_s);
    User->Click(u"Command12(0)"_s);
    User->Click(u"CommandSaveLedger"_s);
    Club.Replace(u"HandKasse2026.pz"_s, u"02.01.2026;Übertrag Saldo 2025;85,00;0,00"_s,
        u"02.01.2026;Übertrag Saldo 2025;84,00;0,00"_s);
    Press(opened->Window, u"ReportClose"_s);
    QVERIFY(!opened->Window->isVisible());

    User->Click(u"Command15"_s);
    User->Expect(u"Hinweis"_s, // saving the bookings does not take the question back
        u"Sie haben den Kontostand geändert. Sollen die Änderungen gespeichert werden ?"_s,
        u"Ja"_s);
    User->Tab(u"Stammdaten"_s);
    QCOMPARE(TintOf(User->Control(u"More"_s)), TintKind::Wrong);
    User->Click(u"Command4"_s);
    QCOMPARE(TintOf(User->Control(u"More"_s)), TintKind::None);
    User->Picture(OutPath(u"stammdaten.png"_s));
}

void Tour::both_years_lists_stand_side_by_side()
{
    PickMore(u"MoreAlign"_s);
    QWidget* window = User->Control(u"AlignWindow"_s);
    QVERIFY(window != nullptr && window->isVisible());
    QVERIFY(Rows(u"AlignList"_s).last().contains(u"Im Vorjahr fehlt Jessen,Kai (Platz 11)"_s));
    SavePicture(window, u"vorjahr-abgleichen.png"_s);
    Press(window, u"AlignClose"_s);
    QVERIFY(!window->isVisible());
}

void Tour::an_exchanged_meter_is_reckoned_in()
{
    User->ClickRow(u"List1"_s, 3);
    QString start;
    User->ExpectDialog([&start](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(u"MeterOldOut"_s)->setText(u"668"_s);
        start = dialog.findChild<QLabel*>(u"MeterNewStart"_s)->text();
        SaveDialog(dialog, u"zaehler-gewechselt.png"_s);
        Press(&dialog, u"MeterCancel"_s);
    });
    PickMore(u"MoreMeter"_s);
    QCOMPARE(start, u"Neuer Anfangsstand: -28"_s);
    QCOMPARE(Text(u"Text1(0)"_s), u"640"_s);
}

void Tour::each_member_gets_a_file()
{
    const QString folder = Folder.filePath(u"Abrechnungen 2026"_s);
    QString result;
    User->ExpectDialog([folder, &result](QDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>(u"BillsFolder"_s);
        field->setText(u"/home/theda/Dokumente/Abrechnungen 2026"_s); // what a user sees
        SaveDialog(dialog, u"abrechnungen-als-pdf.png"_s);
        field->setText(folder);
        Press(&dialog, u"BillsCreate"_s);
        result = dialog.findChild<QLabel*>(u"BillsResult"_s)->text();
        Press(&dialog, u"BillsCancel"_s);
    });
    PickMore(u"MorePdf"_s);
    QCOMPARE(result, u"11 Dateien liegen im Ordner „%1“."_s.arg(folder));
    const QStringList files = QDir(folder).entryList(QDir::Files);
    QCOMPARE(files.size(), 11);
    QCOMPARE(files.first(), u"Abrechnung 2026 Garten 01 Albers Margarete.pdf"_s);
}

void Tour::a_code_to_pay_by_stands_on_the_page()
{
    QString without;
    User->ExpectDialog([this, &without](QDialog& dialog) {
        auto* on_every_bill = dialog.findChild<QCheckBox*>(u"CodeOnEveryBill"_s);
        on_every_bill->setChecked(true);
        without = dialog.findChild<QLabel*>(u"CodeWithoutCaption"_s)->text();
        SaveDialog(dialog, u"ueberweisungscode.png"_s);
        User->Picture(OutPath(u"druckvorlagen-code.png"_s));
        on_every_bill->setChecked(false);
        Press(&dialog, u"CodeClose"_s);
    });
    PickMore(u"MoreCode"_s);
    QCOMPARE(without, u"Jedes Mitglied bekommt einen Code."_s);
}

void Tour::the_history_tells_what_was_done()
{
    PickMore(u"MoreHistory"_s);
    OpenedReport* opened = OpenedReportOf(*program, u"History"_s);
    QVERIFY(opened != nullptr);
    opened->Window->resize(window_size);
    const QString text = opened->Text->toPlainText();
    QVERIFY(text.contains(u"Irrtum,Ina gelöscht"_s));
    QVERIFY(text.contains(u"Bankname: Volksbank Birkenried → Sparbank Birkenried"_s));
    QVERIFY(text.contains(u"Abrechnungen 2026: Seiten 1 bis 11 als PDF"_s));
    SavePicture(opened->Window, u"verlauf.png"_s);
    Press(opened->Window, u"ReportClose"_s);
    QVERIFY(!opened->Window->isVisible());
}

/// A reading typed into the cell that has the focus; Enter leads to the next member.
static void TypeReading(QWidget* window, const QString& digits)
{
    for (const QChar digit : digits)
        QTest::keyClick(QApplication::focusWidget(), digit.toLatin1());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(window->isVisible());
}

void Tour::the_next_readings_are_typed_into_one_table()
{
    User->Press(u"F8"_s);
    QWidget* window = program->Readings.ReadingsWindow;
    QVERIFY(window != nullptr && QTest::qWaitForWindowExposed(window));
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    for (const QString& reading : { u"2360"_s, u"1447"_s, u"4819"_s, u"773"_s })
        TypeReading(window, reading);
    QCOMPARE(window->findChild<QLabel*>(u"ReadingsSum(0)"_s)->text(),
        u"Strom: 4 von 11 abgelesen, zusammen 250 KWh"_s);
    QVERIFY(program->Readings.ReadingsTable->item(2, 3)->toolTip().contains(
        u"liegt unter dem Anfangsstand"_s));
    SavePicture(window, u"ablesung.png"_s);
    Press(window, u"ReadingsClose"_s);
    const QString file = u"Mitgliedsdaten2027.pz"_s;
    QByteArray& members = Club.Expected[file];
    members.replace(";2171;;", ";2171;2360;").replace(";1352;;", ";1352;1447;");
    members.replace(";4922;;", ";4922;4819;").replace(";704;;", ";704;773;");
}
