// The preview inside the whole window: which page it shows after a save and after "Laden", and what
// a print run is called.
#include "tests/support/club.h"
#include "tests/support/page_picture.h"
#include "tests/support/printed.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPrinter>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QDate november { 2017, 11, 20 };

struct OpenClub : TestClub {
    explicit OpenClub(const QString& example) { CopyExample(example); }

    void Click(const char* name) { Control<QPushButton>(name)->click(); }
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

QTEST_MAIN(TestShownBillsForm)
#include "test_shown_bills_form.moc"
