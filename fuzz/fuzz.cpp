#include "fuzz/fuzz.h"

#include <cstdio>
#include <cstdlib>

QByteArray InputBytes(const std::uint8_t* data, std::size_t size)
{
    // Not reinterpret_cast on a null pointer: an empty input may come without data.
    return size == 0
        ? QByteArray("")
        : QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

QByteArray CutFront(QByteArray& input, char separator)
{
    const qsizetype end = input.indexOf(separator);
    const QByteArray front = end < 0 ? input : input.left(end);
    input = end < 0 ? QByteArray() : input.mid(end + 1);
    return front;
}

void Require(bool holds, const char* sentence, const QString& detail)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n  %s\n", sentence, qPrintable(detail));
    std::abort();
}
