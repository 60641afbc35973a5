#include "platform/ProfileFile.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/common/ProfileSearch.h"
#include "platform/common/ProfileText.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <memory>
#include <vector>
#include <windows.h>

namespace nesk::platform {

namespace {

// No value is ever longer, however large the buffer.
constexpr std::size_t LargestBuffer = 65536;

// What the code page cannot hold is a name that stands in no file, and no file's name.
std::string Narrow(const std::string& text) {
    return ToAnsi(text).value_or("?");
}

// Pipes and devices are none: the system would open them and wait for what they say.
bool IsSmallFile(const std::string& file, const std::wstring& path) {
    std::unique_ptr<FileReader> reader;
    if (StationFiles().OpenForReading(file, reader) != ErrorCode::Success) return false;
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) return false;
    return data.nFileSizeHigh == 0 && data.nFileSizeLow <= common::ProfileReader::LargestText;
}

} // namespace

std::string ReadProfileString(const std::string& file, const std::string& section, const std::string& key,
                              const std::string& defaultValue, std::size_t capacity) {
    if (capacity == 0) return "";
    // The system reads no profile file whose path is longer, takes all of a file into memory, and opens what
    // is no file.
    const std::wstring path = windows::FilePath(file);
    if (path.size() >= MAX_PATH || !IsSmallFile(file, path))
        return common::SearchProfile(file, section, key, defaultValue, capacity);
    std::vector<char> buffer(std::min(capacity, LargestBuffer));
    const DWORD length =
        ::GetPrivateProfileStringA(Narrow(section).c_str(), Narrow(key).c_str(), Narrow(defaultValue).c_str(),
                                   buffer.data(), static_cast<DWORD>(buffer.size()), Narrow(file).c_str());
    return FromAnsi({buffer.data(), length});
}

} // namespace nesk::platform
