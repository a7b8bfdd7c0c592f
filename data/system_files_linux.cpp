#include "data/system_files.h"

#include "data/system_error_linux.h"

#include <QDir>
#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr mode_t ordinary_mode = 0666; // less what the user's mask takes away
constexpr mode_t private_mode = 0600;
constexpr mode_t private_folder_mode = 0700;

struct OpenFlags {
    int flags;
    mode_t mode;
};

OpenFlags FlagsOf(OpenMode mode)
{
    switch (mode) {
    case OpenMode::Read:
        return { O_RDONLY | O_NONBLOCK, 0 };
    case OpenMode::Change:
        return { O_RDWR | O_NONBLOCK, 0 };
    case OpenMode::CreateNew:
        return { O_RDWR | O_CREAT | O_EXCL, ordinary_mode };
    case OpenMode::CreatePrivate:
        break;
    }
    return { O_RDWR | O_CREAT | O_NOFOLLOW, private_mode };
}

int OpenDescriptor(const QString& path, int flags, mode_t mode)
{
    const QByteArray name = QFile::encodeName(path);
    int descriptor = -1;
    do {
        descriptor = ::open(name.constData(), flags | O_CLOEXEC | O_NOCTTY, mode);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

int SyncDescriptor(int descriptor)
{
    while (::fsync(descriptor) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

// An interrupted close has closed all the same: it must not be repeated.
SystemError CloseDescriptor(int descriptor)
{
    return ::close(descriptor) == 0 || errno == EINTR ? Fault::None : LastError();
}

QString HomeFolder()
{
    const QString home = qEnvironmentVariable("HOME");
    if (home.startsWith(QLatin1Char('/')))
        return home;
    const passwd* user = ::getpwuid(::geteuid());
    return user == nullptr ? QString() : QFile::decodeName(user->pw_dir);
}

} // namespace

SystemError SystemFile::Open(const QString& path, OpenMode mode)
{
    if (path.contains(QChar(0)))
        return Fault::NotAFileName;
    const OpenFlags how = FlagsOf(mode);
    Handle = OpenDescriptor(path, how.flags, how.mode);
    return Handle < 0 ? LastError() : SystemError();
}

SystemError SystemFile::FindSize(qint64& size) const
{
    struct stat status { };
    if (::fstat(static_cast<int>(Handle), &status) != 0)
        return LastError();
    if (S_ISDIR(status.st_mode))
        return Fault::IsAFolder;
    if (!S_ISREG(status.st_mode))
        return Fault::NotARegularFile;
    size = status.st_size;
    return Fault::None;
}

SystemError SystemFile::ReadSome(char* into, qsizetype space, qsizetype& count) const
{
    do {
        count = ::read(static_cast<int>(Handle), into, static_cast<std::size_t>(space));
    } while (count < 0 && errno == EINTR);
    return count < 0 ? LastError() : SystemError();
}

SystemError SystemFile::Empty() const
{
    while (::ftruncate(static_cast<int>(Handle), 0) != 0) {
        if (errno != EINTR)
            return LastError();
    }
    return Fault::None;
}

SystemError SystemFile::WriteSome(
    const char* from, qsizetype size, qint64 position, qsizetype& count) const
{
    do {
        count = ::pwrite(static_cast<int>(Handle), from, static_cast<std::size_t>(size), position);
    } while (count < 0 && errno == EINTR);
    return count < 0 ? LastError() : SystemError();
}

SystemError SystemFile::Sync() const
{
    return ErrorOfNumber(SyncDescriptor(static_cast<int>(Handle)));
}

SystemError SystemFile::Close()
{
    if (Handle < 0)
        return Fault::None;
    const int closing = static_cast<int>(Handle);
    Handle = -1;
    return CloseDescriptor(closing);
}

SystemError LookUp(const QString& path, bool& is_folder)
{
    if (path.contains(QChar(0)))
        return Fault::NotAFileName;
    struct stat status { };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return LastError();
    is_folder = S_ISDIR(status.st_mode);
    return Fault::None;
}

SystemError RenameFile(const QString& from, const QString& to)
{
    return ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
        ? Fault::None
        : LastError();
}

SystemError UnlinkFile(const QString& path)
{
    return ::unlink(QFile::encodeName(path).constData()) == 0 ? Fault::None : LastError();
}

SystemError MakeOnePrivateFolder(const QString& path)
{
    return ::mkdir(QFile::encodeName(path).constData(), private_folder_mode) == 0 ? Fault::None
                                                                                  : LastError();
}

SystemError SyncFolder(const QString& path)
{
    const int folder = OpenDescriptor(path, O_RDONLY | O_DIRECTORY, 0);
    if (folder < 0)
        return LastError();
    int error = SyncDescriptor(folder);
    if (error == EINVAL || error == ENOTSUP)
        error = 0; // network and foreign file systems that know no such thing for folders
    const SystemError close_error = CloseDescriptor(folder);
    return error != 0 ? ErrorOfNumber(error) : close_error;
}

SystemError ListFolder(const QString& path, QStringList& names)
{
    names.clear();
    if (path.isEmpty())
        return Fault::None;
    const QByteArray path_name = QFile::encodeName(path);
    DIR* folder = nullptr;
    do {
        folder = ::opendir(path_name.constData());
    } while (folder == nullptr && errno == EINTR);
    if (folder == nullptr)
        return errno == ENOENT ? Fault::None : LastError();
    errno = 0;
    while (const dirent* entry = ::readdir(folder)) {
        names += QFile::decodeName(entry->d_name);
        errno = 0;
    }
    const int read_error = errno;
    const int close_error = ::closedir(folder) == 0 || errno == EINTR ? 0 : errno;
    names.sort();
    return ErrorOfNumber(read_error != 0 ? read_error : close_error);
}

QString FolderOf(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return QStringLiteral(".");
    return slash == 0 ? QStringLiteral("/") : path.left(slash);
}

QString UserStateFolder()
{
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    if (QDir::isAbsolutePath(chosen))
        return QDir::cleanPath(chosen);
    const QString home = HomeFolder();
    return home.isEmpty() ? QString() : home + QStringLiteral("/.local/state");
}
