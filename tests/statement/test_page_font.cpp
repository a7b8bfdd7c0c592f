// The page on a computer without any fonts: this program runs with an empty font configuration and
// asks itself, started again with the system's fonts, for the picture of the same page.
#include "statement/page_font.h"
#include "statement/page_player.h"
#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/page_picture.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QRawFont>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage FirstPage() { return PagePicture(PagesOf(ExampleYears()[1]), 0, 2.0); }

/// The picture of the first page as this program makes it where the system has its fonts.
QImage FirstPageWithSystemFonts()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"page.png"_s);
    QProcess other;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"FONTCONFIG_FILE"_s);
    other.setProcessEnvironment(environment);
    other.start(QCoreApplication::applicationFilePath(), { u"--picture"_s, path });
    return other.waitForFinished() && other.exitCode() == 0 ? QImage(path) : QImage();
}

} // namespace

class TestPageFont : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void the_system_has_no_font();
    void both_faces_are_there();
    void every_character_of_the_page_has_its_letter();
    void widths_are_those_of_the_layout();
    void the_page_looks_as_with_the_systems_fonts();
};

void TestPageFont::the_system_has_no_font()
{
    QVERIFY(qEnvironmentVariableIsSet("FONTCONFIG_FILE"));
    QVERIFY(!QFontDatabase::families().contains(u"DejaVu Sans"_s));
}

void TestPageFont::both_faces_are_there()
{
    for (const bool bold : { false, true }) {
        const QFontInfo found(PageFont(bold));
        QCOMPARE(found.family(), u"Liberation Sans"_s);
        QCOMPARE(found.bold(), bold);
        const QString style = QRawFont::fromFont(PageFont(bold)).styleName();
        QCOMPARE(style, bold ? u"Bold"_s : u"Regular"_s); // not made bold by smearing
    }
}

void TestPageFont::every_character_of_the_page_has_its_letter()
{
    const QString letters = u"KWh m² m³ € äöüßÄÖÜ é „“ – 0123456789"_s;
    for (const bool bold : { false, true }) {
        const QRawFont font = QRawFont::fromFont(PageFont(bold));
        const QList<quint32> glyphs = font.glyphIndexesForString(letters);
        for (qsizetype i = 0; i < glyphs.size(); ++i)
            QVERIFY2(glyphs[i] != 0, qPrintable(letters.mid(i, 1)));
    }
}

void TestPageFont::widths_are_those_of_the_layout()
{
    const auto width = [](const QString& text, bool bold) {
        PageText item;
        item.text = text;
        item.bold = bold;
        return TextWidth(item);
    };
    QCOMPARE(width(u"KWh"_s, false), 23);
    QCOMPARE(width(u"208,20  €"_s, false), 45);
    QCOMPARE(width(u"Abrechnung Kleingarten 2016"_s, true), 157);
}

void TestPageFont::the_page_looks_as_with_the_systems_fonts()
{
    const QImage expected = FirstPageWithSystemFonts();
    QVERIFY(!expected.isNull());
    QCOMPARE(FirstPage(), expected);
}

int main(int argument_count, char** arguments)
{
    QGuiApplication application(argument_count, arguments);
    const QStringList given = QGuiApplication::arguments();
    if (given.value(1) == u"--picture"_s)
        return FirstPage().save(given.value(2)) ? 0 : 1;
    TestPageFont test;
    return QTest::qExec(&test, argument_count, arguments);
}

#include "test_page_font.moc"
