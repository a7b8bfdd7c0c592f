#include "settings/ini_file.h"

#include "data/ansi_text.h"

#include <QByteArrayView>

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype longest_value = 254; // the reader's buffer of 255 less its closing NUL
const QByteArray line_end = QByteArrayLiteral("\r\n");

/// A line of the file as positions in its bytes.
struct Line {
    qsizetype begin = 0;
    qsizetype end = 0; ///< without the line end
    qsizetype next = 0; ///< behind the line end
};

/// The lines of a section below its "[name]"; or, when there is none, nothing at the end of the
/// file.
struct Section {
    bool found = false;
    qsizetype begin = 0;
    qsizetype end = 0;
};

struct Key {
    bool found = false;
    Line line;
    QByteArrayView name; ///< as spelled in the file
    QByteArrayView value; ///< all behind the first "="
};

/// A line ends at CR LF, at a lone LF or at a lone CR.
Line LineAt(QByteArrayView ini, qsizetype begin)
{
    const char* end = std::find_if(
        ini.begin() + begin, ini.end(), [](char c) { return c == '\r' || c == '\n'; });
    Line line;
    line.begin = begin;
    line.end = end - ini.begin();
    line.next = line.end;
    if (end == ini.end())
        return line;
    const bool two_bytes = *end == '\r' && end + 1 != ini.end() && end[1] == '\n';
    line.next += two_bytes ? 2 : 1;
    return line;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\v'; }

QByteArrayView WithoutBlanks(QByteArrayView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    return text;
}

/// The line without blanks around; a NUL ends the text, as it does for the platform's routines.
QByteArrayView TextOf(QByteArrayView ini, const Line& line)
{
    const QByteArrayView text = ini.sliced(line.begin, line.end - line.begin);
    const qsizetype nul = text.indexOf('\0');
    return WithoutBlanks(nul < 0 ? text : text.first(nul));
}

/// A letter of the code page as its small one.
unsigned char SmallLetter(char letter)
{
    const auto c = static_cast<unsigned char>(letter);
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 0x20);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) // À to Þ without the multiplication sign
        return static_cast<unsigned char>(c + 0x20);
    if (c == 0x8A || c == 0x8C || c == 0x8E) // Š Œ Ž
        return static_cast<unsigned char>(c + 0x10);
    if (c == 0x9F) // Ÿ
        return 0xFF;
    return c;
}

bool SameName(QByteArrayView a, QByteArrayView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
        [](char x, char y) { return SmallLetter(x) == SmallLetter(y); });
}

bool IsSectionLine(QByteArrayView text) { return !text.isEmpty() && text.front() == '['; }

/// The name ends at the first "]", or with the line.
QByteArrayView SectionName(QByteArrayView text)
{
    const qsizetype bracket = text.indexOf(']');
    return WithoutBlanks(text.sliced(1, (bracket < 0 ? text.size() : bracket) - 1));
}

Section FindSection(QByteArrayView ini, QByteArrayView name)
{
    const QByteArrayView wanted = WithoutBlanks(name);
    Section section;
    for (Line line = LineAt(ini, 0); line.begin < ini.size(); line = LineAt(ini, line.next)) {
        const QByteArrayView text = TextOf(ini, line);
        if (!IsSectionLine(text))
            continue;
        if (section.found) {
            section.end = line.begin;
            return section;
        }
        if (SameName(SectionName(text), wanted)) {
            section.found = true;
            section.begin = line.next;
        }
    }
    if (!section.found)
        section.begin = ini.size();
    section.end = ini.size();
    return section;
}

/// The line as key and value; not found when it is a comment or has no "=".
Key KeyOf(QByteArrayView ini, const Line& line)
{
    Key key;
    key.line = line;
    const QByteArrayView text = TextOf(ini, line);
    const qsizetype equals = text.indexOf('=');
    if (equals < 0 || text.front() == ';')
        return key;
    key.found = true;
    key.name = WithoutBlanks(text.first(equals));
    key.value = WithoutBlanks(text.sliced(equals + 1));
    return key;
}

Key FindKey(QByteArrayView ini, const Section& section, QByteArrayView name)
{
    const QByteArrayView wanted = WithoutBlanks(name);
    for (Line line { 0, 0, section.begin }; line.next < section.end;) {
        line = LineAt(ini, line.next);
        const Key key = KeyOf(ini, line);
        if (key.found && SameName(key.name, wanted))
            return key;
    }
    return {};
}

/// Behind the last key of the section; right under the section's own line when it has none.
qsizetype PlaceOfNewKey(QByteArrayView ini, const Section& section)
{
    qsizetype place = section.begin;
    for (Line line { 0, 0, section.begin }; line.next < section.end;) {
        line = LineAt(ini, line.next);
        if (KeyOf(ini, line).found)
            place = line.next;
    }
    return place;
}

QByteArrayView WithoutQuotes(QByteArrayView value)
{
    if (value.size() < 2 || value.front() != value.back())
        return value;
    const bool quoted = value.front() == '"' || value.front() == '\'';
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

QByteArray ValueIn(QByteArrayView ini, const Section& section, QByteArrayView key)
{
    const QByteArrayView value = WithoutQuotes(FindKey(ini, section, key).value);
    return value.first(std::min(value.size(), longest_value)).toByteArray();
}

/// Puts a whole line at this place; the line in front of it gets its line end when it has none.
QByteArray WithNewLine(const QByteArray& ini, qsizetype place, const QByteArray& line)
{
    const bool open_end = place > 0 && ini[place - 1] != '\n' && ini[place - 1] != '\r';
    return ini.first(place) + (open_end ? line_end : QByteArray()) + line + line_end
        + ini.sliced(place);
}

QString OnOneLine(QString value) { return value.replace(u'\r', u' ').replace(u'\n', u' '); }

} // namespace

QByteArray IniValue(const QByteArray& ini, const QByteArray& section, const QByteArray& key)
{
    return ValueIn(ini, FindSection(ini, section), key);
}

QByteArray WithIniValue(const QByteArray& ini, const QByteArray& section, const QByteArray& key,
    const QByteArray& value)
{
    const Section lines = FindSection(ini, section);
    const QByteArray new_line = WithoutBlanks(key).toByteArray() + '=' + value;
    if (!lines.found) {
        const QByteArray name = WithoutBlanks(section).toByteArray();
        return WithNewLine(ini, ini.size(), '[' + name + ']' + line_end + new_line);
    }
    const Key old = FindKey(ini, lines, key);
    if (!old.found)
        return WithNewLine(ini, PlaceOfNewKey(ini, lines), new_line);
    return ini.first(old.line.begin) + old.name.toByteArray() + '=' + value + line_end
        + ini.sliced(old.line.next);
}

QString ReadIni(
    const DataFiles& files, const QString& section, const QString& key, const QString& name)
{
    return ReadIniValues(files, section, { key }, name).constFirst();
}

QStringList ReadIniValues(
    const DataFiles& files, const QString& section, const QStringList& keys, const QString& name)
{
    const QByteArray ini = FileExists(files, name) ? ReadTextBytes(files, name) : QByteArray();
    const Section lines = FindSection(ini, EncodeAnsi(section));
    QStringList values;
    for (const QString& key : keys)
        values += DecodeAnsi(ValueIn(ini, lines, EncodeAnsi(key)));
    return values;
}

void WriteIni(const DataFiles& files, const QString& section, const QString& key,
    const QString& value, const QString& name)
{
    WriteIniValues(files, section, { { key, value } }, name);
}

void WriteIniValues(const DataFiles& files, const QString& section,
    const QVector<IniEntry>& entries, const QString& name)
{
    const bool is_there = FileExists(files, name);
    const QByteArray before = is_there ? ReadTextBytes(files, name) : QByteArray();
    QByteArray after = before;
    for (const IniEntry& entry : entries)
        after = WithIniValue(
            after, EncodeAnsi(section), EncodeAnsi(entry.key), EncodeAnsi(OnOneLine(entry.value)));
    if (!is_there || after != before)
        RewriteFile(files, name, after);
}
