#include "platform/FileStamp.h"

#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

namespace nesk::platform {

namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
    constexpr unsigned bits = 32;
    return std::uint64_t{high} << bits | low;
}

} // namespace

ErrorCode StampOf(const std::string& path, FileStamp& stamp) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(windows::FilePath(path).c_str(), GetFileExInfoStandard, &data) == 0)
        return windows::LastError();
    stamp = {Joined(data.nFileSizeHigh, data.nFileSizeLow),
             static_cast<std::int64_t>(
                 Joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime))};
    return ErrorCode::Success;
}

} // namespace nesk::platform
