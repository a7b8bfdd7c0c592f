#include "data/redo_record.h"

#include "data/whole_files.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace {

const QByteArray magic = QByteArrayLiteral("Parzello Vormerkung 2\n");
const QByteArray magic_without_mark = QByteArrayLiteral("Parzello Vormerkung 1\n");
constexpr qsizetype hash_length = 32;
constexpr int key_length = 32;
const QString record_ending = QStringLiteral(".vormerkung");
const QString unfinished_ending = QStringLiteral(".entwurf");

QByteArray HashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

// The name of a data file may be as long as a name can be, and hold any character.
QString BaseOf(const QString& state_directory, const QString& target)
{
    return state_directory + QLatin1Char('/')
        + QString::fromLatin1(HashOf(target.toUtf8()).toHex().left(key_length));
}

// The time of another clock, above all of a zone that nobody knows, is none that was written here.
void ReadMark(QDataStream& stream, HistoryMark& mark)
{
    quint8 how = 0;
    stream >> mark.Number >> mark.Action >> mark.Time >> how;
    mark.How = static_cast<Deed>(how);
    if (how > static_cast<quint8>(Deed::SentOut) || mark.Time.timeSpec() != Qt::LocalTime)
        stream.setStatus(QDataStream::ReadCorruptData);
}

SystemError ReadRecord(const QString& path, std::optional<RedoRecord>& record)
{
    record.reset();
    QByteArray bytes;
    const SystemError error = ReadFileBytes(path, bytes);
    if (!error)
        record = DecodeRedoRecord(bytes);
    return error;
}

} // namespace

QByteArray EncodeRedoRecord(const RedoRecord& record)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << record.target.toUtf8() << record.content << record.Mark.Number << record.Mark.Action
           << record.Mark.Time << static_cast<quint8>(record.Mark.How);
    return magic + HashOf(body) + body;
}

std::optional<RedoRecord> DecodeRedoRecord(const QByteArray& bytes)
{
    const bool has_mark = bytes.startsWith(magic);
    if ((!has_mark && !bytes.startsWith(magic_without_mark))
        || bytes.size() < magic.size() + hash_length)
        return std::nullopt;
    const QByteArray body = bytes.mid(magic.size() + hash_length);
    if (HashOf(body) != bytes.mid(magic.size(), hash_length))
        return std::nullopt;
    QDataStream stream(body);
    stream.setVersion(QDataStream::Qt_6_4);
    QByteArray target;
    RedoRecord record;
    stream >> target >> record.content;
    if (has_mark)
        ReadMark(stream, record.Mark);
    record.target = QString::fromUtf8(target);
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || !IsTargetName(record.target))
        return std::nullopt;
    return record;
}

bool IsTargetName(const QString& target)
{
    return !target.isEmpty() && target != QStringLiteral(".") && target != QStringLiteral("..")
        && !target.contains(QLatin1Char('/')) && !target.contains(QLatin1Char('\\'))
        && !target.contains(QChar(0));
}

// Written beside and then put in its place: the older record may be all there is of the file.
SystemError NoteRewrite(const QString& state_directory, const RedoRecord& record)
{
    if (state_directory.isEmpty())
        return Fault::Missing;
    const QString base = BaseOf(state_directory, record.target);
    SystemError error = MakePrivateFolder(state_directory);
    if (!error)
        error = WritePrivateFile(base + unfinished_ending, EncodeRedoRecord(record));
    if (!error)
        error = ReplaceFile(base + unfinished_ending, base + record_ending);
    if (error)
        RemoveFile(base + unfinished_ending); // if that fails too, the next start drops it
    return error;
}

QString RecordPathOf(const QString& state_directory, const QString& target)
{
    return BaseOf(state_directory, target) + record_ending;
}

// Emptied first: that alone makes the record void, whatever becomes of its name.
SystemError ForgetRewrite(const QString& state_directory, const QString& target)
{
    const QString path = RecordPathOf(state_directory, target);
    bool is_folder = false;
    if (MeansMissing(LookUp(path, is_folder)))
        return Fault::None;
    const SystemError emptied = WritePrivateFile(path, {});
    const SystemError removed = RemoveFile(path);
    return emptied ? removed : Fault::None;
}

SystemError FindRewrite(
    const QString& state_directory, const QString& target, std::optional<RedoRecord>& record)
{
    record.reset();
    if (state_directory.isEmpty())
        return Fault::None;
    const SystemError error = ReadRecord(RecordPathOf(state_directory, target), record);
    return error == Fault::NoAccess || MeansMissing(error) ? Fault::None : error;
}

SystemError FindRewrites(const QString& state_directory, QList<RedoRecord>& records)
{
    records.clear();
    QStringList names;
    SystemError error = ListFolder(state_directory, names);
    for (const QString& name : names) {
        const QString path = state_directory + QLatin1Char('/') + name;
        if (name.endsWith(unfinished_ending))
            RemoveFile(path); // never read: if it stays, it does no harm
        if (!name.endsWith(record_ending))
            continue;
        std::optional<RedoRecord> record;
        const SystemError read_error = ReadRecord(path, record);
        if (read_error)
            error = read_error;
        else if (record)
            records += *record;
        else
            RemoveFile(path); // void: does no harm either
    }
    return error;
}
