#include "data/ansi_text.h"

#include "data/best_fit.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr uchar first_special = 0x80; // the bytes that are not the character of the same number
constexpr uchar last_special = 0x9F;

// 0x81, 0x8D, 0x8F, 0x90 and 0x9D are unassigned and stand for themselves.
constexpr char16_t special_characters[] = {
    u'\x20AC', u'\x0081', u'\x201A', u'\x0192', u'\x201E', u'\x2026', u'\x2020', u'\x2021', // 80
    u'\x02C6', u'\x2030', u'\x0160', u'\x2039', u'\x0152', u'\x008D', u'\x017D', u'\x008F', // 88
    u'\x0090', u'\x2018', u'\x2019', u'\x201C', u'\x201D', u'\x2022', u'\x2013', u'\x2014', // 90
    u'\x02DC', u'\x2122', u'\x0161', u'\x203A', u'\x0153', u'\x009D', u'\x017E', u'\x0178', // 98
};

bool IsItsOwnByte(char16_t character)
{
    return character < first_special || (character > last_special && character <= 0xFF);
}

uchar ByteOf(char16_t character)
{
    if (IsItsOwnByte(character))
        return static_cast<uchar>(character);
    const auto* found
        = std::find(std::begin(special_characters), std::end(special_characters), character);
    if (found != std::end(special_characters))
        return static_cast<uchar>(first_special + (found - std::begin(special_characters)));
    return BestFit(character);
}

// Below the first combining mark nothing can be composed; nearly every text ends here.
QString Composed(const QString& text)
{
    constexpr char16_t first_combining_mark = 0x0300;
    const bool plain = std::all_of(text.cbegin(), text.cend(),
        [](QChar character) { return character.unicode() < first_combining_mark; });
    return plain ? text : text.normalized(QString::NormalizationForm_C);
}

bool BreaksOrControls(QChar character)
{
    return character.category() == QChar::Other_Control
        || character.category() == QChar::Separator_Line
        || character.category() == QChar::Separator_Paragraph;
}

} // namespace

QString DecodeAnsi(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const uchar number = static_cast<uchar>(byte);
        if (number < first_special || number > last_special)
            return QChar(char16_t { number });
        return QChar(special_characters[number - first_special]);
    });
    return text;
}

QByteArray EncodeAnsi(const QString& text)
{
    const QString composed = Composed(text);
    QByteArray bytes(composed.size(), Qt::Uninitialized);
    std::transform(composed.cbegin(), composed.cend(), bytes.begin(),
        [](QChar character) { return static_cast<char>(ByteOf(character.unicode())); });
    return bytes;
}

QString AsStored(const QString& text)
{
    QString one_line = text;
    one_line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::replace_if(one_line.begin(), one_line.end(), BreaksOrControls, QLatin1Char(' '));
    return DecodeAnsi(EncodeAnsi(one_line));
}
