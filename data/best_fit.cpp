#include "data/best_fit.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

/// Neighbouring characters from first on and, in the same order, the bytes that stand in for them.
struct Run {
    char16_t first;
    std::string_view bytes;
};

// The desktop's own choices, not ours: "₧" really is P and "∞" really is 8. In rising order. Bytes
// beyond ASCII are written in octal.
// clang-format off
constexpr Run runs[] = {
    { u'\x0100', "AaAaAaCcCcCcCcDd\320dEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi" }, { u'\x0134', "JjKk" },
    { u'\x0139', "LlLlLl" }, { u'\x0141', "LlNnNnNn" }, { u'\x014C', "OoOoOo" },
    { u'\x0154', "RrRrRrSsSsSs" }, { u'\x0162', "TtTtTtUuUuUuUuUuUuWwYy" }, { u'\x0179', "ZzZz" },
    { u'\x0180', "b" }, { u'\x0189', "\320" }, { u'\x0191', "\203" }, { u'\x0197', "I" },
    { u'\x019A', "l" }, { u'\x019F', "OOo" }, { u'\x01AB', "t" }, { u'\x01AE', "TUu" },
    { u'\x01B6', "z" }, { u'\x01C0', "|" }, { u'\x01C3', "!" }, { u'\x01CD', "AaIiOoUuUuUuUuUu" },
    { u'\x01DE', "Aa" }, { u'\x01E4', "GgGgKkOoOo" }, { u'\x01F0', "j" }, { u'\x0261', "g" },
    { u'\x02B9', "'\"" }, { u'\x02BC', "'" }, { u'\x02C4', "^" }, { u'\x02C8', "'\257\264`" },
    { u'\x02CD', "_" }, { u'\x02DA', "\260" }, { u'\x0300', "`\264^~\257\257" },
    { u'\x0308', "\250" }, { u'\x030A', "\260" }, { u'\x030E', "\"" }, { u'\x0327', "\270" },
    { u'\x0331', "\257_" }, { u'\x037E', ";" }, { u'\x0393', "G" }, { u'\x0398', "T" },
    { u'\x03A3', "S" }, { u'\x03A6', "F" }, { u'\x03A9', "O" }, { u'\x03B1', "a\337" },
    { u'\x03B4', "de" }, { u'\x03BC', "\265" }, { u'\x03C0', "p" }, { u'\x03C3', "st" },
    { u'\x03C6', "f" }, { u'\x04BB', "h" }, { u'\x0589', ":" }, { u'\x066A', "%" },
    { u'\x2000', "       " }, { u'\x2010', "--" }, { u'\x2017', "=" }, { u'\x2024', "\267" },
    { u'\x2032', "'" }, { u'\x2035', "`" }, { u'\x2044', "/" }, { u'\x2070', "\260" },
    { u'\x2074', "45678" }, { u'\x207F', "n0123456789" }, { u'\x20A1', "\242" },
    { u'\x20A4', "\243" }, { u'\x20A7', "P" }, { u'\x2102', "C" }, { u'\x2107', "E" },
    { u'\x210A', "gHHHh" }, { u'\x2110', "IILl" }, { u'\x2115', "N" }, { u'\x2118', "PPQRRR" },
    { u'\x2124', "Z" }, { u'\x2128', "Z" }, { u'\x212A', "K\305BCeeEF" }, { u'\x2133', "Mo" },
    { u'\x2205', "\330" }, { u'\x2212', "-\261" }, { u'\x2215', "/\\*\260\267v" },
    { u'\x221E', "8" }, { u'\x2223', "|" }, { u'\x2229', "n" }, { u'\x2236', ":" },
    { u'\x223C', "~" }, { u'\x2248', "\230" }, { u'\x2261', "=" }, { u'\x2264', "==" },
    { u'\x226A', "\253\273" }, { u'\x22C5', "\267" }, { u'\x2302', "\246^" }, { u'\x2310', "\254" },
    { u'\x2320', "()" }, { u'\x2329', "<>" }, { u'\x2500', "-" }, { u'\x250C', "+" },
    { u'\x2510', "+" }, { u'\x2514', "+" }, { u'\x2518', "+" }, { u'\x251C', "+" },
    { u'\x252C', "-" }, { u'\x2534', "-" }, { u'\x253C', "+" },
    { u'\x2550', "-\246++++++++++++++++++------+++" }, { u'\x2580', "\246" }, { u'\x2584', "_" },
    { u'\x2588', "\246" }, { u'\x258C', "\246" }, { u'\x2590', "\246\246\246\246" },
    { u'\x25A0', "\246" }, { u'\x263C', "\244" }, { u'\x2758', "|" }, { u'\x3000', " " },
    { u'\x3008', "<>\253\273" }, { u'\x301A', "[]" }, { u'\x30FB', "\267" },
};
// clang-format on

constexpr char16_t first_full_width = u'\xFF01'; // "！" to "～" are ASCII in double width
constexpr char16_t last_full_width = u'\xFF5E';

} // namespace

uchar BestFit(char16_t character)
{
    if (character >= first_full_width && character <= last_full_width)
        return static_cast<uchar>(character - first_full_width + u'!');
    const auto next = std::upper_bound(std::begin(runs), std::end(runs), character,
        [](char16_t wanted, const Run& run) { return wanted < run.first; });
    if (next == std::begin(runs))
        return '?';
    const Run& run = *std::prev(next);
    const std::size_t position = static_cast<std::size_t>(character - run.first);
    return position < run.bytes.size() ? static_cast<uchar>(run.bytes[position]) : uchar { '?' };
}
