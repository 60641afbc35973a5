#include "platform/FileTime.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WideText.h"

namespace nesk::platform {

namespace {

std::tm Converted(const SYSTEMTIME& time) {
    constexpr int firstYear = 1900;
    std::tm local{};
    local.tm_year = time.wYear - firstYear;
    local.tm_mon = time.wMonth - 1;
    local.tm_mday = time.wDay;
    local.tm_hour = time.wHour;
    local.tm_min = time.wMinute;
    local.tm_sec = time.wSecond;
    return local;
}

} // namespace

bool LastWriteTime(const std::string& path, std::tm& local) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(windows::FilePath(path).c_str(), GetFileExInfoStandard, &data) == 0)
        return false;
    SYSTEMTIME universal{};
    SYSTEMTIME time{};
    // Uses the daylight saving rules of the file's date: in winter, a file from summer shows summer time.
    if (::FileTimeToSystemTime(&data.ftLastWriteTime, &universal) == 0 ||
        ::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &time) == 0)
        return false;
    local = Converted(time);
    return true;
}

std::tm LocalTime() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return Converted(now);
}

} // namespace nesk::platform
