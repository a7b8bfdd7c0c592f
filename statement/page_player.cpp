#include "statement/page_player.h"

#include "statement/page_font.h"

#include <QGlyphRun>
#include <QHash>
#include <QMap>
#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Points to page pixels at 96 dots per inch, rounded as the desktop does: 8 to 11, 14 to 19.
int PixelSize(int point_size) { return (point_size * 96 + 36) / 72; }

int Rounded(double value) { return static_cast<int>(std::floor(value + 0.5)); }

/// The page's font in one weight, one pixel per design unit: advances are exact.
QRawFont DesignFont(bool bold)
{
    QFont font = PageFont(bold);
    font.setPixelSize(1000);
    font.setHintingPreference(QFont::PreferNoHinting);
    QRawFont design = QRawFont::fromFont(font);
    design.setPixelSize(design.unitsPerEm());
    return design;
}

/// A character of a face: its glyph and how far it moves on, in design units. Control characters
/// are left out of texts.
struct Letter {
    quint32 glyph = 0;
    double advance = 0.0;
    bool is_control = false;
};

/// What a face is measured by. The faces lie inside the program and never change, so each character
/// is asked for once in its life.
struct FaceMeasures {
    double units_per_em = 0.0;
    double ascent = 0.0;
    QHash<QChar, Letter> letters;
};

FaceMeasures& MeasuresOf(bool bold)
{
    static FaceMeasures faces[2]; // regular, bold
    FaceMeasures& face = faces[bold ? 1 : 0];
    if (face.units_per_em == 0.0) {
        const QRawFont design = DesignFont(bold);
        face.units_per_em = design.unitsPerEm();
        face.ascent = design.ascent();
    }
    return face;
}

Letter MeasureLetter(QChar character, bool bold)
{
    Letter letter;
    letter.is_control = character.category() == QChar::Other_Control;
    if (letter.is_control)
        return letter;
    const QRawFont design = DesignFont(bold);
    const QVector<quint32> glyphs = design.glyphIndexesForString(character);
    letter.glyph = glyphs.value(0);
    letter.advance
        = design.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics).value(0).x();
    return letter;
}

const Letter& LetterOf(FaceMeasures& face, QChar character, bool bold)
{
    auto found = face.letters.find(character);
    if (found == face.letters.end())
        found = face.letters.insert(character, MeasureLetter(character, bold));
    return *found;
}

/// The font that is drawn with. Upright stems stay where the widths put them, only horizontal ones
/// snap to pixels.
QRawFont DrawnFont(bool bold, double pixel_size)
{
    QFont font = PageFont(bold);
    font.setPixelSize(Rounded(pixel_size));
    font.setHintingPreference(QFont::PreferVerticalHinting);
    QRawFont drawn = QRawFont::fromFont(font);
    drawn.setPixelSize(pixel_size);
    return drawn;
}

/// The glyphs of a text and where each begins, in page pixels from the text's left end.
struct LaidOutText {
    QVector<quint32> glyphs;
    QVector<int> offsets;
    int width = 0;
};

/// What can be seen of a text: no character that prints is narrower than a page pixel.
QString VisiblePart(const PageText& text)
{
    constexpr qsizetype enough = qsizetype(4) * PageWidth; // control characters have no width
    return text.right_aligned ? text.text.right(enough) : text.text.left(enough);
}

LaidOutText LayOut(const QString& text, bool bold, int pixel_size)
{
    LaidOutText laid_out;
    laid_out.glyphs.reserve(text.size());
    laid_out.offsets.reserve(text.size());
    FaceMeasures& face = MeasuresOf(bold);
    for (const QChar character : text) {
        const Letter& letter = LetterOf(face, character, bold);
        if (letter.is_control)
            continue;
        laid_out.glyphs += letter.glyph;
        laid_out.offsets += laid_out.width;
        laid_out.width += Rounded(letter.advance * pixel_size / face.units_per_em);
    }
    return laid_out;
}

/// Draws the items of one page. Fonts are looked up once per size and weight.
struct Player {
    QPainter& painter;
    double scale;
    QMap<std::pair<int, bool>, QRawFont> fonts {}; ///< by pixel size and weight

    const QRawFont& Drawn(int pixel_size, bool bold)
    {
        QRawFont& font = fonts[{ pixel_size, bold }];
        if (!font.isValid())
            font = DrawnFont(bold, pixel_size * scale);
        return font;
    }

    /// Draws the text but its first hidden characters, which the next text covers.
    void Draw(const PageText& text, qsizetype hidden)
    {
        const int pixel_size = PixelSize(text.point_size);
        const LaidOutText laid_out = LayOut(VisiblePart(text), text.bold, pixel_size);
        const int left = text.right_aligned ? text.x - laid_out.width : text.x;
        const FaceMeasures& face = MeasuresOf(text.bold);
        const int baseline = text.y + Rounded(face.ascent * pixel_size / face.units_per_em);

        QVector<QPointF> positions;
        for (int offset : laid_out.offsets.mid(hidden))
            positions += QPointF((left + offset) * scale, baseline * scale);
        QGlyphRun run;
        run.setRawFont(Drawn(pixel_size, text.bold));
        run.setGlyphIndexes(laid_out.glyphs.mid(hidden));
        run.setPositions(positions);
        painter.setPen(text.colour == PageColour::DarkRed ? QColor(192, 0, 0) : QColor(Qt::black));
        painter.drawGlyphRun(QPointF(0, 0), run);
    }

    /// Lines are one page pixel wide and begin on a whole dot of the device.
    void Draw(const PageLine& line)
    {
        const int width = std::max(1, Rounded(scale));
        const int left = Rounded(line.x1 * scale);
        const int top = Rounded(line.y1 * scale);
        painter.fillRect(QRect(left, top, Rounded(line.x2 * scale) - left + width,
                             Rounded(line.y2 * scale) - top + width),
            Qt::black);
    }

    /// Edges fall on whole dots, so that neighbours touch.
    void Draw(const PageFill& fill)
    {
        const QPoint corner(Rounded(fill.x * scale), Rounded(fill.y * scale));
        const QPoint beyond(
            Rounded((fill.x + fill.width) * scale), Rounded((fill.y + fill.height) * scale));
        painter.fillRect(QRect(corner, beyond - QPoint(1, 1)), Qt::black);
    }

    void Draw(const PageBox& box)
    {
        Draw(PageLine { box.x1, box.y1, box.x2, box.y1 });
        Draw(PageLine { box.x1, box.y2, box.x2, box.y2 });
        Draw(PageLine { box.x1, box.y1, box.x1, box.y2 });
        Draw(PageLine { box.x2, box.y1, box.x2, box.y2 });
    }
};

/// True when the text is printed over the beginning of the other one in another colour.
bool Covers(const PageText& over, const PageText& text)
{
    return over.colour != text.colour && over.colour != PageColour::Black && !over.right_aligned
        && !text.right_aligned && over.x == text.x && over.y == text.y && over.bold == text.bold
        && over.point_size == text.point_size && text.text.startsWith(over.text);
}

/// "IBAN" and "BIC" are printed in red exactly over their black selves. Smoothed edges would let
/// the black shine through, so characters that a text beside it in the list prints over are left
/// out.
qsizetype CoveredCharacters(const PageItems& items, std::size_t index)
{
    const auto& text = std::get<PageText>(items[index]);
    for (const std::size_t neighbour : { index + 1, index - 1 }) { // in front of the first: none
        if (neighbour >= items.size())
            continue;
        const auto* over = std::get_if<PageText>(&items[neighbour]);
        if (over != nullptr && Covers(*over, text))
            return over->text.size();
    }
    return 0;
}

} // namespace

void PlayPage(QPainter& painter, const PageItems& items, double scale)
{
    painter.save();
    Player player { painter, scale };
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (const auto* text = std::get_if<PageText>(&items[i]))
            player.Draw(*text, CoveredCharacters(items, i));
        else if (const auto* line = std::get_if<PageLine>(&items[i]))
            player.Draw(*line);
        else if (const auto* fill = std::get_if<PageFill>(&items[i]))
            player.Draw(*fill);
        else
            player.Draw(std::get<PageBox>(items[i]));
    }
    painter.restore();
}

int TextWidth(const PageText& text)
{
    const int pixel_size = PixelSize(text.point_size);
    return LayOut(text.text, text.bold, pixel_size).width;
}

int TextLeft(const PageText& text)
{
    return text.right_aligned ? text.x - TextWidth(text) : text.x;
}
