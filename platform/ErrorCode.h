#pragma once

namespace nesk::platform {

/// Result of a platform service, with the numbers of Windows. A system error without an enumerator keeps its
/// own number.
enum class [[nodiscard]] ErrorCode : int{
    Success = 0,         FileNotFound = 2,       PathNotFound = 3,        AccessDenied = 5,
    InvalidHandle = 6,   OutOfMemory = 8,        NotReady = 21,           WriteFault = 29,
    ReadFault = 30,      SharingViolation = 32,  FileExists = 80,         InvalidParameter = 87,
    DiskFull = 112,      InvalidName = 123,      BadPathName = 161,       Busy = 170,
    AlreadyExists = 183, MoreData = 234,         NoMoreItems = 259,       DirectoryName = 267,
    BadDatabase = 1009,  RegistryCorrupt = 1015, RegistryIoFailed = 1016, KeyDeleted = 1018,
};

/// The number of a result code, for messages and logs.
constexpr int Number(ErrorCode code) {
    return static_cast<int>(code);
}

} // namespace nesk::platform
