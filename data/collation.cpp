// Every text has a key of three parts, each of which decides only where the parts before it are
// equal: the letters as such, their diacritics, and the hyphens and apostrophes with their places.
// The tables follow the order in which the platform lists the characters of the code page.
#include "data/collation.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

// Between the parts of a key: lower than every weight, so that the shorter text comes first.
constexpr char part_end = 1;

// Signs in front of the digits, in the platform's order.
constexpr char16_t signs_in_order[] = u" \u00A0\t\n\v\f\r!\"#$%&()*,./:;?@[\\]^\u02C6_`{|}~"
                                      u"\u00A1\u00A6\u00A8\u00AF\u00B4\u00B8\u00BF\u02DC"
                                      u"\u2018\u2019\u201A\u201C\u201D\u201E\u2039\u203A"
                                      u"\u00A2\u00A3\u00A4\u00A5\u20AC"
                                      u"+<=>\u00B1\u00AB\u00BB\u00D7\u00F7"
                                      u"\u00A7\u00A9\u00AC\u00AE\u00B0\u00B5\u00B6\u00B7"
                                      u"\u2026\u2020\u2021\u2022\u2030";

// Digits, the fractions at their places among them, then the letters.
constexpr char16_t letters_in_order[] = u"0\u00BC\u00BD\u00BE123456789abcdefghijklmnopqrstuvwxyz";

// Signs that count only when all else is equal, the lightest first: apostrophe, soft hyphen,
// hyphens, dashes. The control characters are lighter still.
constexpr char16_t light_signs_in_order[] = u"'\u00AD-\u2010\u2011\u2013\u2014";

enum Diacritic : unsigned char {
    Plain = 2,
    Raised,
    Grave,
    Acute,
    Circumflex,
    Tilde,
    Diaeresis,
    Ring,
    Caron,
    Cedilla,
    Stroke
};

struct Likeness {
    char16_t letter;
    char16_t first; ///< the letter as which it counts
    char16_t second; ///< and a second one, or 0
    Diacritic diacritic;
};

// clang-format off
constexpr Likeness likenesses[] = {
    { u'ª', u'a', 0, Raised }, { u'à', u'a', 0, Grave }, { u'á', u'a', 0, Acute },
    { u'â', u'a', 0, Circumflex }, { u'ã', u'a', 0, Tilde }, { u'ä', u'a', 0, Diaeresis },
    { u'å', u'a', 0, Ring }, { u'æ', u'a', u'e', Plain },
    { u'ç', u'c', 0, Cedilla }, { u'ð', u'd', 0, Stroke },
    { u'è', u'e', 0, Grave }, { u'é', u'e', 0, Acute }, { u'ê', u'e', 0, Circumflex },
    { u'ë', u'e', 0, Diaeresis }, { u'ƒ', u'f', 0, Stroke },
    { u'ì', u'i', 0, Grave }, { u'í', u'i', 0, Acute }, { u'î', u'i', 0, Circumflex },
    { u'ï', u'i', 0, Diaeresis }, { u'ñ', u'n', 0, Tilde },
    { u'º', u'o', 0, Raised }, { u'ò', u'o', 0, Grave }, { u'ó', u'o', 0, Acute },
    { u'ô', u'o', 0, Circumflex }, { u'õ', u'o', 0, Tilde }, { u'ö', u'o', 0, Diaeresis },
    { u'ø', u'o', 0, Stroke }, { u'œ', u'o', u'e', Plain },
    { u'š', u's', 0, Caron }, { u'ß', u's', u's', Plain },
    { u'þ', u't', u'h', Plain }, { u'™', u't', u'm', Raised },
    { u'ù', u'u', 0, Grave }, { u'ú', u'u', 0, Acute }, { u'û', u'u', 0, Circumflex },
    { u'ü', u'u', 0, Diaeresis }, { u'ý', u'y', 0, Acute }, { u'ÿ', u'y', 0, Diaeresis },
    { u'ž', u'z', 0, Caron },
    { u'¹', u'1', 0, Raised }, { u'²', u'2', 0, Raised }, { u'³', u'3', 0, Raised },
};
// clang-format on

// What one character adds to the parts of a key; 0 is nothing.
struct Weights {
    unsigned char first = 0;
    unsigned char second = 0;
    unsigned char diacritic = 0;
    unsigned char light = 0;
};

constexpr char16_t last_known = u'\u2122';
using WeightTable = std::array<Weights, last_known + 1>;

WeightTable MakeWeightTable()
{
    WeightTable table {};
    unsigned char light = 0;
    for (char16_t control = 0; control < 0xA0; ++control) {
        if (control < 0x20 || control >= 0x7F)
            table[control].light = ++light;
    }
    for (const char16_t* sign = light_signs_in_order; *sign != 0; ++sign)
        table[*sign].light = ++light;
    unsigned char weight = part_end + 1;
    for (const char16_t* list : { signs_in_order, letters_in_order }) {
        for (const char16_t* sign = list; *sign != 0; ++sign)
            table[*sign] = { weight++, 0, Plain, 0 };
    }
    for (const Likeness& like : likenesses) {
        table[like.letter].first = table[like.first].first;
        table[like.letter].second = table[like.second].first;
        table[like.letter].diacritic = like.diacritic;
    }
    return table;
}

Weights WeightsOf(char16_t sign)
{
    static const WeightTable table = MakeWeightTable();
    if (sign >= table.size())
        return {};
    return table[sign];
}

// A character that the code page lacks comes behind all others, by its number.
void AppendUnknown(QByteArray& letters, char16_t sign)
{
    letters += '\xFF';
    letters += static_cast<char>(sign >> 8);
    letters += static_cast<char>(sign & 0xFF);
}

// The place (how many letters stand in front) decides before the sign does: "co-op" comes before
// "coo-p".
void AppendLightSign(QByteArray& light_signs, qsizetype place, unsigned char weight)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        light_signs += static_cast<char>((place >> shift) & 0xFF);
    light_signs += static_cast<char>(weight);
}

QString ComposedAndLower(const QString& text)
{
    const bool has_combining_marks
        = std::any_of(text.begin(), text.end(), [](QChar sign) { return sign >= u'\u0300'; });
    return (has_combining_marks ? text.normalized(QString::NormalizationForm_C) : text).toLower();
}

} // namespace

int CompareTexts(const QString& a, const QString& b)
{
    const int order = CollationKey(a).compare(CollationKey(b));
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

QByteArray CollationKey(const QString& text)
{
    QByteArray letters;
    QByteArray diacritics; // one for every letter
    QByteArray light_signs;
    for (const QChar sign : ComposedAndLower(text)) {
        const Weights weights = WeightsOf(sign.unicode());
        if (weights.light != 0) {
            AppendLightSign(light_signs, diacritics.size(), weights.light);
        } else if (weights.first == 0) {
            AppendUnknown(letters, sign.unicode());
            diacritics += static_cast<char>(Plain);
        } else {
            letters += static_cast<char>(weights.first);
            diacritics += static_cast<char>(weights.diacritic);
            if (weights.second != 0) {
                letters += static_cast<char>(weights.second);
                diacritics += static_cast<char>(Plain);
            }
        }
    }
    while (diacritics.endsWith(static_cast<char>(Plain)))
        diacritics.chop(1);
    return letters + part_end + diacritics + part_end + light_signs;
}

QStringList SortedTexts(const QStringList& texts)
{
    struct Entry {
        QByteArray key;
        qsizetype position;
    };
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i)
        entries.push_back({ CollationKey(texts[i]), i });
    std::stable_sort(entries.begin(), entries.end(),
        [](const Entry& a, const Entry& b) { return a.key < b.key; });
    QStringList sorted;
    sorted.reserve(texts.size());
    for (const Entry& entry : entries)
        sorted += texts[entry.position];
    return sorted;
}
