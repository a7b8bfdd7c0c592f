// Redo records: a file that is not whole is no record, a whole one is finished into the data
// directory and nowhere else. The input is the body of a record; its checksum is made to fit when
// the first byte is "!", so that the search gets behind it.
#include "data/redo_record.h"
#include "data/line_file.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype hash_length = 32;

// The fixed beginning of every record, taken from an empty one.
/// Of the version that kept no history: its records hold two parts and are still read.
QByteArray Magic() { return QByteArrayLiteral("Parzello Vormerkung 1\n"); }

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

bool NaiveIsRecord(QByteArray body)
{
    QByteArray target;
    QByteArray content;
    if (!CutPart(body, target) || !CutPart(body, content) || !body.isEmpty())
        return false;
    for (const char forbidden : { '/', '\\', '\0' }) {
        if (target.contains(forbidden))
            return false;
    }
    return !target.isEmpty() && target != "." && target != "..";
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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    QByteArray bytes = input;
    if (input.startsWith('!')) {
        const QByteArray body = input.mid(1);
        bytes = Magic() + QCryptographicHash::hash(body, QCryptographicHash::Sha256) + body;
        Require(DecodeRedoRecord(bytes).has_value() == NaiveIsRecord(body), "two parts, no more",
            QString::fromLatin1(body.toHex()));
    }
    const std::optional<RedoRecord> record = DecodeRedoRecord(bytes);
    const QString detail = QString::fromLatin1(bytes.toHex());
    if (record) {
        Require(IsTargetName(record->target), "a plain file name", record->target);
        const std::optional<RedoRecord> again = DecodeRedoRecord(EncodeRedoRecord(*record));
        Require(again && again->target == record->target && again->content == record->content,
            "reads back", detail);
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            QByteArray damaged = bytes;
            damaged[i] = static_cast<char>(damaged[i] ^ 1);
            Require(!DecodeRedoRecord(damaged), "no byte may change", detail);
        }
        Require(!DecodeRedoRecord(bytes.chopped(1)) && !DecodeRedoRecord(bytes + '\0'),
            "no byte more", detail);
    }
    CheckStart(bytes, record);
    return 0;
}
