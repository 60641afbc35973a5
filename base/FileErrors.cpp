#include "base/FileErrors.h"

#include "base/Messages.h"
#include "platform/ErrorCode.h"

namespace nesk {

NeskError FileError(platform::ErrorCode code, const std::string& source, const std::string& path) {
    using platform::ErrorCode;
    const auto error = [&](int number, int message) { return NeskError(number, source, message, {path}); };
    switch (code) {
    case ErrorCode::FileNotFound: return error(RuntimeError::FileNotFound, Message::FileNotFound);
    case ErrorCode::PathNotFound: return error(RuntimeError::PathNotFound, Message::PathNotFound);
    case ErrorCode::AccessDenied: return error(RuntimeError::PermissionDenied, Message::PermissionDenied);
    case ErrorCode::Busy:
    case ErrorCode::SharingViolation: return error(RuntimeError::PermissionDenied, Message::FileInUse);
    case ErrorCode::DiskFull: return error(RuntimeError::DiskFull, Message::DiskFull);
    case ErrorCode::FileExists:
    case ErrorCode::AlreadyExists: return error(RuntimeError::FileExists, Message::FileExists);
    case ErrorCode::InvalidName:
    case ErrorCode::BadPathName: return error(RuntimeError::PathAccess, Message::InvalidName);
    case ErrorCode::BadDatabase:
    case ErrorCode::RegistryCorrupt:
        return NeskError(RuntimeError::DeviceError, source, Message::FileDamaged,
                         {path, std::to_string(Number(code))});
    default:
        return NeskError(RuntimeError::DeviceError, source, Message::DeviceError,
                         {path, std::to_string(Number(code))});
    }
}

} // namespace nesk
