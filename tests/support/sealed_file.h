// A file that the system itself refuses to change, for every user: it can be opened to read and
// write, but neither shortened nor lengthened. Whoever rewrites it fails half-way, as on a full or
// broken medium.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

enum class Seals {
    Length = F_SEAL_SHRINK | F_SEAL_GROW, ///< emptying fails already, unless it is empty
    Growth = F_SEAL_GROW, ///< emptying succeeds, and then nothing can be written
};

/// A link at the path leads to it as long as this lives. Zeros behind the content fill it up to the
/// size in bytes.
struct SealedFile {
    SealedFile(const QString& path, const QByteArray& content, Seals seals, qint64 size = 0)
        : Descriptor(::memfd_create("sealed", MFD_ALLOW_SEALING | MFD_CLOEXEC))
        , Path(path)
    {
        const auto count = static_cast<std::size_t>(content.size());
        Works = Descriptor >= 0 && ::write(Descriptor, content.constData(), count) == content.size()
            && (size <= content.size() || ::ftruncate(Descriptor, size) == 0)
            && ::fcntl(Descriptor, F_ADD_SEALS, static_cast<int>(seals)) == 0
            && QFile::link(QStringLiteral("/proc/self/fd/%1").arg(Descriptor), path);
    }
    ~SealedFile()
    {
        QFile::remove(Path);
        ::close(Descriptor);
    }
    SealedFile(const SealedFile&) = delete;
    SealedFile& operator=(const SealedFile&) = delete;

    int Descriptor;
    QString Path;
    bool Works = false; ///< false where the system has no such files
};
