// The manual's window: contents beside the text, search, pictures that fit.
#include "app/manual_window.h"
#include "controls/fields.h"
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Two chapters, a section and a picture.
QByteArray SmallPage()
{
    const QByteArray lines = QByteArray("<p>Zeile</p>").repeated(80);
    return "<h2 id=\"eins\">Kapitel Eins</h2>" + lines
        + "<p>Laubenpieper</p><p><img src=\"bild.png\" width=\"640\" /></p>"
        + "<h3 id=\"drin\">Abschnitt darin</h3>" + lines + "<h2 id=\"zwei\">Kapitel Zwei</h2>"
        + lines + "<p>Laubenpieperin</p>";
}

/// As long as the program's own manual: so long a page is laid out in several steps.
QByteArray LongPage()
{
    const QByteArray picture = "<p><img src=\"bild.png\" width=\"640\" /></p>";
    const QByteArray chapter = "<h2>Kapitel</h2>" + picture
        + QByteArray("<p>Zeile dazwischen</p>").repeated(5) + picture
        + QByteArray("<p>Zeile</p>").repeated(80);
    return "<h2 id=\"zwei\">Kapitel Zwei</h2>" + chapter.repeated(20);
}

/// A club with a manual of its own.
struct ManualClub : TestClub {
    QTemporaryDir Page;

    explicit ManualClub(const QByteArray& page = SmallPage())
    {
        CopyExample(u"ordinary-year"_s);
        Start({ 2017, 11, 20 });
        program.Window.Window->show();
        QImage picture(1280, 800, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        if (!picture.save(Page.filePath(u"bild@2x.png"_s)))
            qFatal("no picture");
        QFile file(PagePath());
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no page");
        file.write("<html><body><h1>Handbuch</h1>" + page + "</body></html>");
        file.close();
        ShowManualPage(program, PagePath(), u"zwei"_s);
    }

    QString PagePath() const { return Page.filePath(u"handbuch.html"_s); }
    QWidget* ManualWindow() const { return Control<QWidget>("ManualWindow"); }
    QTextBrowser* Text() const { return Control<QTextBrowser>("Manual"); }
    QTreeWidget* Contents() const { return Control<QTreeWidget>("ManualContents"); }
    QLineEdit* Search() const { return Control<QLineEdit>("ManualSearch"); }
    QString SectionRead() const { return Contents()->currentItem()->text(0); }

    /// The heading or line at the top of the text.
    QString Top() const { return Text()->cursorForPosition(QPoint(0, 12)).block().text(); }

    double PictureWidth() const
    {
        const QTextDocument* document = Text()->document();
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            const QTextCharFormat format = block.begin().fragment().charFormat();
            if (format.isImageFormat())
                return format.toImageFormat().width();
        }
        qFatal("no picture in the text");
    }
};

} // namespace

class TestManualWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void it_opens_at_the_chapter_that_was_asked_for()
    {
        const ManualClub club;
        QCOMPARE(club.Top(), u"Kapitel Zwei"_s);
        QCOMPARE(club.SectionRead(), u"Kapitel Zwei"_s);
    }

    void the_contents_are_beside_the_text_wherever_it_stands()
    {
        const ManualClub club;
        QCOMPARE(club.Contents()->topLevelItemCount(), 2);
        QCOMPARE(club.Contents()->topLevelItem(0)->text(0), u"Kapitel Eins"_s);
        QCOMPARE(club.Contents()->topLevelItem(0)->child(0)->text(0), u"Abschnitt darin"_s);
        QVERIFY(club.Contents()->isVisible());
        club.Text()->verticalScrollBar()->setValue(0);
        QVERIFY(club.Contents()->isVisible());
        QVERIFY(club.Contents()->geometry().right() < club.Text()->geometry().left()
                + club.Text()->mapTo(club.ManualWindow(), QPoint()).x());
    }

    void picking_an_entry_shows_its_section()
    {
        const ManualClub club;
        club.Contents()->setCurrentItem(club.Contents()->topLevelItem(0)->child(0));
        QCOMPARE(club.Top(), u"Abschnitt darin"_s);
    }

    void reading_on_marks_the_section_that_is_read()
    {
        const ManualClub club;
        club.Text()->verticalScrollBar()->setValue(0);
        club.Text()->verticalScrollBar()->setValue(club.Text()->viewport()->height());
        QCOMPARE(club.SectionRead(), u"Kapitel Eins"_s);
        club.Text()->scrollToAnchor(u"drin"_s);
        QCOMPARE(club.SectionRead(), u"Abschnitt darin"_s);
    }

    void ctrl_f_searches_and_goes_round()
    {
        const ManualClub club;
        QVERIFY(QTest::qWaitForWindowActive(club.ManualWindow()));
        club.Text()->moveCursor(QTextCursor::Start);
        QTest::keyClick(club.Text(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(club.Search()->hasFocus());
        QTest::keyClicks(club.Search(), u"laubenpieper"_s);
        QCOMPARE(club.Text()->textCursor().selectedText(), u"Laubenpieper"_s);
        const int first = club.Text()->textCursor().position();
        QTest::keyClick(club.Search(), Qt::Key_Return);
        const int second = club.Text()->textCursor().position();
        QVERIFY(second > first);
        QTest::keyClick(club.Search(), Qt::Key_F3);
        QCOMPARE(club.Text()->textCursor().position(), first);
        QTest::keyClick(club.Search(), Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(club.Text()->textCursor().position(), second);
    }

    void the_search_begins_at_what_is_read_now()
    {
        const ManualClub club;
        QVERIFY(QTest::qWaitForWindowActive(club.ManualWindow()));
        club.Text()->moveCursor(QTextCursor::Start); // the caret is left behind
        club.Text()->scrollToAnchor(u"drin"_s);
        const int place = club.Text()->verticalScrollBar()->value();
        QTest::keyClick(club.Text(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(club.Text()->verticalScrollBar()->value(), place);
        QTest::keyClicks(club.Search(), u"Zeile"_s);
        const int found = club.Text()->textCursor().blockNumber();
        QCOMPARE(
            club.Text()->document()->findBlockByNumber(found - 1).text(), u"Abschnitt darin"_s);
    }

    void what_stands_between_two_pictures_keeps_its_room()
    {
        const ManualClub club(LongPage());
        QCoreApplication::processEvents();
        double above = -1;
        const QTextDocument* document = club.Text()->document();
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            const QRectF place = document->documentLayout()->blockBoundingRect(block);
            QVERIFY2(place.height() > 0 && place.top() > above, qPrintable(block.text()));
            above = place.top();
        }
        QVERIFY(club.PictureWidth() < 640.0); // the text is narrow enough to shrink them
    }

    void a_word_that_is_not_there_is_said_to_be_missing()
    {
        const ManualClub club;
        club.Search()->setText(u"Zeile"_s);
        QCOMPARE(TintOf(club.Search()), TintKind::None);
        club.Search()->setText(u"Zeppelin"_s);
        QCOMPARE(TintOf(club.Search()), TintKind::Wrong);
        QCOMPARE(club.Search()->toolTip(), u"Das steht nicht im Handbuch."_s);
    }

    void a_word_that_is_not_there_moves_nothing()
    {
        const ManualClub club;
        club.Text()->scrollToAnchor(u"drin"_s);
        const int place = club.Text()->verticalScrollBar()->value();
        QTest::mouseClick(club.Search(), Qt::LeftButton);
        QTest::keyClicks(club.Search(), u"x"_s);
        QCOMPARE(club.Text()->verticalScrollBar()->value(), place);
        QTest::keyClick(club.Search(), Qt::Key_Backspace);
        QTest::keyClicks(club.Search(), u"Laub"_s);
        QCOMPARE(club.Text()->textCursor().block().text(), u"Laubenpieperin"_s);
    }

    void below_what_was_found_one_can_read_on()
    {
        const ManualClub club;
        club.Text()->verticalScrollBar()->setValue(0);
        club.Text()->moveCursor(QTextCursor::Start);
        club.Search()->setText(u"Abschnitt darin"_s);
        QVERIFY(club.Text()->cursorRect().top() > 0);
        QVERIFY(club.Text()->cursorRect().top() < club.Text()->viewport()->height() / 2);
    }

    void pictures_fit_the_window_and_get_no_wider_than_they_are()
    {
        const ManualClub club;
        club.ManualWindow()->resize(1400, 700);
        QCOMPARE(club.PictureWidth(), 640.0);
        club.ManualWindow()->resize(620, 700);
        QVERIFY(club.PictureWidth() < club.Text()->viewport()->width());
        QCOMPARE(club.Text()->horizontalScrollBar()->maximum(), 0);
        club.ManualWindow()->resize(1400, 700);
        QCOMPARE(club.PictureWidth(), 640.0);
    }

    void what_was_read_stays_at_the_top_when_pictures_shrink()
    {
        const ManualClub club;
        club.ManualWindow()->resize(1400, 700);
        club.Text()->scrollToAnchor(u"zwei"_s);
        club.ManualWindow()->resize(620, 700);
        QCOMPARE(club.Top(), u"Kapitel Zwei"_s);
    }

    void escape_leaves_the_search_and_then_the_window()
    {
        const ManualClub club;
        QVERIFY(QTest::qWaitForWindowActive(club.ManualWindow()));
        club.Search()->setFocus();
        QTest::keyClick(club.Search(), Qt::Key_Escape);
        QVERIFY(club.Text()->hasFocus());
        QTest::keyClick(club.Text(), Qt::Key_Escape);
        QVERIFY(!club.ManualWindow()->isVisible());
    }

    void opened_again_it_is_the_same_window_at_the_new_chapter()
    {
        ManualClub club;
        const QWidget* window = club.ManualWindow();
        ShowManualPage(club.program, club.PagePath(), u"eins"_s);
        QCOMPARE(club.ManualWindow(), window);
        QCOMPARE(club.Top(), u"Kapitel Eins"_s);
    }
};

const TestFile<TestManualWindow> test_file(__FILE__);
#include "test_manual_window.moc"
