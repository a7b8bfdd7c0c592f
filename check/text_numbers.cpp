#include "check/text_numbers.h"

#include <QtGlobal>

#include <bit>
#include <cstring>

std::size_t SpreadText(QStringView text)
{
    constexpr quint64 odd = 0x9E37'79B9'7F4A'7C15;
    constexpr qsizetype step = 4; // characters in 64 bits
    quint64 spread = static_cast<quint64>(text.size());
    const auto take = [&](quint64 signs) {
        spread = (spread ^ signs) * odd;
        spread ^= spread >> 32;
    };
    const char16_t* sign = text.utf16();
    const char16_t* end = sign + text.size();
    for (; end - sign >= step; sign += step) {
        quint64 signs = 0;
        std::memcpy(&signs, sign, sizeof signs);
        take(signs);
    }
    for (; sign != end; ++sign)
        take(*sign);
    return spread;
}

TextNumbers::TextNumbers(std::size_t most)
    : m_places(std::bit_ceil(2 * most + 1))
{
    m_texts.reserve(most / 2);
}

namespace {

bool SameText(QStringView a, QStringView b)
{
    const auto bytes = static_cast<std::size_t>(a.size()) * sizeof(char16_t);
    return a.size() == b.size() && (bytes == 0 || std::memcmp(a.utf16(), b.utf16(), bytes) == 0);
}

} // namespace

std::size_t TextNumbers::PlaceOf(QStringView text) const
{
    const std::size_t mask = m_places.size() - 1;
    std::size_t place = SpreadText(text) & mask;
    while (m_places[place] != 0 && !SameText(m_texts[m_places[place] - 1], text))
        place = (place + 1) & mask;
    return place;
}

int TextNumbers::NumberOf(QStringView text)
{
    std::uint32_t& number = m_places[PlaceOf(text)];
    if (number == 0) {
        m_texts.push_back(text);
        number = static_cast<std::uint32_t>(m_texts.size());
    }
    return static_cast<int>(number) - 1;
}

int TextNumbers::Find(QStringView text) const
{
    return static_cast<int>(m_places[PlaceOf(text)]) - 1;
}
