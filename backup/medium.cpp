#include "backup/medium.h"

#include "data/system_files.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace {

constexpr mode_t folder_mode = 0777; // less what the user's mask takes away

bool IsRegular(int folder, const char* name, Links links)
{
    struct stat status { };
    const int flags = links == Links::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
    return ::fstatat(folder, name, &status, flags) == 0 && S_ISREG(status.st_mode);
}

int OpenFolder(const QString& folder)
{
    return ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
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

int ListFiles(const QString& folder, Links links, QStringList& names)
{
    names.clear();
    DIR* entries = ::opendir(QFile::encodeName(folder).constData());
    if (entries == nullptr)
        return errno;
    errno = 0;
    while (const dirent* entry = ::readdir(entries)) {
        if (IsRegular(::dirfd(entries), entry->d_name, links))
            names += QFile::decodeName(entry->d_name);
        errno = 0;
    }
    const int read_error = errno;
    const int close_error = ::closedir(entries) == 0 ? 0 : errno;
    return read_error != 0 ? read_error : close_error;
}

int CheckFolder(const QString& folder)
{
    struct stat status { };
    if (::lstat(NameWithoutSlash(folder).constData(), &status) != 0)
        return errno;
    if (S_ISLNK(status.st_mode))
        return IsALink;
    return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

int MakeFolder(const QString& folder)
{
    if (::mkdir(NameWithoutSlash(folder).constData(), folder_mode) == 0)
        return 0;
    const int error = errno;
    // A write-protected medium refuses with another reason than "exists", although it does.
    const int check = CheckFolder(folder);
    return check == ENOENT ? error : check;
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

int CopyFileTimes(const QString& from, const QString& to)
{
    struct stat status { };
    if (::stat(QFile::encodeName(from).constData(), &status) != 0)
        return errno;
    const std::array<timespec, 2> times { status.st_atim, status.st_mtim };
    return ::utimensat(AT_FDCWD, QFile::encodeName(to).constData(), times.data(), 0) == 0 ? 0
                                                                                          : errno;
}

int FlushMedium(const QString& folder)
{
    const int descriptor = OpenFolder(folder);
    if (descriptor < 0)
        return errno;
    const int error = ::syncfs(descriptor) == 0 ? 0 : errno;
    const int close_error = ::close(descriptor) == 0 ? 0 : errno;
    return error != 0 ? error : close_error;
}

QString MediumReasonOf(int error)
{
    if (error == IsALink)
        return QStringLiteral("Ist nur eine Verknüpfung");
    if (error == IsDataDirectory)
        return QStringLiteral("Daten und Sicherung lägen im selben Ordner");
    return ReasonOf(error);
}
