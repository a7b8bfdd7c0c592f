#include "data/whole_files.h"

#include <algorithm>

namespace {

SystemError ReadAll(const SystemFile& file, qint64 expected, QByteArray& content, qint64 largest)
{
    if (expected > largest)
        return Fault::TooLarge;
    content.resize(static_cast<qsizetype>(expected) + 1); // one more shows a file that has grown
    qsizetype filled = 0;
    for (;;) {
        qsizetype count = 0;
        if (const SystemError error
            = file.ReadSome(content.data() + filled, content.size() - filled, count))
            return error;
        if (count == 0)
            break;
        filled += count;
        if (filled > largest)
            return Fault::TooLarge;
        if (filled == content.size())
            content.resize(std::min<qsizetype>(filled * 2, largest + 1));
    }
    content.resize(filled);
    return Fault::None;
}

SystemError WriteAll(const SystemFile& file, const QByteArray& content)
{
    qsizetype written = 0;
    while (written < content.size()) {
        qsizetype count = 0;
        if (const SystemError error = file.WriteSome(
                content.constData() + written, content.size() - written, written, count))
            return error;
        if (count == 0)
            return Fault::BrokenMedium; // neither progress nor a reason: do not try for ever
        written += count;
    }
    return Fault::None;
}

// Catches what no return value tells: a medium or driver that took less than it said. Nothing was
// read from this open file before, so reading still stands at the beginning.
SystemError Compare(const SystemFile& file, const QByteArray& content)
{
    QByteArray found;
    if (const SystemError error = ReadAll(file, content.size(), found, LargestFile))
        return error;
    return found == content ? Fault::None : Fault::WrittenOtherwise;
}

SystemError FillAndClose(SystemFile& file, const QByteArray& content)
{
    SystemError error = file.Empty();
    if (!error)
        error = WriteAll(file, content);
    if (!error)
        error = file.Sync();
    if (!error)
        error = Compare(file, content);
    const SystemError close_error = file.Close();
    return error ? error : close_error;
}

} // namespace

SystemError ReadFileBytes(const QString& path, QByteArray& content, qint64 largest)
{
    SystemFile file;
    SystemError error = file.Open(path, OpenMode::Read);
    qint64 size = 0;
    if (!error)
        error = file.FindSize(size);
    if (!error)
        error = ReadAll(file, size, content, largest);
    const SystemError close_error = file.Close();
    return error ? error : close_error;
}

SystemError CheckWritable(const QString& path)
{
    SystemFile file;
    SystemError error = file.Open(path, OpenMode::Change);
    if (error == Fault::Missing)
        return Fault::None;
    qint64 size = 0;
    if (!error)
        error = file.FindSize(size);
    const SystemError close_error = file.Close();
    return error ? error : close_error;
}

SystemError OverwriteFile(const QString& path, const QByteArray& content, Overwritten& done)
{
    done = Overwritten::Nothing;
    SystemFile file;
    SystemError error = file.Open(path, OpenMode::Change);
    const bool creates = error == Fault::Missing;
    if (creates)
        error = file.Open(path, OpenMode::CreateNew);
    if (!error && creates)
        done = Overwritten::Created;
    qint64 size = 0;
    if (!error)
        error = file.FindSize(size);
    if (error)
        return error;
    if (!creates)
        done = Overwritten::Existing;
    error = FillAndClose(file, content);
    if (!error && creates)
        error = SyncFolder(FolderOf(path));
    return error;
}

SystemError WritePrivateFile(const QString& path, const QByteArray& content)
{
    SystemFile file;
    const SystemError error = file.Open(path, OpenMode::CreatePrivate);
    return error ? error : FillAndClose(file, content);
}

SystemError ReplaceFile(const QString& from, const QString& to)
{
    const SystemError error = RenameFile(from, to);
    return error ? error : SyncFolder(FolderOf(to));
}

SystemError RemoveFile(const QString& path)
{
    if (const SystemError error = UnlinkFile(path))
        return error == Fault::Missing ? Fault::None : error;
    return SyncFolder(FolderOf(path));
}

SystemError MakePrivateFolder(const QString& path)
{
    bool is_folder = false;
    const SystemError look_up = LookUp(path, is_folder);
    if (!look_up)
        return is_folder ? Fault::None : Fault::NotAFolder;
    if (look_up != Fault::Missing)
        return look_up;
    const QString above = FolderOf(path);
    if (const SystemError error = MakePrivateFolder(above))
        return error;
    if (const SystemError error = MakeOnePrivateFolder(path); error && error != Fault::AlreadyThere)
        return error;
    return SyncFolder(above);
}
