#include "platform/portable/HostError.h"

#include "platform/ErrorCode.h"

#include <cerrno>

namespace nesk::platform::portable {

ErrorCode ErrorFromErrno(int error, ErrorCode fallback) {
    switch (error) {
    case 0: return ErrorCode::Success;
    case ENOENT: return ErrorCode::FileNotFound;
    case ENOTDIR:
    case ELOOP: return ErrorCode::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR: return ErrorCode::AccessDenied;
    case EEXIST: return ErrorCode::AlreadyExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorCode::DiskFull;
    case ENAMETOOLONG:
    case EINVAL: return ErrorCode::InvalidName;
    case EBUSY:
    case ETXTBSY: return ErrorCode::SharingViolation;
    case ENOMEM: return ErrorCode::OutOfMemory;
    default: return fallback;
    }
}

} // namespace nesk::platform::portable
