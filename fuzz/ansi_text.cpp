// Code page: every byte survives, what is typed is stored as shown, and nothing else than a line
// break or a control character changes its place. The input is read as bytes, as UTF-8 and as
// UTF-16.
#include "data/ansi_text.h"
#include "fuzz/fuzz.h"

#include <cstring>

namespace {

void CheckText(const QString& text)
{
    const QByteArray bytes = EncodeAnsi(text);
    const QString shown = DecodeAnsi(bytes);
    Require(shown.size() == bytes.size(), "a character for every byte", text);
    Require(EncodeAnsi(shown) == bytes, "what is shown is what is stored", text);
    const QString stored = AsStored(text);
    Require(AsStored(stored) == stored, "storing twice is storing once", text);
    Require(DecodeAnsi(EncodeAnsi(stored)) == stored, "the code page holds what is stored", text);
    for (const QChar sign : stored)
        Require(sign != u'\r' && sign != u'\n' && sign.unicode() != 0, "one line", text);
}

QString AsUtf16(const QByteArray& input)
{
    QString text(input.size() / 2, Qt::Uninitialized);
    if (!text.isEmpty())
        std::memcpy(text.data(), input.constData(), static_cast<std::size_t>(text.size()) * 2);
    return text; // unpaired surrogates included: a clipboard may hold them
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    Require(EncodeAnsi(DecodeAnsi(input)) == input, "every byte survives",
        QString::fromLatin1(input.toHex()));
    CheckText(DecodeAnsi(input));
    CheckText(QString::fromUtf8(input));
    CheckText(AsUtf16(input));
    return 0;
}
