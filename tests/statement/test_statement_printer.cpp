// Printing from the tab: what is sent to the printer, what the paper looks like, what ends
// silently.
#include "tests/support/page_picture.h"
#include "tests/support/printed.h"
#include "tests/support/statement_tab.h"

#include "statement/print_dialog.h"
#include "statement/statement_pages.h"
#include "statement/statement_printer.h"
#include "tests/support/test_file.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QHash>
#include <QImage>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QProgressDialog>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int picture_scale = 2; // picture pixels per page pixel

QImage PreviewPicture(const LoneStatementTab& tab, qsizetype page)
{
    return PagePicture(tab.program.Statement, page, picture_scale);
}

/// The smallest rectangle around everything that is not white.
QRect InkOf(const QImage& picture)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 250)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// A printer with a sheet feed instead of a file.
class PaperPrinter : public QPrinter {
    struct Engine : QPaintEngine, QPrintEngine {
        int sheets = 0;
        QHash<int, QVariant> properties;

        bool begin(QPaintDevice*) override
        {
            ++sheets;
            return true;
        }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override { }
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override { }
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { }
        Type type() const override { return User; }
        void setProperty(PrintEnginePropertyKey key, const QVariant& value) override
        {
            properties[key] = value;
        }
        QVariant property(PrintEnginePropertyKey key) const override
        {
            if (key == PPK_PageRect || key == PPK_PaperRect)
                return QRect(0, 0, 2480, 3508);
            return properties.value(key);
        }
        bool newPage() override
        {
            ++sheets;
            return true;
        }
        bool abort() override { return false; }
        int metric(QPaintDevice::PaintDeviceMetric) const override { return 300; }
        QPrinter::PrinterState printerState() const override
        {
            return sheets > 0 ? QPrinter::Active : QPrinter::Idle;
        }
    };
    Engine m_engine;

public:
    PaperPrinter() { setEngines(&m_engine, &m_engine); }
    int Sheets() const { return m_engine.sheets; }
};

/// Presses "Abbrechen" as soon as the progress box shows.
struct CancelAtOnce : QObject {
    int seen = 0;
    QString label;
    QString button;
    bool busy = false;
    bool presses = true; ///< false: only looks

    CancelAtOnce() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* box = qobject_cast<QProgressDialog*>(watched);
        if (box == nullptr || event->type() != QEvent::Show)
            return false;
        ++seen;
        label = box->labelText();
        auto* cancel = box->findChild<QAbstractButton*>();
        button = cancel == nullptr ? QString() : cancel->text();
        busy = QGuiApplication::overrideCursor() != nullptr
            && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        if (presses && cancel != nullptr)
            cancel->click();
        return false;
    }
};

} // namespace

class TestStatementPrinter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pages_two_to_three_become_two_a4_sheets();
    void the_choice_of_all_pages_changes_nothing();
    void the_job_carries_the_bills_title();
    void every_page_of_a_club_is_printed_with_its_own_amounts();
    void the_printed_page_lies_on_the_previews_picture();
    void words_stand_in_their_cells_on_paper();
    void fields_without_pages_print_nothing_after_the_dialog_data();
    void fields_without_pages_print_nothing_after_the_dialog();
    void a_cancelled_dialog_prints_nothing();
    void a_file_that_cannot_be_written_ends_silently();
    void a_run_that_fails_between_two_sheets_ends_silently();
    void a_page_selection_that_is_no_number_ends_silently();
    void a_bill_that_stopped_half_way_is_printed_as_it_is();
    void the_printer_is_set_to_a4_portrait_300_dots();
    void what_the_dialog_says_of_paper_and_dots_is_overruled();
    void nothing_is_printed_beyond_the_pages_edge();
    void a_page_stands_where_left_and_top_say();
    void the_dialog_offers_no_range_of_its_own();
    void a_file_hides_what_does_nothing_for_it();
    void a_long_run_that_is_cancelled_prints_nothing();
    void a_cancelled_run_leaves_the_file_of_the_last_one();
    void the_reverse_order_begins_with_the_last_page();
    void a_printer_gets_all_sheets_or_none_data();
    void a_printer_gets_all_sheets_or_none();
    void a_short_run_shows_no_box();
};

void TestStatementPrinter::pages_two_to_three_become_two_a4_sheets()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Type("Text8(0)", u"2"_s);
    tab.Type("Text8(1)", u"3"_s);
    tab.Click("Command6");
    QCOMPARE(tab.DialogsShown, 1);
    QCOMPARE(PagesOfPdf(path), 2);
    QVERIFY(TextOfPdfPage(path, 0).contains(u"Käthe Sommer"_s));
    QVERIFY(TextOfPdfPage(path, 1).contains(u"Jörg Böhm"_s));
    QCOMPARE(tab.Boxes, QStringList());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStatementPrinter::the_choice_of_all_pages_changes_nothing()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Type("Text8(0)", u"2"_s);
    tab.Type("Text8(1)", u"3"_s);
    tab.Click("Option1");
    tab.Click("Command6");
    QCOMPARE(PagesOfPdf(path), 2);
}

void TestStatementPrinter::the_job_carries_the_bills_title()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Click("Command6");
    QCOMPARE(tab.Job, u"Abrechnung Kleingarten 2017"_s);
    QCOMPARE(TitleOfPdf(path), u"Abrechnung Kleingarten 2017"_s);
}

void TestStatementPrinter::every_page_of_a_club_is_printed_with_its_own_amounts()
{
    const ExampleYear example = YearOf(u"gaps"_s);
    LoneStatementTab tab(example);
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Click("Command6");
    QCOMPARE(PagesOfPdf(path), 6);
    for (int page = 0; page < 6; ++page) {
        const QString text = TextOfPdfPage(path, page).simplified();
        for (const QString& row : TextRows(tab.program.Statement, page)) {
            const QStringList cells = row.split(u'\t');
            for (const QString& word : cells[1].split(u' ', Qt::SkipEmptyParts))
                QVERIFY2(text.contains(word), qPrintable(cells[0] + u": "_s + word));
        }
    }
}

void TestStatementPrinter::the_printed_page_lies_on_the_previews_picture()
{
    LoneStatementTab tab(YearOf(u"contacts"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Click("Command6");
    for (int page : { 0, 4 }) {
        const QImage preview = PreviewPicture(tab, page);
        const QImage printed = PictureOfPdf(path, page, preview.size());
        QCOMPARE(printed.size(), preview.size());
        // Two picture pixels are one page pixel: lines and letters lie where the preview has them.
        QVERIFY(InkCoveredBy(printed, preview, 2) > 0.999);
        QVERIFY(InkCoveredBy(preview, printed, 2) > 0.999);
        // The same measure does notice a page of somebody else, and a shift by three page pixels.
        QVERIFY(InkCoveredBy(printed, PreviewPicture(tab, 1), 2) < 0.999);
        QVERIFY(
            InkCoveredBy(printed, preview.copy(6, 0, preview.width(), preview.height()), 2) < 0.9);
    }
}

void TestStatementPrinter::words_stand_in_their_cells_on_paper()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Click("Command6");
    int inside = 0;
    for (const PrintedWord& word : WordsOfPdf(path)) {
        if (word.top < 300 || word.top > 625) // the rows of the table
            continue;
        for (int line : { 320, 380, 460, 540, 620 }) {
            if (word.left > 290) // behind the labels
                QVERIFY2(word.right <= line + 0.5 || word.left >= line + 1, qPrintable(word.text));
        }
        inside += word.left > 320 ? 1 : 0;
    }
    QVERIFY(inside >= 8 * 28);
}

void TestStatementPrinter::fields_without_pages_print_nothing_after_the_dialog_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("zero") << u"0"_s << u"3"_s;
    QTest::newRow("beyond") << u"1"_s << u"9"_s;
    QTest::newRow("turned round") << u"3"_s << u"2"_s;
    QTest::newRow("letters") << u"a"_s << u"3"_s;
    QTest::newRow("fraction") << u"1,5"_s << u"3"_s;
    QTest::newRow("empty") << QString() << QString();
}

void TestStatementPrinter::fields_without_pages_print_nothing_after_the_dialog()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Type("Text8(0)", from);
    tab.Type("Text8(1)", to);
    tab.Click("Command6");
    QCOMPARE(tab.DialogsShown, 1); // the fields are read after the dialog
    QVERIFY(!QFile::exists(path));
    QCOMPARE(tab.Boxes, QStringList());
}

void TestStatementPrinter::a_cancelled_dialog_prints_nothing()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.Click("Command6");
    QCOMPARE(tab.DialogsShown, 1);
    QCOMPARE(tab.Boxes, QStringList());
}

void TestStatementPrinter::a_file_that_cannot_be_written_ends_silently()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.PrintTo(u"no such folder/bills.pdf"_s);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    tab.Click("Command6");
    QVERIFY(!QFile::exists(path));
    QCOMPARE(tab.Boxes, QStringList());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStatementPrinter::a_run_that_fails_between_two_sheets_ends_silently()
{
    LoneStatementTab tab(YearOf(u"large-club"_s));
    tab.program.PrintFrame.ShowPrintDialog = [](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(u"/dev/full"_s); // a full disk: the first bytes are still taken
        return true;
    };
    tab.Type("Text8(0)", u"3"_s);
    tab.Click("Command6");
    QCOMPARE(tab.Boxes, QStringList());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStatementPrinter::a_page_selection_that_is_no_number_ends_silently()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.PrintTo(u"bills.pdf"_s);
    tab.program.Statement.PageSelection = u"x"_s;
    tab.Click("Command6");
    QCOMPARE(tab.DialogsShown, 1);
    QCOMPARE(tab.Boxes, QStringList());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStatementPrinter::a_bill_that_stopped_half_way_is_printed_as_it_is()
{
    LoneStatementTab tab(YearOf(u"new-member"_s));
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Click("Command6");
    QCOMPARE(PagesOfPdf(path), 7);
    QVERIFY(TextOfPdfPage(path, 6).contains(u"18 Gesamtsumme"_s));
    QVERIFY(!TextOfPdfPage(path, 6).contains(u"€"_s));
}

void TestStatementPrinter::the_printer_is_set_to_a4_portrait_300_dots()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPageOrientation(QPageLayout::Landscape);
    SetUpPrinter(printer);
    QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::A4);
    QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);
    QCOMPARE(printer.resolution(), 300);
    const QRectF printable = printer.pageRect(QPrinter::DevicePixel);
    QVERIFY(qAbs(printable.width() - 2480) <= 1);
    QVERIFY(qAbs(printable.height() - 3508) <= 1);
}

void TestStatementPrinter::what_the_dialog_says_of_paper_and_dots_is_overruled()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.Folder.filePath(u"bills.pdf"_s);
    tab.program.PrintFrame.ShowPrintDialog = [&](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageSize(QPageSize(QPageSize::Letter));
        printer.setPageOrientation(QPageLayout::Landscape);
        printer.setResolution(1200);
        return true;
    };
    tab.Click("Command6");
    QCOMPARE(PageSizeOfPdf(path), u"595 x 842 pts (A4)"_s);
    QCOMPARE(DotsPerInchOfPdf(path), 300);
}

void TestStatementPrinter::nothing_is_printed_beyond_the_pages_edge()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.program.ClubName = QString(200, u'W');
    DrawStatementPages(tab.program);
    const QString path = tab.Folder.filePath(u"bills.pdf"_s);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    SetUpPrinter(printer);
    printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    PrintStatementPages(
        printer, tab.program.Statement, JobFor(tab.program.Statement, { 0, 0 }), nullptr);
    // Two picture dots a millimetre: the page lies between 20 and 190 mm.
    const QRect ink = InkOf(PictureOfPdf(path, 0, QSize(420, 594)));
    QVERIFY2(ink.left() >= 40 && ink.left() <= 60, qPrintable(QString::number(ink.left())));
    QVERIFY2(ink.right() >= 378 && ink.right() <= 380, qPrintable(QString::number(ink.right())));
}

void TestStatementPrinter::a_page_stands_where_left_and_top_say()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const auto ink_at = [&](double left, double top) {
        const QString path = tab.Folder.filePath(u"bills.pdf"_s);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        SetUpPrinter(printer);
        PrintJob job = JobFor(tab.program.Statement, { 0, 0 });
        job.scale_factor = 0.5;
        job.left = left;
        job.top = top;
        PrintStatementPages(printer, tab.program.Statement, job, nullptr);
        return InkOf(PictureOfPdf(path, 0, QSize(620, 877))); // 75 dots per inch
    };
    const QRect ink = ink_at(0, 0);
    QVERIFY(ink.width() > 250 && ink.width() < 310);
    const QRect moved = ink_at(400, 800); // printer dots: 100 and 200 of the picture's
    QCOMPARE(moved.topLeft() - ink.topLeft(), QPoint(100, 200));
    QCOMPARE(moved.bottomRight() - ink.bottomRight(), QPoint(100, 200));
}

void TestStatementPrinter::the_dialog_offers_no_range_of_its_own()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer);
    PreparePrintDialog(dialog);
    for (const auto option :
        { QAbstractPrintDialog::PrintPageRange, QAbstractPrintDialog::PrintSelection,
            QAbstractPrintDialog::PrintCurrentPage, QAbstractPrintDialog::PrintCollateCopies })
        QVERIFY(!dialog.testOption(option));
    QVERIFY(dialog.testOption(QAbstractPrintDialog::PrintToFile));
    QCOMPARE(dialog.windowTitle(), u"Drucken"_s);
    dialog.show();
    const auto* range = dialog.findChild<QWidget*>(u"gbPrintRange"_s);
    QVERIFY(range != nullptr);
    QVERIFY(!range->isVisible());
}

void TestStatementPrinter::a_file_hides_what_does_nothing_for_it()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer);
    PreparePrintDialog(dialog);
    dialog.show();
    dialog.findChild<QTabWidget*>(u"tabs"_s)->parentWidget()->show(); // "Optionen"
    for (const auto& name : { u"properties"_s, u"copies"_s, u"collate"_s, u"duplex"_s }) {
        const auto* part = dialog.findChild<QWidget*>(name);
        QVERIFY2(part != nullptr && !part->isVisible(), qPrintable(name));
    }
    QVERIFY(!dialog.findChild<QWidget*>(u"reverse"_s)->isHidden());
}

void TestStatementPrinter::the_reverse_order_begins_with_the_last_page()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    const QString path = tab.Folder.filePath(u"bills.pdf"_s);
    tab.program.PrintFrame.ShowPrintDialog = [&](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageOrder(QPrinter::LastPageFirst); // "Umgekehrt"
        return true;
    };
    tab.Type("Text8(0)", u"2"_s);
    tab.Type("Text8(1)", u"3"_s);
    tab.Click("Command6");
    QCOMPARE(PagesOfPdf(path), 2);
    QVERIFY(TextOfPdfPage(path, 0).contains(u"Jörg Böhm"_s));
    QVERIFY(TextOfPdfPage(path, 1).contains(u"Käthe Sommer"_s));
}

void TestStatementPrinter::a_cancelled_run_leaves_the_file_of_the_last_one()
{
    LoneStatementTab tab(YearOf(u"large-club"_s));
    tab.Show(1024, 700);
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    tab.Type("Text8(1)", u"2"_s);
    tab.Click("Command6");
    QCOMPARE(PagesOfPdf(path), 2);
    tab.Type("Text8(1)", u"120"_s);
    CancelAtOnce user;
    tab.Click("Command6");
    QCOMPARE(user.seen, 1);
    QCOMPARE(PagesOfPdf(path), 2);
    QCOMPARE(QDir(tab.Folder.path()).entryList(QDir::Files), QStringList { u"bills.pdf"_s });
}

void TestStatementPrinter::a_printer_gets_all_sheets_or_none_data()
{
    QTest::addColumn<bool>("cancelled");
    QTest::addColumn<int>("sheets");
    QTest::newRow("cancelled") << true << 0;
    QTest::newRow("to the end") << false << 120;
}

void TestStatementPrinter::a_printer_gets_all_sheets_or_none()
{
    QFETCH(bool, cancelled);
    QFETCH(int, sheets);
    LoneStatementTab tab(YearOf(u"large-club"_s));
    tab.Show(1024, 700);
    PaperPrinter printer;
    SetUpPrinter(printer);
    CancelAtOnce user;
    user.presses = cancelled;
    PrintStatementPages(
        printer, tab.program.Statement, JobFor(tab.program.Statement, { 0, 119 }), &tab.Tab);
    QCOMPARE(user.label,
        cancelled ? u"Seite 1 von 120 wird vorbereitet …"_s
                  : u"Seite 1 von 120 geht an den Drucker …"_s);
    QCOMPARE(printer.Sheets(), sheets);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TestStatementPrinter::a_long_run_that_is_cancelled_prints_nothing()
{
    LoneStatementTab tab(YearOf(u"large-club"_s));
    tab.Show(1024, 700);
    const QString path = tab.PrintTo(u"bills.pdf"_s);
    CancelAtOnce user;
    tab.Click("Command6");
    QCOMPARE(user.seen, 1);
    QCOMPARE(user.label, u"Seite 1 von 120 wird gedruckt …"_s);
    QCOMPARE(user.button, u"Abbrechen"_s);
    QVERIFY(user.busy);
    QCOMPARE(QDir(tab.Folder.path()).entryList(QDir::Files), QStringList());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    QCOMPARE(tab.Boxes, QStringList());
}

void TestStatementPrinter::a_short_run_shows_no_box()
{
    LoneStatementTab tab(YearOf(u"ordinary-year"_s));
    tab.Show(1024, 700);
    tab.PrintTo(u"bills.pdf"_s);
    CancelAtOnce user;
    tab.Click("Command6");
    QCOMPARE(user.seen, 0);
}

const TestFile<TestStatementPrinter> test_file(__FILE__);
#include "test_statement_printer.moc"
