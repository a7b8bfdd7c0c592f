// The preview inside the whole window: which page it shows after a save and after "Laden", and what
// a print run is called.
#include "cashbook/booking_form.h"
#include "controls/fields.h"
#include "tests/support/club.h"
#include "tests/support/page_picture.h"
#include "tests/support/printed.h"
#include "tests/support/test_file.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QDate november { 2017, 11, 20 };

struct OpenClub : TestClub {
    explicit OpenClub(const QString& example) { CopyExample(example); }

    void Click(const char* name) { Control<QPushButton>(name)->click(); }
    void ShowTab(int index)
    {
        program.Window.Window->show();
        Control<QTabWidget>("SSTab1")->setCurrentIndex(index);
        QCoreApplication::processEvents();
    }
    QString TextOf(const char* name) const { return Control<QLineEdit>(name)->text(); }
    QImage Shown() const
    {
        QImage shown
            = program.StatementPreview.P2->grab().toImage().convertToFormat(QImage::Format_RGB32);
        shown.setDevicePixelRatio(1.0); // pixel by pixel
        return shown;
    }
    QImage Page(qsizetype page) const
    {
        return PagePicture(
            program.Statement, page, program.StatementPreview.P2->devicePixelRatioF());
    }
};

/// The text of that element on all pages.
QString FixedText(const Program& program, const QString& element)
{
    for (const PageItem& item : program.Statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        if (text != nullptr && text->element == element)
            return text->text;
    }
    return {};
}

} // namespace

class TestShownBillsForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saving_settings_keeps_the_shown_page()
    {
        OpenClub club(u"ordinary-year"_s);
        club.Start(november);
        club.Click("Command9(0)");
        club.Click("Command9(0)");
        QCOMPARE(club.TextOf("Text7"), u"3"_s);
        QCOMPARE(club.Shown(), club.Page(2));
        QVERIFY(club.Page(2) != club.Page(0));
        for (const char* save : { "Command5", "Command7" }) {
            club.Click(save);
            QCOMPARE(club.TextOf("Text7"), u"3"_s);
            QCOMPARE(club.program.StatementPreview.P2->objectName(), u"P2(2)"_s);
            QCOMPARE(club.Shown(), club.Page(2));
        }
    }

    void loading_a_smaller_year_shows_its_first_page()
    {
        OpenClub club(u"ordinary-year"_s);
        QByteArrayList lines = club.Read(u"Mitgliedsdaten2016.pz"_s).split('\n');
        lines.removeLast(); // behind the last line end
        QCOMPARE(lines.size(), 8);
        club.Write(u"Mitgliedsdaten2016.pz"_s, lines.mid(2, 3).join('\n') + '\n');
        club.Start(november);
        for (int i = 0; i < 8; ++i)
            club.Click("Command9(0)");
        QCOMPARE(club.TextOf("Text7"), u"8"_s);
        club.Click("Command3(1)");
        club.Click("Command4");
        QCOMPARE(club.program.Year.LoadedYear, u"2016"_s);
        QCOMPARE(club.TextOf("Text7"), u"1"_s);
        QCOMPARE(club.TextOf("Text8(1)"), u"3"_s);
        QCOMPARE(club.TextOf("Text9"), u"3"_s);
        QCOMPARE(club.program.StatementPreview.P2->objectName(), u"P2(0)"_s);
        QCOMPARE(club.Shown(), club.Page(0));
        QVERIFY(club.Page(0) != club.Page(2));
    }

    void an_unfinished_page_says_so_beside_the_preview_and_before_it_is_printed()
    {
        OpenClub club(u"new-member"_s);
        club.Start(QDate(2018, 11, 26));
        club.ShowTab(1);
        const auto* line = club.Control<QLabel>("UnfinishedLine");
        QVERIFY(!line->isVisible()); // page 1 has all its amounts
        const auto* pages = club.Control<QLabel>("UnfinishedPages");
        QVERIFY(pages->isVisible());
        QCOMPARE(pages->text(), u"Ab Seite 7 fehlen Beträge."_s);
        for (int i = 0; i < 6; ++i)
            club.Click("Command9(0)");
        QCOMPARE(club.TextOf("Text7"), u"7"_s);
        QVERIFY(line->isVisible());
        QCOMPARE(line->text(), u"Auf dieser Seite fehlen Beträge."_s);
        QVERIFY2(line->toolTip().contains(u"Mitgliedsdaten2017.pz"_s), qPrintable(line->toolTip()));
        QCOMPARE(TintOf(line), TintKind::Wrong);
        club.Click("Command9(1)");
        QVERIFY(!line->isVisible());
    }

    void finished_pages_say_nothing_and_take_no_room()
    {
        OpenClub club(u"ordinary-year"_s);
        club.Start(november);
        club.ShowTab(1);
        for (const char* name : { "UnfinishedLine", "UnfinishedPages", "PrintedYear" })
            QVERIFY(!club.Control<QLabel>(name)->isVisible());
    }

    void a_member_without_a_finished_bill_is_not_proposed_unmarked()
    {
        OpenClub club(u"new-member"_s);
        club.Start(QDate(2018, 11, 26));
        club.ShowTab(2);
        auto* deposit = club.Control<QLineEdit>("Text10(2)");
        auto* names = club.Control<QListWidget>("List4");
        const auto click = [&](int row) {
            QTest::mouseClick(names->viewport(), Qt::LeftButton, {},
                names->visualItemRect(names->item(row)).center());
        };
        click(6);
        QCOMPARE(deposit->text(), u"0,00"_s);
        QCOMPARE(TintOf(deposit), TintKind::Wrong);
        QVERIFY2(
            deposit->toolTip().contains(names->item(6)->text()), qPrintable(deposit->toolTip()));
        click(0);
        QVERIFY(deposit->text() != u"0,00"_s);
        QCOMPARE(TintOf(deposit), TintKind::None);
        click(6);
        QTest::keyClicks(deposit, u"1"_s);
        QCOMPARE(TintOf(deposit), TintKind::None);
        click(6);
        ResetEntryFields(club.program);
        QCOMPARE(TintOf(deposit), TintKind::None);
    }

    void pages_that_name_another_year_than_their_data_are_pointed_out()
    {
        OpenClub club(u"ordinary-year"_s);
        club.Start(november);
        club.ShowTab(1);
        const auto* line = club.Control<QLabel>("PrintedYear");
        club.Click("Command3(1)"); // the pages are still those of 2017
        QVERIFY(!line->isVisible());
        club.Click("Command5"); // prices are saved, the pages drawn anew
        QVERIFY(line->isVisible());
        QCOMPARE(line->text(),
            u"Auf den Seiten steht 2016, gerechnet sind sie aus den Daten von 2017."_s);
        club.Click("Command3(0)");
        club.Click("Command4");
        QVERIFY(!line->isVisible());
    }

    void the_print_run_is_called_as_its_pages_are_headed()
    {
        OpenClub club(u"ordinary-year"_s);
        club.Start(november);
        club.Click("Command3(1)"); // the year box shows 2016, the pages are still those of 2017
        QCOMPARE(club.program.Year.YearText, u"2016"_s);
        const QString path = club.Folder.filePath(u"bills.pdf"_s);
        club.program.PrintFrame.ShowPrintDialog = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(path);
            return true;
        };
        club.Click("Command6");
        QCOMPARE(TitleOfPdf(path), u"Abrechnung Kleingarten 2017"_s);
        QCOMPARE(TitleOfPdf(path), FixedText(club.program, u"title"_s));
    }
};

const TestFile<TestShownBillsForm> test_file(__FILE__);
#include "test_shown_bills_form.moc"
