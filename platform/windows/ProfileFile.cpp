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

// The system never returns a longer value, however large the buffer is.
constexpr std::size_t LargestBuffer = 65536;

// Text that the code page lacks becomes "?": as a section or key it is in no file, and it is not a valid file
// name.
std::string Narrow(const std::string& text) {
    return ToAnsi(text).value_or("?");
}

// Pipes and devices are not regular files, so they are refused: the system would open them and wait for data.
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
    // The system's function does not read files with longer paths, reads the whole file into memory, and also
    // opens pipes and devices.
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
