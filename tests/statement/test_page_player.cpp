// The page on screen and on paper: widths, cells, sharpness, real text.
#include "statement/page_player.h"

#include "statement/statement_pages.h"
#include "tests/support/example_bills.h"
#include "tests/support/page_picture.h"
#include "tests/support/printed.h"
#include "tests/support/test_file.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

PageText Text(const QString& text, int point_size = 8, bool bold = false)
{
    PageText item;
    item.text = text;
    item.point_size = point_size;
    item.bold = bold;
    return item;
}

/// A word of a page with its first and last column of page pixels.
struct Word {
    QString text;
    int left = 0;
    int last = 0;
    int top = 0;
};

QVector<Word> WordsOf(const PageText& text)
{
    QVector<Word> words;
    const int start = TextLeft(text);
    const auto width_of = [&](qsizetype characters) {
        return TextWidth(Text(text.text.left(characters), text.point_size, text.bold));
    };
    qsizetype from = 0;
    for (qsizetype i = 0; i <= text.text.size(); ++i) {
        if (i < text.text.size() && text.text[i] != u' ')
            continue;
        if (i > from)
            words += { text.text.mid(from, i - from), start + width_of(from),
                start + width_of(i) - 1, text.y };
        from = i + 1;
    }
    return words;
}

QVector<PageItem> ItemsOf(const StatementState& statement, qsizetype page)
{
    const PageContents contents = ContentsOfPage(statement, page);
    QVector<PageItem> items(contents.fixed->begin(), contents.fixed->end());
    items += QVector<PageItem>(contents.member.begin(), contents.member.end());
    return items;
}

/// The upright lines of boxes and lines.
QVector<PageLine> UprightLines(const QVector<PageItem>& items)
{
    QVector<PageLine> lines;
    for (const PageItem& item : items) {
        if (const auto* box = std::get_if<PageBox>(&item)) {
            lines += { box->x1, box->y1, box->x1, box->y2 };
            lines += { box->x2, box->y1, box->x2, box->y2 };
        } else if (const auto* line = std::get_if<PageLine>(&item)) {
            lines += *line;
        }
    }
    return lines;
}

/// Digits and capitals stand between two and ten pixels below the text's top.
bool BesideLine(const Word& word, const PageLine& line)
{
    return word.top + 2 <= line.y2 && word.top + 10 >= line.y1;
}

bool IsBlack(const QImage& image, int x, int y) { return image.pixel(x, y) == qRgb(0, 0, 0); }
bool IsWhite(const QImage& image, int x, int y) { return image.pixel(x, y) == qRgb(255, 255, 255); }

/// A cell of the table, twelve pixels high, with digits at its right end.
PageItems CellWithDigits(int top)
{
    PageItems page;
    AddBox(page, 10, top, 90, top + 12);
    AddRightAligned(page, u"row_1_amount"_s, 78, top, u"0,00"_s);
    return page;
}

using Band = std::pair<int, int>; ///< first row and the row behind the last

/// The bands of rows that have something dark within the area.
QVector<Band> DarkBands(const QImage& image, const QRect& area)
{
    QVector<Band> bands;
    bool was_dark = false;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        bool dark = false;
        for (int x = area.left(); x <= area.right(); ++x)
            dark = dark || qGray(image.pixel(x, y)) < 128;
        if (dark && !was_dark)
            bands += { y, y };
        if (dark)
            bands.last().second = y + 1;
        was_dark = dark;
    }
    return bands;
}

ExampleYear OrdinaryYear() { return ExampleYears()[1]; }

void WritePdf(const QString& path, const StatementState& statement, int resolution)
{
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(resolution);
    QPainter painter(&writer);
    const PageContents contents = ContentsOfPage(statement, 0);
    const double scale = double(writer.width()) / PageWidth;
    PlayPage(painter, *contents.fixed, scale);
    PlayPage(painter, contents.member, scale);
}

} // namespace

class TestPagePlayer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void arial_is_liberation_sans();
    void widths_are_sums_of_whole_pixels_data();
    void widths_are_sums_of_whole_pixels();
    void units_and_table_head_fall_into_their_columns_data();
    void units_and_table_head_fall_into_their_columns();
    void numbers_end_at_their_right_edge();
    void control_characters_have_no_width_and_no_ink();
    void what_runs_past_the_edge_of_the_page_changes_nothing();
    void no_word_of_any_example_crosses_a_line();
    void digits_stand_between_the_lines_of_their_cell_data();
    void digits_stand_between_the_lines_of_their_cell();
    void digits_stand_between_the_lines_on_paper_too();
    void lines_are_whole_black_pixels_at_every_device_pixel_ratio_data();
    void lines_are_whole_black_pixels_at_every_device_pixel_ratio();
    void the_font_of_the_program_and_the_resolution_of_the_screen_change_nothing();
    void red_words_show_no_black_and_the_rest_stays_black();
    void only_a_text_that_is_printed_over_exactly_is_left_out();
    void a_pdf_holds_words_at_their_page_pixels_data();
    void a_pdf_holds_words_at_their_page_pixels();
};

void TestPagePlayer::arial_is_liberation_sans()
{
    QCOMPARE(QFontInfo(QFont(u"Arial"_s)).family(), u"Liberation Sans"_s);
}

void TestPagePlayer::widths_are_sums_of_whole_pixels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("point_size");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("width");
    QString all; // every printable character of the code page
    for (int byte = 32; byte < 256; ++byte) {
        if (byte < 0x7f || byte > 0x9f)
            all += QChar(byte);
    }
    all += u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"_s;
    QTest::newRow("all regular") << all << 8 << false << 1304;
    QTest::newRow("all bold") << all << 8 << true << 1361;
    QTest::newRow("all large") << all << 14 << false << 2293;
    QTest::newRow("unit") << u"KWh"_s << 8 << false << 23; // fractional widths: 23.84
    QTest::newRow("head") << u"Umrechnungs-"_s << 8 << false << 73; // 72.14
    QTest::newRow("digits") << u"0123456789"_s << 8 << false << 60; // 61.18
    QTest::newRow("total") << u"208,20  €"_s << 8 << false << 45;
    QTest::newRow("title") << u"Abrechnung Kleingarten 2016"_s << 8 << true << 157; // 155.87
    QTest::newRow("same, regular") << u"Abrechnung Kleingarten 2016"_s << 8 << false << 143;
    QTest::newRow("club name") << u"KGV \"Lindenblick\" e.V. Wiesenrode"_s << 14 << false << 306;
    QTest::newRow("blanks") << QString(10, u' ') << 8 << false << 30;
    QTest::newRow("bold blanks") << QString(10, u' ') << 8 << true << 30;
    QTest::newRow("no kerning") << u"AVAVAV"_s << 8 << false << 42;
    QTest::newRow("no ligatures") << u"ffi"_s << 8 << false << 8;
    QTest::newRow("nothing") << QString() << 8 << false << 0;
}

void TestPagePlayer::widths_are_sums_of_whole_pixels()
{
    QFETCH(QString, text);
    QFETCH(int, point_size);
    QFETCH(bool, bold);
    QFETCH(int, width);
    QCOMPARE(TextWidth(Text(text, point_size, bold)), width);
}

void TestPagePlayer::units_and_table_head_fall_into_their_columns_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("end");
    QTest::newRow("KWh") << u"row_1_label"_s << u"KWh"_s << 295 << 318;
    QTest::newRow("m³") << u"row_6_label"_s << u"m³"_s << 307 << 320;
    QTest::newRow("m² lease") << u"row_11_label"_s << u"m²"_s << 305 << 319;
    QTest::newRow("m² tax") << u"row_12_label"_s << u"m²"_s << 302 << 316;
    QTest::newRow("m² area") << u"row_13_label"_s << u"m²"_s << 303 << 317;
    QTest::newRow("consumption") << u"head_1"_s << u"Verbrauch"_s << 321 << 372;
    QTest::newRow("factor") << u"head_1"_s << u"Umrechnungs-"_s << 381 << 454;
    QTest::newRow("factor 2") << u"head_2"_s << u"faktor"_s << 383 << 411;
    QTest::newRow("amount") << u"head_1"_s << u"Betrag"_s << 463 << 495;
    QTest::newRow("amount 2") << u"head_2"_s << u"Euro"_s << 462 << 485;
    QTest::newRow("IBAN ends before BIC") << u"iban"_s << u"00"_s << 203 << 215;
    QTest::newRow("BIC") << u"bic"_s << u"BIC"_s << 220 << 239;
}

void TestPagePlayer::units_and_table_head_fall_into_their_columns()
{
    QFETCH(QString, element);
    QFETCH(QString, word);
    QFETCH(int, left);
    QFETCH(int, end);
    const StatementState statement = PagesOf(OrdinaryYear());
    Word found;
    for (const PageItem& item : statement.FixedContents) {
        const auto* text = std::get_if<PageText>(&item);
        if (text == nullptr || text->element != element)
            continue;
        for (const Word& candidate : WordsOf(*text)) {
            if (candidate.text == word)
                found = candidate;
        }
    }
    QCOMPARE(found.left, left);
    QCOMPARE(found.last + 1, end);
}

void TestPagePlayer::numbers_end_at_their_right_edge()
{
    PageText number = Text(u"62,50"_s);
    number.right_aligned = true;
    number.x = AmountEdge;
    QCOMPARE(TextLeft(number), AmountEdge - 27);
    number.right_aligned = false;
    QCOMPARE(TextLeft(number), AmountEdge);
}

void TestPagePlayer::control_characters_have_no_width_and_no_ink()
{
    const QString nothing = u"\u0001\t\r\n\u007f\u0081"_s + QChar(0);
    QCOMPARE(TextWidth(Text(nothing)), 0);
    QCOMPARE(TextWidth(Text(u"A"_s + nothing + u"B"_s)), TextWidth(Text(u"AB"_s)));
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QImage empty = image;
    QPainter painter(&image);
    PageItems page;
    AddText(page, u"x"_s, 5, 5, nothing);
    PlayPage(painter, page, 1.0);
    painter.end();
    QCOMPARE(image, empty);
}

void TestPagePlayer::what_runs_past_the_edge_of_the_page_changes_nothing()
{
    const auto picture = [](qsizetype characters) {
        PageItems page;
        AddText(page, u"club_name"_s, 35, 60, QString(characters, u'i'), ClubNameStyle);
        AddRightAligned(page, u"row_1_factor"_s, FactorEdge, Row1, QString(characters, u'1'));
        QImage image(PageWidth, PageHeight, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PlayPage(painter, page, 1.0);
        return image;
    };
    QCOMPARE(picture(1000000), picture(1000));
    QVERIFY(picture(1000) != picture(50));
}

void TestPagePlayer::no_word_of_any_example_crosses_a_line()
{
    int words = 0;
    int beside = 0;
    for (const ExampleYear& example : ExampleYears()) {
        const StatementState statement = PagesOf(example);
        for (qsizetype page = 0; page < example.Members; ++page) {
            const QVector<PageItem> items = ItemsOf(statement, page);
            const QVector<PageLine> lines = UprightLines(items);
            for (const PageItem& item : items) {
                const auto* text = std::get_if<PageText>(&item);
                if (text == nullptr)
                    continue;
                for (const Word& word : WordsOf(*text)) {
                    ++words;
                    for (const PageLine& line : lines) {
                        if (!BesideLine(word, line))
                            continue;
                        ++beside;
                        QVERIFY2(word.last < line.x1 || word.left > line.x1,
                            qPrintable(example.Club + u": "_s + word.text));
                    }
                }
            }
        }
    }
    QVERIFY2(words > 20000, qPrintable(QString::number(words)));
    QVERIFY2(beside > 40000, qPrintable(QString::number(beside)));
}

void TestPagePlayer::digits_stand_between_the_lines_of_their_cell_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<int>("digits_top");
    QTest::addColumn<int>("digits_bottom");
    QTest::newRow("1") << 1 << 2 << 11; // pixels below the text's top; the last one is free
    QTest::newRow("2") << 2 << 5 << 23;
}

void TestPagePlayer::digits_stand_between_the_lines_of_their_cell()
{
    QFETCH(int, scale);
    QFETCH(int, digits_top);
    QFETCH(int, digits_bottom);
    QImage image(100 * scale, 50 * scale, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PlayPage(painter, CellWithDigits(20), scale);
    painter.end();
    const QVector<Band> expected { { 20 * scale, 21 * scale },
        { 20 * scale + digits_top, 20 * scale + digits_bottom }, { 32 * scale, 33 * scale } };
    QCOMPARE(DarkBands(image, QRect(50 * scale, 0, 30 * scale, 50 * scale)), expected);
}

void TestPagePlayer::digits_stand_between_the_lines_on_paper_too()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"cell.pdf"_s);
    {
        QPdfWriter writer(path);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(300);
        QPainter painter(&writer);
        PlayPage(painter, CellWithDigits(400), double(writer.width()) / PageWidth);
    }
    constexpr int scale = 4; // picture pixels per page pixel
    const QImage image = PictureOfPdf(path, 0, QSize(PageWidth * scale, 918 * scale));
    const QVector<Band> bands
        = DarkBands(image, QRect(50 * scale, 395 * scale, 30 * scale, 25 * scale));
    QCOMPARE(bands.size(), 3);
    const Band digits = bands[1];
    QVERIFY2(
        qAbs(digits.first - (400 * scale + 10)) <= 2, qPrintable(QString::number(digits.first)));
    QVERIFY2(
        qAbs(digits.second - (400 * scale + 46)) <= 2, qPrintable(QString::number(digits.second)));
    QVERIFY(digits.first > bands[0].second);
    QVERIFY(digits.second < bands[2].first);
}

void TestPagePlayer::lines_are_whole_black_pixels_at_every_device_pixel_ratio_data()
{
    QTest::addColumn<int>("ratio");
    QTest::newRow("1") << 1;
    QTest::newRow("2") << 2;
    QTest::newRow("3") << 3;
}

void TestPagePlayer::lines_are_whole_black_pixels_at_every_device_pixel_ratio()
{
    QFETCH(int, ratio);
    const QImage image = PagePicture(PagesOf(OrdinaryYear()), 0, ratio);
    const int row = 312 * ratio; // inside row 1
    for (int x : { 320, 380, 460, 540 }) {
        QVERIFY(IsWhite(image, x * ratio - 1, row));
        for (int i = 0; i < ratio; ++i)
            QVERIFY(IsBlack(image, x * ratio + i, row));
        QVERIFY(IsWhite(image, (x + 1) * ratio, row));
    }
    for (int y : { 306, 318 }) {
        QVERIFY(IsWhite(image, 330 * ratio, y * ratio - 1));
        for (int i = 0; i < ratio; ++i)
            QVERIFY(IsBlack(image, 330 * ratio, y * ratio + i));
        QVERIFY(IsWhite(image, 330 * ratio, (y + 1) * ratio));
    }
    QVERIFY(IsBlack(image, 620 * ratio, 428 * ratio)); // corner of the higher box of row 9
    QVERIFY(IsWhite(image, 620 * ratio, 429 * ratio));
}

void TestPagePlayer::the_font_of_the_program_and_the_resolution_of_the_screen_change_nothing()
{
    const StatementState statement = PagesOf(OrdinaryYear());
    const QImage before = PagePicture(statement, 0, 1.0);
    const QFont own = QGuiApplication::font();
    QFont large = own;
    large.setPointSize(20);
    large.setBold(true);
    QGuiApplication::setFont(large);
    QCOMPARE(PagePicture(statement, 0, 1.0), before);
    QGuiApplication::setFont(own);

    QImage fine(PageWidth, PageHeight, QImage::Format_RGB32);
    fine.setDotsPerMeterX(8000); // a device of 203 dots per inch
    fine.setDotsPerMeterY(8000);
    fine.fill(Qt::white);
    QPainter painter(&fine);
    PlayPage(painter, statement.FixedContents, 1.0);
    PlayPage(painter, ContentsOfPage(statement, 0).member, 1.0);
    painter.end();
    fine.setDotsPerMeterX(before.dotsPerMeterX());
    fine.setDotsPerMeterY(before.dotsPerMeterY());
    QCOMPARE(fine, before);
}

void TestPagePlayer::red_words_show_no_black_and_the_rest_stays_black()
{
    const QImage image = PagePicture(PagesOf(OrdinaryYear()), 0, 3.0);
    const auto darkest_red = [&](int from, int to) {
        int red = 255;
        for (int y = 644 * 3; y < 657 * 3; ++y) {
            for (int x = from * 3; x < to * 3; ++x)
                red = qMin(red, qRed(image.pixel(x, y)));
        }
        return red;
    };
    QCOMPARE(darkest_red(35, 62), 192); // "IBAN"
    QCOMPARE(darkest_red(220, 239), 192); // "BIC"
    QCOMPARE(darkest_red(65, 215), 0); // the number behind it
    QCOMPARE(darkest_red(242, 321), 0);
}

void TestPagePlayer::only_a_text_that_is_printed_over_exactly_is_left_out()
{
    const auto has_black = [](int x_of_second, const QString& second) {
        PageItems page;
        AddText(page, u"first"_s, 5, 5, u"IBAN"_s, BoldStyle);
        AddText(page, u"second"_s, x_of_second, 5, second, RedStyle);
        QImage image(180, 75, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PlayPage(painter, page, 3.0);
        painter.end();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qRed(image.pixel(x, y)) < 64)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(!has_black(5, u"IBAN"_s));
    QVERIFY(has_black(5, u"IB"_s));
    QVERIFY(has_black(6, u"IBAN"_s));
    QVERIFY(has_black(5, u"BIC"_s));
}

void TestPagePlayer::a_pdf_holds_words_at_their_page_pixels_data()
{
    QTest::addColumn<int>("resolution");
    QTest::newRow("300") << 300;
    QTest::newRow("1200") << 1200;
}

void TestPagePlayer::a_pdf_holds_words_at_their_page_pixels()
{
    QFETCH(int, resolution);
    const StatementState statement = PagesOf(OrdinaryYear());
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"page.pdf"_s);
    WritePdf(path, statement, resolution);

    QVector<PrintedWord> printed = WordsOfPdf(path);
    int found = 0;
    for (const PageItem& item : ItemsOf(statement, 0)) {
        const auto* text = std::get_if<PageText>(&item);
        if (text == nullptr || text->element.endsWith(u"_red"_s))
            continue;
        for (const Word& word : WordsOf(*text)) {
            const auto match
                = std::find_if(printed.begin(), printed.end(), [&](const PrintedWord& candidate) {
                      return candidate.text == word.text && qAbs(candidate.left - word.left) < 1.0
                          && qAbs(candidate.top - word.top) < 4.0;
                  });
            QVERIFY2(match != printed.end(), qPrintable(text->element + u": "_s + word.text));
            // The last character may be as wide as it is; it ends within a pixel of its place.
            QVERIFY2(qAbs(match->right - (word.last + 1)) < 1.0, qPrintable(word.text));
            printed.erase(match);
            ++found;
        }
    }
    QVERIFY(printed.isEmpty());
    QVERIFY(found > 120);
    const QString page = TextOfPdfPage(path, 0);
    for (const QString& words : { u"KGV Am Mühlgraben e.V. Rotenfeld"_s, u"m³"_s, u"m²"_s,
             u"173,66 €"_s, u"Wir bitten um Überweisung der Gesamtsumme"_s })
        QVERIFY2(page.contains(words), qPrintable(words));
}

const TestFile<TestPagePlayer> test_file(__FILE__);
#include "test_page_player.moc"
