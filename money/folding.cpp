#include "money/folding.h"

#include "data/best_fit.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What one character becomes; the second one is 0 when it becomes one only.
struct Folding {
    char16_t first = 0;
    char16_t second = 0;
};

/// The letters that do not just lose their mark, and the signs that stand for plainer ones.
Folding SpecialFolding(char16_t sign)
{
    switch (sign) {
    case u'ä':
    case u'æ':
        return { u'a', u'e' };
    case u'ö':
    case u'œ':
        return { u'o', u'e' };
    case u'ü':
        return { u'u', u'e' };
    case u'ß':
        return { u's', u's' };
    case u'þ':
        return { u't', u'h' };
    case u'ð':
        return { u'd' };
    case u'å':
        return { u'a' };
    case u'ø':
        return { u'o' };
    case u'’':
    case u'‘':
    case u'`':
    case u'´':
        return { u'\'' };
    case u'–':
    case u'—':
        return { u'-' };
    case u'\u00A0':
    case u'\t':
        return { u' ' };
    default:
        return {};
    }
}

/// The letter without its mark; letters that no other alphabet shares stay as they are.
char16_t PlainLetter(QChar letter)
{
    const QString decomposed = QString(letter).normalized(QString::NormalizationForm_D);
    if (decomposed.front().unicode() < 0x80)
        return decomposed.front().unicode();
    const uchar like = letter.unicode() > 0xFF ? BestFit(letter.unicode()) : uchar { '?' };
    const bool known = like < 0x80 && QChar(char16_t { like }).isLetter();
    return known ? QChar(char16_t { like }).toLower().unicode() : letter.unicode();
}

Folding FoldingOf(char16_t sign)
{
    const QChar lower = QChar(sign).toLower();
    const Folding special = SpecialFolding(lower.unicode());
    if (special.first != 0)
        return special;
    return { lower.isLetter() ? PlainLetter(lower) : lower.unicode() };
}

/// Nearly every character of a text is found here.
Folding QuickFoldingOf(char16_t sign)
{
    constexpr std::size_t known = 0x180;
    static const std::array<Folding, known> table = [] {
        std::array<Folding, known> made {};
        for (std::size_t code = 0; code < known; ++code)
            made[code] = FoldingOf(static_cast<char16_t>(code));
        return made;
    }();
    return sign < known ? table[sign] : FoldingOf(sign);
}

QString Composed(const QString& text)
{
    constexpr char16_t first_combining_mark = 0x0300;
    const bool plain = std::all_of(text.cbegin(), text.cend(),
        [](QChar sign) { return sign.unicode() < first_combining_mark; });
    return plain ? text : text.normalized(QString::NormalizationForm_C);
}

/// A hyphen or an apostrophe ties a word to a letter on its far side.
bool TiesTo(QStringView folded, qsizetype sign, qsizetype far_side)
{
    const bool ties = folded[sign] == u'-' || folded[sign] == u'\'';
    return ties && far_side >= 0 && far_side < folded.size() && folded[far_side].isLetter();
}

} // namespace

QString Folded(const QString& text)
{
    const QString composed = Composed(text);
    QString folded;
    folded.reserve(composed.size() + 4);
    for (const QChar sign : composed) {
        const Folding folding = QuickFoldingOf(sign.unicode());
        folded += QChar(folding.first);
        if (folding.second != 0)
            folded += QChar(folding.second);
    }
    return folded;
}

FoldedText Fold(const QString& text)
{
    FoldedText folded;
    folded.Source = Composed(text);
    folded.Text.reserve(folded.Source.size() + 4);
    folded.Origins.reserve(folded.Source.size() + 5);
    for (qsizetype i = 0; i < folded.Source.size(); ++i) {
        const Folding folding = QuickFoldingOf(folded.Source[i].unicode());
        for (const char16_t sign : { folding.first, folding.second }) {
            if (sign == 0)
                continue;
            folded.Text += QChar(sign);
            folded.Origins += static_cast<int>(i);
        }
    }
    folded.Origins += static_cast<int>(folded.Source.size());
    return folded;
}

QStringView SourceOf(const FoldedText& folded, qsizetype begin, qsizetype end)
{
    const int from = folded.Origins[begin];
    return QStringView(folded.Source).sliced(from, folded.Origins[end] - from);
}

bool IsLetterOrDigit(QChar sign)
{
    const char16_t code = sign.unicode();
    if (code < 0x80)
        return (code >= u'a' && code <= u'z') || (code >= u'0' && code <= u'9')
            || (code >= u'A' && code <= u'Z');
    return sign.isLetter() || sign.isDigit();
}

bool BeginsWord(QStringView folded, qsizetype begin)
{
    if (begin == 0)
        return true;
    return !IsLetterOrDigit(folded[begin - 1]) && !TiesTo(folded, begin - 1, begin - 2);
}

bool EndsWord(QStringView folded, qsizetype end)
{
    if (end == folded.size())
        return true;
    return !IsLetterOrDigit(folded[end]) && !TiesTo(folded, end, end + 1);
}

bool IsWholeWord(QStringView folded, qsizetype begin, qsizetype end)
{
    return BeginsWord(folded, begin) && EndsWord(folded, end);
}

QString GardenKey(const QString& garden)
{
    QString key = Folded(garden).trimmed();
    qsizetype zeros = 0;
    while (zeros + 1 < key.size() && key[zeros] == u'0')
        ++zeros;
    return key.sliced(zeros);
}

QString WithSingleBlanks(const QString& text) { return text.simplified(); }
