#include "backup/medium.h"

#include "data/system_error_linux.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace {

constexpr mode_t folder_mode = 0777; // less what the user's mask takes away

/// A file that cannot be looked at is an error: passed over, it would be missing in a backup that
/// calls itself complete.
SystemError LookAt(int folder, const char* name, Links links, bool& is_regular)
{
    struct stat status { };
    const int flags = links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
    is_regular = false;
    if (::fstatat(folder, name, &status, flags) != 0)
        return errno == ENOENT ? Fault::None
                               : LastError(); // vanished, or a link that leads nowhere
    is_regular = S_ISREG(status.st_mode);
    return Fault::None;
}

int OpenFolder(const QString& folder)
{
    const QByteArray name = QFile::encodeName(folder);
    int descriptor = -1;
    do {
        descriptor = ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

// A slash at the end would make the system look behind a link.
QByteArray NameWithoutSlash(const QString& folder)
{
    QByteArray name = QFile::encodeName(folder);
    while (name.size() > 1 && name.endsWith('/'))
        name.chop(1);
    return name;
}

} // namespace

SystemError ListFiles(const QString& folder, Links links, QStringList& names)
{
    names.clear();
    const int descriptor = OpenFolder(folder);
    DIR* entries = descriptor < 0 ? nullptr : ::fdopendir(descriptor);
    if (entries == nullptr) {
        const SystemError open_error = LastError();
        if (descriptor >= 0)
            ::close(descriptor);
        return open_error;
    }
    SystemError error;
    errno = 0;
    while (const dirent* entry = ::readdir(entries)) {
        bool is_regular = false;
        if (const SystemError look_error
            = LookAt(::dirfd(entries), entry->d_name, links, is_regular))
            error = look_error;
        if (is_regular)
            names += QFile::decodeName(entry->d_name);
        errno = 0;
    }
    if (!error)
        error = LastError();
    const SystemError close_error
        = ::closedir(entries) == 0 || errno == EINTR ? Fault::None : LastError();
    return error ? error : close_error;
}

SystemError CheckFolder(const QString& folder)
{
    struct stat status { };
    if (::lstat(NameWithoutSlash(folder).constData(), &status) != 0)
        return LastError();
    if (S_ISLNK(status.st_mode))
        return Fault::IsALink;
    return S_ISDIR(status.st_mode) ? Fault::None : Fault::NotAFolder;
}

SystemError MakeFolder(const QString& folder)
{
    if (::mkdir(NameWithoutSlash(folder).constData(), folder_mode) == 0)
        return Fault::None;
    const SystemError error = LastError();
    // A write-protected medium refuses with another reason than "exists", although it does.
    const SystemError check = CheckFolder(folder);
    return check == Fault::Missing ? error : check;
}

bool IsLink(const QString& path)
{
    struct stat status { };
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsSameFolder(const QString& a, const QString& b)
{
    struct stat first { };
    struct stat second { };
    return ::stat(QFile::encodeName(a).constData(), &first) == 0
        && ::stat(QFile::encodeName(b).constData(), &second) == 0 && first.st_dev == second.st_dev
        && first.st_ino == second.st_ino;
}

SystemError CopyFileTimes(const QString& from, const QString& to)
{
    struct stat status { };
    if (::stat(QFile::encodeName(from).constData(), &status) != 0)
        return LastError();
    const std::array<timespec, 2> times { status.st_atim, status.st_mtim };
    return ::utimensat(AT_FDCWD, QFile::encodeName(to).constData(), times.data(), 0) == 0
        ? Fault::None
        : LastError();
}

SystemError FlushMedium(const QString& folder)
{
    const int descriptor = OpenFolder(folder);
    if (descriptor < 0)
        return LastError();
    const SystemError error = ::syncfs(descriptor) == 0 ? Fault::None : LastError();
    const SystemError close_error
        = ::close(descriptor) == 0 || errno == EINTR ? Fault::None : LastError();
    return error ? error : close_error;
}

void ForgetCached(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return; // reading it will say why
    ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
    ::close(descriptor);
}
