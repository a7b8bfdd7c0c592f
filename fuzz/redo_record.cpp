// Redo records: a file that is not whole is no record, a whole one is finished into the data
// directory and nowhere else. The input is the body of a record; its checksum is made to fit when
// the first byte is "!" (a record of two parts) or "?" (with a mark behind them), so that the
// search gets behind it.
#include "data/redo_record.h"
#include "data/line_file.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

namespace {

using namespace Qt::StringLiterals;

/// Of the version that kept no history: its records hold two parts and are still read.
QByteArray MagicWithoutMark() { return QByteArrayLiteral("Parzello Vormerkung 1\n"); }

QByteArray Magic() { return QByteArrayLiteral("Parzello Vormerkung 2\n"); }

QByteArray WithChecksum(const QByteArray& magic, const QByteArray& body)
{
    return magic + QCryptographicHash::hash(body, QCryptographicHash::Sha256) + body;
}

// A part is its length in four bytes, the highest first, and the part itself; all ones is no part.
bool CutPart(QByteArray& body, QByteArray& part)
{
    if (body.size() < 4)
        return false;
    qint64 length = 0;
    for (int i = 0; i < 4; ++i)
        length = length * 256 + static_cast<unsigned char>(body[i]);
    if (length == 0xFFFFFFFF)
        length = 0;
    if (body.size() - 4 < length)
        return false;
    part = body.mid(4, length);
    body = body.mid(4 + length);
    return true;
}

// Two parts, the first of them a name; what follows them is left in the body.
bool CutNamedPart(QByteArray& body)
{
    QByteArray target;
    QByteArray content;
    if (!CutPart(body, target) || !CutPart(body, content))
        return false;
    for (const char forbidden : { '/', '\\', '\0' }) {
        if (target.contains(forbidden))
            return false;
    }
    return !target.isEmpty() && target != "." && target != "..";
}

// Two whole numbers of eight bytes, a moment (day, time of day, kind of clock) and how the state
// came.
bool CouldBeMark(const QByteArray& rest)
{
    constexpr qsizetype numbers = 8 + 8;
    constexpr qsizetype shortest_moment = 8 + 4 + 1;
    return rest.size() >= numbers + shortest_moment + 1
        && static_cast<unsigned char>(rest.back()) <= static_cast<int>(Deed::SentOut);
}

QStringList Names(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

void CheckStart(const QByteArray& bytes, const std::optional<RedoRecord>& record)
{
    const DataFiles files = EmptyScratchFiles();
    QFile note(files.StateDirectory + u"/00.vormerkung"_s);
    Require(note.open(QIODevice::WriteOnly) && note.write(bytes) == bytes.size(), "a note");
    note.close();
    try {
        FinishRewrites(files);
    } catch (const RuntimeError& error) {
        Require(
            record.has_value() && error.kind == ErrorKind::File, "a name that cannot be written");
        return; // longer than a file name may be
    }
    const QStringList names = Names(files.DataDirectory);
    Require(names == (record ? QStringList(record->target) : QStringList()), "one file or none",
        names.join(u'\n'));
    if (record)
        Require(ReadBytes(files, record->target) == record->content, "with its content");
}

QByteArray TwoParts(const QByteArray& body)
{
    const QByteArray bytes = WithChecksum(MagicWithoutMark(), body);
    QByteArray rest = body;
    const bool expected = CutNamedPart(rest) && rest.isEmpty();
    Require(DecodeRedoRecord(bytes).has_value() == expected, "two parts, no more",
        QString::fromLatin1(body.toHex()));
    return bytes;
}

QByteArray WithMark(const QByteArray& body)
{
    const QByteArray bytes = WithChecksum(Magic(), body);
    QByteArray rest = body;
    if (!CutNamedPart(rest) || !CouldBeMark(rest))
        Require(
            !DecodeRedoRecord(bytes), "two parts and a mark", QString::fromLatin1(body.toHex()));
    return bytes;
}

void CheckWhole(const QByteArray& bytes, const RedoRecord& record)
{
    const QString detail = QString::fromLatin1(bytes.toHex());
    Require(IsTargetName(record.target), "a plain file name", record.target);
    const std::optional<RedoRecord> again = DecodeRedoRecord(EncodeRedoRecord(record));
    Require(again && again->target == record.target && again->content == record.content
            && again->Mark == record.Mark,
        "reads back", detail);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        QByteArray damaged = bytes;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        Require(!DecodeRedoRecord(damaged), "no byte may change", detail);
    }
    Require(!DecodeRedoRecord(bytes.chopped(1)) && !DecodeRedoRecord(bytes + '\0'), "no byte more",
        detail);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    QByteArray bytes = input;
    if (input.startsWith('!'))
        bytes = TwoParts(input.mid(1));
    else if (input.startsWith('?'))
        bytes = WithMark(input.mid(1));
    const std::optional<RedoRecord> record = DecodeRedoRecord(bytes);
    if (record)
        CheckWhole(bytes, *record);
    CheckStart(bytes, record);
    return 0;
}
