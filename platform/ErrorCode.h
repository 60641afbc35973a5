#pragma once

/// Result codes of platform services, with the numbers of Windows. 0 is success.
namespace nesk::platform::ErrorCode {

constexpr int Success = 0;
constexpr int FileNotFound = 2;
constexpr int PathNotFound = 3;
constexpr int AccessDenied = 5;
constexpr int InvalidHandle = 6;
constexpr int OutOfMemory = 8;
constexpr int NotReady = 21;
constexpr int WriteFault = 29;
constexpr int ReadFault = 30;
constexpr int SharingViolation = 32;
constexpr int FileExists = 80;
constexpr int InvalidParameter = 87;
constexpr int DiskFull = 112;
constexpr int InvalidName = 123;
constexpr int BadPathName = 161;
constexpr int Busy = 170;
constexpr int AlreadyExists = 183;
constexpr int MoreData = 234;
constexpr int NoMoreItems = 259;
constexpr int DirectoryName = 267;
constexpr int BadDatabase = 1009;
constexpr int RegistryCorrupt = 1015;
constexpr int RegistryIoFailed = 1016;
constexpr int KeyDeleted = 1018;

} // namespace nesk::platform::ErrorCode
