// Order of texts: an order at all, the same by keys and by comparison, blind to case, and told
// first by the letters without their diacritics, hyphens and apostrophes. The input is a list of
// lines; a first line "u" makes the rest UTF-8.
#include "data/collation.h"
#include "data/ansi_text.h"
#include "fuzz/fuzz.h"

#include <QStringList>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;

int Sign(int number) { return (number > 0) - (number < 0); }

bool IsLight(QChar sign)
{
    return u"'-\u00AD\u2010\u2011\u2013\u2014"_s.contains(sign)
        || (sign.category() == QChar::Other_Control && !(sign >= u'\t' && sign <= u'\r'));
}

bool FitsTheCodePage(const QString& text) { return DecodeAnsi(EncodeAnsi(text)) == text; }

// Base letters only; letters that Unicode does not take apart are left out of the check.
bool BareText(const QString& text, QString& bare)
{
    static const QString own_shape = u"ðøþæœßƒ™ªº¹²³"_s;
    const QString apart = text.toLower().normalized(QString::NormalizationForm_D);
    for (const QChar sign : apart) {
        if (own_shape.contains(sign))
            return false;
        if (!IsLight(sign) && sign.category() != QChar::Mark_NonSpacing)
            bare += sign;
    }
    return true;
}

// Texts of the code page are equal only in case and in the letters that stand for two.
QString Folded(const QString& text)
{
    return text.toLower()
        .replace(u'ß', u"ss"_s)
        .replace(u'æ', u"ae"_s)
        .replace(u'œ', u"oe"_s)
        .replace(u'þ', u"th"_s);
}

void CheckPair(const QString& a, const QString& b)
{
    const QString both = a + u" / "_s + b;
    const int order = CompareTexts(a, b);
    Require(order == Sign(order) && CompareTexts(b, a) == -order, "from both sides", both);
    Require(Sign(CollationKey(a).compare(CollationKey(b))) == order, "as the keys", both);
    if (!FitsTheCodePage(a) || !FitsTheCodePage(b))
        return;
    Require((order == 0) == (Folded(a) == Folded(b)), "equal for a reason", both);
    QString bare_a;
    QString bare_b;
    if (!BareText(a, bare_a) || !BareText(b, bare_b))
        return;
    const int bare_order = CompareTexts(bare_a, bare_b);
    Require(bare_order == 0 || bare_order == order, "letters first", both);
    if (bare_order == 0)
        Require(bare_a == bare_b, "letters without diacritic differ or are the same", both);
}

QStringList NaiveSort(const QStringList& texts)
{
    QStringList sorted;
    for (const QString& text : texts) {
        qsizetype place = sorted.size();
        while (place > 0 && CompareTexts(sorted[place - 1], text) > 0)
            --place;
        sorted.insert(place, text);
    }
    return sorted;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr qsizetype most_lines = 8;
    QByteArray input = InputBytes(data, size);
    const bool utf8 = input.startsWith("u\n");
    if (utf8)
        input = input.mid(2);
    QStringList texts;
    while (!input.isEmpty() && texts.size() < most_lines) {
        const QByteArray line = CutFront(input, '\n');
        texts += utf8 ? QString::fromUtf8(line) : DecodeAnsi(line);
    }
    const QStringList sorted = SortedTexts(texts);
    Require(sorted == NaiveSort(texts), "sorted by insertion", texts.join(u'\n'));
    for (qsizetype i = 0; i < sorted.size(); ++i) {
        Require(CompareTexts(sorted[i], sorted[i]) == 0, "equal to itself", sorted[i]);
        for (qsizetype k = i + 1; k < sorted.size(); ++k) {
            CheckPair(sorted[i], sorted[k]);
            Require(CompareTexts(sorted[i], sorted[k]) <= 0, "transitive", sorted.join(u'\n'));
        }
    }
    return 0;
}
