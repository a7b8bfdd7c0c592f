// Pictures of every tab as users have it: small and large windows, large letters, a dark desktop;
// run a second time on a fine screen. They lie in out/ for whoever changes the looks of something.
#include "controls/fields.h"
#include "outgoing/payment_code.h"
#include "statement/statement_pages.h"
#include "tests/support/more_club.h"
#include "tests/support/page_picture.h"
#include "tests/support/test_file.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPalette>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QPalette DarkPalette()
{
    QPalette dark(QColor(60, 60, 60), QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 48));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    return dark;
}

/// A club with all marks that a wrong turn can leave. Every box is answered with "Nein".
struct MarkedClub : TestClub {
    MarkedClub()
    {
        CopyExample(u"ordinary-year"_s);
        const QString members = u"Mitgliedsdaten2017.pz"_s;
        QByteArray lines = Read(members);
        lines.replace("Feldrain 9;", "Feldrain;9;"); // 17 fields
        lines.replace("3180;3433;117;131", "3180;3100;117;900");
        lines.replace(";7150;7660;", ";7150;viel;"); // the bill stops
        Write(members, lines);
        Start({ 2017, 11, 20 });
        program.Ask = [](const MessageBox&) { return BoxAnswer::No; };
        program.Window.Window->show();
        Control<QListWidget>("List1")->setCurrentRow(4);
        Control<QPushButton>("Command3(1)")->click(); // 2016, while 2017 is shown
        Control<QPushButton>("Command5")->click(); // the pages are drawn again
        Control<QLineEdit>("Text3(2)")->setText(u"Neuer Weg 7"_s);
        for (int page = 1; page < 7; ++page)
            Control<QPushButton>("Command9(0)")->click();
    }
};

void TypeInto(const TestClub& club, const char* field, const QString& text)
{
    auto* control = club.Control<QLineEdit>(field);
    control->selectAll();
    QTest::keyClicks(control, text);
}

/// The preview of a bill: its page, which is paper on every desktop.
QColor PaperColour(const TestClub& club, const QImage& picture)
{
    const auto* page = club.program.StatementPreview.P1;
    const QPoint corner = page->mapTo(club.Window(), QPoint(page->width() / 2, 20));
    return picture.pixelColor(corner * picture.devicePixelRatio());
}

} // namespace

class TestWindowPictures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_tab_is_pictured_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("points");
        QTest::addColumn<bool>("dark");
        QTest::newRow("1024x700") << QSize(1024, 700) << 9 << false;
        QTest::newRow("1366x768") << QSize(1366, 768) << 9 << false;
        QTest::newRow("1920x1080") << QSize(1920, 1080) << 9 << false;
        QTest::newRow("16pt-1024x700") << QSize(1024, 700) << 16 << false;
        QTest::newRow("16pt-1366x768") << QSize(1366, 768) << 16 << false;
        QTest::newRow("dunkel-1366x768") << QSize(1366, 768) << 9 << true;
    }

    void every_tab_is_pictured()
    {
        QFETCH(QSize, size);
        QFETCH(int, points);
        QFETCH(bool, dark);
        const QFont font_before = QApplication::font();
        const QPalette palette_before = QApplication::palette();
        QFont font = font_before;
        font.setPointSize(points);
        QApplication::setFont(font);
        if (dark)
            QApplication::setPalette(DarkPalette());
        TakePictures(size, dark);
        QApplication::setPalette(palette_before);
        QApplication::setFont(font_before);
    }

    /// The code of an ordinary bill, and the largest one: long name, long purpose.
    void the_page_with_a_code_is_pictured_data()
    {
        QTest::addColumn<QString>("payee");
        QTest::addColumn<QString>("iban");
        QTest::addColumn<int>("garden_length");
        QTest::addColumn<int>("version");
        QTest::newRow("code-klein")
            << u"KGV Am Mühlgraben e.V. Rotenfeld"_s << u"DE27 1002 0030 0012 3456 78"_s << 1 << 8;
        QTest::newRow("code-gross")
            << QString(70, u'Ä') << u"MT84 MALT 0110 0001 2345 MTLC AST0 01S"_s << 120 << 13;
    }

    void the_page_with_a_code_is_pictured()
    {
        QFETCH(QString, payee);
        QFETCH(QString, iban);
        QFETCH(int, garden_length);
        QFETCH(int, version);
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        club.program.Bank.Iban = iban;
        MemberRecord fields = SplitRecord(club.program.Members.RecordList[0]);
        fields[PlotNumber] = QString(garden_length, u'Ö');
        club.program.Members.RecordList[0] = JoinRecord(fields);
        DrawStatementPages(club.program);
        const PageCode code = CodeOfPage(club.program.Statement, payee, 0);
        QCOMPARE(code.Reason, QString());
        QCOMPARE(code.Squares.Side, 17 + 4 * version);
        club.program.Statement.AddedItems = [&](const PageBill&) { return ItemsOfCode(code); };
        constexpr double scale = 2.0;
        const QImage with = PagePicture(club.program.Statement, 0, scale);
        QVERIFY(with.save(QStringLiteral(PARZELLO_ROOT "/out/ansicht-%1.png")
                              .arg(QString::fromLatin1(QTest::currentDataTag()))));
        club.program.Statement.AddedItems = nullptr;
        const QImage without = PagePicture(club.program.Statement, 0, scale);
        // where the code and its quiet zone lie, the bill has left the paper white
        const PageBox box = CodeSpace(code.Squares.Side);
        const QRectF space(
            box.x1 * scale, box.y1 * scale, (box.x2 - box.x1) * scale, (box.y2 - box.y1) * scale);
        int painted = 0;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                const bool changed = with.pixel(x, y) != without.pixel(x, y);
                const bool inside = space.contains(x, y);
                painted += changed ? 1 : 0;
                QVERIFY(inside || !changed);
                QVERIFY(!inside || without.pixelColor(x, y) == QColor(Qt::white));
            }
        }
        QVERIFY(painted > 1000);
    }

    void boxes_to_tick_are_seen_on_a_dark_desktop_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("control");
        QTest::newRow("code") << u"MoreCode"_s << u"CodeOnEveryBill"_s;
        QTest::newRow("PDF") << u"MorePdf"_s << u"BillsInOne"_s;
        QTest::newRow("meter") << u"MoreMeter"_s << u"MeterWater"_s;
        QTest::newRow("prices") << QString() << u"Check2"_s;
        QTest::newRow("print") << QString() << u"Option1"_s;
        QTest::newRow("offer") << u"MoreAlign"_s << u"AlignList"_s;
    }

    void boxes_to_tick_are_seen_on_a_dark_desktop()
    {
        QFETCH(QString, entry);
        QFETCH(QString, control);
        const QPalette before = QApplication::palette();
        QApplication::setPalette(DarkPalette());
        {
            MoreClub club;
            QWidget* window = entry.isEmpty() ? club.program.Window.Window : club.Open(entry);
            auto* box = Find<QWidget>(window, control);
            QTabWidget* tabs = club.program.Window.SSTab1;
            while (entry.isEmpty() && !box->isVisible() && tabs->currentIndex() < SettingsTab)
                tabs->setCurrentIndex(tabs->currentIndex() + 1);
            QCoreApplication::processEvents();
            box->clearFocus();
            QImage picture = box->grab().toImage();
            if (auto* table = qobject_cast<QTableWidget*>(box)) {
                const QRect cell = table->visualItemRect(table->item(3, 3));
                picture = table->viewport()->grab(cell).toImage();
            }
            // the left end, where no letter stands; its ground is darker than 70
            const QImage indicator = picture.copy(0, 0, 14, picture.height());
            int lightest = 0;
            for (int y = 0; y < indicator.height(); ++y) {
                for (int x = 0; x < indicator.width(); ++x)
                    lightest = qMax(lightest, indicator.pixelColor(x, y).lightness());
            }
            QVERIFY2(lightest > 110, qPrintable(QString::number(lightest)));
        }
        QApplication::setPalette(before);
    }

private:
    /// What the window looks like now, as out/ansicht-<case>-x<scale>-<name>.png.
    static QImage Picture(QWidget* window, const QString& name)
    {
        const QDir out(QStringLiteral(PARZELLO_ROOT "/out"));
        if (!out.mkpath(u"."_s))
            qFatal("no folder for the pictures");
        for (int i = 0; i < 5; ++i) // layouts settle in several rounds
            QCoreApplication::processEvents();
        const QImage picture = window->grab().toImage();
        const QString scale = QString::number(window->devicePixelRatio());
        if (!picture.save(out.filePath(u"ansicht-%1-x%2-%3.png"_s.arg(
                QString::fromLatin1(QTest::currentDataTag()), scale, name))))
            qFatal("cannot save a picture");
        return picture;
    }

    /// The window behind an entry of "Mehr" on a screen of that size.
    static void PictureWindow(MoreClub& club, const QString& entry, const QSize& size, bool dark)
    {
        QWidget* window = club.Open(entry);
        QVERIFY2(window->minimumSizeHint().width() <= size.width()
                && window->minimumSizeHint().height() <= size.height(),
            qPrintable(entry));
        // the screen of the tests is smaller than the one that is meant
        window->resize(window->size().expandedTo(window->sizeHint()).boundedTo(size));
        const QImage picture = Picture(window, entry.sliced(4)); // behind "More"
        QCOMPARE(picture.pixelColor(3, 3).lightness() < 128, dark);
        MoreClub::Close(window);
    }

    static void TakePictures(const QSize& size, bool dark)
    {
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        QMainWindow* window = club.program.Window.Window;
        window->show();
        window->resize(size);
        const QTabWidget* tabs = club.program.Window.SSTab1;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            club.program.Window.SSTab1->setCurrentIndex(tab);
            const QImage picture = Picture(window, QString::number(tab + 1));
            QCOMPARE(picture.size(), size * window->devicePixelRatio());
            const QColor ground = picture.pixelColor(picture.width() - 3, 3);
            QCOMPARE(ground.lightness() < 128, dark);
            if (tab == 1)
                QCOMPARE(PaperColour(club, picture), QColor(Qt::white));
        }
        MoreClub more;
        more.program.Window.Window->resize(size);
        for (const QString& entry : MoreClub::Entries())
            PictureWindow(more, entry, size, dark);
        PictureMarks(size);
    }

    /// What can be wrong at once: another year is chosen than shown, fields are not saved, a line
    /// has 17 fields, readings and dates are doubtful, bills are not finished.
    static void PictureMarks(const QSize& size)
    {
        MarkedClub club;
        QMainWindow* window = club.program.Window.Window;
        window->resize(size);
        for (int tab = 0; tab < club.program.Window.SSTab1->count(); ++tab) {
            club.program.Window.SSTab1->setCurrentIndex(tab);
            if (tab == SettingsTab) {
                TypeInto(club, "Text4(0)", u"abc"_s);
                TypeInto(club, "Text4(1)", u"2,50"_s);
            }
            Picture(window, u"Marken%1"_s.arg(tab + 1));
        }
        for (const char* line : { "YearNoteMember", "YearNoteReadings", "UnfinishedLine",
                 "UnfinishedPages", "PrintedYear" })
            QVERIFY2(!club.Control<QLabel>(line)->text().isEmpty(), line);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text4(0)")), TintKind::Wrong);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text4(1)")), TintKind::Unsaved);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text1(1)")), TintKind::Wrong);
        QCOMPARE(TintOf(club.Control<QLineEdit>("Text1(4)")), TintKind::Doubtful);
    }
};

const TestFile<TestWindowPictures> test_file(__FILE__);
#include "test_window_pictures.moc"
