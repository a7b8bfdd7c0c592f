#include "data/system_error_linux.h"

#include <cerrno>

namespace {

struct Name {
    int number;
    Fault kind;
};

constexpr Name names[] = {
    { 0, Fault::None },
    { ENOENT, Fault::Missing },
    { ENOTDIR, Fault::NotAFolder },
    { ENAMETOOLONG, Fault::NameTooLong },
    { EACCES, Fault::NoAccess },
    { EPERM, Fault::NotPermitted },
    { EISDIR, Fault::IsAFolder },
    { ENOSPC, Fault::NoSpace },
    { EDQUOT, Fault::NoQuota },
    { EROFS, Fault::ReadOnlyMedium },
    { EIO, Fault::BrokenMedium },
    { EBUSY, Fault::Busy },
    { ETXTBSY, Fault::FileInUse },
    { ENODEV, Fault::NoDevice },
    { ENXIO, Fault::NoDevice },
    { EMFILE, Fault::TooManyOpenFiles },
    { ENFILE, Fault::TooManyOpenFilesOfAll },
    { EFBIG, Fault::TooLargeForMedium },
    { ELOOP, Fault::LinkLoop },
    { ENOMEM, Fault::NoMemory },
    { EINVAL, Fault::InvalidCall },
    { EEXIST, Fault::AlreadyThere },
};

} // namespace

SystemError ErrorOfNumber(int number)
{
    for (const Name& name : names) {
        if (name.number == number)
            return name.kind;
    }
    return { Fault::Unnamed, number };
}

SystemError LastError() { return ErrorOfNumber(errno); }
