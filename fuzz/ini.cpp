// INI files: reading and writing against a second, naive implementation that works on a list of
// lines; same bytes, same order. The input is section, key and value, a line each, then the file.
#include "data/ansi_text.h"
#include "fuzz/fuzz.h"
#include "settings/ini_file.h"

#include <QList>

namespace {

struct NaiveLine {
    QByteArray text;
    QByteArray end; ///< CR LF, CR, LF, or nothing on the last line
};

QList<NaiveLine> LinesOf(const QByteArray& ini)
{
    QList<NaiveLine> lines;
    NaiveLine line;
    bool open = false;
    for (qsizetype i = 0; i < ini.size(); ++i) {
        open = true;
        if (ini[i] != '\r' && ini[i] != '\n') {
            line.text += ini[i];
            continue;
        }
        line.end = QByteArray(1, ini[i]);
        if (ini[i] == '\r' && i + 1 < ini.size() && ini[i + 1] == '\n') {
            line.end += '\n';
            ++i;
        }
        lines += line;
        line = {};
        open = false;
    }
    if (open)
        lines += line;
    return lines;
}

QByteArray BytesOf(const QList<NaiveLine>& lines)
{
    QByteArray ini;
    for (const NaiveLine& line : lines)
        ini += line.text + line.end;
    return ini;
}

QByteArray Trimmed(QByteArray text)
{
    static const QByteArray blanks(" \t\v");
    while (!text.isEmpty() && blanks.contains(text.front()))
        text.remove(0, 1);
    while (!text.isEmpty() && blanks.contains(text.back()))
        text.chop(1);
    return text;
}

QByteArray Shown(const NaiveLine& line)
{
    QByteArray text = line.text;
    if (text.contains('\0'))
        text.truncate(text.indexOf('\0'));
    return Trimmed(text);
}

bool SameName(const QByteArray& a, const QByteArray& b)
{
    return DecodeAnsi(a).toLower() == DecodeAnsi(b).toLower();
}

bool IsKeyLine(const QByteArray& shown)
{
    return shown.contains('=') && !shown.startsWith(';') && !shown.startsWith('[');
}

// Positions of the section's own line and of the line behind the section; -1 when there is none.
int FindSection(const QList<NaiveLine>& lines, const QByteArray& section, int& behind)
{
    int found = -1;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray shown = Shown(lines[i]);
        if (!shown.startsWith('['))
            continue;
        behind = i;
        if (found >= 0)
            return found;
        QByteArray name = shown.mid(1);
        if (name.contains(']'))
            name.truncate(name.indexOf(']'));
        if (SameName(Trimmed(name), Trimmed(section)))
            found = i;
    }
    behind = static_cast<int>(lines.size());
    return found;
}

int FindKey(const QList<NaiveLine>& lines, int from, int behind, const QByteArray& key)
{
    for (int i = from; i < behind; ++i) {
        const QByteArray shown = Shown(lines[i]);
        if (IsKeyLine(shown) && SameName(Trimmed(shown.left(shown.indexOf('='))), Trimmed(key)))
            return i;
    }
    return -1;
}

QByteArray NaiveValue(const QByteArray& ini, const QByteArray& section, const QByteArray& key)
{
    const QList<NaiveLine> lines = LinesOf(ini);
    int behind = 0;
    const int start = FindSection(lines, section, behind);
    const int line = start < 0 ? -1 : FindKey(lines, start + 1, behind, key);
    if (line < 0)
        return {};
    const QByteArray shown = Shown(lines[line]);
    QByteArray value = Trimmed(shown.mid(shown.indexOf('=') + 1));
    const bool quoted = value.size() > 1 && value.front() == value.back()
        && (value.front() == '"' || value.front() == '\'');
    if (quoted)
        value = value.mid(1, value.size() - 2);
    return value.left(254);
}

QByteArray NaiveWrite(const QByteArray& ini, const QByteArray& section, const QByteArray& key,
    const QByteArray& value)
{
    QList<NaiveLine> lines = LinesOf(ini);
    int behind = 0;
    const int start = FindSection(lines, section, behind);
    const int old = start < 0 ? -1 : FindKey(lines, start + 1, behind, key);
    if (old >= 0) {
        const QByteArray shown = Shown(lines[old]);
        const QByteArray name = Trimmed(shown.left(shown.indexOf('=')));
        lines[old] = { name + '=' + value, "\r\n" };
        return BytesOf(lines);
    }
    int place = start < 0 ? static_cast<int>(lines.size()) : start + 1;
    for (int i = start + 1; start >= 0 && i < behind; ++i) {
        if (IsKeyLine(Shown(lines[i])))
            place = i + 1;
    }
    if (place > 0 && lines[place - 1].end.isEmpty())
        lines[place - 1].end = "\r\n";
    lines.insert(place, { Trimmed(key) + '=' + value, "\r\n" });
    if (start < 0)
        lines.insert(place, { '[' + Trimmed(section) + ']', "\r\n" });
    return BytesOf(lines);
}

// Names and values that come back as they went in: the program writes no others.
bool IsPlain(const QByteArray& text, const char* forbidden)
{
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20 || QByteArray(forbidden).contains(c))
            return false;
    }
    return Trimmed(text) == text && text.size() < 255;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray ini = InputBytes(data, size);
    const QByteArray section = CutFront(ini, '\n');
    const QByteArray key = CutFront(ini, '\n');
    const QByteArray value = CutFront(ini, '\n');
    const QString detail = QString::fromLatin1(ini.toPercentEncoding(" \r\n[]=;"));

    const QByteArray read = IniValue(ini, section, key);
    Require(read == NaiveValue(ini, section, key), "the same value is read", detail);
    const QByteArray written = WithIniValue(ini, section, key, value);
    Require(written == NaiveWrite(ini, section, key, value), "the same bytes are written", detail);

    const bool plain = !section.isEmpty() && !key.isEmpty() && IsPlain(section, "]")
        && IsPlain(key, "=;[") && IsPlain(value, "\"'");
    if (plain) {
        Require(IniValue(written, section, key) == value, "what was written is read", detail);
        Require(WithIniValue(written, section, key, value) == written, "and stays", detail);
    }
    return 0;
}
