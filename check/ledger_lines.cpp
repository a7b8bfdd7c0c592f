// The lines of a ledger file whose fields are too many or too few, and a gap between lines.
#include "check/check_data.h"
#include "data/ansi_text.h"
#include "data/records.h"

#include <algorithm>
#include <cstring>

namespace {

/// Where the next CR LF stands, or the end of the file.
qsizetype EndOfLine(QByteArrayView bytes, qsizetype begin)
{
    const char* end = bytes.data() + bytes.size();
    for (const char* at = bytes.data() + begin; at != end; ++at) {
        at = static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at)));
        if (at == nullptr)
            break;
        if (at + 1 != end && at[1] == '\n')
            return at - bytes.data();
    }
    return bytes.size();
}

/// The line's semicolons, counted in counters of a byte each, which is quickest.
qsizetype CountMarks(QByteArrayView line)
{
    constexpr qsizetype run = 255;
    qsizetype marks = 0;
    for (qsizetype begin = 0; begin < line.size(); begin += run) {
        const qsizetype end = std::min(begin + run, line.size());
        unsigned char in_run = 0;
        for (qsizetype i = begin; i < end; ++i)
            in_run = static_cast<unsigned char>(in_run + (line[i] == ';' ? 1 : 0));
        marks += in_run;
    }
    return marks;
}

} // namespace

LedgerFileLines ReadLedgerFileLines(const RawFile& file)
{
    LedgerFileLines lines;
    qsizetype number = 0;
    for (qsizetype begin = 0; begin < file.Bytes.size();) {
        const qsizetype end = EndOfLine(file.Bytes, begin);
        ++number;
        const QByteArrayView line = QByteArrayView(file.Bytes).sliced(begin, end - begin);
        begin = end + 2;
        if (lines.FirstEmpty > 0) {
            lines.FilledBehindEmpty += line.isEmpty() ? 0 : 1;
            continue;
        }
        if (line.isEmpty())
            lines.FirstEmpty = number;
        const bool odd = !line.isEmpty() && CountMarks(line) != LedgerFieldCount - 1;
        if (odd)
            lines.Odd.push_back({ number, DecodeAnsi(line.toByteArray()) });
    }
    return lines;
}
