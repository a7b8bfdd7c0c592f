// Pictures of every tab as users have it: small and large windows, large letters, a dark desktop;
// run a second time on a fine screen. They lie in out/ for whoever changes the looks of something.
#include "tests/support/club.h"
#include "tests/support/test_file.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QPalette>
#include <QTabWidget>
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

private:
    /// The window of a report, as it opens.
    static void PictureReport(TestClub& club, const QString& entry, bool dark)
    {
        club.program.Window.Window->findChild<QAction*>(entry)->trigger();
        const QString kind = entry.sliced(4); // behind "More"
        const QWidget* window = OpenedReportOf(club.program, kind)->Window;
        QCoreApplication::processEvents();
        const QImage picture = const_cast<QWidget*>(window)->grab().toImage();
        const qreal scale = window->devicePixelRatio();
        QVERIFY(picture.save(
            QStringLiteral(PARZELLO_ROOT "/out/ansicht-%1-x%2-%3.png")
                .arg(QString::fromLatin1(QTest::currentDataTag()), QString::number(scale), kind)));
        QCOMPARE(picture.pixelColor(3, 3).lightness() < 128, dark);
    }

    static void TakePictures(const QSize& size, bool dark)
    {
        const QDir out(QStringLiteral(PARZELLO_ROOT "/out"));
        QVERIFY(out.mkpath(u"."_s));
        TestClub club;
        club.CopyExample(u"ordinary-year"_s);
        club.Start({ 2017, 11, 20 });
        QMainWindow* window = club.program.Window.Window;
        window->show();
        window->resize(size);
        const QTabWidget* tabs = club.program.Window.SSTab1;
        for (int tab = 0; tab < tabs->count(); ++tab) {
            club.program.Window.SSTab1->setCurrentIndex(tab);
            for (int i = 0; i < 5; ++i) // layouts settle in several rounds
                QCoreApplication::processEvents();
            const QImage picture = window->grab().toImage();
            const qreal scale = window->devicePixelRatio();
            QCOMPARE(picture.size(), size * scale);
            QVERIFY(picture.save(out.filePath(
                u"ansicht-%1-x%2-%3.png"_s.arg(QString::fromLatin1(QTest::currentDataTag()),
                    QString::number(scale), QString::number(tab + 1)))));
            const QColor ground = picture.pixelColor(picture.width() - 3, 3);
            QCOMPARE(ground.lightness() < 128, dark);
            if (tab == 1)
                QCOMPARE(PaperColour(club, picture), QColor(Qt::white));
        }
        for (const char* entry : { "MoreOpenItems", "MoreCashReport", "MoreCashBook", "MoreYears" })
            PictureReport(club, QString::fromLatin1(entry), dark);
    }
};

const TestFile<TestWindowPictures> test_file(__FILE__);
#include "test_window_pictures.moc"
