#include "data/system_files.h"

#include "data/runtime_error.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

namespace {

constexpr mode_t ordinary_mode = 0666; // less what the user's mask takes away
constexpr mode_t private_mode = 0600;
constexpr mode_t private_folder_mode = 0700;

/// An open file; closed at the latest when it goes out of sight.
class Descriptor {
public:
    Descriptor() = default;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Open(const QString& path, int flags, mode_t mode = 0)
    {
        if (path.contains(QChar(0)))
            return NotAFileName;
        const QByteArray name = QFile::encodeName(path);
        do {
            number = ::open(name.constData(), flags | O_CLOEXEC | O_NOCTTY, mode);
        } while (number < 0 && errno == EINTR);
        return number < 0 ? errno : 0;
    }

    // An interrupted close has closed all the same: it must not be repeated.
    int Close()
    {
        const int closing = number;
        number = -1;
        return closing < 0 || ::close(closing) == 0 || errno == EINTR ? 0 : errno;
    }

    int Number() const { return number; }

private:
    int number = -1;
};

int CheckRegular(const Descriptor& file, qint64& size)
{
    struct stat status { };
    if (::fstat(file.Number(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (!S_ISREG(status.st_mode))
        return NotARegularFile;
    size = status.st_size;
    return 0;
}

int ReadAll(const Descriptor& file, qint64 expected, QByteArray& content, qint64 largest)
{
    if (expected > largest)
        return FileTooLarge;
    content.resize(static_cast<qsizetype>(expected) + 1); // one more shows a file that has grown
    qsizetype filled = 0;
    for (;;) {
        const ssize_t count = ::read(file.Number(), content.data() + filled,
            static_cast<std::size_t>(content.size() - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            break;
        filled += count;
        if (filled > largest)
            return FileTooLarge;
        if (filled == content.size())
            content.resize(std::min<qsizetype>(filled * 2, largest + 1));
    }
    content.resize(filled);
    return 0;
}

int Empty(const Descriptor& file)
{
    while (::ftruncate(file.Number(), 0) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

int WriteAll(const Descriptor& file, const QByteArray& content)
{
    qsizetype written = 0;
    while (written < content.size()) {
        const ssize_t count = ::pwrite(file.Number(), content.constData() + written,
            static_cast<std::size_t>(content.size() - written), written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            return EIO; // neither progress nor a reason: do not try for ever
        written += count;
    }
    return 0;
}

int Sync(const Descriptor& file)
{
    while (::fsync(file.Number()) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

QString FolderOf(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return QStringLiteral(".");
    return slash == 0 ? QStringLiteral("/") : path.left(slash);
}

// A new, renamed or removed name is safe only when its folder has reached the disk.
int SyncFolder(const QString& path)
{
    Descriptor folder;
    int error = folder.Open(path, O_RDONLY | O_DIRECTORY);
    if (error == 0)
        error = Sync(folder);
    if (error == EINVAL || error == ENOTSUP)
        error = 0; // network and foreign file systems that know no such thing for folders
    const int close_error = folder.Close();
    return error != 0 ? error : close_error;
}

// Catches what no return value tells: a medium or driver that took less than it said. Nothing was
// read through this descriptor before, so it still stands at the beginning.
int Compare(const Descriptor& file, const QByteArray& content)
{
    QByteArray found;
    const int error = ReadAll(file, content.size(), found, LargestFile);
    if (error != 0)
        return error;
    return found == content ? 0 : WrittenOtherwise;
}

int FillAndClose(Descriptor& file, const QByteArray& content)
{
    int error = Empty(file);
    if (error == 0)
        error = WriteAll(file, content);
    if (error == 0)
        error = Sync(file);
    if (error == 0)
        error = Compare(file, content);
    const int close_error = file.Close();
    return error != 0 ? error : close_error;
}

} // namespace

QString ReasonOf(int error)
{
    switch (error) {
    case NotARegularFile:
        return QStringLiteral("Ist keine gewöhnliche Datei");
    case FileTooLarge:
        return QStringLiteral("Die Datei ist zu groß");
    case WrittenOtherwise:
        return QStringLiteral("Die Datei enthält nicht, was geschrieben wurde");
    case NotAFileName:
        return QStringLiteral("Das ist kein gültiger Dateiname");
    default:
        return GermanReason(error);
    }
}

bool MeansMissing(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == NotAFileName;
}

int LookUp(const QString& path, bool& is_folder)
{
    if (path.contains(QChar(0)))
        return NotAFileName;
    struct stat status { };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return errno;
    is_folder = S_ISDIR(status.st_mode);
    return 0;
}

int ReadFileBytes(const QString& path, QByteArray& content, qint64 largest)
{
    Descriptor file;
    int error = file.Open(path, O_RDONLY | O_NONBLOCK);
    qint64 size = 0;
    if (error == 0)
        error = CheckRegular(file, size);
    if (error == 0)
        error = ReadAll(file, size, content, largest);
    const int close_error = file.Close();
    return error != 0 ? error : close_error;
}

int CheckWritable(const QString& path)
{
    Descriptor file;
    int error = file.Open(path, O_RDWR | O_NONBLOCK);
    if (error == ENOENT)
        return 0;
    qint64 size = 0;
    if (error == 0)
        error = CheckRegular(file, size);
    const int close_error = file.Close();
    return error != 0 ? error : close_error;
}

int OverwriteFile(const QString& path, const QByteArray& content, Overwritten& done)
{
    done = Overwritten::Nothing;
    Descriptor file;
    int error = file.Open(path, O_RDWR | O_NONBLOCK);
    const bool creates = error == ENOENT;
    if (creates)
        error = file.Open(path, O_RDWR | O_CREAT | O_EXCL, ordinary_mode);
    if (error == 0 && creates)
        done = Overwritten::Created;
    qint64 size = 0;
    if (error == 0)
        error = CheckRegular(file, size);
    if (error != 0)
        return error;
    if (!creates)
        done = Overwritten::Existing;
    error = FillAndClose(file, content);
    if (error == 0 && creates)
        error = SyncFolder(FolderOf(path));
    return error;
}

int WritePrivateFile(const QString& path, const QByteArray& content)
{
    Descriptor file;
    const int error = file.Open(path, O_RDWR | O_CREAT | O_NOFOLLOW, private_mode);
    return error != 0 ? error : FillAndClose(file, content);
}

int ReplaceFile(const QString& from, const QString& to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return errno;
    return SyncFolder(FolderOf(to));
}

int RemoveFile(const QString& path)
{
    if (::unlink(QFile::encodeName(path).constData()) != 0)
        return errno == ENOENT ? 0 : errno;
    return SyncFolder(FolderOf(path));
}

int MakePrivateFolder(const QString& path)
{
    bool is_folder = false;
    const int look_up = LookUp(path, is_folder);
    if (look_up == 0)
        return is_folder ? 0 : ENOTDIR;
    if (look_up != ENOENT)
        return look_up;
    const QString above = FolderOf(path);
    if (const int error = MakePrivateFolder(above); error != 0)
        return error;
    if (::mkdir(QFile::encodeName(path).constData(), private_folder_mode) != 0 && errno != EEXIST)
        return errno;
    return SyncFolder(above);
}

int ListFolder(const QString& path, QStringList& names)
{
    names.clear();
    if (path.isEmpty())
        return 0;
    const QByteArray path_name = QFile::encodeName(path);
    DIR* folder = nullptr;
    do {
        folder = ::opendir(path_name.constData());
    } while (folder == nullptr && errno == EINTR);
    if (folder == nullptr)
        return errno == ENOENT ? 0 : errno;
    errno = 0;
    while (const dirent* entry = ::readdir(folder)) {
        names += QFile::decodeName(entry->d_name);
        errno = 0;
    }
    const int read_error = errno;
    const int close_error = ::closedir(folder) == 0 || errno == EINTR ? 0 : errno;
    names.sort();
    return read_error != 0 ? read_error : close_error;
}

QString HomeFolder()
{
    const QString home = qEnvironmentVariable("HOME");
    if (home.startsWith(QLatin1Char('/')))
        return home;
    const passwd* user = ::getpwuid(::geteuid());
    return user == nullptr ? QString() : QFile::decodeName(user->pw_dir);
}
